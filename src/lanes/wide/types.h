// Lane types of 512 bits, with predicate registers for masks. A namespace of their own, so that nothing that is made of
// them has the name of what is made of 256 bits.
#pragma once

#include <immintrin.h>

#include <bit>
#include <cstdint>

namespace orvik {
inline namespace wide {

struct I32 {  // sixteen 32-bit integers
  __m512i v;
  I32() = default;
  I32(__m512i x) : v(x) {}
  explicit I32(int32_t x) : v(_mm512_set1_epi32(x)) {}
  explicit I32(uint32_t x) : v(_mm512_set1_epi32(std::bit_cast<int32_t>(x))) {}
};
struct I64 {  // eight 64-bit integers
  __m512i v;
  I64() = default;
  I64(__m512i x) : v(x) {}
  explicit I64(int64_t x) : v(_mm512_set1_epi64(x)) {}
  explicit I64(uint64_t x) : v(_mm512_set1_epi64(std::bit_cast<int64_t>(x))) {}
};
struct I32Half {  // eight 32-bit integers: one for each lane of an F64
  __m256i v;
  I32Half() = default;
  I32Half(__m256i x) : v(x) {}
  explicit I32Half(int32_t x) : v(_mm256_set1_epi32(x)) {}
};

struct M32 {
  __mmask16 v;
  M32() = default;
  explicit M32(__mmask16 x) : v(x) {}
};
struct M64 {
  __mmask8 v;
  M64() = default;
  explicit M64(__mmask8 x) : v(x) {}
};

struct F32 {
  __m512 v;
  F32() = default;
  F32(__m512 x) : v(x) {}
  F32(float x) : v(_mm512_set1_ps(x)) {}
};
struct F64 {
  __m512d v;
  F64() = default;
  F64(__m512d x) : v(x) {}
  F64(double x) : v(_mm512_set1_pd(x)) {}
};

}  // namespace wide
}  // namespace orvik
