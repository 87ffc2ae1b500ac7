// A vector of reals with the few operations that construction and evaluation use. No operation is contracted.
#ifndef ORVIK_DF_LANES_H
#define ORVIK_DF_LANES_H

#include <immintrin.h>

#include <cstdint>

namespace orvik::df {

template <class Real>
struct Lanes;

template <>
struct Lanes<double> {
  static constexpr int64_t kCount = 4;
  __m256d v;

  Lanes() = default;
  Lanes(__m256d bits) : v(bits) {}
  Lanes(double all) : v(_mm256_set1_pd(all)) {}
  static Lanes load(const double* p) { return _mm256_loadu_pd(p); }
  void store(double* p) const { _mm256_storeu_pd(p, v); }
  friend Lanes operator+(Lanes a, Lanes b) { return _mm256_add_pd(a.v, b.v); }
  friend Lanes operator-(Lanes a, Lanes b) { return _mm256_sub_pd(a.v, b.v); }
  friend Lanes operator*(Lanes a, Lanes b) { return _mm256_mul_pd(a.v, b.v); }
  friend Lanes operator/(Lanes a, Lanes b) { return _mm256_div_pd(a.v, b.v); }
};

template <>
struct Lanes<float> {
  static constexpr int64_t kCount = 8;
  __m256 v;

  Lanes() = default;
  Lanes(__m256 bits) : v(bits) {}
  Lanes(float all) : v(_mm256_set1_ps(all)) {}
  static Lanes load(const float* p) { return _mm256_loadu_ps(p); }
  void store(float* p) const { _mm256_storeu_ps(p, v); }
  friend Lanes operator+(Lanes a, Lanes b) { return _mm256_add_ps(a.v, b.v); }
  friend Lanes operator-(Lanes a, Lanes b) { return _mm256_sub_ps(a.v, b.v); }
  friend Lanes operator*(Lanes a, Lanes b) { return _mm256_mul_ps(a.v, b.v); }
  friend Lanes operator/(Lanes a, Lanes b) { return _mm256_div_ps(a.v, b.v); }
};

// a b + c, and c - a b.
inline Lanes<double> fma(Lanes<double> a, Lanes<double> b, Lanes<double> c) { return _mm256_fmadd_pd(a.v, b.v, c.v); }
inline Lanes<float> fma(Lanes<float> a, Lanes<float> b, Lanes<float> c) { return _mm256_fmadd_ps(a.v, b.v, c.v); }
inline Lanes<double> fnma(Lanes<double> a, Lanes<double> b, Lanes<double> c) { return _mm256_fnmadd_pd(a.v, b.v, c.v); }
inline Lanes<float> fnma(Lanes<float> a, Lanes<float> b, Lanes<float> c) { return _mm256_fnmadd_ps(a.v, b.v, c.v); }

// Rows of four from columns of kCount: row k is (c0[k], c1[k], c2[k], c3[k]).
inline void store_rows(double* out, Lanes<double> c0, Lanes<double> c1, Lanes<double> c2, Lanes<double> c3) {
  const __m256d a = _mm256_unpacklo_pd(c0.v, c1.v), b = _mm256_unpackhi_pd(c0.v, c1.v);
  const __m256d c = _mm256_unpacklo_pd(c2.v, c3.v), d = _mm256_unpackhi_pd(c2.v, c3.v);
  _mm256_storeu_pd(out, _mm256_permute2f128_pd(a, c, 0x20));
  _mm256_storeu_pd(out + 4, _mm256_permute2f128_pd(b, d, 0x20));
  _mm256_storeu_pd(out + 8, _mm256_permute2f128_pd(a, c, 0x31));
  _mm256_storeu_pd(out + 12, _mm256_permute2f128_pd(b, d, 0x31));
}
inline void store_rows(float* out, Lanes<float> c0, Lanes<float> c1, Lanes<float> c2, Lanes<float> c3) {
  const __m256 a = _mm256_unpacklo_ps(c0.v, c1.v), b = _mm256_unpackhi_ps(c0.v, c1.v);
  const __m256 c = _mm256_unpacklo_ps(c2.v, c3.v), d = _mm256_unpackhi_ps(c2.v, c3.v);
  const __m256 r0 = _mm256_shuffle_ps(a, c, 0x44), r1 = _mm256_shuffle_ps(a, c, 0xEE);  // rows 0 and 4, 1 and 5
  const __m256 r2 = _mm256_shuffle_ps(b, d, 0x44), r3 = _mm256_shuffle_ps(b, d, 0xEE);  // rows 2 and 6, 3 and 7
  _mm256_storeu_ps(out, _mm256_permute2f128_ps(r0, r1, 0x20));
  _mm256_storeu_ps(out + 8, _mm256_permute2f128_ps(r2, r3, 0x20));
  _mm256_storeu_ps(out + 16, _mm256_permute2f128_ps(r0, r1, 0x31));
  _mm256_storeu_ps(out + 24, _mm256_permute2f128_ps(r2, r3, 0x31));
}

}  // namespace orvik::df

#endif
