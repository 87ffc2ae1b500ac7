// Binomial, against the published algorithms one candidate at a time: BINV's walk, and BTPE with its recursion and
// squeezes (Kachitvichyanukul, Schmeiser 1988).
#include <gtest/gtest.h>

#include <cmath>

#include "qor/rng/feed.h"
#include "qor/rng/kept.h"
#include "qor/rng/patched.h"
#include "qor/rng/scripted.h"

namespace orvik::testing {
namespace {

KeptDraw binomial(int32_t trials, double p) {
  return [=](OrvikStream s, int32_t n, int32_t* r) { return _qoriRngBinomial(0, s, n, r, trials, p); };
}

int32_t walk_from(double u, int32_t trials, double p) {
  const double r = p / (1 - p), g = r * (trials + 1.0);
  double f = high_power(1 - p, static_cast<double>(trials));
  int32_t k = 0;
  while (u > f) {
    u -= f;
    ++k;
    f *= g / k - r;
  }
  return k;
}

int32_t walk(Feed<float>& feed, int32_t trials, double p) { return walk_from(static_cast<double>(feed()), trials, p); }

int32_t btpe(Feed<float>& feed, int32_t trials, double p) {
  const double n = trials, q = 1 - p, npq = n * p * q, ffm = n * p + p, m = std::floor(ffm);
  const double p1 = std::floor(2.195 * std::sqrt(npq) - 4.6 * q) + 0.5, xm = m + 0.5, xl = xm - p1, xr = xm + p1;
  const double c = 0.134 + 20.5 / (15.3 + m);
  double a = (ffm - xl) / (ffm - xl * p);
  const double left = a * (1 + a / 2);
  a = (xr - ffm) / (xr * q);
  const double right = a * (1 + a / 2), p2 = p1 * (1 + 2 * c), p3 = p2 + c / left, p4 = p3 + c / right;
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
      if (y > n) continue;
      v *= (u - p3) * right;
    }
    const double k = std::fabs(y - m);
    if (k <= 20 || k >= npq / 2 - 1) {
      const double s = p / q, g = s * (n + 1);
      double f = 1;
      for (double i = m + 1; i <= y; ++i) f *= g / i - s;
      for (double i = y + 1; i <= m; ++i) f /= g / i - s;
      if (v <= f) return static_cast<int32_t>(y);
      continue;
    }
    const double rho = (k / npq) * ((k * (k / 3 + 0.625) + 0.1666666666666) / npq + 0.5), t = -k * k / (2 * npq);
    const double lv = std::log(v);
    if (lv < t - rho) return static_cast<int32_t>(y);
    if (lv > t + rho) continue;
    const auto lf = [](double x) { return std::lgamma(x + 1); };
    if (lv <= lf(m) + lf(n - m) - lf(y) - lf(n - y) + (y - m) * std::log(p / q)) return static_cast<int32_t>(y);
  }
}

template <class Method>
void agree(int32_t trials, double p, Method method) {
  for (const int32_t n : {1, 2, 1023, 1024, 1025, 5000}) {
    const Stream s(ORVIK_BRNG_MT19937, {777});
    Feed<float> feed(s.copy(), 6 * n + 200);
    std::vector<int32_t> expected;
    for (int32_t i = 0; i < n; ++i) expected.push_back(method(feed, trials, p <= 0.5 ? p : 1 - p));
    if (p > 0.5)
      for (int32_t& k : expected) k = trials - k;
    ASSERT_EQ(draw(s, n, binomial(trials, p)), expected) << trials << ", " << p;
    expect_same(s.floats(3), feed.following(3), "numbers that follow");
  }
}

TEST(Binomial, OfAMeanBelow30IsAWalk) {
  for (const auto& [trials, p] : {std::pair(1, 0.3), std::pair(1, 0.5), std::pair(20, 0.1), std::pair(59, 0.5),
                                  std::pair(1000000, 0.00001), std::pair(2000000000, 1e-8), std::pair(30, 0.99)})
    agree(trials, p, walk);
}

TEST(Binomial, OfAMeanFrom30OnIsBtpe) {
  for (const auto& [trials, p] : {std::pair(100, 0.4), std::pair(1000, 0.5), std::pair(1000, 0.83),
                                  std::pair(100000, 0.001), std::pair(10000000, 0.2)})
    agree(trials, p, btpe);
}

TEST(Binomial, OfAMeanOfExactly30GoesToBtpe) {
  agree(60, 0.5, btpe);
  agree(120, 0.25, btpe);
  agree(59, 0.5, walk);
}

