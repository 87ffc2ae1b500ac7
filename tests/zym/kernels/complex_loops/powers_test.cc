// Powers: zeros, infinities and NaNs, real numbers, right angles, large exponents.
#include "loops.h"

namespace orvik::test {
namespace {

template <class C>
class ComplexPowers : public LoopTest<C> {
 protected:
  using typename LoopTest<C>::E;
  static void expect(C x, C y, C want) {
    const C got = LoopTest<C>::value("Pow", x, y);
    EXPECT_TRUE(same_value(got, want)) << show(x) << " to " << show(y) << ": " << show(got) << ", want " << show(want);
  }

  static bool finite(C z) { return std::isfinite(z.re) && std::isfinite(z.im); }
  // What is stated of zeros, infinities and NaNs; false where that is nothing.
  static bool limit(C x, C y, C& want) {
    const E inf = LoopTest<C>::inf, nan = LoopTest<C>::nan;
    const bool zero = x.re == 0 && x.im == 0, infinite = std::isinf(x.re) || std::isinf(x.im);
    want = {nan, nan};
    if (y.re == 0 && y.im == 0) {
      want = {1, 0};
    } else if (std::isnan(x.re) || std::isnan(x.im) || std::isnan(y.re) || std::isnan(y.im)) {
    } else if ((zero || infinite) && finite(y)) {
      if (y.re != 0) want = zero == (y.re > 0) ? C{0, 0} : C{inf, y.im == 0 ? E(0) : nan};
    } else if (!finite(y)) {
      const double modulus = std::hypot(static_cast<double>(x.re), static_cast<double>(x.im));
      if (modulus == 1 && x.re != 0 && x.im != 0) return false;  // nearly 1
      if (std::isinf(y.re) && !std::isinf(y.im) && modulus != 1) {
        want = (y.re > 0) == (modulus > 1) ? C{inf, nan} : C{0, 0};
      }
    } else {
      return false;
    }
    return true;
  }
};
TYPED_TEST_SUITE(ComplexPowers, ComplexElements);

TYPED_TEST(ComplexPowers, ToTheZeroIsOneWhateverTheBase) {
  using E = typename TestFixture::E;
  for (E x : {E(0), E(-0.0), E(3), -this->inf, this->nan}) {
    for (E y : {E(0), E(-2), this->inf, this->nan}) {
      for (E zero : {E(0), E(-0.0)}) this->expect({x, y}, {zero, E(0)}, {1, 0});
    }
  }
}

TYPED_TEST(ComplexPowers, OfZeroByTheSignOfTheExponentsRealPart) {
  for (auto zero : {this->at(0, 0), this->at(-0.0, 0), this->at(0, -0.0)}) {
    this->expect(zero, {2, 0}, {0, 0});
    this->expect(zero, {0.5, -3}, {0, 0});
    this->expect(zero, {-2, 0}, {this->inf, 0});
    this->expect(zero, {-2, 1}, {this->inf, this->nan});
    this->expect(zero, {0, 1}, {this->nan, this->nan});
    this->expect(zero, {this->inf, 0}, {0, 0});
    this->expect(zero, {-this->inf, 0}, {this->inf, this->nan});
  }
}

TYPED_TEST(ComplexPowers, OfInfinitiesAndWithInfiniteExponents) {
  this->expect({this->inf, 1}, {2, 0}, {this->inf, 0});
  this->expect({this->inf, 1}, {2, 1}, {this->inf, this->nan});
  this->expect({1, -this->inf}, {-2, 1}, {0, 0});
  this->expect({this->inf, 0}, {0, 1}, {this->nan, this->nan});
  this->expect({2, 1}, {this->inf, 0}, {this->inf, this->nan});
  this->expect({0.5, 0.25}, {this->inf, 0}, {0, 0});
  this->expect({0.5, 0.25}, {-this->inf, 0}, {this->inf, this->nan});
  this->expect({1, 0}, {this->inf, 0}, {this->nan, this->nan});
  this->expect({2, 1}, {1, this->inf}, {this->nan, this->nan});
}

TYPED_TEST(ComplexPowers, ElevenByElevenBasesAndExponentsAreAsStated) {
  using C = TypeParam;
  using E = typename TestFixture::E;
  const std::vector<E> parts = {-this->inf, -this->largest, -1,          -this->tiny, E(-0.0),   0,
                                this->smallest, 1,          this->largest, this->inf, this->nan};
  std::vector<C> all, bases, exponents;
  for (E x : parts) {
    for (E y : parts) all.push_back({x, y});
  }
  for (C x : all) {
    for (C y : all) bases.push_back(x), exponents.push_back(y);
  }
  const std::vector<C> got = this->values("Pow", bases, exponents);
  size_t limits = 0, judged = 0;
  for (size_t i = 0; i < got.size(); ++i) {
    C want;
    if (this->limit(bases[i], exponents[i], want)) {
      EXPECT_TRUE(same_value(got[i], want)) << show(bases[i]) << " to " << show(exponents[i]) << ": " << show(got[i]);
      ++limits;
    } else if (this->finite(bases[i]) && this->finite(exponents[i])) {
      const double error = this->power_error(bases[i], exponents[i], got[i]);
      EXPECT_LT(error, 1) << show(bases[i]) << " to " << show(exponents[i]) << " is " << show(got[i]);
      ++judged;
    }
  }
  EXPECT_GT(limits, 9000u);
  EXPECT_GT(judged, 3000u);
  for (size_t k = 0; k < all.size(); ++k) {  // one exponent for all bases
    std::vector<C> r(all.size());
    Call<C> c;
    c.n = static_cast<int32_t>(all.size()), c.a = all.data(), c.r1 = r.data(), c.fraction[0] = all[k];
    ASSERT_TRUE(call_row(row_named(this->row("Powx")), 1, false, c));
    for (size_t i = 0; i < all.size(); ++i) {
      EXPECT_TRUE(same_value(r[i], got[i * all.size() + k])) << show(all[i]) << " to " << show(all[k]);
    }
  }
}

TYPED_TEST(ComplexPowers, NansGiveNansWithoutReport) {
  for (auto x : {this->at(this->nan, 1), this->at(1, this->nan)}) {
    for (auto y : {this->at(2, 1), this->at(-1, 0), this->at(this->inf, 0)}) {
      for (const auto& got : {this->outcome("Pow", x, y), this->outcome("Pow", y, x)}) {
        EXPECT_TRUE(std::isnan(got.r1.re) && std::isnan(got.r1.im)) << show(x) << show(y);
        EXPECT_EQ(got.code, 0);
      }
    }
  }
}

TYPED_TEST(ComplexPowers, RealPowersOfRealNumbersAreTheRealFunctions) {
  using E = typename TestFixture::E;
  for (E x : {E(2), E(10), E(0.3), E(-2), E(-0.7), E(7)}) {
    for (E y : {E(2), E(-3), E(10), E(0.5), E(7.25)}) {
      if (x < 0 && y != std::floor(y)) continue;
      this->expect({x, 0}, {y, 0}, {evaluate<E>(row_of<E>("Pow"), 1, x, y).r1, 0});
    }
  }
  this->expect({2, 0}, {10, 0}, {1024, 0});
  this->expect({-2, 0}, {3, 0}, {-8, 0});
}

TYPED_TEST(ComplexPowers, OfIAreExactTurnsWhateverTheExponent) {
  using E = typename TestFixture::E;
  // The largest powers of two are multiples of a whole turn of i; 1 more, 2 more, 3 more while they are exact.
  const E turn = sizeof(E) == 4 ? E(0x1p20) : E(0x1p50);
  const TypeParam want[] = {{1, 0}, {0, 1}, {-1, 0}, {0, -1}};
  for (int k = 0; k < 4; ++k) {
    const auto r = this->value("Pow", this->at(0, 1), this->at(turn + E(k), 0));
    EXPECT_EQ(r.re, want[k].re) << k;
    EXPECT_NEAR(r.im, want[k].im, 0) << k;
  }
  const auto r = this->value("Pow", this->at(0, 1), this->at(this->largest, 0));
  EXPECT_EQ(r.re, 1);
  EXPECT_EQ(r.im, 0);
}

TYPED_TEST(ComplexPowers, IToTheIIsReal) {
  using E = typename TestFixture::E;
  const auto r = this->value("Pow", this->at(0, 1), this->at(0, 1));
  EXPECT_EQ(r.re, static_cast<E>(0.20787957635076190855));
  EXPECT_NEAR(r.im, 0, std::numeric_limits<E>::epsilon() / 8);
}

TYPED_TEST(ComplexPowers, PowxIsPowWithOneExponent) {
  using C = TypeParam;
  using E = typename TestFixture::E;
  for (C y : {C{1.5, E(0.7)}, C{-2, 0}, C{0, 0}, C{0, 3}, C{3, 0}}) {
    std::vector<C> x;
    for (E re : {E(-2), E(-0.0), E(0.3), E(50), this->inf}) {
      for (E im : {E(-1), E(0), E(0.4), this->nan}) x.push_back({re, im});
    }
    const std::vector<C> want = this->values("Pow", x, std::vector<C>(x.size(), y));
    for (size_t i = 0; i < x.size(); ++i) {
      EXPECT_TRUE(same_value(this->value("Powx", x[i], y), want[i])) << show(x[i]) << show(y);
    }
  }
}

// Near the unit circle exponents of any size have finite powers: what counts is the angle modulo a turn.
TYPED_TEST(ComplexPowers, LargeExponentsOfNumbersNearTheUnitCircle) {
  using E = typename TestFixture::E;
  std::vector<TypeParam> x, y;
  for (int i = 1; i < 40; ++i) {
    const double angle = 0.16 * i - 3.2;
    for (double size : {30.0, 1e3, 3e4, 1e6, 1e8, 1e11}) {
      x.push_back({static_cast<E>(std::cos(angle)), static_cast<E>(std::sin(angle))});
      // The modulus is 1 but for a rounding: e^(size 2^-53) is no more than a few units.
      const double limited = sizeof(E) == 4 ? std::min(size, 1e8) : size;
      y.push_back({static_cast<E>(limited * (1 + 0.001 * i)), static_cast<E>(0.03 * i)});
    }
  }
  const auto r = this->values("Pow", x, y);
  for (size_t i = 0; i < x.size(); ++i)
    EXPECT_LT(this->power_error(x[i], y[i], r[i]), 1) << show(x[i]) << show(y[i]) << show(r[i]);
}

TYPED_TEST(ComplexPowers, StepsAcrossTheChangeOfMethodDoNotJump) {
  using E = typename TestFixture::E;
  // |y| |log x| through 2^14, 2^18 and 2^36.
  const TypeParam x = {E(0.8), E(0.6)};
  for (double bound : {0x1p14, 0x1p18, 0x1p36}) {
    if (this->format.single && bound > 0x1p24) continue;  // the modulus of these floats is not 1: they leave the range
    E t = static_cast<E>(bound / 0.6435011087932844);
    for (int i = 0; i < 20; ++i) t = std::nextafter(t, E(0));
    for (int i = 0; i < 40; ++i, t = std::nextafter(t, this->inf)) {
      const TypeParam y = {t, 0};
      EXPECT_LT(this->power_error(x, y, this->value("Pow", x, y)), 1) << t;
    }
  }
}

TYPED_TEST(ComplexPowers, BeyondTheRangeBothPartsHaveTheirSigns) {
  using E = typename TestFixture::E;
  std::vector<TypeParam> x, y;
  for (int i = 0; i < 60; ++i) {
    for (double size : {1.1, 3.0, 40.0, 1e3, 1e5, 1e7, 1e9, 1e12}) {
      for (int sign : {1, -1}) {
        x.push_back({static_cast<E>(2.3 * std::cos(0.1 * i)), static_cast<E>(2.3 * std::sin(0.1 * i))});
        y.push_back({static_cast<E>(sign * size * 130), static_cast<E>(0.7 * i * size)});
      }
    }
  }
  const auto r = this->values("Pow", x, y);
  mpc_t base, log, product;
  mpfr_t sine, cosine;
  for (mpc_ptr z : {base, log, product}) mpc_init2(z, 400);
  mpfr_inits2(400, sine, cosine, nullptr);
  int infinities = 0, zeros = 0;
  for (size_t i = 0; i < x.size(); ++i) {
    mpc_set_d_d(base, static_cast<double>(x[i].re), static_cast<double>(x[i].im), MPC_RNDNN);
    mpc_log(log, base, MPC_RNDNN);
    mpc_set_d_d(product, static_cast<double>(y[i].re), static_cast<double>(y[i].im), MPC_RNDNN);
    mpc_mul(product, product, log, MPC_RNDNN);
    mpfr_sin_cos(sine, cosine, mpc_imagref(product), MPFR_RNDN);
    const bool large = mpfr_sgn(mpc_realref(product)) > 0;
    const auto expect_sign = [&](E part, mpfr_srcptr of_angle) {
      if ((!std::isinf(part) && part != 0) || mpfr_zero_p(of_angle) != 0) return;
      ++(part == 0 ? zeros : infinities);
      EXPECT_EQ(std::isinf(part), large) << show(x[i]) << show(y[i]) << show(r[i]);
      EXPECT_EQ(std::signbit(part), mpfr_sgn(of_angle) < 0) << show(x[i]) << show(y[i]) << show(r[i]);
    };
    expect_sign(r[i].re, cosine);
    expect_sign(r[i].im, sine);
  }
  for (mpc_ptr z : {base, log, product}) mpc_clear(z);
  mpfr_clears(sine, cosine, nullptr);
  EXPECT_GT(infinities, 300);
  EXPECT_GT(zeros, 300);
}

TYPED_TEST(ComplexPowers, SquaresAndInversesOfManyNumbers) {
  using E = typename TestFixture::E;
  for (E re : {E(-3), E(-0.25), E(0.125), E(5), E(1e10)}) {
    for (E im : {E(-7), E(0.5), E(2), E(1e-10)}) {
      for (auto y : {this->at(2, 0), this->at(-1, 0), this->at(0.5, 0), this->at(E(0.3), E(-1.7))}) {
        EXPECT_LT(this->power_error({re, im}, y, this->value("Pow", {re, im}, y)), 1) << re << im << show(y);
      }
    }
  }
}

}  // namespace
}  // namespace orvik::test
