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

// How the observations of a pass are shared out: in chunks, which the data's shape alone decides, to threads. There may
// be more threads than chunks, where observations are few.
struct Shares {
  Chunks chunks;
  int32_t threads;
  int32_t sets =
      1;  // of accumulators: those of the chunks under way, and before these what joins all, if there are several

  // Enough work for each thread, the more with a matrix. A chunk has so many observations that joining what it gives
  // costs little beside them: a matrix has p values for each of its p rows.
  Shares(int64_t p, int64_t n, bool matrix, const OrvikThreading* threading) : chunks(n, 1), threads(1) {
    const double work = static_cast<double>(p * n) * (matrix ? static_cast<double>(p) : 1.0) / 8192.0;
    if (work < 2 || n < 32) return;
    const int64_t most = std::min(static_cast<int64_t>(std::min(work, 1e9)), n >> 4);
    chunks = Chunks(n, std::min(most, matrix ? n / std::max<int64_t>(512, p / 2) : n >> 8));
    threads = static_cast<int32_t>(std::min<int64_t>(most, max_threads(threading)));
    if (chunks.count > 1) sets = 1 + std::min(threads, chunks.count);
  }
  // One chunk for one thread.
  explicit Shares(int64_t n) : chunks(n, 1), threads(1) {}
};

// The rows of all accumulators, their matrices and the scratch of the matrix kernel in one block; few values live on
// the frame.
template <class T>
class Workspace {
 public:
  // The first matrix is the caller's where it is `in_place`. False when memory is exhausted.
  bool allocate(int64_t p, bool weighted, const Plan& plan, const Shares& shares, bool in_place) {
    p_ = p;
    weighted_ = weighted;
    const int64_t under_way = std::max(shares.sets - 1, 1);
    int64_t cleared =
        shares.sets * double_rows(plan) * bytes<double>(p) + (shares.sets * real_rows(plan) + 2) * bytes<T>(p);
    int64_t size = cleared;
    if (plan.matrix()) {
      longest_ = shares.chunks.n / shares.chunks.count + 1;
      cleared += (in_place ? 0 : bytes<T>(p * p)) + bytes<T>((shares.sets - 1) * p * p);
      size = cleared + under_way * bytes<T>(CrossProduct<T>::scratch_size(p, longest_, weighted_));
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

  // The first accumulators have the matrix `in_place`, if that is not null. They take the scratch of a thread where
  // they are fed themselves.
  void share_out(const Plan& plan, const Shares& shares, T* in_place, Accumulators<T>* parts) {
    for (int32_t k = 0; k < shares.sets; ++k) fill(plan, new (parts + k) Accumulators<T>);
    if (!plan.matrix()) return;
    T* const own = in_place != nullptr ? in_place : matrix();
    T* const others = take<T>((shares.sets - 1) * p_ * p_);
    const int64_t scratch = bytes<T>(CrossProduct<T>::scratch_size(p_, longest_, weighted_));
    for (int32_t k = 0; k < shares.sets; ++k) {
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
  int64_t longest_ = 0;  // with a matrix: observations of the longest chunk, at least
  bool weighted_ = false;
};

// Feeds all chunks, feed(place, first, end, accumulators) with the place among those under way, and joins them to the
// first set.
template <class T, class Feed>
int32_t run_chunks(const Shares& shares, int64_t p, const Plan& plan, const OrvikThreading* threading,
                   Accumulators<T>* sets, Feed&& feed) {
  const bool alone = shares.sets == 1;
  return shares.chunks.run_in_order(
      threading, shares.threads,
      [&](int32_t place, int64_t i, int64_t end) {
        if (alone) return feed(place, i, end, sets);
        clear(p, plan, sets + 1 + place);
        feed(place, i, end, sets + 1 + place);
      },
      [&](int32_t place) {
        if (!alone) merge(p, plan, sets, sets[1 + place]);
      });
}

}  // namespace orvik::ss
