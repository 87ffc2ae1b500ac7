// The parameter sets of the WH family.
#pragma once

#include <stdint.h>

namespace orvik::qor {

struct WhSet {
  uint32_t modulus[4];
  uint8_t multiplier[4];
};
constexpr int kWhMembers = 273;
extern const WhSet WhParams[kWhMembers];

}  // namespace orvik::qor
