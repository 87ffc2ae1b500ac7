// Random numbers and bit patterns of inputs.
#pragma once

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <type_traits>

namespace orvik::accuracy {

// std's distributions differ between libraries; these do not.
class Random {
 public:
  explicit Random(uint64_t seed) : engine_(seed) {}
  uint64_t word() { return engine_(); }
  double unit() { return static_cast<double>(word() >> 11) * 0x1p-53; }
  double between(double low, double high) { return low + (high - low) * unit(); }

 private:
  std::mt19937_64 engine_;
};

template <class E>
using Bits = std::conditional_t<sizeof(E) == 4, uint32_t, uint64_t>;

template <class E>
constexpr int kMantissa = std::numeric_limits<E>::digits - 1;

template <class E>
E random_pattern(Random& random) {
  return std::bit_cast<E>(static_cast<Bits<E>>(random.word() >> (64 - 8 * sizeof(E))));
}

template <class E>
E random_denormal(Random& random) {
  const auto bits = static_cast<Bits<E>>(random.word());
  const Bits<E> sign = bits & (Bits<E>{1} << (8 * sizeof(E) - 1));
  const int shift = static_cast<int>(random.word() % kMantissa<E>);
  return std::bit_cast<E>(static_cast<Bits<E>>(((bits & ((Bits<E>{1} << kMantissa<E>)-1)) >> shift) | sign));
}

template <class E>
E neighbour(E x, int steps) {
  return std::bit_cast<E>(static_cast<Bits<E>>(std::bit_cast<Bits<E>>(x) + static_cast<Bits<E>>(steps)));
}

// Uniform in the interval, or spread over its magnitudes down to 2^-40 of its ends.
template <class E>
E from_domain(Random& random, double low, double high) {
  if (random.word() % 4 != 0) return static_cast<E>(random.between(low, high));
  const double end = random.word() % 2 != 0 ? low : high;
  const double near =
      random.word() % 4 == 0 ? end * (1 - std::exp2(-40 * random.unit())) : end * std::exp2(-40 * random.unit());
  return static_cast<E>(near);
}

}  // namespace orvik::accuracy
