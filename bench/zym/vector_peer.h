// Arrays through a function of whole vectors, such as a vector library offers: of 256 bits, or of 512 in sources that are
// compiled with ORVIK_REGISTER_BITS=512.
#pragma once

#include <immintrin.h>

#include <cstring>

#include "zym/peers.h"

namespace orvik::bench {

#if ORVIK_REGISTER_BITS == 512
inline namespace wide {
inline constexpr int kVectorBytes = 64;
inline __m512 load(const float* p) { return _mm512_loadu_ps(p); }
inline __m512d load(const double* p) { return _mm512_loadu_pd(p); }
inline void store(float* p, __m512 x) { _mm512_storeu_ps(p, x); }
inline void store(double* p, __m512d x) { _mm512_storeu_pd(p, x); }
inline __m512 gather(const float* p, int32_t inc) {
  const __m512i lanes = _mm512_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15);
  return _mm512_mask_i32gather_ps(_mm512_setzero_ps(), 0xFFFF, _mm512_mullo_epi32(_mm512_set1_epi32(inc), lanes), p, 4);
}
inline __m512d gather(const double* p, int32_t inc) {
  const __m256i lanes = _mm256_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7);
  return _mm512_mask_i32gather_pd(_mm512_setzero_pd(), 0xFF, _mm256_mullo_epi32(_mm256_set1_epi32(inc), lanes), p, 8);
}
#else
inline namespace narrow {
inline constexpr int kVectorBytes = 32;
inline __m256 load(const float* p) { return _mm256_loadu_ps(p); }
inline __m256d load(const double* p) { return _mm256_loadu_pd(p); }
inline void store(float* p, __m256 x) { _mm256_storeu_ps(p, x); }
inline void store(double* p, __m256d x) { _mm256_storeu_pd(p, x); }
inline __m256 gather(const float* p, int32_t inc) {
  const __m256i index = _mm256_mullo_epi32(_mm256_set1_epi32(inc), _mm256_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7));
  const __m256 all = _mm256_castsi256_ps(_mm256_set1_epi32(-1));  // the plain form warns of its undefined source
  return _mm256_mask_i32gather_ps(_mm256_setzero_ps(), p, index, all, 4);
}
inline __m256d gather(const double* p, int32_t inc) {
  const __m128i index = _mm_mullo_epi32(_mm_set1_epi32(inc), _mm_setr_epi32(0, 1, 2, 3));
  const __m256d all = _mm256_castsi256_pd(_mm256_set1_epi32(-1));
  return _mm256_mask_i32gather_pd(_mm256_setzero_pd(), p, index, all, 8);
}
#endif

// compute(x..., r...) for In inputs and Out results of W elements, over arrays of any length.
template <class E, int In, int Out, bool Strided, class Compute>
void over_vectors(int32_t n, const Arrays& arrays, Compute compute) {
  constexpr int W = kVectorBytes / sizeof(E);
  const E* in[2] = {static_cast<const E*>(arrays.a), static_cast<const E*>(arrays.b)};
  E* out[2] = {static_cast<E*>(arrays.r1), static_cast<E*>(arrays.r2)};
  const int64_t inc_in[2] = {Strided ? arrays.incA : 1, Strided ? arrays.incB : 1};
  const int64_t inc_out[2] = {Strided ? arrays.incR1 : 1, Strided ? arrays.incR2 : 1};
  const auto get = [&](int j, int32_t i) {
    if constexpr (Strided) return gather(in[j] + i * inc_in[j], static_cast<int32_t>(inc_in[j]));
    return load(in[j] + i);
  };
  using V = decltype(load(in[0]));
  int32_t i = 0;
  for (; n - i >= W; i += W) {
    V x[In], r[Out];
    for (int j = 0; j < In; ++j) x[j] = get(j, i);
    compute(x, r);
    for (int j = 0; j < Out; ++j) {
      if constexpr (Strided) {
        alignas(kVectorBytes) E results[W];
        store(results, r[j]);
        for (int k = 0; k < W; ++k) out[j][(i + k) * inc_out[j]] = results[k];
      } else {
        store(out[j] + i, r[j]);
      }
    }
  }
  if (i < n) {
    alignas(kVectorBytes) E buffer[2][W] = {};
    V x[In], r[Out];
    for (int j = 0; j < In; ++j) {
      for (int k = 0; k < n - i; ++k) buffer[j][k] = in[j][(i + k) * inc_in[j]];
      x[j] = load(buffer[j]);
    }
    compute(x, r);
    for (int j = 0; j < Out; ++j) {
      store(buffer[0], r[j]);
      for (int k = 0; k < n - i; ++k) out[j][(i + k) * inc_out[j]] = buffer[0][k];
    }
  }
}

template <class E, auto F, bool Strided>
void vector1(int32_t n, const Arrays& arrays) {
  over_vectors<E, 1, 1, Strided>(n, arrays, [](auto& x, auto& r) { r[0] = F(x[0]); });
}
template <class E, auto F, bool Strided>
void vector2(int32_t n, const Arrays& arrays) {
  over_vectors<E, 2, 1, Strided>(n, arrays, [](auto& x, auto& r) { r[0] = F(x[0], x[1]); });
}
template <class E, auto F, bool Strided>
void vector_scalar(int32_t n, const Arrays& arrays) {  // b is one element for all
  const auto* one = static_cast<const E*>(arrays.b);
  alignas(kVectorBytes) E all[kVectorBytes / sizeof(E)];
  for (E& b : all) b = *one;
  const auto b = load(all);
  over_vectors<E, 1, 1, Strided>(n, arrays, [&](auto& x, auto& r) { r[0] = F(x[0], b); });
}
template <class E, auto F, bool Strided>
void vector_pair(int32_t n, const Arrays& arrays) {  // F gives a struct of two vectors
  over_vectors<E, 1, 2, Strided>(n, arrays, [](auto& x, auto& r) {
    const auto pair = F(x[0]);
    r[0] = pair.x, r[1] = pair.y;
  });
}

}  // namespace wide, narrow
}  // namespace orvik::bench
