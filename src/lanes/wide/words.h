// Words of 512-bit registers, as far as whole blocks of generators are made in these.
#pragma once

#include <cstdint>

#include "lanes/memory.h"
#include "lanes/types.h"
#include "lanes/vectors.h"

namespace orvik {

// ---- memory --------------------------------------------------------------------------------------------------------

inline I32 load_words(const uint32_t* p) { return _mm512_loadu_si512(p); }
inline I64 load_words(const uint64_t* p) { return _mm512_loadu_si512(p); }
// Four words again and again.
inline I64 load_fours(const uint64_t* p) {
  return _mm512_broadcast_i64x4(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(p)));
}
inline I32Half load_fours(const uint32_t* p) {
  return _mm256_broadcastsi128_si256(_mm_loadu_si128(reinterpret_cast<const __m128i*>(p)));
}
inline F64 load_fours(const double* p) { return _mm512_broadcast_f64x4(_mm256_loadu_pd(p)); }
inline I32Half load_half(const uint32_t* p) { return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p)); }
inline void store(uint64_t* p, I64 w) { _mm512_storeu_si512(p, w.v); }
inline void store(uint32_t* p, I32 w) { _mm512_storeu_si512(p, w.v); }
inline void store(uint32_t* p, I32Half w) { _mm256_storeu_si256(reinterpret_cast<__m256i*>(p), w.v); }
// The first four words.
inline void store_four(uint64_t* p, I64 w) { _mm256_storeu_si256(reinterpret_cast<__m256i*>(p), low_256(w.v)); }
// Every four words of a half, `step` words apart.
inline void store_fours(uint32_t* p, ptrdiff_t step, I32Half w) {
  _mm_storeu_si128(reinterpret_cast<__m128i*>(p), _mm256_castsi256_si128(w.v));
  _mm_storeu_si128(reinterpret_cast<__m128i*>(p + step), _mm256_extracti128_si256(w.v, 1));
}
// The first lanes only: the rest of memory is not touched.
inline I32 load_some(const uint32_t* p, int count) { return _mm512_maskz_loadu_epi32(lane_mask(F32(), count), p); }
inline void store_some(uint32_t* p, I32 w, int count) { _mm512_mask_storeu_epi32(p, lane_mask(F32(), count), w.v); }
inline void store_some(float* p, F32 x, int count) { store_first(p, count, x); }
inline void store_some(double* p, F64 x, int count) { store_first(p, count, x); }
inline void store_low_half(float* p, F32 x) { _mm256_storeu_ps(p, low_256(x.v)); }

inline namespace wide {
struct Quarter {  // a block of 128 bits, four a register
  __m128i v;
  Quarter() = default;
  Quarter(__m128i x) : v(x) {}
};
}  // namespace wide
inline Quarter load_quarter(const uint32_t* p) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p)); }
inline I32 in_quarters(const uint32_t* p) { return _mm512_broadcast_i32x4(load_quarter(p).v); }
template <int K>
inline Quarter quarter(I32 w) {
  return K == 0 ? _mm512_castsi512_si128(w.v) : _mm512_extracti32x4_epi32(w.v, K);
}
inline I32 join(const Quarter (&q)[4]) {
  return join_256(_mm256_inserti128_si256(_mm256_castsi128_si256(q[0].v), q[1].v, 1),
                  _mm256_inserti128_si256(_mm256_castsi128_si256(q[2].v), q[3].v, 1));
}

// ---- arithmetic ----------------------------------------------------------------------------------------------------

// 32-bit words.
inline I64 smaller_unsigned(I64 a, I64 b) { return _mm512_min_epu32(a.v, b.v); }
inline I32 clear_bits(I32 bits, I32 a) { return _mm512_andnot_si512(bits.v, a.v); }
inline Quarter operator^(Quarter a, Quarter b) { return _mm_xor_si128(a.v, b.v); }
template <int Count>
inline Quarter shift_left(Quarter a) {
  return _mm_slli_epi32(a.v, Count);
}
// Blocks as one number each, by whole bytes.
template <int Bytes>
inline I32 shift_left_bytes(I32 a) {
  return _mm512_bslli_epi128(a.v, Bytes);
}
template <int Bytes>
inline Quarter shift_right_bytes(Quarter a) {
  return _mm_srli_si128(a.v, Bytes);
}
// s - m, or s where that is negative; of numbers below 2^63.
inline I64 wrap_down(I64 s, I64 m) { return _mm512_min_epu64((s - m).v, s.v); }
// x - y, and m more where that is not positive.
inline I64 wrap_up(I64 x, I64 y, I64 m) {
  const I64 d = x - y;
  return _mm512_mask_add_epi64(d.v, _mm512_cmple_epi64_mask(x.v, y.v), d.v, m.v);
}

