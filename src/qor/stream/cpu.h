// Processor features, and a way for tests to take them away.
#pragma once

namespace orvik::qor {

struct HiddenFeatures {
  bool aes = false, rdrand = false;
};
// Set by tests only, while no other thread runs.
extern HiddenFeatures hidden_features;

}  // namespace orvik::qor
