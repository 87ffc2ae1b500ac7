// The loop over items of a pool's call.
#pragma once

#include <atomic>
#include <type_traits>

#include "front/pool.h"

namespace orvik::front {

// The parts that items are dealt out to.
class Deal {
 public:
  Deal(int32_t count, int32_t parts) : parts_(parts) {
    for (int32_t p = 0; p < parts; ++p) {
      part_[p].next.store(first(count, p), std::memory_order_relaxed);
      part_[p].end = first(count, p + 1);
    }
  }
  // The next item for this participant, -1 when none is left.
  int32_t take(int32_t participant) {
    for (int32_t k = 0; k < parts_; ++k) {
      Part& part = part_[(participant + k) % parts_];
      if (part.next.load(std::memory_order_relaxed) >= part.end) continue;
      const int32_t item = part.next.fetch_add(1, std::memory_order_relaxed);
      if (item < part.end) return item;
    }
    return -1;
  }

 private:
  int32_t first(int32_t count, int32_t p) const { return static_cast<int32_t>(int64_t{count} * p / parts_); }
  struct Part {
    std::atomic<int32_t> next;
    int32_t end;
  };
  int32_t parts_;
  Part part_[kMostThreads];
};

template <class Item>
void for_each_item(int32_t count, int32_t threads, const Item& item) {
  // Items that want to know which participant takes them, below the number of threads, are told.
  const auto one = [&](int32_t k, int32_t participant) {
    if constexpr (std::is_invocable_v<const Item&, int32_t, int32_t>) {
      item(k, participant);
    } else {
      item(k);
    }
  };
  if (threads > count) threads = count;
  if (threads > kMostThreads) threads = kMostThreads;
  if (threads <= 1) {
    for (int32_t k = 0; k < count; ++k) one(k, 0);
    return;
  }
  using One = decltype(one);
  struct Context {
    Deal deal;
    const One* one;
  } context = {Deal(count, threads), &one};
  run_in_pool(
      threads,
      [](void* c, int32_t participant) {
        auto* const shared = static_cast<Context*>(c);
        for (int32_t k; (k = shared->deal.take(participant)) >= 0;) (*shared->one)(k, participant);
      },
      &context);
}

}  // namespace orvik::front
