// e^x: special values, codes, and the edges of the fast path.
#include <cmath>
#include <limits>

#include "support/row_calls.h"

namespace orvik::test {
namespace {

constexpr float kInf32 = std::numeric_limits<float>::infinity();
constexpr double kInf64 = std::numeric_limits<double>::infinity();
constexpr float kNan32 = std::numeric_limits<float>::quiet_NaN();
constexpr double kNan64 = std::numeric_limits<double>::quiet_NaN();

// Within `ulp` of the reference at every level, EP within a relative 2^-bits.
template <class E>
void expect_near(const std::string& name, E x, long double want, int32_t code = 0) {
  const int digits = std::numeric_limits<E>::digits;
  const long double floor = std::numeric_limits<E>::denorm_min();
  const long double ulp = std::fmax(std::exp2(std::floor(std::log2(std::fabs(want))) + 1 - digits), floor);
  const long double low = std::fabs(want) * std::exp2(-(sizeof(E) == 4 ? 11.0L : 26.0L)) + floor / 2;
  const long double bounds[] = {4 * ulp, ulp, std::fmax(low, 1 * floor)};
  for (int level = 0; level < 3; ++level) {
    const Outcome<E> got = evaluate<E>(name, level, x);
    EXPECT_LE(std::fabs(static_cast<long double>(got.r1) - want), bounds[level])
        << name << " " << kLevelNames[level] << "(" << x << ") = " << got.r1;
    EXPECT_EQ(got.code, code) << name << " " << kLevelNames[level] << "(" << x << ")";
  }
}

TEST(Exp, LargestFloatArgumentWithAFiniteResultAndTheNextOverflowsWithCode3) {
  const float last = 88.72283172607422f;
  expect_near<float>("sExp", last, std::exp(static_cast<long double>(last)));
  expect_unary<float>("sExp", std::nextafter(last, kInf32), kInf32, zymErrorOverflow);
  expect_unary<float>("sExp", std::numeric_limits<float>::max(), kInf32, zymErrorOverflow);
}

TEST(Exp, LargestDoubleArgumentWithAFiniteResultAndTheNextOverflowsWithCode3) {
  const double last = 709.782712893384;
  expect_near<double>("dExp", last, std::exp(static_cast<long double>(last)));
  expect_unary<double>("dExp", std::nextafter(last, kInf64), kInf64, zymErrorOverflow);
  expect_unary<double>("dExp", std::numeric_limits<double>::max(), kInf64, zymErrorOverflow);
}

TEST(Exp, FloatMinus87AndAHalfIsADenormalWithCode4CorrectlyScaled) {
  for (float x : {-87.5f, -90.0f, -100.0f, -103.0f, -103.97207641601562f}) {
    expect_near<float>("sExp", x, std::exp(static_cast<long double>(x)), zymErrorUnderflow);
  }
}

TEST(Exp, HighAccuracyDenormalsOfFloatsAreRoundedOnce) {
  for (float x = -87.4f; x > -103.9f; x -= 0.37f) {
    EXPECT_EQ(evaluate<float>("sExp", 1, x).r1, static_cast<float>(std::exp(static_cast<long double>(x)))) << x;
  }
}

TEST(Exp, DenormalDoublesWithCode4CorrectlyScaled) {
  for (double x : {-708.5, -710.0, -720.25, -735.0, -744.0}) {
    expect_near<double>("dExp", x, std::exp(static_cast<long double>(x)), zymErrorUnderflow);
  }
}

TEST(Exp, DoubleAtItsUnderflowBoundTakesTheDenormalPath) {
  const double bound = -745.1332191019411;
  for (int level = 0; level < 3; ++level) {
    const auto got = evaluate<double>("dExp", level, bound);
    EXPECT_EQ(got.r1, std::numeric_limits<double>::denorm_min());
    EXPECT_EQ(got.code, zymErrorUnderflow);
  }
}

TEST(Exp, BelowTheUnderflowBoundIsPlusZeroWithCode4) {
  expect_unary<float>("sExp", std::nextafter(-103.97207641601562f, -200.0f), 0.0f, zymErrorUnderflow);
  expect_unary<float>("sExp", -1e30f, 0.0f, zymErrorUnderflow);
  expect_unary<double>("dExp", std::nextafter(-745.1332191019411, -800.0), 0.0, zymErrorUnderflow);
  expect_unary<double>("dExp", -1e300, 0.0, zymErrorUnderflow);
}

TEST(Exp, BothSidesOfTheFastPathAgreeWithTheReference) {
  for (float x : {87.33654022216797f, 87.3365478515625f, 88.0f, -87.33654022216797f}) {
    expect_near<float>("sExp", x, std::exp(static_cast<long double>(x)));
  }
  expect_near<float>("sExp", -87.3365478515625f, std::exp(-87.3365478515625L), zymErrorUnderflow);
  for (double x : {708.38, 708.4, 709.5, -708.38, -708.3964185322641}) {
    expect_near<double>("dExp", x, std::exp(static_cast<long double>(x)));
  }
}

TEST(Exp, NaNGivesNaNAndNoCode) {
  expect_unary<float>("sExp", kNan32, kNan32);
  expect_unary<float>("sExp", -kNan32, kNan32);
  expect_unary<double>("dExp", kNan64, kNan64);
}

TEST(Exp, SignallingNaNIsQuieted) {
  const float s = std::bit_cast<float>(0x7F800001u);
  const double d = std::bit_cast<double>(uint64_t{0x7FF0000000000001});
  for (int level = 0; level < 3; ++level) {
    EXPECT_NE(std::bit_cast<uint32_t>(evaluate<float>("sExp", level, s).r1) & 0x00400000u, 0u);
    EXPECT_NE(std::bit_cast<uint64_t>(evaluate<double>("dExp", level, d).r1) & 0x0008000000000000u, 0u);
  }
}

TEST(Exp, InfinitiesGiveInfinityAndPlusZeroWithoutCode) {
  expect_unary<float>("sExp", kInf32, kInf32);
  expect_unary<float>("sExp", -kInf32, 0.0f);
  expect_unary<double>("dExp", kInf64, kInf64);
  expect_unary<double>("dExp", -kInf64, 0.0);
}

TEST(Exp, ZeroAndTinyArgumentsGiveOne) {
  for (float x : {0.0f, -0.0f, 1e-30f, std::numeric_limits<float>::denorm_min()}) expect_unary<float>("sExp", x, 1.0f);
  for (double x : {0.0, -0.0, 1e-300, std::numeric_limits<double>::denorm_min()}) expect_unary<double>("dExp", x, 1.0);
}

}  // namespace
}  // namespace orvik::test
