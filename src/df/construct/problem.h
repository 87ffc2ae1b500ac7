// What every construction reads: the partition, the functions, the conditions at the two ends.
#ifndef ORVIK_DF_CONSTRUCT_PROBLEM_H
#define ORVIK_DF_CONSTRUCT_PROBLEM_H

#include <cmath>
#include <cstdint>

#include "df/task/task.h"

namespace orvik::df {

// The accepted sets of boundary conditions, in the order of all tables of end conditions.
enum class Ends : int {
  kNotAKnot = 0,
  kFree = 1,
  kFirstFirst = 2,
  kFirstSecond = 3,
  kSecondFirst = 4,
  kSecondSecond = 5,
  kPeriodic = 6,
  kNone = 7
};

// The condition at one end of a pair.
enum class End { kNotAKnot, kFree, kFirst, kSecond, kPeriodic, kNone };

End left_end(Ends ends);
End right_end(Ends ends);

// Reads the task's boundary condition: 0 and `*ends`, or the status of a bad one. With `none_accepted` type 0 passes.
int32_t read_ends(const Task& task, bool none_accepted, Ends* ends);

// x[i] as given, or on an even grid.
template <class Real, bool kUniform>
struct Partition {
  const Real* x;
  Real step, inverse_step;  // of an even grid

  explicit Partition(const Task& task) : x(task.breakpoints<Real>()), step(0), inverse_step(0) {
    if constexpr (kUniform) {
      step = (x[1] - x[0]) / static_cast<Real>(task.nx - 1);
      inverse_step = 1 / step;
    }
  }
  // Length of interval i and its reciprocal.
  Real h(int64_t i) const { return kUniform ? step : x[i + 1] - x[i]; }
  Real inverse_h(int64_t i) const { return kUniform ? inverse_step : 1 / (x[i + 1] - x[i]); }
  // Length of intervals i and i + 1 together.
  Real two_h(int64_t i) const { return kUniform ? step + step : x[i + 2] - x[i]; }
};

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

// The slope over an interval: one reciprocal, one multiplication, the same bits wherever it is formed.
template <class Real>
Real slope(Real y0, Real y1, Real inverse_h) {
  return (y1 - y0) * inverse_h;
}

// Every function must end where it begins; a NaN does not.
template <class Real>
bool all_periodic(const Task& task) {
  for (int64_t f = 0; f < task.ny; ++f) {
    const Values<Real> y(task, f);
    if (!(y[0] == y[task.nx - 1])) return false;
  }
  return true;
}

}  // namespace orvik::df

#endif
