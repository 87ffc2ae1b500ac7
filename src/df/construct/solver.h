// The tridiagonal routines under one name for both real types.
#ifndef ORVIK_DF_CONSTRUCT_SOLVER_H
#define ORVIK_DF_CONSTRUCT_SOLVER_H

#include "serv/tridiagonal.h"

namespace orvik::df {

inline int64_t factor_matrix(int64_t n, double* dl, double* d, double* du) {
  int64_t info;
  ddttrfb_4dfl(&n, dl, d, du, &info);
  return info;
}
inline int64_t factor_matrix(int64_t n, float* dl, float* d, float* du) {
  int64_t info;
  sdttrfb_4dfl(&n, dl, d, du, &info);
  return info;
}

inline int64_t solve_factored(int64_t n, const double* dl, const double* d, const double* du, double* b) {
  const int64_t one = 1;
  int64_t info;
  ddttrsb_4dfl("N", &n, &one, dl, d, du, b, &n, &info);
  return info;
}
inline int64_t solve_factored(int64_t n, const float* dl, const float* d, const float* du, float* b) {
  const int64_t one = 1;
  int64_t info;
  sdttrsb_4dfl("N", &n, &one, dl, d, du, b, &n, &info);
  return info;
}

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
