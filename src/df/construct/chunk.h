// A stretch of intervals of one function with all that a derivative rule looks at, in arrays that stay in the cache.
#ifndef ORVIK_DF_CONSTRUCT_CHUNK_H
#define ORVIK_DF_CONSTRUCT_CHUNK_H

#include <algorithm>
#include <cmath>

#include "df/construct/problem.h"
#include "df/lanes.h"

namespace orvik::df {

inline constexpr int64_t kChunkIntervals = 128;
inline constexpr int64_t kLargestHalo = 2;

// Scratch of one thread; its size keeps neighbours off each other's cache lines.
template <class Real>
struct Workspace {
  static constexpr int64_t kLength = kChunkIntervals + 32;
  alignas(128) Real y[kLength];  // of a column
  Real h[kLength];
  Real inverse_h[kLength];
  Real m[kLength];
  Real w[kLength];
  Real d[kLength];
};

// Arrays are indexed from breakpoint `base` on; interval k lies between points k and k + 1. On an even grid h and
// inverse_h are not set.
// body(k, zero) for k = from .. to: with a vector zero for kCount indices at a time, then with a real one for the rest.
template <class Real, class Body>
void by_lanes(int64_t from, int64_t to, Body body) {
  using V = Lanes<Real>;
  int64_t k = from;
  for (; k + V::kCount <= to + 1; k += V::kCount) body(k, V(Real(0)));
  for (; k <= to; ++k) body(k, Real(0));
}

template <class Real, bool kUniform>
struct Chunk {
  Partition<Real, kUniform> partition;
  int64_t base;            // first breakpoint present
  int64_t points;          // breakpoints present
  bool at_left, at_right;  // the partition's ends are present
  const Real* x;
  const Real* y;
  const Real* h;
  const Real* inverse_h;
  const Real* m;
  Real* w;  // room for a rule's weights

  // Loads the breakpoints from begin - halo to end + halo, as far as they exist.
  Chunk(const Partition<Real, kUniform>& given, const Values<Real>& values, int64_t nx, int64_t begin, int64_t end,
        int64_t halo, Workspace<Real>& room)
      : partition(given),
        base(std::max<int64_t>(begin - halo, 0)),
        points(std::min(end + halo, nx - 1) - base + 1),
        at_left(base == 0),
        at_right(base + points == nx),
        x(kUniform ? given.x : given.x + base),
        y(room.y),
        h(room.h),
        inverse_h(room.inverse_h),
        m(room.m),
        w(room.w) {
    if (values.stride == 1) {
      y = values.first + base;
    } else {
      for (int64_t k = 0; k < points; ++k) room.y[k] = values[base + k];
    }
    if constexpr (kUniform) {
      by_lanes<Real>(0, points - 2, [&](int64_t k, auto zero) {
        using T = decltype(zero);
        put(room.m + k, (at<T>(y + k + 1) - at<T>(y + k)) * T(given.inverse_step));
      });
    } else {
      by_lanes<Real>(0, points - 2, [&](int64_t k, auto zero) {
        using T = decltype(zero);
        const T step = at<T>(x + k + 1) - at<T>(x + k), inverse = T(Real(1)) / step;
        put(room.h + k, step);
        put(room.inverse_h + k, inverse);
        put(room.m + k, (at<T>(y + k + 1) - at<T>(y + k)) * inverse);
      });
    }
  }

  Real length(int64_t k) const { return kUniform ? partition.step : h[k]; }
  Real inverse_length(int64_t k) const { return kUniform ? partition.inverse_step : inverse_h[k]; }
};

}  // namespace orvik::df

#endif
