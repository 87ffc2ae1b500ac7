// Poisson and PoissonV, against inversion by plain sums, against PTPE one candidate at a time (Schmeiser,
// Kachitvichyanukul 1981), and against the quantile of normal numbers.
#include <gtest/gtest.h>

#include <cmath>

#include "qor/rng/feed.h"
#include "qor/rng/kept.h"
#include "qor/rng/scripted.h"
#include "qor/rng/sums.h"

namespace orvik::testing {
namespace {

constexpr uint32_t kRejection = ORVIK_POISSON_REJECTION, kNormal = ORVIK_POISSON_NORMAL;
constexpr int32_t kCounts[] = {1, 2, 1023, 1024, 1025, 2048, 2049, 5000};

KeptDraw poisson(uint32_t method, double lambda) {
  return [=](OrvikStream s, int32_t n, int32_t* r) { return _qoriRngPoisson(method, s, n, r, lambda); };
}
KeptDraw poisson_v(const std::vector<double>& lambda) {
  return [&lambda](OrvikStream s, int32_t n, int32_t* r) { return _qoriRngPoissonV(0, s, n, r, lambda.data()); };
}

int32_t ptpe(Feed<float>& feed, double lambda) {
  const double m = std::floor(lambda), p1 = std::floor(2.195 * std::sqrt(lambda) - 2.2) + 0.5;
  const double xm = m + 0.5, xl = xm - p1, xr = xm + p1, c = 0.133 + 8.56 / (6.83 + lambda);
  double a = (lambda - xl) / lambda;
  const double left = a * (1 + a / 2);
  a = (xr - lambda) / xr;
  const double right = a * (1 + a / 2), p2 = p1 * (1 + 2 * c), p3 = p2 + (0.109 + 8.25 / (10.86 + lambda)) / left;
  const double p4 = p3 + c / right;
  for (;;) {
    const double u = static_cast<double>(feed()) * p4;
    double v = static_cast<double>(feed()), y;
    if (u <= p1) return static_cast<int32_t>(std::floor(xm - p1 * v + u));
    if (u <= p2) {
      const double x = xl + (u - p1) / c;
      v = v * c + 1 - std::fabs(m - x + 0.5) / p1;
      if (v > 1) continue;
      y = std::floor(x);
    } else if (u <= p3) {
      y = std::floor(xl + std::log(v) / left);
      if (y < 0) continue;
      v *= (u - p2) * left;
    } else {
      y = std::floor(xr - std::log(v) / right);
      v *= (u - p3) * right;
    }
    const long double ratio =
        (static_cast<long double>(y) - static_cast<long double>(m)) * std::log(static_cast<long double>(lambda)) -
        log_gamma(static_cast<long double>(y) + 1) + log_gamma(static_cast<long double>(m) + 1);
    if (std::log(static_cast<long double>(v)) <= ratio) return static_cast<int32_t>(y);
  }
}

void expect_table(double lambda) {
  const Sums sums = poisson_sums(lambda);
  for (const int32_t n : kCounts) {
    const Stream s(ORVIK_BRNG_MT19937, {777}), source = s.copy();
    std::vector<int32_t> expected;
    for (const double u : source.doubles(n)) expected.push_back(sums(static_cast<long double>(u)));
    ASSERT_EQ(draw(s, n, poisson(kRejection, lambda)), expected) << lambda;
    EXPECT_EQ(s.words(3), source.words(3));
  }
}

void expect_ptpe(double lambda) {
  for (const int32_t n : kCounts) {
    const Stream s(ORVIK_BRNG_MT19937, {777});
    Feed<float> feed(s.copy(), 6 * n + 200);
    std::vector<int32_t> expected;
    for (int32_t i = 0; i < n; ++i) expected.push_back(ptpe(feed, lambda));
    ASSERT_EQ(draw(s, n, poisson(kRejection, lambda)), expected) << lambda;
    expect_same(s.floats(3), feed.following(3), "numbers that follow");
  }
}

// The quantile in the normal number w, and how far it may be off: by the series and by an error of w.
struct Quantile {
  double value, error;
  Quantile(double w, double lambda, double error_of_w) {
    const double sigma = std::sqrt(lambda), square = w * w;
    value = lambda + sigma * w + 1.0 / 3 + square / 6 - w * (1.0 / 36 + square / 72) / sigma +
            (-8.0 / 405 + 7 * square / 810 + square * square / 270) / lambda;
    error =
        (0.05 + square * square * square / 1000) / (lambda * sigma) + sigma * error_of_w * std::max(1.0, std::fabs(w));
  }
  bool is_open() const {
    const double k = std::floor(value + error);
    return k >= 1 && k > value - error;
  }
};

// What normal numbers from `source` give for means of which there are `sums`, in the order of the draws: normal
// numbers, then a uniform for each that is open.
template <class SumsOf>
std::vector<int32_t> from_normals(const Stream& source, const std::vector<double>& lambda, SumsOf sums_of) {
  constexpr double kError = 0x1p-22;
  std::vector<float> z(lambda.size());
  EXPECT_EQ(_qorsRngGaussian(2, source.get(), static_cast<int32_t>(z.size()), z.data(), 0, 1), 0);
  std::vector<double> w(z.begin(), z.end());
  int32_t open = 0;
  for (size_t i = 0; i < w.size(); ++i) open += Quantile(w[i], lambda[i], kError).is_open();
  const std::vector<double> u = open > 0 ? source.doubles(open) : std::vector<double>();
  size_t next = 0;
  std::vector<int32_t> r;
  for (size_t i = 0; i < w.size(); ++i) {
    if (Quantile(w[i], lambda[i], kError).is_open())
      w[i] += (2 * u[next++] - 1) * kError * std::max(1.0, std::fabs(w[i]));
    r.push_back(sums_of(lambda[i])(std::erfc(static_cast<long double>(-w[i]) / std::sqrt(2.0L)) / 2));
  }
  return r;
}

TEST(Poisson, OfAMeanBelow27IsByATable) {
  for (const double lambda : {1e-9, 0.1, 1.0, 5.5, 20.0, std::nextafter(27.0, 0.0)}) expect_table(lambda);
}

TEST(Poisson, OfAMeanFrom27OnIsPtpe) {
  for (const double lambda : {27.0, 27.999, 28.0, 60.25, 1000.5, 1e6, 2e9}) expect_ptpe(lambda);
}

TEST(Poisson, OfAMeanOfExactly27IsByRejection) {
  Scripted s;
  s.spread();
  int32_t r;
  ASSERT_EQ(_qoriRngPoisson(kRejection, s.get(), 1, &r, 27), 0);
  EXPECT_EQ(s->sizes()[0], 2) << "two floats a candidate";
  s->requests.clear();
  ASSERT_EQ(_qoriRngPoisson(kRejection, s.get(), 1, &r, std::nextafter(27.0, 0.0)), 0);
  EXPECT_EQ(s->sizes(), std::vector<int32_t>{1}) << "one double a number";
}

TEST(Poisson, ByNormalNumbersIsTheirQuantile) {
  for (const double lambda : {27.0, 50.5, 1000.0, 123456.0}) {
    const Sums sums = poisson_sums(lambda);
    for (const int32_t n : kCounts) {
      const Stream s(ORVIK_BRNG_MT19937, {777}), source = s.copy();
      std::vector<int32_t> expected;
      for (int32_t first = 0; first < n; first += 2048) {
        const std::vector<double> means(static_cast<size_t>(std::min(n - first, 2048)), lambda);
        for (const int32_t k : from_normals(source, means, [&](double) { return sums; })) expected.push_back(k);
      }
      ASSERT_EQ(draw(s, n, poisson(kNormal, lambda)), expected) << lambda;
      EXPECT_EQ(s.words(3), source.words(3));
    }
  }
}

TEST(Poisson, ByNormalNumbersBelow27IsByTheTable) {
  for (const double lambda : {0.1, 5.5, 26.9}) {
    const Sums sums = poisson_sums(lambda);
    const Stream s(ORVIK_BRNG_MT19937, {777}), source = s.copy();
    std::vector<float> z(5000);
    ASSERT_EQ(_qorsRngGaussian(2, source.get(), 5000, z.data(), 0, 1), 0);
    std::vector<int32_t> expected;
    for (const float w : z) expected.push_back(sums(std::erfc(static_cast<long double>(-w) / std::sqrt(2.0L)) / 2));
    EXPECT_EQ(draw(s, 5000, poisson(kNormal, lambda)), expected);
    EXPECT_EQ(s.words(3), source.words(3));
  }
}

TEST(Poisson, RedrawsWhatRoundingLeavesOpenByOneUniform) {
  // The first normal number is the largest below the step to the mean, as near as floats come.
  Scripted s;
  s->number = [](int64_t i) { return i == 0 ? 0.5 : i == 1 ? 0.75 : 0.25; };
  std::vector<int32_t> r(1);
  const double lambda = 1e6 - 1.0 / 3;  // its median lies on a whole number
  ASSERT_EQ(_qoriRngPoisson(kNormal, s.get(), 1, r.data(), lambda), 0);
  ASSERT_EQ(s->requests, (std::vector<Request>{{1, -1, 1}, {1, 0, 1}}));
  const int32_t above = r[0];
  Scripted t;
  t->number = [](int64_t i) { return i == 0 ? 0.5 : 0.25; };
  ASSERT_EQ(_qoriRngPoisson(kNormal, t.get(), 1, r.data(), lambda), 0);
  EXPECT_EQ(above, 1000000);
  EXPECT_EQ(r[0], 999999);
}

TEST(Poisson, AsksForBlocksOf2048NormalNumbers) {
  Scripted s;
  s->number = [](int64_t) { return 0.5; };
  std::vector<int32_t> r(5000);
  ASSERT_EQ(_qoriRngPoisson(kNormal, s.get(), 5000, r.data(), 1000), 0);
  EXPECT_EQ(s->sizes(), (std::vector<int32_t>{2048, 2048, 904}));
}

TEST(Poisson, AsksForBlocksOf2048FloatsOfCandidates) {
  Scripted s;
  s.spread();
  std::vector<int32_t> r(5000);
  ASSERT_EQ(_qoriRngPoisson(kRejection, s.get(), 5000, r.data(), 1000), 0);
  EXPECT_EQ(s->sizes()[0], 2048);
}

TEST(Poisson, BeyondIntegersIsTheLargestInteger) {
  for (const uint32_t method : {kRejection, kNormal})
    for (const int32_t n : {1, 2000}) {
      const Stream s(ORVIK_BRNG_MT19937, {777});
      int64_t largest = 0;
      for (int32_t i = 0; i < 2000 / n; ++i)
        for (const int32_t k :
             drawn<int32_t>(n, [&](int32_t* r) { return _qoriRngPoisson(method, s.get(), n, r, 2147483647.0); })) {
          ASSERT_GT(k, 2147483647 - 10 * 46341);
          largest += k == 0x7FFFFFFF;
        }
      EXPECT_NEAR(static_cast<double>(largest), 1000, 150) << "half of them are above the mean";
    }
}

TEST(Poisson, RefusesOtherMethods) {
  Scripted s;
  int32_t r = 7;
  EXPECT_EQ(_qoriRngPoisson(2, s.get(), 1, &r, 5), ORVIK_QOR_BAD_METHOD);
  EXPECT_EQ(r, 7);
  EXPECT_TRUE(s->requests.empty());
}

TEST(Poisson, OfUniformsAtTheirEndsStaysInTheTable) {
  for (const uint32_t method : {kRejection, kNormal})
    for (const double u : {0.0, 1.0, 1 - 0x1p-53, 1 - 0x1p-24}) {
      Scripted s;
      s->number = [u](int64_t) { return u; };
      std::vector<int32_t> r(3);
      ASSERT_EQ(_qoriRngPoisson(method, s.get(), 3, r.data(), 5), 0);
      for (const int32_t k : r) {
        if (u == 0) {
          EXPECT_EQ(k, 0);
        }
        if (u > 0) {
          EXPECT_TRUE(k > 15 && k <= 110) << k;
        }
      }
    }
}

TEST(Poisson, OfNormalNumbersAtTheirEndsIsFinite) {
  for (const double u : {0.0, 1.0}) {
    Scripted s;
    s->number = [u](int64_t) { return u; };
    int32_t r;
    ASSERT_EQ(_qoriRngPoisson(kNormal, s.get(), 1, &r, 10000), 0);
    EXPECT_NEAR(r, 10000 + (u == 0 ? -1 : 1) * 542, 10) << "the bound of the inverse of the error function";
  }
}

TEST(Poisson, SetsUpOnceForEqualParameters) {
  expect_kept(3, poisson(kRejection, 5), poisson(kRejection, 6));
  expect_kept(3, poisson(kRejection, 50), poisson(kRejection, 51));
  expect_kept(3, poisson(kRejection, 50), poisson(kRejection, 5));
  expect_kept(3, poisson(kNormal, 5), poisson(kRejection, 5.5));
  expect_not_built_again(3, 8, poisson(kRejection, 5), poisson(kRejection, 6));
  expect_not_built_again(3, 8, poisson(kRejection, 50), poisson(kRejection, 53));
}

TEST(Poisson, ByNormalNumbersFrom27OnKeepsNothing) {
  const Stream s(ORVIK_BRNG_MT19937, {777});
  draw(s, 10, poisson(kNormal, 27));
  EXPECT_EQ(__qorGetNumChunks(s.get()), 0);
}

TEST(Poisson, LeaksNothingWhenAnAllocationFails) { expect_no_leaks(poisson(kRejection, 5)); }

TEST(Poisson, BelievesNoSetUpOfAnImage) {
  expect_sound_after_images(3, 8, poisson(kRejection, 5));
  expect_sound_after_images(3, 8, poisson(kRejection, 50));
}

TEST(PoissonV, OfSmallMeansIsInversionOfOneDouble) {
  for (const double lambda : {0.0, 0.1, 3.0, 26.99, 27.0, 100.0, 1036.99}) {
    const Sums sums = poisson_sums(lambda);
    for (const int32_t n : kCounts) {
      const std::vector<double> means(static_cast<size_t>(n), lambda);
      const Stream s(ORVIK_BRNG_MT19937, {777}), source = s.copy();
      std::vector<int32_t> expected;
      for (const double u : source.doubles(n)) expected.push_back(sums(static_cast<long double>(u)));
      ASSERT_EQ(draw(s, n, poisson_v(means)), expected) << lambda;
      EXPECT_EQ(s.words(3), source.words(3));
    }
  }
}

TEST(PoissonV, HasEveryStepOfTheDistributionFunctionInItsPlace) {
  // From both sides, within a ten-thousandth of the probability there; further below, the expansion is not as good.
  for (const double lambda : {27.0, 40.5, 200.0, 1036.5}) {
    const Sums sums = poisson_sums(lambda);
    Scripted s;
    for (auto k = static_cast<int32_t>(lambda - 3.5 * std::sqrt(lambda)); k < lambda + 5 * std::sqrt(lambda); ++k) {
      const double step = sums.below(k), width = sums.below(k + 1) - step;
      s->number = [=](int64_t i) { return i == 0 ? step - 1e-4 * width : step + 1e-4 * width; };
      s->drawn = 0;
      int32_t r[2];
      const double means[2] = {lambda, lambda};
      ASSERT_EQ(_qoriRngPoissonV(0, s.get(), 2, r, means), 0);
      EXPECT_EQ(r[0], k - 1) << lambda;
      EXPECT_EQ(r[1], k) << lambda;
    }
  }
}

TEST(PoissonV, OfMeansFrom1037OnIsByNormalNumbers) {
  for (const double lambda : {1037.0, 50000.25}) {
    const Sums sums = poisson_sums(lambda);
    const std::vector<double> means(2000, lambda);
    const Stream s(ORVIK_BRNG_MT19937, {777}), source = s.copy();
    EXPECT_EQ(draw(s, 2000, poisson_v(means)), from_normals(source, means, [&](double) { return sums; }));
    EXPECT_EQ(s.words(3), source.words(3));
  }
}

TEST(PoissonV, OfAMeanOfExactly1037IsByANormalNumber) {
  Scripted s;
  int32_t r;
  double mean = 1037;
  ASSERT_EQ(_qoriRngPoissonV(0, s.get(), 1, &r, &mean), 0);
  EXPECT_EQ(s->requests[0], (Request{1, -1, 1}));
  s->requests.clear();
  mean = std::nextafter(mean, 0);
  ASSERT_EQ(_qoriRngPoissonV(0, s.get(), 1, &r, &mean), 0);
  EXPECT_EQ(s->requests[0], (Request{1, 0, 1}));
}

TEST(PoissonV, TakesSmallMeansOfABlockBeforeLargeOnes) {
  const std::vector<double> means = {2000, 3, 5000.5, 100, 2000, 1};
  const Stream s(ORVIK_BRNG_MT19937, {777}), source = s.copy();
  const std::vector<double> u = source.doubles(3);
  const std::vector<int32_t> large = from_normals(source, {2000, 5000.5, 2000}, poisson_sums);
  const auto small = [](double lambda, double x) { return poisson_sums(lambda)(static_cast<long double>(x)); };
  EXPECT_EQ(draw(s, 6, poisson_v(means)),
            (std::vector<int32_t>{large[0], small(3, u[0]), large[1], small(100, u[1]), large[2], small(1, u[2])}));
  EXPECT_EQ(s.words(3), source.words(3));
}

TEST(PoissonV, AsksForBlocksOf2048) {
  Scripted s;
  const std::vector<double> means(5000, 3);
  std::vector<int32_t> r(5000);
  ASSERT_EQ(_qoriRngPoissonV(0, s.get(), 5000, r.data(), means.data()), 0);
  EXPECT_EQ(s->sizes(), (std::vector<int32_t>{2048, 2048, 904}));
}

TEST(PoissonV, OfAMeanBeyondIntegersIsTheLargestInteger) {
  const Stream s(ORVIK_BRNG_MT19937, {777});
  const std::vector<double> means = {1e12, 1e300, std::numeric_limits<double>::infinity()};
  for (const int32_t k : draw(s, 3, poisson_v(means))) EXPECT_EQ(k, std::numeric_limits<int32_t>::max());
}

TEST(PoissonV, OfUniformsAtTheirEndsEnds) {
  for (const double u : {0.0, 1.0}) {
    Scripted s;
    s->number = [u](int64_t) { return u; };
    int32_t r[3];
    const double means[3] = {1e-3, 5, 500};
    ASSERT_EQ(_qoriRngPoissonV(0, s.get(), 3, r, means), 0);
    if (u == 0) {
      EXPECT_TRUE(r[0] == 0 && r[1] == 0 && r[2] < 340) << r[2];
    }
    if (u == 1) {
      EXPECT_TRUE(r[0] <= 110 && r[1] <= 110 && r[2] < 730) << r[2];
    }
  }
}

}  // namespace
}  // namespace orvik::testing
