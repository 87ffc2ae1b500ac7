// log2, log10, ln(1 + x): exact results, special values, codes.
#include <cmath>
#include <limits>
#include <string>

#include "support/row_calls.h"

namespace orvik::test {
namespace {

template <class E>
class Logarithms : public ElementTest<E> {};
TYPED_TEST_SUITE(Logarithms, Elements);

TYPED_TEST(Logarithms, Log2OfPowersOfTwoIsExactAtAllLevels) {
  using E = TypeParam;
  for (int k = std::numeric_limits<E>::min_exponent - 1; k < std::numeric_limits<E>::max_exponent; k += 5) {
    expect_unary<E>(row_of<E>("Log2"), std::ldexp(E(1), k), E(k));
  }
}

TYPED_TEST(Logarithms, Log10OfPowersOfTenIsExactAtHighAccuracy) {
  using E = TypeParam;
  E x = 1;
  for (int k = 0; k <= (sizeof(E) == 4 ? 10 : 22); ++k, x *= 10)
    EXPECT_EQ(evaluate<E>(row_of<E>("Log10"), 1, x).r1, E(k));
}

// Lanes end at three quarters of what would overflow; denormals are element routines'.
TYPED_TEST(Logarithms, Log2AndLog10BesideTheirFastPath) {
  using E = TypeParam;
  const E edge = std::ldexp(E(1.5), std::numeric_limits<E>::max_exponent - 1);
  const E least = std::numeric_limits<E>::min();
  for (const char* f : {"Log2", "Log10"}) {
    for (E x : {least, std::nextafter(least, E(0)), this->tiny, std::nextafter(edge, E(0)), edge, this->largest}) {
      const long double wide = x, want = std::string(f) == "Log2" ? std::log2(wide) : std::log10(wide);
      const long double bound[] = {4 * std::numeric_limits<E>::epsilon(), std::numeric_limits<E>::epsilon(),
                                   sizeof(E) == 4 ? 0x1p-11L : 0x1p-26L};
      for (int level = 0; level < 3; ++level) {
        const auto got = evaluate<E>(row_of<E>(f), level, x);
        EXPECT_LE(std::fabs(got.r1 / want - 1), bound[level]) << f << " " << kLevelNames[level] << " " << x;
        EXPECT_EQ(got.code, 0);
      }
    }
  }
}

// Rows of an octave meet at sixteenths; 1 + x just below and above one of them is in both.
TYPED_TEST(Logarithms, OnBothSidesOfEveryRowOfAnOctave) {
  using E = TypeParam;
  for (const char* f : {"Log2", "Log10", "Log1p"}) {
    for (int i = 0; i <= 32; ++i) {
      const E m = E(1) / 2 + E(i) / (i < 16 ? 32 : 16) - (i < 16 ? E(0) : E(0.5));
      for (E x : {std::nextafter(m, E(0)), m, std::nextafter(m, E(4))}) {
        const long double wide = x;
        const E argument = std::string(f) == "Log1p" ? E(x - 1) : x;
        const long double want = std::string(f) == "Log2"    ? std::log2(wide)
                                 : std::string(f) == "Log10" ? std::log10(wide)
                                                             : std::log1p(static_cast<long double>(argument));
        const long double bound[] = {4 * std::numeric_limits<E>::epsilon(), std::numeric_limits<E>::epsilon(),
                                     sizeof(E) == 4 ? 0x1p-11L : 0x1p-26L};
        for (int level = 0; level < 3; ++level) {
          EXPECT_LE(std::fabs(evaluate<E>(row_of<E>(f), level, argument).r1 - want), std::fabs(want) * bound[level])
              << f << " " << kLevelNames[level] << " " << x;
        }
      }
    }
  }
}

TYPED_TEST(Logarithms, Log1pOfMinusOneIsMinusInfinityWithCode2) {
  using E = TypeParam;
  expect_unary<E>(row_of<E>("Log1p"), E(-1), -this->inf, zymErrorSingularity);
}

TYPED_TEST(Logarithms, Log1pBelowMinusOneIsNaNWithCode1) {
  using E = TypeParam;
  for (E x : {std::nextafter(E(-1), E(-2)), E(-2), -this->largest, -this->inf}) {
    expect_unary<E>(row_of<E>("Log1p"), x, this->nan, zymErrorDomain);
  }
}

TYPED_TEST(Logarithms, Log1pOfInfinityNaNAndZeros) {
  using E = TypeParam;
  expect_unary<E>(row_of<E>("Log1p"), this->inf, this->inf);
  expect_unary<E>(row_of<E>("Log1p"), this->nan, this->nan);
  expect_unary<E>(row_of<E>("Log1p"), E(0), E(0));
  expect_unary<E>(row_of<E>("Log1p"), E(-0.0), E(-0.0));
}

TYPED_TEST(Logarithms, Log1pOfTinyArgumentsIsTheArgument) {
  using E = TypeParam;
  for (E x : {this->tiny, -this->tiny, std::numeric_limits<E>::min(), std::numeric_limits<E>::epsilon() / 8}) {
    expect_unary<E>(row_of<E>("Log1p"), x, x);
  }
}

TYPED_TEST(Logarithms, Log1pOfLargeArgumentsBesideItsFastPath) {
  using E = TypeParam;
  const E edge = std::ldexp(E(1), sizeof(E) == 4 ? 120 : 1000);
  for (E x : {std::nextafter(edge, E(0)), edge, this->largest, std::nextafter(E(-1), E(0)), E(1e6)}) {
    const long double want = std::log1p(static_cast<long double>(x));
    for (int level = 0; level < 3; ++level) {
      const auto got = evaluate<E>(row_of<E>("Log1p"), level, x);
      const long double bound[] = {4 * std::numeric_limits<E>::epsilon(), std::numeric_limits<E>::epsilon(),
                                   sizeof(E) == 4 ? 0x1p-11L : 0x1p-26L};
      EXPECT_LE(std::fabs(got.r1 / want - 1), bound[level]) << kLevelNames[level] << " " << x;
      EXPECT_EQ(got.code, 0);
    }
  }
}

}  // namespace
}  // namespace orvik::test
