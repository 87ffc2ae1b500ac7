// The processor's random numbers. For sources that are compiled for the instruction. False: none was at hand.
#pragma once

#include <immintrin.h>

#include <cstdint>

namespace orvik {

inline bool hardware_random(uint32_t* value) {
  unsigned int word;
  const bool there = _rdrand32_step(&word) != 0;
  *value = word;
  return there;
}
inline bool hardware_random(uint64_t* value) {
  unsigned long long word;  // NOLINT(google-runtime-int): the instruction's type
  const bool there = _rdrand64_step(&word) != 0;
  *value = word;
  return there;
}

}  // namespace orvik
