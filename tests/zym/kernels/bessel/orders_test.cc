// Bessel functions of any order against MPFR: across order = argument, where the direction of the recurrence changes;
// high orders; results next to the ends of the range.
#include <chrono>
#include <random>

#include "bessel_bounds.h"

namespace orvik::test {
namespace {

template <class E>
class BesselOrders : public ElementTest<E> {};
TYPED_TEST_SUITE(BesselOrders, Elements);

TYPED_TEST(BesselOrders, AcrossTheChangeOfDirection) {
  using E = TypeParam;
  for (int32_t order : {2, 3, 7, 30, 64, -101}) {
    std::vector<E> x;
    for (int step = -12; step <= 12; ++step)
      x.push_back(static_cast<E>(std::abs(order) + step * 0.25 * std::fmin(1, std::abs(order) / 6.0)));
    E down = static_cast<E>(std::abs(order)), up = down;
    for (int step = 0; step < 5; ++step) {
      x.insert(x.end(), {down, up});
      down = std::nextafter(down, E(0)), up = std::nextafter(up, this->inf);
    }
    expect_below_an_ulp<E>("Jn", order, x);
    expect_below_an_ulp<E>("Yn", order, x);
  }
}
TYPED_TEST(BesselOrders, RandomOrdersAndArguments) {
  using E = TypeParam;
  std::mt19937_64 random(11);
  std::uniform_real_distribution<double> exponent(-3, 2.6);
  for (int turn = 0; turn < 10; ++turn) {
    const auto order = static_cast<int32_t>(std::exp2(std::uniform_real_distribution<double>(0, 8)(random)));
    std::vector<E> x(16);
    for (E& e : x) e = static_cast<E>(std::pow(10, exponent(random)));
    expect_below_an_ulp<E>("Jn", turn % 2 == 0 ? order : -order, x);
    expect_below_an_ulp<E>("Yn", turn % 3 == 0 ? -order : order, x);
  }
}
TYPED_TEST(BesselOrders, OfSomeHundreds) {
  using E = TypeParam;
  expect_below_an_ulp<E>("Jn", 700, {E(600), E(695.5), E(710), E(1e4)});
  expect_below_an_ulp<E>("Yn", 700, {E(660), E(710)});
}
TYPED_TEST(BesselOrders, OfAMillionTakesALinearTime) {
  using E = TypeParam;
  const std::vector<E> x = {E(999900), E(1000000), E(1000100), E(2e6)};
  const auto begin = std::chrono::steady_clock::now();
  std::vector<E> r(x.size());
  for (const char* f : {"Jn", "Yn"}) {
    Call<E> c;
    c.n = static_cast<int32_t>(x.size()), c.a = x.data(), c.r1 = r.data(), c.order = 1000000;
    ASSERT_TRUE(call_row(row_named(row_of<E>(f)), 1, false, c));
    for (E y : r) EXPECT_TRUE(std::isfinite(y) && std::fabs(y) < 1000) << f;
  }
  EXPECT_LT(std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count(), 10);
}
TYPED_TEST(BesselOrders, ResultsAtBothEndsOfTheRange) {
  using E = TypeParam;
  const int32_t order = 20;
  std::vector<E> x;
  // (x/2)^20 / 20! and its reciprocal pass the ends of the range on the way.
  for (double e = sizeof(E) == 4 ? -3.5 : -52; e < (sizeof(E) == 4 ? 1 : -40); e += 0.125)
    x.push_back(static_cast<E>(std::exp2(e)));
  expect_below_an_ulp<E>("Jn", order, x);
  expect_below_an_ulp<E>("Yn", order, x);
  for (int32_t low : {2, 3}) {
    std::vector<E> y;
    const double end = sizeof(E) == 4 ? 76.0 / low * 2 : 1080.0 / low;
    for (double e = -end; e < -end + 30; e += 0.5) y.push_back(static_cast<E>(std::exp2(e)));
    expect_below_an_ulp<E>("Jn", low, y);
    expect_below_an_ulp<E>("Yn", low, y);
  }
}
TYPED_TEST(BesselOrders, AreExactZerosNowhereBelowTheRange) {
  using E = TypeParam;
  // The last order of J at 1 that is not rounded to 0, and the first that is.
  const int32_t last = sizeof(E) == 4 ? 28 : 148;
  for (int32_t order = last - 5; order < last + 5; ++order) expect_below_an_ulp<E>("Jn", order, {E(1), E(0.5), E(2)});
}

}  // namespace
}  // namespace orvik::test
