// Loads and stores of lanes of 256 bits.
#pragma once

#include <cstdint>

#include "lanes/types.h"

namespace orvik {

inline F32 load_register(const float* p) { return _mm256_loadu_ps(p); }
inline F64 load_register(const double* p) { return _mm256_loadu_pd(p); }
inline void store(float* p, F32 a) { _mm256_storeu_ps(p, a.v); }
inline void store(double* p, F64 a) { _mm256_storeu_pd(p, a.v); }
inline float first_lane(F32 a) { return _mm256_cvtss_f32(a.v); }
inline double first_lane(F64 a) { return _mm256_cvtsd_f64(a.v); }
// Past the caches, for results too large to stay there: p is aligned to 32 bytes.
inline void store_past_cache(float* p, F32 a) { _mm256_stream_ps(p, a.v); }
inline void store_past_cache(double* p, F64 a) { _mm256_stream_pd(p, a.v); }

// Row k: k leading all-ones lanes. Rows overlap in memory: row k starts k lanes before the zeros.
alignas(64) inline constexpr int32_t kLaneMasks32[16] = {-1, -1, -1, -1, -1, -1, -1, -1, 0, 0, 0, 0, 0, 0, 0, 0};
alignas(64) inline constexpr int64_t kLaneMasks64[8] = {-1, -1, -1, -1, 0, 0, 0, 0};
inline __m256i lane_mask(F32, int k) {
  return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(kLaneMasks32 + 8 - k));
}
inline __m256i lane_mask(F64, int k) {
  return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(kLaneMasks64 + 4 - k));
}

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

// The first k lanes, as a mask of the masked load and store instructions; k at or beyond the width: all.
template <class V>
struct FirstLanes {
  __m256i v;
};
template <class V>
inline FirstLanes<V> first_lanes(int64_t k) {
  return {lane_mask(V(), k < kWidth<V> ? static_cast<int>(k) : kWidth<V>)};
}
inline F32 load(const float* p, FirstLanes<F32> first) { return _mm256_maskload_ps(p, first.v); }  // zeros behind them
inline F64 load(const double* p, FirstLanes<F64> first) { return _mm256_maskload_pd(p, first.v); }
inline void store(float* p, FirstLanes<F32> first, F32 a) { _mm256_maskstore_ps(p, first.v, a.v); }
inline void store(double* p, FirstLanes<F64> first, F64 a) { _mm256_maskstore_pd(p, first.v, a.v); }
inline F32 keep(FirstLanes<F32> first, F32 a) { return _mm256_and_ps(a.v, _mm256_castsi256_ps(first.v)); }
inline F64 keep(FirstLanes<F64> first, F64 a) { return _mm256_and_pd(a.v, _mm256_castsi256_pd(first.v)); }

// Every step-th of a few elements; for more than these, and for any size, see strided.h.
template <Double V>
inline V load_strided(const double* p, int64_t step) {
  return _mm256_setr_pd(p[0], p[step], p[2 * step], p[3 * step]);
}
inline void store_strided(double* p, int64_t step, F64 a) {
  const __m128d low = _mm256_castpd256_pd128(a.v), high = _mm256_extractf128_pd(a.v, 1);
  _mm_storel_pd(p, low), _mm_storeh_pd(p + step, low);
  _mm_storel_pd(p + 2 * step, high), _mm_storeh_pd(p + 3 * step, high);
}

// Complex elements, real part first, as lanes of real and of imaginary parts; and back.
inline Pair<F32> in_pairs(Stored<F32> x) {
  const __m256 low = _mm256_permute2f128_ps(x.first.v, x.second.v, 0x20);
  const __m256 high = _mm256_permute2f128_ps(x.first.v, x.second.v, 0x31);
  return {_mm256_shuffle_ps(low, high, 0x88), _mm256_shuffle_ps(low, high, 0xDD)};
}
inline Pair<F64> in_pairs(Stored<F64> x) {
  const __m256d low = _mm256_permute2f128_pd(x.first.v, x.second.v, 0x20);
  const __m256d high = _mm256_permute2f128_pd(x.first.v, x.second.v, 0x31);
  return {_mm256_unpacklo_pd(low, high), _mm256_unpackhi_pd(low, high)};
}
inline Stored<F32> as_stored(Pair<F32> x) {
  const __m256 low = _mm256_unpacklo_ps(x.first.v, x.second.v), high = _mm256_unpackhi_ps(x.first.v, x.second.v);
  return {_mm256_permute2f128_ps(low, high, 0x20), _mm256_permute2f128_ps(low, high, 0x31)};
}
inline Stored<F64> as_stored(Pair<F64> x) {
  const __m256d low = _mm256_unpacklo_pd(x.first.v, x.second.v), high = _mm256_unpackhi_pd(x.first.v, x.second.v);
  return {_mm256_permute2f128_pd(low, high, 0x20), _mm256_permute2f128_pd(low, high, 0x31)};
}

// The same in the order that costs least, elements 0 1 4 5 2 3 6 7 or 0 2 1 3, for loops to which the order means
// nothing; numbers are brought into that order and back.
inline Pair<F32> load_mixed_pairs(const float* p) {
  const __m256 a = _mm256_loadu_ps(p), b = _mm256_loadu_ps(p + 8);
  return {_mm256_shuffle_ps(a, b, 0x88), _mm256_shuffle_ps(a, b, 0xDD)};
}
inline Pair<F64> load_mixed_pairs(const double* p) {
  const __m256d a = _mm256_loadu_pd(p), b = _mm256_loadu_pd(p + 4);
  return {_mm256_unpacklo_pd(a, b), _mm256_unpackhi_pd(a, b)};
}
inline F32 mixed(F32 a) { return _mm256_castpd_ps(_mm256_permute4x64_pd(_mm256_castps_pd(a.v), 0xD8)); }
inline F64 mixed(F64 a) { return _mm256_permute4x64_pd(a.v, 0xD8); }
inline F32 in_order(F32 mixed) { return orvik::mixed(mixed); }
inline F64 in_order(F64 mixed) { return orvik::mixed(mixed); }

// Parts as they lie in memory, from mixed ones.
inline Stored<F32> stored(Pair<F32> mixed) {
  return {_mm256_unpacklo_ps(mixed.first.v, mixed.second.v), _mm256_unpackhi_ps(mixed.first.v, mixed.second.v)};
}
inline Stored<F64> stored(Pair<F64> mixed) {
  return {_mm256_unpacklo_pd(mixed.first.v, mixed.second.v), _mm256_unpackhi_pd(mixed.first.v, mixed.second.v)};
}
// a where a part is real, b where it is imaginary.
inline F32 by_part(F32 a, F32 b) { return _mm256_blend_ps(a.v, b.v, 0xAA); }
inline F64 by_part(F64 a, F64 b) { return _mm256_blend_pd(a.v, b.v, 0xA); }

}  // namespace orvik
