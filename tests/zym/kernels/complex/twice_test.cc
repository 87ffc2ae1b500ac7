// The complex lanes know no width: over twice the width they give the same bits, and the same over any order of the
// elements and over parts as they lie in memory.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <random>

#include "zym/kernels/complex/arithmetic.h"
#include "zym/kernels/complex/div.h"
#include "zym/kernels/complex/exp.h"
#include "zym/kernels/complex/ln.h"
#include "zym/kernels/complex/mul.h"
#include "zym/kernels/complex/polar.h"
#include "zym/kernels/complex/sqrt.h"

namespace orvik::zym {
namespace {

template <class R>
auto parts_of(const R& r) {
  if constexpr (IsMasked<R>::value) {
    return parts_of(r.value);
  } else if constexpr (requires { r.first; }) {
    return r;
  } else {
    return Pair<R>{r, r};
  }
}

template <class V>
struct Samples {
  using E = Element<V>;
  static constexpr int width = kWidth<V>;
  E part[4][2 * width];
  explicit Samples(std::mt19937_64& random) {
    std::uniform_real_distribution<double> unit(-8, 8);
    for (auto& parts : part) {
      for (E& x : parts) x = static_cast<E>(unit(random));
    }
  }
  V low(int i) const { return load<V>(part[i]); }
  V high(int i) const { return load<V>(part[i] + width); }
  Twice<V> both(int i) const { return {low(i), high(i)}; }
};

template <class V>
void expect_same(Pair<V> low, Pair<V> high, Pair<Twice<V>> both) {
  constexpr int width = kWidth<V>;
  Element<V> narrow[4 * width], wide[4 * width];
  store(narrow, low.first), store(narrow + width, high.first);
  store(narrow + 2 * width, low.second), store(narrow + 3 * width, high.second);
  store(wide, both.first), store(wide + 2 * width, both.second);
  EXPECT_EQ(std::memcmp(narrow, wide, sizeof narrow), 0);
}

template <class V, template <class, Level> class F, Level L>
void expect_unary() {
  std::mt19937_64 random(5);
  for (int round = 0; round < 300; ++round) {
    const Samples<V> s(random);
    const auto over = [](auto x, auto y) {
      using W = decltype(x);
      return parts_of(F<W, L>::lanes(Pair<W>{x, y}));
    };
    expect_same<V>(over(s.low(0), s.low(1)), over(s.high(0), s.high(1)), over(s.both(0), s.both(1)));
  }
}
template <class V, template <class, Level> class F, Level L>
void expect_binary() {
  std::mt19937_64 random(7);
  for (int round = 0; round < 300; ++round) {
    const Samples<V> s(random);
    const auto over = [](auto a, auto b, auto c, auto d) {
      using W = decltype(a);
      return parts_of(F<W, L>::lanes(Pair<W>{a, b}, Pair<W>{c, d}));
    };
    expect_same<V>(over(s.low(0), s.low(1), s.low(2), s.low(3)), over(s.high(0), s.high(1), s.high(2), s.high(3)),
                   over(s.both(0), s.both(1), s.both(2), s.both(3)));
  }
}

template <class V>
class ComplexLanes : public testing::Test {};
using Widths = testing::Types<F32, F64>;
TYPED_TEST_SUITE(ComplexLanes, Widths);

TYPED_TEST(ComplexLanes, TwiceTheWidthGivesTheSameBits) {
  using V = TypeParam;
  expect_binary<V, complex::Add, Level::HA>();
  expect_binary<V, complex::Sub, Level::HA>();
  expect_binary<V, complex::Mul, Level::HA>();
  expect_binary<V, complex::Mul, Level::EP>();
  expect_binary<V, complex::MulByConj, Level::HA>();
  expect_binary<V, complex::MulByConj, Level::EP>();
  expect_binary<V, complex::Div, Level::HA>();
  expect_binary<V, complex::Div, Level::EP>();
  expect_unary<V, complex::Exp, Level::LA>();
  expect_unary<V, complex::Exp, Level::HA>();
  expect_unary<V, complex::Ln, Level::LA>();
  expect_unary<V, complex::Ln, Level::HA>();
  expect_unary<V, complex::Ln, Level::EP>();
  expect_unary<V, complex::Sqrt, Level::LA>();
  if constexpr (Single<V>) expect_unary<V, complex::Sqrt, Level::HA>();
  expect_unary<V, complex::Abs, Level::HA>();
  expect_unary<V, complex::Arg, Level::HA>();
  expect_unary<V, complex::Conj, Level::HA>();
}

TYPED_TEST(ComplexLanes, PartsAsTheyLieInMemoryGiveTheSameBits) {
  using V = TypeParam;
  using E = Element<V>;
  constexpr int width = kWidth<V>;
  std::mt19937_64 random(9);
  for (int round = 0; round < 100; ++round) {
    const Samples<V> s(random);
    E pairs[2 * width], lying[2 * width], back[2 * width];
    const E *a = s.part[0], *b = s.part[1];
    const auto check = [&](const auto& by_pairs, const auto& as_stored) {
      store_pairs(pairs, by_pairs);
      store(lying, as_stored);
      EXPECT_EQ(std::memcmp(pairs, lying, sizeof pairs), 0);
    };
    check(complex::Conj<V, Level::HA>::lanes(load_pairs<V>(a)), complex::Conj<V, Level::HA>::lanes(load_stored<V>(a)));
    check(complex::Add<V, Level::HA>::lanes(load_pairs<V>(a), load_pairs<V>(b)).value,
          complex::Add<V, Level::HA>::lanes(load_stored<V>(a), load_stored<V>(b)).value);
    check(complex::Sub<V, Level::HA>::lanes(load_pairs<V>(a), load_pairs<V>(b)).value,
          complex::Sub<V, Level::HA>::lanes(load_stored<V>(a), load_stored<V>(b)).value);
    // The cheap order, and back.
    store(back, stored(load_mixed_pairs(a)));
    EXPECT_EQ(std::memcmp(back, a, sizeof back), 0);
    const Pair<V> ordered = load_pairs<V>(a), cheap = load_mixed_pairs(a);
    store(lying, mixed(cheap.first)), store(lying + width, mixed(cheap.second));
    store(pairs, ordered.first), store(pairs + width, ordered.second);
    EXPECT_EQ(std::memcmp(pairs, lying, sizeof pairs), 0);
  }
}

}  // namespace
}  // namespace orvik::zym
