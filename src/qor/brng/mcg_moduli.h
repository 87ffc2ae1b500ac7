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
  static __m256i multiply(__m256i x, const Factor& f) {
    const __m256i a = f.a, m = broadcast64(kModulus), product = _mm256_mul_epu32(x, a);
    const __m256i sum = _mm256_add_epi64(_mm256_and_si256(product, m), _mm256_srli_epi64(product, 31));
    return _mm256_min_epu32(sum, _mm256_sub_epi32(sum, m));
  }
  static void store(uint32_t* r, __m256i w) {
    const __m256i packed = _mm256_permutevar8x32_epi32(w, _mm256_setr_epi32(0, 2, 4, 6, 0, 2, 4, 6));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(r), _mm256_castsi256_si128(packed));
  }
  static __m256d to_double(__m256i w) {
    const __m256i biased = _mm256_or_si256(w, broadcast64(0x4330000000000000));
    return _mm256_sub_pd(_mm256_castsi256_pd(biased), _mm256_set1_pd(0x1p52));
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
  static __m256i multiply(__m256i x, const Factor& f) {
    const __m256i cross =
        _mm256_add_epi64(_mm256_mul_epu32(_mm256_srli_epi64(x, 32), f.low), _mm256_mul_epu32(x, f.high));
    const __m256i product = _mm256_add_epi64(_mm256_mul_epu32(x, f.low), _mm256_slli_epi64(cross, 32));
    return _mm256_and_si256(product, broadcast64(kMask));
  }
  static void store(uint64_t* r, __m256i w) { _mm256_storeu_si256(reinterpret_cast<__m256i*>(r), w); }
  // One rounding: halves against the biases 2^84 and 2^52.
  static __m256d to_double(__m256i w) {
    const __m256i high = _mm256_or_si256(_mm256_srli_epi64(w, 32), broadcast64(0x4530000000000000));
    const __m256i low = _mm256_blend_epi32(w, broadcast64(0x4330000000000000), 0xAA);
    return _mm256_add_pd(_mm256_sub_pd(_mm256_castsi256_pd(high), _mm256_set1_pd(0x1p84 + 0x1p52)),
                         _mm256_castsi256_pd(low));
  }
};

}  // namespace orvik::qor
