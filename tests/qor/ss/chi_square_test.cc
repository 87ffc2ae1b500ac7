// Helpers of the robust estimators: the chi-square distribution, rank and inverse of covariance matrices.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "orvik/ss.h"
#include "qor/ss/chi_square.h"
#include "serv/blas.h"

namespace orvik::ss::test {
namespace {

// P(X > x) as finite sums: for even k those of Poisson probabilities, for odd k with the normal tail, all in long
// double.
long double above(int32_t k, long double x) {
  const long double y = x / 2;
  long double sum = k % 2 == 0 ? 0 : erfcl(sqrtl(y));
  for (int32_t j = 0; j < k / 2; ++j) {
    const long double a = k % 2 == 0 ? j : j + 0.5L;
    sum += expl(a * logl(y) - y - lgammal(a + 1));
  }
  return sum;
}

// P(X < x) by its series of positive terms.
long double below(int32_t k, long double x) {
  const long double a = k / 2.0L, y = x / 2;
  long double term = 1 / a, sum = term;
  for (long double j = a + 1; term > sum * 1e-22L; ++j) sum += term *= y / j;
  return sum * expl(a * logl(y) - y - lgammal(a));
}

TEST(ChiSquare, DistributionFunctionHasAllDigits) {
  for (int32_t k : {1, 2, 3, 4, 5, 7, 10, 20, 39, 40, 41, 100, 1000, 20000}) {
    const double spread = std::sqrt(2.0 * k);
    for (double x : {1e-8, 0.01, 0.5, 1.0, 0.3 * k, 0.738 * k, k - 3 * spread, k - 0.5 * spread, k - 0.01, k + 0.01,
                     k + 1.0, k + spread, k + 4 * spread, k + 20 * spread}) {
      if (x <= 0) continue;
      // What lgammal and the logarithm leave of the reference's exponent grows with k.
      const long double lower = below(k, x), upper = above(k, x);
      const double tolerance = 4e-16 + 4e-19 * k * std::log(k + 1.0);
      if (lower > 1e-290L) {
        EXPECT_NEAR(static_cast<double>(__qordChi2CDF(k, x) / lower), 1, tolerance) << k << " " << x;
      }
      if (upper > 1e-290L) {
        EXPECT_NEAR(static_cast<double>(chi_square_above(k, x) / upper), 1, tolerance) << k << " " << x;
      }
    }
  }
}

TEST(ChiSquare, DistributionFunctionIsZeroForNonPositiveX) {
  for (double x : {0.0, -0.0, -1.0, -1e300, -HUGE_VAL}) EXPECT_EQ(__qordChi2CDF(3, x), 0.0);
  EXPECT_EQ(__qordChi2CDF(3, HUGE_VAL), 1.0);
  EXPECT_EQ(__qordChi2CDF(1, 5e9), 1.0);
  EXPECT_TRUE(std::isnan(__qordChi2CDF(3, std::nan(""))));
}

TEST(ChiSquare, ExponentBelowTheLeastGivesZeroInATail) {
  EXPECT_EQ(__qordChi2CDF(400, 1e-3), 0.0);
  // The exponent is -x / 2 and a half of its logarithm: -709.78 is passed between 1430 and 1435.
  EXPECT_EQ(chi_square_above(2, 1435), 0.0);
  EXPECT_GT(chi_square_above(2, 1430), 0.0);
  EXPECT_EQ(__qordChi2CDF(2, 1420), 1.0);
}

TEST(ChiSquare, DensityIsTheStatedFormula) {
  for (int32_t k : {1, 2, 3, 10, 100}) {
    for (double x : {1e-3, 0.5, 1.0, 5.0, 80.0}) {
      const long double wanted =
          expl((k / 2.0L - 1) * logl(x) - x / 2.0L - 0.34657359029999996L * k - lgammal(k / 2.0L));
      EXPECT_NEAR(static_cast<double>(__qordChi2PDF(k, x) / wanted), 1, 1e-13) << k << " " << x;
    }
    for (double x : {0.0, -1.0, -HUGE_VAL}) EXPECT_EQ(__qordChi2PDF(k, x), 0.0);
    EXPECT_EQ(__qordChi2PDF(k, 4000), 0.0);
  }
}

TEST(ChiSquare, InverseGivesTheTablesValues) {
  EXPECT_NEAR(__qordChi2ICDF(0.95, 1), 3.841458820694124, 1e-14);
  EXPECT_NEAR(__qordChi2ICDF(0.5, 2), 2 * std::log(2.0), 1e-15);
  EXPECT_NEAR(__qordChi2ICDF(0.975, 3), 9.348403604496149, 2e-14);
  EXPECT_NEAR(__qordChi2ICDF(0.99, 5), 15.08627246938899, 3e-14);
  EXPECT_NEAR(__qordChi2ICDF(0.95, 10), 18.307038053275146, 4e-14);
  EXPECT_NEAR(__qordChi2ICDF(0.999, 10), 29.58829844507442, 6e-14);
}

TEST(ChiSquare, InverseUndoesTheDistributionFunction) {
  for (int32_t k : {1, 2, 3, 5, 10, 20, 100, 1000, 20000}) {
    for (double p :
         {1e-300, 1e-100, 1e-20, 1e-10, 1e-3, 0.05, 0.3, 0.49, 0.5, 0.51, 0.85, 0.9, 0.999, 1 - 1e-9, 1 - 1e-15}) {
      const double x = __qordChi2ICDF(p, k);
      const double slope = x * chi_square_density(k, x);
      if (x < 1e-280) continue;
      const long double fault = p < 0.5 ? below(k, x) - p : (1.0L - p) - above(k, x);
      // What the rounding of x leaves, and the reference.
      const double reference = 4e-19 * (k + 1) * std::log(k + 1.0) * std::min(p, 1 - p);
      EXPECT_LE(std::fabs(static_cast<double>(fault)), 4e-16 * slope + reference) << k << " " << p << " " << x;
    }
  }
}

// The control word of the x87 unit is the caller's: with fewer bits there are fewer digits, and an end.
TEST(ChiSquare, InFewerBitsOfTheCallersControlWordEndsToo) {
  const auto all = [] {
    std::vector<double> values;
    for (double k : {0.01, 1.0, 3.0, 40.0, 1000.0, 1e6}) {
      for (double x : {1.0, 2.001, 0.9 * k, k, 1.001 * k, k + 5 * std::sqrt(k)}) {
        values.push_back(chi_square_below(k, x));
        values.push_back(chi_square_above(k, x));
      }
      for (double p : {1e-5, 0.3, 0.5, 0.9, 1 - 1e-5}) values.push_back(chi_square_quantile(p, k));
    }
    return values;
  };
  const auto want = all();
  uint16_t word;
  asm volatile("fnstcw %0" : "=m"(word));
  for (const uint16_t bits : {0x0000, 0x0200}) {  // 24 and 53
    const auto fewer = static_cast<uint16_t>((word & ~0x0300) | bits);
    asm volatile("fldcw %0" : : "m"(fewer));
    const auto got = all();
    asm volatile("fldcw %0" : : "m"(word));
    const double tolerance = bits == 0 ? 1e-2 : 1e-10;
    for (size_t i = 0; i < want.size(); ++i) {
      EXPECT_NEAR(got[i], want[i], tolerance * std::max(1e-3, want[i])) << i << " " << bits;
    }
  }
}

TEST(ChiSquare, InverseAtTheEnds) {
  EXPECT_EQ(__qordChi2ICDF(0, 3), 0.0);
  EXPECT_EQ(__qordChi2ICDF(-1, 3), 0.0);
  EXPECT_EQ(__qordChi2ICDF(1, 3), 4503599627.37);
  EXPECT_EQ(__qordChi2ICDF(2, 3), 4503599627.37);
  EXPECT_TRUE(std::isnan(__qordChi2ICDF(std::nan(""), 3)));
}

TEST(ChiSquare, LogarithmOfTheGammaFunction) {
  for (double x : {0.5, 1.0, 1.5, 2.0, 10.5, 1e3, 1e8}) {
    EXPECT_NEAR(__qordLGamma(x), std::lgamma(x), 4e-16 * std::max(1.0, std::fabs(std::lgamma(x))));
  }
}

// A matrix with the given correlation everywhere and deviations that grow from one variable to the next.
template <class T>
std::vector<T> uniform_correlation(int64_t p, double r, double growth) {
  std::vector<T> a(p * p);
  for (int64_t j = 0; j < p; ++j) {
    for (int64_t i = 0; i < p; ++i) {
      a[j * p + i] = static_cast<T>((i == j ? 1 : r) * std::pow(growth, static_cast<double>(i + j)));
    }
  }
  return a;
}

TEST(InverseCovariance, TimesTheMatrixIsOne) {
  for (int64_t p : {1, 2, 3, 4, 5, 20}) {
    for (double growth : {1.0, 3.0, 1e3}) {
      const auto a = uniform_correlation<double>(p, 0.5, growth);
      auto inverse = a;
      ASSERT_EQ(__qordTestCovRank(p, a.data()), 0);
      ASSERT_EQ(__qordInvCov(p, inverse.data()), 0);
      for (int64_t i = 0; i < p; ++i) {
        for (int64_t j = 0; j < p; ++j) {
          double sum = 0;
          for (int64_t k = 0; k < p; ++k) sum += a[i * p + k] * inverse[k * p + j];
          const double unit = std::pow(growth, static_cast<double>(i - j));
          EXPECT_NEAR(sum / unit, i == j, 1e-13) << p;
          EXPECT_EQ(inverse[i * p + j], inverse[j * p + i]);
        }
      }
    }
  }
}

TEST(InverseCovariance, OfASingularMatrixIsRefused) {
  for (int64_t p : {1, 2, 3, 4, 10}) {
    auto a = uniform_correlation<double>(p, 1.0, 2.0);
    if (p == 1) a[0] = 0;
    EXPECT_EQ(__qordTestCovRank(p, a.data()), -5041) << p;
    EXPECT_EQ(__qordInvCov(p, a.data()), -5041) << p;
    auto indefinite = uniform_correlation<double>(p, p == 1 ? 0.0 : -1.5, 1.0);
    if (p == 1) indefinite[0] = -1;
    EXPECT_EQ(__qordTestCovRank(p, indefinite.data()), -5041) << p;
    EXPECT_EQ(__qordInvCov(p, indefinite.data()), -5041) << p;
    std::vector<double> poisoned(p * p, std::nan(""));
    EXPECT_EQ(__qordTestCovRank(p, poisoned.data()), -5041) << p;
    EXPECT_EQ(__qordInvCov(p, poisoned.data()), -5041) << p;
  }
}

TEST(InverseCovariance, UnitsOfTheVariablesDoNotMatter) {
  // Deviations from 1e-150 to 1e+150: products of variances would leave the range.
  std::vector<double> a = {1e-300, 0, 0, 0, 1, 0.5e150, 0, 0.5e150, 1e300};
  ASSERT_EQ(__qordTestCovRank(3, a.data()), 0);
  ASSERT_EQ(__qordInvCov(3, a.data()), 0);
  EXPECT_NEAR(a[0] / 1e300, 1, 1e-15);
  EXPECT_NEAR(a[4], 4.0 / 3, 1e-15);
  EXPECT_NEAR(a[5] / 1e-150, -2.0 / 3, 1e-15);
  EXPECT_NEAR(a[8] / 1e-300, 4.0 / 3, 1e-15);
}

TEST(InverseCovariance, SinglePrecision) {
  auto a = uniform_correlation<float>(5, 0.25, 2);
  const auto before = a;
  ASSERT_EQ(__qorsTestCovRank(5, a.data()), 0);
  ASSERT_EQ(__qorsInvCov(5, a.data()), 0);
  float sum = 0;
  for (int k = 0; k < 5; ++k) sum += before[2 * 5 + k] * a[k * 5 + 2];
  EXPECT_NEAR(sum, 1, 1e-5);
  auto close = uniform_correlation<float>(5, 1, 1);
  EXPECT_EQ(__qorsTestCovRank(5, close.data()), -5041);
}

TEST(InverseCovariance, BadDimensionAndMissingPackage) {
  double a = 1;
  EXPECT_EQ(__qordTestCovRank(0, &a), -4001);
  EXPECT_EQ(__qordInvCov(-1, &a), -4001);
  serv::blas::pretend_missing(true);
  EXPECT_EQ(__qordTestCovRank(1, &a), -4000);
  EXPECT_EQ(__qordInvCov(1, &a), -4000);
  serv::blas::pretend_missing(false);
}

}  // namespace
}  // namespace orvik::ss::test
