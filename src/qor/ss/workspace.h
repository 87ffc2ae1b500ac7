// Working memory of a pass: what its threads accumulate.
#pragma once

#include <algorithm>
#include <cstring>

#include "lanes/lanes.h"
#include "qor/ss/pass.h"
#include "qor/ss/threads.h"
#include "qor/unroll.h"
#include "serv/memory.h"

namespace orvik::ss {

// Threads of a pass: enough work for each, the more with a matrix.
inline int32_t pass_threads(int64_t p, int64_t n, bool matrix, const OrvikThreading* threading) {
  if (threading == nullptr) return 1;
  const double work = static_cast<double>(p) * static_cast<double>(n) * (matrix ? static_cast<double>(p) : 1.0) / 8192.0;
  const int64_t by_work = static_cast<int64_t>(std::min(work, 1e9));
  return static_cast<int32_t>(std::max<int64_t>(1, std::min({by_work, int64_t{max_threads(threading)}, n >> 4})));
}

// The rows of all threads, their matrices and the scratch of the matrix kernel in one block; few values live on the frame.
template <class T>
class Workspace {
 public:
  // The first thread's matrix is the caller's where it is `in_place`. False when memory is exhausted.
  bool allocate(int64_t p, int64_t n, bool weighted, const Plan& plan, int32_t threads, bool in_place) {
    p_ = p;
    weighted_ = weighted;
    int64_t cleared = threads * double_rows(plan) * bytes<double>(p) + (threads * real_rows(plan) + 2) * bytes<T>(p);
    int64_t size = cleared;
    if (plan.matrix()) {
      longest_ = threads == 1 ? n : n / threads + n % threads;
      cleared += (in_place ? 0 : bytes<T>(p * p)) + bytes<T>((threads - 1) * p * p);
      size = cleared + threads * bytes<T>(CrossProduct<T>::scratch_size(p, longest_, weighted_));
    }
    next_ = frame_;
    if (size > kFrame) {
      block_ = serv::Block<char>(static_cast<uint64_t>(size));
      if (!block_) return false;
      next_ = block_.get();
    }
    // Stores in place of a memset, which would take longer than all sums of one variable.
    if (cleared <= kFew) {
      auto* const to = reinterpret_cast<double*>(next_);
      unroll<kFew / sizeof(F64)>([&](auto k) __attribute__((always_inline)) { store(to + k * kWidth<F64>, F64(0.0)); });
    } else {
      memset(next_, 0, static_cast<size_t>(cleared));
    }
    return true;
  }

  // A row of p values.
  template <class V>
  V* row() {
    return take<V>(p_);
  }
  T* matrix() { return take<T>(p_ * p_); }

  // Accumulators of all threads, the first with the matrix `in_place`, if that is not null.
  void share_out(const Plan& plan, int32_t threads, T* in_place, Accumulators<T>* parts) {
    for (int32_t k = 0; k < threads; ++k) fill(plan, new (parts + k) Accumulators<T>);
    if (!plan.matrix()) return;
    T* const own = in_place != nullptr ? in_place : matrix();
    T* const others = take<T>((threads - 1) * p_ * p_);
    for (int32_t k = 0; k < threads; ++k) {
      parts[k].cross = cross_product(k == 0 ? own : others + (k - 1) * p_ * p_);
    }
  }

 private:
  static constexpr int64_t kFrame = 4096, kFew = 256, kLine = 64;

  void fill(const Plan& plan, Accumulators<T>* acc) {
    const bool by_states = plan.central != 0;
    rows(plan.power, acc->power);
    rows(plan.central, acc->central);
    rows(by_states ? plan.order() : 0, acc->block);
    if (by_states) acc->pivot = row<T>();
    if (plan.matrix()) {
      acc->outer = row<T>();
      if (plan.method == Method::Fast) acc->mean = row<double>();
    }
  }
  // The first `count` of four rows; the others mean nothing.
  void rows(int count, double** to) {
    const int64_t step = bytes<double>(p_);
    for (int k = 0; k < 4; ++k) to[k] = reinterpret_cast<double*>(next_ + k * step);
    next_ += count * step;
  }
  CrossProduct<T> cross_product(T* matrix) {
    T* scratch = take<T>(CrossProduct<T>::scratch_size(p_, longest_, weighted_));
    return CrossProduct<T>(p_, longest_, weighted_, matrix, scratch);
  }

  template <class V>
  static int64_t bytes(int64_t count) {
    return (count * static_cast<int64_t>(sizeof(V)) + 7) / 8 * 8;
  }
  template <class V>
  V* take(int64_t count) {
    V* const begin = reinterpret_cast<V*>(next_);
    next_ += bytes<V>(count);
    return begin;
  }

  alignas(kLine) char frame_[kFrame];
  serv::Block<char> block_;
  char* next_ = nullptr;
  int64_t p_ = 0;
  int64_t longest_ = 0;  // with a matrix: observations of a thread's longest run
  bool weighted_ = false;
};

}  // namespace orvik::ss
