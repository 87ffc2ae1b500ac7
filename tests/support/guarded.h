// Memory between two pages that nobody may touch: an access outside ends the test program.
#pragma once

#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>

namespace orvik::test {

template <class E>
class Guarded {
 public:
  explicit Guarded(size_t count) : count_(count), page_(static_cast<size_t>(sysconf(_SC_PAGESIZE))) {
    inner_ = (count * sizeof(E) + page_ - 1) / page_ * page_;
    base_ = static_cast<char*>(mmap(nullptr, inner_ + 2 * page_, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
    mprotect(base_ + page_, inner_, PROT_READ | PROT_WRITE);
  }
  ~Guarded() { munmap(base_, inner_ + 2 * page_); }
  Guarded(const Guarded&) = delete;
  Guarded& operator=(const Guarded&) = delete;

  E* at_front() { return reinterpret_cast<E*>(base_ + page_); }                       // element -1 is forbidden
  E* at_back() { return reinterpret_cast<E*>(base_ + page_ + inner_) - count_; }      // element count is forbidden

 private:
  size_t count_;
  size_t page_;
  size_t inner_;
  char* base_;
};

}  // namespace orvik::test
