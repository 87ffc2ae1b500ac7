// Special values and codes of ErfInv, ErfcInv and CdfNormInv, at every level, in the main loop, in the remainder and
// strided.
#include <cmath>

#include "support/row_calls.h"

namespace orvik::test {
namespace {

constexpr int32_t kDomain = 1, kSingularity = 2;

template <class E>
class InverseError : public ElementTest<E> {
 protected:
  static void unary(const char* name, E x, E want, int32_t code = 0) {
    expect_unary<E>(row_of<E>(name), x, want, code);
  }
  static E next(E x, E towards) { return std::nextafter(x, towards); }
};
TYPED_TEST_SUITE(InverseError, Elements);

TYPED_TEST(InverseError, ErfInvOfOneIsInfiniteWithCode2) {
  this->unary("ErfInv", 1, this->inf, kSingularity);
  this->unary("ErfInv", -1, -this->inf, kSingularity);
}

TYPED_TEST(InverseError, ErfInvBeyondOneIsNanWithCode1) {
  using E = TypeParam;
  for (E x : {E(1.5), this->next(1, 2), E(2), this->largest, this->inf}) {
    this->unary("ErfInv", x, this->nan, kDomain);
    this->unary("ErfInv", -x, this->nan, kDomain);
  }
}

TYPED_TEST(InverseError, ErfInvOfZeroKeepsItsSign) {
  this->unary("ErfInv", 0, 0);
  this->unary("ErfInv", TypeParam(-0.0), TypeParam(-0.0));
}

TYPED_TEST(InverseError, ErfInvOfATinyNumberIsTheSlopeTimesIt) {
  using E = TypeParam;
  const double slope = 0.886226925452758;
  // Around 2^-24, where the argument's square stops to count in 32 bits, down to the smallest denormal numbers.
  for (E x : {E(0x1.fffffep-25), E(0x1p-24), E(0x1.8p-40), E(0x1p-960), this->smallest * 1024, this->smallest,
              this->smallest / 2, this->tiny * 3, this->tiny}) {
    if (x == 0 || (sizeof(E) == 8 && x > 0x1p-30)) continue;  // no float; the square counts
    for (int level = 0; level < 3; ++level) {
      const Outcome<E> got = evaluate<E>(row_of<E>("ErfInv"), level, x);
      const auto want = static_cast<long double>(x) * static_cast<long double>(slope);
      const long double bound = level < 2 ? 0 : (sizeof(E) == 4 ? 0x1p-11L : 0x1p-26L) * want;
      const long double ulp = std::fmax(std::ldexp(want, 1 - std::numeric_limits<E>::digits), this->tiny);
      EXPECT_LE(std::fabs(got.r1 - want), bound + (level == 0 ? 2 : 1) * ulp) << x << " level " << level;
      EXPECT_EQ(got.code, 0);
      EXPECT_TRUE(same_value(evaluate<E>(row_of<E>("ErfInv"), level, -x).r1, -got.r1));
    }
  }
}

TYPED_TEST(InverseError, ErfInvOfFloatsBelow2ToMinus24IsTheSlopeTimesThemInDoublePrecision) {
  if (sizeof(TypeParam) == 8) GTEST_SKIP() << "64 bits have more";
  for (float x : {0x1.fffffep-25f, 0x1.23456p-30f, 0x1.8p-100f, 0x1.fffffep-127f, 0x1p-126f, 0x1.8p-140f, 0x1p-149f}) {
    for (float y : {x, -x}) {
      const auto want = static_cast<TypeParam>(static_cast<float>(static_cast<double>(y) * 0.886226925452758));
      this->unary("ErfInv", static_cast<TypeParam>(y), want);
    }
  }
}

TYPED_TEST(InverseError, ErfcInvOfZeroAndOfTwoIsInfiniteWithCode2) {
  this->unary("ErfcInv", 0, this->inf, kSingularity);
  this->unary("ErfcInv", TypeParam(-0.0), this->inf, kSingularity);
  this->unary("ErfcInv", 2, -this->inf, kSingularity);
}

TYPED_TEST(InverseError, ErfcInvOutsideZeroToTwoIsNanWithCode1) {
  using E = TypeParam;
  for (E x : {this->next(2, 3), E(3), this->largest, this->inf, -this->tiny, -this->smallest, E(-1), -this->inf}) {
    this->unary("ErfcInv", x, this->nan, kDomain);
  }
}

TYPED_TEST(InverseError, ErfcInvOfOneIsPositiveZero) { this->unary("ErfcInv", 1, 0); }

TYPED_TEST(InverseError, CdfNormInvOfZeroIsMinusInfinityAndOfOneInfinityWithCode2) {
  this->unary("CdfNormInv", 0, -this->inf, kSingularity);
  this->unary("CdfNormInv", TypeParam(-0.0), -this->inf, kSingularity);
  this->unary("CdfNormInv", 1, this->inf, kSingularity);
}

TYPED_TEST(InverseError, CdfNormInvOfInfinityIsNanWithCode1) {
  this->unary("CdfNormInv", this->inf, this->nan, kDomain);
  this->unary("CdfNormInv", -this->inf, this->nan, kDomain);
}

TYPED_TEST(InverseError, CdfNormInvOutsideZeroToOneIsNanWithCode1) {
  using E = TypeParam;
  for (E x : {this->next(1, 2), E(1.5), this->largest, -this->tiny, -this->smallest, E(-0.5), -this->largest}) {
    this->unary("CdfNormInv", x, this->nan, kDomain);
  }
}

TYPED_TEST(InverseError, CdfNormInvOfAHalfIsPositiveZero) { this->unary("CdfNormInv", TypeParam(0.5), 0); }

TYPED_TEST(InverseError, NanIsNanWithoutCode) {
  for (const char* name : {"ErfInv", "ErfcInv", "CdfNormInv"}) {
    this->unary(name, this->nan, this->nan);
    this->unary(name, -this->nan, this->nan);
    this->unary(name, std::numeric_limits<TypeParam>::signaling_NaN(), this->nan);
  }
}

TYPED_TEST(InverseError, NanKeepsItsPayloadAndIsQuieted) {
  using E = TypeParam;
  using Bits = std::conditional_t<sizeof(E) == 4, uint32_t, uint64_t>;
  const int mantissa = std::numeric_limits<E>::digits - 1;
  const Bits quiet = Bits{1} << (mantissa - 1);
  for (E kind : {this->inf, -this->inf}) {
    const Bits signalling = std::bit_cast<Bits>(kind) | 0x1234;
    for (const char* name : {"ErfInv", "ErfcInv", "CdfNormInv"}) {
      for (int level = 0; level < 3; ++level) {
        const E got = evaluate<E>(row_of<E>(name), level, std::bit_cast<E>(signalling)).r1;
        EXPECT_EQ(std::bit_cast<Bits>(got), signalling | quiet) << name;
      }
    }
  }
}

TYPED_TEST(InverseError, OneStepInsideTheDomainIsFiniteWithoutCode) {
  using E = TypeParam;
  const struct {
    const char* name;
    E x;
  } cases[] = {{"ErfInv", this->next(1, 0)},  {"ErfInv", this->next(-1, 0)}, {"ErfcInv", this->tiny},
               {"ErfcInv", this->next(2, 0)}, {"CdfNormInv", this->tiny},    {"CdfNormInv", this->next(1, 0)}};
  for (const auto& [name, x] : cases) {
    for (int level = 0; level < 3; ++level) {
      const Outcome<E> got = evaluate<E>(row_of<E>(name), level, x);
      EXPECT_TRUE(std::isfinite(got.r1)) << name << " " << x;
      EXPECT_GT(std::fabs(got.r1), sizeof(E) == 4 ? 3.5 : 5.5) << name << " " << x;
      EXPECT_EQ(got.code, 0) << name << " " << x;
    }
  }
}

TYPED_TEST(InverseError, ErfInvIsOdd) {
  using E = TypeParam;
  for (E x : {E(0.1), E(0.125), E(0.5), E(0.75), E(0.875), E(0.99), this->next(1, 0)}) {
    for (int level = 0; level < 3; ++level) {
      EXPECT_EQ(evaluate<E>(row_of<E>("ErfInv"), level, x).r1, -evaluate<E>(row_of<E>("ErfInv"), level, -x).r1);
    }
  }
}

TYPED_TEST(InverseError, MirroredArgumentsGiveOppositeResults) {
  using E = TypeParam;
  // 2 - x and 1 - x are exact for these.
  for (E x : {E(0.5), E(0.625), E(0.75), E(0x1p-5), E(0x1.8p-9)}) {
    for (int level = 0; level < 3; ++level) {
      EXPECT_EQ(evaluate<E>(row_of<E>("ErfcInv"), level, x).r1, -evaluate<E>(row_of<E>("ErfcInv"), level, 2 - x).r1);
      EXPECT_EQ(evaluate<E>(row_of<E>("CdfNormInv"), level, x / 2).r1,
                -evaluate<E>(row_of<E>("CdfNormInv"), level, 1 - x / 2).r1);
    }
  }
}

TYPED_TEST(InverseError, DenormalArgumentsCountAsZeroWhereTheModeSaysSo) {
  using E = TypeParam;
  const uint32_t mode = _zymSetMode(0x280000);
  this->unary("ErfcInv", this->smallest / 4, this->inf, kSingularity);
  this->unary("CdfNormInv", this->smallest / 4, -this->inf, kSingularity);
  for (int level = 0; level < 3; ++level) EXPECT_EQ(evaluate<E>(row_of<E>("ErfInv"), level, this->smallest / 4).r1, 0);
  _zymSetMode(mode | 0x140000);
}

}  // namespace
}  // namespace orvik::test
