// The lanes of the powers know no width: over twice the width they give the same bits and leave the same lanes.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <random>

#include "zym/kernels/power/pow.h"

namespace orvik::zym {
namespace {

template <class V, Level L>
void expect_same_lanes() {
  using E = Element<V>;
  using W = Twice<V>;
  constexpr int width = kWidth<V>;
  std::mt19937_64 random(3);
  std::uniform_real_distribution<double> unit(-1, 1);
  for (int round = 0; round < 2000; ++round) {
    E x[2 * width], y[2 * width], narrow[2 * width], wide[2 * width];
    for (E& a : x) a = static_cast<E>(std::exp(20 * unit(random)));
    for (E& a : y)
      a = static_cast<E>(std::ldexp(unit(random), static_cast<int>(random() % 12)));  // some leave the format
    const V x0 = load<V>(x), x1 = load<V>(x + width), y0 = load<V>(y), y1 = load<V>(y + width);
    const auto low = Pow<V, L>::lanes(x0, y0);
    const auto high = Pow<V, L>::lanes(x1, y1);
    const auto both = Pow<W, L>::lanes(W(x0, x1), W(y0, y1));
    const uint32_t left = lane_bits(low.special) | lane_bits(high.special) << width;
    ASSERT_EQ(left, lane_bits(both.special));
    ASSERT_EQ(lane_bits(Pow<W, L>::special(W(x0, x1), W(y0, y1))),
              lane_bits(Pow<V, L>::special(x0, y0)) | lane_bits(Pow<V, L>::special(x1, y1)) << width);
    store(narrow, low.value), store(narrow + width, high.value);
    store(wide, both.value.low), store(wide + width, both.value.high);
    for (int i = 0; i < 2 * width; ++i) {
      if ((left >> i & 1) != 0) continue;
      ASSERT_EQ(std::memcmp(&narrow[i], &wide[i], sizeof(E)), 0) << x[i] << " to " << y[i];
    }
  }
}

TEST(PowerLanes, TwiceTheWidthGivesTheSameBits) {
  expect_same_lanes<F32, Level::LA>();
  expect_same_lanes<F32, Level::HA>();
  expect_same_lanes<F32, Level::EP>();
  expect_same_lanes<F64, Level::LA>();
  expect_same_lanes<F64, Level::HA>();
  expect_same_lanes<F64, Level::EP>();
}

}  // namespace
}  // namespace orvik::zym
