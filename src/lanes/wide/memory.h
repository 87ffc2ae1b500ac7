// Loads and stores of lanes of 512 bits.
#pragma once

#include <cstdint>

#include "lanes/types.h"

namespace orvik {

inline F32 load_register(const float* p) { return _mm512_loadu_ps(p); }
inline F64 load_register(const double* p) { return _mm512_loadu_pd(p); }
inline void store(float* p, F32 a) { _mm512_storeu_ps(p, a.v); }
inline void store(double* p, F64 a) { _mm512_storeu_pd(p, a.v); }
inline float first_lane(F32 a) { return _mm512_cvtss_f32(a.v); }
inline double first_lane(F64 a) { return _mm512_cvtsd_f64(a.v); }
// Past the caches, for results too large to stay there: p is aligned to 64 bytes.
inline void store_past_cache(float* p, F32 a) { _mm512_stream_ps(p, a.v); }
inline void store_past_cache(double* p, F64 a) { _mm512_stream_pd(p, a.v); }

// The first k lanes, the filler in the others; touches no memory behind element k - 1.
inline __mmask16 lane_mask(F32, int k) { return _cvtu32_mask16(_bzhi_u32(0xFFFFu, static_cast<uint32_t>(k))); }
inline __mmask8 lane_mask(F64, int k) { return _cvtu32_mask8(_bzhi_u32(0xFFu, static_cast<uint32_t>(k))); }
inline F32 load_first(const float* p, int k, F32 others) {
  return _mm512_mask_loadu_ps(others.v, lane_mask(others, k), p);
}
inline F64 load_first(const double* p, int k, F64 others) {
  return _mm512_mask_loadu_pd(others.v, lane_mask(others, k), p);
}
// The first k lanes, k below the width.
inline void store_first(float* p, int k, F32 a) { _mm512_mask_storeu_ps(p, lane_mask(a, k), a.v); }
inline void store_first(double* p, int k, F64 a) { _mm512_mask_storeu_pd(p, lane_mask(a, k), a.v); }

// Every step-th of a few elements; for more than these, and for any size, see strided.h. By single loads and stores:
// the instructions that gather and scatter are slower on some processors and no faster on the others.
template <Double V>
inline V load_strided(const double* p, int64_t step) {
  const double* q = p + 4 * step;
  const __m256d low = _mm256_setr_pd(p[0], p[step], p[2 * step], p[3 * step]);
  const __m256d high = _mm256_setr_pd(q[0], q[step], q[2 * step], q[3 * step]);
  return _mm512_insertf64x4(_mm512_castpd256_pd512(low), high, 1);
}
inline void store_strided(double* p, int64_t step, F64 a) {
  const auto two = [&](__m128d x) {
    _mm_storel_pd(p, x), _mm_storeh_pd(p + step, x);
    p += 2 * step;
  };
  two(_mm512_castpd512_pd128(a.v));
  two(_mm256_extractf128_pd(_mm512_castpd512_pd256(a.v), 1));
  two(_mm512_extractf64x2_pd(a.v, 2));
  two(_mm512_extractf64x2_pd(a.v, 3));
}

// Complex elements, real part first, as lanes of real and of imaginary parts; and back.
inline Pair<F32> in_pairs(Stored<F32> x) {
  const __m512i even = _mm512_setr_epi32(0, 2, 4, 6, 8, 10, 12, 14, 16, 18, 20, 22, 24, 26, 28, 30);
  const __m512i odd = _mm512_setr_epi32(1, 3, 5, 7, 9, 11, 13, 15, 17, 19, 21, 23, 25, 27, 29, 31);
  return {_mm512_permutex2var_ps(x.first.v, even, x.second.v), _mm512_permutex2var_ps(x.first.v, odd, x.second.v)};
}
inline Pair<F64> in_pairs(Stored<F64> x) {
  const __m512i even = _mm512_setr_epi64(0, 2, 4, 6, 8, 10, 12, 14);
  const __m512i odd = _mm512_setr_epi64(1, 3, 5, 7, 9, 11, 13, 15);
  return {_mm512_permutex2var_pd(x.first.v, even, x.second.v), _mm512_permutex2var_pd(x.first.v, odd, x.second.v)};
}
inline Stored<F32> as_stored(Pair<F32> x) {
  const __m512i low = _mm512_setr_epi32(0, 16, 1, 17, 2, 18, 3, 19, 4, 20, 5, 21, 6, 22, 7, 23);
  const __m512i high = _mm512_setr_epi32(8, 24, 9, 25, 10, 26, 11, 27, 12, 28, 13, 29, 14, 30, 15, 31);
  return {_mm512_permutex2var_ps(x.first.v, low, x.second.v), _mm512_permutex2var_ps(x.first.v, high, x.second.v)};
}
inline Stored<F64> as_stored(Pair<F64> x) {
  const __m512i low = _mm512_setr_epi64(0, 8, 1, 9, 2, 10, 3, 11);
  const __m512i high = _mm512_setr_epi64(4, 12, 5, 13, 6, 14, 7, 15);
  return {_mm512_permutex2var_pd(x.first.v, low, x.second.v), _mm512_permutex2var_pd(x.first.v, high, x.second.v)};
}

// The same in the order that costs least, pairs or single elements 0 4 1 5 2 6 3 7, for loops to which the order means
// nothing; numbers are brought into that order and back.
inline Pair<F32> load_mixed_pairs(const float* p) {
  const __m512 a = _mm512_loadu_ps(p), b = _mm512_loadu_ps(p + 16);
  return {_mm512_shuffle_ps(a, b, 0x88), _mm512_shuffle_ps(a, b, 0xDD)};
}
inline Pair<F64> load_mixed_pairs(const double* p) {
  const __m512d a = _mm512_loadu_pd(p), b = _mm512_loadu_pd(p + 8);
  return {_mm512_unpacklo_pd(a, b), _mm512_unpackhi_pd(a, b)};
}
inline F64 mixed(F64 a) { return _mm512_permutexvar_pd(_mm512_setr_epi64(0, 4, 1, 5, 2, 6, 3, 7), a.v); }
inline F32 mixed(F32 a) { return _mm512_castpd_ps(mixed(F64(_mm512_castps_pd(a.v))).v); }
inline F64 in_order(F64 mixed) { return _mm512_permutexvar_pd(_mm512_setr_epi64(0, 2, 4, 6, 1, 3, 5, 7), mixed.v); }
inline F32 in_order(F32 mixed) { return _mm512_castpd_ps(in_order(F64(_mm512_castps_pd(mixed.v))).v); }

// Parts as they lie in memory, from mixed ones.
inline Stored<F32> stored(Pair<F32> mixed) {
  return {_mm512_unpacklo_ps(mixed.first.v, mixed.second.v), _mm512_unpackhi_ps(mixed.first.v, mixed.second.v)};
}
inline Stored<F64> stored(Pair<F64> mixed) {
  return {_mm512_unpacklo_pd(mixed.first.v, mixed.second.v), _mm512_unpackhi_pd(mixed.first.v, mixed.second.v)};
}

// a where a part is real, b where it is imaginary.
inline F32 by_part(F32 a, F32 b) { return _mm512_mask_blend_ps(0xAAAA, a.v, b.v); }
inline F64 by_part(F64 a, F64 b) { return _mm512_mask_blend_pd(0xAA, a.v, b.v); }

}  // namespace orvik
