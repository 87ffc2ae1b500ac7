// Families know no width: over lanes of twice the width they give the same bits.
#include <gtest/gtest.h>

#include <bit>
#include <cstring>
#include <random>

#include "zym/kernels/explog/exp.h"
#include "zym/kernels/explog/log.h"
#include "zym/kernels/rounding/rounding.h"
#include "zym/kernels/roots/sqrt.h"

namespace orvik::zym {
namespace {

// Positive numbers that every one of the families' lanes serves.
template <class E>
E input(std::mt19937_64& random) {
  return static_cast<E>(std::ldexp(0.5 + 0.5 * static_cast<double>(random() >> 11) * 0x1p-53, static_cast<int>(random() % 12) - 5));
}

template <class V, template <class, Level> class Family, Level L>
void expect_same_bits() {
  using E = Element<V>;
  using W = Twice<V>;
  std::mt19937_64 random(1);
  for (int round = 0; round < 1000; ++round) {
    E x[2 * kWidth<V>], narrow[2 * kWidth<V>], wide[2 * kWidth<V>];
    for (E& value : x) value = input<E>(random);
    store(narrow, Family<V, L>::lanes(load<V>(x)));
    store(narrow + kWidth<V>, Family<V, L>::lanes(load<V>(x + kWidth<V>)));
    store(wide, Family<W, L>::lanes(load<W>(x)));
    ASSERT_EQ(std::memcmp(narrow, wide, sizeof narrow), 0) << "round " << round;
  }
}
template <class V, template <class, Level> class Family>
void expect_same_bits_at_every_level() {
  expect_same_bits<V, Family, Level::LA>();
  expect_same_bits<V, Family, Level::HA>();
  expect_same_bits<V, Family, Level::EP>();
}

template <class V>
class TwiceTheWidth : public testing::Test {};
using Lanes = testing::Types<F32, F64>;
TYPED_TEST_SUITE(TwiceTheWidth, Lanes);

TYPED_TEST(TwiceTheWidth, ExponentialsHaveTheSameBits) { expect_same_bits_at_every_level<TypeParam, Exp>(); }
TYPED_TEST(TwiceTheWidth, LogarithmsHaveTheSameBits) { expect_same_bits_at_every_level<TypeParam, Ln>(); }
TYPED_TEST(TwiceTheWidth, RootsHaveTheSameBits) { expect_same_bits_at_every_level<TypeParam, Sqrt>(); }
TYPED_TEST(TwiceTheWidth, RoundingsHaveTheSameBits) {
  expect_same_bits_at_every_level<TypeParam, Ceil>();
  expect_same_bits_at_every_level<TypeParam, Round>();
  expect_same_bits_at_every_level<TypeParam, NearbyInt>();
  expect_same_bits_at_every_level<TypeParam, Frac>();
}

TYPED_TEST(TwiceTheWidth, SpecialTestsMarkTheSameLanes) {
  using V = TypeParam;
  using W = Twice<V>;
  using E = Element<V>;
  std::mt19937_64 random(2);
  int marked = 0;
  for (int round = 0; round < 1000; ++round) {
    E x[2 * kWidth<V>];
    for (E& value : x) value = std::bit_cast<E>(static_cast<Bits<V>>(random()));
    const auto both = [&](auto narrow, auto wide) {
      const uint32_t want = lane_bits(narrow(load<V>(x))) | lane_bits(narrow(load<V>(x + kWidth<V>))) << kWidth<V>;
      ASSERT_EQ(lane_bits(wide(load<W>(x))), want);
      marked += std::popcount(want);
    };
    both([](V v) { return Exp<V, Level::HA>::special(v); }, [](W v) { return Exp<W, Level::HA>::special(v); });
    both([](V v) { return Ln<V, Level::HA>::special(v); }, [](W v) { return Ln<W, Level::HA>::special(v); });
  }
  EXPECT_GT(marked, 1000);
}

// The lane code on one value.
TEST(OneElement, RunsTheLaneCodeOfTheExponential) {
  std::mt19937_64 random(3);
  for (int i = 0; i < 10000; ++i) {
    const float x = input<float>(random) * (i % 2 == 0 ? 1.0f : -1.0f);
    const auto same = [&]<Level L>() {
      ASSERT_EQ(bits_of(Exp<float, L>::lanes(x)), bits_of(first_lane(Exp<F32, L>::lanes(F32(x))))) << x;
    };
    same.operator()<Level::LA>();
    same.operator()<Level::EP>();
  }
}

}  // namespace
}  // namespace orvik::zym
