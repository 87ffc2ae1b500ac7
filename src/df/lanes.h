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

  // Comparisons give masks of whole lanes; a not-a-number compares false.
  friend Lanes operator<(Lanes a, Lanes b) { return _mm256_cmp_pd(a.v, b.v, _CMP_LT_OQ); }
  friend Lanes operator>=(Lanes a, Lanes b) { return _mm256_cmp_pd(a.v, b.v, _CMP_GE_OQ); }
  friend Lanes operator==(Lanes a, Lanes b) { return _mm256_cmp_pd(a.v, b.v, _CMP_EQ_OQ); }
  friend Lanes operator&(Lanes a, Lanes b) { return _mm256_and_pd(a.v, b.v); }
  friend Lanes operator|(Lanes a, Lanes b) { return _mm256_or_pd(a.v, b.v); }
  friend Lanes and_not(Lanes mask, Lanes a) { return _mm256_andnot_pd(mask.v, a.v); }
  friend Lanes select(Lanes mask, Lanes a, Lanes b) { return _mm256_blendv_pd(b.v, a.v, mask.v); }
  // Of a not-a-number a, b.
  friend Lanes min(Lanes a, Lanes b) { return _mm256_min_pd(a.v, b.v); }
  friend Lanes max(Lanes a, Lanes b) { return _mm256_max_pd(a.v, b.v); }
  unsigned bits() const { return static_cast<unsigned>(_mm256_movemask_pd(v)); }

  // Truncated, and truncated plus one, to integers.
  void store_truncated(int32_t* p) const { _mm_storeu_si128(reinterpret_cast<__m128i*>(p), _mm256_cvttpd_epi32(v)); }
  void store_next(int32_t* p) const { _mm_storeu_si128(reinterpret_cast<__m128i*>(p), next()); }
  void store_next(int64_t* p) const {
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(p), _mm256_cvtepi32_epi64(next()));
  }

 private:
  __m128i next() const { return _mm_add_epi32(_mm256_cvttpd_epi32(v), _mm_set1_epi32(1)); }
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

  friend Lanes operator<(Lanes a, Lanes b) { return _mm256_cmp_ps(a.v, b.v, _CMP_LT_OQ); }
  friend Lanes operator>=(Lanes a, Lanes b) { return _mm256_cmp_ps(a.v, b.v, _CMP_GE_OQ); }
  friend Lanes operator==(Lanes a, Lanes b) { return _mm256_cmp_ps(a.v, b.v, _CMP_EQ_OQ); }
  friend Lanes operator&(Lanes a, Lanes b) { return _mm256_and_ps(a.v, b.v); }
  friend Lanes operator|(Lanes a, Lanes b) { return _mm256_or_ps(a.v, b.v); }
  friend Lanes and_not(Lanes mask, Lanes a) { return _mm256_andnot_ps(mask.v, a.v); }
  friend Lanes select(Lanes mask, Lanes a, Lanes b) { return _mm256_blendv_ps(b.v, a.v, mask.v); }
  friend Lanes min(Lanes a, Lanes b) { return _mm256_min_ps(a.v, b.v); }
  friend Lanes max(Lanes a, Lanes b) { return _mm256_max_ps(a.v, b.v); }
  unsigned bits() const { return static_cast<unsigned>(_mm256_movemask_ps(v)); }

  void store_truncated(int32_t* p) const { _mm256_storeu_si256(reinterpret_cast<__m256i*>(p), _mm256_cvttps_epi32(v)); }
  void store_next(int32_t* p) const { _mm256_storeu_si256(reinterpret_cast<__m256i*>(p), next()); }
  void store_next(int64_t* p) const {
    const __m256i n = next();
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(p), _mm256_cvtepi32_epi64(_mm256_castsi256_si128(n)));
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(p + 4), _mm256_cvtepi32_epi64(_mm256_extracti128_si256(n, 1)));
  }

 private:
  __m256i next() const { return _mm256_add_epi32(_mm256_cvttps_epi32(v), _mm256_set1_epi32(1)); }
};

