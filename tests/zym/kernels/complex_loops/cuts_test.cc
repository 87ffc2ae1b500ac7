// Branch cuts walked from both sides. On a cut the sign of the zero says which side the point belongs to, and the value
// is that of the side; across it the function jumps (Kahan 1987).
#include <numbers>

#include "loops.h"

namespace orvik::test {
namespace {

struct Cut {
  const char* function;
  bool imaginary_axis;  // where it lies
  double from;          // and all beyond it on the ray
  int ray;              // 1, -1
  bool imaginary_part_jumps;
};
constexpr Cut kCuts[] = {
    {"Asin", false, 1, 1, true},   {"Asin", false, 1, -1, true},  {"Acos", false, 1, 1, true},
    {"Acos", false, 1, -1, true},  {"Acosh", false, -1, 1, true}, {"Atanh", false, 1, 1, true},
    {"Atanh", false, 1, -1, true}, {"Asinh", true, 1, 1, false},  {"Asinh", true, 1, -1, false},
    {"Atan", true, 1, 1, false},   {"Atan", true, 1, -1, false},  {"Log10", false, 0, -1, true},
};

template <class C>
class Cuts : public LoopTest<C> {
 protected:
  using typename LoopTest<C>::E;
  // Points of the ray, closest to its end first.
  static std::vector<E> along(const Cut& cut) {
    const E end = static_cast<E>(cut.from);
    std::vector<E> t;
    if (cut.from >= 0) {
      E x = end;
      for (int i = 0; i < 4 && cut.from > 0; ++i) t.push_back(x = std::nextafter(x, LoopTest<C>::inf));
      for (double more : {1e-4, 0.3, 1.0, 20.0, 1e9, 1e30}) t.push_back(static_cast<E>(cut.from + more));
    } else {  // acosh: all below 1
      for (double x : {0.9999, 0.5, 1e-20, -0.3, -1.0, -1.5, -30.0, -1e9}) t.push_back(static_cast<E>(x));
    }
    return t;
  }
  static C point(const Cut& cut, E t, E side) {
    const E x = cut.from >= 0 ? static_cast<E>(cut.ray) * t : t;
    return cut.imaginary_axis ? C{side, x} : C{x, side};
  }
};
TYPED_TEST_SUITE(Cuts, ComplexElements);

TYPED_TEST(Cuts, TheSignOfZeroChoosesTheSide) {
  using E = typename TestFixture::E;
  for (const Cut& cut : kCuts) {
    for (E t : this->along(cut)) {
      for (E sign : {E(1), E(-1)}) {
        const auto on = this->value(cut.function, this->point(cut, t, sign * E(0)));
        const auto beside = this->value(cut.function, this->point(cut, t, sign * this->tiny));
        const auto jump = [&](TypeParam r) { return cut.imaginary_part_jumps ? r.im : r.re; };
        EXPECT_EQ(std::signbit(jump(on)), std::signbit(jump(beside))) << cut.function << t << " " << sign;
        EXPECT_NEAR(jump(on), jump(beside), std::fabs(jump(on)) * std::numeric_limits<E>::epsilon())
            << cut.function << t;
        EXPECT_LT(this->part_error(cut.function, this->point(cut, t, sign * E(0)), on), 1) << cut.function << t;
        EXPECT_LT(this->part_error(cut.function, this->point(cut, t, sign * this->tiny), beside), 1)
            << cut.function << t;
      }
    }
  }
}

TYPED_TEST(Cuts, AcrossThemTheFunctionsJump) {
  using E = typename TestFixture::E;
  for (const Cut& cut : kCuts) {
    for (E t : this->along(cut)) {
      const auto upper = this->value(cut.function, this->point(cut, t, E(0)));
      const auto lower = this->value(cut.function, this->point(cut, t, E(-0.0)));
      const E a = cut.imaginary_part_jumps ? upper.im : upper.re, b = cut.imaginary_part_jumps ? lower.im : lower.re;
      EXPECT_EQ(a, -b) << cut.function << t;
      EXPECT_NE(a, 0) << cut.function << t;
    }
  }
}

// Off the cuts, on the rest of the axis, both sides have one value.
TYPED_TEST(Cuts, BetweenThemTheFunctionsAreContinuous) {
  using E = typename TestFixture::E;
  for (const char* f : {"Asin", "Acos", "Atanh"}) {
    for (E x : {E(0.5), E(-0.5), std::nextafter(E(1), E(0)), -std::nextafter(E(1), E(0))}) {
      EXPECT_EQ(this->value(f, this->at(x, 0)).re, this->value(f, this->at(x, E(-0.0))).re) << f << x;
      EXPECT_EQ(this->value(f, this->at(x, 0)).im, 0) << f << x;
      EXPECT_EQ(this->value(f, this->at(x, E(-0.0))).im, 0) << f << x;
    }
  }
}

TYPED_TEST(Cuts, ThePowersCutIsTheLogarithms) {
  using E = typename TestFixture::E;
  const auto exponent = this->at(E(0.5), 0);
  for (E x : {E(-1), E(-4), E(-1e-3), E(-1e6)}) {
    const auto upper = this->value("Pow", this->at(x, 0), exponent),
               lower = this->value("Pow", this->at(x, E(-0.0)), exponent);
    EXPECT_NEAR(upper.im, std::sqrt(-x), std::sqrt(-x) * std::numeric_limits<E>::epsilon()) << x;
    EXPECT_EQ(lower.im, -upper.im) << x;
    EXPECT_LT(this->power_error(this->at(x, -this->tiny), exponent, lower), 1) << x;
    EXPECT_LT(this->power_error(this->at(x, this->tiny), exponent, upper), 1) << x;
  }
}

}  // namespace
}  // namespace orvik::test
