// Flags that the lanes and their special tests leave: those that the exact result allows, inexact apart.
#include <gtest/gtest.h>

#include <cfenv>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "orvik/zym.h"
#include "support/row_calls.h"

namespace orvik::test {
namespace {

constexpr int kWatched = FE_INVALID | FE_DIVBYZERO | FE_OVERFLOW | FE_UNDERFLOW;

// The flags of a call on n copies of one pair, after it; the result of the first.
template <class E>
int flags_of(const std::string& name, int level, int n, bool strided, E a, E b, E* result) {
  std::vector<E> x(static_cast<size_t>(n), a), y(static_cast<size_t>(n), b), r(static_cast<size_t>(n));
  Call<E> c;
  c.n = n, c.a = x.data(), c.b = y.data(), c.r1 = r.data();
  std::feclearexcept(FE_ALL_EXCEPT);
  EXPECT_TRUE(call_row(row_named(name), level, strided, c));
  const int flags = std::fetestexcept(kWatched);
  *result = r[0];
  return flags;
}

template <class E>
class Flags : public ElementTest<E> {
 protected:
  void SetUp() override { _zymSetMode(ZYM_ERRMODE_IGNORE); }
  void TearDown() override { _zymSetMode(ZYM_ERRMODE_DEFAULT); }