// The same operations on one real, so that a formula is written once for both.
template <class T, class Real>
T at(const Real* p) {
  if constexpr (sizeof(T) == sizeof(Real)) {
    return *p;
  } else {
    return T::load(p);
  }
}
template <class Real>
void put(Real* p, Real value) {
  *p = value;
}
template <class Real>
void put(Real* p, Lanes<Real> value) {
  value.store(p);
}
template <class Real>
Real select(bool condition, Real a, Real b) {
  return condition ? a : b;
}
inline Lanes<double> abs(Lanes<double> a) { return _mm256_andnot_pd(_mm256_set1_pd(-0.0), a.v); }
inline Lanes<float> abs(Lanes<float> a) { return _mm256_andnot_ps(_mm256_set1_ps(-0.0f), a.v); }
// The size of a >= 0 with the sign of b.
inline Lanes<double> copysign(Lanes<double> a, Lanes<double> b) {
  return _mm256_or_pd(a.v, _mm256_and_pd(_mm256_set1_pd(-0.0), b.v));
}
inline Lanes<float> copysign(Lanes<float> a, Lanes<float> b) {
  return _mm256_or_ps(a.v, _mm256_and_ps(_mm256_set1_ps(-0.0f), b.v));
}

// a b + c, and c - a b.
inline Lanes<double> fma(Lanes<double> a, Lanes<double> b, Lanes<double> c) { return _mm256_fmadd_pd(a.v, b.v, c.v); }
inline Lanes<float> fma(Lanes<float> a, Lanes<float> b, Lanes<float> c) { return _mm256_fmadd_ps(a.v, b.v, c.v); }
inline Lanes<double> fnma(Lanes<double> a, Lanes<double> b, Lanes<double> c) { return _mm256_fnmadd_pd(a.v, b.v, c.v); }
inline Lanes<float> fnma(Lanes<float> a, Lanes<float> b, Lanes<float> c) { return _mm256_fnmadd_ps(a.v, b.v, c.v); }

// As many 32-bit indices as Lanes<Real> has reals.
template <class Real>
struct Indices;

template <>
struct Indices<double> {
  __m128i v;

  Indices(__m128i bits) : v(bits) {}
  explicit Indices(int32_t all) : v(_mm_set1_epi32(all)) {}
  static Indices load(const int32_t* p) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p)); }
  void store(int32_t* p) const { _mm_storeu_si128(reinterpret_cast<__m128i*>(p), v); }
  void store(int64_t* p) const { _mm256_storeu_si256(reinterpret_cast<__m256i*>(p), _mm256_cvtepi32_epi64(v)); }
  friend Indices operator+(Indices a, Indices b) { return _mm_add_epi32(a.v, b.v); }
  friend Indices min(Indices a, Indices b) { return _mm_min_epi32(a.v, b.v); }
  friend Indices max(Indices a, Indices b) { return _mm_max_epi32(a.v, b.v); }
  friend Lanes<double> reals(Indices a) { return _mm256_cvtepi32_pd(a.v); }
  int32_t first() const { return _mm_cvtsi128_si32(v); }
  friend Indices select(Lanes<double> mask, Indices a, Indices b) {
    const __m256 wide = _mm256_castpd_ps(mask.v);
    const __m128 narrow = _mm_shuffle_ps(_mm256_castps256_ps128(wide), _mm256_extractf128_ps(wide, 1), 0x88);
    return _mm_blendv_epi8(b.v, a.v, _mm_castps_si128(narrow));
  }
};

template <>
struct Indices<float> {
  __m256i v;

