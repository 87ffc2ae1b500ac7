// Mutual exclusion on a zeroed word: 0 open, 1 taken, 2 taken and somebody may sleep (Drepper, "Futexes Are Tricky",
// 2011). The whole word is the state, read and written as the 64 bits that it is; the kernel, which waits on 32 bits,
// is given its address and sees the low half.
#include <linux/futex.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>
#include <bit>

#include "orvik/serv.h"

namespace {

constexpr uint64_t kOpen = 0;
constexpr uint64_t kTaken = 1;
constexpr uint64_t kContended = 2;

static_assert(std::endian::native == std::endian::little, "the low half must stand at the word's address");

void futex(uint64_t* word, int operation, uint64_t value) {
  // No failure matters: a wait that returns early is tried again, a wake without sleepers wakes nobody.
  syscall(SYS_futex, word, operation | FUTEX_PRIVATE_FLAG, static_cast<uint32_t>(value), nullptr, nullptr, 0);
}

}  // namespace

extern "C" void orvik_serv_lock(uint64_t* word) {
  const std::atomic_ref<uint64_t> state(*word);
  uint64_t expected = kOpen;
  if (state.compare_exchange_strong(expected, kTaken, std::memory_order_acquire, std::memory_order_relaxed)) return;
  while (state.exchange(kContended, std::memory_order_acquire) != kOpen) futex(word, FUTEX_WAIT, kContended);
}

extern "C" void orvik_serv_unlock(uint64_t* word) {
  if (std::atomic_ref<uint64_t>(*word).exchange(kOpen, std::memory_order_release) == kContended)
    futex(word, FUTEX_WAKE, 1);
}
