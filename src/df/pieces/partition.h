// The breakpoints of a task, given one by one or as an even grid between two ends: the only place that knows how a grid
// is formed.
#ifndef ORVIK_DF_PIECES_PARTITION_H
#define ORVIK_DF_PIECES_PARTITION_H

#include <cmath>
#include <cstdint>

#include "df/lanes.h"
#include "df/task/task.h"

namespace orvik::df {

template <class Real, bool kEven>
class Partition {
 public:
  static constexpr bool kIsEven = kEven;

  explicit Partition(const Task& task) : points_(task.nx), x_(task.breakpoints<Real>()) {
    if constexpr (kEven) {
      step_ = (x_[1] - x_[0]) / static_cast<Real>(points_ - 1);
      inverse_step_ = 1 / step_;
    }
  }

  int64_t points() const { return points_; }
  Real first() const { return x_[0]; }
  Real last() const { return x_[kEven ? 1 : points_ - 1]; }
  Real step() const { return step_; }  // of a grid
  Real inverse_step() const { return inverse_step_; }
  const Real* given() const { return x_; }  // all breakpoints, or the two ends of a grid

  // Breakpoint i. The right end of a grid is the one given, whatever the steps add up to.
  Real operator[](int64_t i) const { return kEven && i == points_ - 1 ? x_[1] : left_end(i); }
  // The left end of interval i, i < points() - 1.
  Real left_end(int64_t i) const { return kEven ? std::fma(step_, static_cast<Real>(i), x_[0]) : x_[i]; }
  // The left ends of several intervals, their numbers given in both forms.
  Lanes<Real> left_ends(LaneIndices<Real> intervals, const int64_t* i) const {
    if constexpr (kEven) {
      return fma(Lanes<Real>(step_), to_lanes(intervals), Lanes<Real>(x_[0]));
    } else {
      return load_column<1>(x_, i, 0);
    }
  }

  // The length of interval i between breakpoints as they are formed, rounding included: what limits are measured by.
  Real gap(int64_t i) const { return (*this)[i + 1] - left_end(i); }
  // Length of interval i by definition, its reciprocal, length of intervals i and i + 1 together.
  Real h(int64_t i) const { return kEven ? step_ : x_[i + 1] - x_[i]; }
  Real inverse_h(int64_t i) const { return kEven ? inverse_step_ : 1 / (x_[i + 1] - x_[i]); }
  Real two_h(int64_t i) const { return kEven ? step_ + step_ : x_[i + 2] - x_[i]; }

 private:
  int64_t points_;
  const Real* x_;
  Real step_ = 0, inverse_step_ = 0;
};

// Calls body with the task's partition.
template <class Real, class Body>
auto with_partition(const Task& task, Body&& body) {
  return task.uniform() ? body(Partition<Real, true>(task)) : body(Partition<Real, false>(task));
}

}  // namespace orvik::df

#endif
