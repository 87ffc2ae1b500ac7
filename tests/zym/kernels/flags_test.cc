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

}  // namespace
}  // namespace orvik::test
