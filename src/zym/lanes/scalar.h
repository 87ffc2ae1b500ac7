// Scalar pieces of element routines.
#pragma once

#include <bit>
#include <cstdint>
#include <limits>

namespace orvik::zym {

template <class E>
struct FloatBits;
template <>
struct FloatBits<float> {
  using Type = uint32_t;
  static constexpr uint32_t sign = 0x80000000u;
  static constexpr uint32_t exponent = 0x7F800000u;
  static constexpr uint32_t min_normal = 0x00800000u;
};
template <>
struct FloatBits<double> {
  using Type = uint64_t;
  static constexpr uint64_t sign = 0x8000000000000000u;
  static constexpr uint64_t exponent = 0x7FF0000000000000u;
  static constexpr uint64_t min_normal = 0x0010000000000000u;
};

template <class E>
auto bits_of(E x) {
  return std::bit_cast<typename FloatBits<E>::Type>(x);
}
template <class E>
E float_of(typename FloatBits<E>::Type bits) {
  return std::bit_cast<E>(bits);
}
template <class E>
auto magnitude_bits(E x) {
  return bits_of(x) & ~FloatBits<E>::sign;
}
template <class E>
bool is_nan(E x) {
  return magnitude_bits(x) > FloatBits<E>::exponent;
}
template <class E>
bool is_infinite(E x) {
  return magnitude_bits(x) == FloatBits<E>::exponent;
}
template <class E>
bool is_negative(E x) {
  return (bits_of(x) & FloatBits<E>::sign) != 0;
}
template <class E>
E zero_like(E x) {  // a zero with the sign of x
  return float_of<E>(bits_of(x) & FloatBits<E>::sign);
}

// A value that the compiler cannot see through, so that arithmetic on it happens in the machine and leaves its flags.
template <class E>
E opaque(E x) {
  asm volatile("" : "+x"(x));
  return x;
}

// x times one: a signalling NaN is quieted and raises invalid.
template <class E>
E quiet(E x) {
  return x * opaque(E(1));
}

template <class E>
constexpr E infinity = std::numeric_limits<E>::infinity();
template <class E>
constexpr E nan = std::numeric_limits<E>::quiet_NaN();

}  // namespace orvik::zym
