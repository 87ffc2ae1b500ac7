// Words of 256-bit registers: eight 32-bit words, four 64-bit words, and halves of four 32-bit words.
#pragma once

#include <cstdint>

#include "lanes/memory.h"
#include "lanes/types.h"
#include "lanes/vectors.h"

namespace orvik {

// ---- memory --------------------------------------------------------------------------------------------------------

inline I32 load_words(const uint32_t* p) { return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p)); }
inline I64 load_words(const uint64_t* p) { return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p)); }
// Four words again and again.
inline I64 load_fours(const uint64_t* p) { return load_words(p); }
inline I32Half load_fours(const uint32_t* p) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p)); }
inline F64 load_fours(const double* p) { return _mm256_loadu_pd(p); }
inline I32Half load_half(const uint32_t* p) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p)); }
inline void store(uint32_t* p, I32 w) { _mm256_storeu_si256(reinterpret_cast<__m256i*>(p), w.v); }
inline void store(uint64_t* p, I64 w) { _mm256_storeu_si256(reinterpret_cast<__m256i*>(p), w.v); }
inline void store(uint32_t* p, I32Half w) { _mm_storeu_si128(reinterpret_cast<__m128i*>(p), w.v); }
// Every four words of a half, `step` words apart.
inline void store_fours(uint32_t* p, ptrdiff_t, I32Half w) { store(p, w); }

// The first four words.
inline void store_four(uint64_t* p, I64 w) { store(p, w); }

// Lanes 0 to count - 1 set, of eight 32-bit lanes.
inline I32 first_lanes(int count) {
  return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(kLaneMasks32 + 8 - count));
}
// Four of them as 64-bit lanes.
inline I64 first_long_lanes(int count) {
  return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(kLaneMasks64 + 4 - count));
}
// The first lanes only, at most all: the rest of memory is not touched.
inline I32 load_some(const uint32_t* p, int count) {
  return _mm256_maskload_epi32(reinterpret_cast<const int*>(p), first_lanes(count).v);
}
inline void store_some(float* p, F32 x, int count) { count < 8 ? store_first(p, count, x) : store(p, x); }
inline void store_some(double* p, F64 x, int count) { count < 4 ? store_first(p, count, x) : store(p, x); }
inline void store_some(uint32_t* p, I32 w, int count) {
  store_some(reinterpret_cast<float*>(p), F32(_mm256_castsi256_ps(w.v)), count);
}
inline void store_low_half(float* p, F32 x) { _mm_storeu_ps(p, _mm256_castps256_ps128(x.v)); }

// Blocks of 128 bits: two a register.
using Quarter = I32Half;
inline Quarter load_quarter(const uint32_t* p) { return load_half(p); }
inline I32 in_quarters(const uint32_t* p) { return _mm256_broadcastsi128_si256(load_half(p).v); }
template <int K>
inline Quarter quarter(I32 w) {
  return K == 0 ? low_half(w) : high_half(w);
}

// ---- arithmetic ----------------------------------------------------------------------------------------------------

