// Two neighbouring columns of a matrix with long rows, a vector of 256 bits of each.
#pragma once

#include "lanes/rows.h"

namespace orvik {

// Elements p[k * step] and p[k * step + 1].
[[gnu::always_inline]] inline void load_two_columns(const double* p, int64_t step, F64* out) {
  const auto pair = [&](int k) { return _mm_loadu_pd(p + k * step); };
  const __m256d even = join_halves(pair(0), pair(2)), odd = join_halves(pair(1), pair(3));
  out[0] = _mm256_unpacklo_pd(even, odd);
  out[1] = _mm256_unpackhi_pd(even, odd);
}
[[gnu::always_inline]] inline void load_two_columns(const float* p, int64_t step, F32* out) {
  const auto pair = [&](int k) { return _mm_loadl_epi64(reinterpret_cast<const __m128i*>(p + k * step)); };
  const auto pairs = [&](int k) {  // of rows k, k + 2, and of rows four further
    const __m128i low = _mm_unpacklo_epi64(pair(k), pair(k + 2)), high = _mm_unpacklo_epi64(pair(k + 4), pair(k + 6));
    return join_halves(_mm_castsi128_ps(low), _mm_castsi128_ps(high));
  };
  const __m256 even = pairs(0), odd = pairs(1);
  const __m256 first = _mm256_unpacklo_ps(even, odd), second = _mm256_unpackhi_ps(even, odd);
  out[0] = _mm256_shuffle_ps(first, second, 0x44);
  out[1] = _mm256_shuffle_ps(first, second, 0xEE);
}

}  // namespace orvik
