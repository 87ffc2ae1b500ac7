// The prescribed steps against plain scalar models, bit for bit; the estimate of the processor is taken as given.
#include <immintrin.h>

#include <cmath>
#include <random>

#include "support/row_calls.h"

namespace orvik::test {
namespace {

float estimate(float x) { return _mm_cvtss_f32(_mm_rsqrt_ss(_mm_set_ss(x))); }

// 1/sqrt(x) narrowed: x scaled by a power of four into [1/2, 2), its first 24 bits taken.
double wide_estimate(double x) {
  int exponent;
  const double m = std::frexp(x, &exponent);  // [1/2, 1)
  const int odd = exponent & 1;
  const double scaled = odd != 0 ? 2 * m : m;
  uint64_t bits = std::bit_cast<uint64_t>(scaled) & ~uint64_t{0x1FFFFFFF};
  return std::ldexp(static_cast<double>(estimate(static_cast<float>(std::bit_cast<double>(bits)))),
                    -(exponent - odd) / 2);
}

template <class E, class Model>
void expect_steps(const std::string& name, int level, E low, E high, Model model) {
  std::mt19937_64 random(31);
  std::uniform_real_distribution<E> exponent(std::log2(low), std::log2(high));
  constexpr size_t kCount = 5003;
  std::vector<E> a(kCount), r(kCount);
  for (E& x : a) x = std::exp2(exponent(random));
  Call<E> c;
  c.n = static_cast<int32_t>(kCount), c.a = a.data(), c.r1 = r.data();
  ASSERT_TRUE(call_row(row_named(name), level, false, c));
  for (size_t i = 0; i < kCount; ++i) ASSERT_EQ(r[i], model(a[i])) << name << " level " << level << " of " << a[i];
}

TEST(RootSteps, FloatSqrtAtLaIsOneResidueStep) {
  expect_steps<float>("sSqrt", 0, 0x1p-99f, 0x1p127f, [](float x) {
    const float y = estimate(x);
    const float s = x * y, h = 0.5f * y;
    return std::fma(std::fma(-s, s, x), h, s);
  });
}

TEST(RootSteps, FloatSqrtAtEpIsTheProductWithTheEstimate) {
  expect_steps<float>("sSqrt", 2, 0x1p-99f, 0x1p127f, [](float x) { return x * estimate(x); });
}

TEST(RootSteps, DoubleSqrtAtLaAndHaIsThePolynomialOfFourCoefficients) {
  for (int level : {0, 1}) {
    expect_steps<double>("dSqrt", level, 0x1p-1000, 0x1p1000, [](double x) {
      const double y = wide_estimate(x);
      const double s = x * y;
      const double d = std::fma(-s, y, 1.0);
      double p = std::fma(0.27343754675366555, d, 0.31250016501874495);
      p = std::fma(p, d, 0.37500000000001366);
      p = std::fma(p, d, 0.49999999999997785);
      return std::fma(s, d * p, s);
    });
  }
}

TEST(RootSteps, DoubleSqrtAtEpIsThePolynomialOfThreeCoefficients) {
  expect_steps<double>("dSqrt", 2, 0x1p-1000, 0x1p1000, [](double x) {
    const double y = wide_estimate(x);
    const double s = x * y;
    const double d = std::fma(-s, y, 1.0);
    return s * std::fma(std::fma(0.37500018328707924, d, 0.5000001256825531), d, 0.9999999999999803);
  });
}

TEST(RootSteps, InvAndDivAtHaAreDivisions) {
  expect_steps<float>("sInv", 1, 0x1p-126f, 0x1p127f, [](float x) { return 1.0f / x; });
  expect_steps<double>("dInv", 1, 0x1p-1022, 0x1p1023, [](double x) { return 1.0 / x; });
}

}  // namespace
}  // namespace orvik::test
