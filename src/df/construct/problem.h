// What every construction reads: the partition, the functions, the conditions at the two ends.
#ifndef ORVIK_DF_CONSTRUCT_PROBLEM_H
#define ORVIK_DF_CONSTRUCT_PROBLEM_H

#include <cstdint>

#include "df/pieces/partition.h"
#include "df/pieces/values.h"

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
