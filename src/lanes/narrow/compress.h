// Chosen lanes of 256-bit registers, by a table of their orders.
#pragma once

#include <cstdint>

#include "lanes/lane_orders.h"
#include "lanes/types.h"

namespace orvik {

// Choices among four lanes of two words each.
struct LongLaneOrders {
  uint8_t compressed[16][8], expanded[16][8];
};
inline constexpr LongLaneOrders kLongLaneOrders = lane_orders<LongLaneOrders, 4>();

inline __m256 in_order(__m256 words, const uint8_t* order) {
  return _mm256_permutevar8x32_ps(words,
                                  _mm256_cvtepu8_epi32(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(order))));
}

inline F32 compress(F32 x, uint32_t bits) { return in_order(x.v, kLaneOrders.compressed[bits]); }
inline F32 expand(F32 x, uint32_t bits) { return in_order(x.v, kLaneOrders.expanded[bits]); }
inline F64 compress(F64 x, uint32_t bits) {
  return _mm256_castps_pd(in_order(_mm256_castpd_ps(x.v), kLongLaneOrders.compressed[bits]));
}
inline F64 expand(F64 x, uint32_t bits) {
  return _mm256_castps_pd(in_order(_mm256_castpd_ps(x.v), kLongLaneOrders.expanded[bits]));
}

inline void store(int32_t* p, I32Half a) { _mm_storeu_si128(reinterpret_cast<__m128i*>(p), a.v); }

}  // namespace orvik
