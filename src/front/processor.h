// Whether the processor has what the kernels need: the first thing that every call asks.
#pragma once

#include "orvik/version.h"

namespace orvik::front {

inline bool cpu_serves() {
  static int32_t known = 0;  // 1: it does
  if (__atomic_load_n(&known, __ATOMIC_RELAXED) == 1) [[likely]]
    return true;
  const int32_t answer = orvik_cpu_supported();
  __atomic_store_n(&known, answer, __ATOMIC_RELAXED);
  return answer != 0;
}

}  // namespace orvik::front
