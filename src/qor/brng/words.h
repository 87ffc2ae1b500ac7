// Where the words of a generator go: raw, as floats, as doubles. A sink writes eight 32-bit words, or fewer at the end
// of a request, at an index of the caller's array; conversion happens in registers on the way out. A pair is eight
// words in two halves.
#pragma once

#include <immintrin.h>
#include <stddef.h>
#include <stdint.h>

#include "qor/unroll.h"

namespace orvik::qor {

// Lanes 0 to count - 1 set, of eight 32-bit lanes.
inline __m256i lane_mask(int count) {
  alignas(32) static constexpr int32_t kBits[16] = {-1, -1, -1, -1, -1, -1, -1, -1};
  return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(kBits + 8 - count));
}
inline __m256i load8(const uint32_t* p) { return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p)); }
inline __m256i load_some(const uint32_t* p, int count) {
  return _mm256_maskload_epi32(reinterpret_cast<const int*>(p), lane_mask(count));
}
inline void store8(uint32_t* p, __m256i w) { _mm256_storeu_si256(reinterpret_cast<__m256i*>(p), w); }
inline __m256i broadcast32(uint32_t w) { return _mm256_set1_epi32(static_cast<int>(w)); }
inline __m256i broadcast64(uint64_t w) { return _mm256_set1_epi64x(static_cast<long long>(w)); }

struct NullSink {
  void eight(ptrdiff_t, __m256i) const {}
  template <int N>
  void group(ptrdiff_t, const __m256i (&)[N]) const {}
  void some(ptrdiff_t, __m256i, int) const {}
};

class RawSink {
 public:
  explicit RawSink(void* r) : r_(static_cast<uint32_t*>(r)) {}
  void eight(ptrdiff_t i, __m256i w) const { store8(r_ + i, w); }
  template <int N>
  void group(ptrdiff_t i, const __m256i (&w)[N]) const {
    unroll<N>([&](auto k) __attribute__((always_inline)) { store8(r_ + i + 8 * k, w[k]); });
  }
  void pair(ptrdiff_t i, __m128i low, __m128i high) const {
    _mm_storeu_si128(reinterpret_cast<__m128i*>(r_ + i), low);
    _mm_storeu_si128(reinterpret_cast<__m128i*>(r_ + i + 4), high);
  }
  void some(ptrdiff_t i, __m256i w, int count) const {
    _mm256_maskstore_epi32(reinterpret_cast<int*>(r_ + i), lane_mask(count), w);
  }

 private:
  uint32_t* r_;
};

// How a 32-bit word becomes a number of the interval from a to b: as 0 .. 2^32 - 1 counted from a, or as a signed word
// counted from the middle.
struct FromLow {
  template <int N>
  static void to_floats(const __m256i (&w)[N], __m256 (&x)[N]) {  // one rounding: halves against the biases 2^39, 2^23
    __m256i high[N], low[N];
    unroll<N>([&](auto k) __attribute__((always_inline)) { high[k] = _mm256_srli_epi32(w[k], 16); });
    unroll<N>([&](auto k) __attribute__((always_inline)) {
      high[k] = _mm256_or_si256(high[k], _mm256_set1_epi32(0x53000000));
      low[k] = _mm256_blend_epi16(w[k], _mm256_set1_epi32(0x4B000000), 0xAA);
    });
    unroll<N>([&](auto k) __attribute__((always_inline)) {
      x[k] = _mm256_sub_ps(_mm256_castsi256_ps(high[k]), _mm256_set1_ps(0x1p39f + 0x1p23f));
    });
    unroll<N>([&](auto k) __attribute__((always_inline)) { x[k] = _mm256_add_ps(x[k], _mm256_castsi256_ps(low[k])); });
  }
  static __m256d to_double(__m128i w) {  // exact
    return unbias(_mm256_or_si256(_mm256_cvtepu32_epi64(w), broadcast64(0x4330000000000000)));
  }
  static void to_doubles(__m256i w, __m256d& low, __m256d& high) {
    const __m256i bias = broadcast32(0x43300000), crossed = _mm256_permute4x64_epi64(w, 0xD8);
    low = unbias(_mm256_unpacklo_epi32(crossed, bias));
    high = unbias(_mm256_unpackhi_epi32(crossed, bias));
  }
  static __m256d unbias(__m256i w) { return _mm256_sub_pd(_mm256_castsi256_pd(w), _mm256_set1_pd(0x1p52)); }
  template <class T>
  static T origin(T a, T) {
    return a;
  }
};
// As FromLow, but doubles keep their bias of 2^52, which is taken out with the origin: an operation less. The results
// are the same where the origin can take it without rounding, as it can for an interval from 0.
struct FromLowBiased {
  static __m256d to_double(__m128i w) {
    return _mm256_castsi256_pd(_mm256_or_si256(_mm256_cvtepu32_epi64(w), broadcast64(0x4330000000000000)));
  }
  static void to_doubles(__m256i w, __m256d& low, __m256d& high) {
    const __m256i bias = broadcast32(0x43300000), crossed = _mm256_permute4x64_epi64(w, 0xD8);
    low = _mm256_castsi256_pd(_mm256_unpacklo_epi32(crossed, bias));
    high = _mm256_castsi256_pd(_mm256_unpackhi_epi32(crossed, bias));
  }
  static double bias(double a, double b) { return (b - a) * 0x1p-32 * 0x1p52; }
  static double origin(double a, double b) { return a - bias(a, b); }
  // Whether the subtraction is exact (Knuth 1969); false for what is not finite.
  static bool applies(double a, double b) {
    const double s = -bias(a, b), sum = a + s, back = sum - a;
    return (a - (sum - back)) + (s - back) == 0;
  }
};
struct FromMiddle {
  template <int N>
  static void to_floats(const __m256i (&w)[N], __m256 (&x)[N]) {
    unroll<N>([&](auto k) __attribute__((always_inline)) { x[k] = _mm256_cvtepi32_ps(w[k]); });
  }
  static __m256d to_double(__m128i w) { return _mm256_cvtepi32_pd(w); }
  static void to_doubles(__m256i w, __m256d& low, __m256d& high) {
    low = to_double(_mm256_castsi256_si128(w));
    high = to_double(_mm256_extracti128_si256(w, 1));
  }
  template <class T>
  static T origin(T a, T b) {
    return (a + b) * T(0.5);
  }
};

