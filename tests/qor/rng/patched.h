// Watches the calls of a vector kernel from within the library: takes its slot of the dispatch table for a while.
#pragma once

#include <cstdint>
#include <vector>

#include "orvik/zym.h"

namespace orvik::testing {

struct KernelCall {
  int32_t n;
  uint32_t mode;
};

// Of kernels with one operand and one result.
template <class T>
class Patched {
 public:
  Patched(void** row, int level) : slot_(row + level), kernel_(*slot_) {
    original() = reinterpret_cast<Kernel>(kernel_);
    calls().clear();
    *slot_ = reinterpret_cast<void*>(&record);
  }
  ~Patched() { *slot_ = kernel_; }
  Patched(const Patched&) = delete;
  Patched& operator=(const Patched&) = delete;

  static std::vector<KernelCall>& calls() {
    static std::vector<KernelCall> all;
    return all;
  }
  static std::vector<int32_t> sizes() {
    std::vector<int32_t> n;
    for (const KernelCall& c : calls()) n.push_back(c.n);
    return n;
  }

 private:
  using Kernel = void (*)(int32_t, const T*, T*);
  static Kernel& original() {
    static Kernel kernel;
    return kernel;
  }
  static void record(int32_t n, const T* a, T* r) {
    calls().push_back({n, _zymGetMode()});
    original()(n, a, r);
  }
  void** slot_;
  void* kernel_;
};

}  // namespace orvik::testing
