// The kinds without coefficients: step functions and the look-up of breakpoints. They read function values.
#ifndef ORVIK_DF_INTERPOLATE_STEPS_H
#define ORVIK_DF_INTERPOLATE_STEPS_H

#include <cmath>

#include "df/task/task.h"

namespace orvik::df {

// The breakpoints, given or on an even grid.
template <class Real>
struct Breakpoints {
  const Real* x;
  int64_t nx;
  bool uniform;
  Real step;

  explicit Breakpoints(const Task& task) : x(task.breakpoints<Real>()), nx(task.nx), uniform(task.uniform()), step(0) {
    if (uniform) step = (x[1] - x[0]) / static_cast<Real>(nx - 1);
  }
  Real operator[](int64_t i) const { return uniform ? std::fma(step, static_cast<Real>(i), x[0]) : x[i]; }
  Real last() const { return uniform ? x[1] : x[nx - 1]; }
};

// The value of the left end of the site's interval.
template <class Real>
int64_t left_step_index(const Breakpoints<Real>& x, int64_t cell, Real site) {
  const int64_t i = cell < 1 ? 0 : cell - 1;
  return site == x.last() ? std::min(i + 1, x.nx - 1) : i;
}

// The value of the right end, unless the site is a breakpoint itself.
template <class Real>
int64_t right_step_index(const Breakpoints<Real>& x, int64_t cell, Real site) {
  if (cell < 1) return 0;
  const int64_t i = cell - 1;
  return i < x.nx - 1 && site != x[i] ? i + 1 : i;
}

// The breakpoint that the site is, or -1.
template <class Real>
int64_t look_up_index(const Breakpoints<Real>& x, int64_t cell, Real site) {
  if (cell < 1) return -1;
  const int64_t i = cell - 1;
  if (x.uniform) {
    constexpr Real kNear = Real(9.094947017729282e-13);  // 2^-40
    const auto distance = [&](int64_t k) { return std::abs(site - (x.x[0] + x.step * static_cast<Real>(k))); };
    if (!(distance(i) > kNear)) return i;
    return i + 1 < x.nx && distance(i + 1) < kNear ? i + 1 : -1;
  }
  if (site == x.last()) return x.nx - 1;
  if (site == x[i]) return i;
  return i + 1 < x.nx && site == x[i + 1] ? i + 1 : -1;
}

}  // namespace orvik::df

#endif