template <class Reading>
class FloatSink {
 public:
  FloatSink(float* r, float a, float b)
      : r_(r), scale_(_mm256_set1_ps((b - a) * 0x1p-32f)), origin_(_mm256_set1_ps(Reading::origin(a, b))) {}
  template <int N>
  void group(ptrdiff_t i, const __m256i (&w)[N]) const {
    __m256 x[N];
    Reading::to_floats(w, x);
    unroll<N>([&](auto k) __attribute__((always_inline)) { x[k] = _mm256_fmadd_ps(scale_, x[k], origin_); });
    unroll<N>([&](auto k) __attribute__((always_inline)) { _mm256_storeu_ps(r_ + i + 8 * k, x[k]); });
  }
  void eight(ptrdiff_t i, __m256i w) const { _mm256_storeu_ps(r_ + i, convert(w)); }
  void pair(ptrdiff_t i, __m128i low, __m128i high) const { eight(i, _mm256_set_m128i(high, low)); }
  void some(ptrdiff_t i, __m256i w, int count) const { _mm256_maskstore_ps(r_ + i, lane_mask(count), convert(w)); }

 private:
  __m256 convert(__m256i w) const {
    const __m256i words[1] = {w};
    __m256 x[1];
    Reading::to_floats(words, x);
    return _mm256_fmadd_ps(scale_, x[0], origin_);
  }
  float* r_;
  __m256 scale_, origin_;
};

template <class Reading>
class DoubleSink {
 public:
  static bool applies(double a, double b) { return Reading::applies(a, b); }
  DoubleSink(double* r, double a, double b)
      : r_(r), scale_(_mm256_set1_pd((b - a) * 0x1p-32)), origin_(_mm256_set1_pd(Reading::origin(a, b))) {}
  template <int N>
  void group(ptrdiff_t i, const __m256i (&w)[N]) const {  // one after the other: registers are short
    unroll<N>([&](auto k) __attribute__((always_inline)) { eight(i + 8 * k, w[k]); });
  }
  void eight(ptrdiff_t i, __m256i w) const {
    __m256d low, high;
    Reading::to_doubles(w, low, high);
    _mm256_storeu_pd(r_ + i, _mm256_fmadd_pd(scale_, low, origin_));
    _mm256_storeu_pd(r_ + i + 4, _mm256_fmadd_pd(scale_, high, origin_));
  }
  void pair(ptrdiff_t i, __m128i low, __m128i high) const {
    _mm256_storeu_pd(r_ + i, convert(low));
    _mm256_storeu_pd(r_ + i + 4, convert(high));
  }
  void some(ptrdiff_t i, __m256i w, int count) const {
    const __m256i mask = lane_mask(count);
    _mm256_maskstore_pd(r_ + i, _mm256_cvtepi32_epi64(_mm256_castsi256_si128(mask)),
                        convert(_mm256_castsi256_si128(w)));
    if (count > 4)
      _mm256_maskstore_pd(r_ + i + 4, _mm256_cvtepi32_epi64(_mm256_extracti128_si256(mask, 1)),
                          convert(_mm256_extracti128_si256(w, 1)));
  }

 private:
  __m256d convert(__m128i w) const { return _mm256_fmadd_pd(scale_, Reading::to_double(w), origin_); }
  double* r_;
  __m256d scale_, origin_;
};

}  // namespace orvik::qor
