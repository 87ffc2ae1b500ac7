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

// --- memory ---------------------------------------------------------------------------------------------------------

// Row k: k leading all-ones lanes. Rows overlap in memory: row k starts k lanes before the zeros.
alignas(64) inline constexpr int32_t kLaneMasks32[16] = {-1, -1, -1, -1, -1, -1, -1, -1, 0, 0, 0, 0, 0, 0, 0, 0};
alignas(64) inline constexpr int64_t kLaneMasks64[8] = {-1, -1, -1, -1, 0, 0, 0, 0};
inline __m256i lane_mask(F32, int k) {
  return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(kLaneMasks32 + 8 - k));
}
inline __m256i lane_mask(F64, int k) {
  return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(kLaneMasks64 + 4 - k));
}

template <class V>
V load(const typename V::Element* p);
template <>
inline F32 load<F32>(const float* p) {
  return _mm256_loadu_ps(p);
}
template <>
inline F64 load<F64>(const double* p) {
  return _mm256_loadu_pd(p);
}
inline void store(float* p, F32 a) { _mm256_storeu_ps(p, a.v); }
inline void store(double* p, F64 a) { _mm256_storeu_pd(p, a.v); }
// Past the caches, for results too large to stay there: p is aligned to 32 bytes.
inline void store_past_cache(float* p, F32 a) { _mm256_stream_ps(p, a.v); }
inline void store_past_cache(double* p, F64 a) { _mm256_stream_pd(p, a.v); }

// The first k lanes, the filler in the others; touches no memory behind element k - 1.
inline F32 load_first(const float* p, int k, F32 others) {
  const __m256i mask = lane_mask(others, k);
  return _mm256_blendv_ps(others.v, _mm256_maskload_ps(p, mask), _mm256_castsi256_ps(mask));
}
inline F64 load_first(const double* p, int k, F64 others) {
  const __m256i mask = lane_mask(others, k);
  return _mm256_blendv_pd(others.v, _mm256_maskload_pd(p, mask), _mm256_castsi256_pd(mask));
}
// The first k lanes, k below the width. Piecewise: the masked store instruction is microcoded on some processors and
// costs more than three branches.
inline void store_first(float* p, int k, F32 a) {
  __m128 rest = _mm256_castps256_ps128(a.v);
  if ((k & 4) != 0) {
    _mm_storeu_ps(p, rest);
    rest = _mm256_extractf128_ps(a.v, 1);
    p += 4;
  }
  if ((k & 2) != 0) {
    _mm_storel_pi(reinterpret_cast<__m64*>(p), rest);
    rest = _mm_movehl_ps(rest, rest);
    p += 2;
  }
  if ((k & 1) != 0) _mm_store_ss(p, rest);
}
inline void store_first(double* p, int k, F64 a) {
  __m128d rest = _mm256_castpd256_pd128(a.v);
  if ((k & 2) != 0) {
    _mm_storeu_pd(p, rest);
    rest = _mm256_extractf128_pd(a.v, 1);
    p += 2;
  }
  if ((k & 1) != 0) _mm_store_sd(p, rest);
}

// Every step-th element. Single loads: as fast as the gather instruction or faster, and without its 32-bit index range.
template <class V>
V load_strided(const typename V::Element* p, int64_t step);
template <>
inline F32 load_strided<F32>(const float* p, int64_t step) {
  return _mm256_setr_ps(p[0], p[step], p[2 * step], p[3 * step], p[4 * step], p[5 * step], p[6 * step], p[7 * step]);
}
template <>
inline F64 load_strided<F64>(const double* p, int64_t step) {
  return _mm256_setr_pd(p[0], p[step], p[2 * step], p[3 * step]);
}

// The first k of them, the last one again in the other lanes: no memory behind it is touched, and no detour through a
// buffer, from which a vector could only be loaded once all of its elements have left the store queue.
template <class V>
V load_first_strided(const typename V::Element* p, int64_t step, int k);
template <>
inline F32 load_first_strided<F32>(const float* p, int64_t step, int k) {
  const float* p1 = p + (k > 1 ? step : 0);
  const float* p2 = p1 + (k > 2 ? step : 0);
  const float* p3 = p2 + (k > 3 ? step : 0);
  const float* p4 = p3 + (k > 4 ? step : 0);
  const float* p5 = p4 + (k > 5 ? step : 0);
  const float* p6 = p5 + (k > 6 ? step : 0);
  const float* p7 = p6 + (k > 7 ? step : 0);
  return _mm256_setr_ps(*p, *p1, *p2, *p3, *p4, *p5, *p6, *p7);
}
template <>
inline F64 load_first_strided<F64>(const double* p, int64_t step, int k) {
  const double* p1 = p + (k > 1 ? step : 0);
  const double* p2 = p1 + (k > 2 ? step : 0);
  const double* p3 = p2 + (k > 3 ? step : 0);
  return _mm256_setr_pd(*p, *p1, *p2, *p3);
}

// One of four floats by the low two bits of the index; the table fills both halves of a register.
inline F32 select_in_quad(F32 table, I32 index) { return _mm256_permutevar_ps(table.v, index.v); }

// One of eight 32-bit entries by the low three bits of each 32-bit word of the index.
inline I32 look_up(I32 table, I32 index) { return _mm256_permutevar8x32_epi32(table.v, index.v); }

// Table look-up by lane. 64-bit rows are single loads: the gather instruction is slower on some processors and no faster
// on the others.
inline F32 gather(const float* table, I32 index) { return _mm256_i32gather_ps(table, index.v, 4); }
struct Indices {  // of four lanes, in scalar registers
  int64_t i0, i1, i2, i3;
  explicit Indices(I64 index) {
    const __m128i low = _mm256_castsi256_si128(index.v);
    const __m128i high = _mm256_extracti128_si256(index.v, 1);
    i0 = _mm_cvtsi128_si64(low);
    i1 = _mm_extract_epi64(low, 1);
    i2 = _mm_cvtsi128_si64(high);
    i3 = _mm_extract_epi64(high, 1);
  }
  explicit Indices(__m128i index) {  // four 32-bit ones, not negative
    const auto low = static_cast<uint64_t>(_mm_cvtsi128_si64(index));
    const auto high = static_cast<uint64_t>(_mm_extract_epi64(index, 1));
    i0 = static_cast<uint32_t>(low);
    i1 = static_cast<int64_t>(low >> 32);
    i2 = static_cast<uint32_t>(high);
    i3 = static_cast<int64_t>(high >> 32);
  }
};
template <int First = 0>  // the number of the table's first row
inline F64 gather(const double* table, Indices k) {
  const auto row = [&](int64_t i) { return table + (i - First); };
  const __m128d low = _mm_loadh_pd(_mm_load_sd(row(k.i0)), row(k.i1));
  const __m128d high = _mm_loadh_pd(_mm_load_sd(row(k.i2)), row(k.i3));
  return _mm256_insertf128_pd(_mm256_castpd128_pd256(low), high, 1);
}
// Both columns of a table of 16-byte rows.
struct GatheredPair {
  F64 first, second;
};
template <int First = 0>
inline GatheredPair gather(const double (*table)[2], Indices k) {
  const auto rows = [&](int64_t low, int64_t high) {
    return _mm256_insertf128_pd(_mm256_castpd128_pd256(_mm_loadu_pd(table[low - First])), _mm_loadu_pd(table[high - First]), 1);
  };
  const __m256d even = rows(k.i0, k.i2);
  const __m256d odd = rows(k.i1, k.i3);
  return {_mm256_unpacklo_pd(even, odd), _mm256_unpackhi_pd(even, odd)};
}

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
