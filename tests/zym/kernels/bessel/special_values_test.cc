// Special values and codes of the Bessel functions, at every level, in the main loop, in the remainder and strided.
#include <cmath>

#include "support/row_calls.h"

namespace orvik::test {
namespace {

constexpr int32_t kOverflow = 3;

template <class E>
class Bessel : public ElementTest<E> {
 protected:
  static void expect_order(const char* f, int32_t order, E x, E want) {
    expect_element<E, E>(row_of<E>(f), x, E(0.5), want, 0, order);
  }
  // Bits of a payload that survive where a NaN comes out.
  static E nan_with_payload() {
    return std::bit_cast<E>(static_cast<std::conditional_t<sizeof(E) == 4, uint32_t, uint64_t>>(
        std::bit_cast<std::conditional_t<sizeof(E) == 4, uint32_t, uint64_t>>(ElementTest<E>::nan) | 0x1234));
  }
};
TYPED_TEST_SUITE(Bessel, Elements);

TYPED_TEST(Bessel, NanGivesTheSameNanWithoutCode) {
  using E = TypeParam;
  const E payload = this->nan_with_payload();
  for (const char* f : {"I0", "I1", "J0", "J1", "Y0", "Y1", "Jn", "Yn"}) {
    for (E x : {this->nan, -this->nan, payload}) {
      const Outcome<E> got = evaluate<E>(row_of<E>(f), 1, x, E(0), 3);
      EXPECT_EQ(std::memcmp(&got.r1, &x, sizeof x), 0) << f;
      EXPECT_EQ(got.code, 0) << f;
    }
  }
}

TYPED_TEST(Bessel, FirstKindAtInfinityIsZero) {
  using E = TypeParam;
  expect_unary<E>(row_of<E>("J0"), this->inf, E(0));
  expect_unary<E>(row_of<E>("J0"), -this->inf, E(0));
  expect_unary<E>(row_of<E>("J1"), this->inf, E(0));
  expect_unary<E>(row_of<E>("J1"), -this->inf, E(-0.0));
}

TYPED_TEST(Bessel, FirstKindAtZero) {
  using E = TypeParam;
  for (E zero : {E(0), E(-0.0)}) {
    expect_unary<E>(row_of<E>("J0"), zero, E(1));
    expect_unary<E>(row_of<E>("J1"), zero, zero);
    expect_unary<E>(row_of<E>("I0"), zero, E(1));
    expect_unary<E>(row_of<E>("I1"), zero, zero);
  }
}

TYPED_TEST(Bessel, TinyArgumentsOfOrderOneAreHalved) {
  using E = TypeParam;
  for (E x : {this->smallest, 8 * this->tiny, -this->smallest, E(0x1.8p-100), E(-0x1.4p-60)}) {
    expect_unary<E>(row_of<E>("J1"), x, x / 2);
    expect_unary<E>(row_of<E>("I1"), x, x / 2);
  }
  for (E x : {this->smallest, this->tiny, E(-0x1p-60)}) {
    expect_unary<E>(row_of<E>("J0"), x, E(1));
    expect_unary<E>(row_of<E>("I0"), x, E(1));
  }
}

TYPED_TEST(Bessel, Y0OfZeroIsMinusInfinityWithNoChangeOfTheThreadsStatus) {
  using E = TypeParam;
  for (const char* f : {"Y0", "Y1"}) {
    expect_unary<E>(row_of<E>(f), E(0), -this->inf);
    expect_unary<E>(row_of<E>(f), E(-0.0), -this->inf);
    _zymSetErrStatus(77);
    E x = 0, r = 1;
    Call<E> c;
    c.n = 1, c.a = &x, c.r1 = &r;
    ASSERT_TRUE(call_row(row_named(row_of<E>(f)), 0, false, c));
    EXPECT_EQ(_zymGetErrStatus(), 77);
  }
  _zymClearErrStatus();
}

TYPED_TEST(Bessel, SecondKindOfNegativesIsNanWithoutCode) {
  using E = TypeParam;
  for (E x : {E(-1), -this->tiny, -this->smallest, -this->largest, -this->inf, E(-100)}) {
    expect_unary<E>(row_of<E>("Y0"), x, this->nan);
    expect_unary<E>(row_of<E>("Y1"), x, this->nan);
    for (int32_t order : {0, 1, 2, -3, 50}) this->expect_order("Yn", order, x, this->nan);
  }
}

TYPED_TEST(Bessel, SecondKindAtInfinityIsZero) {
  using E = TypeParam;
  expect_unary<E>(row_of<E>("Y0"), this->inf, E(0));
  expect_unary<E>(row_of<E>("Y1"), this->inf, E(0));
  for (int32_t order : {0, 1, 2, 7, -2}) this->expect_order("Yn", order, this->inf, E(0));
  this->expect_order("Yn", -3, this->inf, E(-0.0));
}

TYPED_TEST(Bessel, Y1OfATinyArgumentIsMinusInfinityWithoutCode) {
  using E = TypeParam;
  const E last = static_cast<E>(0.6366197723675814L / this->largest);  // 2/(pi x) overflows below
  expect_unary<E>(row_of<E>("Y1"), this->tiny, -this->inf);
  expect_unary<E>(row_of<E>("Y1"), last - last / 1000, -this->inf);
  for (int level = 0; level < 3; ++level) {
    EXPECT_TRUE(std::isfinite(evaluate<E>(row_of<E>("Y1"), level, last + last / 1000).r1));
    EXPECT_TRUE(std::isfinite(evaluate<E>(row_of<E>("Y0"), level, this->tiny).r1));
  }
}

TYPED_TEST(Bessel, OverflowOfTheModifiedFunctionsHasCode3) {
  using E = TypeParam;
  // The last arguments with finite results are 91.90, 91.91 and 713.987, 713.988.
  const E above = sizeof(E) == 4 ? E(91.91) : E(713.98762);
  expect_unary<E>(row_of<E>("I0"), above, this->inf, kOverflow);
  expect_unary<E>(row_of<E>("I0"), -above, this->inf, kOverflow);
  expect_unary<E>(row_of<E>("I1"), E(720), this->inf, kOverflow);
  expect_unary<E>(row_of<E>("I1"), E(-720), -this->inf, kOverflow);
  expect_unary<E>(row_of<E>("I0"), this->largest, this->inf, kOverflow);
  expect_unary<E>(row_of<E>("I1"), -this->largest, -this->inf, kOverflow);
}

TYPED_TEST(Bessel, ModifiedFunctionsAtInfinityHaveNoCode) {
  using E = TypeParam;
  expect_unary<E>(row_of<E>("I0"), this->inf, this->inf);
  expect_unary<E>(row_of<E>("I0"), -this->inf, this->inf);
  expect_unary<E>(row_of<E>("I1"), this->inf, this->inf);
  expect_unary<E>(row_of<E>("I1"), -this->inf, -this->inf);
}

TYPED_TEST(Bessel, OverflowWithReportsOffIsTheSame) {
  using E = TypeParam;
  const uint32_t mode = _zymSetMode(ZYM_ERRMODE_NOERR);
  std::vector<E> x(40, E(800)), r(40);
  x[3] = E(-800), x[5] = this->nan, x[7] = -this->inf, x[9] = E(1);
  Call<E> c;
  c.n = 40, c.a = x.data(), c.r1 = r.data();
  ASSERT_TRUE(call_row(row_named(row_of<E>("I1")), 1, false, c));
  _zymSetMode(mode);
  EXPECT_EQ(r[0], this->inf);
  EXPECT_EQ(r[3], -this->inf);
  EXPECT_TRUE(std::isnan(r[5]));
  EXPECT_EQ(r[7], -this->inf);
  EXPECT_NEAR(static_cast<double>(r[9]), 0.565159103992485, 1e-7);
}

TYPED_TEST(Bessel, FirstKindOfAnyOrderAtZeroAndInfinity) {
  using E = TypeParam;
  for (E zero : {E(0), E(-0.0)}) {
    this->expect_order("Jn", 0, zero, E(1));
    for (int32_t order : {2, 4, -2, 100, -1000}) this->expect_order("Jn", order, zero, E(0));
    for (int32_t order : {1, 3, 77}) this->expect_order("Jn", order, zero, zero);
    for (int32_t order : {-1, -3, -77}) this->expect_order("Jn", order, zero, -zero);
  }
  for (int32_t order : {0, 2, -2, 50}) {
    this->expect_order("Jn", order, this->inf, E(0));
    this->expect_order("Jn", order, -this->inf, E(0));
  }
  this->expect_order("Jn", 3, -this->inf, E(-0.0));
  this->expect_order("Jn", -3, -this->inf, E(0));
  this->expect_order("Jn", -3, this->inf, E(-0.0));
}

TYPED_TEST(Bessel, SecondKindOfAnyOrderAtZeroIsInfinite) {
  using E = TypeParam;
  for (E zero : {E(0), E(-0.0)}) {
    for (int32_t order : {0, 1, 2, 3, 50, -2, -50}) this->expect_order("Yn", order, zero, -this->inf);
    for (int32_t order : {-1, -3}) this->expect_order("Yn", order, zero, this->inf);
  }
}

TYPED_TEST(Bessel, SecondKindOfAnyOrderOverflowsToMinusInfinity) {
  using E = TypeParam;
  for (int32_t order : {2, 3, 5, 100}) {
    for (E x : {this->tiny, this->smallest}) this->expect_order("Yn", order, x, -this->inf);
  }
  this->expect_order("Yn", -3, this->smallest, this->inf);
  this->expect_order("Yn", 1000, E(3), -this->inf);
  this->expect_order("Yn", -1001, E(3), this->inf);
}

TYPED_TEST(Bessel, FirstKindOfHighOrdersUnderflowsToZero) {
  using E = TypeParam;
  for (int32_t order : {1000, 1000000}) {
    for (E x : {this->tiny, this->smallest, E(1), E(100), E(-5)}) this->expect_order("Jn", order, x, E(0));
  }
  this->expect_order("Jn", 1001, E(-2), E(-0.0));
  this->expect_order("Jn", 2, this->smallest, E(0));
  this->expect_order("Jn", 3, -this->tiny, E(-0.0));
}

TYPED_TEST(Bessel, TheLowestOrderHasAMagnitude) {
  using E = TypeParam;
  std::vector<E> x(16, E(0)), r(16, E(7));
  Call<E> c;
  c.n = 16, c.a = x.data(), c.r1 = r.data(), c.order = std::numeric_limits<int32_t>::min();
  ASSERT_TRUE(call_row(row_named(row_of<E>("Jn")), 1, false, c));
  for (E y : r) EXPECT_EQ(y, E(0));
}

TYPED_TEST(Bessel, OrdersZeroAndOneAreTheRowsOfTheirOwnWithinAnUlp) {
  using E = TypeParam;
  const char* own[2][2] = {{"J0", "J1"}, {"Y0", "Y1"}};
  for (int kind = 0; kind < 2; ++kind) {
    for (int32_t order : {0, 1}) {
      for (E x : {E(0.001), E(0.7), E(20.25), E(63.7), E(63.8), E(1e5), E(1e20)}) {
        const E r = evaluate<E>(row_of<E>(kind == 0 ? "Jn" : "Yn"), 1, x, E(0), order).r1;
        const E want = evaluate<E>(row_of<E>(own[kind][order]), 1, x).r1;
        EXPECT_LE(std::fabs(r - want), std::nextafter(std::fabs(want), this->inf) - std::fabs(want))
            << order << ' ' << x;
      }
    }
  }
}

TYPED_TEST(Bessel, NegativeOrdersAndArgumentsChangeTheSignOfOddOrders) {
  using E = TypeParam;
  for (int32_t order : {2, 3, 10, 41}) {
    const bool odd = order % 2 != 0;
    for (E x : {E(0.75), E(30), E(70)}) {
      const E j = evaluate<E>(row_of<E>("Jn"), 1, x, E(0), order).r1;
      const E y = evaluate<E>(row_of<E>("Yn"), 1, x, E(0), order).r1;
      this->expect_order("Jn", -order, x, odd ? -j : j);
      this->expect_order("Jn", order, -x, odd ? -j : j);
      this->expect_order("Jn", -order, -x, j);
      this->expect_order("Yn", -order, x, odd ? -y : y);
    }
  }
}

TYPED_TEST(Bessel, DenormalsReadAsZeroWhereTheModeSaysSo) {
  using E = TypeParam;
  const uint32_t mode = _zymSetMode(0x280000);
  for (int32_t n : {1, 3, 40}) {
    std::vector<E> x(static_cast<size_t>(n), this->smallest / 4), r(static_cast<size_t>(n), E(7));
    Call<E> c;
    c.n = n, c.a = x.data(), c.r1 = r.data(), c.order = 1;
    for (const char* f : {"Y0", "Y1", "Yn"}) {
      ASSERT_TRUE(call_row(row_named(row_of<E>(f)), 1, false, c));
      for (E y : r) EXPECT_EQ(y, -this->inf) << f;
    }
    for (const char* f : {"J1", "I1", "Jn"}) {
      ASSERT_TRUE(call_row(row_named(row_of<E>(f)), 1, false, c));
      for (E y : r) EXPECT_EQ(y, E(0)) << f;
    }
  }
  _zymSetMode(mode | 0x140000);
}

}  // namespace
}  // namespace orvik::test
