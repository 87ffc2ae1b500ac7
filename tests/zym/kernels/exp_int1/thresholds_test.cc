// Every place where the computation of ExpInt1 changes its row or its branch, walked over by single steps, and the
// range of denormal results: no result is further from the exact one than the level allows.
#include <cmath>
#include <random>

#include "support/row_calls.h"

namespace orvik::test {
namespace {

using Wide = long double;

// E1 by its series up to 1, above by the continued fraction e^-x / (x + 1 - 1/(x + 3 - 4/(x + 5 - ...))), from the end.
Wide exact(Wide x) {
  if (x <= 1) {
    Wide sum = 0, term = -1;
    for (int k = 1; k < 28; ++k) {
      term *= -x / k;
      sum += term / k;
    }
    return (-0.577215664901532860606512090082402431L - std::log(x)) + sum;
  }
  Wide fraction = 0;
  for (int k = 40 + static_cast<int>(220 / x); k > 0; --k) {
    const Wide square = static_cast<Wide>(k) * k;
    fraction = square / (x + static_cast<Wide>(2 * k + 1) - fraction);
  }
  return std::exp(-x) / (x + 1 - fraction);
}

template <class E>
void expect_within_bounds(const std::vector<E>& x, double ha = 0.6) {
  using L = std::numeric_limits<E>;
  for (int level = 0; level < 3; ++level) {
    std::vector<E> r(x.size());
    Call<E> c;
    c.n = static_cast<int32_t>(x.size()), c.a = x.data(), c.r1 = r.data();
    ASSERT_TRUE(call_row(row_named(row_of<E>("ExpInt1")), level, false, c));
    Wide worst = 0;
    E at = 0;
    for (size_t i = 0; i < x.size(); ++i) {
      if (!(x[i] > 0)) continue;
      const Wide want = exact(static_cast<Wide>(x[i]));
      const E rounded = static_cast<E>(want);
      const Wide ulp = static_cast<Wide>(std::nextafter(rounded, L::infinity())) - static_cast<Wide>(rounded);
      // Below the normal numbers, EP's bits are those of the smallest of them.
      const Wide size = std::fmax(want, static_cast<Wide>(L::min()));
      const Wide unit = level == 2 ? size * (sizeof(E) == 4 ? 0x1p-11L : 0x1p-26L) : ulp;
      const Wide error = std::fabs(static_cast<Wide>(r[i]) - want) / unit;
      if (!(error <= worst)) worst = error, at = x[i];
    }
    EXPECT_LE(worst, level < 2 ? ha : 1) << row_of<E>("ExpInt1") << " " << kLevelNames[level] << " at " << at;
  }
}

template <class E>
class ExpInt1Thresholds : public ElementTest<E> {
 protected:
  static constexpr double last = sizeof(E) == 4 ? 104 : 745;
};
TYPED_TEST_SUITE(ExpInt1Thresholds, Elements);

TYPED_TEST(ExpInt1Thresholds, NoJumpAtAnyEdgeOfARow) {
  using E = TypeParam;
  std::vector<E> x;
  const double normal = sizeof(E) == 4 ? 82 : 700;
  for (double binade = 1.0 / 64; binade < normal; binade *= 2) {
    for (int i = 0; i < 32; ++i) {
      E at = static_cast<E>(binade * (1 + i / 32.0));
      if (at > normal) break;
      for (int k = 0; k < 30; ++k) at = std::nextafter(at, E(0));
      for (int k = 0; k < 60; ++k) x.push_back(at), at = std::nextafter(at, this->inf);
    }
  }
  for (E threshold : {E(1), E(0.5), E(0x1p-6)}) {
    E at = threshold;
    for (int k = 0; k < 2000; ++k) at = std::nextafter(at, E(0));
    for (int k = 0; k < 4000; ++k) x.push_back(at), at = std::nextafter(at, this->inf);
  }
  expect_within_bounds<E>(x);
}

TYPED_TEST(ExpInt1Thresholds, ResultsNextToAndBelowTheNormalNumbersAreWithinOneUlp) {
  using E = TypeParam;
  std::vector<E> x;
  for (double at = sizeof(E) == 4 ? 80 : 695; at < this->last; at += 1.0 / 512) x.push_back(static_cast<E>(at));
  for (E threshold : {E(82), E(83), E(104), E(700), E(701.5)}) {
    if (threshold > this->last) continue;
    E at = threshold;
    for (int k = 0; k < 300; ++k) at = std::nextafter(at, E(0));
    for (int k = 0; k < 600; ++k) x.push_back(at), at = std::nextafter(at, this->inf);
  }
  expect_within_bounds<E>(x, 0.8);  // denormal results are rounded twice
}

TYPED_TEST(ExpInt1Thresholds, SmallArgumentsHoldDownToTheSmallestDenormalNumber) {
  using E = TypeParam;
  std::vector<E> x;
  for (E small = E(0.9); small > 0; small *= E(0.83)) {
    if (!x.empty() && small >= x.back()) break;  // rounded back to itself
    x.push_back(small);
  }
  E least = this->tiny;
  for (int i = 0; i < 500; ++i, least = std::nextafter(least, E(1))) x.push_back(least);
  E normal = this->smallest;
  for (int i = 0; i < 500; ++i, normal = std::nextafter(normal, E(0))) x.push_back(normal);
  expect_within_bounds<E>(x);
}

TYPED_TEST(ExpInt1Thresholds, RandomArgumentsAreWithinBounds) {
  using E = TypeParam;
  std::mt19937_64 random(7);
  std::uniform_real_distribution<double> unit(0, 1);
  std::vector<E> x;
  for (int i = 0; i < 20000; ++i) {
    x.push_back(static_cast<E>(20 * unit(random)));
    x.push_back(static_cast<E>(std::exp2(-10 + 16 * unit(random))));
  }
  expect_within_bounds<E>(x);
}

// Most lanes of one block small, the others not, and the other way round.
TYPED_TEST(ExpInt1Thresholds, BlocksOfBothTiersHaveTheResultsOfEach) {
  using E = TypeParam;
  std::vector<E> small, large, mixed;
  for (int i = 0; i < 256; ++i) {
    small.push_back(static_cast<E>(0.015 / (1 + i))), large.push_back(static_cast<E>(0.016 + 0.05 * i));
  }
  const auto run = [](int level, const std::vector<E>& x) {
    std::vector<E> r(x.size());
    Call<E> c;
    c.n = static_cast<int32_t>(x.size()), c.a = x.data(), c.r1 = r.data();
    EXPECT_TRUE(call_row(row_named(row_of<E>("ExpInt1")), level, false, c));
    return r;
  };
  for (int level = 0; level < 3; ++level) {
    for (unsigned pattern : {0x1u, 0x7u, 0x92u, 0xFEu}) {
      mixed.clear();
      for (size_t i = 0; i < 256; ++i) mixed.push_back((pattern >> (i % 8) & 1) != 0 ? small[i] : large[i]);
      const std::vector<E> got = run(level, mixed), low = run(level, small), high = run(level, large);
      for (size_t i = 0; i < 256; ++i) EXPECT_EQ(got[i], (pattern >> (i % 8) & 1) != 0 ? low[i] : high[i]) << i;
    }
  }
}

}  // namespace
}  // namespace orvik::test
