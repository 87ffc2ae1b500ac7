// Special values and codes of the gamma functions, at every level, in the main loop, in the remainder and strided.
#include <cmath>

#include "lanes/lanes.h"
#include "support/row_calls.h"

namespace orvik::test {
namespace {

constexpr int32_t kDomain = 1, kSingularity = 2, kOverflow = 3, kUnderflow = 4;

template <class E>
class Gamma : public ElementTest<E> {
 protected:
  static constexpr bool single = sizeof(E) == 4;
  // The largest argument whose result is finite, of both functions; the largest whose reciprocal is not.
  static constexpr E last = single ? E(0x1.18521ep+5) : E(0x1.573fae561f647p+7);
  static constexpr E last_of_log = single ? E(0x1.895f1ap+121) : E(0x1.754d9278b51a7p+1014);
  static constexpr E tiny_overflow = single ? E(0x1p-128) : E(0x1p-1024);
  // Below, every result is zero, and is reported.
  static constexpr E underflow = single ? E(-43) : E(-184);

  static void gamma(E x, E want, int32_t code = 0) { expect_unary<E>(row_of<E>("TGamma"), x, want, code); }
  static void log_gamma(E x, E want, int32_t code = 0) { expect_unary<E>(row_of<E>("LGamma"), x, want, code); }
};
TYPED_TEST_SUITE(Gamma, Elements);

TYPED_TEST(Gamma, TGammaOfMinusOneIsNanWithCode1) { this->gamma(-1, this->nan, kDomain); }

TYPED_TEST(Gamma, TGammaOf36IsInfiniteWithCode3InFloatsAndOf172InDoubles) {
  this->gamma(this->single ? 36 : 172, this->inf, kOverflow);
}

TYPED_TEST(Gamma, LGammaOfMinusOneIsInfiniteWithCode2) { this->log_gamma(-1, this->inf, kSingularity); }

TYPED_TEST(Gamma, ZerosArePolesWithCode2AndTGammaHasTheirSign) {
  this->gamma(TypeParam(0), this->inf, kSingularity);
  this->gamma(TypeParam(-0.0), -this->inf, kSingularity);
  this->log_gamma(TypeParam(0), this->inf, kSingularity);
  this->log_gamma(TypeParam(-0.0), this->inf, kSingularity);
}

TYPED_TEST(Gamma, InfinitiesAreInfiniteWithoutCodeButTGammaOfMinusInfinityIsNanWithCode1) {
  this->gamma(this->inf, this->inf);
  this->gamma(-this->inf, this->nan, kDomain);
  this->log_gamma(this->inf, this->inf);
  this->log_gamma(-this->inf, this->inf);
}

TYPED_TEST(Gamma, NanIsNanWithoutCodeAndQuiet) {
  for (TypeParam x : {this->nan, -this->nan, std::numeric_limits<TypeParam>::signaling_NaN()}) {
    this->gamma(x, this->nan);
    this->log_gamma(x, this->nan);
    for (const char* name : {"TGamma", "LGamma"}) {
      const TypeParam r = evaluate<TypeParam>(row_of<TypeParam>(name), 1, x).r1;
      EXPECT_NE(bits_of(r) >> (FloatFormat<TypeParam>::mantissa_bits - 1) & 1, 0U) << name << " leaves it signalling";
    }
  }
}

TYPED_TEST(Gamma, NegativeIntegersAreNanWithCode1AndInfiniteLogarithmsWithCode2) {
  using E = TypeParam;
  std::vector<E> integers;
  for (int k = 1; k <= 60; ++k) integers.push_back(E(-k));
  for (E x : {E(-183), E(-184), E(-185), E(-1000), E(-8388607), E(-8388608), E(-16777216), E(-1e20), -this->largest})
    integers.push_back(x);
  for (E x : integers) {
    this->gamma(x, this->nan, kDomain);
    this->log_gamma(x, this->inf, kSingularity);
  }
}

TYPED_TEST(Gamma, ReciprocalsOfTinyArgumentsOverflowWithTheirSignAndCode3) {
  using E = TypeParam;
  for (E x : {this->tiny, 5 * this->tiny, this->tiny_overflow / 3, this->tiny_overflow}) {
    this->gamma(x, this->inf, kOverflow);
    this->gamma(-x, -this->inf, kOverflow);
  }
}

TYPED_TEST(Gamma, TGammaOfDenormalsAndSmallNumbersThatDoNotOverflowIsTheReciprocal) {
  using E = TypeParam;
  for (E x : {std::nextafter(this->tiny_overflow, E(1)), this->smallest / 2, this->smallest, 3 * this->smallest,
              E(0x1.8p-99), E(0x1p-100), std::nextafter(E(0x1p-100), E(0)), E(0x1p-60)}) {
    this->gamma(x, 1 / x);
    this->gamma(-x, 1 / -x);
  }
}

TYPED_TEST(Gamma, LGammaOfDenormalsIsMinusTheLogarithm) {
  using E = TypeParam;
  for (E x : {this->tiny, 3 * this->tiny, this->smallest / 2, this->smallest, E(0x1.8p-101)}) {
    for (E sign : {E(1), E(-1)}) {
      for (int level = 0; level < 3; ++level) {
        const Outcome<E> got = evaluate<E>(row_of<E>("LGamma"), level, sign * x);
        EXPECT_EQ(got.code, 0);
        const E want = static_cast<E>(-std::log(static_cast<long double>(x)));
        EXPECT_LE(std::fabs(got.r1 / want - 1), level == 2 ? E(0x1p-11) : 4 * std::numeric_limits<E>::epsilon()) << x;
      }
    }
  }
}

TYPED_TEST(Gamma, ResultsAreFiniteUpToTheLastArgumentAndOverflowWithCode3BeyondIt) {
  using E = TypeParam;
  for (int level = 0; level < 3; ++level) {
    for (const auto& [name, x] : {std::pair{"TGamma", this->last}, std::pair{"LGamma", this->last_of_log}}) {
      const Outcome<E> got = evaluate<E>(row_of<E>(name), level, x);
      EXPECT_EQ(got.code, 0) << name;
      EXPECT_LT(got.r1, this->inf) << name;
      EXPECT_GT(got.r1, E(0.999) * this->largest) << name;
    }
  }
  for (E x : {std::nextafter(this->last, this->inf), 2 * this->last, this->last_of_log, this->largest})
    this->gamma(x, this->inf, kOverflow);
  for (E x : {std::nextafter(this->last_of_log, this->inf), 2 * this->last_of_log, this->largest})
    this->log_gamma(x, this->inf, kOverflow);
}

TYPED_TEST(Gamma, LGammaOfLargeNegativeNumbersIsNotReported) {
  using E = TypeParam;
  for (E x : {E(-43.5), E(-100.25), E(-1000.5), E(-4194303.5)}) {
    const Outcome<E> got = evaluate<E>(row_of<E>("LGamma"), 1, x);
    EXPECT_EQ(got.code, 0);
    EXPECT_NEAR(got.r1 / static_cast<E>(std::lgamma(static_cast<long double>(x))), 1,
                std::numeric_limits<E>::epsilon());
  }
}

TYPED_TEST(Gamma, BelowTheLastPoleThatCountsItIsZeroWithCode4AndTheSignOfTheIntegerPart) {
  using E = TypeParam;
  const E first = std::nextafter(this->underflow, -this->inf);
  const bool odd = this->single;  // 43; 184 is even
  this->gamma(first, odd ? E(0) : E(-0.0), kUnderflow);
  this->gamma(this->underflow - E(0.5), odd ? E(0) : E(-0.0), kUnderflow);
  this->gamma(this->underflow - E(1.5), odd ? E(-0.0) : E(0), kUnderflow);
  this->gamma(E(-1000.5), E(-0.0), kUnderflow);
  this->gamma(E(-1001.5), E(0), kUnderflow);
  this->gamma(E(-4194302.5), E(-0.0), kUnderflow);
  this->gamma(E(-4194303.5), E(0), kUnderflow);
}

TYPED_TEST(Gamma, AboveItZerosHaveTheSignOfTheIntegerPartAndNoCode) {
  using E = TypeParam;
  const E x = this->underflow + E(0.5);  // integer part 42 or 183
  this->gamma(x, this->single ? E(-0.0) : E(0));
  this->gamma(x + 1, this->single ? E(0) : E(-0.0));
}

TYPED_TEST(Gamma, SignsAlternateBetweenThePoles) {
  using E = TypeParam;
  for (int k = 0; k < (this->single ? 35 : 170); ++k) {
    for (E u : {E(0.03125), E(0.25), E(0.5), E(0.625), E(0.96875)}) {
      const E x = -(E(k) + u);
      EXPECT_EQ(evaluate<E>(row_of<E>("TGamma"), 1, x).r1 < 0, k % 2 == 0) << x;
    }
  }
}

TYPED_TEST(Gamma, OfIntegersIsTheFactorialWhereItIsANumber) {
  using E = TypeParam;
  long double factorial = 1;
  for (int n = 1; n <= (this->single ? 14 : 23); ++n) {
    const Outcome<E> got = evaluate<E>(row_of<E>("TGamma"), 1, E(n));
    EXPECT_EQ(got.r1, static_cast<E>(factorial)) << n;
    factorial *= n;
  }
}

TYPED_TEST(Gamma, LogarithmIsPlusZeroAtOneAndTwo) {
  this->log_gamma(1, 0);
  this->log_gamma(2, 0);
}

TYPED_TEST(Gamma, LogarithmKeepsItsRelativePrecisionBesideItsPositiveZeros) {
  using E = TypeParam;
  const long double euler = 0.577215664901532860606512090082402431L;
  const E eps = std::numeric_limits<E>::epsilon();
  for (int level : {0, 1}) {
    for (E x : {E(1) + eps, E(1) - eps / 2, E(1) + 8 * eps, E(1) - 8 * eps}) {
      const long double d = static_cast<long double>(x) - 1;  // -euler d + pi^2/12 d^2
      const E want = static_cast<E>(d * (-euler + 0.822467033424113218236L * d));
      EXPECT_NEAR(evaluate<E>(row_of<E>("LGamma"), level, x).r1 / want, 1, 2 * eps) << x;
    }
    for (E x : {E(2) + 2 * eps, E(2) - eps, E(2) + 8 * eps, E(2) - 8 * eps}) {
      const long double d = static_cast<long double>(x) - 2;  // (1 - euler) d + (pi^2/12 - 1/2) d^2
      const E want = static_cast<E>(d * (1 - euler + 0.322467033424113218236L * d));
      EXPECT_NEAR(evaluate<E>(row_of<E>("LGamma"), level, x).r1 / want, 1, 2 * eps) << x;
    }
  }
}

TYPED_TEST(Gamma, DenormalsThatReadAsZeroArePoles) {
  using E = TypeParam;
  const uint32_t mode = _zymSetMode(ZYM_FLUSH_DENORMALS);
  for (E x : {this->tiny, this->smallest / 2}) {
    this->gamma(x, this->inf, kSingularity);
    this->gamma(-x, -this->inf, kSingularity);
    this->log_gamma(x, this->inf, kSingularity);
    this->log_gamma(-x, this->inf, kSingularity);
  }
  _zymSetMode(mode | 0x140000);
}

TYPED_TEST(Gamma, DenormalResultsAreFlushedWithTheirSignWhereTheModeSaysSo) {
  using E = TypeParam;
  const E x = this->single ? E(-38.5) : E(-174.5);  // integer part 38 or 174: negative
  EXPECT_LT(evaluate<E>(row_of<E>("TGamma"), 1, x).r1, 0);
  const uint32_t mode = _zymSetMode(ZYM_FLUSH_DENORMALS);
  this->gamma(x, E(-0.0));
  _zymSetMode(mode | 0x140000);
}

TYPED_TEST(Gamma, ResultsWithoutErrorHandlingAreThoseWithIt) {
  using E = TypeParam;
  const std::vector<E> x = {this->inf, -this->inf, this->nan,     E(0),     E(-0.0),        this->tiny,     E(-3),
                            E(-2.5),   E(1),       this->largest, E(-50.5), E(-190.5),      E(36),          E(172),
                            E(100.5),  E(-100.5),  this->last,    E(-43),   -this->largest, this->smallest, E(0.75)};
  for (const char* name : {"TGamma", "LGamma"}) {
    for (int level = 0; level < 3; ++level) {
      std::vector<E> r[2];
      for (int i = 0; i < 2; ++i) {
        const uint32_t mode = _zymSetMode(i == 0 ? ZYM_ERRMODE_IGNORE : ZYM_ERRMODE_NOERR);
        r[i].resize(x.size());
        Call<E> c;
        c.n = static_cast<int32_t>(x.size()), c.a = x.data(), c.r1 = r[i].data();
        ASSERT_TRUE(call_row(row_named(row_of<E>(name)), level, false, c));
        _zymSetMode(mode);
      }
      for (size_t i = 0; i < x.size(); ++i) EXPECT_TRUE(same_value(r[0][i], r[1][i])) << name << "(" << x[i] << ")";
    }
  }
}

}  // namespace
}  // namespace orvik::test
