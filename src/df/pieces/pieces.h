// The geometry of a spline's pieces, below evaluation and integration: which piece a cell and a site in it belong to,
// the point that its coefficients are about (origin), and where it begins and ends, seen from there.
#ifndef ORVIK_DF_PIECES_PIECES_H
#define ORVIK_DF_PIECES_PIECES_H

#include <algorithm>

#include "df/pieces/knots.h"
#include "df/pieces/partition.h"

namespace orvik::df {

// Sites outside take the first or the last interval; a cell that no search gives is held inside too.
template <class Index, class Cell>
Index interval_of(Cell cell, Index nx) {
  return static_cast<Index>(std::min<Cell>(std::max<Cell>(cell, 1) - 1, static_cast<Cell>(nx - 2)));
}

// A piece for each interval, about its left end.
template <class Real, bool kEven>
struct IntervalPieces {
  static constexpr bool kBeginsAtOrigin = true;
  static constexpr bool kConstant = false;
  Partition<Real, kEven> x;

  explicit IntervalPieces(const Task& task) : x(task) {}
  int64_t of(int64_t cell, Real) const { return interval_of(cell, x.points()); }
  int64_t first() const { return 0; }
  int64_t last() const { return x.points() - 2; }
  Real origin(int64_t i) const { return x.left_end(i); }
  Real begin(int64_t) const { return 0; }
  Real end(int64_t i) const { return x.gap(i); }
};

// Pieces from knot to knot, each about the breakpoint that lies between.
template <class Real, bool kEven>
struct KnotPieces {
  static constexpr bool kBeginsAtOrigin = false;
  static constexpr bool kConstant = false;
  Partition<Real, kEven> x;
  Knots<Real, kEven> knots;

  explicit KnotPieces(const Task& task) : x(task), knots(task, x) {}
  int64_t of(int64_t cell, Real site) const {
    const int64_t i = interval_of(cell, x.points());
    return site >= knots.tau(i + 1) ? i + 1 : i;
  }
  int64_t first() const { return 0; }
  int64_t last() const { return x.points() - 1; }
  Real origin(int64_t i) const { return x[i]; }
  Real begin(int64_t i) const { return knots.tau(i) - x[i]; }
  Real end(int64_t i) const { return knots.tau(i + 1) - x[i]; }
};

}  // namespace orvik::df

#endif
