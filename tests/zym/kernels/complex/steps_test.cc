// Walks by single steps over every threshold of the lanes: the error stays within the level's bound on both sides.
#include <cmath>

#include "accuracy/measure.h"
#include "complex_rows.h"

namespace orvik::test {
namespace {

using accuracy::Point;

template <class C>
class ComplexSteps : public ComplexTest<C> {
 protected:
  using E = Part<C>;
  static constexpr bool single = sizeof(E) == 4;

  static void expect_within_bound(const std::string& function, std::initializer_list<E> parts) {
    const Row& row = row_named(ComplexTest<C>::row(function));
    Point point;
    size_t i = 0;
    for (E part : parts) point.arguments[i++] = part;
    const accuracy::Measure measure = accuracy::measures_of(row).front();
    for (int kernel : accuracy::kernels_of(row)) {
      const accuracy::Worst worst = accuracy::measure_point(row, kernel, point, 0, measure);
      EXPECT_TRUE(accuracy::within_bound(row, kernel, worst))
          << row.name << ' ' << kLevelNames[kernel] << " of " << point.arguments[0] << ", " << point.arguments[1]
          << ", " << point.arguments[2] << ", " << point.arguments[3] << ": got " << worst.got << ", want "
          << worst.wanted;
    }
  }

  // From a few steps below t to a few above.
  template <class F>
  static void around(double t, F f) {
    E x = static_cast<E>(t);
    for (int i = 0; i < 5; ++i) x = std::nextafter(x, E(0));
    for (int i = 0; i < 10; ++i, x = std::nextafter(x, std::numeric_limits<E>::infinity())) f(x), f(-x);
  }
};
TYPED_TEST_SUITE(ComplexSteps, ComplexElements);

TYPED_TEST(ComplexSteps, ExpAcrossTheEndsOfItsRealPart) {
  using E = typename TestFixture::E;
  for (double t : this->single ? std::vector{87.33654, 88.72284, 103.97208, 192.0}
                               : std::vector{708.39641, 709.78271, 745.13322, 1500.0}) {
    this->around(t, [&](E x) {
      for (E y : {E(0.5), E(-2), E(1e-30), E(1.5707964), E(70000), E(1e10)}) this->expect_within_bound("Exp", {x, y});
    });
  }
}

TYPED_TEST(ComplexSteps, ExpAndCisAcrossTheThresholdsOfTheAngle) {
  using E = typename TestFixture::E;
  for (double t :
       {256.0, 10000.0, 65536.0, 524288.0, 16777216.0, 0.7853981633974483, 1.5707963267948966, 3.141592653589793}) {
    this->around(t, [&](E y) {
      for (E x : {E(0), E(-87), E(80)}) this->expect_within_bound("Exp", {x, y});
      this->expect_within_bound("CIS", {y});
    });
  }
}

TYPED_TEST(ComplexSteps, LnAndArgAcrossTheRangeOfTheLanes) {
  using E = typename TestFixture::E;
  const int near = this->single ? 38 : 400, far = this->single ? 120 : 1010;
  for (int e : {-far, -near, near, far}) {
    this->around(std::ldexp(1.0, e), [&](E x) {
      for (E y : {E(0), E(1), x, -x, x * E(0x1p-30), static_cast<E>(std::ldexp(1.0, -near)),
                  static_cast<E>(std::ldexp(1.0, near))}) {
        for (const char* function : {"Ln", "Arg"}) {
          this->expect_within_bound(function, {x, y});
          this->expect_within_bound(function, {y, x});
        }
      }
    });
  }
}

TYPED_TEST(ComplexSteps, LnAcrossTheUnitCircle) {
  using E = typename TestFixture::E;
  for (double t : {0.6, 0.28, 0.8, 1.0, 0.7071067811865476, 0.0009765625, 0.99}) {
    const double other = std::sqrt(1 - t * t);
    this->around(t, [&](E x) {
      E y = static_cast<E>(other);
      for (int i = 0; i < 3; ++i, y = std::nextafter(y, E(2))) {
        this->expect_within_bound("Ln", {x, y});
        this->expect_within_bound("Ln", {y, x});
      }
    });
  }
  // Next to 1, where both parts are tiny.
  for (int e = -1; e > -70; e -= 3) {
    for (int f = -1; f > -70; f -= 5) {
      this->expect_within_bound("Ln", {static_cast<E>(1 + std::ldexp(1.0, e)), static_cast<E>(std::ldexp(1.0, f))});
      this->expect_within_bound("Ln", {static_cast<E>(1 - std::ldexp(1.0, e)), static_cast<E>(-std::ldexp(1.0, f))});
    }
  }
}

TYPED_TEST(ComplexSteps, SqrtAndAbsAcrossTheRangeOfTheLanes) {
  using E = typename TestFixture::E;
  for (int e :
       this->single ? std::vector{-126, -61, -50, 63, 126} : std::vector{-1022, -508, -500, -450, 500, 510, 1022}) {
    this->around(std::ldexp(1.0, e), [&](E x) {
      for (E y : {E(0), E(1), x, x * E(0.5), x * E(0x1p-20), this->tiny}) {
        for (const char* function : {"Sqrt", "Abs"}) {
          this->expect_within_bound(function, {x, y});
          this->expect_within_bound(function, {y, x});
        }
      }
    });
  }
}

TYPED_TEST(ComplexSteps, ProductsAcrossTheLeastResultOfTheLanes) {
  using E = typename TestFixture::E;
  const int limit = this->single ? -98 : -964;
  for (int e : {limit, TestFixture::L::min_exponent - 1, TestFixture::L::min_exponent - 12}) {
    this->around(std::ldexp(1.0, e / 2), [&](E x) {
      const E s = static_cast<E>(std::ldexp(1.0, e - e / 2));
      for (E y : {x, x * E(0.75), E(0)}) {
        this->expect_within_bound("Mul", {x, y, s * E(0.7), s * E(-1.3)});
        this->expect_within_bound("MulByConj", {x, y, s * E(0.7), s * E(-1.3)});
      }
    });
  }
}

TYPED_TEST(ComplexSteps, ProductsAndQuotientsAcrossTheEndOfTheRange) {
  using E = typename TestFixture::E;
  const E h = std::ldexp(E(1), TestFixture::L::max_exponent / 2);
  this->around(h, [&](E x) {
    for (E y : {E(1), x * E(0.5), -x}) {
      this->expect_within_bound("Mul", {x, y, h * E(0.99), E(1)});
      this->expect_within_bound("MulByConj", {x, y, h * E(0.99), -h / 4});
      this->expect_within_bound("Div", {x, y, 1 / h, E(0)});
    }
  });
}

TYPED_TEST(ComplexSteps, QuotientsAcrossTheRangeOfTheLanes) {
  using E = typename TestFixture::E;
  for (int e : this->single ? std::vector{-30, 30, -126, 126} : std::vector{-300, 300, -1022, 1022}) {
    this->around(std::ldexp(1.0, e), [&](E x) {
      for (E y : {E(0), E(1), x * E(0.5), -x}) {
        this->expect_within_bound("Div", {x, y, E(1.5), E(-0.7)});
        this->expect_within_bound("Div", {E(1.5), E(-0.7), x, y});
        this->expect_within_bound("Div", {y, x, x, y});
      }
    });
  }
}

TYPED_TEST(ComplexSteps, QuotientsOfNumbersFarFromOneAreThoseOfNumbersNearIt) {
  using E = typename TestFixture::E;
  const auto scaled = [](TypeParam z, int e) { return TypeParam{std::ldexp(z.re, e), std::ldexp(z.im, e)}; };
  const int range = this->single ? 120 : 1000;
  const std::vector<int> exponents = this->single ? std::vector{-120, -31, 0, 31, 120}
                                                  : std::vector{-1005, -700, -301, -299, 0, 299, 301, 700, 1005};
  int compared = 0;
  for (int i = 0; i < 40; ++i) {
    const TypeParam x = {E(1 + 0.03125 * i), i % 8 == 0 ? E(0) : static_cast<E>(std::sin(1.0 * i))};
    const TypeParam y = {static_cast<E>(std::cos(2.0 * i)), i % 8 == 4 ? E(0) : E(-1.25)};
    const TypeParam near = evaluate<TypeParam>(this->row("Div"), 1, x, y).r1;
    for (int of_x : exponents) {
      for (int of_y : exponents) {
        const TypeParam u = scaled(x, of_x), v = scaled(y, of_y);
        this->expect_within_bound("Div", {u.re, u.im, v.re, v.im});
        if (std::abs(of_x - of_y) > range) continue;
        const TypeParam far = evaluate<TypeParam>(this->row("Div"), 1, u, v).r1, want = scaled(near, of_x - of_y);
        if (std::fmin(std::fabs(want.re), std::fabs(want.im)) < std::numeric_limits<E>::min()) continue;
        EXPECT_TRUE(far.re == want.re && far.im == want.im) << show(u) << show(v) << show(far) << show(want);
        ++compared;
      }
    }
  }
  EXPECT_GT(compared, 300);
}

}  // namespace
}  // namespace orvik::test
