// The floating-point flags that Bessel functions leave: those that IEEE 754 allows for the exact result, inexact aside.
#include <cfenv>
#include <cmath>

#include "support/row_calls.h"

namespace orvik::test {
namespace {

constexpr int kSevere = FE_INVALID | FE_DIVBYZERO | FE_OVERFLOW | FE_UNDERFLOW;

template <class E>
int flags_of(const std::string& name, bool strided, E x, int32_t order, E plain = E(0.75)) {
  const uint32_t mode = _zymSetMode(ZYM_ERRMODE_NOERR);
  std::vector<E> a(150, plain), r1(150);
  a[3] = a[41] = a[70] = x;
  Call<E> c;
  c.n = 71, c.a = a.data(), c.r1 = r1.data(), c.order = order;
  std::feclearexcept(FE_ALL_EXCEPT);
  EXPECT_TRUE(call_row(row_named(name), 1, strided, c));
  const int flags = std::fetestexcept(kSevere);
  std::feclearexcept(FE_ALL_EXCEPT);
  _zymSetMode(mode | 0x140000);
  return flags;
}

template <class E>
class BesselFlags : public ElementTest<E> {
 protected:
  static void expect(std::initializer_list<const char*> functions, std::initializer_list<E> xs, int flags) {
    for (const char* f : functions) {
      const bool any_order = std::string(f).ends_with('n');
      for (int32_t order : {0, 1, 3, 30}) {
        if (order != 0 && !any_order) continue;
        for (bool strided : {false, true}) {
          for (E x : xs)
            EXPECT_EQ(flags_of(row_of<E>(f), strided, x, order, E(any_order ? 30 : 0.75)), flags)
                << f << order << strided << ' ' << x;
        }
      }
    }
  }
};
TYPED_TEST_SUITE(BesselFlags, Elements);

TYPED_TEST(BesselFlags, FiniteArgumentsOfTheFirstKindRaiseNone) {
  using E = TypeParam;
  this->expect(
      {"J0", "J1", "Jn"},
      {E(0), E(-0.0), E(1), E(-40), E(64), E(9000), E(70000), E(1e30), this->largest, this->smallest, this->tiny}, 0);
}
TYPED_TEST(BesselFlags, FiniteArgumentsOfTheSecondKindRaiseNone) {
  using E = TypeParam;
  this->expect({"Y0", "Y1"}, {E(0.01), E(1), E(40), E(64), E(9000), E(70000), E(1e30), this->largest, E(0x1p-120)}, 0);
  this->expect({"Y0"}, {this->smallest, this->tiny}, 0);
  this->expect({"Yn"}, {E(20), E(40), E(64), E(9000), E(70000), E(1e30), this->largest}, 0);
}
TYPED_TEST(BesselFlags, FiniteResultsOfTheModifiedFunctionsRaiseNone) {
  using E = TypeParam;
  this->expect({"I0", "I1"}, {E(0), E(1), E(-20), E(31.75), E(-90), sizeof(E) == 4 ? E(91.9) : E(713.98), this->tiny},
               0);
}
TYPED_TEST(BesselFlags, OverflowRaisesOverflow) {
  using E = TypeParam;
  this->expect({"Y1"}, {this->tiny}, FE_OVERFLOW);
  // With reports off the skeleton may write infinity itself.
  for (const char* f : {"I0", "I1"}) {
    EXPECT_EQ(flags_of(row_of<E>(f), false, E(800), 0) & ~FE_OVERFLOW, 0) << f;
  }
  for (int32_t order : {3, 30, 1000}) {
    EXPECT_EQ(flags_of(row_of<E>("Yn"), false, this->smallest, order, E(500)), FE_OVERFLOW) << order;
  }
}
TYPED_TEST(BesselFlags, PolesRaiseDivisionByZero) {
  using E = TypeParam;
  this->expect({"Y0", "Y1", "Yn"}, {E(0), E(-0.0)}, FE_DIVBYZERO);
}
TYPED_TEST(BesselFlags, SecondKindOfANegativeRaisesInvalid) {
  using E = TypeParam;
  this->expect({"Y0", "Y1", "Yn"}, {E(-1), -this->inf, -this->tiny}, FE_INVALID);
}
TYPED_TEST(BesselFlags, InfinitiesAndQuietNansRaiseNone) {
  this->expect({"I0", "I1", "J0", "J1", "Jn", "Y0", "Y1", "Yn"}, {this->inf, this->nan}, 0);
}
TYPED_TEST(BesselFlags, SignallingNansRaiseInvalid) {
  using E = TypeParam;
  this->expect({"I0", "I1", "J0", "J1", "Jn", "Y0", "Y1", "Yn"}, {std::numeric_limits<E>::signaling_NaN()}, FE_INVALID);
}

}  // namespace
}  // namespace orvik::test
