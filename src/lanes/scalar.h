// One element: the operations of the lanes on a plain float or double, and what element routines need besides.
#pragma once

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>

#include "lanes/types.h"

namespace orvik {

template <class E>
using FloatBits = FloatFormat<E>;

template <class E>
auto bits_of(E x) {
  return std::bit_cast<typename FloatFormat<E>::Bits>(x);
}
template <class E>
E float_of(typename FloatFormat<E>::Bits bits) {
  return std::bit_cast<E>(bits);
}
template <class E>
auto magnitude_bits(E x) {
  return bits_of(x) & ~FloatFormat<E>::sign_bit;
}
template <class E>
bool is_nan(E x) {
  return magnitude_bits(x) > FloatFormat<E>::exponent_field;
}
template <class E>
bool is_infinite(E x) {
  return magnitude_bits(x) == FloatFormat<E>::exponent_field;
}
template <class E>
bool is_negative(E x) {
  return (bits_of(x) & FloatFormat<E>::sign_bit) != 0;
}
template <class E>
E zero_like(E x) {  // a zero with the sign of x
  return float_of<E>(bits_of(x) & FloatFormat<E>::sign_bit);
}

// 2^k of a normal number.
template <class E>
E power_of_two(int64_t k) {
  using Bits = typename FloatFormat<E>::Bits;
  return float_of<E>(static_cast<Bits>(k + FloatFormat<E>::bias) << FloatFormat<E>::mantissa_bits);
}
// The exponent of a finite number that is not 0.
template <class E>
int exponent_of(E x) {
  const auto m = magnitude_bits(x);
  constexpr int kAbove = std::countl_zero(FloatFormat<E>::min_normal);
  const int shift = m < FloatFormat<E>::min_normal ? std::countl_zero(m) - kAbove : 0;
  return static_cast<int>((m << shift) >> FloatFormat<E>::mantissa_bits) - shift - FloatFormat<E>::bias;
}
// x 2^k, rounded once: in steps of which only the last can round, exact in the others.
inline double times_two_to(double x, int k) {
  constexpr double kUp = 0x1p1023, kDown = 0x1p-969;  // what this leaves of a number is not denormal unless the end is
  for (int i = 0; k > 1023 && i < 2; ++i) x *= kUp, k -= 1023;
  for (int i = 0; k < -1022 && i < 2; ++i) x *= kDown, k += 969;
  return x * power_of_two<double>(k > 1023 ? 1023 : k < -1022 ? -1022 : k);
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

// --- the lanes' operations -------------------------------------------------------------------------------------------

inline float fma(float a, float b, float c) { return std::fma(a, b, c); }
inline float fms(float a, float b, float c) { return std::fma(a, b, -c); }
inline float fnma(float a, float b, float c) { return std::fma(-a, b, c); }
inline double fma(double a, double b, double c) { return std::fma(a, b, c); }
inline double fms(double a, double b, double c) { return std::fma(a, b, -c); }
inline double fnma(double a, double b, double c) { return std::fma(-a, b, c); }
inline float sqrt(float a) { return std::sqrt(a); }
inline double sqrt(double a) { return std::sqrt(a); }

// The vector instructions' choice on NaNs and zeros: b unless a is greater (less).
inline float max(float a, float b) { return a > b ? a : b; }
inline float min(float a, float b) { return a < b ? a : b; }
inline double max(double a, double b) { return a > b ? a : b; }
inline double min(double a, double b) { return a < b ? a : b; }

inline float select(bool mask, float yes, float no) { return mask ? yes : no; }
inline double select(bool mask, double yes, double no) { return mask ? yes : no; }
inline uint32_t select(bool mask, uint32_t yes, uint32_t no) { return mask ? yes : no; }
inline uint64_t select(bool mask, uint64_t yes, uint64_t no) { return mask ? yes : no; }
inline float keep(bool mask, float a) { return mask ? a : 0.0f; }
inline double keep(bool mask, double a) { return mask ? a : 0.0; }
inline float drop(bool mask, float a) { return mask ? 0.0f : a; }
inline double drop(bool mask, double a) { return mask ? 0.0 : a; }
inline bool complement(bool mask) { return !mask; }
inline bool none(bool mask) { return !mask; }
inline uint32_t lane_bits(bool mask) { return mask ? 1 : 0; }
inline bool sign_decides(float a) { return is_negative(a); }
inline bool sign_decides(double a) { return is_negative(a); }

inline uint32_t as_bits(float a) { return bits_of(a); }
inline uint64_t as_bits(double a) { return bits_of(a); }
inline float as_float(uint32_t a) { return float_of<float>(a); }
inline double as_float(uint64_t a) { return float_of<double>(a); }
template <int Count>
inline uint32_t shift_left(uint32_t a) {
  return a << Count;
}
template <int Count>
inline uint64_t shift_left(uint64_t a) {
  return a << Count;
}
template <int Count>
inline uint32_t shift_right(uint32_t a) {
  return a >> Count;
}
template <int Count>
inline uint64_t shift_right(uint64_t a) {
  return a >> Count;
}
template <int Count>
inline uint32_t shift_right_arithmetic(uint32_t a) {
  return static_cast<uint32_t>(static_cast<int32_t>(a) >> Count);
}
inline uint64_t multiply_low_words(uint64_t a, uint64_t b) { return (a & 0xFFFFFFFFu) * (b & 0xFFFFFFFFu); }
inline bool equal(uint32_t a, uint32_t b) { return a == b; }
inline bool equal(uint64_t a, uint64_t b) { return a == b; }
inline bool greater_signed(uint32_t a, uint32_t b) { return static_cast<int32_t>(a) > static_cast<int32_t>(b); }
inline bool greater_signed(uint64_t a, uint64_t b) { return static_cast<int64_t>(a) > static_cast<int64_t>(b); }
inline float to_float(uint32_t a) { return static_cast<float>(static_cast<int32_t>(a)); }
inline uint32_t to_integer(float a) { return static_cast<uint32_t>(static_cast<int32_t>(std::lrintf(a))); }
inline double to_double(uint32_t a) { return static_cast<int32_t>(a); }

inline float magnitude(float a) { return float_of<float>(magnitude_bits(a)); }
inline double magnitude(double a) { return float_of<double>(magnitude_bits(a)); }
inline float sign_of(float a) { return zero_like(a); }
inline double sign_of(double a) { return zero_like(a); }
inline float join_sign(float a, float sign) { return float_of<float>(bits_of(a) | bits_of(sign_of(sign))); }
inline double join_sign(double a, double sign) { return float_of<double>(bits_of(a) | bits_of(sign_of(sign))); }
inline float flip_sign(float a, float sign) { return float_of<float>(bits_of(a) ^ bits_of(sign_of(sign))); }
inline double flip_sign(double a, double sign) { return float_of<double>(bits_of(a) ^ bits_of(sign_of(sign))); }

}  // namespace orvik
