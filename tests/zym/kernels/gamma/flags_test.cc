// Flags of the gamma functions: those that the exact result allows, inexact apart.
#include <cfenv>
#include <cmath>

#include "support/row_calls.h"

namespace orvik::test {
namespace {

constexpr int kWatched = FE_INVALID | FE_DIVBYZERO | FE_OVERFLOW | FE_UNDERFLOW;

template <class E>
int flags_of(const char* name, int level, int n, E a) {
  std::vector<E> x(static_cast<size_t>(n), a), r(static_cast<size_t>(n));
  Call<E> c;
  c.n = n, c.a = x.data(), c.r1 = r.data();
  const uint32_t mode = _zymSetMode(ZYM_ERRMODE_IGNORE);
  std::feclearexcept(FE_ALL_EXCEPT);
  EXPECT_TRUE(call_row(row_named(row_of<E>(name)), level, false, c));
  const int flags = std::fetestexcept(kWatched);
  _zymSetMode(mode);
  return flags;
}

template <class E>
class GammaFlags : public ElementTest<E> {
 protected:
  static void expect(const char* name, E x, int flags) {
    for (int level = 0; level < 3; ++level) {
      for (int n : {1, 9, 33}) {
        EXPECT_EQ(flags_of(name, level, n, x), flags) << row_of<E>(name) << "(" << x << ") " << kLevelNames[level];
      }
    }
  }
};
TYPED_TEST_SUITE(GammaFlags, Elements);

TYPED_TEST(GammaFlags, NoneOfNormalResults) {
  using E = TypeParam;
  std::vector<E> x = {E(1), E(2), E(3), E(34), E(16), E(0.5), E(-0.5), E(-1.5), E(-30.25), E(0x1p-80)};
  for (E m = this->smallest * 8; m < E(1); m *= E(7)) x.push_back(m), x.push_back(-m);
  for (E m = E(1.01); m < E(30); m *= E(1.07)) x.push_back(m), x.push_back(-m);
  if (sizeof(E) == 8) x.insert(x.end(), {E(36.5), E(100), E(171), E(-36.5), E(-100.5), E(-160.5)});
  for (E each : x) {
    this->expect("TGamma", each, 0);
    this->expect("LGamma", each, 0);
  }
  for (E each : {E(43.5), E(-43.5), E(-1000.25), E(1e6), E(1e36), E(4e36), this->smallest, E(-1e-30), this->tiny})
    this->expect("LGamma", each, 0);
  if (sizeof(E) == 8) {
    for (double each : {1e100, 1e300, 2.5e305}) this->expect("LGamma", E(each), 0);
  }
}

TYPED_TEST(GammaFlags, NoneOfInfinitiesAndQuietNans) {
  for (const char* name : {"TGamma", "LGamma"}) {
    this->expect(name, this->inf, 0);
    this->expect(name, this->nan, 0);
  }
  this->expect("LGamma", -this->inf, 0);
}

TYPED_TEST(GammaFlags, InvalidOfPolesOfTGammaAndOfSignallingNans) {
  using E = TypeParam;
  for (E x : {E(-1), E(-2), E(-43), E(-50), E(-1e10), -this->inf, std::numeric_limits<E>::signaling_NaN()})
    this->expect("TGamma", x, FE_INVALID);
  this->expect("LGamma", std::numeric_limits<E>::signaling_NaN(), FE_INVALID);
}

TYPED_TEST(GammaFlags, DivisionByZeroOfZerosAndOfPolesOfLGamma) {
  using E = TypeParam;
  for (E x : {E(0), E(-0.0)}) this->expect("TGamma", x, FE_DIVBYZERO);
  for (E x : {E(0), E(-0.0), E(-1), E(-2), E(-43), E(-50), E(-1e10)}) this->expect("LGamma", x, FE_DIVBYZERO);
}

TYPED_TEST(GammaFlags, OverflowAndUnderflowWithTheirResults) {
  using E = TypeParam;
  for (E x : {E(sizeof(E) == 4 ? 36 : 172), this->largest, this->tiny, -this->tiny})
    this->expect("TGamma", x, FE_OVERFLOW);
  this->expect("LGamma", this->largest, FE_OVERFLOW);
  const E last = E(sizeof(E) == 4 ? -43 : -184);
  for (E x : {last - E(0.5), last + E(0.5), E(-1000.5)}) this->expect("TGamma", x, FE_UNDERFLOW);
}

}  // namespace
}  // namespace orvik::test
