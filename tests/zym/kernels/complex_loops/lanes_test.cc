// Lanes and element routines are one text: what lanes serve has the bits that the routine gives, over any width, and the
// usual arguments are served.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <random>
#include <vector>

#include "zym/kernels/complex_loops/arc.h"
#include "zym/kernels/complex_loops/arc_tangent.h"
#include "zym/kernels/complex_loops/log10.h"
#include "zym/kernels/complex_loops/pow.h"
#include "zym/kernels/complex_loops/sine.h"
#include "zym/kernels/complex_loops/tangent.h"

namespace orvik::zym {
namespace {

// Parts about everything that lanes treat differently, of all sizes, and the usual ones.
template <class E>
std::vector<Complex<E>> elements() {
  using L = std::numeric_limits<E>;
  const double edges[] = {0,     0x1p-900, 0x1p-700, 0x1p-500, 0x1p-400, 0x1p-120, 0x1p-10, 0.5,     0.6,    0.8,     1,
                          1.5,   2,        22,       87,       88.7,     690,      700,     0x1p14,  65536., 0x1p100, 0x1p400,
                          3.125, 0.8660254037844386};
  std::vector<E> parts = {L::denorm_min(), L::min(), L::max(), L::infinity(), L::quiet_NaN()};
  for (double edge : edges) {
    const E x = static_cast<E>(edge);
    parts.insert(parts.end(), {x, std::nextafter(x, E(0)), std::nextafter(x, L::infinity())});
  }
  std::vector<Complex<E>> z;
  for (E x : parts) {
    for (E y : parts) z.insert(z.end(), {{x, y}, {-x, y}, {x, -y}, {-x, -y}});
  }
  std::mt19937_64 random(11);
  std::uniform_real_distribution<double> unit(-4, 4), power(-L::max_exponent * 0.9, L::max_exponent * 0.9);
  for (int i = 0; i < 20000; ++i) {
    const double angle = unit(random);
    z.push_back({static_cast<E>(unit(random)), static_cast<E>(unit(random))});
    z.push_back({static_cast<E>(std::exp2(power(random))), static_cast<E>(-unit(random))});
    z.push_back({static_cast<E>(unit(random)), static_cast<E>(std::exp2(power(random)))});
    z.push_back({static_cast<E>(std::cos(angle)), static_cast<E>(std::sin(angle))});
  }
  while (z.size() % (2 * kWidth<VectorOf<E>>) != 0) z.push_back({1, 1});
  return z;
}

template <class C>
bool same_bits(const C& x, const C& y) {
  return std::memcmp(&x, &y, sizeof x) == 0;
}

template <class V>
class LanesOfLoops : public testing::Test {
 protected:
  using E = Element<V>;
  using C = Complex<E>;
  static Pair<V> load_at(const C* p) { return load_pairs<V>(reinterpret_cast<const E*>(p)); }
  static Pair<Twice<V>> join(Pair<V> low, Pair<V> high) {
    return {{low.first, high.first}, {low.second, high.second}};
  }

  // One block after the other by `lanes`, twice the width by `wide`, elements by `element`; all of the same index.
  template <class Lanes, class WideLanes, class Element>
  void expect_one_text(const char* name, size_t n, size_t usual_from, size_t usual, Lanes lanes, WideLanes wide, Element element) {
    size_t served = 0;
    for (size_t i = 0; i < n; i += 2 * kWidth<V>) {
      const auto low = lanes(i), high = lanes(i + kWidth<V>);
      const auto both = wide(i);
      C one[2 * kWidth<V>], two[2 * kWidth<V>];
      store_pairs(reinterpret_cast<E*>(one), low.value);
      store_pairs(reinterpret_cast<E*>(one + kWidth<V>), high.value);
      store_pairs(reinterpret_cast<E*>(two), Pair<V>{both.value.first.low, both.value.second.low});
      store_pairs(reinterpret_cast<E*>(two + kWidth<V>), Pair<V>{both.value.first.high, both.value.second.high});
      const uint32_t left = lane_bits(Mask<V>(low.special)) | lane_bits(Mask<V>(high.special)) << kWidth<V>;
      ASSERT_EQ(left, lane_bits(Mask<Twice<V>>(both.special))) << name << i;
      for (int k = 0; k < 2 * kWidth<V>; ++k) {
        if ((left >> k & 1) != 0) continue;
        const C alone = element(i + static_cast<size_t>(k));
        EXPECT_TRUE(same_bits(one[k], alone)) << name << " element " << i + static_cast<size_t>(k);
        EXPECT_TRUE(same_bits(two[k], alone)) << name << " element " << i + static_cast<size_t>(k);
        served += i + static_cast<size_t>(k) >= usual_from ? 1 : 0;
      }
    }
    EXPECT_GE(served, usual) << name;
  }

  template <template <class, Level> class F>
  void unary(const char* name) {
    const std::vector<C> z = elements<E>();
    expect_one_text(
        name, z.size(), z.size() - 80000, 39900, [&](size_t i) { return F<V, Level::HA>::lanes(load_at(&z[i])); },
        [&](size_t i) {
          return F<Twice<V>, Level::HA>::lanes(join(load_at(&z[i]), load_at(&z[i + kWidth<V>])));
        },
        [&](size_t i) {
          C r;
          F<V, Level::HA>::element(&z[i], &r);
          return r;
        });
  }
};
using Widths = testing::Types<F32, F64>;
TYPED_TEST_SUITE(LanesOfLoops, Widths);

TYPED_TEST(LanesOfLoops, GiveTheBitsOfTheRoutineAndServeUsualArguments) {
  this->template unary<Sin>("Sin");
  this->template unary<Cos>("Cos");
  this->template unary<Sinh>("Sinh");
  this->template unary<Cosh>("Cosh");
  this->template unary<Tan>("Tan");
  this->template unary<Tanh>("Tanh");
  this->template unary<Asin>("Asin");
  this->template unary<Acos>("Acos");
  this->template unary<Asinh>("Asinh");
  this->template unary<Acosh>("Acosh");
  this->template unary<Atan>("Atan");
  this->template unary<Atanh>("Atanh");
  this->template unary<Log10>("Log10");
}

TYPED_TEST(LanesOfLoops, PowersAreThoseOfTheRoutine) {
  using V = TypeParam;
  using C = Complex<Element<V>>;
  const std::vector<C> z = elements<Element<V>>();
  std::vector<C> w = z;
  std::shuffle(w.begin(), w.end(), std::mt19937_64(3));
  const auto at = [&](const std::vector<C>& x, size_t i) { return this->load_at(&x[i]); };
  const auto both = [&](const std::vector<C>& x, size_t i) { return this->join(at(x, i), at(x, i + kWidth<V>)); };
  this->expect_one_text(
      "Pow", z.size(), z.size() - 80000, 10000, [&](size_t i) { return Pow<V, Level::HA>::lanes(at(z, i), at(w, i)); },
      [&](size_t i) { return Pow<Twice<V>, Level::HA>::lanes(both(z, i), both(w, i)); },
      [&](size_t i) {
        C r;
        Pow<V, Level::HA>::element(&z[i], &w[i], &r);
        return r;
      });
}

}  // namespace
}  // namespace orvik::zym
