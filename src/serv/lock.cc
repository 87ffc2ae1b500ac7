// Mutual exclusion on a zeroed word: 0 open, 1 taken, 2 taken and somebody may sleep (Drepper, "Futexes Are Tricky",
// 2011). The state stands in the low half of the word, since the kernel waits on 32 bits.
#include <linux/futex.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>

#include "orvik/serv.h"

namespace {

constexpr uint32_t kOpen = 0;
constexpr uint32_t kTaken = 1;
constexpr uint32_t kContended = 2;

std::atomic_ref<uint32_t> state_of(uint64_t* word) {
  // A 64-bit word that only this file reads and writes, and always through its low half.
  return std::atomic_ref<uint32_t>(*reinterpret_cast<uint32_t*>(word));
}

void futex(uint64_t* word, int operation, uint32_t value) {
  // No failure matters: a wait that returns early is tried again, a wake without sleepers wakes nobody.
  syscall(SYS_futex, word, operation | FUTEX_PRIVATE_FLAG, value, nullptr, nullptr, 0);
}

}  // namespace

extern "C" void orvik_serv_lock(uint64_t* word) {
  auto state = state_of(word);
  uint32_t expected = kOpen;
  if (state.compare_exchange_strong(expected, kTaken, std::memory_order_acquire, std::memory_order_relaxed)) return;
  while (state.exchange(kContended, std::memory_order_acquire) != kOpen) futex(word, FUTEX_WAIT, kContended);
}

extern "C" void orvik_serv_unlock(uint64_t* word) {
  if (state_of(word).exchange(kOpen, std::memory_order_release) == kContended) futex(word, FUTEX_WAKE, 1);
}