TEST(Binomial, OfNoTrialsIsZeroAndDrawsNothing) {
  Scripted s;
  std::vector<int32_t> r(5, 7);
  s->status = [](int64_t) { return -5; };
  EXPECT_EQ(_qoriRngBinomial(0, s.get(), 4, r.data(), 0, 0.3), 0);
  EXPECT_EQ(r, (std::vector<int32_t>{0, 0, 0, 0, 7}));
  EXPECT_EQ(_qoriRngBinomial(0, s.get(), -4, r.data(), 0, 0.3), 0);
  EXPECT_TRUE(s->requests.empty());
  EXPECT_EQ(__qorGetNumChunks(s.get()), 0);
}

TEST(Binomial, OfOneHalfTakesTheDirectPath) {
  const Stream s(ORVIK_BRNG_MT19937, {777});
  Feed<float> feed(s.copy(), 10);
  EXPECT_EQ(draw(s, 1, binomial(9, 0.5))[0], walk(feed, 9, 0.5));
}

TEST(Binomial, AboveOneHalfIsTrialsLessTheDrawOfTheOtherOutcome) {
  for (const auto& [trials, p] :
       {std::pair(40, 0.6), std::pair(40, 0.9), std::pair(1000, 0.6), std::pair(1000, 0.95)}) {
    const Stream s(ORVIK_BRNG_MT19937, {777}), t = s.copy();
    std::vector<int32_t> turned = draw(t, 3000, binomial(trials, 1 - p));
    for (int32_t& k : turned) k = trials - k;
    EXPECT_EQ(draw(s, 3000, binomial(trials, p)), turned);
  }
}

TEST(Binomial, OfCertainOutcomesIsCertain) {
  const Stream s(ORVIK_BRNG_MT19937, {777});
  EXPECT_EQ(draw(s, 100, binomial(50, 0)), std::vector<int32_t>(100, 0));
  EXPECT_EQ(draw(s, 100, binomial(50, 1)), std::vector<int32_t>(100, 50));
}

TEST(Binomial, WalkThatPassesItsEndDrawsADoubleAnew) {
  Scripted s;
  s.numbers({1, 0.5, 0.25});  // the first is past the sum of all probabilities, as a rounded-up uniform can be
  std::vector<int32_t> r(2);
  ASSERT_EQ(_qoriRngBinomial(0, s.get(), 2, r.data(), 2000000000, 1e-8), 0);
  EXPECT_EQ(s->sizes(), (std::vector<int32_t>{2, 1}));
  EXPECT_EQ(r[0], walk_from(0.25, 2000000000, 1e-8));
  EXPECT_EQ(r[1], walk_from(0.5, 2000000000, 1e-8));
}

TEST(Binomial, SetsUpOnceForEqualParameters) {
  expect_kept(5, binomial(40, 0.3), binomial(40, 0.4));
  expect_kept(5, binomial(1000, 0.3), binomial(1001, 0.3));
  expect_kept(5, binomial(1000, 0.3), binomial(10, 0.3));
  expect_not_built_again(5, 16, binomial(40, 0.3), binomial(40, 0.4));
  expect_not_built_again(5, 16, binomial(1000, 0.3), binomial(1000, 0.32));
  // Powers are asked for by the set-up alone.
  const Stream s(ORVIK_BRNG_MT19937, {777});
  void** const slot = orvik_zym_kernel_dPowx_ttab + 1;
  static void (*original)(int32_t, const double*, double, double*);
  static int calls;
  calls = 0;
  original = reinterpret_cast<decltype(original)>(*slot);
  void* const kept = *slot;
  *slot = reinterpret_cast<void*>(+[](int32_t n, const double* a, double b, double* r) {
    ++calls;
    original(n, a, b, r);
  });
  for (int i = 0; i < 5; ++i) draw(s, 1, binomial(40, 0.3));
  EXPECT_EQ(calls, 1);
  draw(s, 1, binomial(41, 0.3));
  EXPECT_EQ(calls, 2);
  *slot = kept;
}

TEST(Binomial, LeaksNothingWhenAnAllocationFails) { expect_no_leaks(binomial(40, 0.3)); }

TEST(Binomial, BelievesNoSetUpOfAnImage) {
  expect_sound_after_images(5, 16, binomial(40, 0.3));
  expect_sound_after_images(5, 16, binomial(1000, 0.3));
}

TEST(Binomial, AsksForBlocksOf1024NumbersOrCandidates) {
  Scripted s;
  s.spread();
  {
    std::vector<int32_t> r(2500);
    ASSERT_EQ(_qoriRngBinomial(0, s.get(), 2500, r.data(), 40, 0.3), 0);
    EXPECT_EQ(s->sizes(), (std::vector<int32_t>{1024, 1024, 452}));
    s->requests.clear();
    ASSERT_EQ(_qoriRngBinomial(0, s.get(), 2500, r.data(), 1000, 0.3), 0);
    EXPECT_EQ(s->sizes()[0], 2048) << "two a candidate";
  }
}

}  // namespace
}  // namespace orvik::testing
