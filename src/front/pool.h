// The front's threads: one pool of the process, made when a call first has work for it.
#pragma once

#include <cstdint>

namespace orvik::front {

inline constexpr int32_t kMostThreads = 256;

// How many threads pay at most: what was set, else the processors that the process may run on.
int32_t thread_limit();

using PoolBody = void (*)(void* context, int32_t participant);

// Runs body(context, 0) on the calling thread and body(context, k) on up to `threads` - 1 others; returns when all are
// done. Others that come too late are left out, and all are when another call has the pool: a body takes what it works
// on from a common counter and goes on until nothing is left.
void run_in_pool(int32_t threads, PoolBody body, void* context);

// item(k) for k from 0 to count - 1, each once, over up to `threads` threads. Every participant begins with a part of
// its own, so that the same memory tends to meet the same processor, and then helps the others.
template <class Item>
void for_each_item(int32_t count, int32_t threads, const Item& item);

}  // namespace orvik::front

#include "front/pool_items.h"
