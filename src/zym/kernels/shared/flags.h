// Flags of the way that are none of the result.
#pragma once

#include <cstdint>

#include "lanes/control.h"

namespace orvik::zym {

// Takes back an underflow that was raised since the control register was read as `before`.
inline void take_back_underflow(uint32_t before) {
  asm volatile("" : : : "memory");  // results stand in memory, so what they take has been computed
  const uint32_t now = read_control(), raised = now & ~before & kUnderflowFlag;
  if (raised != 0) write_control(now & ~raised);
}

}  // namespace orvik::zym
