// The evenness of the quasi-random points is what theory says.
#include <gtest/gtest.h>

#include <vector>

#include "qor/support/discrepancy.h"
#include "qor/support/models.h"
#include "qor/support/stream.h"

namespace {

using orvik::testing::Stream;
using namespace orvik;

struct Kind {
  const char* name;
  int32_t brng;
};
void PrintTo(const Kind& k, std::ostream* out) { *out << k.name; }

class QualityTest : public ::testing::TestWithParam<Kind> {
 protected:
  // A dimension's share of t: the degree of its polynomial less one (Sobol 1967, Niederreiter 1988).
  int share(size_t dimension) const {
    if (GetParam().brng == ORVIK_BRNG_SOBOL)
      return dimension == 0 ? 0 : static_cast<int>(models::sobol_rows()[dimension - 1].degree) - 1;
    static const std::vector<uint32_t> polynomials = models::irreducible_polynomials(318);
    return 31 - __builtin_clz(polynomials[dimension]) - 1;
  }
  // Points 0 to n - 1 of the sequence: the origin, which the generator leaves out, and the first it gives.
  std::vector<uint32_t> points(uint32_t dim, int32_t n) const {
    const Stream s(GetParam().brng, {dim});
    std::vector<uint32_t> w(dim);
    const std::vector<uint32_t> rest = s.words(static_cast<int32_t>(dim) * (n - 1));
    w.insert(w.end(), rest.begin(), rest.end());
    return w;
  }
  std::vector<double> unit_points(uint32_t dim, int32_t n) const {
    std::vector<double> x;
    for (uint32_t w : points(dim, n)) x.push_back(w * 0x1p-32);
    return x;
  }
};

// A (t, m, 2)-net in base 2: every box of the area 2^(t - m) whose sides are powers of two holds 2^t of the 2^m points.
bool is_net(const std::vector<uint32_t>& w, size_t dim, size_t i, size_t j, size_t from, int m, int t) {
  for (int width = 0; width <= m - t; ++width) {
    const int height = m - t - width;
    std::vector<int> inside(size_t{1} << (m - t));
    for (size_t p = from; p < from + (size_t{1} << m); ++p) {
      const uint64_t x = w[p * dim + i], y = w[p * dim + j];
      ++inside[(x >> (32 - width)) << height | y >> (32 - height)];
    }
    for (int count : inside)
      if (count != 1 << t) return false;
  }
  return true;
}

TEST_P(QualityTest, EveryPairOfCoordinatesIsANetOfItsTheory) {
  constexpr size_t kDim = 20;
  const std::vector<uint32_t> w = points(kDim, 1 << 15);
  for (size_t i = 0; i < kDim; ++i)
    for (size_t j = i + 1; j < kDim; ++j) {
      const int t = share(i) + share(j);
      for (int m : {t + 1, t + 2, t < 10 ? t + 4 : t + 2}) {
        if (m > 14) continue;
        EXPECT_TRUE(is_net(w, kDim, i, j, 0, m, t)) << i << " " << j << " m " << m << " t " << t;
        EXPECT_TRUE(is_net(w, kDim, i, j, size_t{1} << m, m, t)) << i << " " << j << ", the second 2^" << m;
      }
    }
}

TEST_P(QualityTest, EachCoordinateIsANetWithoutDefectPastItsDegree) {
  constexpr size_t kDim = 40;
  const std::vector<uint32_t> w = points(kDim, 1 << 12);
  for (size_t d = 0; d < kDim; ++d) {
    const int t = share(d), m = 12;
    std::vector<int> inside(size_t{1} << (m - t));
    for (size_t p = 0; p < (1 << m); ++p) ++inside[w[p * kDim + d] >> (32 - (m - t))];
    for (int count : inside) ASSERT_EQ(count, 1 << t) << d;
  }
}

// 2^m times the star discrepancy of a digital (0, m, 2)-net in base 2 is at most m/3 + 19/9 (Larcher, Pillichshammer
// 2003); random points have about 2^(m/2).
TEST_P(QualityTest, StarDiscrepancyOfTheFirstTwoCoordinatesKeepsTheKnownBound) {
  for (int m : {4, 7, 10, 11, 12, 13}) {
    const double n = std::ldexp(1, m), d = support::star_discrepancy(unit_points(2, 1 << m));
    EXPECT_LE(n * d, m / 3.0 + 19.0 / 9) << m;
    EXPECT_GE(n * d, 1) << m;
  }
}

// Beside the value that random points have on average.
TEST_P(QualityTest, MeanStarDiscrepancyIsASmallPartOfThatOfRandomPoints) {
  struct Row {
    uint32_t dim;
    int m;
    double most;  // of ours to random
  };
  for (const Row& row :
       {Row{2, 10, 0.09}, Row{2, 12, 0.05}, Row{5, 10, 0.38}, Row{5, 12, 0.23}, Row{10, 10, 0.86}, Row{10, 12, 0.80}}) {
    // as delivered, without the origin, which this measure holds against them in many dimensions
    const std::vector<double> x = Stream(GetParam().brng, {row.dim}).doubles(static_cast<int32_t>(row.dim << row.m));
    const double ours = support::mean_star_discrepancy(x, row.dim);
    const double random = support::random_mean_star_discrepancy(size_t{1} << row.m, row.dim);
    EXPECT_LT(ours / random, row.most) << row.dim << " dimensions, 2^" << row.m;
    EXPECT_GT(ours, 0);
  }
}

// The measures themselves: points whose discrepancies are known.
TEST(Discrepancy, KnownValues) {
  EXPECT_DOUBLE_EQ(support::star_discrepancy({0.5, 0.5}), 0.75);
  EXPECT_DOUBLE_EQ(support::star_discrepancy({0.0, 0.0}), 1.0);
  EXPECT_NEAR(support::mean_star_discrepancy({0.5}, 1), std::sqrt(1.0 / 12), 1e-15);
  std::vector<double> grid;  // points of the middle of n equal parts: 1/(n sqrt(12))
  for (int i = 0; i < 100; ++i) grid.push_back((i + 0.5) / 100);
  EXPECT_NEAR(support::mean_star_discrepancy(grid, 1), 1 / (100 * std::sqrt(12.0)), 1e-11);
}

INSTANTIATE_TEST_SUITE_P(Statistical, QualityTest,
                         ::testing::Values(Kind{"Sobol", ORVIK_BRNG_SOBOL},
                                           Kind{"Niederreiter", ORVIK_BRNG_NIEDERREITER}));

}  // namespace
