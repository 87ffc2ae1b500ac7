// Goodness of fit of every distribution over parameters that take each branch of each method: 10^6 numbers of a fixed
// seed, Kolmogorov's or Pearson's test with a false alarm in 10^6, mean and variance within five standard deviations.
#include "qor/rng/fit.h"

#include <gtest/gtest.h>

#include "qor/rng/call.h"
#include "qor/rng/fit_cases.h"

namespace orvik::testing {
namespace {

constexpr int32_t kNumbers = 1000000;
constexpr double kFalseAlarm = 1e-6;

class Fit : public ::testing::TestWithParam<Case> {
 protected:
  template <class T, class Draw>
  void check(const Draw& draw, int32_t brng) {
    const Case& c = GetParam();
    const Stream s(brng, {20250704});
    const std::vector<T> x = drawn<T>(kNumbers, [&](T* r) { return draw(s.get(), kNumbers, r); });
    if constexpr (std::is_same_v<T, int32_t>)
      EXPECT_GT(c.wide ? pearson_p_of_cells(x, c.cdf) : pearson_p(x, c.pmf), kFalseAlarm);
    else
      EXPECT_GT(kolmogorov_p(x, c.cdf), kFalseAlarm);
    const Moments m = moments(x);
    if (std::isnan(c.mean)) return;
    EXPECT_NEAR(m.mean, c.mean, 5 * m.mean_error);
    EXPECT_NEAR(m.variance, c.variance, 5 * m.variance_error);
  }
};
INSTANTIATE_TEST_SUITE_P(Transforms, Fit, ::testing::ValuesIn(transforms()),
                         [](const auto& info) { return info.param.name; });

INSTANTIATE_TEST_SUITE_P(Rejections, Fit, ::testing::ValuesIn(rejections()),
                         [](const auto& info) { return info.param.name; });

INSTANTIATE_TEST_SUITE_P(Integers, Fit, ::testing::ValuesIn(integers()),
                         [](const auto& info) { return info.param.name; });

TEST_P(Fit, IsThatOfTheDistribution) {
  const Case& c = GetParam();
  if (c.d) check<double>(c.d, ORVIK_BRNG_MT19937);
  if (c.s) check<float>(c.s, ORVIK_BRNG_PHILOX4X32X10);
  if (c.i) check<int32_t>(c.i, ORVIK_BRNG_MT19937);
}

}  // namespace
}  // namespace orvik::testing
