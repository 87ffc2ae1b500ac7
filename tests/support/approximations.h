// What the processor's approximate instructions give: rows that start from them, and all that stands on such rows, have
// other bits on processors that approximate otherwise.
#pragma once

#include <immintrin.h>

#include <bit>
#include <cstdint>

namespace orvik::test {

inline uint64_t mix(uint64_t hash, uint64_t word) {  // FNV-1a over words, with a final shuffle of each word
  word *= 0x9E3779B97F4A7C15u;
  word ^= word >> 32;
  return (hash ^ word) * 0x100000001B3u;
}

// Of 1/x and 1/sqrt(x), all that the tables behind them can tell apart.
inline uint64_t hash_approximations() {
  uint64_t hash = 0;
  for (uint32_t i = 0; i < 1u << 14; ++i) {
    const __m128 x = _mm_set_ss(std::bit_cast<float>(0x3F800000u + (i << 10)));
    hash = mix(hash, std::bit_cast<uint32_t>(_mm_cvtss_f32(_mm_rcp_ss(x))));
    hash = mix(hash, std::bit_cast<uint32_t>(_mm_cvtss_f32(_mm_rsqrt_ss(x))));
  }
  return hash;
}

}  // namespace orvik::test
