// Special values and codes of the hyperbolic functions and their inverses, at every level, in the main loop, in the
// remainder and strided.
#include <cmath>

#include "support/row_calls.h"

namespace orvik::test {
namespace {

constexpr int32_t kDomain = 1, kSingularity = 2, kOverflow = 3;

template <class E>
class Hyperbolic : public ElementTest<E> {
 protected:
  // The largest argument whose hyperbolic cosine is finite.
  static constexpr E last = sizeof(E) == 4 ? E(0x1.65a9f8p+6) : E(710.4758600739439);
  static void unary(const char* name, E x, E want, int32_t code = 0) {
    expect_unary<E>(row_of<E>(name), x, want, code);
  }
  static void inverse_tangent(E x, E want, int32_t code = 0) { expect_unary<E>(row_of<E>("Atanh"), x, want, code); }
};
TYPED_TEST_SUITE(Hyperbolic, Elements);

TYPED_TEST(Hyperbolic, CoshAndSinhAreFiniteUpToTheLastArgumentAndOverflowWithCode3BeyondIt) {
  using E = TypeParam;
  const E beyond = std::nextafter(this->last, this->inf);
  for (int level = 0; level < 3; ++level) {
    for (const char* name : {"Cosh", "Sinh"}) {
      const Outcome<E> got = evaluate<E>(row_of<E>(name), level, this->last);
      EXPECT_EQ(got.code, 0) << name;
      const long double want = std::cosh(static_cast<long double>(this->last));
      EXPECT_LE(std::fabs(got.r1 / want - 1), 4 * std::numeric_limits<TypeParam>::epsilon())
          << name << " level " << level;
    }
  }
  for (E x : {beyond, E(sizeof(E) == 4 ? 90 : 711), this->largest}) {
    this->unary("Cosh", x, this->inf, kOverflow);
    this->unary("Cosh", -x, this->inf, kOverflow);
    this->unary("Sinh", x, this->inf, kOverflow);
    this->unary("Sinh", -x, -this->inf, kOverflow);
  }
}

TYPED_TEST(Hyperbolic, CoshAndSinhAcrossHalfStepsAndTheBoundOfTheLanes) {
  using E = TypeParam;
  constexpr int kDigits = std::numeric_limits<E>::digits;
  std::vector<E> centres;
  for (int k = 1; k < (sizeof(E) == 4 ? 4000 : 32000); k += k < 200 ? 2 : 98)
    centres.push_back(E(k * 0.0216608493924982909L));
  centres.push_back(sizeof(E) == 4 ? E(86.5) : E(707.625));
  for (const E centre : centres) {
    const E before = std::nextafter(centre, E(0)), after = std::nextafter(centre, this->inf);
    for (const E x : {before, centre, after}) {
      for (int level = 0; level < 3; ++level) {
        const double bound = level == 0 ? 4 : level == 1 ? 1 : std::ldexp(1.0, kDigits - (sizeof(E) == 4 ? 11 : 26));
        for (const char* name : {"Cosh", "Sinh"}) {
          const auto wide = static_cast<long double>(x);
          const long double want = name[0] == 'C' ? std::cosh(wide) : std::sinh(wide);
          const long double got = evaluate<E>(row_of<E>(name), level, x).r1;
          EXPECT_LE(std::fabs(got - want), std::ldexp(bound, std::ilogb(want) + 1 - kDigits))
              << name << level << ' ' << x;
        }
      }
    }
  }
}

TYPED_TEST(Hyperbolic, CoshOf89IsFiniteAndOf90OverflowsInFloats) {
  if (sizeof(TypeParam) != 4) GTEST_SKIP() << "both are finite in 64 bits";
  for (int level = 0; level < 3; ++level) {
    const Outcome<TypeParam> got = evaluate<TypeParam>(row_of<TypeParam>("Cosh"), level, TypeParam(89));
    EXPECT_LT(got.r1, this->inf);
    EXPECT_EQ(got.code, 0);
  }
  this->unary("Cosh", TypeParam(90), this->inf, kOverflow);
  this->unary("Sinh", TypeParam(-90), -this->inf, kOverflow);
}

TYPED_TEST(Hyperbolic, InfinitiesWithoutCode) {
  this->unary("Cosh", this->inf, this->inf);
  this->unary("Cosh", -this->inf, this->inf);
  this->unary("Sinh", this->inf, this->inf);
  this->unary("Sinh", -this->inf, -this->inf);
  this->unary("Tanh", this->inf, 1);
  this->unary("Tanh", -this->inf, -1);
  this->unary("Asinh", this->inf, this->inf);
  this->unary("Asinh", -this->inf, -this->inf);
  this->unary("Acosh", this->inf, this->inf);
}

TYPED_TEST(Hyperbolic, NanIsNanWithoutCode) {
  for (const char* name : {"Cosh", "Sinh", "Tanh", "Asinh", "Acosh"}) {
    this->unary(name, this->nan, this->nan);
    this->unary(name, -this->nan, this->nan);
    this->unary(name, std::numeric_limits<TypeParam>::signaling_NaN(), this->nan);
  }
  this->inverse_tangent(this->nan, this->nan);
  this->inverse_tangent(std::numeric_limits<TypeParam>::signaling_NaN(), this->nan);
}

TYPED_TEST(Hyperbolic, ZerosKeepTheirSignAndCoshIsOne) {
  using E = TypeParam;
  for (E zero : {E(0), E(-0.0)}) {
    this->unary("Sinh", zero, zero);
    this->unary("Tanh", zero, zero);
    this->unary("Asinh", zero, zero);
    this->inverse_tangent(zero, zero);
    this->unary("Cosh", zero, 1);
  }
}

TYPED_TEST(Hyperbolic, TinyNumbersAreThemselves) {
  using E = TypeParam;
  for (E x : {this->tiny, 3 * this->tiny, this->smallest / 2, this->smallest, std::nextafter(this->smallest, E(1)),
              E(0x1.234568p-60)}) {
    for (E y : {x, -x}) {
      this->unary("Sinh", y, y);
      this->unary("Tanh", y, y);
      this->unary("Asinh", y, y);
      this->inverse_tangent(y, y);
    }
    this->unary("Cosh", x, 1);
  }
}

TYPED_TEST(Hyperbolic, TanhOfLargeNumbersIsOne) {
  using E = TypeParam;
  for (E x : {E(sizeof(E) == 4 ? 9.02 : 19.07), E(80), this->largest}) {
    for (int level : {0, 1}) {
      EXPECT_EQ(evaluate<E>(row_of<E>("Tanh"), level, x).r1, 1);
      EXPECT_EQ(evaluate<E>(row_of<E>("Tanh"), level, -x).r1, -1);
    }
  }
}

TYPED_TEST(Hyperbolic, AcoshOfOneIsZeroAndBelowOneNanWithCode1) {
  using E = TypeParam;
  this->unary("Acosh", 1, 0);
  for (E x : {std::nextafter(E(1), E(0)), E(0.5), E(0), E(-0.0), E(-1), E(-2), -this->largest, -this->inf}) {
    this->unary("Acosh", x, this->nan, kDomain);
  }
}

TYPED_TEST(Hyperbolic, AtanhOfOneIsInfiniteWithCode2AndBeyondNanWithCode1) {
  using E = TypeParam;
  this->inverse_tangent(1, this->inf, kSingularity);
  this->inverse_tangent(-1, -this->inf, kSingularity);
  for (E x : {std::nextafter(E(1), E(2)), E(-2), this->largest, this->inf, -this->inf}) {
    this->inverse_tangent(x, this->nan, kDomain);
  }
}

TYPED_TEST(Hyperbolic, InversesOfTheLargestNumbersAreWithinTheBound) {
  using E = TypeParam;
  using Wide = long double;
  for (E x : {E(0x1p29), E(0x1.8p30), E(0x1p59), E(0x1.8p60), E(0x1p124), E(0x1p125), E(0x1p89), E(0x1.4p90),
              this->largest / 4, this->largest}) {
    const struct {
      const char* name;
      Wide want;
    } rows[] = {{"Asinh", std::asinh(static_cast<Wide>(x))}, {"Acosh", std::acosh(static_cast<Wide>(x))}};
    for (const auto& [name, want] : rows) {
      const auto rounded = static_cast<E>(want);
      const Wide ulp = static_cast<Wide>(std::nextafter(rounded, this->inf)) - static_cast<Wide>(rounded);
      for (int level = 0; level < 3; ++level) {
        const E got = evaluate<E>(row_of<E>(name), level, x).r1;
        const Wide bound = level == 1   ? 0.6L * ulp
                           : level == 0 ? 4 * ulp
                                        : (sizeof(E) == 4 ? 0x1p-11L : 0x1p-26L) * want;
        EXPECT_LE(std::fabs(static_cast<Wide>(got) - want), bound) << name << " " << level << ": " << x;
      }
    }
  }
}

TYPED_TEST(Hyperbolic, AtanhNextToOneIsWithinTheBound) {
  using E = TypeParam;
  using Wide = long double;
  E x = 1;
  for (int step = 0; step < 100; ++step) {
    x = std::nextafter(x, E(0));
    const Wide want = std::atanh(static_cast<Wide>(x));
    const auto rounded = static_cast<E>(want);
    const Wide ulp = static_cast<Wide>(std::nextafter(rounded, this->inf)) - static_cast<Wide>(rounded);
    for (int level = 0; level < 3; ++level) {
      const E got = evaluate<E>(row_of<E>("Atanh"), level, x).r1;
      const Wide bound = level == 1 ? 0.6L * ulp : level == 0 ? 4 * ulp : (sizeof(E) == 4 ? 0x1p-11L : 0x1p-26L) * want;
      EXPECT_LE(std::fabs(static_cast<Wide>(got) - want), bound) << level << ": " << x;
    }
  }
}

}  // namespace
}  // namespace orvik::test