inline I32Half operator^(I32Half a, I32Half b) { return _mm_xor_si128(a.v, b.v); }
// 32-bit words.
inline I64 smaller_unsigned(I64 a, I64 b) { return _mm256_min_epu32(a.v, b.v); }
inline I32 clear_bits(I32 bits, I32 a) { return _mm256_andnot_si256(bits.v, a.v); }
// Two 64-bit words each.
inline I32Half add_long(I32Half a, I32Half b) { return _mm_add_epi64(a.v, b.v); }
inline I32Half long_pair(uint64_t low, uint64_t high) {
  return _mm_set_epi64x(static_cast<long long>(high), static_cast<long long>(low));
}
inline I64 long_words(uint64_t a, uint64_t b, uint64_t c, uint64_t d) {
  return _mm256_setr_epi64x(static_cast<long long>(a), static_cast<long long>(b), static_cast<long long>(c),
                            static_cast<long long>(d));
}
// `positive` where the top bit of the lane of x is clear, `negative` where it is set.
inline I64 by_sign(I64 x, I64 positive, I64 negative) {
  return _mm256_castpd_si256(
      _mm256_blendv_pd(_mm256_castsi256_pd(positive.v), _mm256_castsi256_pd(negative.v), _mm256_castsi256_pd(x.v)));
}
// s - m, or s where that is negative; of numbers below 2^63.
inline I64 wrap_down(I64 s, I64 m) {
  const I64 less = s - m;
  return by_sign(less, less, s);
}
// x - y, and m more where that is not positive.
inline I64 wrap_up(I64 x, I64 y, I64 m) { return x - y + I64(_mm256_andnot_si256(_mm256_cmpgt_epi64(x.v, y.v), m.v)); }
template <int Count>
inline I32Half shift_left(I32Half a) {
  return _mm_slli_epi32(a.v, Count);
}
template <int Count>
inline I32Half shift_right(I32Half a) {
  return _mm_srli_epi32(a.v, Count);
}
// Blocks as one number each, by whole bytes.
template <int Bytes>
inline I32 shift_left_bytes(I32 a) {
  return _mm256_slli_si256(a.v, Bytes);
}
template <int Bytes>
inline I32Half shift_left_bytes(I32Half a) {
  return _mm_slli_si128(a.v, Bytes);
}
template <int Bytes>
inline I32Half shift_right_bytes(I32Half a) {
  return _mm_srli_si128(a.v, Bytes);
}

// ---- order of lanes ------------------------------------------------------------------------------------------------

// Odd 32-bit lanes of `high`, even ones of `low`.
inline I64 with_high_words(I64 low, I64 high) { return _mm256_blend_epi32(low.v, high.v, 0xAA); }
// late ^ b ^ c, for an operand that is waited for: the others are not to wait with it, as the compiler would have them.
inline I64 xor_late(I64 late, I64 b, I64 c) {
  I64 early = b ^ c;
  asm("" : "+x"(early.v));
  return late ^ early;
}
// The same of even 32-bit lanes; odd ones of `late`.
inline I64 xor_late_low_words(I64 late, I64 b, I64 c) { return with_high_words(xor_late(late, b, c), late); }
// The halves of each 64-bit lane change places.
inline I64 swap_words(I64 a) { return _mm256_shuffle_epi32(a.v, 0xB1); }
// 16-bit halves: the high ones of `high`, the low ones of `low`.
inline I32 with_high_halves(I32 low, I32 high) { return _mm256_blend_epi16(low.v, high.v, 0xAA); }
// In each half of the register: the first (second) 64-bit words, first (last two) 32-bit words of both in turns.
inline I64 first_words(I64 a, I64 b) { return _mm256_unpacklo_epi64(a.v, b.v); }
inline I64 second_words(I64 a, I64 b) { return _mm256_unpackhi_epi64(a.v, b.v); }
// Numbers of the halves that first_words fills, and then those of second_words, as they stand in the lanes.
inline I64 quarter_numbers() { return long_words(0, 2, 1, 3); }
inline I32 first_two_words(I32 a, I32 b) { return _mm256_unpacklo_epi32(a.v, b.v); }
inline I32 last_two_words(I32 a, I32 b) { return _mm256_unpackhi_epi32(a.v, b.v); }
// 64-bit words 0, 2, 1, 3.
inline I32 cross_middle(I32 a) { return _mm256_permute4x64_epi64(a.v, 0xD8); }
// Words S, S + 1 ... of a followed by b.
template <int S>
inline I32 words_from(I32 a, I32 b) {
  const __m256i middle = _mm256_permute2x128_si256(a.v, b.v, 0x21);
  return S < 4 ? _mm256_alignr_epi8(middle, a.v, 4 * S % 16) : _mm256_alignr_epi8(b.v, middle, 4 * S % 16);
}
// The low words of a and b in each half of the register: a0 a1 b0 b1, a2 a3 b2 b3.
inline I32 low_words_by_halves(I64 a, I64 b) {
  return _mm256_castps_si256(_mm256_shuffle_ps(_mm256_castsi256_ps(a.v), _mm256_castsi256_ps(b.v), 0x88));
}
// The low words of a and then those of b.
inline I32 pack_low_words(I64 a, I64 b) { return cross_middle(low_words_by_halves(a, b)); }
// The first four lanes of `first`, and the others, of which there are none.
inline I64 four_and_others(I64 first, I64) { return first; }
inline F64 four_and_others(F64 first, F64) { return first; }
// Words `first`, `first` + 1 ... of a followed by b.
inline I64 longs_from(I64 a, I64 b, int first) {
  const __m256i turned = _mm256_blendv_epi8(a.v, b.v, first_long_lanes(first).v);
  const __m256i places = _mm256_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7);
  return _mm256_permutevar8x32_epi32(turned, _mm256_add_epi32(places, _mm256_set1_epi32(2 * first)));
}
inline I32 low_halves(I32 a, I32 b) { return _mm256_permute2x128_si256(a.v, b.v, 0x20); }
inline I32 high_halves(I32 a, I32 b) { return _mm256_permute2x128_si256(a.v, b.v, 0x31); }
inline I32 widen_to_words(I32Half a) { return _mm256_castsi128_si256(a.v); }  // the high half is unset
inline I64 widen_unsigned(I32Half a) { return _mm256_cvtepu32_epi64(a.v); }

