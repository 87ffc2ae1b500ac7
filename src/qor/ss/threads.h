// The caller's table of threads, or one thread without it.
#pragma once

#include <algorithm>
#include <atomic>
#include <cstdint>

#include "orvik/ss.h"

namespace orvik::ss {

inline int32_t max_threads(const OrvikThreading* table) {
  return table == nullptr ? 1 : std::max(table->max_threads(), 1);
}

// Calls body(thread) for each of `threads` threads; returns the first negative status among those of the bodies.
template <class Body>
int32_t run_threads(const OrvikThreading* table, int32_t threads, Body&& body) {
  if (threads <= 1) return body(0);
  struct Context {
    Body& body;
    std::atomic<int32_t> status{0};
  } context{body};
  table->run(threads, &context, [](int32_t thread, int32_t, int32_t, void* opaque) {
    auto& c = *static_cast<Context*>(opaque);
    const int32_t status = c.body(thread);
    int32_t none = 0;
    if (status < 0) c.status.compare_exchange_strong(none, status);
  });
  return context.status.load();
}

// Threads of an estimator that handles each variable apart, with a copy of n values each: 1 GiB of copies at most.
inline int32_t threads_by_variable(const OrvikThreading* table, int64_t p, int64_t n) {
  const int64_t by_memory = 0x40000000 / (n * 8);
  return static_cast<int32_t>(std::max<int64_t>(1, std::min({int64_t{max_threads(table)}, p, by_memory})));
}

}  // namespace orvik::ss
