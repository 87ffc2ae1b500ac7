// ln x: special values, codes, edges.
#include <cmath>
#include <limits>

#include "support/row_calls.h"

namespace orvik::test {
namespace {

template <class E>
class Ln : public ElementTest<E> {};
TYPED_TEST_SUITE(Ln, Elements);

TYPED_TEST(Ln, OfOneIsExactlyPlusZeroAtAllLevels) {
  using E = TypeParam;
  for (const char* f : {"Ln", "Log2", "Log10"}) expect_unary<E>(row_of<E>(f), E(1), E(0));
}

TYPED_TEST(Ln, OfZeroIsMinusInfinityWithCode2) {
  using E = TypeParam;
  for (const char* f : {"Ln", "Log2", "Log10"}) {
    expect_unary<E>(row_of<E>(f), E(-0.0), -this->inf, zymErrorSingularity);
    expect_unary<E>(row_of<E>(f), E(0.0), -this->inf, zymErrorSingularity);
  }
}

TYPED_TEST(Ln, OfNegativeNumbersAndMinusInfinityIsNaNWithCode1) {
  using E = TypeParam;
  for (const char* f : {"Ln", "Log2", "Log10"}) {
    for (E x : {E(-1), -this->tiny, -this->largest, -this->inf}) {
      expect_unary<E>(row_of<E>(f), x, this->nan, zymErrorDomain);
    }
  }
}

TYPED_TEST(Ln, OfPlusInfinityAndNaNHasNoCode) {
  using E = TypeParam;
  for (const char* f : {"Ln", "Log2", "Log10"}) {
    expect_unary<E>(row_of<E>(f), this->inf, this->inf);
    expect_unary<E>(row_of<E>(f), this->nan, this->nan);
    expect_unary<E>(row_of<E>(f), -this->nan, this->nan);
  }
}

TYPED_TEST(Ln, OfADenormalIsTheCorrectlyRoundedLogarithm) {
  using E = TypeParam;
  for (E x : {this->tiny, this->tiny * 3, this->smallest / 2, std::nextafter(this->smallest, E(0))}) {
    const long double wide = x;
    for (int level = 0; level < 3; ++level) {
      EXPECT_EQ(evaluate<E>(row_of<E>("Ln"), level, x).r1, static_cast<E>(std::log(wide))) << x;
      EXPECT_EQ(evaluate<E>(row_of<E>("Log2"), level, x).r1, static_cast<E>(std::log2(wide))) << x;
      EXPECT_EQ(evaluate<E>(row_of<E>("Log10"), level, x).r1, static_cast<E>(std::log10(wide))) << x;
      EXPECT_EQ(evaluate<E>(row_of<E>("Ln"), level, x).code, 0);
    }
  }
}

TYPED_TEST(Ln, AtTheEndsOfTheNormalNumbers) {
  using E = TypeParam;
  for (E x : {this->smallest, this->largest}) {
    const long double want = std::log(static_cast<long double>(x));
    const E bounds[] = {4, 1, sizeof(E) == 4 ? E(8192) : E(1 << 27)};
    for (int level = 0; level < 3; ++level) {
      const auto got = evaluate<E>(row_of<E>("Ln"), level, x);
      EXPECT_LE(std::fabs(got.r1 - want), std::fabs(want) * bounds[level] * std::numeric_limits<E>::epsilon());
      EXPECT_EQ(got.code, 0);
    }
  }
}

// Beside 1 the exponent's term and the table's must cancel to the last bit.
TYPED_TEST(Ln, NextToOneKeepsItsRelativeAccuracy) {
  using E = TypeParam;
  const long double bounds[] = {4 * std::numeric_limits<E>::epsilon(), std::numeric_limits<E>::epsilon(),
                                sizeof(E) == 4 ? 0x1p-11L : 0x1p-26L};
  for (const char* f : {"Ln", "Log2", "Log10"}) {
    const long double scale = std::string(f) == "Ln"     ? 1
                              : std::string(f) == "Log2" ? 1 / std::log(2.0L)
                                                         : 1 / std::log(10.0L);
    for (E x : {std::nextafter(E(1), E(0)), std::nextafter(E(1), E(2)), E(0.9995), E(1.0005), E(0.99), E(1.01)}) {
      const long double want = std::log1p(static_cast<long double>(x) - 1) * scale;
      for (int level = 0; level < 3; ++level) {
        EXPECT_LE(std::fabs(evaluate<E>(row_of<E>(f), level, x).r1 / want - 1), bounds[level])
            << f << " " << kLevelNames[level] << " " << x;
      }
    }
  }
}

}  // namespace
}  // namespace orvik::test
