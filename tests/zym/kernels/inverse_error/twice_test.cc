// The lanes know no width: over twice the width they give the same bits and leave the same lanes.
#include <gtest/gtest.h>

#include <cstring>
#include <random>

#include "zym/kernels/exp_int1/exp_int1.h"
#include "zym/kernels/inverse_error/inverse_error.h"

namespace orvik::zym {
namespace {

template <template <class, Level> class Function, class V, Level L>
void expect_same_lanes(double from, double to) {
  using E = Element<V>;
  using W = Twice<V>;
  constexpr int width = kWidth<V>;
  std::mt19937_64 random(3);
  std::uniform_real_distribution<double> inside(from, to);
  for (int round = 0; round < 2000; ++round) {
    E x[2 * width], narrow[2 * width], wide[2 * width];
    for (E& a : x) a = static_cast<E>(inside(random));
    const V x0 = load<V>(x), x1 = load<V>(x + width);
    ASSERT_EQ(lane_bits(Function<W, L>::special(W(x0, x1))),
              lane_bits(Function<V, L>::special(x0)) | lane_bits(Function<V, L>::special(x1)) << width);
    store(narrow, Function<V, L>::lanes(x0)), store(narrow + width, Function<V, L>::lanes(x1));
    const W both = Function<W, L>::lanes(W(x0, x1));
    store(wide, both.low), store(wide + width, both.high);
    ASSERT_EQ(std::memcmp(narrow, wide, sizeof narrow), 0) << x[0];
  }
}
template <template <class, Level> class Function>
void expect_same_lanes(double from, double to) {
  expect_same_lanes<Function, F32, Level::LA>(from, to);
  expect_same_lanes<Function, F32, Level::HA>(from, to);
  expect_same_lanes<Function, F32, Level::EP>(from, to);
  expect_same_lanes<Function, F64, Level::LA>(from, to);
  expect_same_lanes<Function, F64, Level::HA>(from, to);
  expect_same_lanes<Function, F64, Level::EP>(from, to);
}

TEST(InverseErrorLanes, TwiceTheWidthGivesTheSameBits) {
  expect_same_lanes<ErfInv>(-0.9999, 0.9999);
  expect_same_lanes<ErfcInv>(1e-9, 1.9999);
  expect_same_lanes<CdfNormInv>(1e-9, 0.9999);
}
TEST(ExpInt1Lanes, TwiceTheWidthGivesTheSameBits) { expect_same_lanes<ExpInt1>(0.02, 80); }

}  // namespace
}  // namespace orvik::zym
