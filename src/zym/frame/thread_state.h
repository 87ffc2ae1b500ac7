// The per-thread block that steers every vector operation: mode word, error status, callback, vector start.
#pragma once

#include <cstddef>
#include <cstdint>

#include "orvik/zym_types.h"

namespace orvik::zym {

struct ThreadBlock {
  uint32_t mode;  // 0: not yet initialised, filled on first read
  int32_t errorStatus;
  ZymErrorCallback errorCallback;
  uint64_t reserved;
  const void* inputVectorPointer;
};
static_assert(sizeof(ThreadBlock) == 32 && offsetof(ThreadBlock, inputVectorPointer) == 24);

// Static thread-local storage: it is zero at thread start, needs neither slot nor heap, and goes with the thread or
// with the library, whichever ends first. A thread can therefore not fail to get its block.
extern constinit thread_local ThreadBlock thread_block;

// Fills the mode of the calling thread from the environment.
uint32_t initialise_mode();

inline uint32_t current_mode() {
  const uint32_t mode = thread_block.mode;
  return mode != 0 ? mode : initialise_mode();
}

// Masks of the mode word's fields.
inline constexpr uint32_t kAccuracyField = 0xF;
inline constexpr uint32_t kErrorField = 0xFF00;
inline constexpr uint32_t kReservedField = 0x30000;
inline constexpr uint32_t kDenormalField = 0x3C0000;
inline constexpr uint32_t kTrapField = 0xF000000;
inline constexpr uint32_t kDefaultMode = 0x1A02;

}  // namespace orvik::zym
