// Where chosen lanes come from and go to, for each choice.
#pragma once

#include <cstdint>

namespace orvik {

// For each choice among eight lanes, where the words come from.
struct LaneOrders {
  uint8_t compressed[256][8], expanded[256][8];
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

}  // namespace orvik
