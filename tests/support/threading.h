// The caller's threads as the statistics take them: one std::thread per part but the first.
#pragma once

#include <cstdint>
#include <thread>
#include <vector>

#include "orvik/ss.h"

namespace orvik::test {

// A table of `N` threads at most.
template <int N>
const OrvikThreading* threads() {
  static const OrvikThreading table = {
      [] { return int32_t{N}; },
      [](int32_t count, void* context, void (*routine)(int32_t, int32_t, int32_t, void*)) {
        std::vector<std::thread> others;
        for (int32_t k = 1; k < count; ++k) others.emplace_back(routine, k, 0, count, context);
        routine(0, 0, count, context);
        for (auto& t : others) t.join();
        return int32_t{0};
      }};
  return &table;
}

}  // namespace orvik::test
