// The families are written for lanes of any width: twice the width gives the same bits and leaves the same lanes.
#include <gtest/gtest.h>

#include <cstring>
#include <random>

#include "zym/kernels/gamma/lgamma.h"
#include "zym/kernels/gamma/tgamma.h"

namespace orvik::test {
namespace {

using zym::Level;

template <class Narrow, class Wider, class V>
void expect_same(double low, double high, bool wide) {
  using E = Element<V>;
  using W = Twice<V>;
  constexpr int width = kWidth<V>;
  std::mt19937_64 random(7);
  std::uniform_real_distribution<double> uniform(low, high);
  for (int turn = 0; turn < 500; ++turn) {
    E x[2 * width], one[2 * width], two[2 * width];
    for (E& e : x) e = static_cast<E>(uniform(random));
    if (turn % 5 == 0) x[static_cast<size_t>(turn) % (2 * width)] = E(-7);
    const auto run = [&]<class F, class T>(F, T, const E* from, E* to) -> uint32_t {
      if (wide) {
        if constexpr (zym::FamilyTraits<F>::has_wide) {
          const auto r = F::wide(load<T>(from));
          store(to, r.value);
          return lane_bits(Mask<T>(r.special));
        } else {
          return 0;
        }
      }
      const auto r = F::lanes(load<T>(from));
      store(to, r.value);
      return lane_bits(Mask<T>(r.special)) | lane_bits(Mask<T>(F::special(load<T>(from)))) << 16;
    };
    std::fill(std::begin(one), std::end(one), E(0));
    std::fill(std::begin(two), std::end(two), E(0));
    const uint32_t all = run(Wider(), W(), x, two);
    const uint32_t first = run(Narrow(), V(), x, one), second = run(Narrow(), V(), x + width, one + width);
    ASSERT_EQ(all, first | second << width);
    ASSERT_EQ(std::memcmp(one, two, sizeof one), 0);
  }
}

template <template <class, Level> class Function, class V, Level L>
void expect_same_lanes() {
  expect_same<Function<V, L>, Function<Twice<V>, L>, V>(-42, 34.9, false);
  expect_same<Function<V, L>, Function<Twice<V>, L>, V>(-180, 170, true);
}

TEST(GammaLanes, TwiceTheWidthGivesTheSameBits) {
  expect_same_lanes<zym::TGamma, F32, Level::HA>();
  expect_same_lanes<zym::TGamma, F64, Level::HA>();
  expect_same_lanes<zym::TGamma, F64, Level::LA>();
  expect_same_lanes<zym::LGamma, F32, Level::LA>();
  expect_same_lanes<zym::LGamma, F32, Level::HA>();
  expect_same_lanes<zym::LGamma, F32, Level::EP>();
  expect_same_lanes<zym::LGamma, F64, Level::HA>();
}

}  // namespace
}  // namespace orvik::test
