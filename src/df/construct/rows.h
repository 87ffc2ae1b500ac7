// The values of a few functions on a stretch of breakpoints, of each one after the other: rows where they lie, columns
// copied, two at a time.
#ifndef ORVIK_DF_CONSTRUCT_ROWS_H
#define ORVIK_DF_CONSTRUCT_ROWS_H

#include "df/lanes.h"
#include "df/pieces/values.h"
#include "lanes/columns.h"

namespace orvik::df {

template <class Real>
class Rows {
  using V = Lanes<Real>;

 public:
  // Functions first .. past - 1 at `points` breakpoints from `base` on. `room`, which only columns need, has a row of
  // `length` elements for each.
  Rows(const Task& task, int64_t first, int64_t past, int64_t base, int64_t points, Real* room, int64_t length)
      : task_(task), first_(first), base_(base), room_(copied(task) ? room : nullptr), length_(length) {
    if (room_ != nullptr) copy(past - first, points);
  }

  static bool copied(const Task& task) { return task.by_columns() && task.ny != 1; }

  const Real* operator[](int64_t function) const {
    return room_ != nullptr ? room_ + (function - first_) * length_ : Values<Real>(task_, function).first + base_;
  }

 private:
  [[gnu::noinline]] void copy(int64_t count, int64_t points) {
    const Values<Real> values(task_, first_);
    const int64_t step = values.stride, even = count / 2 * 2;
    const Real* from = values.first + base_ * step;
    int64_t k = 0;
    for (; k + kWidth<V> <= points; k += kWidth<V>) {
      for (int64_t f = 0; f < even; f += 2) {
        V columns[2];
        load_two_columns(from + k * step + f, step, columns);
        store(room_ + f * length_ + k, columns[0]);
        store(room_ + (f + 1) * length_ + k, columns[1]);
      }
    }
    for (; k < points; ++k) {
      for (int64_t f = 0; f < even; ++f) room_[f * length_ + k] = from[k * step + f];
    }
    for (k = 0; even < count && k < points; ++k) room_[even * length_ + k] = from[k * step + even];
  }

  const Task& task_;
  int64_t first_, base_;
  Real* room_;
  int64_t length_;
};

}  // namespace orvik::df

#endif
