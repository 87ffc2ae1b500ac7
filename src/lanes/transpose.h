// Rows and columns: vectors stored as columns of a table with short rows, squares of vectors turned.
#pragma once

#include "lanes/vectors.h"

namespace orvik {

// Rows of four from columns: row k is (c0[k], c1[k], c2[k], c3[k]).
inline void store_rows(double* out, F64 c0, F64 c1, F64 c2, F64 c3) {
  const __m256d a = _mm256_unpacklo_pd(c0.v, c1.v), b = _mm256_unpackhi_pd(c0.v, c1.v);
  const __m256d c = _mm256_unpacklo_pd(c2.v, c3.v), d = _mm256_unpackhi_pd(c2.v, c3.v);
  _mm256_storeu_pd(out, _mm256_permute2f128_pd(a, c, 0x20));
  _mm256_storeu_pd(out + 4, _mm256_permute2f128_pd(b, d, 0x20));
  _mm256_storeu_pd(out + 8, _mm256_permute2f128_pd(a, c, 0x31));
  _mm256_storeu_pd(out + 12, _mm256_permute2f128_pd(b, d, 0x31));
}
inline void store_rows(float* out, F32 c0, F32 c1, F32 c2, F32 c3) {
  const __m256 a = _mm256_unpacklo_ps(c0.v, c1.v), b = _mm256_unpackhi_ps(c0.v, c1.v);
  const __m256 c = _mm256_unpacklo_ps(c2.v, c3.v), d = _mm256_unpackhi_ps(c2.v, c3.v);
  const __m256 r0 = _mm256_shuffle_ps(a, c, 0x44), r1 = _mm256_shuffle_ps(a, c, 0xEE);  // rows 0 and 4, 1 and 5
  const __m256 r2 = _mm256_shuffle_ps(b, d, 0x44), r3 = _mm256_shuffle_ps(b, d, 0xEE);  // rows 2 and 6, 3 and 7
  _mm256_storeu_ps(out, _mm256_permute2f128_ps(r0, r1, 0x20));
  _mm256_storeu_ps(out + 8, _mm256_permute2f128_ps(r2, r3, 0x20));
  _mm256_storeu_ps(out + 16, _mm256_permute2f128_ps(r0, r1, 0x31));
  _mm256_storeu_ps(out + 24, _mm256_permute2f128_ps(r2, r3, 0x31));
}
template <class E>
inline void store_rows(E* out, E c0, E c1, E c2, E c3) {
  out[0] = c0, out[1] = c1, out[2] = c2, out[3] = c3;
}

// The transpose of a square of vectors, in place.
inline void turn(F64* r) {
  const __m256d a = _mm256_unpacklo_pd(r[0].v, r[1].v), b = _mm256_unpackhi_pd(r[0].v, r[1].v);
  const __m256d c = _mm256_unpacklo_pd(r[2].v, r[3].v), d = _mm256_unpackhi_pd(r[2].v, r[3].v);
  r[0] = _mm256_permute2f128_pd(a, c, 0x20);
  r[1] = _mm256_permute2f128_pd(b, d, 0x20);
  r[2] = _mm256_permute2f128_pd(a, c, 0x31);
  r[3] = _mm256_permute2f128_pd(b, d, 0x31);
}
inline void turn(F32* r) {
  __m256 s[8];
  for (int half = 0; half < 2; ++half) {  // rows 0 to 3, 4 to 7: squares of four in each half of the vectors
    const F32* q = r + 4 * half;
    const __m256 a = _mm256_unpacklo_ps(q[0].v, q[1].v), b = _mm256_unpackhi_ps(q[0].v, q[1].v);
    const __m256 c = _mm256_unpacklo_ps(q[2].v, q[3].v), d = _mm256_unpackhi_ps(q[2].v, q[3].v);
    s[4 * half] = _mm256_shuffle_ps(a, c, 0x44);
    s[4 * half + 1] = _mm256_shuffle_ps(a, c, 0xEE);
    s[4 * half + 2] = _mm256_shuffle_ps(b, d, 0x44);
    s[4 * half + 3] = _mm256_shuffle_ps(b, d, 0xEE);
  }
  for (int k = 0; k < 4; ++k) {
    r[k] = _mm256_permute2f128_ps(s[k], s[k + 4], 0x20);
    r[k + 4] = _mm256_permute2f128_ps(s[k], s[k + 4], 0x31);
  }
}

}  // namespace orvik
