// 2^x, 10^x, e^x - 1: special values, codes, exact results, edges.
#include <cmath>
#include <limits>

#include "support/row_calls.h"

namespace orvik::test {
namespace {

template <class E>
class Exponentials : public ElementTest<E> {
 protected:
  using typename ElementTest<E>::L;
  using ElementTest<E>::inf;
  static E next(E x, E towards) { return std::nextafter(x, towards); }
};
TYPED_TEST_SUITE(Exponentials, Elements);

TYPED_TEST(Exponentials, PowersOfTwoAreExactAtIntegers) {
  using E = TypeParam;
  const int last = std::numeric_limits<E>::max_exponent - 1;
  for (int k = std::numeric_limits<E>::min_exponent - 1; k <= last; ++k) {
    expect_unary<E>(row_of<E>("Exp2"), static_cast<E>(k), std::ldexp(E(1), k));
  }
}

TYPED_TEST(Exponentials, PowersOfTwoBelowTheNormalNumbersAreExactWithCode4) {
  using E = TypeParam;
  for (int k = std::numeric_limits<E>::min_exponent - std::numeric_limits<E>::digits;
       k < std::numeric_limits<E>::min_exponent - 1; ++k) {
    expect_unary<E>(row_of<E>("Exp2"), static_cast<E>(k), std::ldexp(E(1), k), zymErrorUnderflow);
  }
}

TYPED_TEST(Exponentials, Exp2OverflowsFromTheFirstPowerThatIsTooLargeWithCode3) {
  using E = TypeParam;
  const E first = static_cast<E>(std::numeric_limits<E>::max_exponent);
  expect_unary<E>(row_of<E>("Exp2"), first, this->inf, zymErrorOverflow);
  EXPECT_TRUE(std::isfinite(evaluate<E>(row_of<E>("Exp2"), 1, this->next(first, 0)).r1));
  EXPECT_EQ(evaluate<E>(row_of<E>("Exp2"), 1, this->next(first, 0)).code, 0);
}

TYPED_TEST(Exponentials, Exp2AndExp10UnderflowToPlusZeroWithCode4) {
  using E = TypeParam;
  const E tie =
      static_cast<E>(std::numeric_limits<E>::min_exponent - std::numeric_limits<E>::digits - 1);  // half the smallest
  expect_unary<E>(row_of<E>("Exp2"), tie, E(0), zymErrorUnderflow);
  expect_unary<E>(row_of<E>("Exp2"), this->next(tie, 0), std::numeric_limits<E>::denorm_min(), zymErrorUnderflow);
  expect_unary<E>(row_of<E>("Exp10"), sizeof(E) == 4 ? E(-45.5) : E(-323.7), E(0), zymErrorUnderflow);
  expect_unary<E>(row_of<E>("Exp10"), E(-1e30), E(0), zymErrorUnderflow);
}

TYPED_TEST(Exponentials, Exp10OverflowsWithCode3) {
  using E = TypeParam;
  const E last = sizeof(E) == 4 ? E(38.53183f) : E(308.25471555991669);
  EXPECT_TRUE(std::isfinite(evaluate<E>(row_of<E>("Exp10"), 1, last).r1));
  expect_unary<E>(row_of<E>("Exp10"), sizeof(E) == 4 ? E(38.53184f) : E(308.2547155599168), this->inf,
                  zymErrorOverflow);
  expect_unary<E>(row_of<E>("Exp10"), std::numeric_limits<E>::max(), this->inf, zymErrorOverflow);
}

TYPED_TEST(Exponentials, SmallPowersOfTenAreExact) {
  using E = TypeParam;
  E want = 1;
  for (int k = 0; k <= (sizeof(E) == 4 ? 10 : 22); ++k, want *= 10) expect_unary<E>(row_of<E>("Exp10"), E(k), want);
}

TYPED_TEST(Exponentials, DenormalResultsOfExp10CarryCode4) {
  using E = TypeParam;
  const E x = sizeof(E) == 4 ? E(-40) : E(-310);
  expect_unary<E>(row_of<E>("Exp10"), x, static_cast<E>(std::pow(10.0L, static_cast<long double>(x))),
                  zymErrorUnderflow);
}

TYPED_TEST(Exponentials, SpecialValuesOfExp2AndExp10) {
  using E = TypeParam;
  for (const char* function : {"Exp2", "Exp10"}) {
    expect_unary<E>(row_of<E>(function), this->inf, this->inf);
    expect_unary<E>(row_of<E>(function), -this->inf, E(0));
    expect_unary<E>(row_of<E>(function), this->nan, this->nan);
    expect_unary<E>(row_of<E>(function), E(0), E(1));
    expect_unary<E>(row_of<E>(function), E(-0.0), E(1));
  }
}

TYPED_TEST(Exponentials, SpecialValuesOfExpm1) {
  using E = TypeParam;
  const std::string name = row_of<E>("Expm1");
  expect_unary<E>(name, this->inf, this->inf);
  expect_unary<E>(name, -this->inf, E(-1));
  expect_unary<E>(name, this->nan, this->nan);
  expect_unary<E>(name, E(0), E(0));
  expect_unary<E>(name, E(-0.0), E(-0.0));
}

TYPED_TEST(Exponentials, Expm1OverflowsWithCode3AndNeverUnderflows) {
  using E = TypeParam;
  const std::string name = row_of<E>("Expm1");
  const E last = sizeof(E) == 4 ? E(88.72283172607422f) : E(709.782712893384);
  EXPECT_TRUE(std::isfinite(evaluate<E>(name, 0, last).r1));
  expect_unary<E>(name, this->next(last, this->inf), this->inf, zymErrorOverflow);
  expect_unary<E>(name, E(-80), E(-1));
  expect_unary<E>(name, E(-1000), E(-1));
  const E tiny = std::numeric_limits<E>::denorm_min();
  expect_unary<E>(name, tiny, tiny);
  expect_unary<E>(name, -tiny, -tiny);
}

TYPED_TEST(Exponentials, Expm1BesideItsFastPath) {
  using E = TypeParam;
  for (E x :
       {sizeof(E) == 4 ? E(86.6f) : E(707.6), sizeof(E) == 4 ? E(86.7f) : E(707.8), sizeof(E) == 4 ? E(88) : E(709)}) {
    const long double want = std::expm1(static_cast<long double>(x));
    const auto got = evaluate<E>(row_of<E>("Expm1"), 1, x);
    EXPECT_LE(std::fabs(got.r1 / want - 1), std::numeric_limits<E>::epsilon()) << x;
    EXPECT_EQ(got.code, 0);
  }
}

}  // namespace
}  // namespace orvik::test
