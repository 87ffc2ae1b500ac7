// Loads and stores of lanes: whole vectors, the first k lanes, every step-th element.
#pragma once

#include <cstdint>

#include "zym/lanes/vectors.h"

namespace orvik::zym {

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

}  // namespace orvik::zym
