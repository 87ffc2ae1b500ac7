// The floating-point flags that complex kernels leave: those that the exact result allows, inexact aside, and what was
// raised before.
#include <cfenv>
#include <cmath>

#include "complex_rows.h"

namespace orvik::test {
namespace {

constexpr int kSevere = FE_INVALID | FE_DIVBYZERO | FE_OVERFLOW;

template <class C>
class ComplexFlags : public ComplexTest<C> {
 protected:
  using E = Part<C>;

  // Of one call on arrays that hold a and b among plain elements, in whole blocks and in the rest.
  template <class In, class Out>
  static int flags_of(const std::string& function, int level, bool strided, In a, In b, int before,
                      int watched = kSevere) {
    const uint32_t mode = _zymSetMode(ZYM_ERRMODE_NOERR);
    std::vector<In> x(150, element<In>(0.75, 1.5)), y(150, element<In>(0.5, -2));
    std::vector<Out> r(150);
    for (size_t i : {size_t{3}, size_t{41}, size_t{70}}) x[i] = a, y[i] = b;
    Call<In, Out> c;
    c.n = 71, c.a = x.data(), c.b = y.data(), c.r1 = r.data();
    std::feclearexcept(FE_ALL_EXCEPT);
    std::feraiseexcept(before);
    EXPECT_TRUE((call_row<In, Out>(row_named(ComplexTest<C>::row(function)), level, strided, c)));
    const int flags = std::fetestexcept(watched);
    std::feclearexcept(FE_ALL_EXCEPT);
    _zymSetMode(mode | 0x140000);
    return flags;
  }
  template <class Out = C>
  static void expect(const char* function, C a, C b, int flags, int before = 0) {
    for (int level = 0; level < 3; ++level) {
      for (bool strided : {false, true}) {
        EXPECT_EQ((flags_of<C, Out>(function, level, strided, a, b, before)), flags)
            << function << kLevelNames[level] << strided << show(a) << show(b);
      }
    }
  }
};
TYPED_TEST_SUITE(ComplexFlags, ComplexElements);

TYPED_TEST(ComplexFlags, FiniteResultsRaiseNone) {
  using C = TypeParam;
  using E = typename TestFixture::E;
  const E M = this->largest / 8, m = this->smallest * 64, h = std::sqrt(this->largest);
  for (C z : {C{0, 0}, C{0, 1}, C{-1, 0}, C{M, -M}, C{m, m}, C{M, m}, C{-m, M}, C{1, this->tiny}}) {
    this->expect("Add", z, C{1, 1}, 0);
    this->expect("Sub", z, C{1, 1}, 0);
    this->expect("Mul", z, C{1, -1}, 0);
    this->expect("MulByConj", z, C{1, -1}, 0);
    this->expect("Div", z, C{2, -1}, 0);
    this->expect("Conj", z, z, 0);
    this->expect("Sqrt", z, z, 0);
    this->template expect<E>("Abs", z, z, 0);
    this->template expect<E>("Arg", z, z, 0);
    if (z.re != 0 || z.im != 0) this->expect("Ln", z, z, 0);
    this->expect("Exp", C{z.re > 100 ? E(50) : z.re < -100 ? E(-50) : z.re, z.im}, z, 0);
  }
  // Products and squares on the way leave the range.
  this->expect("Div", C{M, M}, C{M, -M}, 0);
  this->expect("Div", C{m, m}, C{m, -m}, 0);
  this->expect("Mul", C{h * 2, h * 2}, C{h / 4, -h / 4}, 0);
}

TYPED_TEST(ComplexFlags, AxesRaiseNone) {
  using C = TypeParam;
  using E = typename TestFixture::E;
  for (E x : {E(1), E(1.25), E(1.4375), E(1.75), E(252.5625), E(-252.5625), E(0.875), this->largest / 2,
              this->smallest * 7}) {
    for (C z : {C{x, 0}, C{x, E(-0.0)}, C{-x, 0}, C{0, x}, C{E(-0.0), x}}) {
      this->template expect<E>("Abs", z, z, 0);
      this->template expect<E>("Arg", z, z, 0);
      this->expect("Ln", z, z, 0);
      this->expect("Sqrt", z, z, 0);
    }
  }
}

TYPED_TEST(ComplexFlags, RootsAndAnglesWithNormalPartsRaiseNoUnderflow) {
  using C = TypeParam;
  using E = typename TestFixture::E;
  const E far = std::sqrt(this->smallest) / 4, m = this->smallest;
  for (C z : {C{2, far}, C{-2, far}, C{far, 2}, C{2, m * 8}, C{m * 8, 2}, C{m * 8, m * 32}, C{m * 2, far}}) {
    for (int level = 0; level < 3; ++level) {
      const auto flags = [&]<class Out>(const char* function, Out) {
        return TestFixture::template flags_of<C, Out>(function, level, false, z, z, 0, kSevere | FE_UNDERFLOW);
      };
      EXPECT_EQ(flags("Sqrt", C{}), 0) << kLevelNames[level] << show(z);
      EXPECT_EQ(flags("Arg", E{}), 0) << kLevelNames[level] << show(z);
    }
  }
}

TYPED_TEST(ComplexFlags, LogarithmsAndExponentialsWithNormalPartsRaiseNoUnderflow) {
  using C = TypeParam;
  const auto m = this->smallest, M = this->largest;
  for (int level = 0; level < 3; ++level) {
    const auto flags = [&](const char* function, C z) {
      return TestFixture::template flags_of<C, C>(function, level, false, z, z, 0, kSevere | FE_UNDERFLOW);
    };
    for (C z : {C{1, M}, C{M, M / 4}, C{-M, -2}, C{m * 8, 3}, C{-3, -m}, C{M, M}}) {
      EXPECT_EQ(flags("Ln", z), 0) << kLevelNames[level] << show(z);
    }
    for (C z : {C{this->inf, m * 8}, C{-this->inf, m * 8}, C{2, m * 8}}) {
      EXPECT_EQ(flags("Exp", z), 0) << kLevelNames[level] << show(z);
    }
    EXPECT_EQ(flags("Exp", C{2000, m}), FE_OVERFLOW) << kLevelNames[level];
  }
}

TYPED_TEST(ComplexFlags, ProductsThatOverflowOnTheWayRaiseNone) {
  using C = TypeParam;
  using E = typename TestFixture::E;
  const E h = std::ldexp(E(1), (TestFixture::L::max_exponent + 1) / 2);
  // (h + h i)(h - h i / 2^k): no part is infinite though h^2 would be with the next power.
  this->expect("MulByConj", C{h, h * E(0.25)}, C{h * E(0.25), h}, 0);
  // |z|^2 is infinite, its parts are what is asked for.
  this->expect("Mul", C{2 * h, 0}, C{h / 8, 0}, 0);
}

TYPED_TEST(ComplexFlags, OverflowRaisesOverflow) {
  using C = TypeParam;
  const auto M = this->largest;
  this->expect("Add", C{M, 1}, C{M, 1}, FE_OVERFLOW);
  this->expect("Mul", C{M, 1}, C{M, 1}, FE_OVERFLOW);
  this->expect("MulByConj", C{M, 1}, C{4, 0}, FE_OVERFLOW);
  this->expect("Div", C{M, 1}, C{typename TestFixture::E(0.125), 0}, FE_OVERFLOW);
  this->expect("Exp", C{2000, 1}, C{1, 1}, FE_OVERFLOW);
}

TYPED_TEST(ComplexFlags, QuietNansRaiseNone) {
  using C = TypeParam;
  using E = typename TestFixture::E;
  const E n = this->nan;
  for (C z : {C{n, n}, C{n, 1}, C{-2, n}}) {
    for (const char* f : {"Add", "Sub", "Mul", "MulByConj", "Div"})
      this->expect(f, z, C{1, 2}, 0), this->expect(f, C{1, 2}, z, 0);
    for (const char* f : {"Conj", "Exp", "Ln", "Sqrt"}) this->expect(f, z, z, 0);
    for (const char* f : {"Abs", "Arg"}) this->template expect<E>(f, z, z, 0);
  }
}

TYPED_TEST(ComplexFlags, QuietNansBesideTheLargestNumbersRaiseNone) {
  using C = TypeParam;
  const auto n = this->nan, M = this->largest;
  for (const char* f : {"Mul", "MulByConj", "Div"}) {
    for (C w : {C{M, M}, C{-M, 3}, C{M, n}}) {
      this->expect(f, C{n, M}, w, 0);
      this->expect(f, C{M, n}, w, 0);
      this->expect(f, w, C{n, -M}, 0);
    }
  }
}

TYPED_TEST(ComplexFlags, SignallingNansRaiseInvalidButForConj) {
  using C = TypeParam;
  const auto s = TestFixture::L::signaling_NaN();
  for (const char* f : {"Add", "Sub", "Mul", "MulByConj", "Div", "Exp", "Ln", "Sqrt"}) {
    this->expect(f, C{s, 1}, C{1, 2}, FE_INVALID);
    this->expect(f, C{1, s}, C{1, 2}, FE_INVALID);
  }
  this->expect("Conj", C{s, s}, C{1, 2}, 0);
}

TYPED_TEST(ComplexFlags, InfinitiesWithAStatedResultRaiseNone) {
  using C = TypeParam;
  using E = typename TestFixture::E;
  const E inf = this->inf;
  this->expect("Add", C{inf, 1}, C{1, -inf}, 0);
  this->expect("Div", C{1, 2}, C{inf, 3}, 0);
  this->expect("Div", C{inf, 1}, C{2, 3}, 0);
  this->expect("Mul", C{inf, -inf}, C{inf, 2}, FE_INVALID);  // inf - inf in one part
  this->expect("Mul", C{inf, 1}, C{2, 3}, 0);
  for (C z : {C{inf, 1}, C{-inf, -1}, C{1, inf}, C{inf, inf}}) {
    this->expect("Ln", z, z, 0);
    this->expect("Sqrt", z, z, 0);
    this->template expect<E>("Abs", z, z, 0);
    this->template expect<E>("Arg", z, z, 0);
  }
  this->expect("Exp", C{inf, 1}, C{1, 1}, 0);
  this->expect("Exp", C{-inf, 1}, C{1, 1}, 0);
  this->expect("Exp", C{inf, 0}, C{1, 1}, 0);
  this->expect("Exp", C{1, inf}, C{1, 1}, FE_INVALID);
}

TYPED_TEST(ComplexFlags, PolesRaiseDivisionByZero) {
  this->expect("Ln", TypeParam{0, 0}, TypeParam{1, 1}, FE_DIVBYZERO);
}

// Special lanes may have raised flags of their own before they were found: those go, others stay.
TYPED_TEST(ComplexFlags, TheCallersFlagsStay) {
  using C = TypeParam;
  const auto inf = this->inf;
  for (int before : {FE_INVALID, FE_OVERFLOW, FE_DIVBYZERO, FE_INVALID | FE_OVERFLOW}) {
    for (const char* f : {"Add", "Mul", "Div", "Exp", "Sqrt"}) {
      this->expect(f, C{1, 1}, C{1, 2}, before, before);
      this->expect(f, C{inf, 1}, C{2, 3}, before, before);
    }
  }
}

}  // namespace
}  // namespace orvik::test
