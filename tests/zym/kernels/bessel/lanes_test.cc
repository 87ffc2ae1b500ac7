// The families are written for lanes of any width: twice the width gives the same bits.
#include <random>

#include "support/row_calls.h"
#include "zym/kernels/bessel/modified.h"
#include "zym/kernels/bessel/order.h"

namespace orvik::test {
namespace {

using zym::Level;

// `run` computes a vector of the type of its first argument.
template <class V, class Run>
void expect_same(double low, double high, Run run) {
  using E = Element<V>;
  using W = Twice<V>;
  std::mt19937_64 random(5);
  std::uniform_real_distribution<double> exponent(std::log(low), std::log(high));
  for (int turn = 0; turn < 300; ++turn) {
    alignas(64) E x[kWidth<W>], two[kWidth<W>], one[kWidth<W>];
    for (E& e : x) e = static_cast<E>(std::exp(exponent(random)));
    store(two, run(load<W>(x)));
    store(one, run(load<V>(x)));
    store(one + kWidth<V>, run(load<V>(x + kWidth<V>)));
    ASSERT_EQ(std::memcmp(one, two, sizeof one), 0);
  }
}

template <template <class, Level> class Function, class V>
void expect_unary_same(double low, double end, double high) {
  expect_same<V>(low, end, [](auto x) { return Function<decltype(x), Level::HA>::lanes(x); });
  expect_same<V>(end, high, [](auto x) { return Function<decltype(x), Level::HA>::wide(x).value; });
}
template <template <class, Level> class Function, class V>
void expect_orders_same() {
  for (int32_t order : {0, 1, 2, -3, 10, 60}) {
    expect_same<V>(1.0, 1e4, [=](auto x) { return Function<decltype(x), Level::HA>::lanes(x, zym::Order{order}); });
  }
}

TEST(BesselLanes, TwiceTheWidthGivesTheSameBits) {
  expect_unary_same<zym::J0, F32>(1e-3, 63.7, 1e30);
  expect_unary_same<zym::J0, F64>(1e-3, 63.7, 1e30);
  expect_unary_same<zym::J1, F32>(1e-3, 63.7, 1e30);
  expect_unary_same<zym::J1, F64>(1e-3, 63.7, 1e30);
  expect_unary_same<zym::Y0, F32>(0.04, 63.7, 1e30);
  expect_unary_same<zym::Y0, F64>(0.04, 63.7, 1e30);
  expect_unary_same<zym::Y1, F32>(0.04, 63.7, 1e30);
  expect_unary_same<zym::Y1, F64>(0.04, 63.7, 1e30);
  expect_unary_same<zym::I0, F32>(1e-3, 31.7, 90);
  expect_unary_same<zym::I0, F64>(1e-3, 31.7, 700);
  expect_unary_same<zym::I1, F32>(1e-3, 31.7, 90);
  expect_unary_same<zym::I1, F64>(1e-3, 31.7, 700);
}
TEST(BesselLanes, TwiceTheWidthGivesTheSameBitsAtAnyOrder) {
  expect_orders_same<zym::Jn, F32>();
  expect_orders_same<zym::Jn, F64>();
  expect_orders_same<zym::Yn, F32>();
  expect_orders_same<zym::Yn, F64>();
}

}  // namespace
}  // namespace orvik::test
