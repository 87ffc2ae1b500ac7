// 256-bit vectors of T with the few operations that the block routines need beside + - * of the compiler.
#pragma once

#include <immintrin.h>

#include <cstdint>

#include "qor/unroll.h"

namespace orvik::ss {

template <class T>
struct Lanes;

template <>
struct Lanes<double> {
  using V = __m256d;
  using Mask = __m256i;
  static constexpr int kWidth = 4;
  static V load(const double* p) { return _mm256_loadu_pd(p); }
  static void store(double* p, V v) { _mm256_storeu_pd(p, v); }
  static V all(double x) { return _mm256_set1_pd(x); }
  static V fma(V a, V b, V c) { return _mm256_fmadd_pd(a, b, c); }
  static V fms(V a, V b, V c) { return _mm256_fmsub_pd(a, b, c); }
  // Both return b where a lane of either is a NaN.
  static V min(V a, V b) { return _mm256_min_pd(a, b); }
  static V max(V a, V b) { return _mm256_max_pd(a, b); }
  static V either(V a, V b) { return _mm256_or_pd(a, b); }
  static V unordered(V a) { return _mm256_cmp_pd(a, a, _CMP_UNORD_Q); }
  static int bits(V mask) { return _mm256_movemask_pd(mask); }
  static Mask first(int64_t k) { return _mm256_cmpgt_epi64(_mm256_set1_epi64x(k), _mm256_setr_epi64x(0, 1, 2, 3)); }
  static V load(const double* p, Mask m) { return _mm256_maskload_pd(p, m); }
  static void store(double* p, Mask m, V v) { _mm256_maskstore_pd(p, m, v); }
  static V keep(V v, Mask m) { return _mm256_and_pd(v, _mm256_castsi256_pd(m)); }
};

template <>
struct Lanes<float> {
  using V = __m256;
  using Mask = __m256i;
  static constexpr int kWidth = 8;
  static V load(const float* p) { return _mm256_loadu_ps(p); }
  static void store(float* p, V v) { _mm256_storeu_ps(p, v); }
  static V all(float x) { return _mm256_set1_ps(x); }
  static V fma(V a, V b, V c) { return _mm256_fmadd_ps(a, b, c); }
  static V fms(V a, V b, V c) { return _mm256_fmsub_ps(a, b, c); }
  static V min(V a, V b) { return _mm256_min_ps(a, b); }
  static V max(V a, V b) { return _mm256_max_ps(a, b); }
  static V either(V a, V b) { return _mm256_or_ps(a, b); }
  static V unordered(V a) { return _mm256_cmp_ps(a, a, _CMP_UNORD_Q); }
  static int bits(V mask) { return _mm256_movemask_ps(mask); }
  static Mask first(int64_t k) {
    const int n = k > 8 ? 8 : static_cast<int>(k);
    return _mm256_cmpgt_epi32(_mm256_set1_epi32(n), _mm256_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7));
  }
  static V load(const float* p, Mask m) { return _mm256_maskload_ps(p, m); }
  static void store(float* p, Mask m, V v) { _mm256_maskstore_ps(p, m, v); }
  static V keep(V v, Mask m) { return _mm256_and_ps(v, _mm256_castsi256_ps(m)); }
};

// The sum of all lanes, pairwise.
template <class T>
T horizontal_sum(typename Lanes<T>::V v) {
  T lane[Lanes<T>::kWidth];
  Lanes<T>::store(lane, v);
  for (int half = Lanes<T>::kWidth / 2; half > 0; half /= 2) {
    for (int i = 0; i < half; ++i) lane[i] += lane[i + half];
  }
  return lane[0];
}

}  // namespace orvik::ss