// ---- order of lanes ------------------------------------------------------------------------------------------------

// Odd 32-bit lanes of `high`, even ones of `low`.
inline I64 with_high_words(I64 low, I64 high) { return _mm512_mask_blend_epi32(0xAAAA, low.v, high.v); }
// late ^ b ^ c, for an operand that is waited for.
inline I64 xor_late(I64 late, I64 b, I64 c) { return _mm512_ternarylogic_epi64(late.v, b.v, c.v, 0x96); }
// The same of even 32-bit lanes; odd ones of `late`.
inline I64 xor_late_low_words(I64 late, I64 b, I64 c) {
  return _mm512_mask_ternarylogic_epi32(late.v, 0x5555, b.v, c.v, 0x96);
}
// The halves of each 64-bit lane change places.
inline I64 swap_words(I64 a) { return _mm512_shuffle_epi32(a.v, _MM_PERM_CDAB); }
// 16-bit halves: the high ones of `high`, the low ones of `low`.
inline I32 with_high_halves(I32 low, I32 high) { return _mm512_mask_blend_epi16(0xAAAAAAAA, low.v, high.v); }
// In each quarter of the register: the first (second) 64-bit words of both.
inline I64 first_words(I64 a, I64 b) { return _mm512_unpacklo_epi64(a.v, b.v); }
inline I64 second_words(I64 a, I64 b) { return _mm512_unpackhi_epi64(a.v, b.v); }
inline I32 first_two_words(I32 a, I32 b) { return _mm512_unpacklo_epi32(a.v, b.v); }
inline I32 last_two_words(I32 a, I32 b) { return _mm512_unpackhi_epi32(a.v, b.v); }
// 64-bit words of the low and of the high half in turns.
inline I32 cross_middle(I32 a) { return _mm512_permutexvar_epi64(_mm512_setr_epi64(0, 4, 1, 5, 2, 6, 3, 7), a.v); }
inline I64 widen_unsigned(I32Half a) { return _mm512_cvtepu32_epi64(a.v); }
// Numbers of the quarters that first_words fills, and then those of second_words, as they stand in the lanes.
inline I64 quarter_numbers() { return _mm512_setr_epi64(0, 4, 1, 5, 2, 6, 3, 7); }

// Words S, S + 1 ... of a followed by b.
template <int S>
inline I32 words_from(I32 a, I32 b) {
  return _mm512_alignr_epi32(b.v, a.v, S);
}
// Words `first`, `first` + 1 ... of a followed by b.
inline I64 longs_from(I64 a, I64 b, int first) {
  const __m512i places = _mm512_setr_epi64(0, 1, 2, 3, 4, 5, 6, 7);
  return _mm512_permutex2var_epi64(a.v, _mm512_add_epi64(places, _mm512_set1_epi64(first)), b.v);
}
// The low words of a and b in each quarter of the register: a0 a1 b0 b1, a2 a3 b2 b3 ...
inline I32 low_words_by_halves(I64 a, I64 b) {
  return _mm512_castps_si512(_mm512_shuffle_ps(_mm512_castsi512_ps(a.v), _mm512_castsi512_ps(b.v), 0x88));
}
// The low words of a and then those of b.
inline I32 pack_low_words(I64 a, I64 b) {
  const __m512i even = _mm512_setr_epi32(0, 2, 4, 6, 8, 10, 12, 14, 16, 18, 20, 22, 24, 26, 28, 30);
  return _mm512_permutex2var_epi32(a.v, even, b.v);
}
// The first four lanes of `first`, the last four of `others`.
inline I64 four_and_others(I64 first, I64 others) { return _mm512_mask_blend_epi64(0xF0, first.v, others.v); }
inline F64 four_and_others(F64 first, F64 others) { return _mm512_mask_blend_pd(0xF0, first.v, others.v); }
inline I32 widen_to_words(I32Half a) { return _mm512_castsi256_si512(a.v); }  // the high half is unset

