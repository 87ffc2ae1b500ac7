// The function values that a task points at.
#ifndef ORVIK_DF_PIECES_VALUES_H
#define ORVIK_DF_PIECES_VALUES_H

#include "df/task/task.h"

namespace orvik::df {

// The values of one function: a row, or a column of a matrix.
template <class Real>
struct Values {
  const Real* first;
  int64_t stride;

  Values(const Task& task, int64_t function)
      : first(task.by_columns() ? task.values<Real>(0) + function : task.values<Real>(function)),
        stride(task.by_columns() ? task.ny : 1) {}
  Values(const Real* values, int64_t step) : first(values), stride(step) {}
  Real operator[](int64_t i) const { return first[i * stride]; }
};

}  // namespace orvik::df

#endif
