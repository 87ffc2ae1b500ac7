// The families are written for lanes of any width: twice the width gives the same bits.
#include <random>

#include "support/row_calls.h"
#include "zym/kernels/trig/sin.h"
#include "zym/kernels/trig/sin_cos.h"
#include "zym/kernels/trig/sin_units.h"
#include "zym/kernels/trig/tan.h"

namespace orvik::test {
namespace {

using zym::Level;

template <template <class, Level> class Function, class V, Level L>
void expect_same(double bound, bool wide) {
  using E = Element<V>;
  using W = Twice<V>;
  std::mt19937_64 random(5);
  std::uniform_real_distribution<double> uniform(-bound, bound);
  for (int turn = 0; turn < 200; ++turn) {
    alignas(64) E x[kWidth<W>], two[kWidth<W>], one[kWidth<W>];
    for (E& e : x) e = static_cast<E>(uniform(random));
    const auto run = [&]<class T>(T, const E* from, E* to) {
      const auto first_of = [](auto r) {
        if constexpr (requires { r.first; }) {
          return r.first;
        } else {
          return r;
        }
      };
      if (wide) {
        if constexpr (zym::FamilyTraits<Function<T, L>>::has_wide)
          store(to, first_of(Function<T, L>::wide(load<T>(from)).value));
      } else {
        store(to, first_of(Function<T, L>::lanes(load<T>(from))));
      }
    };
    std::fill(std::begin(one), std::end(one), E(0));
    std::fill(std::begin(two), std::end(two), E(0));
    run(W(), x, two);
    run(V(), x, one);
    run(V(), x + kWidth<V>, one + kWidth<V>);
    ASSERT_EQ(std::memcmp(one, two, sizeof one), 0);
  }
}

template <template <class, Level> class Function, class V>
void expect_same_at_all_levels(double bound) {
  for (bool wide : {false, true}) {
    expect_same<Function, V, Level::LA>(wide ? 1e30 : bound, wide);
    expect_same<Function, V, Level::HA>(wide ? 1e30 : bound, wide);
    expect_same<Function, V, Level::EP>(wide ? 1e30 : bound, wide);
  }
}

template <template <class, Level> class Function, Level L>
void expect_large_from(float bound) {
  for (float sign : {1.0f, -1.0f}) {
    EXPECT_NE(lane_bits(Function<F32, L>::special(F32(sign * bound))), 0u) << bound;
    EXPECT_EQ(lane_bits(Function<F32, L>::special(F32(sign * std::nextafter(bound, 0.0f)))), 0u) << bound;
  }
}

TEST(TrigLanes, FloatsFrom524288OnTakeTheLargePath) {
  expect_large_from<zym::Sin, Level::LA>(524288);
  expect_large_from<zym::Sin, Level::HA>(524288);
  expect_large_from<zym::Sin, Level::EP>(10000);
  expect_large_from<zym::Cos, Level::LA>(524288);
  expect_large_from<zym::Cos, Level::HA>(524288);
}

TEST(TrigLanes, TwiceTheWidthGivesTheSameBits) {
  expect_same_at_all_levels<zym::Sin, F32>(8000);
  expect_same_at_all_levels<zym::Sin, F64>(8000);
  expect_same_at_all_levels<zym::Cos, F32>(8000);
  expect_same_at_all_levels<zym::Cos, F64>(8000);
  expect_same_at_all_levels<zym::Tan, F32>(8000);
  expect_same_at_all_levels<zym::Tan, F64>(8000);
  expect_same_at_all_levels<zym::SinCos, F32>(8000);
  expect_same_at_all_levels<zym::SinCos, F64>(8000);
  expect_same_at_all_levels<zym::Sinpi, F32>(100);
  expect_same_at_all_levels<zym::Cospi, F64>(100);
  expect_same_at_all_levels<zym::Tanpi, F32>(100);
  expect_same_at_all_levels<zym::Tanpi, F64>(100);
  expect_same_at_all_levels<zym::Sind, F64>(1000);
  expect_same_at_all_levels<zym::Cosd, F32>(1000);
  expect_same_at_all_levels<zym::Tand, F64>(1000);
  expect_same_at_all_levels<zym::SinCospi, F32>(100);
  expect_same_at_all_levels<zym::SinCospi, F64>(100);
}

}  // namespace
}  // namespace orvik::test
