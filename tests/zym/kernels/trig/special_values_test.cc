// Zeros, infinities, NaNs, denormals; exact values of half turns and degrees; what the edges of the reductions give.
#include <cmath>

#include "support/row_calls.h"

namespace orvik::test {
namespace {

constexpr const char* kOdd[] = {"Sin", "Tan", "Sinpi", "Tanpi", "Sind", "Tand"};
constexpr const char* kEven[] = {"Cos", "Cospi", "Cosd"};
constexpr const char* kPairs[] = {"SinCos", "SinCospi"};

template <class E>
class Trig : public ElementTest<E> {
 protected:
  static E nan_with_payload(bool signalling) {
    if constexpr (sizeof(E) == 4) return std::bit_cast<float>(signalling ? 0x7FA12345u : 0x7FE12345u);
    if constexpr (sizeof(E) == 8)
      return std::bit_cast<double>(signalling ? uint64_t{0x7FF4000012345678} : uint64_t{0x7FFC000012345678});
  }
  static E quieted(E x) {
    using Bits = std::conditional_t<sizeof(E) == 4, uint32_t, uint64_t>;
    return std::bit_cast<E>(std::bit_cast<Bits>(x) | Bits{1} << (std::numeric_limits<E>::digits - 2));
  }
  static void expect_pair(const std::string& name, E a, E sine, E cosine, int32_t code = 0) {
    for (int level = 0; level < 3; ++level) {
      const Outcome<E> got = evaluate<E>(row_of<E>(name), level, a);
      EXPECT_TRUE(same_value(got.r1, sine)) << name << kLevelNames[level] << "(" << a << "): " << got.r1;
      EXPECT_TRUE(same_value(got.r2, cosine)) << name << kLevelNames[level] << "(" << a << "): " << got.r2;
      EXPECT_EQ(got.code, code) << name << kLevelNames[level];
    }
  }
  // 1 at HA; the levels below have their own unit.
  static void expect_near_at_lower_levels(const std::string& name, E a, E want) {
    const E bounds[] = {4 * std::numeric_limits<E>::epsilon(), 0, sizeof(E) == 4 ? E(0x1p-11) : E(0x1p-26)};
    for (int level = 0; level < 3; ++level) {
      const E got = evaluate<E>(row_of<E>(name), level, a).r1;
      EXPECT_LE(std::fabs(got - want), bounds[level] * std::fabs(want))
          << name << kLevelNames[level] << "(" << a << ") " << got;
    }
  }
};
TYPED_TEST_SUITE(Trig, Elements);

TYPED_TEST(Trig, InfinityIsNanWithCode1WhereTheRowReports) {
  using E = TypeParam;
  for (E x : {this->inf, -this->inf}) {
    for (const char* f : {"Sin", "Cos", "Tan", "Tanpi", "Sind", "Cosd", "Tand"})
      expect_unary<E>(row_of<E>(f), x, this->nan, zymErrorDomain);
    for (const char* f : {"Sinpi", "Cospi"}) expect_unary<E>(row_of<E>(f), x, this->nan, 0);
    this->expect_pair("SinCos", x, this->nan, this->nan, zymErrorDomain);
    this->expect_pair("SinCospi", x, this->nan, this->nan, 0);
  }
}

TYPED_TEST(Trig, NanKeepsItsPayloadAndHasNoCode) {
  using E = TypeParam;
  const E quiet = this->nan_with_payload(false);
  const E signalling = this->nan_with_payload(true);
  const E quieted = this->quieted(signalling);
  for (int level = 0; level < 3; ++level) {
    const auto expect = [&](const char* f, E x, E want) {
      const Outcome<E> got = evaluate<E>(row_of<E>(f), level, x);
      EXPECT_EQ(std::memcmp(&got.r1, &want, sizeof(E)), 0) << f << kLevelNames[level];
      EXPECT_EQ(got.code, 0) << f;
      if (row_named(row_of<E>(f)).outputs() == 2) {
        EXPECT_EQ(std::memcmp(&got.r2, &want, sizeof(E)), 0) << f;
      }
    };
    for (const auto& list :
         {std::span(kOdd).first(6), std::span<const char* const>(kEven), std::span<const char* const>(kPairs)}) {
      for (const char* f : list) {
        expect(f, quiet, quiet);
        expect(f, signalling, quieted);
      }
    }
  }
}

TYPED_TEST(Trig, ZerosKeepTheirSignAtAllLevels) {
  using E = TypeParam;
  for (E zero : {E(0), E(-0.0)}) {
    for (const char* f : kOdd) expect_unary<E>(row_of<E>(f), zero, zero);
  }
}

TYPED_TEST(Trig, CosineOfZeroIsOne) {
  using E = TypeParam;
  for (E zero : {E(0), E(-0.0)}) {
    for (const char* f : kEven) this->expect_near_at_lower_levels(f, zero, E(1));
  }
  const Outcome<E> got = evaluate<E>(row_of<E>("SinCos"), 1, E(-0.0));
  EXPECT_TRUE(same_value(got.r1, E(-0.0)));
  EXPECT_EQ(got.r2, E(1));
  this->expect_pair("SinCospi", E(-0.0), E(-0.0), E(1));
}

TYPED_TEST(Trig, DenormalsAreTheirOwnSineAndTangent) {
  using E = TypeParam;
  const E pi = static_cast<E>(3.14159265358979323846L);
  for (E x : {this->tiny, E(-5) * this->tiny, this->smallest - this->tiny}) {
    for (const char* f : {"Sin", "Tan"}) {
      for (int level : {0, 1}) EXPECT_EQ(evaluate<E>(row_of<E>(f), level, x).r1, x) << f << level;
    }
    for (const char* f : {"Sinpi", "Tanpi"}) EXPECT_NEAR(evaluate<E>(row_of<E>(f), 1, x).r1, x * pi, 2 * this->tiny) << f;
    for (const char* f : {"Sind", "Tand"})
      EXPECT_NEAR(evaluate<E>(row_of<E>(f), 1, x).r1, x * (pi / 180), this->tiny) << f;
    EXPECT_EQ(evaluate<E>(row_of<E>("Cos"), 1, x).r1, E(1));
  }
}

TYPED_TEST(Trig, DenormalsReadAsZeroWithTheFlushField) {
  using E = TypeParam;
  const uint32_t old = _zymSetMode(ZYM_FLUSH_DENORMALS);
  for (E x : {this->tiny, E(-5) * this->tiny}) {
    for (const char* f : kOdd) EXPECT_EQ(evaluate<E>(row_of<E>(f), 1, x).r1, E(0)) << f;
    for (const char* f : kEven) EXPECT_EQ(evaluate<E>(row_of<E>(f), 1, x).r1, E(1)) << f;
  }
  _zymSetMode(old | 0x140000);
}

TYPED_TEST(Trig, HalfTurnsAtIntegersAreExactZerosAndOnes) {
  using E = TypeParam;
  const E last = sizeof(E) == 4 ? E(16777215) : E(9007199254740991.0);
  for (E n : {E(1), E(2), E(3), E(4), E(5), E(1001), E(65536), last - 2, last - 1, last}) {
    const bool odd = std::fmod(n, E(2)) != 0;
    expect_unary<E>(row_of<E>("Sinpi"), n, E(0));
    expect_unary<E>(row_of<E>("Sinpi"), -n, E(-0.0));
    expect_unary<E>(row_of<E>("Tanpi"), n, odd ? E(-0.0) : E(0));
    expect_unary<E>(row_of<E>("Tanpi"), -n, odd ? E(0) : E(-0.0));
    this->expect_near_at_lower_levels("Cospi", n, odd ? E(-1) : E(1));
    this->expect_pair("SinCospi", n, E(0), odd ? E(-1) : E(1));
    this->expect_pair("SinCospi", -n, E(-0.0), odd ? E(-1) : E(1));
  }
}

TYPED_TEST(Trig, HalfTurnsBetweenIntegersAreExactZerosOnesAndPoles) {
  using E = TypeParam;
  const E last = sizeof(E) == 4 ? E(8388607.5) : E(4503599627370495.5);
  for (E n : {E(0.5), E(1.5), E(2.5), E(3.5), E(1000.5), last - 1, last}) {
    const bool odd = std::fmod(n - E(0.5), E(2)) != 0;
    expect_unary<E>(row_of<E>("Cospi"), n, E(0));
    expect_unary<E>(row_of<E>("Cospi"), -n, E(0));
    expect_unary<E>(row_of<E>("Tanpi"), n, odd ? -this->inf : this->inf);
    expect_unary<E>(row_of<E>("Tanpi"), -n, odd ? this->inf : -this->inf);
    this->expect_near_at_lower_levels("Sinpi", n, odd ? E(-1) : E(1));
    this->expect_pair("SinCospi", n, odd ? E(-1) : E(1), E(0));
  }
}

TYPED_TEST(Trig, HalfTurnsOfTheLargestNumbersAreThoseOfEvenIntegers) {
  using E = TypeParam;
  for (E x : {this->largest, -this->largest, std::ldexp(E(1.5), std::numeric_limits<E>::digits + 3)}) {
    expect_unary<E>(row_of<E>("Sinpi"), x, std::copysign(E(0), x));
    expect_unary<E>(row_of<E>("Tanpi"), x, std::copysign(E(0), x));
    this->expect_near_at_lower_levels("Cospi", x, E(1));
  }
}

TYPED_TEST(Trig, DegreesAreExactAtMultiplesOf90) {
  using E = TypeParam;
  for (E turns : {E(0), E(360), E(-720), E(36000), E(8388360), E(-8388000)}) {
    const bool negative = turns < 0;
    expect_unary<E>(row_of<E>("Sind"), turns, negative ? E(-0.0) : E(0));
    expect_unary<E>(row_of<E>("Cosd"), turns + 90, E(0));
    expect_unary<E>(row_of<E>("Cosd"), turns - 90, E(0));
    EXPECT_EQ(evaluate<E>(row_of<E>("Sind"), 0, turns + 180).r1, E(0));
    EXPECT_EQ(evaluate<E>(row_of<E>("Tand"), 2, turns + 180).r1, E(0));
    EXPECT_EQ(std::fabs(evaluate<E>(row_of<E>("Tand"), 0, turns + 90).r1), this->inf);
    this->expect_near_at_lower_levels("Sind", turns + 90, E(1));
    this->expect_near_at_lower_levels("Sind", turns - 90, E(-1));
    this->expect_near_at_lower_levels("Cosd", turns, E(1));
    this->expect_near_at_lower_levels("Cosd", turns + 180, E(-1));
    this->expect_near_at_lower_levels("Sind", turns + 30, E(0.5));
    this->expect_near_at_lower_levels("Cosd", turns + 60, E(0.5));
    this->expect_near_at_lower_levels("Tand", turns + 45, E(1));
    this->expect_near_at_lower_levels("Tand", turns - 45, E(-1));
  }
}

TYPED_TEST(Trig, TangentOfDegreesAt90And270HasTheSignOfItsLeftLimitAndReportsNothing) {
  using E = TypeParam;
  expect_unary<E>(row_of<E>("Tand"), E(90), this->inf);
  expect_unary<E>(row_of<E>("Tand"), E(-90), -this->inf);
  expect_unary<E>(row_of<E>("Tand"), E(270), -this->inf);
  expect_unary<E>(row_of<E>("Tand"), E(-270), this->inf);
}

// 2^k degrees modulo 360 by exact doubling.
TYPED_TEST(Trig, DegreesOfPowersOfTwoUpToTheLargest) {
  using E = TypeParam;
  int left = 1;
  for (int k = 0; k < std::numeric_limits<E>::max_exponent; ++k, left = 2 * left % 360) {
    const E x = std::ldexp(E(1), k);
    for (int level = 0; level < 3; ++level) {
      for (const char* f : {"Sind", "Cosd", "Tand"}) {
        const E got = evaluate<E>(row_of<E>(f), level, x).r1;
        const E want = evaluate<E>(row_of<E>(f), level, static_cast<E>(left)).r1;
        EXPECT_EQ(got, want) << f << kLevelNames[level] << " 2^" << k;
      }
    }
  }
}

TEST(TrigValues, TheLargestArgumentsAreAccurateNotZero) {
  for (int level : {0, 1}) {
    EXPECT_NEAR(evaluate<float>("sSin", level, 3.4028234663852886e38f).r1, -0.52187652f, 2.5e-7f);
    EXPECT_NEAR(evaluate<double>("dSin", level, 1.7976931348623157e308).r1, 0.004961954789184062, 4e-18);
    EXPECT_NEAR(evaluate<double>("dCos", level, 1e22).r1, 0.5232147853951389, 4.5e-16);
  }
  EXPECT_EQ(evaluate<double>("dSin", 1, 1.7976931348623157e308).r1, 0.004961954789184062);
  EXPECT_NEAR(evaluate<double>("dCos", 1, 1e22).r1, 0.5232147853951389, 1.2e-16);
  // At EP half the digits.
  EXPECT_NEAR(evaluate<float>("sSin", 2, 3.4028234663852886e38f).r1, -0.52187652f, 0.5 * 0x1p-11);
  EXPECT_NEAR(evaluate<double>("dSin", 2, 1.7976931348623157e308).r1, 0.004961954789184062, 0.005 * 0x1p-26);
  // sin(1e300), first by one call, then again.
  EXPECT_EQ(evaluate<double>("dSin", 2, 1e300).r1, evaluate<double>("dSin", 2, 1e300).r1);
}

}  // namespace
}  // namespace orvik::test
