// Rows i[0], i[1] ... of a table with short rows, turned so that vector j holds element j of all of them. Whole rows
// are loaded: gathering element by element costs several times as much on the processors this is tuned for. Inlined by
// order: a call would pass the vectors through memory.
#pragma once

#include <cstdint>

#include "lanes/vectors.h"

namespace orvik {

inline __m256d join_halves(__m128d low, __m128d high) {
  return _mm256_insertf128_pd(_mm256_castpd128_pd256(low), high, 1);
}
inline __m256 join_halves(__m128 low, __m128 high) {
  return _mm256_insertf128_ps(_mm256_castps128_ps256(low), high, 1);
}

// c[0] and c[1] of four rows: two columns.
template <int kLength, class Index>
[[gnu::always_inline]] inline void load_pairs(const double* c, const Index* i, F64* out) {
  const auto row = [&](int k) { return _mm_loadu_pd(c + kLength * static_cast<int64_t>(i[k])); };
  const __m256d even = join_halves(row(0), row(2)), odd = join_halves(row(1), row(3));
  out[0] = _mm256_unpacklo_pd(even, odd);
  out[1] = _mm256_unpackhi_pd(even, odd);
}

// Element `at` of four rows.
template <int kLength, class Index>
[[gnu::always_inline]] inline F64 load_column(const double* c, const Index* i, int at) {
  const auto row = [&](int k) { return c + kLength * static_cast<int64_t>(i[k]) + at; };
  return join_halves(_mm_loadh_pd(_mm_load_sd(row(0)), row(1)), _mm_loadh_pd(_mm_load_sd(row(2)), row(3)));
}

// Element `at` of eight rows.
template <int kLength, class Index>
[[gnu::always_inline]] inline F32 load_column(const float* c, const Index* i, int at) {
  const auto single = [&](int k) { return _mm_load_ss(c + kLength * static_cast<int64_t>(i[k]) + at); };
  const auto singles = [&](int k) {
    return _mm_movelh_ps(_mm_unpacklo_ps(single(k), single(k + 1)), _mm_unpacklo_ps(single(k + 2), single(k + 3)));
  };
  return join_halves(singles(0), singles(4));
}

template <int kLength, class Index>
[[gnu::always_inline]] inline void load_columns(const double* c, const Index* i, F64* out) {
  if constexpr (kLength == 4) {
    const auto row = [&](int k) { return _mm256_loadu_pd(c + 4 * static_cast<int64_t>(i[k])); };
    const __m256d r0 = row(0), r1 = row(1), r2 = row(2), r3 = row(3);
    const __m256d a = _mm256_unpacklo_pd(r0, r1), b = _mm256_unpackhi_pd(r0, r1);
    const __m256d d = _mm256_unpacklo_pd(r2, r3), e = _mm256_unpackhi_pd(r2, r3);
    out[0] = _mm256_permute2f128_pd(a, d, 0x20);
    out[1] = _mm256_permute2f128_pd(b, e, 0x20);
    out[2] = _mm256_permute2f128_pd(a, d, 0x31);
    out[3] = _mm256_permute2f128_pd(b, e, 0x31);
  } else {
    load_pairs<kLength>(c, i, out);
    if constexpr (kLength == 3) out[2] = load_column<3>(c, i, 2);
  }
}

template <int kLength, class Index>
[[gnu::always_inline]] inline void load_columns(const float* c, const Index* i, F32* out) {
  const auto at = [&](int k) { return c + kLength * static_cast<int64_t>(i[k]); };
  if constexpr (kLength == 4) {
    const auto rows = [&](int k) { return join_halves(_mm_loadu_ps(at(k)), _mm_loadu_ps(at(k + 4))); };
    const __m256 r0 = rows(0), r1 = rows(1), r2 = rows(2), r3 = rows(3);
    const __m256 a = _mm256_unpacklo_ps(r0, r1), b = _mm256_unpackhi_ps(r0, r1);
    const __m256 d = _mm256_unpacklo_ps(r2, r3), e = _mm256_unpackhi_ps(r2, r3);
    out[0] = _mm256_shuffle_ps(a, d, 0x44);
    out[1] = _mm256_shuffle_ps(a, d, 0xEE);
    out[2] = _mm256_shuffle_ps(b, e, 0x44);
    out[3] = _mm256_shuffle_ps(b, e, 0xEE);
  } else {
    const auto pair = [&](int k) { return _mm_castsi128_ps(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(at(k)))); };
    const auto pairs = [&](int k) {  // rows k and k + 1, and four further
      return join_halves(_mm_unpacklo_ps(pair(k), pair(k + 1)), _mm_unpacklo_ps(pair(k + 4), pair(k + 5)));
    };
    const __m256 a = pairs(0), b = pairs(2);
    out[0] = _mm256_shuffle_ps(a, b, 0x44);
    out[1] = _mm256_shuffle_ps(a, b, 0xEE);
    if constexpr (kLength == 3) out[2] = load_column<3>(c, i, 2);
  }
}

// The same for rows that are far from each other: half rows cross fewer cache lines, which pays where each row is a new
// line, not where neighbouring sites share one.
template <int kLength, class E, class V>
[[gnu::always_inline]] inline void load_scattered_columns(const E* c, const int64_t* i, V* out) {
  if constexpr (kLength == 4 && sizeof(E) == 8) {
    const auto half = [&](int k, int at) { return _mm_loadu_pd(c + 4 * i[k] + at); };
    const __m256d even = join_halves(half(0, 0), half(2, 0)), odd = join_halves(half(1, 0), half(3, 0));
    const __m256d more_even = join_halves(half(0, 2), half(2, 2)), more_odd = join_halves(half(1, 2), half(3, 2));
    out[0] = _mm256_unpacklo_pd(even, odd);
    out[1] = _mm256_unpackhi_pd(even, odd);
    out[2] = _mm256_unpacklo_pd(more_even, more_odd);
    out[3] = _mm256_unpackhi_pd(more_even, more_odd);
  } else {
    load_columns<kLength>(c, i, out);
  }
}

}  // namespace orvik
