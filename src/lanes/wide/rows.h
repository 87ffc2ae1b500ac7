// Rows i[0], i[1] ... of a table with short rows as columns in registers of 512 bits, and columns stored as rows of
// four: see rows.h and transpose.h. Whole rows are loaded, two or four to a register.
#pragma once

#include <cstdint>

#include "lanes/wide/tables.h"

namespace orvik {

inline __m512d join_quarters(__m128d a, __m128d b, __m128d c, __m128d d) {
  const __m256d low = _mm256_insertf128_pd(_mm256_castpd128_pd256(a), b, 1);
  const __m256d high = _mm256_insertf128_pd(_mm256_castpd128_pd256(c), d, 1);
  return _mm512_insertf64x4(_mm512_castpd256_pd512(low), high, 1);
}

// Element `at` of the rows.
template <int kLength, class Index>
[[gnu::always_inline]] inline F64 load_column(const double* c, const Index* i, int at) {
  const auto row = [&](int k) { return c + kLength * static_cast<int64_t>(i[k]) + at; };
  const auto two = [&](int k) { return _mm_loadh_pd(_mm_load_sd(row(k)), row(k + 1)); };
  return join_quarters(two(0), two(2), two(4), two(6));
}
template <int kLength, class Index>
[[gnu::always_inline]] inline void load_columns(const double* c, const Index* i, F64* out) {
  const auto at = [&](int k) { return c + kLength * static_cast<int64_t>(i[k]); };
  if constexpr (kLength == 4) {
    const Quad<F64> columns = gather_fours(at);
    for (int j = 0; j < 4; ++j) out[j] = columns.c[j];
  } else {
    static_assert(kLength == 2);
    const Pair<F64> columns = gather_twos(at);
    out[0] = columns.first, out[1] = columns.second;
  }
}

// One way serves for rows that are far from each other as well: half as many loads are made as of half rows.
template <int kLength>
[[gnu::always_inline]] inline void load_scattered_columns(const double* c, const int64_t* i, F64* out) {
  load_columns<kLength>(c, i, out);
}

// Rows of four from columns: row k is (c0[k], c1[k], c2[k], c3[k]).
inline void store_rows(double* out, F64 c0, F64 c1, F64 c2, F64 c3) {
  const __m512d a = _mm512_unpacklo_pd(c0.v, c1.v), b = _mm512_unpackhi_pd(c0.v, c1.v);
  const __m512d c = _mm512_unpacklo_pd(c2.v, c3.v), d = _mm512_unpackhi_pd(c2.v, c3.v);
  const __m512i low = _mm512_setr_epi64(0, 1, 8, 9, 2, 3, 10, 11);
  const __m512i high = _mm512_setr_epi64(4, 5, 12, 13, 6, 7, 14, 15);
  const auto put = [&](const __m512i& half) {
    const __m512d even = _mm512_permutex2var_pd(a, half, c), odd = _mm512_permutex2var_pd(b, half, d);
    _mm256_storeu_pd(out, _mm512_castpd512_pd256(even));
    _mm256_storeu_pd(out + 4, _mm512_castpd512_pd256(odd));
    _mm256_storeu_pd(out + 8, _mm512_extractf64x4_pd(even, 1));
    _mm256_storeu_pd(out + 12, _mm512_extractf64x4_pd(odd, 1));
    out += 16;
  };
  put(low);
  put(high);
}

}  // namespace orvik
