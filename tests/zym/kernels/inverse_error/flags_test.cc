// The floating-point flags that the inverse error functions leave: those that IEEE 754 allows for the exact result,
// inexact aside.
#include <cfenv>
#include <cmath>

#include "support/row_calls.h"

namespace orvik::test {
namespace {

constexpr int kSevere = FE_INVALID | FE_DIVBYZERO | FE_OVERFLOW | FE_UNDERFLOW;

template <class E>
int flags_of(const char* name, int level, bool strided, E x) {
  const uint32_t mode = _zymSetMode(ZYM_ERRMODE_NOERR);
  std::vector<E> a(150, E(0.75)), r(150);
  a[3] = a[41] = a[70] = x;
  Call<E> c;
  c.n = 71, c.a = a.data(), c.r1 = r.data();
  std::feclearexcept(FE_ALL_EXCEPT);
  EXPECT_TRUE(call_row(row_named(row_of<E>(name)), level, strided, c));
  const int flags = std::fetestexcept(kSevere);
  std::feclearexcept(FE_ALL_EXCEPT);
  _zymSetMode(mode | 0x140000);
  return flags;
}

template <class E>
class InverseErrorFlags : public ElementTest<E> {
 protected:
  static void expect(const char* name, std::initializer_list<E> xs, int flags) {
    for (int level = 0; level < 3; ++level) {
      for (bool strided : {false, true}) {
        for (E x : xs) {
          EXPECT_EQ(flags_of<E>(name, level, strided, x), flags) << name << kLevelNames[level] << strided << " " << x;
        }
      }
    }
  }
};
TYPED_TEST_SUITE(InverseErrorFlags, Elements);

TYPED_TEST(InverseErrorFlags, ArgumentsInsideTheDomainRaiseNone) {
  using E = TypeParam;
  const E root = std::sqrt(this->smallest);
  const E below_one = std::nextafter(E(1), E(0)), below_two = std::nextafter(E(2), E(0));
  this->expect("ErfInv", {E(0), E(-0.0), E(0.5), E(-0.9), root, root / 64, this->smallest * 4, below_one}, 0);
  this->expect("ErfcInv", {E(1), E(0.5), E(1.9), below_one, below_two, root, root / 64, this->smallest, this->tiny}, 0);
  this->expect("CdfNormInv", {E(0.5), E(0.1), E(0.9), below_one, root, root / 64, this->smallest, this->tiny}, 0);
}

TYPED_TEST(InverseErrorFlags, ADenormalResultMayRaiseUnderflowAlone) {
  const int flags = flags_of<TypeParam>("ErfInv", 1, false, this->smallest / 3);
  EXPECT_EQ(flags & ~FE_UNDERFLOW, 0);
}

TYPED_TEST(InverseErrorFlags, QuietNanRaisesNone) {
  for (const char* name : {"ErfInv", "ErfcInv", "CdfNormInv"}) this->expect(name, {this->nan}, 0);
}

TYPED_TEST(InverseErrorFlags, SignallingNanRaisesInvalid) {
  for (const char* name : {"ErfInv", "ErfcInv", "CdfNormInv"}) {
    this->expect(name, {std::numeric_limits<TypeParam>::signaling_NaN()}, FE_INVALID);
  }
}

TYPED_TEST(InverseErrorFlags, PolesRaiseDivisionByZero) {
  using E = TypeParam;
  this->expect("ErfInv", {E(1), E(-1)}, FE_DIVBYZERO);
  this->expect("ErfcInv", {E(0), E(2)}, FE_DIVBYZERO);
  this->expect("CdfNormInv", {E(0), E(1)}, FE_DIVBYZERO);
}

TYPED_TEST(InverseErrorFlags, OutsideTheDomainRaisesInvalid) {
  using E = TypeParam;
  this->expect("ErfInv", {E(1.5), -this->largest, this->inf}, FE_INVALID);
  this->expect("ErfcInv", {E(2.5), E(-1), this->inf, -this->inf}, FE_INVALID);
  this->expect("CdfNormInv", {E(1.5), E(-1), this->inf, -this->inf}, FE_INVALID);
}

}  // namespace
}  // namespace orvik::test
