// Lane types: thin wrappers around the 256-bit registers, so that a lane computation reads like the mathematics and
// compiles to exactly the instructions that it names. Nothing is contracted or reassociated: a fused step is an fma().
#pragma once

#include <immintrin.h>

#include <bit>
#include <cstddef>
#include <cstdint>

namespace orvik::zym {

enum class Level { LA, HA, EP };

// --- eight 32-bit floats --------------------------------------------------------------------------------------------

struct I32 {  // eight 32-bit integers
  using Element = int32_t;
  __m256i v;
  I32() = default;
  I32(__m256i x) : v(x) {}
  explicit I32(int32_t x) : v(_mm256_set1_epi32(x)) {}
  explicit I32(uint32_t x) : v(_mm256_set1_epi32(std::bit_cast<int32_t>(x))) {}
};

struct F32 {
  using Element = float;
  using Integer = I32;
  using Bits = uint32_t;
  static constexpr int width = 8;
  static constexpr Bits sign_bit = 0x80000000u;
  static constexpr Bits exponent_field = 0x7F800000u;
  static constexpr int mantissa_bits = 23;
  static constexpr int bias = 127;
  static constexpr float filler = 0.75f;  // of inactive lanes: trips no special test, leaves no domain
  __m256 v;
  F32() = default;
  F32(__m256 x) : v(x) {}
  F32(float x) : v(_mm256_set1_ps(x)) {}
};

// --- four 64-bit floats ---------------------------------------------------------------------------------------------

struct I64 {  // four 64-bit integers
  using Element = int64_t;
  __m256i v;
  I64() = default;
  I64(__m256i x) : v(x) {}
  explicit I64(int64_t x) : v(_mm256_set1_epi64x(x)) {}
  explicit I64(uint64_t x) : v(_mm256_set1_epi64x(std::bit_cast<int64_t>(x))) {}
};

struct F64 {
  using Element = double;
  using Integer = I64;
  using Bits = uint64_t;
  static constexpr int width = 4;
  static constexpr Bits sign_bit = 0x8000000000000000u;
  static constexpr Bits exponent_field = 0x7FF0000000000000u;
  static constexpr int mantissa_bits = 52;
  static constexpr int bias = 1023;
  static constexpr double filler = 0.75;
  __m256d v;
  F64() = default;
  F64(__m256d x) : v(x) {}
  F64(double x) : v(_mm256_set1_pd(x)) {}
};

// --- arithmetic -----------------------------------------------------------------------------------------------------

inline F32 operator+(F32 a, F32 b) { return _mm256_add_ps(a.v, b.v); }
inline F32 operator-(F32 a, F32 b) { return _mm256_sub_ps(a.v, b.v); }
inline F32 operator*(F32 a, F32 b) { return _mm256_mul_ps(a.v, b.v); }
inline F32 operator/(F32 a, F32 b) { return _mm256_div_ps(a.v, b.v); }
inline F64 operator+(F64 a, F64 b) { return _mm256_add_pd(a.v, b.v); }
inline F64 operator-(F64 a, F64 b) { return _mm256_sub_pd(a.v, b.v); }
inline F64 operator*(F64 a, F64 b) { return _mm256_mul_pd(a.v, b.v); }
inline F64 operator/(F64 a, F64 b) { return _mm256_div_pd(a.v, b.v); }

// a b + c, a b - c, c - a b, each with one rounding.
inline F32 fma(F32 a, F32 b, F32 c) { return _mm256_fmadd_ps(a.v, b.v, c.v); }
inline F32 fms(F32 a, F32 b, F32 c) { return _mm256_fmsub_ps(a.v, b.v, c.v); }
inline F32 fnma(F32 a, F32 b, F32 c) { return _mm256_fnmadd_ps(a.v, b.v, c.v); }
inline F64 fma(F64 a, F64 b, F64 c) { return _mm256_fmadd_pd(a.v, b.v, c.v); }
inline F64 fms(F64 a, F64 b, F64 c) { return _mm256_fmsub_pd(a.v, b.v, c.v); }
inline F64 fnma(F64 a, F64 b, F64 c) { return _mm256_fnmadd_pd(a.v, b.v, c.v); }

inline F32 sqrt(F32 a) { return _mm256_sqrt_ps(a.v); }
inline F64 sqrt(F64 a) { return _mm256_sqrt_pd(a.v); }

// 1/a and 1/sqrt(a) with a relative error of at most 1.5 * 2^-12. The bits differ between processor makers. Denormals
// count as zero.
inline F32 reciprocal_estimate(F32 a) { return _mm256_rcp_ps(a.v); }
inline F32 inverse_root_estimate(F32 a) { return _mm256_rsqrt_ps(a.v); }

// The same of the narrowed values: what is no normal float is out of range.
inline F64 reciprocal_estimate(F64 a) { return _mm256_cvtps_pd(_mm_rcp_ps(_mm256_cvtpd_ps(a.v))); }

// The instruction's own choice on NaNs and zeros: b unless a is greater (less).
inline F32 max(F32 a, F32 b) { return _mm256_max_ps(a.v, b.v); }
inline F32 min(F32 a, F32 b) { return _mm256_min_ps(a.v, b.v); }
inline F64 max(F64 a, F64 b) { return _mm256_max_pd(a.v, b.v); }
inline F64 min(F64 a, F64 b) { return _mm256_min_pd(a.v, b.v); }

// Mode is an immediate of the round instruction, _MM_FROUND_NO_EXC included where inexact must not be raised.
template <int Mode>
inline F32 round(F32 a) {
  return _mm256_round_ps(a.v, Mode);
}
template <int Mode>
inline F64 round(F64 a) {
  return _mm256_round_pd(a.v, Mode);
}

// --- bits -----------------------------------------------------------------------------------------------------------

inline F32 operator&(F32 a, F32 b) { return _mm256_and_ps(a.v, b.v); }
inline F32 operator|(F32 a, F32 b) { return _mm256_or_ps(a.v, b.v); }
inline F32 operator^(F32 a, F32 b) { return _mm256_xor_ps(a.v, b.v); }
inline F32 andnot(F32 mask, F32 a) { return _mm256_andnot_ps(mask.v, a.v); }
inline F64 operator&(F64 a, F64 b) { return _mm256_and_pd(a.v, b.v); }
inline F64 operator|(F64 a, F64 b) { return _mm256_or_pd(a.v, b.v); }
inline F64 operator^(F64 a, F64 b) { return _mm256_xor_pd(a.v, b.v); }
inline F64 andnot(F64 mask, F64 a) { return _mm256_andnot_pd(mask.v, a.v); }

inline I32 operator+(I32 a, I32 b) { return _mm256_add_epi32(a.v, b.v); }
inline I32 operator-(I32 a, I32 b) { return _mm256_sub_epi32(a.v, b.v); }
inline I32 operator&(I32 a, I32 b) { return _mm256_and_si256(a.v, b.v); }
inline I32 operator|(I32 a, I32 b) { return _mm256_or_si256(a.v, b.v); }
inline I32 operator>(I32 a, I32 b) { return _mm256_cmpgt_epi32(a.v, b.v); }
inline I64 operator+(I64 a, I64 b) { return _mm256_add_epi64(a.v, b.v); }
inline I64 operator-(I64 a, I64 b) { return _mm256_sub_epi64(a.v, b.v); }
inline I64 operator&(I64 a, I64 b) { return _mm256_and_si256(a.v, b.v); }
inline I64 operator|(I64 a, I64 b) { return _mm256_or_si256(a.v, b.v); }

// Only the high words count, as signed integers; so do the sign bits of the result.
inline I64 high_above(I64 a, I64 b) { return _mm256_cmpgt_epi32(a.v, b.v); }

template <int Count>
inline I32 shift_left(I32 a) {
  return _mm256_slli_epi32(a.v, Count);
}
template <int Count>
inline I64 shift_left(I64 a) {
  return _mm256_slli_epi64(a.v, Count);
}
template <int Count>
inline I32 shift_right(I32 a) {  // logical
  return _mm256_srli_epi32(a.v, Count);
}
template <int Count>
inline I64 shift_right(I64 a) {
  return _mm256_srli_epi64(a.v, Count);
}
template <int Count>
inline I32 shift_right_arithmetic(I32 a) {
  return _mm256_srai_epi32(a.v, Count);
}

// Both halves of each 32-bit word: the high 16 bits of the unsigned product.
inline __m256i multiply_high16(__m256i a, uint16_t b) {
  return _mm256_mulhi_epu16(a, _mm256_set1_epi16(static_cast<int16_t>(b)));
}
// Bytes of `yes` where the top bit of the mask's byte is set.
inline I64 select_bytes(I64 mask, I64 yes, I64 no) { return _mm256_blendv_epi8(no.v, yes.v, mask.v); }

inline I32 as_bits(F32 a) { return _mm256_castps_si256(a.v); }
inline I64 as_bits(F64 a) { return _mm256_castpd_si256(a.v); }
inline F32 as_float(I32 a) { return _mm256_castsi256_ps(a.v); }
inline F64 as_float(I64 a) { return _mm256_castsi256_pd(a.v); }

template <class V>
inline V pattern(typename V::Bits bits) {  // all lanes with these bits
  return as_float(typename V::Integer(bits));
}
template <class V>
inline V sign_mask() {
  return pattern<V>(V::sign_bit);
}
template <class V>
inline V magnitude(V a) {
  return andnot(sign_mask<V>(), a);
}
// a / 2 of normal numbers with a normal half, by the exponent: keeps the multiplier free.
inline F32 half_of(F32 a) { return as_float(as_bits(a) - I32(int32_t{1} << F32::mantissa_bits)); }
inline F64 half_of(F64 a) { return as_float(as_bits(a) - I64(int64_t{1} << F64::mantissa_bits)); }
template <class V>
inline V sign_of(V a) {
  return a & sign_mask<V>();
}

inline F32 to_float(I32 a) { return _mm256_cvtepi32_ps(a.v); }

inline I32 to_integer(F32 a) { return _mm256_cvtps_epi32(a.v); }  // in the current direction: to nearest
inline __m128i low_half(I32 a) { return _mm256_castsi256_si128(a.v); }
inline __m128i high_half(I32 a) { return _mm256_extracti128_si256(a.v, 1); }

// Halves of eight floats as doubles, and back.
inline F64 widen_low(F32 a) { return _mm256_cvtps_pd(_mm256_castps256_ps128(a.v)); }
inline F64 widen_high(F32 a) { return _mm256_cvtps_pd(_mm256_extractf128_ps(a.v, 1)); }
inline F32 narrow(F64 low, F64 high) {
  return _mm256_insertf128_ps(_mm256_castps128_ps256(_mm256_cvtpd_ps(low.v)), _mm256_cvtpd_ps(high.v), 1);
}

// --- masks: all-ones or all-zeros lanes of the same type; the sign bit decides ---------------------------------------

template <int Predicate>
inline F32 compare(F32 a, F32 b) {
  return _mm256_cmp_ps(a.v, b.v, Predicate);
}
template <int Predicate>
inline F64 compare(F64 a, F64 b) {
  return _mm256_cmp_pd(a.v, b.v, Predicate);
}

inline F32 select(F32 mask, F32 yes, F32 no) { return _mm256_blendv_ps(no.v, yes.v, mask.v); }
inline F64 select(F64 mask, F64 yes, F64 no) { return _mm256_blendv_pd(no.v, yes.v, mask.v); }

inline uint32_t lane_bits(F32 mask) { return static_cast<uint32_t>(_mm256_movemask_ps(mask.v)); }
inline uint32_t lane_bits(F64 mask) { return static_cast<uint32_t>(_mm256_movemask_pd(mask.v)); }
inline bool none(F32 mask) { return _mm256_testz_ps(mask.v, mask.v) != 0; }
inline bool none(F64 mask) { return _mm256_testz_pd(mask.v, mask.v) != 0; }

// Lanes above a bound as signed 32-bit words (in 64-bit lanes the high word decides), not compared yet: tests against the
// same bound are joined by the larger word, so that one comparison serves a whole block.
template <class V, int32_t bound>
struct Above {
  __m256i words;
  operator V() const { return as_float(typename V::Integer(_mm256_cmpgt_epi32(words, _mm256_set1_epi32(bound)))); }
};
template <class V, int32_t bound>
Above<V, bound> operator|(Above<V, bound> a, Above<V, bound> b) {
  return {_mm256_max_epi32(a.words, b.words)};
}
template <class V, int32_t bound>
V operator|(V a, Above<V, bound> b) {
  return a | V(b);
}
template <class V, int32_t bound>
bool none(Above<V, bound> a) {
  return none(V(a));
}
template <class V, int32_t bound>
uint32_t lane_bits(Above<V, bound> a) {
  return lane_bits(V(a));
}

// Lanes whose magnitude, as an integer, is above the bound; in 64 bits the bound's low word counts as all ones.
template <uint32_t bound, class V>
Above<V, static_cast<int32_t>(bound)> magnitude_above(V a) {
  return {as_bits(magnitude(a)).v};
}

// Lanes whose words are outside [first, last], all of them positive: one addition moves the range to the lowest signed
// integers.
template <uint32_t first, uint32_t last, class V>
auto outside(V a) {
  constexpr uint32_t shift = 0x80000000u - first;
  const __m256i moved = _mm256_add_epi32(as_bits(a).v, _mm256_set1_epi32(static_cast<int32_t>(shift)));
  return Above<V, static_cast<int32_t>(last + shift)>{moved};
}

// Infinities and NaNs. Zeros, negatives, denormals, infinities and NaNs.
inline auto not_finite(F32 a) { return magnitude_above<0x7F7FFFFF>(a); }
inline auto not_finite(F64 a) { return magnitude_above<0x7FEFFFFF>(a); }
inline auto not_positive_normal(F32 a) { return outside<0x00800000, 0x7F7FFFFF>(a); }
inline auto not_positive_normal(F64 a) { return outside<0x00100000, 0x7FEFFFFF>(a); }

// --- polynomials ----------------------------------------------------------------------------------------------------

// Horner's rule with fused steps, coefficients from the highest power down.
template <class V>
inline V horner(V, V c) {
  return c;
}
template <class V, class... Rest>
inline V horner(V x, V highest, V next, Rest... rest) {
  return horner(x, fma(highest, x, next), rest...);
}
template <class V, size_t N>
inline V horner(V x, const typename V::Element (&c)[N]) {
  V sum = c[0];
  for (size_t i = 1; i < N; ++i) sum = fma(sum, x, V(c[i]));
  return sum;
}

}  // namespace orvik::zym