  template <class Allowed>
  void check(const std::string& function, E a, E b, Allowed allowed) {
    for (int level = 0; level < 3; ++level) {
      for (int n : {1, 9, 33}) {
        for (bool strided : {false, true}) {
          E r;
          const int flags = flags_of(row_of<E>(function), level, n, strided, a, b, &r);
          ASSERT_EQ(flags & ~allowed(r), 0) << row_of<E>(function) << "(" << a << ", " << b << ") = " << r << " "
                                            << kLevelNames[level] << " n = " << n << " strided " << strided;
        }
      }
    }
  }
  std::vector<E> magnitudes() {
    using L = std::numeric_limits<E>;
    std::vector<E> x = {E(0), L::denorm_min(), 100 * L::denorm_min(), L::min(), L::max(), L::infinity()};
    for (int e = L::min_exponent; e < L::max_exponent; e += sizeof(E) == 4 ? 9 : 61) x.push_back(std::ldexp(E(0.7), e));
    return x;
  }
};
TYPED_TEST_SUITE(Flags, Elements);

TYPED_TEST(Flags, HypotRaisesOverflowAndUnderflowOnlyWithTheResult) {
  using E = TypeParam;
  for (E a : this->magnitudes()) {
    for (E b : this->magnitudes()) {
      this->check("Hypot", a, -b, [&](E r) {
        const bool exact_infinite = std::isinf(a) || std::isinf(b);
        return (std::isinf(r) && !exact_infinite ? FE_OVERFLOW : 0) | (r < std::numeric_limits<E>::min() ? FE_UNDERFLOW : 0);
      });
    }
  }
}

TYPED_TEST(Flags, ExactRemaindersRaiseNothingButInvalid) {
  using E = TypeParam;
  for (E a : this->magnitudes()) {
    for (E b : this->magnitudes()) {
      const auto allowed = [](E r) { return std::isnan(r) ? FE_INVALID : 0; };
      this->check("Fmod", a, b, allowed);
      this->check("Remainder", -a, b, allowed);
    }
  }
}

// The rest of a vector holds no element: whatever stands there must not be a pole of these scalars.
TYPED_TEST(Flags, LinearFractionsOfFewElementsRaiseNoneOfOthers) {
  using E = TypeParam;
  const E a = E(0.001), b = 5;
  for (E filler : {E(0.75), E(1), E(0.5), E(2), E(0)}) {
    for (const auto& [scaleA, shiftA] : {std::pair<E, E>{1, 0}, {0, 0}, {this->largest, 0}}) {
      for (int n : {1, 3, 9, 33}) {
        for (bool strided : {false, true}) {
          std::vector<E> x(static_cast<size_t>(n), a), y(static_cast<size_t>(n), b), r(static_cast<size_t>(n));
          Call<E> c;
          c.n = n, c.a = x.data(), c.b = y.data(), c.r1 = r.data();
          c.fraction[0] = scaleA, c.fraction[1] = shiftA, c.fraction[2] = 4, c.fraction[3] = -4 * filler;
          std::feclearexcept(FE_ALL_EXCEPT);
          ASSERT_TRUE(call_row(row_named(row_of<E>("LinearFrac")), 1, strided, c));
          EXPECT_EQ(std::fetestexcept(kWatched), 0) << filler << ", " << scaleA << " n = " << n << strided;
        }
      }
    }
  }
}

TYPED_TEST(Flags, ArcCosinesOfDenormalsRaiseNone) {
  using E = TypeParam;
  for (E x : {this->tiny, 100 * this->tiny, this->smallest / 2, this->smallest}) {
    for (const char* function : {"Acos", "Acospi"}) {
      this->check(function, x, x, [](E) { return 0; });
      this->check(function, -x, x, [](E) { return 0; });
    }
  }
}

using SingleFlags = Flags<float>;

// Whose results are 1.
TEST_F(SingleFlags, PowersOfTwoAndTenWithTinyExponentsRaiseNone) {
  for (float x : {tiny, 100 * tiny, smallest / 2, smallest, smallest * 3}) {
    for (const char* function : {"Exp2", "Exp10"}) {
      for (float signed_x : {x, -x}) check(function, signed_x, signed_x, [](float) { return 0; });
    }
  }
}

TYPED_TEST(Flags, StepsOntoDenormalsAreFlushedWithDenormals) {
  using E = TypeParam;
  constexpr uint32_t kKeepDenormals = 0x140000;
  _zymSetMode(ZYM_ERRMODE_NOERR | ZYM_FLUSH_DENORMALS);
  for (int level = 0; level < 3; ++level) {
    const auto expect = [&](E a, E b, E want) {
      E r;
      flags_of(row_of<E>("NextAfter"), level, 1, false, a, b, &r);
      _zymSetMode(kKeepDenormals);
      EXPECT_TRUE(same_value(r, want)) << a << " towards " << b << ": " << r;
      _zymSetMode(ZYM_FLUSH_DENORMALS);
    };
    expect(E(0), E(1), E(0));
    expect(E(0), E(-1), E(-0.0));
    expect(this->smallest, E(0), E(0));
    expect(E(2) * this->tiny, this->tiny, E(0));
  }
  _zymSetMode(kKeepDenormals);
}

TYPED_TEST(Flags, RemaindersOfADenormalByInfinityAreFlushedWithDenormals) {
  using E = TypeParam;
  constexpr uint32_t kKeepDenormals = 0x140000;
  _zymSetMode(ZYM_ERRMODE_IGNORE | ZYM_FLUSH_DENORMALS);
  for (const char* function : {"Fmod", "Remainder"}) {
    for (int level = 0; level < 3; ++level) {
      for (E divisor : {this->inf, E(1)}) {
        E r;
        flags_of(row_of<E>(function), level, 1, false, E(-5) * this->tiny, divisor, &r);
        EXPECT_TRUE(same_value(r, E(-0.0))) << function << " by " << divisor << ": " << r;
      }
    }
  }
  _zymSetMode(kKeepDenormals);
}

// Results of element routines, which work on bits.
TYPED_TEST(Flags, DenormalResultsOfLargeQuotientsAndOfTinyArcsAreFlushedWithDenormals) {
  using E = TypeParam;
  constexpr uint32_t kKeepDenormals = 0x140000;
  const E divisor = E(1.25) * this->smallest, rest = this->smallest / 4;  // 2^(4 k) leaves 1 of 5
  const auto expect_flushed = [&](const char* function, E a, E b) {
    for (int level = 0; level < 3; ++level) {
      for (E sign : {E(1), E(-1)}) {
        E r;
        _zymSetMode(ZYM_ERRMODE_IGNORE | kKeepDenormals);
        flags_of(row_of<E>(function), level, 1, false, sign * a, b, &r);
        EXPECT_TRUE(std::fabs(r) > 0 && std::fabs(r) < this->smallest) << function << r;
        _zymSetMode(ZYM_FLUSH_DENORMALS);
        flags_of(row_of<E>(function), level, 1, false, sign * a, b, &r);
        EXPECT_TRUE(same_value(r, std::copysign(E(0), sign))) << function << kLevelNames[level] << r;
      }
    }
  };
  expect_flushed("Fmod", std::ldexp(rest, 200), divisor);
  expect_flushed("Remainder", std::ldexp(rest, 200), divisor);
  expect_flushed("Asinpi", this->smallest, E(1));
  expect_flushed("Atanpi", this->smallest, E(1));
  expect_flushed("Atan2pi", this->smallest, E(1));
  expect_flushed("Atan2pi", E(1), this->largest);
  _zymSetMode(kKeepDenormals);
}

}  // namespace
}  // namespace orvik::test