// Row r of sixteen registers becomes lane r of each.
inline void transpose(I32 (&w)[16]) {
  __m512i a[16], b[16];
  for (int k = 0; k < 16; k += 2) {
    a[k] = _mm512_unpacklo_epi32(w[k].v, w[k + 1].v);
    a[k + 1] = _mm512_unpackhi_epi32(w[k].v, w[k + 1].v);
  }
  // b[k + c] holds lanes c, c + 4, c + 8, c + 12 of registers k to k + 3, a quarter each.
  for (int k = 0; k < 16; k += 4) {
    b[k] = _mm512_unpacklo_epi64(a[k], a[k + 2]);
    b[k + 1] = _mm512_unpackhi_epi64(a[k], a[k + 2]);
    b[k + 2] = _mm512_unpacklo_epi64(a[k + 1], a[k + 3]);
    b[k + 3] = _mm512_unpackhi_epi64(a[k + 1], a[k + 3]);
  }
  for (int c = 0; c < 4; ++c) {
    const __m512i low01 = _mm512_shuffle_i32x4(b[c], b[c + 4], 0x88),
                  high01 = _mm512_shuffle_i32x4(b[c], b[c + 4], 0xDD);
    const __m512i low23 = _mm512_shuffle_i32x4(b[c + 8], b[c + 12], 0x88),
                  high23 = _mm512_shuffle_i32x4(b[c + 8], b[c + 12], 0xDD);
    w[c] = _mm512_shuffle_i32x4(low01, low23, 0x88);
    w[c + 4] = _mm512_shuffle_i32x4(high01, high23, 0x88);
    w[c + 8] = _mm512_shuffle_i32x4(low01, low23, 0xDD);
    w[c + 12] = _mm512_shuffle_i32x4(high01, high23, 0xDD);
  }
}

// Squares of four, in each half of the registers.
inline void transpose(F64 (&x)[4]) {
  const __m512d a = _mm512_unpacklo_pd(x[0].v, x[1].v), b = _mm512_unpackhi_pd(x[0].v, x[1].v);
  const __m512d c = _mm512_unpacklo_pd(x[2].v, x[3].v), d = _mm512_unpackhi_pd(x[2].v, x[3].v);
  const __m512i low = _mm512_setr_epi64(0, 1, 8, 9, 4, 5, 12, 13), high = _mm512_setr_epi64(2, 3, 10, 11, 6, 7, 14, 15);
  x[0] = _mm512_permutex2var_pd(a, low, c);
  x[1] = _mm512_permutex2var_pd(b, low, d);
  x[2] = _mm512_permutex2var_pd(a, high, c);
  x[3] = _mm512_permutex2var_pd(b, high, d);
}

// ---- conversions ---------------------------------------------------------------------------------------------------

// The sum of the first four lanes, added one to the other from the first.
inline double sum_of_four(F64 x) {
  const __m256d four = _mm512_castpd512_pd256(x.v);
  const __m128d low = _mm256_castpd256_pd128(four), high = _mm256_extractf128_pd(four, 1);
  const __m128d sum = _mm_add_sd(_mm_add_sd(low, _mm_unpackhi_pd(low, low)), high);
  return _mm_cvtsd_f64(_mm_add_sd(sum, _mm_unpackhi_pd(high, high)));
}
inline F64 truncated(F64 x) { return _mm512_roundscale_pd(x.v, _MM_FROUND_TO_ZERO | _MM_FROUND_NO_EXC); }
inline I32Half truncated_words(F64 x) { return _mm512_cvttpd_epi32(x.v); }
inline F32 narrow(F64 x) { return _mm512_castps256_ps512(_mm512_cvtpd_ps(x.v)); }  // the high half is unset

}  // namespace orvik
