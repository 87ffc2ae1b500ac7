// The families are written for lanes of any width: twice the width gives the same bits and leaves the same lanes.
#include <gtest/gtest.h>

#include <cstring>
#include <random>

#include "zym/kernels/error/cdf_norm.h"
#include "zym/kernels/error/erf.h"
#include "zym/kernels/error/erfc.h"
#include "zym/kernels/error/erfcx.h"

namespace orvik::zym {
namespace {

template <template <class, Level> class Function, class V, Level L>
void expect_same(double from, double to) {
  using E = Element<V>;
  using W = Twice<V>;
  using Narrow = Function<V, L>;
  using Double = Function<W, L>;
  std::mt19937_64 random(5);
  std::uniform_real_distribution<double> uniform(from, to);
  for (int turn = 0; turn < 500; ++turn) {
    alignas(64) E x[kWidth<W>], two[kWidth<W>], one[kWidth<W>];
    for (E& e : x) e = static_cast<E>(uniform(random));
    const auto compare = [&] { ASSERT_EQ(std::memcmp(one, two, sizeof one), 0); };
    const V low = load<V>(x), high = load<V>(x + kWidth<V>);
    const W both(low, high);
    store(one, Narrow::lanes(low));
    store(one + kWidth<V>, Narrow::lanes(high));
    store(two, Double::lanes(both));
    compare();
    if constexpr (FamilyTraits<Narrow>::has_special) {
      ASSERT_EQ(lane_bits(Mask<V>(Narrow::special(low))) | lane_bits(Mask<V>(Narrow::special(high))) << kWidth<V>,
                lane_bits(Mask<W>(Double::special(both))));
    }
    if constexpr (FamilyTraits<Narrow>::has_wide) {
      const V scale = V(E(4));
      const auto a = Narrow::wide(low * scale), b = Narrow::wide(high * scale);
      const auto c = Double::wide(both * W(scale));
      store(one, a.value);
      store(one + kWidth<V>, b.value);
      store(two, c.value);
      compare();
      ASSERT_EQ(lane_bits(Mask<V>(a.special)) | lane_bits(Mask<V>(b.special)) << kWidth<V>, lane_bits(Mask<W>(c.special)));
    }
  }
}

template <template <class, Level> class Function>
void expect_same_at_all_levels(double from, double to) {
  expect_same<Function, F32, Level::LA>(from, to);
  expect_same<Function, F32, Level::HA>(from, to);
  expect_same<Function, F32, Level::EP>(from, to);
  expect_same<Function, F64, Level::LA>(from, to);
  expect_same<Function, F64, Level::HA>(from, to);
  expect_same<Function, F64, Level::EP>(from, to);
}

TEST(ErrorLanes, TwiceTheWidthGivesTheSameBits) {
  expect_same_at_all_levels<Erf>(-7, 7);
  expect_same_at_all_levels<Erfc>(-10, 10);
  expect_same_at_all_levels<CdfNorm>(-14, 14);
  expect_same_at_all_levels<Erfcx>(-9, 26);
}

}  // namespace
}  // namespace orvik::zym
