#include "serv/memory.h"

#include <errno.h>
#include <stdlib.h>
#include <string.h>

#include <atomic>

namespace orvik::serv {
namespace {

std::atomic<int64_t> failure_countdown{0};
std::atomic<int64_t> live{0};

// Counts one allocation of an armed hook; true for the one that must fail.
bool countdown_reaches_zero() {
  int64_t left = failure_countdown.load(std::memory_order_relaxed);
  while (left > 0) {
    if (failure_countdown.compare_exchange_weak(left, left - 1, std::memory_order_relaxed)) return left == 1;
  }
  return false;
}

}  // namespace

void fail_allocation_after(int64_t n) { failure_countdown.store(n > 0 ? n : 0, std::memory_order_relaxed); }

int64_t live_allocations() { return live.load(std::memory_order_relaxed); }

}  // namespace orvik::serv

using namespace orvik::serv;

extern "C" void* orvik_serv_allocate(uint64_t size, int32_t alignment) {
  if (failure_countdown.load(std::memory_order_relaxed) != 0 && countdown_reaches_zero()) return nullptr;
  // posix_memalign wants at least the size of a pointer; a block of no bytes still has an address of its own.
  const size_t boundary =
      alignment < static_cast<int32_t>(sizeof(void*)) ? sizeof(void*) : static_cast<size_t>(alignment);
  void* block = nullptr;
  const int saved_errno = errno;
  if (posix_memalign(&block, boundary, size == 0 ? 1 : size) != 0) {
    errno = saved_errno;
    return nullptr;
  }
  live.fetch_add(1, std::memory_order_relaxed);
  return block;
}

extern "C" void orvik_serv_deallocate(void* block) {
  if (block == nullptr) return;
  live.fetch_sub(1, std::memory_order_relaxed);
  free(block);
}

extern "C" int32_t orvik_serv_memcpy_s(void* destination, uint64_t capacity, const void* source, uint64_t count) {
  if (count > capacity) return ERANGE;
  if (count != 0) memcpy(destination, source, count);
  return 0;
}
