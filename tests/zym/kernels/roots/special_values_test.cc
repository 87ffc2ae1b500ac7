// Special values and codes of the reciprocals and roots, at every level, in the main loop, in the remainder and
// strided.
#include <cmath>
#include <limits>

#include "support/row_calls.h"

namespace orvik::test {
namespace {

constexpr int32_t kDomain = 1, kSingularity = 2, kOverflow = 3;

template <class E>
class Roots : public ElementTest<E> {
 protected:
  using typename ElementTest<E>::L;
  using ElementTest<E>::inf;
  static constexpr E half_bits = sizeof(E) == 4 ? E(0x1p-11) : E(0x1p-26);

  // Within the bound of each level: 1 ulp, 4 ulp, half of the bits (bits below the normal range do not count).
  static void expect_near(const std::string& name, E a, E b, E want) {
    for (int level = 0; level < 3; ++level) {
      const Outcome<E> got = evaluate<E>(name, level, a, b);
      const E ulp = std::nextafter(std::fabs(want), inf) - std::fabs(want);
      const E bound = level == 1 ? ulp : level == 0 ? 4 * ulp : std::fmax(half_bits * std::fabs(want), ulp);
      EXPECT_LE(std::fabs(got.r1 - want), bound) << name << " level " << level << " of " << a << ", " << b;
      EXPECT_EQ(got.code, 0) << name;
    }
  }
  static void expect_near(const std::string& name, E a, E want) { expect_near(name, a, E(0.5), want); }
};
TYPED_TEST_SUITE(Roots, Elements);

TYPED_TEST(Roots, SqrtOfMinusZeroIsMinusZeroWithoutCode) {
  using E = TypeParam;
  expect_unary<E>(row_of<E>("Sqrt"), E(-0.0), E(-0.0));
  expect_unary<E>(row_of<E>("Sqrt"), E(0), E(0));
}

TYPED_TEST(Roots, SqrtOfTheSmallestDenormalIsTheCorrectRoot) {
  using E = TypeParam;
  // 2^-149 is an odd power, 2^-1074 an even one.
  const E root = sizeof(E) == 4 ? E(0x1.6a09e6p-75) : E(0x1p-537);
  expect_unary<E>(row_of<E>("Sqrt"), this->tiny, root);
  for (E x : {3 * this->tiny, this->smallest - this->tiny, this->smallest / 2}) {
    expect_unary<E>(row_of<E>("Sqrt"), x, std::sqrt(x));
  }
}

TYPED_TEST(Roots, SqrtOfMinusOneIsNanWithCode1) {
  using E = TypeParam;
  for (E x : {E(-1), -this->tiny, -this->smallest, -this->largest, -this->inf}) {
    expect_unary<E>(row_of<E>("Sqrt"), x, this->nan, kDomain);
  }
}

TYPED_TEST(Roots, SqrtOfInfinityAndNanAreThemselves) {
  using E = TypeParam;
  expect_unary<E>(row_of<E>("Sqrt"), this->inf, this->inf);
  expect_unary<E>(row_of<E>("Sqrt"), this->nan, this->nan);
  expect_unary<E>(row_of<E>("Sqrt"), -this->nan, this->nan);
}

TYPED_TEST(Roots, SqrtAtTheEndsOfTheNormalRange) {
  using E = TypeParam;
  for (E x : {this->smallest, 3 * this->smallest, this->largest, this->largest / 2, E(0x1p-100), E(0x1.fffffcp-101)}) {
    this->expect_near(row_of<E>("Sqrt"), x, std::sqrt(x));
  }
}

TYPED_TEST(Roots, InvSqrtOfZeroIsInfiniteWithTheSignOfTheZeroAndCode2) {
  using E = TypeParam;
  expect_unary<E>(row_of<E>("InvSqrt"), E(0), this->inf, kSingularity);
  expect_unary<E>(row_of<E>("InvSqrt"), E(-0.0), -this->inf, kSingularity);
}

TYPED_TEST(Roots, InvSqrtOfANegativeIsNanWithCode1) {
  using E = TypeParam;
  for (E x : {E(-1), -this->tiny, -this->largest, -this->inf}) {
    expect_unary<E>(row_of<E>("InvSqrt"), x, this->nan, kDomain);
  }
}

TYPED_TEST(Roots, InvSqrtOfInfinityDenormalsNan) {
  using E = TypeParam;
  expect_unary<E>(row_of<E>("InvSqrt"), this->inf, E(0));
  expect_unary<E>(row_of<E>("InvSqrt"), this->nan, this->nan);
  const long double root = 1 / std::sqrt(static_cast<long double>(this->tiny));
  expect_unary<E>(row_of<E>("InvSqrt"), this->tiny, static_cast<E>(root));
  for (E x : {this->largest, this->smallest, this->smallest / 4, E(0x1p100)}) {
    this->expect_near(row_of<E>("InvSqrt"), x, static_cast<E>(1 / std::sqrt(static_cast<long double>(x))));
  }
}

TYPED_TEST(Roots, InvOfZeroIsInfiniteWithCode2) {
  using E = TypeParam;
  expect_unary<E>(row_of<E>("Inv"), E(0), this->inf, kSingularity);
  expect_unary<E>(row_of<E>("Inv"), E(-0.0), -this->inf, kSingularity);
}

TYPED_TEST(Roots, InvOfInfinitiesNanAndExtremes) {
  using E = TypeParam;
  expect_unary<E>(row_of<E>("Inv"), this->inf, E(0));
  expect_unary<E>(row_of<E>("Inv"), -this->inf, E(-0.0));
  expect_unary<E>(row_of<E>("Inv"), this->nan, this->nan);
  // Outside the refinement: one division.
  expect_unary<E>(row_of<E>("Inv"), this->tiny, this->inf);
  expect_unary<E>(row_of<E>("Inv"), -this->tiny, -this->inf);
  for (E x : {this->smallest / 2, this->largest, -this->largest}) expect_unary<E>(row_of<E>("Inv"), x, 1 / x);
  for (E x : {this->smallest, -this->smallest, E(4.2519718974541703e+37), std::nextafter(E(0x1p125), E(0)),
              std::nextafter(E(0x1p126), E(0)), E(0x1p126), E(0x1p-126), E(3)}) {
    this->expect_near(row_of<E>("Inv"), x, 1 / x);
  }
}

TYPED_TEST(Roots, DivOfZeroByZeroIsNanWithCode2) {
  using E = TypeParam;
  expect_element<E>(row_of<E>("Div"), E(0), E(0), this->nan, kSingularity);
}

TYPED_TEST(Roots, DivByZeroHasCode2WhateverTheDividend) {
  using E = TypeParam;
  expect_element<E>(row_of<E>("Div"), E(1), E(0), this->inf, kSingularity);
  expect_element<E>(row_of<E>("Div"), E(1), E(-0.0), -this->inf, kSingularity);
  expect_element<E>(row_of<E>("Div"), this->inf, E(0), this->inf, kSingularity);
  expect_element<E>(row_of<E>("Div"), this->nan, E(0), this->nan, kSingularity);
  expect_element<E>(row_of<E>("Div"), this->tiny, E(-0.0), -this->inf, kSingularity);
}

TYPED_TEST(Roots, DivWithoutCode) {
  using E = TypeParam;
  expect_element<E>(row_of<E>("Div"), E(0), E(-3), E(-0.0));
  expect_element<E>(row_of<E>("Div"), E(-0.0), E(3), E(-0.0));
  expect_element<E>(row_of<E>("Div"), this->inf, E(3), this->inf);
  expect_element<E>(row_of<E>("Div"), this->inf, -this->inf, this->nan);
  expect_element<E>(row_of<E>("Div"), E(3), -this->inf, E(-0.0));
  expect_element<E>(row_of<E>("Div"), this->nan, E(3), this->nan);
  expect_element<E>(row_of<E>("Div"), E(3), this->nan, this->nan);
  expect_element<E>(row_of<E>("Div"), this->largest, E(0.25), this->inf);
  expect_element<E>(row_of<E>("Div"), this->largest, this->tiny, this->inf);
  for (auto [a, b] :
       {std::pair{E(1), E(3)}, {this->largest, this->largest}, {this->tiny, this->tiny}, {E(3), this->smallest}}) {
    this->expect_near(row_of<E>("Div"), a, b, a / b);
  }
}

TYPED_TEST(Roots, ZeroDivisorsGoUnreportedInNoerrMode) {
  using E = TypeParam;
  const uint32_t mode = _zymSetMode(ZYM_ERRMODE_NOERR);
  _zymSetErrStatus(77);
  for (const char* function : {"Inv", "Div"}) {
    for (int level = 0; level < 3; ++level) {
      std::vector<E> a(5, E(1)), b(5, E(2)), r(5);
      a[3] = E(0);
      b[3] = E(0);
      Call<E> c;
      c.n = 5, c.a = a.data(), c.b = b.data(), c.r1 = r.data();
      ASSERT_TRUE(call_row(row_named(row_of<E>(function)), level, false, c));
      EXPECT_TRUE(same_value(r[3], function == std::string("Inv") ? this->inf : this->nan));
    }
  }
  EXPECT_EQ(_zymSetErrStatus(0), 77);
  _zymSetMode(ZYM_ERRMODE_DEFAULT);
  _zymSetMode(mode);
}

TYPED_TEST(Roots, CbrtNeverReports) {
  using E = TypeParam;
  for (E x : {E(0), E(-0.0), this->inf, -this->inf}) expect_unary<E>(row_of<E>("Cbrt"), x, x);
  expect_unary<E>(row_of<E>("Cbrt"), this->nan, this->nan);
  for (E x : {this->tiny, -5 * this->tiny, this->smallest, -this->largest, E(-27), E(1), E(2), E(4), E(8)}) {
    this->expect_near(row_of<E>("Cbrt"), x, static_cast<E>(std::cbrt(static_cast<long double>(x))));
  }
}

TYPED_TEST(Roots, InvCbrtOfZeroIsInfiniteWithCode2) {
  using E = TypeParam;
  expect_unary<E>(row_of<E>("InvCbrt"), E(0), this->inf, kSingularity);
  expect_unary<E>(row_of<E>("InvCbrt"), E(-0.0), -this->inf, kSingularity);
  expect_unary<E>(row_of<E>("InvCbrt"), this->inf, E(0));
  expect_unary<E>(row_of<E>("InvCbrt"), -this->inf, E(-0.0));
  expect_unary<E>(row_of<E>("InvCbrt"), this->nan, this->nan);
  for (E x : {this->tiny, -5 * this->tiny, this->smallest, -this->largest, E(-27), E(1), E(2), E(4)}) {
    this->expect_near(row_of<E>("InvCbrt"), x, static_cast<E>(1 / std::cbrt(static_cast<long double>(x))));
  }
}

TYPED_TEST(Roots, HypotOfInfinityIsInfiniteBesideANan) {
  using E = TypeParam;
  expect_element<E>(row_of<E>("Hypot"), this->inf, this->nan, this->inf);
  expect_element<E>(row_of<E>("Hypot"), this->nan, -this->inf, this->inf);
  expect_element<E>(row_of<E>("Hypot"), E(1), -this->inf, this->inf);
  expect_element<E>(row_of<E>("Hypot"), this->nan, E(0), this->nan);
  expect_element<E>(row_of<E>("Hypot"), E(-0.0), E(-0.0), E(0));
}

TYPED_TEST(Roots, HypotNeitherOverflowsNorUnderflowsOnTheWay) {
  using E = TypeParam;
  for (E unit : {E(1), this->largest / 8, this->smallest, 8 * this->smallest}) {
    this->expect_near(row_of<E>("Hypot"), 3 * unit, -4 * unit, 5 * unit);
  }
  expect_element<E>(row_of<E>("Hypot"), this->largest, this->largest, this->inf);
  expect_element<E>(row_of<E>("Hypot"), 3 * this->tiny, 4 * this->tiny, 5 * this->tiny);
  this->expect_near(row_of<E>("Hypot"), this->largest, this->tiny, this->largest);
}

TYPED_TEST(Roots, Pow3o2SpecialValues) {
  using E = TypeParam;
  const std::string row = row_of<E>("Pow3o2");
  for (E x : {E(-1), -this->tiny, -this->inf}) expect_unary<E>(row, x, this->nan, kDomain);
  expect_unary<E>(row, E(0), E(0));
  expect_unary<E>(row, E(-0.0), E(0));
  expect_unary<E>(row, this->inf, this->inf);
  expect_unary<E>(row, this->nan, this->nan);
  expect_unary<E>(row, this->largest, this->inf, kOverflow);
  expect_unary<E>(row, this->tiny, E(0));
  const E edge = sizeof(E) == 4 ? E(0x1.428a2ep85) : E(0x1.965fea53d6e3cp682);  // just below max^(2/3)
  for (E x : {E(4), E(2), edge, E(0x1p-84), sizeof(E) == 4 ? E(0x1.23456p-90) : E(0x1.23456p-690)}) {
    this->expect_near(row, x, static_cast<E>(static_cast<long double>(x) * std::sqrt(static_cast<long double>(x))));
  }
}

TYPED_TEST(Roots, Pow2o3IsPositiveAndNeverReports) {
  using E = TypeParam;
  const std::string row = row_of<E>("Pow2o3");
  expect_unary<E>(row, E(0), E(0));
  expect_unary<E>(row, E(-0.0), E(0));
  expect_unary<E>(row, this->inf, this->inf);
  expect_unary<E>(row, -this->inf, this->inf);
  expect_unary<E>(row, this->nan, this->nan);
  for (E x : {E(-8), E(27), this->tiny, -this->tiny, this->largest, -this->smallest, E(3)}) {
    const long double root = std::cbrt(static_cast<long double>(x));
    this->expect_near(row, x, static_cast<E>(root * root));
  }
}

TYPED_TEST(Roots, FlushedDenormalsCountAsZeros) {
  using E = TypeParam;
  const uint32_t mode = _zymSetMode(ZYM_FLUSH_DENORMALS);
  expect_unary<E>(row_of<E>("Sqrt"), -this->tiny, E(-0.0));
  expect_unary<E>(row_of<E>("InvSqrt"), this->tiny, this->inf, kSingularity);
  expect_unary<E>(row_of<E>("Inv"), this->tiny, this->inf, kSingularity);
  expect_unary<E>(row_of<E>("Cbrt"), -this->tiny, E(-0.0));
  expect_unary<E>(row_of<E>("InvCbrt"), -this->tiny, -this->inf, kSingularity);
  _zymSetMode(0x140000);
  _zymSetMode(mode);
}

}  // namespace
}  // namespace orvik::test
