// A stretch of intervals of one function with all that a derivative rule looks at, in arrays that stay in the cache.
#ifndef ORVIK_DF_CONSTRUCT_CHUNK_H
#define ORVIK_DF_CONSTRUCT_CHUNK_H

#include <algorithm>
#include <cmath>

#include "df/construct/problem.h"
#include "df/lanes.h"

namespace orvik::df {

inline constexpr int64_t kChunkIntervals = 1024;

// Scratch of one thread; its size keeps neighbours off each other's cache lines. The padding also keeps the arrays from
// lying alike modulo 4096 bytes, which makes loads from one wait for stores to another.
template <class Real>
struct Workspace {
  static constexpr int64_t kLength = kChunkIntervals + 224;
  alignas(128) Real y[kLength];  // of a column
  Real h[kLength];
  Real inverse_h[kLength];
  Real m[kLength];
  Real d[kLength];
};

// body(k, zero) for k = from .. to: with a vector zero for kCount indices at a time, then with a real one for the rest.
template <class Real, class Body>
void by_lanes(int64_t from, int64_t to, Body body) {
  using V = Lanes<Real>;
  int64_t k = from;
  for (; k + kWidth<V> <= to + 1; k += kWidth<V>) body(k, V(Real(0)));
  for (; k <= to; ++k) body(k, Real(0));
}

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

  // The breakpoints from begin - halo to end + halo, as far as they exist. No slope is formed yet.
  Chunk(const Partition<Real, kUniform>& given, const Values<Real>& values, int64_t nx, int64_t begin, int64_t end,
        int64_t halo, Workspace<Real>& scratch)
      : partition(given),
        base(std::max<int64_t>(begin - halo, 0)),
        points(std::min(end + halo, nx - 1) - base + 1),
        x(kUniform ? given.given() : given.given() + base),
        y(scratch.y),
        room(&scratch) {
    if (values.stride == 1) {
      y = values.first + base;
    } else {
      for (int64_t k = 0; k < points; ++k) scratch.y[k] = values[base + k];
    }
  }

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

}  // namespace orvik::df

#endif
