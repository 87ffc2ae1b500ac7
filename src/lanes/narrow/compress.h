// Chosen lanes of 256-bit registers, by a table of their orders.
#pragma once

#include <cstdint>

#include "lanes/types.h"

namespace orvik {

// For each choice among eight lanes, where the words come from.
struct LaneOrders {
  uint8_t compressed[256][8], expanded[256][8];
};
// The same among four lanes of two words each.
struct LongLaneOrders {
  uint8_t compressed[16][8], expanded[16][8];
};
template <class Orders, int kLanes>
constexpr Orders lane_orders() {
  constexpr int kWordsOfLane = 8 / kLanes;
  Orders orders{};
  for (int bits = 0; bits < 1 << kLanes; ++bits) {
    int count = 0;
    for (int lane = 0; lane < kLanes; ++lane) {
      for (int k = 0; k < kWordsOfLane; ++k) {
        orders.expanded[bits][kWordsOfLane * lane + k] = static_cast<uint8_t>(kWordsOfLane * count + k);
        if ((bits >> lane & 1) != 0)
          orders.compressed[bits][kWordsOfLane * count + k] = static_cast<uint8_t>(kWordsOfLane * lane + k);
      }
      count += bits >> lane & 1;
    }
    // Behind the last chosen lane a place may be one too far, which no one reads.
    for (uint8_t& word : orders.expanded[bits]) word = word & 7;
  }
  return orders;
}
inline constexpr LaneOrders kLaneOrders = lane_orders<LaneOrders, 8>();
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
