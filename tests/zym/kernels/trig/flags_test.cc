// The floating-point flags that kernels leave: those that IEEE 754 allows for the exact result, inexact aside.
#include <cfenv>
#include <cmath>

#include "support/row_calls.h"

namespace orvik::test {
namespace {

constexpr const char* kAll[] = {"Sin",  "Cos",  "Tan",  "Sinpi",  "Cospi",   "Tanpi",
                                "Sind", "Cosd", "Tand", "SinCos", "SinCospi"};
constexpr int kSevere = FE_INVALID | FE_DIVBYZERO | FE_OVERFLOW | FE_UNDERFLOW;

// Flags of one call on an array that has x among plain elements, in a whole block and in the rest.
template <class E>
int flags_of(const std::string& name, int level, bool strided, E x, int before = 0) {
  const uint32_t mode = _zymSetMode(ZYM_ERRMODE_NOERR);
  std::vector<E> a(150, E(0.75)), r1(150), r2(150);
  a[3] = a[41] = a[70] = x;
  Call<E> c;
  c.n = 71, c.a = a.data(), c.r1 = r1.data(), c.r2 = r2.data();
  std::feclearexcept(FE_ALL_EXCEPT);
  std::feraiseexcept(before);
  EXPECT_TRUE(call_row(row_named(name), level, strided, c));
  const int flags = std::fetestexcept(kSevere);
  std::feclearexcept(FE_ALL_EXCEPT);
  _zymSetMode(mode | 0x140000);
  return flags;
}

template <class E>
class TrigFlags : public ElementTest<E> {
 protected:
  static void expect(std::initializer_list<E> xs, int flags, std::initializer_list<const char*> functions = {}) {
    for (const char* f : kAll) {
      if (functions.size() != 0 &&
          std::none_of(functions.begin(), functions.end(), [&](auto g) { return std::string(g) == f; }))
        continue;
      for (int level = 0; level < 3; ++level) {
        for (bool strided : {false, true}) {
          for (E x : xs)
            EXPECT_EQ(flags_of(row_of<E>(f), level, strided, x), flags)
                << f << kLevelNames[level] << strided << " " << x;
        }
      }
    }
  }
};
TYPED_TEST_SUITE(TrigFlags, Elements);

TYPED_TEST(TrigFlags, FiniteArgumentsRaiseNone) {
  using E = TypeParam;
  this->expect({E(0), E(-0.0), E(1), E(-100), E(9000), E(70000), E(600000), E(2e7), E(1e30), this->largest}, 0);
}

TYPED_TEST(TrigFlags, TinyArgumentsWhoseSquaresUnderflowRaiseNone) {
  using E = TypeParam;
  const E root = std::sqrt(this->smallest);
  this->expect(
      {root / 4, -root / 64, this->smallest * 1024, std::ldexp(this->smallest, std::numeric_limits<E>::digits)}, 0);
}

TYPED_TEST(TrigFlags, AnUnderflowOfTheCallersStays) {
  using E = TypeParam;
  EXPECT_EQ(flags_of<E>(row_of<E>("Sin"), 0, false, E(1), FE_UNDERFLOW), FE_UNDERFLOW);
  EXPECT_EQ(flags_of<E>(row_of<E>("Sin"), 0, true, E(1), FE_UNDERFLOW), FE_UNDERFLOW);
}

TYPED_TEST(TrigFlags, QuietNanRaisesNone) { this->expect({this->nan}, 0); }

TYPED_TEST(TrigFlags, SignallingNanRaisesInvalid) {
  this->expect({std::numeric_limits<TypeParam>::signaling_NaN()}, FE_INVALID);
}

TYPED_TEST(TrigFlags, InfinityRaisesInvalid) { this->expect({this->inf, -this->inf}, FE_INVALID); }

TYPED_TEST(TrigFlags, PolesRaiseDivisionByZero) {
  using E = TypeParam;
  this->expect({E(0.5), E(-2.5)}, FE_DIVBYZERO, {"Tanpi"});
  this->expect({E(90), E(-270)}, FE_DIVBYZERO, {"Tand"});
}

}  // namespace
}  // namespace orvik::test
