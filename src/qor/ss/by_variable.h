// Estimators that handle each variable apart: contiguous copies, threads over the variables.
#pragma once

#include <algorithm>

#include "qor/ss/observations.h"
#include "qor/ss/threads.h"
#include "serv/memory.h"

namespace orvik::ss {

// Neighbouring variables whose contiguous copies are made together: of contiguous observations a cache line has some
// values, and is read once for all of them.
template <class T>
struct Neighbours {
  static constexpr int64_t kLine = static_cast<int64_t>(64 / sizeof(T));
  static constexpr int64_t kMostValues = int64_t{1} << 22;  // of all copies of a thread, where there are more than two

  int64_t first, count;
  int64_t n, pitch;  // of values, and from one copy to the next
  T* copies;
  T* scratch;
  const int32_t* flags;

  bool selected(int64_t k) const { return flags == nullptr || flags[first + k] != 0; }
  T* copy(int64_t k) const { return copies + k * pitch; }

  static int64_t pitch_of(int64_t n) {
    // Long copies do not lie a power of two apart, where they would share the sets of a cache.
    return n < 512 ? (n + kLine - 1) / kLine * kLine : (n + 511) / 512 * 512 + kLine;
  }
  static constexpr int64_t kFew = 4;  // variables below which a pass for each reads the lines in order anyway

  static int64_t most(int64_t p, int64_t n) {
    if (p < kFew) return 1;
    return std::min({p, kLine, std::max<int64_t>(kMostValues / pitch_of(n), 2)});
  }
};

// Copies of the variables; those between selected ones come along.
template <class T>
void copy_neighbours(const Observations<T>& o, const Neighbours<T>& v) {
  if (v.count == 1 || o.contiguous_variables) {
    for (int64_t k = 0; k < v.count; ++k) {
      if (v.selected(k)) copy_variable(o, v.first + k, v.copy(k));
    }
    return;
  }
  const auto copy = [&](int64_t count) __attribute__((always_inline)) {
    for (int64_t i = 0; i < v.n; ++i) {
      const T* const x = o.x + o.place(i) * o.stride + v.first;
      for (int64_t k = 0; k < count; ++k) v.copies[k * v.pitch + i] = x[k];
    }
  };
  v.count == v.kLine ? copy(v.kLine) : copy(v.count);
}

// Selected copies to the places of their variables in contiguous observations.
template <class T>
void spread_neighbours(const Neighbours<T>& v, int64_t p, T* to) {
  bool all = true;
  for (int64_t k = 0; k < v.count; ++k) all = all && v.selected(k);
  const auto spread = [&](int64_t count) __attribute__((always_inline)) {
    for (int64_t i = 0; i < v.n; ++i) {
      for (int64_t k = 0; k < count; ++k) to[i * p + v.first + k] = v.copies[k * v.pitch + i];
    }
  };
  if (all) return v.count == v.kLine ? spread(v.kLine) : spread(v.count);
  for (int64_t k = 0; k < v.count; ++k) {
    for (int64_t i = 0; v.selected(k) && i < v.n; ++i) to[i * p + v.first + k] = v.copy(k)[i];
  }
}

// What for_each_neighbours makes for its body.
struct Copying {
  int64_t scratch = 0;    // values of scratch, the thread's own
  bool copied = true;     // whether the body wants copies
  bool together = false;  // neighbours come together in any storage, not only where their values are neighbours
};

// Calls body(neighbours) for runs of neighbours that hold each selected variable.
template <class T, class Body>
int32_t for_each_neighbours(const Observations<T>& o, const int32_t* flags, const OrvikThreading* threading,
                            const Copying& wanted, Body&& body) {
  const bool together = wanted.copied && (wanted.together || !o.contiguous_variables);
  const int64_t most = together ? Neighbours<T>::most(o.p, o.n) : 1;
  const int64_t pitch = !wanted.copied ? 0 : most == 1 ? o.n : Neighbours<T>::pitch_of(o.n);
  const int64_t size = most * pitch + wanted.scratch;
  const int32_t threads = threads_by_variable(threading, o.p, size);
  const serv::Block<T> room(static_cast<uint64_t>(threads * size));
  if (!room) return kNoMemory;
  return run_threads(threading, threads, [&](int32_t thread) {
    T* const copies = room.get() + thread * size;
    Neighbours<T> v{o.p * thread / threads, 0, o.n, pitch, copies, copies + most * pitch, flags};
    const int64_t end = o.p * (thread + 1) / threads;
    for (; v.first < end; v.first += v.count) {
      v.count = 1;
      if (!v.selected(0)) continue;
      v.count = std::min(most, end - v.first);
      while (!v.selected(v.count - 1)) --v.count;
      if (wanted.copied) copy_neighbours(o, v);
      body(v);
    }
    return int32_t{kDone};
  });
}

// Calls body(j, copy, scratch) for each selected variable.
template <class T, class Body>
int32_t for_each_variable(const Observations<T>& o, const int32_t* flags, const OrvikThreading* threading,
                          const Copying& wanted, Body&& body) {
  return for_each_neighbours(o, flags, threading, wanted, [&](const Neighbours<T>& v) {
    for (int64_t k = 0; k < v.count; ++k) {
      if (v.selected(k)) body(v.first + k, v.copy(k), v.scratch);
    }
  });
}

}  // namespace orvik::ss
