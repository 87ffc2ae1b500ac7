// Negbinomial, against inversion by plain sums, against rejection under the table mountain one candidate at a time, and
// against Poisson numbers of Gamma means.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "qor/rng/feed.h"
#include "qor/rng/kept.h"
#include "qor/rng/scripted.h"
#include "qor/rng/sums.h"

namespace orvik::testing {
namespace {

KeptDraw negbinomial(double a, double p) {
  return [=](OrvikStream s, int32_t n, int32_t* r) { return _qoriRngNegbinomial(0, s, n, r, a, p); };
}

void expect_walk(double a, double p) {
  const double mean = a * (1 - p) / p, wide = 10 * std::sqrt(mean / p) + 60 / p;
  const Sums sums(static_cast<int64_t>(mean - wide), static_cast<int64_t>(mean + wide),
                  [=](int64_t k) { return log_negative_binomial(a, p, k); });
  for (const int32_t n : {1, 2, 1023, 1024, 1025, 5000}) {
    const Stream s(ORVIK_BRNG_MT19937, {777}), source = s.copy();
    std::vector<int32_t> expected;
    for (const double u : source.doubles(n)) expected.push_back(sums(static_cast<long double>(u)));
    ASSERT_EQ(draw(s, n, negbinomial(a, p)), expected) << a << ", " << p;
    EXPECT_EQ(s.words(3), source.words(3));
  }
}

// Up to a = 1: 0 and 1 by their probabilities, a table in x^a under C x^(a - 1), an exponential tail with the limit of
// the ratios of neighbours.
int32_t peak(Feed<double>& feed, double a, double p) {
  const double q = 1 - p, end = std::max(std::floor(0.8 * std::sqrt(1 - a) / p), 1.0), rate = -std::log1p(-p);
  const auto log_ratio = [=](double k) {
    return log_negative_binomial(a, p, static_cast<int64_t>(k)) - log_negative_binomial(a, p, 0);
  };
  const double log_share = -std::lgamma(a + 1), reach = std::expm1(a * std::log(end)), p2 = 1 + a * q;
  const double p3 = p2 + std::exp(log_share) * reach, log_height = log_share + std::log(a);
  const double p4 = p3 + std::exp(log_height + (a - 1) * std::log(end) - end * rate) / rate;
  for (;;) {
    const double u = feed() * p4, v = feed();
    if (u <= 1) return 0;
    if (u <= p2) return 1;
    double y;
    long double height = std::log(static_cast<long double>(v));
    if (u <= p3) {
      const double log_x = std::log1p((u - p2) / (p3 - p2) * reach) / a;
      y = std::clamp(std::ceil(std::exp(log_x)), 2.0, end);
      height += log_height + (a - 1) * log_x;
    } else {
      y = std::floor(end + 1 - std::log(v) / rate);
      height += std::log((u - p3) * rate);
    }
    if (height <= log_ratio(y)) return static_cast<int32_t>(std::min(y, 2147483647.0));
  }
}

// A rectangle as high as the mode between exponential tails with the ratio of neighbours at its ends.
int32_t mountain(Feed<double>& feed, double a, double p) {
  if (a <= 1) return peak(feed, a, p);
  const double q = 1 - p, t = q / p, m = std::floor((a - 1) * t), half = std::floor(1.5 * std::sqrt(a * t / p));
  const auto step = [=](double k) { return q * (a + k) / (k + 1); };
  const auto log_ratio = [=](double k) {
    return log_negative_binomial(a, p, static_cast<int64_t>(k)) - log_negative_binomial(a, p, static_cast<int64_t>(m));
  };
  const double xl = std::max(m - half, 0.0), xr = m + half + 1, right = -std::log(step(xr - 1));
  double left = 0, left_area = 0;
  if (xl > 0) {
    left = std::log(step(xl - 1));
    left_area = static_cast<double>(std::exp(log_ratio(xl))) / left;
  }
  const double p1 = xr - xl, p2 = p1 + left_area, p3 = p2 + static_cast<double>(std::exp(log_ratio(xr - 1))) / right;
  for (;;) {
    const double u = feed() * p3;
    double v = feed(), y;
    if (u <= p1) {
      y = std::floor(xl + u);
    } else if (u <= p2) {
      y = std::floor(xl + std::log(v) / left);
      v *= (u - p1) * left;
    } else {
      y = std::floor(xr - std::log(v) / right);
      v *= (u - p2) * right;
    }
    if (y < 0 || y > 0x7FFFFFFF) continue;
    if (std::log(static_cast<long double>(v)) <= log_ratio(y)) return static_cast<int32_t>(y);
  }
}

void expect_mountain(double a, double p, int32_t candidates_a_number) {
  for (const int32_t n : {1, 2, 511, 512, 513, 3000}) {
    const Stream s(ORVIK_BRNG_MT19937, {777});
    Feed<double> feed(s.copy(), 2 * candidates_a_number * (n + 100));
    std::vector<int32_t> expected;
    for (int32_t i = 0; i < n; ++i) expected.push_back(mountain(feed, a, p));
    ASSERT_EQ(draw(s, n, negbinomial(a, p)), expected) << a << ", " << p;
    expect_same(s.doubles(3), feed.following(3), "numbers that follow");
  }
}

void expect_mixture(double a, double p) {
  for (const int32_t n : {1, 2, 1023, 1024, 1025, 3000}) {
    const Stream s(ORVIK_BRNG_MT19937, {777}), source = s.copy();
    std::vector<int32_t> expected(static_cast<size_t>(n));
    for (int32_t first = 0; first < n; first += 1024) {
      const int32_t count = std::min(n - first, 1024);
      std::vector<double> lambda(static_cast<size_t>(count));
      ASSERT_EQ(_qordRngGamma(0, source.get(), count, lambda.data(), a, 0, (1 - p) / p), 0);
      ASSERT_EQ(_qoriRngPoissonV(0, source.get(), count, expected.data() + first, lambda.data()), 0);
    }
    ASSERT_EQ(draw(s, n, negbinomial(a, p)), expected) << a << ", " << p;
    EXPECT_EQ(s.words(3), source.words(3));
  }
}

TEST(Negbinomial, OfTBelow100IsAWalkOverSums) {
  for (const auto& [a, p] : {std::pair(1.0, 0.5), std::pair(0.05, 0.02), std::pair(1e-6, 0.3), std::pair(5.5, 0.3),
                             std::pair(300.0, 0.25), std::pair(40.0, 0.999)})
    expect_walk(a, p);
}

TEST(Negbinomial, WalksInStridesWhereNumbersSpreadWidely) {
  for (const auto& [a, p] : {std::pair(20000.0, 0.3), std::pair(1000.0, 0.011), std::pair(1e6, 0.2)}) expect_walk(a, p);
}

TEST(Negbinomial, WalksWhereTheProbabilityOfZeroIsTooSmallForItsType) {
  ASSERT_EQ(std::pow(0.3, 1000.0), 0);
  expect_walk(1000, 0.3);
}

TEST(Negbinomial, OfTFrom100OnIsByRejection) {
  for (const auto& [a, p] :
       {std::pair(1.001, 0.005), std::pair(1.5, 0.005), std::pair(40.0, 0.005), std::pair(1000.0, 0.001)})
    expect_mountain(a, p, 5);
}

TEST(Negbinomial, OfAPeakAtZeroIsByRejectionUnderAPowerAndATail) {
  for (const auto& [a, p] : {std::pair(1.0, 0.005), std::pair(0.5, 0.005), std::pair(0.9, 1e-5), std::pair(0.1, 1e-6),
                             std::pair(1e-3, 1e-9), std::pair(1e-9, 1e-4)})
    expect_mountain(a, p, 5);
}

TEST(Negbinomial, OfAPeakAtZeroTakesFewCandidates) {
  for (const double a : {1e-12, 1e-3, 0.1, 0.3, 0.5, 0.7, 0.9, 0.99, 1.0})
    for (const double p : {0.0099, 1e-3, 1e-5, 1e-8, 1e-12}) {
      if (a / p > 1e7) continue;
      constexpr int32_t kNumbers = 4000;
      Scripted s;
      s.spread();
      std::vector<int32_t> r(kNumbers);
      ASSERT_EQ(_qoriRngNegbinomial(0, s.get(), kNumbers, r.data(), a, p), 0);
      EXPECT_LT(s->drawn, 2 * 1.5 * kNumbers) << a << ", " << p;
    }
}

TEST(Negbinomial, OfTOfExactly100IsByRejection) {
  const double p = 1 / 101.0, below = std::nextafter(p, 1);
  ASSERT_EQ((1 - p) / p, 100);
  ASSERT_LT((1 - below) / below, 100);
  expect_mountain(3, p, 5);
  expect_walk(3, below);
}

TEST(Negbinomial, OfAMeanFrom10737418Point24OnIsPoissonOfGammaMeans) {
  expect_mixture(2e6, 0.1);
  expect_mixture(0.25, 1e-8);
}

TEST(Negbinomial, OfAMeanOfExactly10737418Point24IsPoissonOfGammaMeans) {
  const double a = 10737418.24;  // t is 1
  expect_mixture(a, 0.5);
  const Stream s(ORVIK_BRNG_MT19937, {777}), source = s.copy();
  draw(s, 1, negbinomial(std::nextafter(a, 0), 0.5));
  source.doubles(1);
  EXPECT_EQ(s.words(3), source.words(3)) << "one uniform";
}

TEST(Negbinomial, OfCertainSuccessIsZero) {
  const Stream s(ORVIK_BRNG_MT19937, {777});
  EXPECT_EQ(draw(s, 100, negbinomial(5, 1)), std::vector<int32_t>(100, 0));
}

TEST(Negbinomial, BeyondIntegersIsTheLargestInteger) {
  const Stream s(ORVIK_BRNG_MT19937, {777});
  for (const int32_t k : draw(s, 10, negbinomial(1e6, 1e-9))) EXPECT_EQ(k, 0x7FFFFFFF);
}

TEST(Negbinomial, NumbersOfALongTailBeyondIntegersAreTheLargestInteger) {
  // Of a small a the numbers that are not 0 have about the density exp(-p x) / x.
  const Stream s(ORVIK_BRNG_MT19937, {777});
  int64_t largest = 0;
  for (const int32_t k : draw(s, 1000000, negbinomial(1e-3, 1e-10))) largest += k == 0x7FFFFFFF;
  EXPECT_NEAR(static_cast<double>(largest), -1e3 * std::expint(-0x1p31 * 1e-10), 200);
  expect_mountain(1e-3, 1e-10, 5);
}

TEST(Negbinomial, OfAProbabilityThatOneHidesEnds) {
  const double least = std::numeric_limits<double>::denorm_min();
  for (const auto& [a, p] : {std::pair(1e-300, 1e-300), std::pair(1e-10, 1e-17), std::pair(least, least),
                             std::pair(1e-303, 1e-310), std::pair(least, 1e-300)})
    for (const double u : {0.2, 0.999, 1 - 0x1p-53, 1.0}) {
      Scripted s;
      s->number = [u](int64_t i) { return i < 8 ? u : 0.5; };
      const std::vector<int32_t> r =
          drawn<int32_t>(100, [&, a = a, p = p](int32_t* r) { return _qoriRngNegbinomial(0, s.get(), 100, r, a, p); });
      for (size_t i = 0; i < r.size(); ++i)  // one in some 10^8 is not 0
        EXPECT_TRUE(u < 0.9999 || i >= 4 ? r[i] == 0 : r[i] >= 0) << a << ", " << p << ", " << u << ": " << r[i];
    }
}

TEST(Negbinomial, EndsForUniformsAtTheirEnds) {
  for (const auto& [a, p] : {std::pair(5.0, 0.3), std::pair(20000.0, 0.3)})
    for (const double u : {0.0, 1.0, 1 - 0x1p-53}) {
      Scripted s;
      s->number = [u](int64_t) { return u; };
      int32_t r[3];
      ASSERT_EQ(_qoriRngNegbinomial(0, s.get(), 3, r, a, p), 0);
      const double mean = a * (1 - p) / p, deviation = std::sqrt(mean / p);
      for (const int32_t k : r) {
        EXPECT_GE(k, 0);
        if (u == 0) {
          EXPECT_LT(k, mean);
        }
        if (u > 0) {
          EXPECT_TRUE(k > mean + 5 * deviation && k < mean + 40 * deviation) << k;
        }
      }
    }
}

TEST(Negbinomial, AsksForBlocksOf1024NumbersOr512Candidates) {
  Scripted s;
  s.spread();
  std::vector<int32_t> r(2500);
  ASSERT_EQ(_qoriRngNegbinomial(0, s.get(), 2500, r.data(), 5, 0.3), 0);
  EXPECT_EQ(s->sizes(), (std::vector<int32_t>{1024, 1024, 452}));
  s->requests.clear();
  ASSERT_EQ(_qoriRngNegbinomial(0, s.get(), 2500, r.data(), 40, 0.005), 0);
  EXPECT_EQ(s->sizes()[0], 1024) << "two a candidate";
}

TEST(Negbinomial, SetsUpOnceForEqualParameters) {
  expect_kept(4, negbinomial(5, 0.3), negbinomial(5, 0.4));
  expect_kept(4, negbinomial(5, 0.3), negbinomial(6, 0.3));
  expect_kept(4, negbinomial(5, 0.3), negbinomial(40, 0.005));
  expect_not_built_again(4, 16, negbinomial(5, 0.3), negbinomial(5, 0.4));
  expect_not_built_again(4, 16, negbinomial(40, 0.005), negbinomial(40, 0.0055));
  // Exponentials are asked for by the set-up alone.
  const Stream s(ORVIK_BRNG_MT19937, {777});
  void** const slot = orvik_zym_kernel_dExp_ttab + 1;
  static void (*original)(int32_t, const double*, double*);
  static int calls;
  calls = 0;
  original = reinterpret_cast<decltype(original)>(*slot);
  void* const kept = *slot;
  *slot = reinterpret_cast<void*>(+[](int32_t n, const double* a, double* r) {
    ++calls;
    original(n, a, r);
  });
  for (int i = 0; i < 5; ++i) draw(s, 1, negbinomial(40, 0.005));
  EXPECT_EQ(calls, 2) << "the heights of two tails";
  draw(s, 1, negbinomial(41, 0.005));
  EXPECT_EQ(calls, 4);
  *slot = kept;
}

TEST(Negbinomial, LeaksNothingWhenAnAllocationFails) { expect_no_leaks(negbinomial(5, 0.3)); }

TEST(Negbinomial, BelievesNoSetUpOfAnImage) {
  expect_sound_after_images(4, 16, negbinomial(5, 0.3));
  expect_sound_after_images(4, 16, negbinomial(40, 0.005));
}

}  // namespace
}  // namespace orvik::testing
