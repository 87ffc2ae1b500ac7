// Branch cuts walked from both sides, signed zeros, exponentials that leave the range and come back.
#include <cmath>

#include "complex_rows.h"

namespace orvik::test {
namespace {

template <class C>
class ComplexCuts : public ComplexTest<C> {
 protected:
  using E = Part<C>;
  static constexpr double kPi = 3.14159265358979323846;

  static E bound(int level, E want) {
    const E ulp = std::nextafter(std::fabs(want), infinite()) - std::fabs(want);
    return level == 1 ? ulp : level == 0 ? 4 * ulp : std::fabs(want) * (sizeof(E) == 4 ? E(0x1p-11) : E(0x1p-26));
  }
  static E infinite() { return std::numeric_limits<E>::infinity(); }
  // Distances from the axis: on it, next to it.
  static std::vector<E> heights() { return {0, std::numeric_limits<E>::denorm_min(), std::numeric_limits<E>::min()}; }
  // Points along it.
  static std::vector<E> along() {
    std::vector<E> x = {std::numeric_limits<E>::min(), std::numeric_limits<E>::max() / 4};
    for (int e = -60; e <= 60; ++e) x.push_back(std::ldexp(E(1.25), e));
    return x;
  }
};
TYPED_TEST_SUITE(ComplexCuts, ComplexElements);

// Ln and Arg: the negative real axis; from above pi, from below -pi, as the sign of the zero says.
TYPED_TEST(ComplexCuts, LogarithmAndAngleOnBothSidesOfTheNegativeAxis) {
  using C = TypeParam;
  using E = typename TestFixture::E;
  const E pi = static_cast<E>(this->kPi);
  for (E x : this->along()) {
    for (E y : this->heights()) {
      for (int level = 0; level < 3; ++level) {
        for (E side : {y, -y}) {
          if (side != 0 && x < std::fabs(side) * E(0x1p60)) continue;
          const Outcome<C> ln = evaluate<C, C>(this->row("Ln"), level, C{-x, side});
          const Outcome<E> arg = evaluate<C, E>(this->row("Arg"), level, C{-x, side});
          const E want = std::copysign(pi, side);
          EXPECT_NEAR(ln.r1.im, want, this->bound(level, want)) << x << ' ' << side;
          EXPECT_EQ(std::signbit(ln.r1.im), std::signbit(side));
          EXPECT_EQ(ln.r1.im, arg.r1) << x << ' ' << side << kLevelNames[level];
          const E re = std::log(x);
          EXPECT_NEAR(ln.r1.re, re, std::fmax(this->bound(level, re), this->bound(level, want)));
        }
      }
    }
  }
}

TYPED_TEST(ComplexCuts, LogarithmAndAngleOnThePositiveAxisKeepTheSignOfTheZero) {
  using C = TypeParam;
  using E = typename TestFixture::E;
  for (E x : this->along()) {
    for (E side : {E(0), E(-0.0)}) {
      for (int level = 0; level < 3; ++level) {
        const Outcome<C> ln = evaluate<C, C>(this->row("Ln"), level, C{x, side});
        EXPECT_TRUE(same_value(ln.r1.im, side)) << x << ' ' << side;
        EXPECT_TRUE(same_value(evaluate<C, E>(this->row("Arg"), level, C{x, side}).r1, side));
      }
    }
  }
}

TYPED_TEST(ComplexCuts, AngleOfTheImaginaryAxisIsARightOne) {
  using C = TypeParam;
  using E = typename TestFixture::E;
  const E right = static_cast<E>(this->kPi / 2);
  for (E y : this->along()) {
    for (E x : {E(0), E(-0.0)}) {
      for (int level = 0; level < 3; ++level) {
        EXPECT_NEAR((evaluate<C, E>(this->row("Arg"), level, C{x, y}).r1), right, this->bound(level, right));
        EXPECT_NEAR((evaluate<C, E>(this->row("Arg"), level, C{x, -y}).r1), -right, this->bound(level, right));
      }
    }
  }
}

TYPED_TEST(ComplexCuts, LogarithmOfZeroIsMinusInfinityWithoutReport) {
  using C = TypeParam;
  using E = typename TestFixture::E;
  const E pi = static_cast<E>(this->kPi);
  this->expect("Ln", C{0, 0}, C{-this->inf, 0});
  this->expect("Ln", C{0, E(-0.0)}, C{-this->inf, E(-0.0)});
  this->expect("Ln", C{E(-0.0), 0}, C{-this->inf, pi});
  this->expect("Ln", C{E(-0.0), E(-0.0)}, C{-this->inf, -pi});
}

// Sqrt: the negative real axis; the root is on the imaginary one, above or below as the sign of the zero says.
TYPED_TEST(ComplexCuts, RootOnBothSidesOfTheNegativeAxis) {
  using C = TypeParam;
  using E = typename TestFixture::E;
  for (E x : this->along()) {
    for (E y : this->heights()) {
      for (E side : {y, -y}) {
        if (side != 0 && x < std::fabs(side) * E(0x1p60)) continue;
        for (int level = 0; level < 3; ++level) {
          const Outcome<C> got = evaluate<C, C>(this->row("Sqrt"), level, C{-x, side});
          const E want = std::copysign(std::sqrt(x), side);
          EXPECT_NEAR(got.r1.im, want, this->bound(level, want)) << x << ' ' << side;
          EXPECT_FALSE(std::signbit(got.r1.re));
          EXPECT_LE(got.r1.re, E(0x1p-59) * std::sqrt(x));
          if (side == 0) {
            EXPECT_EQ(got.r1.re, 0);
          }
          EXPECT_EQ(got.code, 0);
        }
      }
    }
  }
}

TYPED_TEST(ComplexCuts, RootOfZeroIsPlusZeroWithTheSignOfTheImaginaryPart) {
  using C = TypeParam;
  using E = typename TestFixture::E;
  for (E re : {E(0), E(-0.0)}) {
    for (E im : {E(0), E(-0.0)}) this->expect("Sqrt", C{re, im}, C{0, im});
  }
}

TYPED_TEST(ComplexCuts, RootWithoutSpuriousOverflowOrUnderflow) {
  using C = TypeParam;
  using E = typename TestFixture::E;
  // (2 + i)^2 = 3 + 4 i, by even powers of two.
  for (int e : {0, (TestFixture::L::max_exponent - 4) / 2, (TestFixture::L::min_exponent + 2) / 2,
                (TestFixture::L::min_exponent - 8) / 2}) {
    const E s = std::ldexp(E(1), e), q = s * s;
    for (E sign : {E(1), E(-1)}) {
      const C want[] = {C{2 * s, sign * s}, C{s, sign * 2 * s}};
      const C from[] = {C{3 * q, sign * 4 * q}, C{-3 * q, sign * 4 * q}};
      for (int i = 0; i < 2; ++i) {
        const Outcome<C> got = evaluate<C, C>(this->row("Sqrt"), 1, from[i]);
        EXPECT_TRUE(same_value(got.r1, want[i])) << show(from[i]) << show(got.r1);
      }
    }
  }
}

TYPED_TEST(ComplexCuts, ExpOfZeroImaginaryPartIsRealWithTheSignOfTheZero) {
  using C = TypeParam;
  using E = typename TestFixture::E;
  for (E x : {E(0), E(1), E(-3), E(80), E(-80), E(200), E(-200)}) {
    for (E y : {E(0), E(-0.0)}) {
      for (int level = 0; level < 3; ++level) {
        const Outcome<C> got = evaluate<C, C>(this->row("Exp"), level, C{x, y});
        const E want = std::exp(x);
        if (std::isinf(want)) {
          EXPECT_EQ(got.r1.re, want);
        } else {
          EXPECT_NEAR(got.r1.re, want, std::fmax(2 * this->bound(level, want), 2 * this->tiny));
        }
        EXPECT_TRUE(same_value(got.r1.im, y)) << x << ' ' << y << kLevelNames[level] << ' ' << got.r1.im;
        EXPECT_EQ(got.code, std::isinf(want) ? kOverflowCode : 0);
      }
    }
  }
}

TYPED_TEST(ComplexCuts, ExpWhosePowerOverflowsButNotTheProduct) {
  using C = TypeParam;
  using E = typename TestFixture::E;
  const E x = sizeof(E) == 4 ? E(88.9) : E(709.9), y = static_cast<E>(this->kPi / 4);
  ASSERT_TRUE(std::isinf(std::exp(x)));
  const long double want = std::exp(static_cast<long double>(x)) * std::cos(static_cast<long double>(y));
  for (int level = 0; level < 3; ++level) {
    const Outcome<C> got = evaluate<C, C>(this->row("Exp"), level, C{x, y});
    EXPECT_NEAR(got.r1.re, static_cast<E>(want), this->bound(level, static_cast<E>(want)));
    EXPECT_EQ(got.code, 0);
  }
  // One part only: sin(5e-324) e^1000 is finite, the cosine's part is not.
  this->expect_code("Exp", C{sizeof(E) == 4 ? E(150) : E(1000), this->tiny}, C{1, 0}, true, false, kOverflowCode);
}

TYPED_TEST(ComplexCuts, ExpThatUnderflowsIsZeroWithoutReport) {
  using C = TypeParam;
  using E = typename TestFixture::E;
  const E x = sizeof(E) == 4 ? E(-120) : E(-800);
  this->expect("Exp", C{x, 2}, C{E(-0.0), 0});
  this->expect("Exp", C{-this->largest, -1}, C{0, E(-0.0)});
  // A denormal result where the power alone is one too.
  const E d = sizeof(E) == 4 ? E(-95) : E(-730);
  const Outcome<C> got = evaluate<C, C>(this->row("Exp"), 1, C{d, 0});
  EXPECT_NEAR(got.r1.re, std::exp(d), this->tiny);
  EXPECT_EQ(got.code, 0);
}

TYPED_TEST(ComplexCuts, ExpOfAHugeAngleIsReducedExactly) {
  using C = TypeParam;
  using E = typename TestFixture::E;
  for (E y : {this->largest, std::ldexp(E(1.7), 100), E(600000), E(-70000)}) {
    const long double s = std::sin(static_cast<double>(y)), c = std::cos(static_cast<double>(y));
    for (int level = 0; level < 3; ++level) {
      const Outcome<C> got = evaluate<C, C>(this->row("Exp"), level, C{1, y});
      EXPECT_NEAR(got.r1.re, static_cast<E>(std::exp(1.0L) * c), 2 * this->bound(level, E(2.7)));
      EXPECT_NEAR(got.r1.im, static_cast<E>(std::exp(1.0L) * s), 2 * this->bound(level, E(2.7)));
    }
  }
}

TYPED_TEST(ComplexCuts, CisOfInfinityIsNanWithoutReport) {
  using C = TypeParam;
  using E = typename TestFixture::E;
  for (E x : {this->inf, -this->inf, this->nan}) {
    for (int level = 0; level < 3; ++level) {
      const Outcome<C> got = evaluate<E, C>(this->row("CIS"), level, x);
      EXPECT_TRUE(std::isnan(got.r1.re) && std::isnan(got.r1.im));
      EXPECT_EQ(got.code, 0);
    }
  }
  for (E x : {E(0), E(-0.0)}) {
    for (int level = 0; level < 3; ++level) {
      EXPECT_TRUE(same_value(evaluate<E, C>(this->row("CIS"), level, x).r1, C{1, x}));
    }
  }
}

}  // namespace
}  // namespace orvik::test
