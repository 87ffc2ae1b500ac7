// log2, log10, ln(1 + x): exact results, special values, codes.
#include <cmath>
#include <limits>

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
