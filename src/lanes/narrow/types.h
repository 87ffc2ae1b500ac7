// Lane types of 256 bits.
#pragma once

#include <immintrin.h>

#include <bit>
#include <cstdint>

namespace orvik {

struct I32 {  // eight 32-bit integers
  __m256i v;
  I32() = default;
  I32(__m256i x) : v(x) {}
  explicit I32(int32_t x) : v(_mm256_set1_epi32(x)) {}
  explicit I32(uint32_t x) : v(_mm256_set1_epi32(std::bit_cast<int32_t>(x))) {}
};
struct I64 {  // four 64-bit integers
  __m256i v;
  I64() = default;
  I64(__m256i x) : v(x) {}
  explicit I64(int64_t x) : v(_mm256_set1_epi64x(x)) {}
  explicit I64(uint64_t x) : v(_mm256_set1_epi64x(std::bit_cast<int64_t>(x))) {}
};
struct I32Half {  // four 32-bit integers: one for each lane of an F64
  __m128i v;
  I32Half() = default;
  I32Half(__m128i x) : v(x) {}
  explicit I32Half(int32_t x) : v(_mm_set1_epi32(x)) {}
};

// Masks: comparisons fill whole lanes; tests of words and of signs answer in the lane's sign bit alone. select(),
// none() and lane_bits() read the sign bit, keep() and drop() need whole lanes.
struct M32 {
  __m256 v;
  M32() = default;
  explicit M32(__m256 x) : v(x) {}
};
struct M64 {
  __m256d v;
  M64() = default;
  explicit M64(__m256d x) : v(x) {}
};

struct F32 {
  __m256 v;
  F32() = default;
  F32(__m256 x) : v(x) {}
  F32(float x) : v(_mm256_set1_ps(x)) {}
};
struct F64 {
  __m256d v;
  F64() = default;
  F64(__m256d x) : v(x) {}
  F64(double x) : v(_mm256_set1_pd(x)) {}
};

}  // namespace orvik
