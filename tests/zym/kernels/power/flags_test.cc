// Exception flags that a call leaves: those that IEEE 754 allows for the exact result, inexact aside.
#include <immintrin.h>

#include <random>

#include "pairs.h"

namespace orvik::test {
namespace {

constexpr uint32_t kInvalid = 1, kDivideByZero = 4, kOverflow = 8, kUnderflow = 16;

template <class E>
bool signalling(E x) {
  using Bits = std::conditional_t<sizeof(E) == 4, uint32_t, uint64_t>;
  return std::isnan(x) && (std::bit_cast<Bits>(x) >> (std::numeric_limits<E>::digits - 2) & 1) == 0;
}

template <class E>
uint32_t allowed(E x, E y) {
  using L = std::numeric_limits<E>;
  if (signalling(x) || signalling(y)) return kInvalid;
  if (std::isnan(x) || std::isnan(y) || std::isinf(x) || std::isinf(y) || y == 0) return 0;
  if (x == 0) return y < 0 ? kDivideByZero : 0;
  if (x < 0 && std::trunc(y) != y) return kInvalid;
  const ExactPower exact(static_cast<double>(x), static_cast<double>(y));
  if (exact.overflows<E>()) return kOverflow;
  const E rounded = exact.rounded<E>();
  // Tiny before rounding counts, and so does what rounds up to the smallest normal number.
  return std::fabs(rounded) <= L::min() && (rounded == 0 || exact.units(rounded) > 0) ? kUnderflow : 0;
}

template <class E>
void expect_flags(const std::string& function, const PowerPairs<E>& pairs) {
  const Row& row = row_named(row_of<E>(function));
  for (int level = 0; level < 3; ++level) {
    for (size_t i = 0; i < pairs.size(); ++i) {
      // Among plain elements, so that the lanes compute with it.
      E x[8], y[8], r[8];
      std::fill(x, x + 8, E(1.25)), std::fill(y, y + 8, E(1.5));
      x[i % 8] = pairs.x[i], y[i % 8] = pairs.y[i];
      Call<E> c;
      c.n = 8, c.a = x, c.b = y, c.r1 = r;
      _mm_setcsr(0x1F80);
      ASSERT_TRUE(call_row(row, level, false, c));
      const uint32_t raised = _mm_getcsr() & (kInvalid | kDivideByZero | kOverflow | kUnderflow);
      EXPECT_EQ(raised & ~allowed(pairs.x[i], pairs.y[i]), 0u)
          << std::hexfloat << row_of<E>(function) << ' ' << kLevelNames[level] << '(' << pairs.x[i] << ", "
          << pairs.y[i] << ") raises " << raised << ", result " << r[i % 8];
    }
  }
  _mm_setcsr(0x1F80);
}

template <class E>
PowerPairs<E> pairs_for_flags() {
  using L = std::numeric_limits<E>;
  PowerPairs<E> pairs;
  std::vector<E> values = {0,
                           1,
                           E(0.5),
                           2,
                           3,
                           E(1.5),
                           E(0.75),
                           1 + L::epsilon(),
                           1 - L::epsilon() / 2,
                           L::max(),
                           L::max() / 4,
                           L::min(),
                           L::min() / 2,
                           L::denorm_min(),
                           L::infinity(),
                           L::quiet_NaN(),
                           E(L::max_exponent),
                           E(L::max_exponent - 1),
                           E(-L::min_exponent),
                           E(149),
                           E(1074),
                           E(1e-13),
                           E(1e-30),
                           E(1e30),
                           std::sqrt(L::max()),
                           std::sqrt(L::min())};
  if constexpr (sizeof(E) == 4) {
    values.push_back(std::bit_cast<float>(0x7F800001u));
  } else {
    values.push_back(std::bit_cast<double>(uint64_t{0x7FF0000000000001}));
  }
  for (size_t i = 0, n = values.size(); i < n; ++i) values.push_back(-values[i]);
  for (const E x : values) {
    for (const E y : values) pairs.add(x, y);
  }
  std::mt19937_64 random(17);
  for (int i = 0; i < 5000; ++i) {
    if constexpr (sizeof(E) == 4) {
      pairs.add(std::bit_cast<float>(static_cast<uint32_t>(random())),
                std::bit_cast<float>(static_cast<uint32_t>(random())));
    } else {
      pairs.add(std::bit_cast<double>(random()), std::bit_cast<double>(random()));
    }
    // Results on both sides of the ends of the format.
    const double unit = std::ldexp(static_cast<double>(random() >> 11), -53);
    const E x = static_cast<E>(std::exp2(2 * unit - 1) + 0.001);
    const double end = i % 2 != 0 ? L::max_exponent : L::min_exponent - 12 * static_cast<double>(i % 3);
    const double near = end + std::ldexp(static_cast<double>(random() >> 11), -53 + (i % 4)) - 0.5;
    pairs.add(x, static_cast<E>(near / std::log2(static_cast<double>(x))));
  }
  return pairs;
}

TEST(PowerFlags, OnlyThoseOfTheExactResult) {
  expect_flags<float>("Pow", pairs_for_flags<float>());
  expect_flags<double>("Pow", pairs_for_flags<double>());
}

}  // namespace
}  // namespace orvik::test
