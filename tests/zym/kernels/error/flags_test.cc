// The floating-point flags that the error functions leave: those that IEEE 754 allows for the exact result, inexact
// aside. Erf hides the underflow of tiny results.
#include <cfenv>
#include <cmath>

#include "support/row_calls.h"
#include "zym/kernels/error/exact.h"

namespace orvik::test {
namespace {

constexpr int kWatched = FE_INVALID | FE_DIVBYZERO | FE_OVERFLOW | FE_UNDERFLOW;

// Flags of one call on an array that has x among plain elements, in a whole block and in the rest. With reports: without
// them zeros are blended in, which raises nothing.
template <class E>
int flags_of(const char* name, int level, bool strided, E x) {
  const uint32_t mode = _zymSetMode(ZYM_ERRMODE_IGNORE);
  std::vector<E> a(150, E(0.75)), r(150);
  a[3] = a[41] = a[70] = x;
  Call<E> c;
  c.n = 71, c.a = a.data(), c.r1 = r.data();
  std::feclearexcept(FE_ALL_EXCEPT);
  EXPECT_TRUE(call_row(row_named(row_of<E>(name)), level, strided, c));
  const int flags = std::fetestexcept(kWatched);
  std::feclearexcept(FE_ALL_EXCEPT);
  _zymSetMode(mode | 0x140000);
  return flags;
}

template <class E>
class ErrorFlags : public ElementTest<E> {
 protected:
  static void expect(const char* name, std::initializer_list<E> xs, int flags) {
    for (int level = 0; level < 3; ++level) {
      for (bool strided : {false, true}) {
        for (E x : xs) EXPECT_EQ(flags_of<E>(name, level, strided, x), flags) << name << kLevelNames[level] << " " << x;
      }
    }
  }
};
TYPED_TEST_SUITE(ErrorFlags, Elements);

TYPED_TEST(ErrorFlags, NoneOfNormalResults) {
  using E = TypeParam;
  for (const ErrorFunction& f : kErrorFunctions) {
    this->expect(f.name, {E(0), E(-0.0), E(1), E(-1), E(3), E(-3), E(5), E(-5), E(9), E(-9)}, 0);
    this->expect(f.name, {this->tiny, -this->tiny, this->smallest, E(1e-25), E(-1e-18)}, 0);
  }
  this->expect("Erf", {E(6), E(-1000), this->largest, -this->largest, this->inf, -this->inf}, 0);
  this->expect("Erfc", {E(-26), E(-1000), -this->largest, this->inf, -this->inf}, 0);
  this->expect("CdfNorm", {E(38), E(1000), this->largest, this->inf, -this->inf}, 0);
  this->expect("Erfcx", {E(29), E(31), E(1e5), E(0x1p60), E(1e30), this->inf, -this->inf}, 0);
  if (sizeof(E) == 8) {
    this->expect("Erfc", {E(10), E(15), E(25.6), E(25.8), E(26.5)}, 0);
    this->expect("CdfNorm", {E(-14.1), E(-36.2), E(-36.4), E(-37.5)}, 0);
    this->expect("Erfcx", {E(-26.4), E(-26.6), E(0x1p970), E(0x1p1000)}, 0);
  }
}

TYPED_TEST(ErrorFlags, DenormalResultsAndZerosRaiseUnderflow) {
  using E = TypeParam;
  const bool single = sizeof(E) == 4;
  this->expect("Erfc", {single ? E(9.8) : E(27.1), E(40), this->largest}, FE_UNDERFLOW);
  this->expect("CdfNorm", {single ? E(-13.9) : E(-38.3), E(-50), -this->largest}, FE_UNDERFLOW);
  this->expect("Erfcx", {this->largest}, FE_UNDERFLOW);
}

TYPED_TEST(ErrorFlags, ErfcxRaisesOverflowWithTheResult) {
  using E = TypeParam;
  this->expect("Erfcx", {sizeof(E) == 4 ? E(-9.5) : E(-26.7), E(-27), E(-1000), -this->largest}, FE_OVERFLOW);
}

TYPED_TEST(ErrorFlags, SignallingNanRaisesInvalidAndQuietNanNone) {
  for (const ErrorFunction& f : kErrorFunctions) {
    this->expect(f.name, {this->nan, -this->nan}, 0);
    this->expect(f.name, {std::numeric_limits<TypeParam>::signaling_NaN()}, FE_INVALID);
  }
}

}  // namespace
}  // namespace orvik::test