// Row r of eight vectors becomes lane r of each.
inline void transpose(I32 (&w)[8]) {
  I32 a[8], b[8];
  for (int k = 0; k < 8; k += 2) {
    a[k] = first_two_words(w[k], w[k + 1]);
    a[k + 1] = last_two_words(w[k], w[k + 1]);
  }
  for (int k = 0; k < 8; k += 4) {
    b[k] = as_words(first_words(as_long_words(a[k]), as_long_words(a[k + 2])));
    b[k + 1] = as_words(second_words(as_long_words(a[k]), as_long_words(a[k + 2])));
    b[k + 2] = as_words(first_words(as_long_words(a[k + 1]), as_long_words(a[k + 3])));
    b[k + 3] = as_words(second_words(as_long_words(a[k + 1]), as_long_words(a[k + 3])));
  }
  for (int k = 0; k < 4; ++k) {
    w[k] = low_halves(b[k], b[k + 4]);
    w[k + 4] = high_halves(b[k], b[k + 4]);
  }
}
// Squares of four.
inline void transpose(F64 (&x)[4]) {
  const __m256d a = _mm256_unpacklo_pd(x[0].v, x[1].v), b = _mm256_unpackhi_pd(x[0].v, x[1].v);
  const __m256d c = _mm256_unpacklo_pd(x[2].v, x[3].v), d = _mm256_unpackhi_pd(x[2].v, x[3].v);
  x[0] = _mm256_permute2f128_pd(a, c, 0x20);
  x[1] = _mm256_permute2f128_pd(b, d, 0x20);
  x[2] = _mm256_permute2f128_pd(a, c, 0x31);
  x[3] = _mm256_permute2f128_pd(b, d, 0x31);
}

// ---- conversions ---------------------------------------------------------------------------------------------------

// The sum of the first four lanes, added one to the other from the first.
inline double sum_of_four(F64 x) {
  const __m128d low = _mm256_castpd256_pd128(x.v), high = _mm256_extractf128_pd(x.v, 1);
  const __m128d sum = _mm_add_sd(_mm_add_sd(low, _mm_unpackhi_pd(low, low)), high);
  return _mm_cvtsd_f64(_mm_add_sd(sum, _mm_unpackhi_pd(high, high)));
}
inline F64 truncated(F64 x) { return _mm256_round_pd(x.v, _MM_FROUND_TO_ZERO | _MM_FROUND_NO_EXC); }
inline I32Half truncated_words(F64 x) { return _mm256_cvttpd_epi32(x.v); }
inline F32 narrow(F64 x) { return _mm256_castps128_ps256(_mm256_cvtpd_ps(x.v)); }  // the high half is unset

}  // namespace orvik
