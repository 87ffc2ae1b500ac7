// The kinds without coefficients: step functions and the look-up of breakpoints. They read function values.
#ifndef ORVIK_DF_PIECES_STEPS_H
#define ORVIK_DF_PIECES_STEPS_H

#include <algorithm>
#include <cmath>

#include "df/pieces/partition.h"

namespace orvik::df {

// The value of the left end of the site's interval; of the last breakpoint there and beyond.
template <class Real, bool kEven>
int64_t left_step_index(const Partition<Real, kEven>& x, int64_t cell, Real site) {
  const int64_t i = cell < 1 ? 0 : cell - 1;
  return site == x.last() ? std::min(i + 1, x.points() - 1) : i;
}

// The value of the right end, unless the site is a breakpoint itself.
template <class Real, bool kEven>
int64_t right_step_index(const Partition<Real, kEven>& x, int64_t cell, Real site) {
  if (cell < 1) return 0;
  const int64_t i = cell - 1;
  return i < x.points() - 1 && site != x.left_end(i) ? i + 1 : i;
}

// The breakpoint that the site is, or -1. On a grid, its right end or the point that it is near enough to; the grid's
// points are formed without fusing here.
template <class Real, bool kEven>
int64_t look_up_index(const Partition<Real, kEven>& x, int64_t cell, Real site) {
  if (cell < 1) return -1;
  if (site == x.last()) return x.points() - 1;
  const int64_t i = cell - 1;
  if constexpr (kEven) {
    constexpr Real kNear = Real(9.094947017729282e-13);  // 2^-40
    const auto distance = [&](int64_t k) { return std::abs(site - (x.first() + x.step() * static_cast<Real>(k))); };
    if (!(distance(i) > kNear)) return i;
    return i + 1 < x.points() && distance(i + 1) < kNear ? i + 1 : -1;
  } else {
    if (site == x[i]) return i;
    return i + 1 < x.points() && site == x[i + 1] ? i + 1 : -1;
  }
}

}  // namespace orvik::df

#endif