  Indices(__m256i bits) : v(bits) {}
  explicit Indices(int32_t all) : v(_mm256_set1_epi32(all)) {}
  static Indices load(const int32_t* p) { return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p)); }
  void store(int32_t* p) const { _mm256_storeu_si256(reinterpret_cast<__m256i*>(p), v); }
  void store(int64_t* p) const {
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(p), _mm256_cvtepi32_epi64(_mm256_castsi256_si128(v)));
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(p + 4), _mm256_cvtepi32_epi64(_mm256_extracti128_si256(v, 1)));
  }
  friend Indices operator+(Indices a, Indices b) { return _mm256_add_epi32(a.v, b.v); }
  friend Indices min(Indices a, Indices b) { return _mm256_min_epi32(a.v, b.v); }
  friend Indices max(Indices a, Indices b) { return _mm256_max_epi32(a.v, b.v); }
  friend Lanes<float> reals(Indices a) { return _mm256_cvtepi32_ps(a.v); }
  int32_t first() const { return _mm_cvtsi128_si32(_mm256_castsi256_si128(v)); }
  friend Indices select(Lanes<float> mask, Indices a, Indices b) {
    return _mm256_blendv_epi8(b.v, a.v, _mm256_castps_si256(mask.v));
  }
};

// Indices that are not negative as 64-bit integers, two at a time out of the vector: single words cost as much each.
inline void spread(__m128i v, int64_t* out) {
  const uint64_t low = static_cast<uint64_t>(_mm_cvtsi128_si64(v));
  const uint64_t high = static_cast<uint64_t>(_mm_extract_epi64(v, 1));
  out[0] = static_cast<int64_t>(low & 0xFFFFFFFF), out[1] = static_cast<int64_t>(low >> 32);
  out[2] = static_cast<int64_t>(high & 0xFFFFFFFF), out[3] = static_cast<int64_t>(high >> 32);
}
inline void spread(Indices<double> i, int64_t* out) { spread(i.v, out); }
inline void spread(Indices<float> i, int64_t* out) {
  spread(_mm256_castsi256_si128(i.v), out);
  spread(_mm256_extracti128_si256(i.v, 1), out + 4);
}

// p[i] for every index that is not negative, by single loads: the gathering instructions are slower on the
// processors this is tuned for.
inline Lanes<double> gather(const double* p, Indices<double> index) {
  int64_t i[4];
  spread(index, i);
  const __m128d low = _mm_loadh_pd(_mm_load_sd(p + i[0]), p + i[1]);
  return _mm256_insertf128_pd(_mm256_castpd128_pd256(low), _mm_loadh_pd(_mm_load_sd(p + i[2]), p + i[3]), 1);
}
inline Lanes<float> gather(const float* p, Indices<float> index) {
  int64_t i[8];
  spread(index, i);
  const auto four = [&](int k) {
    const __m128 a = _mm_unpacklo_ps(_mm_load_ss(p + i[k]), _mm_load_ss(p + i[k + 1]));
    return _mm_movelh_ps(a, _mm_unpacklo_ps(_mm_load_ss(p + i[k + 2]), _mm_load_ss(p + i[k + 3])));
  };
  return _mm256_insertf128_ps(_mm256_castps128_ps256(four(0)), four(4), 1);
}

// Truncated to integers.
inline Indices<double> truncated(Lanes<double> a) { return _mm256_cvttpd_epi32(a.v); }
inline Indices<float> truncated(Lanes<float> a) { return _mm256_cvttps_epi32(a.v); }

// Counting of true lanes: masks are added up in integers, each true lane as -1.
inline void count_true(Lanes<double>* sum, Lanes<double> mask) {
  sum->v = _mm256_castsi256_pd(_mm256_add_epi64(_mm256_castpd_si256(sum->v), _mm256_castpd_si256(mask.v)));
}
inline void count_true(Lanes<float>* sum, Lanes<float> mask) {
  sum->v = _mm256_castsi256_ps(_mm256_add_epi32(_mm256_castps_si256(sum->v), _mm256_castps_si256(mask.v)));
}

