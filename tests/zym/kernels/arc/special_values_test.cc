// Special values and codes of the arc functions, at every level, in the main loop, in the remainder and strided.
#include <cmath>
#include <numbers>

#include "support/row_calls.h"

namespace orvik::test {
namespace {

constexpr int32_t kDomain = 1;

template <class E>
class Arc : public ElementTest<E> {
 protected:
  static constexpr E pi = std::numbers::pi_v<E>;
  static void unary(const char* name, E x, E want, int32_t code = 0) { expect_unary<E>(row_of<E>(name), x, want, code); }
  static void point(const char* name, E y, E x, E want) { expect_element<E>(row_of<E>(name), y, x, want); }
};
TYPED_TEST_SUITE(Arc, Elements);

TYPED_TEST(Arc, AcosOfOneIsZeroAndOfMinusOnePiWithoutReport) {
  this->unary("Acos", 1, 0);
  this->unary("Acos", -1, this->pi);
}

TYPED_TEST(Arc, AsinOfOneIsARightAngleWithoutReport) {
  this->unary("Asin", 1, this->pi / 2);
  this->unary("Asin", -1, -this->pi / 2);
}

TYPED_TEST(Arc, AsinOfADenormalKeepsTheValue) {
  for (TypeParam x : {this->tiny, -this->tiny, this->smallest / 2, -this->smallest / 4, this->smallest}) {
    this->unary("Asin", x, x);
  }
  this->unary("Asin", TypeParam(0), TypeParam(0));
  this->unary("Asin", TypeParam(-0.0), TypeParam(-0.0));
}

TYPED_TEST(Arc, OutsideOneToMinusOneIsNanWithCode1) {
  using E = TypeParam;
  for (const char* name : {"Acos", "Asin", "Acospi", "Asinpi"}) {
    for (E x : {std::nextafter(E(1), E(2)), E(-2), this->largest, this->inf, -this->inf}) {
      this->unary(name, x, this->nan, kDomain);
    }
  }
}

TYPED_TEST(Arc, NanIsNanWithoutCode) {
  for (const char* name : {"Acos", "Asin", "Acospi", "Asinpi", "Atan", "Atanpi"}) {
    this->unary(name, this->nan, this->nan);
    this->unary(name, -this->nan, this->nan);
    this->unary(name, std::numeric_limits<TypeParam>::signaling_NaN(), this->nan);
  }
}

TYPED_TEST(Arc, HalfTurnsAreExactAtExactValues) {
  using E = TypeParam;
  this->unary("Acospi", 1, 0);
  this->unary("Acospi", 0, E(0.5));
  this->unary("Acospi", E(-0.0), E(0.5));
  this->unary("Acospi", -1, 1);
  this->unary("Asinpi", 1, E(0.5));
  this->unary("Asinpi", -1, E(-0.5));
  this->unary("Asinpi", E(-0.0), E(-0.0));
  this->unary("Atanpi", 1, E(0.25));
  this->unary("Atanpi", -1, E(-0.25));
  this->unary("Atanpi", 0, 0);
  this->unary("Atanpi", E(-0.0), E(-0.0));
  this->unary("Atanpi", this->inf, E(0.5));
  this->unary("Atanpi", -this->inf, E(-0.5));
}

TYPED_TEST(Arc, AtanOfInfinityAndOfLargeNumbersIsARightAngle) {
  using E = TypeParam;
  for (E x : {this->inf, this->largest, E(1e20), E(18014398509481984.0)}) {
    this->unary("Atan", x, this->pi / 2);
    this->unary("Atan", -x, -this->pi / 2);
  }
  this->unary("Atan", E(-0.0), E(-0.0));
  this->unary("Atan", this->tiny, this->tiny);
}

TYPED_TEST(Arc, SmallHalfTurnsAreTheQuotientByPi) {
  using E = TypeParam;
  const E bound = std::numeric_limits<TypeParam>::epsilon();
  for (const char* name : {"Asinpi", "Atanpi"}) {
    for (E x : {this->smallest * 8, std::sqrt(this->smallest), E(0x1p-90), E(0x1p-91)}) {
      for (int level = 0; level < 3; ++level) {
        const auto want = static_cast<E>(static_cast<long double>(x) / std::numbers::pi_v<long double>);
        EXPECT_NEAR(evaluate<E>(row_of<E>(name), level, x).r1 / want, 1, level == 1 ? bound : 4 * bound) << name;
      }
    }
    for (int level = 0; level < 3; ++level) EXPECT_EQ(evaluate<E>(row_of<E>(name), level, this->tiny).r1, 0);
  }
}

TYPED_TEST(Arc, Atan2OfSignedZeros) {
  using E = TypeParam;
  const E zero = 0, minus = E(-0.0);
  const struct {
    const char* name;
    E half_turn;
  } rows[] = {{"Atan2", this->pi}, {"Atan2pi", E(1)}};
  for (const auto& [name, half_turn] : rows) {
    for (E x : {zero, E(3), this->tiny, this->largest, this->inf}) {
      this->point(name, zero, x, zero);
      this->point(name, minus, x, minus);
    }
    for (E x : {minus, E(-3), -this->tiny, -this->largest, -this->inf}) {
      this->point(name, zero, x, half_turn);
      this->point(name, minus, x, -half_turn);
    }
    for (E y : {E(3), this->tiny, this->largest, this->inf}) {
      for (E x : {zero, minus}) {
        this->point(name, y, x, half_turn / 2);
        this->point(name, -y, x, -half_turn / 2);
      }
    }
  }
}

TYPED_TEST(Arc, Atan2OfInfinitiesAndNans) {
  using E = TypeParam;
  const E inf = this->inf, three_quarters = static_cast<E>(3 * (std::numbers::pi_v<long double> / 4));
  const struct {
    const char* name;
    E half_turn, wide;
  } rows[] = {{"Atan2", this->pi, three_quarters}, {"Atan2pi", E(1), E(0.75)}};
  for (const auto& [name, half_turn, wide] : rows) {
    for (E sign : {E(1), E(-1)}) {
      this->point(name, sign * inf, inf, sign * half_turn / 4);
      this->point(name, sign * inf, -inf, sign * wide);
      this->point(name, sign * inf, 5, sign * half_turn / 2);
      this->point(name, sign * 5, inf, sign * E(0));
      this->point(name, sign * 5, -inf, sign * half_turn);
      this->point(name, sign * this->tiny, -this->largest, sign * half_turn);
      this->point(name, sign * this->largest, -this->tiny, sign * half_turn / 2);
    }
    this->point(name, this->nan, 1, this->nan);
    this->point(name, 1, this->nan, this->nan);
    this->point(name, this->nan, inf, this->nan);
    this->point(name, 0, this->nan, this->nan);
  }
}

TYPED_TEST(Arc, Atan2piIsExactOnAxesAndDiagonals) {
  using E = TypeParam;
  for (E m : {E(1), E(3), E(0.1), E(1e-6), E(123456), this->tiny, this->smallest, this->largest}) {
    this->point("Atan2pi", m, m, E(0.25));
    this->point("Atan2pi", m, -m, E(0.75));
    this->point("Atan2pi", -m, -m, E(-0.75));
    this->point("Atan2pi", -m, m, E(-0.25));
  }
}

// Far from 1 the element routine computes: quotients that are normal, denormal, zero; angles next to a base.
TYPED_TEST(Arc, Atan2FarFromOneIsWithinTheBound) {
  using E = TypeParam;
  using Wide = long double;
  const E values[] = {this->tiny, this->smallest, E(0x1p-60), E(0x1.8p-39), E(0x1.8p39), E(0x1.cp100), this->largest};
  for (E y : values) {
    for (E x : values) {
      for (E sign : {E(1), E(-1)}) {
        const Wide angle = std::atan2(static_cast<Wide>(y), static_cast<Wide>(sign * x));
        const struct {
          const char* name;
          Wide want;
        } rows[] = {{"Atan2", angle}, {"Atan2pi", angle / std::numbers::pi_v<Wide>}};
        for (const auto& [name, want] : rows) {
          const auto rounded = static_cast<E>(want);
          const Wide ulp = static_cast<Wide>(std::nextafter(rounded, this->inf)) - static_cast<Wide>(rounded);
          for (int level = 0; level < 3; ++level) {
            const E got = evaluate<E>(row_of<E>(name), level, y, sign * x).r1;
            const Wide bound = level == 1 ? ulp : level == 0 ? 4 * ulp : (sizeof(E) == 4 ? 0x1p-11L : 0x1p-26L) * want + ulp;
            EXPECT_LE(std::fabs(static_cast<Wide>(got) - want), bound) << name << " " << level << ": " << y << ", " << sign * x;
          }
        }
      }
    }
  }
}

}  // namespace
}  // namespace orvik::test
