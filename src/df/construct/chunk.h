// A stretch of intervals of one function with all that a derivative rule looks at, in arrays that stay in the cache.
#ifndef ORVIK_DF_CONSTRUCT_CHUNK_H
#define ORVIK_DF_CONSTRUCT_CHUNK_H

#include <algorithm>
#include <cmath>

#include "df/construct/grid.h"
#include "df/construct/problem.h"
#include "df/construct/rows.h"
#include "df/lanes.h"

namespace orvik::df {

inline constexpr int64_t kChunkIntervals = 1024;

// Scratch of one thread; its size keeps neighbours off each other's cache lines. The padding also keeps the arrays from
// lying alike modulo 4096 bytes, which makes loads from one wait for stores to another.
template <class Real>
struct Workspace {
  static constexpr int64_t kLength = kChunkIntervals + 224;
  alignas(128) Real y[Grid::kGroup][kLength];  // of columns
  Real h[kLength];
  Real inverse_h[kLength];
  Real m[kLength];
  Real d[kLength];
};

// Arrays are indexed from breakpoint `base` on; interval k lies between points k and k + 1. On an even grid h and
// inverse_h are not set.
template <class Real, bool kUniform>
struct Chunk {
  Partition<Real, kUniform> partition;
  int64_t base;    // first breakpoint present
  int64_t points;  // breakpoints present
  const Real* x;
  const Real* y;
  Workspace<Real>* room;

  // No slope is formed yet.
  Chunk(const Partition<Real, kUniform>& given, int64_t first, int64_t count, const Real* values,
        Workspace<Real>& scratch)
      : partition(given),
        base(first),
        points(count),
        x(kUniform ? given.given() : given.given() + base),
        y(values),
        room(&scratch) {}

  // Forms the slope of interval k, or of several from there on; h only where it is asked for.
  template <bool kLengths, class T>
  void form_slope(int64_t k) const {
    T inverse(partition.inverse_step());
    if constexpr (!kUniform) {
      const T step = load<T>(x + k + 1) - load<T>(x + k);
      inverse = T(Real(1)) / step;
      if (kLengths) store(room->h + k, step);
      store(room->inverse_h + k, inverse);
    }
    store(room->m + k, (load<T>(y + k + 1) - load<T>(y + k)) * inverse);
  }

  const Real* h() const { return room->h; }
  const Real* m() const { return room->m; }
  template <class T>
  T inverse_length(int64_t k) const {
    return kUniform ? T(partition.inverse_step()) : load<T>(room->inverse_h + k);
  }
};

// body(function, at, stop, chunk) for the intervals begin .. end - 1 of functions first .. past - 1, a group at most:
// by chunks of the intervals at .. stop - 1, with `halo` breakpoints more on either side as far as there are any.
// Columns share their chunks, rows come one after the other.
template <class Real, bool kUniform, class Body>
void by_chunks(const Task& task, const Partition<Real, kUniform>& partition, int64_t first, int64_t past, int64_t begin,
               int64_t end, int64_t halo, Workspace<Real>& room, Body body) {
  const int64_t together = Rows<Real>::copied(task) ? past - first : 1;
  for (; first < past; first += together) {
    for (int64_t at = begin; at < end; at += kChunkIntervals) {
      const int64_t stop = std::min(at + kChunkIntervals, end), base = std::max<int64_t>(at - halo, 0);
      const int64_t points = std::min(stop + halo, task.nx - 1) - base + 1;
      const Rows<Real> rows(task, first, first + together, base, points, room.y[0], Workspace<Real>::kLength);
      for (int64_t f = first; f < first + together; ++f) {
        body(f, at, stop, Chunk<Real, kUniform>(partition, base, points, rows[f], room));
      }
    }
  }
}

}  // namespace orvik::df

#endif
