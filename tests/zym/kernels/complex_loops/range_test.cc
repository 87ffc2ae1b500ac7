// The ends of the range by single steps, the unit circle, singular points, large angles: no part is off by an ulp.
#include "loops.h"

namespace orvik::test {
namespace {

template <class C>
class ComplexRange : public LoopTest<C> {
 protected:
  using typename LoopTest<C>::E;
  static void expect_close(const char* f, C z) {
    const C got = LoopTest<C>::value(f, z);
    EXPECT_LT(LoopTest<C>::part_error(f, z, got), 1) << f << show(z) << " is " << show(got);
  }
  // Twenty numbers on both sides.
  static std::vector<E> steps(double x) {
    E t = static_cast<E>(x);
    for (int i = 0; i < 10; ++i) t = std::nextafter(t, -LoopTest<C>::inf);
    std::vector<E> all;
    for (int i = 0; i < 20; ++i, t = std::nextafter(t, LoopTest<C>::inf)) all.push_back(t);
    return all;
  }
};
TYPED_TEST_SUITE(ComplexRange, ComplexElements);

TYPED_TEST(ComplexRange, OverflowByStepsOfTheExponent) {
  using E = typename TestFixture::E;
  for (double bound :
       {sizeof(E) == 4 ? 88.72283 : 709.782712893384, sizeof(E) == 4 ? 89.41598629 : 710.4758600739439}) {
    for (E t : this->steps(bound)) {
      for (const char* f : {"Sinh", "Cosh"}) {
        for (E y : {E(0), E(0.7), E(1.5), E(-3)}) this->expect_close(f, {t, y}), this->expect_close(f, {-t, y});
      }
      for (const char* f : {"Sin", "Cos"}) this->expect_close(f, {E(0.3), t}), this->expect_close(f, {E(2), -t});
    }
  }
}

TYPED_TEST(ComplexRange, APartThatATinySineBringsBackIntoRange) {
  using E = typename TestFixture::E;
  const E large = sizeof(E) == 4 ? E(150) : E(1300);
  for (E y : {this->tiny, 7 * this->tiny, this->smallest, this->smallest * 1024}) {
    this->expect_close("Sinh", {large, y});
    this->expect_close("Cosh", {-large, y});
    this->expect_close("Cosh", {this->largest, y});
    this->expect_close("Sin", {y, large});
  }
}

TYPED_TEST(ComplexRange, TangentsByStepsOfWhereTheyFlatten) {
  using E = typename TestFixture::E;
  for (double bound : {22.0, 9.01, 19.06, 44.0, 372.0}) {
    for (E t : this->steps(bound)) {
      for (E y : {E(0), E(0.7), E(1.5707964), E(3)})
        this->expect_close("Tanh", {t, y}), this->expect_close("Tan", {y, -t});
    }
  }
  for (E x : {E(40), E(52), E(360), E(373), E(1e5), this->largest}) this->expect_close("Tanh", {x, E(0.4)});
}

TYPED_TEST(ComplexRange, TangentNextToItsPoles) {
  using E = typename TestFixture::E;
  for (double pole : {1.5707963267948966, 4.71238898038469, -7.853981633974483}) {
    for (E t : this->steps(pole)) {
      for (E y : {E(0), this->tiny, E(1e-20), E(1e-8)})
        this->expect_close("Tan", {t, y}), this->expect_close("Tanh", {y, t});
    }
  }
}

TYPED_TEST(ComplexRange, ArcFunctionsNextToOneAndOnTheUnitCircle) {
  using E = typename TestFixture::E;
  for (const char* f : {"Asin", "Acos", "Asinh", "Acosh", "Atan", "Atanh"}) {
    for (E t : this->steps(1)) {
      for (E y : {E(0), this->tiny, this->smallest, E(1e-30), E(1e-9), std::numeric_limits<E>::epsilon(), E(1e-3)}) {
        this->expect_close(f, {t, y}), this->expect_close(f, {y, t}), this->expect_close(f, {-t, -y});
      }
    }
    for (int i = 0; i < 60; ++i)
      this->expect_close(f, {static_cast<E>(std::cos(0.1 * i)), static_cast<E>(std::sin(0.1 * i))});
  }
}

TYPED_TEST(ComplexRange, ArcFunctionsOfLargeAndTinyNumbers) {
  using E = typename TestFixture::E;
  const std::vector<E> sizes = {
      this->largest, this->largest / 2,         std::sqrt(this->largest), E(0x1p99),  E(0x1p100),
      E(0x1p101),    std::sqrt(this->smallest), this->smallest,           this->tiny, E(0x1p-120),
      E(2)};
  for (const char* f : {"Asin", "Acos", "Asinh", "Acosh", "Atan", "Atanh", "Log10"}) {
    for (E x : sizes) {
      for (E y : sizes) this->expect_close(f, {x, y}), this->expect_close(f, {-x, y});
    }
  }
}

TYPED_TEST(ComplexRange, Log10NextToTheUnitCircleKeepsItsRealPart) {
  using E = typename TestFixture::E;
  for (double x : {0.6, 0.8, 0.28, 0.96, 0.7071067811865476, 1.0, 1e-5, 1e-9}) {
    for (E re : this->steps(x)) {
      const E im = static_cast<E>(std::sqrt(std::max(0.0, 1 - x * x)));
      this->expect_close("Log10", {re, im}), this->expect_close("Log10", {-im, re});
    }
  }
}

TYPED_TEST(ComplexRange, LargeAnglesAreReducedExactly) {
  using E = typename TestFixture::E;
  for (const char* f : {"Sin", "Cos", "Tan"}) {
    for (E x : {E(65535.5), E(65536), E(65537), E(1e22), this->largest, std::ldexp(E(16367173), 72)}) {
      for (E y : {E(0), E(0.5), E(-3)}) this->expect_close(f, {x, y}), this->expect_close(f, {-x, y});
    }
  }
  for (const char* f : {"Sinh", "Cosh", "Tanh"}) this->expect_close(f, {E(0.5), this->largest});
}

}  // namespace
}  // namespace orvik::test
