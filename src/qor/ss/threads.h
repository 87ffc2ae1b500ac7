// The caller's table of threads, or one thread without it.
#pragma once

#include <algorithm>
#include <atomic>
#include <cstdint>

#include "orvik/ss.h"
#include "qor/ss/status.h"

namespace orvik::ss {

inline int32_t max_threads(const OrvikThreading* table) {
  return table == nullptr ? 1 : std::max(table->max_threads(), 1);
}

// Calls body(thread) once for each of `threads` threads. Returns what the caller's `run` reports if that is not 0, then
// the first negative status of a body; a part that no thread has run is as memory that is missing.
template <class Body>
int32_t run_threads(const OrvikThreading* table, int32_t threads, Body&& body) {
  if (threads <= 1) return body(0);
  struct Context {
    Body& body;
    int32_t threads;
    std::atomic<int32_t> next{0};  // the parts are dealt out here: a routine that is called twice does no part again
    std::atomic<int32_t> finished{0};
    std::atomic<int32_t> status{0};
  } context{body, threads};
  const int32_t reported = table->run(threads, &context, [](int32_t, int32_t, int32_t, void* opaque) {
    auto& c = *static_cast<Context*>(opaque);
    const int32_t part = c.next.fetch_add(1);
    if (part >= c.threads) return;
    const int32_t status = c.body(part);
    int32_t none = 0;
    if (status < 0) c.status.compare_exchange_strong(none, status);
    c.finished.fetch_add(1);
  });
  if (reported != 0) return reported;
  if (const int32_t status = context.status.load(); status < 0) return status;
  return context.finished.load() == threads ? kDone : kNoMemory;
}

// Chunks of a loop over n items whose sums are to be the same on any number of threads: they depend on the data's shape
// alone, and what they give is added up in their order.
struct Chunks {
  static constexpr int32_t kMost = 64;
  int64_t n;
  int32_t count;

  explicit Chunks(int64_t items) : Chunks(items, items / 4096) {}
  Chunks(int64_t items, int64_t wanted)
      : n(items), count(static_cast<int32_t>(std::clamp<int64_t>(wanted, 1, kMost))) {}

  int64_t first(int32_t chunk) const { return n / count * chunk + n % count * chunk / count; }

  // body(chunk, first, end) for all of them, for bodies of a few steps an item: below so many items a thread takes
  // longer to wake than to work.
  template <class Body>
  int32_t run(const OrvikThreading* table, Body&& body) const {
    constexpr int64_t kWorthAThread = 16384;
    const auto worth = static_cast<int32_t>(std::clamp<int64_t>(n / kWorthAThread, 1, count));
    const int32_t threads = std::min(max_threads(table), worth);
    return run_threads(table, threads, [&](int32_t thread) {
      for (int32_t k = count * thread / threads; k < count * (thread + 1) / threads; ++k) {
        body(k, first(k), first(k + 1));
      }
      return int32_t{kDone};
    });
  }

  // body(place, first, end) for all of them, each by the thread that is free, and after it join(place), one at a time
  // and in the order of the chunks; a place belongs to one thread. A chunk's turn comes, since those before it have
  // been begun.
  template <class Body, class Join>
  int32_t run_in_order(const OrvikThreading* table, int32_t threads, Body&& body, Join&& join) const {
    std::atomic<int32_t> next{0}, places{0}, joined{0};
    return run_threads(table, threads, [&](int32_t) {
      int32_t place = -1;
      for (int32_t k; (k = next.fetch_add(1)) < count;) {
        if (place < 0) place = places.fetch_add(1);
        body(place, first(k), first(k + 1));
        for (int32_t done; (done = joined.load(std::memory_order_acquire)) != k;) joined.wait(done);
        join(place);
        joined.store(k + 1, std::memory_order_release);
        joined.notify_all();
      }
      return int32_t{kDone};
    });
  }
};

// Threads of an estimator that handles each variable apart, with a copy of `values` values each: 1 GiB of copies at
// most.
inline int32_t threads_by_variable(const OrvikThreading* table, int64_t p, int64_t values) {
  const int64_t by_memory = 0x40000000 / (values * 8);
  return static_cast<int32_t>(std::max<int64_t>(1, std::min({int64_t{max_threads(table)}, p, by_memory})));
}

}  // namespace orvik::ss
