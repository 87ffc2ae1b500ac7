// Working memory of the library: an owner for blocks of orvik_serv_allocate, and the failure hook that tests use.
#ifndef ORVIK_SRC_SERV_MEMORY_H
#define ORVIK_SRC_SERV_MEMORY_H

#include <stdint.h>

#include <type_traits>
#include <utility>

#include "orvik/serv.h"

namespace orvik::serv {

// Every working buffer starts on a boundary of this many bytes.
inline constexpr int32_t kAlignment = 128;

// The n-th following allocation of the process returns null, once; 0: none does.
void fail_allocation_after(int64_t n);

// Blocks handed out and not yet released.
int64_t live_allocations();

// Owns `count` uninitialised elements of T. Null when memory is exhausted or the size does not fit in 64 bits: test it.
template <typename T>
class Block {
  static_assert(std::is_trivially_destructible_v<T> && std::is_trivially_copyable_v<T>);

 public:
  Block() = default;
  explicit Block(uint64_t count) {
    uint64_t bytes;
    if (!__builtin_mul_overflow(count, sizeof(T), &bytes)) {
      data_ = static_cast<T*>(orvik_serv_allocate(bytes, kAlignment));
    }
  }
  ~Block() { orvik_serv_deallocate(data_); }
  Block(Block&& other) noexcept : data_(other.release()) {}
  Block& operator=(Block&& other) noexcept {
    if (this != &other) {
      orvik_serv_deallocate(data_);
      data_ = other.release();
    }
    return *this;
  }
  Block(const Block&) = delete;
  Block& operator=(const Block&) = delete;

  explicit operator bool() const { return data_ != nullptr; }
  T* get() const { return data_; }
  T& operator[](uint64_t i) const { return data_[i]; }
  T* operator->() const { return data_; }

  // Gives the block up: the caller now owes it to orvik_serv_deallocate.
  T* release() { return std::exchange(data_, nullptr); }

 private:
  T* data_ = nullptr;
};

}  // namespace orvik::serv

#endif