// The totals of four such sums.
inline __m128i add_halves(__m256i a, __m256i b) {
  const __m256i pairs = _mm256_hadd_epi32(a, b);
  return _mm_add_epi32(_mm256_castsi256_si128(pairs), _mm256_extracti128_si256(pairs, 1));
}
inline __m128i totals(const Lanes<double>* sum) {
  const auto low = [](Lanes<double> a, Lanes<double> b) {  // the low words of both
    return _mm256_castps_si256(_mm256_shuffle_ps(_mm256_castpd_ps(a.v), _mm256_castpd_ps(b.v), 0x88));
  };
  return add_halves(low(sum[0], sum[1]), low(sum[2], sum[3]));
}
inline __m128i totals(const Lanes<float>* sum) {
  const auto pairs = [](Lanes<float> a, Lanes<float> b) {
    return _mm256_hadd_epi32(_mm256_castps_si256(a.v), _mm256_castps_si256(b.v));
  };
  return add_halves(pairs(sum[0], sum[1]), pairs(sum[2], sum[3]));
}

// -1 for each of four reals that is above a bound.
inline __m128i above(const double* p, double bound) {
  const __m256 wide = _mm256_castpd_ps((Lanes<double>(bound) < Lanes<double>::load(p)).v);
  return _mm_castps_si128(_mm_shuffle_ps(_mm256_castps256_ps128(wide), _mm256_extractf128_ps(wide, 1), 0x88));
}
inline __m128i above(const float* p, float bound) {
  return _mm_castps_si128(_mm_cmplt_ps(_mm_set1_ps(bound), _mm_loadu_ps(p)));
}

inline void store_indices(int32_t* p, __m128i i) { _mm_storeu_si128(reinterpret_cast<__m128i*>(p), i); }
inline void store_indices(int64_t* p, __m128i i) {
  _mm256_storeu_si256(reinterpret_cast<__m256i*>(p), _mm256_cvtepi32_epi64(i));
}

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

// Rows of two from columns of kCount.
inline void store_pairs(double* out, Lanes<double> c0, Lanes<double> c1) {
  const __m256d a = _mm256_unpacklo_pd(c0.v, c1.v), b = _mm256_unpackhi_pd(c0.v, c1.v);
  _mm256_storeu_pd(out, _mm256_permute2f128_pd(a, b, 0x20));
  _mm256_storeu_pd(out + 4, _mm256_permute2f128_pd(a, b, 0x31));
}
inline void store_pairs(float* out, Lanes<float> c0, Lanes<float> c1) {
  const __m256 a = _mm256_unpacklo_ps(c0.v, c1.v), b = _mm256_unpackhi_ps(c0.v, c1.v);
  _mm256_storeu_ps(out, _mm256_permute2f128_ps(a, b, 0x20));
  _mm256_storeu_ps(out + 8, _mm256_permute2f128_ps(a, b, 0x31));
}

template <class Real>
void store_rows(Real* out, Real c0, Real c1, Real c2, Real c3) {
  out[0] = c0, out[1] = c1, out[2] = c2, out[3] = c3;
}

// The transpose of a square of vectors, in place.
inline void turn(Lanes<double>* r) {
  const __m256d a = _mm256_unpacklo_pd(r[0].v, r[1].v), b = _mm256_unpackhi_pd(r[0].v, r[1].v);
  const __m256d c = _mm256_unpacklo_pd(r[2].v, r[3].v), d = _mm256_unpackhi_pd(r[2].v, r[3].v);
  r[0] = _mm256_permute2f128_pd(a, c, 0x20);
  r[1] = _mm256_permute2f128_pd(b, d, 0x20);
  r[2] = _mm256_permute2f128_pd(a, c, 0x31);
  r[3] = _mm256_permute2f128_pd(b, d, 0x31);
}
inline void turn(Lanes<float>* r) {
  __m256 s[8];
  for (int half = 0; half < 2; ++half) {  // rows 0 to 3, 4 to 7: squares of four in each half of the vectors
    const Lanes<float>* q = r + 4 * half;
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

}  // namespace orvik::df

#endif
