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
inline void store(uint64_t* p, I64 w) { _mm512_storeu_si512(p, w.v); }
inline void store(uint32_t* p, I32 w) { _mm512_storeu_si512(p, w.v); }
inline void store(uint32_t* p, I32Half w) { _mm256_storeu_si256(reinterpret_cast<__m256i*>(p), w.v); }
// The first lanes only: the rest of memory is not touched.
inline void store_some(uint32_t* p, I32 w, int count) { _mm512_mask_storeu_epi32(p, lane_mask(F32(), count), w.v); }
inline void store_some(float* p, F32 x, int count) { store_first(p, count, x); }
inline void store_some(double* p, F64 x, int count) { store_first(p, count, x); }
inline void store_low_half(float* p, F32 x) { _mm256_storeu_ps(p, low_256(x.v)); }

// ---- arithmetic ----------------------------------------------------------------------------------------------------

inline I32 clear_bits(I32 bits, I32 a) { return _mm512_andnot_si512(bits.v, a.v); }
// `positive` where the top bit of the lane of x is clear, `negative` where it is set.
inline I64 by_sign(I64 x, I64 positive, I64 negative) {
  return _mm512_mask_blend_epi64(_mm512_movepi64_mask(x.v), positive.v, negative.v);
}

// ---- order of lanes ------------------------------------------------------------------------------------------------

// Odd 32-bit lanes of `high`, even ones of `low`.
inline I64 with_high_words(I64 low, I64 high) { return _mm512_mask_blend_epi32(0xAAAA, low.v, high.v); }
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

// The low words of a and b in each quarter of the register: a0 a1 b0 b1, a2 a3 b2 b3 ...
inline I32 low_words_by_halves(I64 a, I64 b) {
  return _mm512_castps_si512(_mm512_shuffle_ps(_mm512_castsi512_ps(a.v), _mm512_castsi512_ps(b.v), 0x88));
}

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

// ---- conversions ---------------------------------------------------------------------------------------------------

inline F32 narrow(F64 x) { return _mm512_castps256_ps512(_mm512_cvtpd_ps(x.v)); }  // the high half is unset

}  // namespace orvik
