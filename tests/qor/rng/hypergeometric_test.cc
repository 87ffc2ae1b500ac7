// Hypergeometric, against inversion by plain sums and against H2PE one candidate at a time (Kachitvichyanukul,
// Schmeiser 1985).
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "qor/rng/feed.h"
#include "qor/rng/kept.h"
#include "qor/rng/scripted.h"

namespace orvik::testing {
namespace {

KeptDraw hypergeometric(int32_t l, int32_t s, int32_t m) {
  return [=](OrvikStream stream, int32_t n, int32_t* r) { return _qoriRngHypergeometric(0, stream, n, r, l, s, m); };
}

struct Case {
  int32_t lot, sample, marked;
  // The reduced case: rare ones among those drawn of the smaller half.
  double rare() const { return std::min(marked, lot - marked); }
  double drawn() const { return std::min(sample, lot - sample); }
  int32_t turn_back(int32_t x) const {
    const bool turns_sample = sample > lot / 2.0, turns_marked = marked > lot / 2.0;
    if (turns_sample && turns_marked) return marked - (lot - sample) + x;
    if (turns_sample) return marked - x;
    return turns_marked ? sample - x : x;
  }
  // ln of the probability of x in the reduced case, but for a constant
  double weight(double x) const {
    return -std::lgamma(x + 1) - std::lgamma(rare() - x + 1) - std::lgamma(drawn() - x + 1) -
           std::lgamma(lot - rare() - drawn() + x + 1);
  }
};

int32_t by_sums(Feed<double>& feed, const Case& c) {
  const double highest = std::min(c.rare(), c.drawn()), u = feed();
  long double total = 0, sum = 0;
  for (double x = 0; x <= highest; ++x) total += std::exp(static_cast<long double>(c.weight(x) - c.weight(0)));
  double x = 0;
  for (; x < highest; ++x) {
    sum += std::exp(static_cast<long double>(c.weight(x) - c.weight(0)));
    if (u <= static_cast<double>(sum / total)) break;
  }
  return static_cast<int32_t>(x);
}

int32_t h2pe(Feed<float>& feed, const Case& c) {
  const double lot = c.lot, n1 = c.rare(), n2 = lot - n1, k = c.drawn(), highest = std::min(n1, k);
  const double m = std::floor((k + 1) * (n1 + 1) / (lot + 2));
  const double d = std::floor(1.5 * std::sqrt((lot - k) * k * n1 * n2 / ((lot - 1) * lot * lot))) + 0.5;
  const double xl = std::max(m - d + 0.5, 0.0), xr = std::min(m + d + 0.5, highest + 1);
  const double left = -std::log(xl * (n2 - k + xl) / ((n1 - xl + 1) * (k - xl + 1)));
  const double right = -std::log((n1 - xr + 1) * (k - xr + 1) / (xr * (n2 - k + xr)));
  const double kl = xl > 0 ? std::exp(c.weight(xl) - c.weight(m)) / left : 0;
  const double kr = xr <= highest ? std::exp(c.weight(xr - 1) - c.weight(m)) / right : 0;
  const double p1 = xr - xl, p2 = p1 + kl, p3 = p2 + kr;
  for (;;) {
    const double u = static_cast<double>(feed()) * p3;
    double v = static_cast<double>(feed()), y;
    if (u <= p1) {
      y = std::floor(xl + u);
    } else if (u <= p2) {
      y = std::floor(xl + std::log(v) / left);
      v *= (u - p1) * left;
    } else {
      y = std::floor(xr - std::log(v) / right);
      v *= (u - p2) * right;
    }
    if (y < 0 || y > highest) continue;
    if (std::log(v) <= c.weight(y) - c.weight(m)) return static_cast<int32_t>(y);
  }
}

template <class T, class Method>
void agree(const Case& c, Method method) {
  for (const int32_t n : {1, 2, 1023, 1024, 1025, 4000}) {
    const Stream s(ORVIK_BRNG_MT19937, {777});
    Feed<T> feed(s.copy(), 6 * n + 200);
    std::vector<int32_t> expected;
    for (int32_t i = 0; i < n; ++i) expected.push_back(c.turn_back(method(feed, c)));
    ASSERT_EQ(draw(s, n, hypergeometric(c.lot, c.sample, c.marked)), expected)
        << c.lot << ", " << c.sample << ", " << c.marked;
    expect_same(uniforms<T>(s, 3), feed.following(3), "numbers that follow");
  }
}

TEST(Hypergeometric, OfAWidthBelow39IsByATable) {
  for (const Case& c : {Case{20, 7, 9}, Case{76, 38, 38}, Case{1000, 25, 600}, Case{1000000, 500000, 12}, Case{9, 9, 4},
                        Case{9, 0, 4}, Case{9, 3, 0}, Case{9, 3, 9}, Case{1, 1, 1}, Case{100, 80, 75}})
    agree<double>(c, by_sums);
}

TEST(Hypergeometric, OfAWidthFrom39OnIsByRejection) {
  for (const Case& c : {Case{1000, 300, 400}, Case{100000, 50, 60}, Case{100000, 200, 900}, Case{1000000, 5000, 4000}})
    agree<float>(c, h2pe);
}

TEST(Hypergeometric, OfAWidthOfExactly39IsByRejectionAndOf38ByATable) {
  agree<float>(Case{78, 39, 39}, h2pe);
  agree<double>(Case{78, 38, 39}, by_sums);
}

TEST(Hypergeometric, TurnsComplementsBack) {
  for (const Case& c : {Case{1000, 700, 400}, Case{1000, 300, 600}, Case{1000, 700, 600}}) agree<float>(c, h2pe);
  for (const Case& c : {Case{30, 20, 10}, Case{30, 10, 20}, Case{30, 20, 20}, Case{30, 15, 15}})
    agree<double>(c, by_sums);
}

TEST(Hypergeometric, EndsForUniformsAtTheirEnds) {
  for (const double u : {0.0, 1.0}) {
    Scripted s;
    s->number = [u](int64_t) { return u; };
    int32_t r[3];
    ASSERT_EQ(_qoriRngHypergeometric(0, s.get(), 3, r, 20, 7, 9), 0);
    for (const int32_t x : r) EXPECT_EQ(x, u == 0 ? 0 : 7);
  }
}

TEST(Hypergeometric, SetsUpOnceForEqualParameters) {
  expect_kept(6, hypergeometric(20, 7, 9), hypergeometric(20, 8, 9));
  expect_kept(6, hypergeometric(1000, 300, 400), hypergeometric(1000, 301, 400));
  expect_kept(6, hypergeometric(1000, 300, 400), hypergeometric(20, 7, 9));
  expect_not_built_again(6, 12, hypergeometric(20, 7, 9), hypergeometric(20, 8, 9));
  expect_not_built_again(6, 12, hypergeometric(1000, 300, 400), hypergeometric(1000, 310, 400));
}

TEST(Hypergeometric, LeavesOtherSideBlocksAlone) {
  const Stream s(ORVIK_BRNG_MT19937, {777});
  double x;
  ASSERT_EQ(_qordRngGaussian(1, s.get(), 1, &x, 0, 1), 0);
  void* const pair = __qorSearchChunk(s.get(), 2);
  draw(s, 1, hypergeometric(20, 7, 9));
  draw(s, 1, hypergeometric(1000, 300, 400));
  EXPECT_EQ(__qorSearchChunk(s.get(), 2), pair);
}

TEST(Hypergeometric, LeaksNothingWhenAnAllocationFails) { expect_no_leaks(hypergeometric(20, 7, 9)); }

TEST(Hypergeometric, BelievesNoSetUpOfAnImage) {
  expect_sound_after_images(6, 12, hypergeometric(20, 7, 9));
  expect_sound_after_images(6, 12, hypergeometric(1000, 300, 400));
}

}  // namespace
}  // namespace orvik::testing
