// The two moduli of the congruential generators.
#pragma once

#include <immintrin.h>
#include <stdint.h>

#include "qor/brng/words.h"

namespace orvik::qor {

struct Mod2P31M1 {
  using Element = uint32_t;
  static constexpr uint32_t kRow = 0;
  static constexpr uint64_t kMultiplier = 1132489760, kModulus = 0x7FFFFFFF;
  // The float scale is rounded to a power of two, the double one is not.
  static constexpr float kFloatScale = 0x1p-31f;
  static constexpr double kDoubleScale = 0x1.00000002p-31;

  static uint64_t member(int32_t n, const uint32_t* seeds) { return n <= 0 ? 1 : seeds[0] % kModulus; }

  // Below 2^62, so that one fold and one subtraction give the residue.
  static uint64_t multiply(uint64_t x, uint64_t a) {
    const uint64_t product = x * a, sum = (product & kModulus) + (product >> 31);
    return sum >= kModulus ? sum - kModulus : sum;
  }
  // A multiplier of four lanes.
  struct Factor {
    Factor() = default;
    explicit Factor(__m256i power) : a(power) {}
    __m256i a;
  };
  // Four members and what one comes from.
  using Lanes = __m256i;
  using Product = __m256i;
  static Lanes enter(__m256i x) { return x; }
  static __m256i leave(Lanes x) { return x; }
  static Lanes lanes(Product x) { return x; }
  static Product unit(Lanes x) { return x; }
  template <int N>
  static void multiply(Lanes x, const Factor* f, Product (&r)[N]) {
    const __m256i m = broadcast64(kModulus);
    unroll<N>([&](auto k) __attribute__((always_inline)) { r[k] = _mm256_mul_epu32(x, f[k].a); });
    unroll<N>([&](auto k) __attribute__((always_inline)) {
      r[k] = _mm256_add_epi64(_mm256_and_si256(r[k], m), _mm256_srli_epi64(r[k], 31));
    });
    unroll<N>([&](auto k) __attribute__((always_inline)) { r[k] = _mm256_min_epu32(r[k], _mm256_sub_epi32(r[k], m)); });
  }
  static void store(uint32_t* r, Product w) {
    const __m256i packed = _mm256_permutevar8x32_epi32(w, _mm256_setr_epi32(0, 2, 4, 6, 0, 2, 4, 6));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(r), _mm256_castsi256_si128(packed));
  }
  template <int N>
  static void to_double(const Product (&w)[N], __m256d (&x)[N]) {
    unroll<N>([&](auto k) __attribute__((always_inline)) {
      const __m256i biased = _mm256_or_si256(w[k], broadcast64(0x4330000000000000));
      x[k] = _mm256_sub_pd(_mm256_castsi256_pd(biased), _mm256_set1_pd(0x1p52));
    });
  }
  // 31 bits have a sign to spare: one rounding.
  template <int N>
  static void to_float(const Product (&w)[N], __m256 (&x)[(N + 1) / 2]) {
    unroll<(N + 1) / 2>([&](auto k) __attribute__((always_inline)) {
      constexpr int kOther = 2 * k + 1 < N ? 2 * k + 1 : 2 * k;
      const __m256 packed = _mm256_shuffle_ps(_mm256_castsi256_ps(w[2 * k]), _mm256_castsi256_ps(w[kOther]), 0x88);
      x[k] = _mm256_cvtepi32_ps(_mm256_permute4x64_epi64(_mm256_castps_si256(packed), 0xD8));
    });
  }
};

struct Mod2P59 {
  using Element = uint64_t;
  static constexpr uint32_t kRow = 1;
  static constexpr uint64_t kMultiplier = 302875106592253, kMask = (uint64_t{1} << 59) - 1;
  static constexpr float kFloatScale = 0x1p-59f;
  static constexpr double kDoubleScale = 0x1p-59;

  static uint64_t member(int32_t n, const uint32_t* seeds) {
    if (n <= 0) return 1;
    return n == 1 ? seeds[0] : (seeds[0] | static_cast<uint64_t>(seeds[1]) << 32) & kMask;
  }
  static uint64_t multiply(uint64_t x, uint64_t a) { return x * a & kMask; }
  struct Factor {
    Factor() = default;
    explicit Factor(__m256i power) : low(power), high(_mm256_srli_epi64(power, 32)) {}
    __m256i low, high;
  };
  // Lanes stand 5 bits higher, so that the modulus is that of the word. A product is `low`, and `high` added to its
  // upper half, of which only the low 32 bits count.
  using Lanes = __m256i;
  struct Product {
    __m256i low, high;
  };
  static Lanes enter(__m256i x) { return _mm256_slli_epi64(x, 5); }
  static __m256i leave(Lanes x) { return _mm256_srli_epi64(x, 5); }
  static Lanes lanes(Product x) { return _mm256_add_epi64(x.low, _mm256_slli_epi64(x.high, 32)); }
  static Product unit(Lanes x) { return {x, _mm256_setzero_si256()}; }
  template <int N>
  static void multiply(Lanes x, const Factor* f, Product (&r)[N]) {
    const __m256i upper = _mm256_srli_epi64(x, 32);
    __m256i cross[N];
    unroll<N>([&](auto k) __attribute__((always_inline)) {
      r[k].low = _mm256_mul_epu32(x, f[k].low);
      r[k].high = _mm256_mul_epu32(upper, f[k].low);
      cross[k] = _mm256_mul_epu32(x, f[k].high);
    });
    unroll<N>([&](auto k) __attribute__((always_inline)) { r[k].high = _mm256_add_epi64(r[k].high, cross[k]); });
  }
  static void store(uint64_t* r, Product w) { _mm256_storeu_si256(reinterpret_cast<__m256i*>(r), leave(lanes(w))); }
  // One rounding: halves against the biases 2^79 and 2^47.
  template <int N>
  static void to_double(const Product (&w)[N], __m256d (&x)[N]) {
    __m256i high[N];
    unroll<N>([&](auto k) __attribute__((always_inline)) { high[k] = _mm256_srli_epi64(w[k].low, 32); });
    unroll<N>([&](auto k) __attribute__((always_inline)) { high[k] = _mm256_add_epi64(high[k], w[k].high); });
    unroll<N>([&](auto k) __attribute__((always_inline)) {
      const __m256i biased = _mm256_blend_epi32(high[k], broadcast64(0x44E0000000000000), 0xAA);
      x[k] = _mm256_sub_pd(_mm256_castsi256_pd(biased), _mm256_set1_pd(0x1p79 + 0x1p47));
    });
    unroll<N>([&](auto k) __attribute__((always_inline)) {
      const __m256i low = _mm256_blend_epi32(w[k].low, broadcast64(0x42E0000000000000), 0xAA);
      x[k] = _mm256_add_pd(x[k], _mm256_castsi256_pd(low));
    });
  }
  // By way of the double, in two roundings.
  template <int N>
  static void to_float(const Product (&w)[N], __m256 (&x)[(N + 1) / 2]) {
    unroll<(N + 1) / 2>([&](auto k) __attribute__((always_inline)) {
      const Product pair[2] = {w[2 * k], w[2 * k + 1 < N ? 2 * k + 1 : 2 * k]};
      __m256d d[2];
      to_double(pair, d);
      x[k] = _mm256_set_m128(_mm256_cvtpd_ps(d[1]), _mm256_cvtpd_ps(d[0]));
    });
  }
};

}  // namespace orvik::qor
