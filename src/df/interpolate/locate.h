// From cells to the interval whose polynomial serves, and the site's coordinate in it.
#ifndef ORVIK_DF_INTERPOLATE_LOCATE_H
#define ORVIK_DF_INTERPOLATE_LOCATE_H

#include <algorithm>
#include <cmath>

#include "df/construct/quadratic_knots.h"
#include "df/task/task.h"

namespace orvik::df {

// Sites outside take the first or the last interval; a cell that no search gives is held inside too.
template <class Index, class Cell>
Index interval_of(Cell cell, Index nx) {
  return static_cast<Index>(std::min<Cell>(std::max<Cell>(cell, 1) - 1, static_cast<Cell>(nx - 2)));
}

// x[i], given or on an even grid.
template <class Real>
Real left_end_of(const Task& task, const Real* x, int64_t i) {
  if (!task.uniform()) return x[i];
  return std::fma((x[1] - x[0]) / static_cast<Real>(task.nx - 1), static_cast<Real>(i), x[0]);
}

template <class Real, class Index>
void locate(const Task& task, int64_t n, const Real* site, const Index* cell, Index* index, Real* t) {
  const Real* x = task.breakpoints<Real>();
  const Index nx = static_cast<Index>(task.nx);
  if (task.uniform()) {
    const Real start = x[0], step = (x[1] - start) / static_cast<Real>(task.nx - 1);
    for (int64_t j = 0; j < n; ++j) {
      const Index i = interval_of(cell[j], nx);
      index[j] = i;
      t[j] = site[j] - std::fma(step, static_cast<Real>(i), start);
    }
  } else {
    for (int64_t j = 0; j < n; ++j) index[j] = interval_of(cell[j], nx);
    for (int64_t j = 0; j < n; ++j) t[j] = site[j] - x[index[j]];
  }
}

// Splines with their own knots: interval i of nx lies around breakpoint i, from knot i to knot i + 1.
template <class Real, class Index>
void locate_by_knots(const Task& task, int64_t n, const Real* site, const Index* cell, Index* index, Real* t) {
  const QuadraticKnots<Real> knots(task);
  const Index nx = static_cast<Index>(task.nx);
  for (int64_t j = 0; j < n; ++j) {
    Index i = interval_of(cell[j], nx);
    if (site[j] >= knots.tau(i + 1)) ++i;
    index[j] = i;
    t[j] = site[j] - knots.breakpoint(i);
  }
}

}  // namespace orvik::df

#endif
