// Every combination of special parts against Annex G and MPC, symmetries to the last bit, NaNs, denormals.
#include "loops.h"

namespace orvik::test {
namespace {

template <class C>
class ComplexLoops : public LoopTest<C> {
 protected:
  using typename LoopTest<C>::E;
  static std::vector<E> special() {
    using T = LoopTest<C>;
    return {-T::inf, -T::largest, -1, -T::tiny, E(-0.0), 0, T::smallest, 1, T::largest, T::inf, T::nan};
  }
};
TYPED_TEST_SUITE(ComplexLoops, ComplexElements);

TYPED_TEST(ComplexLoops, ElevenByElevenSpecialPartsAreAsAnnexGSays) {
  for (const char* f : kUnaryLoops) {
    for (auto x : this->special()) {
      for (auto y : this->special()) {
        const auto z = this->at(x, y);
        const auto got = this->value(f, z);
        EXPECT_LT(this->part_error(f, z, got), 1) << f << show(z) << " is " << show(got);
      }
    }
  }
}

TYPED_TEST(ComplexLoops, AllLevelsAreOneKernel) {
  for (const char* f : kUnaryLoops) {
    const Row& row = row_named(this->row(f));
    for (bool strided : {false, true}) {
      void** slots = rows::table_row(row.index + (strided ? rows::kUnitRows : 0));
      EXPECT_EQ(slots[0], slots[1]) << f;
      EXPECT_EQ(slots[0], slots[2]) << f;
    }
  }
}

TYPED_TEST(ComplexLoops, ConjugatesGoToConjugatesToTheLastBit) {
  using E = typename TestFixture::E;
  std::vector<E> parts = this->special();
  for (E x : {E(0.3), E(-0.7), E(1.5), E(-20), E(1e5), E(1e-20)}) parts.push_back(x);
  std::vector<TypeParam> z, conjugate;
  for (E x : parts) {
    for (E y : parts) z.push_back({x, y}), conjugate.push_back({x, -y});
  }
  for (const char* f : kUnaryLoops) {
    const auto r = this->values(f, z), s = this->values(f, conjugate);
    for (size_t i = 0; i < z.size(); ++i) {
      if (std::isnan(z[i].re) || std::isnan(z[i].im)) continue;
      EXPECT_TRUE(same_value(r[i].re, s[i].re)) << f << show(z[i]);
      const bool any_sign =
          std::isinf(z[i].re) != 0 || std::isinf(z[i].im) != 0;  // zeros and infinities whose sign is free
      EXPECT_TRUE(same_value(r[i].im, -s[i].im) || (any_sign && same_value(std::fabs(r[i].im), std::fabs(s[i].im))))
          << f << show(z[i]) << show(r[i]) << show(s[i]);
    }
  }
}

TYPED_TEST(ComplexLoops, OddFunctionsAreOddToTheLastBit) {
  using E = typename TestFixture::E;
  const std::vector<E> parts = {-this->inf,     -this->largest, E(-20), E(-0.7), -this->tiny, E(-0.0), 0,
                                this->smallest, E(1e-20),       E(0.3), 1,       E(1.5),      E(1e5),  this->inf};
  std::vector<TypeParam> z, minus;
  for (E x : parts) {
    for (E y : parts) z.push_back({x, y}), minus.push_back({-x, -y});
  }
  for (const char* f : {"Sin", "Tan", "Sinh", "Tanh", "Asin", "Atan", "Asinh", "Atanh"}) {
    const auto r = this->values(f, z), s = this->values(f, minus);
    for (size_t i = 0; i < z.size(); ++i) {
      if (std::isinf(z[i].re) || std::isinf(z[i].im)) {
        EXPECT_TRUE(same_value(std::fabs(r[i].re), std::fabs(s[i].re))) << f << show(z[i]);
        EXPECT_TRUE(same_value(std::fabs(r[i].im), std::fabs(s[i].im))) << f << show(z[i]);
      } else {
        EXPECT_TRUE(same_value(r[i].re, -s[i].re) && same_value(r[i].im, -s[i].im)) << f << show(z[i]);
      }
    }
  }
}

TYPED_TEST(ComplexLoops, OnTheRealAxisTheImaginaryPartIsAZeroWithItsSign) {
  using E = typename TestFixture::E;
  for (const char* f : {"Sin", "Tan", "Sinh", "Tanh", "Atan", "Asinh"}) {
    for (E x : {E(0.5), E(-0.5)}) {
      const auto upper = this->value(f, this->at(x, 0)), lower = this->value(f, this->at(x, E(-0.0)));
      EXPECT_TRUE(same_value(upper.im, E(0))) << f << x;
      EXPECT_TRUE(same_value(lower.im, E(-0.0))) << f << x;
      EXPECT_TRUE(same_value(upper.re, lower.re)) << f << x;
    }
  }
}

TYPED_TEST(ComplexLoops, ZeroIsZeroWithBothSigns) {
  using E = typename TestFixture::E;
  for (const char* f : {"Sin", "Tan", "Sinh", "Tanh", "Asin", "Atan", "Asinh", "Atanh"}) {
    for (E x : {E(0), E(-0.0)}) {
      for (E y : {E(0), E(-0.0)}) {
        EXPECT_TRUE(same_value(this->value(f, this->at(x, y)), this->at(x, y))) << f << x << y;
      }
    }
  }
}

TYPED_TEST(ComplexLoops, Log10OfZeroIsMinusInfinityAndOfPowersOfTenIsExact) {
  using E = typename TestFixture::E;
  EXPECT_TRUE(same_value(this->value("Log10", this->at(0, 0)), this->at(-this->inf, 0)));
  EXPECT_TRUE(same_value(this->value("Log10", this->at(0, E(-0.0))), this->at(-this->inf, E(-0.0))));
  EXPECT_TRUE(same_value(this->value("Log10", this->at(1, 0)), this->at(0, 0)));
  for (E x : {E(10), E(100), E(1000), E(1e10)}) {
    EXPECT_TRUE(same_value(this->value("Log10", this->at(x, 0)), this->at(std::log10(x), 0))) << x;
  }
}

TYPED_TEST(ComplexLoops, NansInEitherPartGiveNansWithoutReport) {
  using E = typename TestFixture::E;
  for (const char* f : kUnaryLoops) {
    for (E y : {E(0.5), E(-3), this->nan}) {
      for (const auto z : {this->at(this->nan, y), this->at(y, this->nan)}) {
        const auto got = this->outcome(f, z);
        EXPECT_TRUE(std::isnan(got.r1.re) || std::isnan(got.r1.im)) << f << show(z);
        EXPECT_EQ(got.code, 0) << f << show(z);
      }
    }
  }
}

TYPED_TEST(ComplexLoops, DenormalsKeepTheirPrecision) {
  using E = typename TestFixture::E;
  for (const char* f : kUnaryLoops) {
    for (E x : {this->tiny, 5 * this->tiny, this->smallest / 2, this->smallest, 3 * this->smallest}) {
      for (E y : {E(0), x, E(0.3), E(1), E(1.7), E(30)}) {
        for (const auto z : {this->at(x, y), this->at(y, x), this->at(-y, x), this->at(x, -y)}) {
          const auto got = this->value(f, z);
          EXPECT_LT(this->part_error(f, z, got), 1) << f << show(z) << " is " << show(got);
        }
      }
    }
  }
}

TYPED_TEST(ComplexLoops, WithTheFlushFieldDenormalsAreZeros) {
  using E = typename TestFixture::E;
  const uint32_t mode = _zymSetMode(ZYM_ERRMODE_IGNORE | 0x280000);
  for (const char* f : kUnaryLoops) {
    const std::vector<TypeParam> z = {{this->smallest / 2, E(0.5)},
                                      {E(0.5), this->smallest / 2},
                                      {this->tiny, this->smallest / 4},
                                      {E(2), -this->tiny},
                                      {this->inf, this->tiny},
                                      {-this->inf, -this->tiny},
                                      {this->tiny, this->inf},
                                      {this->nan, this->tiny},
                                      {-this->tiny, this->nan}};
    const std::vector<TypeParam> zeros = {{0, E(0.5)},       {E(0.5), 0},    {0, 0},         {E(2), E(-0.0)},   {this->inf, 0},
                                          {-this->inf, E(-0.0)}, {0, this->inf}, {this->nan, 0}, {E(-0.0), this->nan}};
    const auto r = this->values(f, z), s = this->values(f, zeros);
    for (size_t i = 0; i < z.size(); ++i)
      EXPECT_TRUE(same_value(r[i], s[i])) << f << show(z[i]) << show(r[i]) << show(s[i]);
  }
  _zymSetMode(mode | 0x140000);
}

}  // namespace
}  // namespace orvik::test
