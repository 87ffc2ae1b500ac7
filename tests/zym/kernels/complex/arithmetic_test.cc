// Sums, products, quotients, conjugates, magnitudes by cases that have exact results.
#include <bit>
#include <cmath>
#include <cstring>

#include "complex_rows.h"

namespace orvik::test {
namespace {

template <class C>
using ComplexArithmetic = ComplexTest<C>;
TYPED_TEST_SUITE(ComplexArithmetic, ComplexElements);

TYPED_TEST(ComplexArithmetic, AddOfTwoLargeFiniteNumbersReportsOverflow) {
  using C = TypeParam;
  const auto M = this->largest;
  this->expect("Add", C{M, 1}, C{M, 2}, C{this->inf, 3}, kOverflowCode);
  this->expect("Add", C{1, -M}, C{2, -M}, C{3, -this->inf}, kOverflowCode);
  this->expect("Sub", C{M, 1}, C{-M, 2}, C{this->inf, -1}, kOverflowCode);
}

TYPED_TEST(ComplexArithmetic, AddOfAnInfinityAndAFiniteNumberReportsNothing) {
  using C = TypeParam;
  const auto M = this->largest;
  this->expect("Add", C{this->inf, 1}, C{1, 2}, C{this->inf, 3});
  this->expect("Add", C{this->inf, M}, C{1, M}, C{this->inf, this->inf});  // an operand was infinite
  this->expect("Add", C{this->nan, M}, C{1, M}, C{this->nan, this->inf});
  this->expect("Sub", C{this->inf, 1}, C{this->inf, 2}, C{this->nan, -1});
}

TYPED_TEST(ComplexArithmetic, DivOfOneByZeroGivesInfinitiesWithoutReport) {
  using C = TypeParam;
  // Each part of the dividend by an infinity with the sign of the divisor's real part; a part of 0 is then a NaN.
  this->expect("Div", C{1, 0}, C{0, 0}, C{this->inf, this->nan});
  this->expect("Div", C{1, -2}, C{0, 0}, C{this->inf, -this->inf});
  this->expect("Div", C{1, -2}, C{-typename TestFixture::E(0), 0}, C{-this->inf, this->inf});
}

TYPED_TEST(ComplexArithmetic, DivOfZeroByZeroIsNanWithoutReport) {
  using C = TypeParam;
  this->expect("Div", C{0, 0}, C{0, 0}, C{this->nan, this->nan});
}

TYPED_TEST(ComplexArithmetic, DivOfFiniteNumbersThatOverflowsReports) {
  using C = TypeParam;
  this->expect_code("Div", C{this->largest, 1}, C{typename TestFixture::E(0.25), 0}, true, false, kOverflowCode);
  this->expect_code("Div", C{1, 1}, C{0, this->tiny}, true, true, kOverflowCode);
}

TYPED_TEST(ComplexArithmetic, DivByInfinityIsZeroOfInfinityIsInfinite) {
  using C = TypeParam;
  this->expect("Div", C{1, 2}, C{this->inf, this->nan}, C{0, 0});
  this->expect_code("Div", C{this->inf, this->nan}, C{1, 2}, true, true, 0);
}

// Squares and products leave the range, the quotient does not.
TYPED_TEST(ComplexArithmetic, DivWithoutSpuriousOverflowOrUnderflow) {
  using C = TypeParam;
  using E = typename TestFixture::E;
  const E M = std::ldexp(E(1), TestFixture::L::max_exponent - 1),
          m = std::ldexp(E(1), TestFixture::L::min_exponent + 1);
  for (E s : {M, m, E(1), -M, -m}) {
    const auto expect_quotient = [&](C x, C y, C want) {
      const Outcome<C> got = evaluate<C, C>(this->row("Div"), 1, x, y);
      EXPECT_EQ(got.r1.re, want.re) << show(x) << show(y);
      EXPECT_EQ(got.r1.im, want.im) << show(x) << show(y);
      EXPECT_EQ(got.code, 0);
    };
    expect_quotient(C{s, s}, C{s, s}, C{1, 0});
    expect_quotient(C{s, -s}, C{s, s}, C{0, -1});
    expect_quotient(C{s, 0}, C{0, s}, C{0, -1});
    expect_quotient(C{0, s}, C{s / 2, 0}, C{0, 2});
  }
}

TYPED_TEST(ComplexArithmetic, MulOfFiniteNumbersThatOverflowsReports) {
  using C = TypeParam;
  using E = typename TestFixture::E;
  this->expect_code("Mul", C{this->largest, 0}, C{2, 0}, true, false, kOverflowCode);
  this->expect_code("MulByConj", C{0, this->largest}, C{0, E(1.5)}, true, false, kOverflowCode);
  this->expect_code("Mul", C{this->inf, 0}, C{2, 1}, true, true, 0);
}

TYPED_TEST(ComplexArithmetic, MulWhoseProductsOverflowButNotTheirSum) {
  using C = TypeParam;
  using E = typename TestFixture::E;
  const E h = std::ldexp(E(1), (TestFixture::L::max_exponent + 2) / 2);  // h^2 is infinite
  this->expect("Mul", C{h, h}, C{h, h}, C{0, this->inf}, kOverflowCode);
  // h^2 - h (h - h/16) = h^2 / 16
  this->expect_code("Mul", C{h, h}, C{h, h - h / 16}, false, true, kOverflowCode);
  const Outcome<C> got = evaluate<C, C>(this->row("Mul"), 1, C{h, h}, C{h, h - h / 16});
  EXPECT_EQ(got.r1.re, h / 16 * h);
}

TYPED_TEST(ComplexArithmetic, MulOfTinyNumbersRoundsTheExactProduct) {
  using C = TypeParam;
  using E = typename TestFixture::E;
  const E s = std::ldexp(E(1), TestFixture::L::min_exponent / 2 - TestFixture::L::digits / 2);
  // (3 + i)(3 - i) = 10, in units of s^2 that are denormal.
  const Outcome<C> got = evaluate<C, C>(this->row("Mul"), 1, C{3 * s, s}, C{3 * s, -s});
  EXPECT_EQ(got.r1.re, 10 * s * s);
  EXPECT_EQ(got.r1.im, 0);
  EXPECT_EQ(got.code, 0);
}

TYPED_TEST(ComplexArithmetic, MulByConjOfItselfIsTheSquareOfTheMagnitude) {
  using C = TypeParam;
  this->expect("MulByConj", C{3, 4}, C{3, 4}, C{25, 0});
  this->expect("MulByConj", C{1, 2}, C{3, -4}, C{-5, 10});
  this->expect("Mul", C{1, 2}, C{3, -4}, C{11, 2});
}

TYPED_TEST(ComplexArithmetic, ZeroFactorsStayInTheLanesWithTheirSigns) {
  using C = TypeParam;
  using E = typename TestFixture::E;
  const E z = 0;
  for (C x : {C{z, z}, C{-z, z}, C{z, -z}, C{-z, -z}}) {
    for (C y : {C{1, 2}, C{-1, 2}, C{z, -z}}) {
      this->expect("Mul", x, y, C{x.re * y.re - x.im * y.im, x.re * y.im + x.im * y.re});
      this->expect("MulByConj", x, y, C{x.re * y.re + x.im * y.im, x.im * y.re - x.re * y.im});
    }
  }
}

TYPED_TEST(ComplexArithmetic, ConjOfANanKeepsItsBitsButForTheSign) {
  using C = TypeParam;
  using E = typename TestFixture::E;
  using Bits = std::conditional_t<sizeof(E) == 4, uint32_t, uint64_t>;
  constexpr Bits kSign = Bits{1} << (8 * sizeof(E) - 1);
  const Bits quiet = std::bit_cast<Bits>(TestFixture::nan) | 0x1234;
  const Bits signalling = std::bit_cast<Bits>(TestFixture::L::signaling_NaN()) | 0x55;
  for (Bits payload : {quiet, quiet | kSign, signalling}) {
    for (int n : {1, 5, 37, 200}) {
      std::vector<Bits> a(static_cast<size_t>(2 * n), payload), r(static_cast<size_t>(2 * n));
      Call<C> call;
      call.n = n, call.a = reinterpret_cast<const C*>(a.data()), call.r1 = reinterpret_cast<C*>(r.data());
      for (bool strided : {false, true}) {
        call_row(row_named(this->row("Conj")), 1, strided, call);
        for (size_t i = 0; i < r.size(); ++i) ASSERT_EQ(r[i], i % 2 == 0 ? payload : payload ^ kSign) << n << ' ' << i;
      }
    }
  }
}

TYPED_TEST(ComplexArithmetic, AbsWithoutSpuriousOverflowOrUnderflow) {
  using C = TypeParam;
  using E = typename TestFixture::E;
  for (int e : {0, TestFixture::L::max_exponent - 4, TestFixture::L::min_exponent + 2, TestFixture::L::min_exponent - 8,
                TestFixture::L::max_exponent / 2, TestFixture::L::min_exponent / 2}) {
    const E s = std::ldexp(E(1), e);
    for (C z : {C{3 * s, 4 * s}, C{-4 * s, 3 * s}, C{5 * s, 0}, C{0, -5 * s}}) {
      const Outcome<E> got = evaluate<C, E>(this->row("Abs"), 1, z, C{1, 0});
      EXPECT_EQ(got.r1, 5 * s) << show(z);
      EXPECT_EQ(got.code, 0);
    }
  }
  const Outcome<E> got = evaluate<C, E>(this->row("Abs"), 1, C{this->largest, this->largest}, C{1, 0});
  EXPECT_EQ(got.r1, this->inf);
  EXPECT_EQ(got.code, 0);
}

TYPED_TEST(ComplexArithmetic, ResultOverBothOperandsGivesTheSame) {
  using C = TypeParam;
  using E = typename TestFixture::E;
  for (const char* function : {"Add", "Sub", "Mul", "MulByConj", "Div"}) {
    for (int level = 0; level < 3; ++level) {
      std::vector<C> a(75), r(75);
      for (size_t i = 0; i < a.size(); ++i) a[i] = {static_cast<E>(i) + 1, E(i % 7 == 3 ? this->largest : 2)};
      Call<C> call;
      call.n = 75, call.a = call.b = a.data(), call.r1 = r.data();
      call_row(row_named(this->row(function)), level, false, call);
      call.r1 = a.data();
      call_row(row_named(this->row(function)), level, false, call);
      for (size_t i = 0; i < a.size(); ++i) ASSERT_TRUE(same_value(a[i], r[i])) << function << level << ' ' << i;
    }
  }
}

// Results of 7 MiB and more go past the caches; they begin anywhere.
TYPED_TEST(ComplexArithmetic, LargeArraysGiveTheSameFromAnyAddress) {
  using C = TypeParam;
  using E = typename TestFixture::E;
  constexpr int32_t n = (8 << 20) / sizeof(C) + 37;
  std::vector<C> a(n), b(n, C{1, -2}), r(n + 9);
  for (int32_t i = 0; i < n; ++i) a[static_cast<size_t>(i)] = {static_cast<E>(i), static_cast<E>(-i)};
  a[1000] = C{this->largest, this->largest};
  b[1000] = C{this->largest, this->largest};
  for (size_t offset : {size_t{0}, size_t{1}, size_t{3}}) {
    Call<C> call;
    call.n = n, call.a = a.data(), call.b = b.data(), call.r1 = r.data() + offset;
    call_row(row_named(this->row("Add")), 1, false, call);
    for (size_t i = 0; i < a.size(); ++i) ASSERT_EQ(call.r1[i].im, a[i].im + b[i].im) << i;
    call_row(row_named(this->row("Conj")), 1, false, call);
    for (size_t i = 0; i < a.size(); ++i) ASSERT_EQ(call.r1[i].im, -a[i].im) << i;
  }
}

}  // namespace
}  // namespace orvik::test
