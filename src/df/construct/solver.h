// The tridiagonal solver under one name for both real types.
#ifndef ORVIK_DF_CONSTRUCT_SOLVER_H
#define ORVIK_DF_CONSTRUCT_SOLVER_H

#include "serv/tridiagonal.h"

namespace orvik::df {

inline int64_t solve_in_one_step(int64_t n, double* dl, double* d, double* du, double* b) {
  const int64_t one = 1;
  int64_t info;
  ddtsvb_4dfl(&n, &one, dl, d, du, b, &n, &info);
  return info;
}
inline int64_t solve_in_one_step(int64_t n, float* dl, float* d, float* du, float* b) {
  const int64_t one = 1;
  int64_t info;
  sdtsvb_4dfl(&n, &one, dl, d, du, b, &n, &info);
  return info;
}

}  // namespace orvik::df

#endif
