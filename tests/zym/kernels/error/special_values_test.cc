// Special values and codes of the error functions, at every level, in the main loop, in the remainder and strided.
#include <bit>
#include <cmath>

#include "lanes/types.h"
#include "support/row_calls.h"
#include "zym/kernels/error/exact.h"

namespace orvik::test {
namespace {

constexpr int32_t kUnderflow = 4;

template <class E>
class ErrorFunctions : public ElementTest<E> {
 protected:
  static constexpr bool kSingle = sizeof(E) == 4;
  static void unary(const char* name, E x, E want, int32_t code = 0) {
    expect_unary<E>(row_of<E>(name), x, want, code);
  }
  // Exactly, but for floats at EP, whose polynomials do not pass through it.
  static void exact(const char* name, E x, E want) {
    for (int level = 0; level < 3; ++level) {
      const Outcome<E> got = evaluate<E>(row_of<E>(name), level, x);
      if (kSingle && level == 2) {
        EXPECT_NEAR(got.r1, want, want * E(0x1p-11)) << row_of<E>(name) << "(" << show(x) << ")";
      } else {
        EXPECT_EQ(got.r1, want) << row_of<E>(name) << kLevelNames[level] << "(" << show(x) << ")";
      }
      EXPECT_EQ(got.code, 0);
    }
  }
  // Within the bound of each level, with this code.
  static void near(const char* name, E x, Extended want, int32_t code = 0) {
    for (int level = 0; level < 3; ++level) {
      const Outcome<E> got = evaluate<E>(row_of<E>(name), level, x);
      const Extended units = units_off(got.r1, want);
      const Extended few = kSingle ? 0x1p13L : 0x1p27L;  // 11 and 26 bits
      EXPECT_LE(units, level == 1 ? 1 : level == 0 ? 4 : few) << row_of<E>(name) << kLevelNames[level] << "(" << show(x)
                                                              << "): got " << show(got.r1);
      EXPECT_EQ(got.code, code) << row_of<E>(name) << kLevelNames[level] << "(" << show(x) << ")";
    }
  }
};
TYPED_TEST_SUITE(ErrorFunctions, Elements);

TYPED_TEST(ErrorFunctions, ErfIsOneOfTheSignFromItsLastThresholdOn) {
  using E = TypeParam;
  for (E x : {E(6), E(7), E(1000), this->largest, this->inf}) {
    this->unary("Erf", x, 1);
    this->unary("Erf", -x, -1);
  }
}

TYPED_TEST(ErrorFunctions, ErfOfZeroKeepsTheSign) {
  this->unary("Erf", 0, 0);
  this->unary("Erf", TypeParam(-0.0), TypeParam(-0.0));
}

TYPED_TEST(ErrorFunctions, ErfOfTinyAndDenormalArgumentsIsWithinTheBoundAndNeverReported) {
  using E = TypeParam;
  for (E x : {this->tiny, 3 * this->tiny, this->smallest / 2, this->smallest, 5 * this->smallest, E(1e-30)}) {
    this->near("Erf", x, exact_erf(static_cast<Extended>(x)));
    this->near("Erf", -x, exact_erf(static_cast<Extended>(-x)));
  }
}

TYPED_TEST(ErrorFunctions, ErfIsOddAndNeverAboveOne) {
  using E = TypeParam;
  std::vector<E> x, minus, r, odd;
  for (E a = E(0.001); a < 7; a *= E(1.0007)) x.push_back(a), minus.push_back(-a);
  r.resize(x.size()), odd.resize(x.size());
  for (int level = 0; level < 3; ++level) {
    Call<E> c;
    c.n = static_cast<int32_t>(x.size()), c.a = x.data(), c.r1 = r.data();
    ASSERT_TRUE(call_row(row_named(row_of<E>("Erf")), level, false, c));
    c.a = minus.data(), c.r1 = odd.data();
    ASSERT_TRUE(call_row(row_named(row_of<E>("Erf")), level, false, c));
    for (size_t i = 0; i < x.size(); ++i) {
      EXPECT_EQ(r[i], -odd[i]) << x[i];
      // EP is a polynomial that swings about the function.
      if (level != 2) {
        EXPECT_LE(r[i], 1) << x[i];
      }
    }
  }
}

TYPED_TEST(ErrorFunctions, ErfcOfInfinitiesIsZeroAndTwoWithoutCode) {
  this->unary("Erfc", this->inf, 0);
  this->unary("Erfc", -this->inf, 2);
  this->unary("Erfc", -this->largest, 2);
}

TEST(Erfc, OfMinusFourIsExactlyTwoInFloats) { expect_unary<float>("sErfc", -4.0f, 2.0f); }
TEST(Erfc, OfMinusSixIsExactlyTwoInDoubles) { expect_unary<double>("dErfc", -6.0, 2.0); }
TEST(Erfc, OfElevenIsZeroWithCode4InFloats) { expect_unary<float>("sErfc", 11.0f, 0.0f, kUnderflow); }
TEST(Erfc, OfTwentyEightIsZeroWithCode4InDoubles) { expect_unary<double>("dErfc", 28.0, 0.0, kUnderflow); }

TYPED_TEST(ErrorFunctions, ErfcAndErfcxOfZeroAndOfTinyArgumentsAreOne) {
  using E = TypeParam;
  for (E x : {E(0), E(-0.0), this->tiny, -this->tiny, this->smallest, -this->smallest, E(1e-25), E(-1e-25)}) {
    this->exact("Erfc", x, 1);
    this->unary("Erfcx", x, 1);
  }
}

TYPED_TEST(ErrorFunctions, CdfNormOfZeroAndOfArgumentsBelow2ToMinus70IsOneHalf) {
  using E = TypeParam;
  for (E x : {E(0), E(-0.0), this->tiny, -this->tiny, this->smallest, E(-0x1p-71), E(0x1p-70), E(-0x1p-70)}) {
    this->exact("CdfNorm", x, E(0.5));
  }
}

TYPED_TEST(ErrorFunctions, CdfNormOfInfinitiesIsZeroAndOneWithoutCode) {
  this->unary("CdfNorm", this->inf, 1);
  this->unary("CdfNorm", -this->inf, 0);
  this->unary("CdfNorm", this->largest, 1);
}

TEST(CdfNorm, OfSixIsExactlyOneWithoutReportInFloats) { expect_unary<float>("sCdfNorm", 6.0f, 1.0f); }
TEST(CdfNorm, OfNineIsExactlyOneWithoutReportInDoubles) { expect_unary<double>("dCdfNorm", 9.0, 1.0); }
TEST(CdfNorm, OfMinusFifteenIsZeroWithCode4InFloats) { expect_unary<float>("sCdfNorm", -15.0f, 0.0f, kUnderflow); }
TEST(CdfNorm, OfMinusThirtyNineIsZeroWithCode4InDoubles) { expect_unary<double>("dCdfNorm", -39.0, 0.0, kUnderflow); }

// The four bounds of floats: the last argument before, and the first behind them.
TEST(Erfc, IsTwoFromItsFixedBoundOnAndNotBefore) {
  float x = -3.8325067f;
  while (static_cast<double>(x) > -3.832506856900711) x = std::nextafter(x, -9.0f);
  const float before = std::nextafter(x, 0.0f);
  for (int i = 0; i < 50; ++i, x = std::nextafter(x, -9.0f)) expect_unary<float>("sErfc", x, 2.0f);
  EXPECT_LT(evaluate<float>("sErfc", 1, before).r1, 2.0f);
}
TEST(Erfc, IsZeroWithCode4FromItsFixedBoundOnAndNotBefore) {
  float x = 10.0541945f;
  while (static_cast<double>(x) < 10.054194928818097) x = std::nextafter(x, 99.0f);
  const float before = std::nextafter(x, 0.0f);
  for (int i = 0; i < 50; ++i, x = std::nextafter(x, 99.0f)) expect_unary<float>("sErfc", x, 0.0f, kUnderflow);
  expect_unary<float>("sErfc", before, std::numeric_limits<float>::denorm_min());
}
TEST(CdfNorm, IsOneAboveItsFixedBoundAndNotBefore) {
  float x = 5.419983f;
  while (static_cast<double>(x) > 5.419983) x = std::nextafter(x, 0.0f);
  EXPECT_LT(evaluate<float>("sCdfNorm", 1, x).r1, 1.0f);
  for (int i = 0; i < 50; ++i) {
    x = std::nextafter(x, 99.0f);
    expect_unary<float>("sCdfNorm", x, 1.0f);
  }
}
TEST(CdfNorm, IsZeroWithCode4BelowItsFixedBoundAndNotBefore) {
  float x = -14.170185f;
  while (static_cast<double>(x) < -14.170185) x = std::nextafter(x, 0.0f);
  EXPECT_EQ(evaluate<float>("sCdfNorm", 1, x).code, 0);
  EXPECT_EQ(evaluate<float>("sCdfNorm", 0, x).code, 0);
  for (int i = 0; i < 50; ++i) {
    x = std::nextafter(x, -99.0f);
    expect_unary<float>("sCdfNorm", x, 0.0f, kUnderflow);
  }
}

// Steps over the argument whose result is half of the least number.
TEST(ErfcAndCdfNorm, OfDoublesReportCode4ExactlyWhereTheResultIsZero) {
  const struct {
    const char* name;
    double positive, zero;
  } rows[] = {{"dErfc", 27.2, 27.25}, {"dCdfNorm", -38.4, -38.6}};
  for (auto [name, positive, zero] : rows) {
    while (std::nextafter(positive, zero) != zero) {
      const double middle = positive + (zero - positive) / 2;
      const bool is_zero = evaluate<double>(name, 1, middle).r1 == 0;
      (is_zero ? zero : positive) = middle;
    }
    for (int i = 0; i < 20; ++i) {
      expect_unary<double>(name, positive, std::numeric_limits<double>::denorm_min());
      expect_unary<double>(name, zero, 0.0, kUnderflow);
      positive = std::nextafter(positive, 0.0);
      zero = std::nextafter(zero, 99 * zero);
    }
    // Where the exact value is half of the least number, to the long double's accuracy.
    const auto exact = name == std::string("dErfc") ? exact_erfc : exact_cdf_norm;
    EXPECT_NEAR(static_cast<double>(exact(static_cast<Extended>(zero)) * 0x1p1075L), 1, 1e-11) << name;
  }
}

// Denormal results: rounded once, and not reported.
TYPED_TEST(ErrorFunctions, DenormalTailsAreWithinTheBoundWithoutCode) {
  using E = TypeParam;
  const E first = this->kSingle ? E(9.15) : E(26.5), last = this->kSingle ? E(10.05) : E(27.22);
  for (E x = first; x < last; x += E(0.0371)) {
    const Extended tail = exact_erfc(static_cast<Extended>(x));
    const E normal = -x * E(1.41);
    this->near("Erfc", x, tail);
    this->near("CdfNorm", normal, exact_cdf_norm(static_cast<Extended>(normal)));
    EXPECT_LE(units_off(evaluate<E>(row_of<E>("Erfc"), 1, x).r1, tail), this->kSingle ? 0.501L : 0.503L);
  }
}

TYPED_TEST(ErrorFunctions, ErfcxIsInfiniteBeyondOverflowAndNeverReports) {
  using E = TypeParam;
  E last = this->kSingle ? E(-9.38) : E(-26.62), beyond = last - E(0.1);
  while (std::nextafter(last, beyond) != beyond) {
    const E middle = last + (beyond - last) / 2;
    (exact_erfcx(static_cast<Extended>(middle)) < static_cast<Extended>(this->largest) ? last : beyond) = middle;
  }
  for (int i = 0; i < 100; ++i) {
    const auto value = static_cast<E>(exact_erfcx(static_cast<Extended>(last)));
    const E got = evaluate<E>(row_of<E>("Erfcx"), 0, last).r1;
    if (std::isinf(value)) {
      this->unary("Erfcx", last, this->inf);
    } else {
      EXPECT_LE(units_off(got, exact_erfcx(static_cast<Extended>(last))), 1) << last;
    }
    last = std::nextafter(last, i % 2 == 0 ? E(0) : -this->inf);
  }
  for (E x : {E(-30), E(-1000), -this->largest, -this->inf}) this->unary("Erfcx", x, this->inf);
}

TYPED_TEST(ErrorFunctions, ErfcxOfInfinityIsPlusZero) { this->unary("Erfcx", this->inf, 0); }

TYPED_TEST(ErrorFunctions, ErfcxOfTheLargestArgumentsIsDenormalAndRoundedOnce) {
  using E = TypeParam;
  for (E x : {this->largest, this->largest / 3, this->largest / 16, E(0x1p60), E(0x1p61), E(1e19), E(5e8), E(31), E(40)}) {
    const auto want = exact_erfcx(static_cast<Extended>(x));
    for (int level = 0; level < 3; ++level) {
      const Outcome<E> got = evaluate<E>(row_of<E>("Erfcx"), level, x);
      EXPECT_LE(units_off(got.r1, want), 0.63L) << x;
      EXPECT_EQ(got.code, 0);
    }
  }
}

TYPED_TEST(ErrorFunctions, NanIsAQuietNanWithItsPayloadAndWithoutCode) {
  using E = TypeParam;
  using B = typename FloatFormat<E>::Bits;
  constexpr B kSign = FloatFormat<E>::sign_bit, kPayload = 0x1234;
  for (const ErrorFunction& f : kErrorFunctions) {
    for (E nan : {this->nan, std::numeric_limits<E>::signaling_NaN()}) {
      for (B sign : {B(0), kSign}) {
        const B bits = (std::bit_cast<B>(nan) & ~kSign) | kPayload | sign;
        for (int level = 0; level < 3; ++level) {
          const Outcome<E> got = evaluate<E>(row_of<E>(f.name), level, std::bit_cast<E>(bits));
          EXPECT_EQ(std::bit_cast<B>(got.r1) & ~kSign, (bits | std::bit_cast<B>(this->nan)) & ~kSign)
              << row_of<E>(f.name) << kLevelNames[level];
          EXPECT_EQ(got.code, 0);
        }
      }
    }
  }
}

}  // namespace
}  // namespace orvik::test
