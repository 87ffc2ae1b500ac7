// Special values, codes and flags of ExpInt1, at every level, in the main loop, in the remainder and strided.
#include <cfenv>
#include <cmath>

#include "support/row_calls.h"

namespace orvik::test {
namespace {

constexpr int32_t kDomain = 1, kSingularity = 2;

template <class E>
class ExpInt1 : public ElementTest<E> {
 protected:
  static void unary(E x, E want, int32_t code = 0) { expect_unary<E>(row_of<E>("ExpInt1"), x, want, code); }
  // Where e^-x / x falls below half of the smallest denormal number.
  static constexpr E gone = sizeof(E) == 4 ? E(100) : E(739);
};
TYPED_TEST_SUITE(ExpInt1, Elements);

TYPED_TEST(ExpInt1, OfMinusOneIsNanWithCode1) { this->unary(-1, this->nan, kDomain); }

TYPED_TEST(ExpInt1, OfAnyNegativeNumberIsNanWithCode1) {
  for (TypeParam x : {-this->tiny, -this->smallest, TypeParam(-0.5), TypeParam(-2), -this->largest, -this->inf}) {
    this->unary(x, this->nan, kDomain);
  }
}

TYPED_TEST(ExpInt1, OfZeroIsInfiniteWithCode2) {
  this->unary(0, this->inf, kSingularity);
  this->unary(TypeParam(-0.0), this->inf, kSingularity);
}

TYPED_TEST(ExpInt1, OfInfinityIsZeroWithoutCode) { this->unary(this->inf, 0); }

TYPED_TEST(ExpInt1, UnderflowIsZeroWithoutCode) {
  using E = TypeParam;
  for (E x : {this->gone, E(104), std::nextafter(E(104), this->inf), E(1000), this->largest}) {
    if (x < this->gone) continue;
    this->unary(x, 0);
  }
}

TYPED_TEST(ExpInt1, DenormalResultsHaveNoCode) {
  using E = TypeParam;
  for (int level = 0; level < 3; ++level) {
    const Outcome<E> got = evaluate<E>(row_of<E>("ExpInt1"), level, E(sizeof(E) == 4 ? 95 : 730));
    EXPECT_GT(got.r1, 0);
    EXPECT_LT(got.r1, this->smallest);
    EXPECT_EQ(got.code, 0);
  }
}

TYPED_TEST(ExpInt1, NanIsNanWithoutCode) {
  this->unary(this->nan, this->nan);
  this->unary(-this->nan, this->nan);
  this->unary(std::numeric_limits<TypeParam>::signaling_NaN(), this->nan);
}

TYPED_TEST(ExpInt1, NanKeepsItsPayloadAndIsQuieted) {
  using E = TypeParam;
  using Bits = std::conditional_t<sizeof(E) == 4, uint32_t, uint64_t>;
  const Bits quiet = Bits{1} << (std::numeric_limits<E>::digits - 2);
  const Bits signalling = std::bit_cast<Bits>(this->inf) | 0x1234;
  for (int level = 0; level < 3; ++level) {
    const E got = evaluate<E>(row_of<E>("ExpInt1"), level, std::bit_cast<E>(signalling)).r1;
    EXPECT_EQ(std::bit_cast<Bits>(got), signalling | quiet);
  }
}

TYPED_TEST(ExpInt1, DenormalArgumentsCountAsZeroWhereTheModeSaysSo) {
  const uint32_t mode = _zymSetMode(0x280000);
  this->unary(this->smallest / 4, this->inf, kSingularity);
  _zymSetMode(mode | 0x140000);
}

template <class E>
int flags_of(int level, bool strided, E x) {
  const uint32_t mode = _zymSetMode(ZYM_ERRMODE_NOERR);
  std::vector<E> a(150, E(0.75)), r(150);
  a[3] = a[41] = a[70] = x;
  Call<E> c;
  c.n = 71, c.a = a.data(), c.r1 = r.data();
  std::feclearexcept(FE_ALL_EXCEPT);
  EXPECT_TRUE(call_row(row_named(row_of<E>("ExpInt1")), level, strided, c));
  const int flags = std::fetestexcept(FE_INVALID | FE_DIVBYZERO | FE_OVERFLOW | FE_UNDERFLOW);
  std::feclearexcept(FE_ALL_EXCEPT);
  _zymSetMode(mode | 0x140000);
  return flags;
}

TYPED_TEST(ExpInt1, LeavesTheFlagsOfTheExactResult) {
  using E = TypeParam;
  const struct {
    E x;
    int flags;
  } cases[] = {
      {E(1), 0},
      {E(0.001), 0},
      {E(1e-30), 0},
      {this->smallest, 0},
      {this->tiny, 0},
      {E(20), 0},
      {E(sizeof(E) == 4 ? 82.5 : 699), 0},
      {E(sizeof(E) == 4 ? 95 : 730), FE_UNDERFLOW},
      {this->gone, FE_UNDERFLOW},
      {this->largest, FE_UNDERFLOW},
      {this->inf, 0},
      {this->nan, 0},
      {std::numeric_limits<E>::signaling_NaN(), FE_INVALID},
      {E(0), FE_DIVBYZERO},
      {E(-1), FE_INVALID},
      {-this->largest, FE_INVALID},
      {-this->inf, FE_INVALID},
  };
  for (const auto& [x, flags] : cases) {
    for (int level = 0; level < 3; ++level) {
      for (bool strided : {false, true}) EXPECT_EQ(flags_of(level, strided, x), flags) << x << " level " << level;
    }
  }
}

}  // namespace
}  // namespace orvik::test
