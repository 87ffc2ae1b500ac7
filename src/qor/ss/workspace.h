// Working memory of a pass: what its chunks accumulate.
#pragma once

#include <algorithm>
#include <cstring>

#include "lanes/lanes.h"
#include "qor/ss/pass.h"
#include "qor/ss/threads.h"
#include "qor/unroll.h"
#include "serv/memory.h"

namespace orvik::ss {

// Chunks of a pass: enough values in each for a thread, and so many observations that joining what they give costs little beside
// them: a matrix has p values for each of its p rows.
inline Chunks pass_chunks(int64_t p, int64_t n, bool matrix) {
  return {n, std::min(p * n >> 13, matrix ? n / std::max<int64_t>(512, p / 2) : n >> 8)};
}

// Accumulators of a pass by so many threads: what joins all, and beside it one of each thread where there is more than one chunk.
struct Sets {
  Chunks chunks;
  int32_t threads;
  int32_t count;

  Sets(const Chunks& all, const OrvikThreading* threading)
      : chunks(all),
        threads(all.count == 1 ? 1 : std::min(max_threads(threading), all.count)),
        count(all.count == 1 ? 1 : threads + 1) {}
};

// The rows of all accumulators, their matrices and the scratch of the matrix kernel in one block; few values live on the
// frame.
template <class T>
class Workspace {
 public:
  // The first matrix is the caller's where it is `in_place`. False when memory is exhausted.
  bool allocate(int64_t p, bool weighted, const Plan& plan, const Sets& sets, bool in_place) {
    p_ = p;
    weighted_ = weighted;
    threads_ = sets.threads;
    int64_t cleared =
        sets.count * double_rows(plan) * bytes<double>(p) + (sets.count * real_rows(plan) + 2) * bytes<T>(p);
    int64_t size = cleared;
    if (plan.matrix()) {
      longest_ = sets.chunks.n / sets.chunks.count + 1;
      cleared += (in_place ? 0 : bytes<T>(p * p)) + bytes<T>((sets.count - 1) * p * p);
      size = cleared + threads_ * bytes<T>(CrossProduct<T>::scratch_size(p, longest_, weighted_));
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

  // The first accumulators have the matrix `in_place`, if that is not null. They take the scratch of a thread where they are
  // fed themselves.
  void share_out(const Plan& plan, const Sets& sets, T* in_place, Accumulators<T>* parts) {
    for (int32_t k = 0; k < sets.count; ++k) fill(plan, new (parts + k) Accumulators<T>);
    if (!plan.matrix()) return;
    T* const own = in_place != nullptr ? in_place : matrix();
    T* const others = take<T>((sets.count - 1) * p_ * p_);
    const int64_t scratch = bytes<T>(CrossProduct<T>::scratch_size(p_, longest_, weighted_));
    for (int32_t k = 0; k < sets.count; ++k) {
      T* const to = reinterpret_cast<T*>(next_ + std::max(k - 1, 0) * scratch);
      parts[k].cross = CrossProduct<T>(p_, longest_, weighted_, k == 0 ? own : others + (k - 1) * p_ * p_, to);
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
  int32_t threads_ = 1;
  int64_t longest_ = 0;  // with a matrix: observations of the longest chunk, at least
  bool weighted_ = false;
};

// Feeds all chunks, feed(thread, first, end, accumulators), and joins them to the first of the sets.
template <class T, class Feed>
int32_t run_chunks(const Sets& sets, int64_t p, const Plan& plan, const OrvikThreading* threading, Accumulators<T>* parts,
                   Feed&& feed) {
  if (sets.chunks.count == 1) {
    feed(0, 0, sets.chunks.n, parts);
    return kDone;
  }
  return sets.chunks.run_in_order(
      threading, sets.threads,
      [&](int32_t thread, int64_t i, int64_t end) {
        clear(p, plan, parts + 1 + thread);
        feed(thread, i, end, parts + 1 + thread);
      },
      [&](int32_t thread) { merge(p, plan, parts, parts[1 + thread]); });
}

}  // namespace orvik::ss
