// Processor features, and a way for tests to take them away.
#pragma once

#include <stdint.h>

namespace orvik::qor {

struct HiddenFeatures {
  bool aes = false, rdrand = false;
  bool rdrand_of_64 = false;     // attempts at 64 bits report that no number was at hand
  uint32_t rdrand_failures = 0;  // attempts that are to report that no number was at hand
};
// Set by tests only, while no other thread runs.
extern HiddenFeatures hidden_features;

}  // namespace orvik::qor
