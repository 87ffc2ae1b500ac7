// The side block of the congruential generators: four consecutive members and the powers that move them on.
#pragma once

#include <stddef.h>
#include <stdint.h>

#include "orvik/qor.h"

namespace orvik::qor {

constexpr uint32_t kMcgChunk = 14;

struct McgLanes {
  uint32_t row;  // 0 MCG31M1, 1 MCG59
  uint32_t gap[7];
  uint64_t lane[4];
  uint64_t power[8][4];  // power[j] is A^(4(j+1)), four times
  uint64_t spare[4];
};
static_assert(sizeof(McgLanes) == 352);
static_assert(offsetof(McgLanes, lane) == 32 && offsetof(McgLanes, power) == 64);

}  // namespace orvik::qor
