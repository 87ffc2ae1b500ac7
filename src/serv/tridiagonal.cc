#include "serv/tridiagonal.h"

#include <algorithm>
#include <cmath>

namespace orvik::serv {
namespace {

template <class Real>
int64_t factor(int64_t n, const Real* dl, Real* d, Real* du) {
  int64_t info = 0;
  Real pivot = d[0];
  for (int64_t i = 0;; ++i) {
    const Real reciprocal = 1 / pivot;
    if (info == 0 && std::isinf(reciprocal)) info = i + 1;
    d[i] = reciprocal;
    if (i == n - 1) return info;
    du[i] *= reciprocal;
    pivot = std::fma(-dl[i], du[i], d[i + 1]);
  }
}

template <class Real>
void solve_column(int64_t n, const Real* dl, const Real* d, const Real* du, Real* b) {
  b[0] *= d[0];
  for (int64_t i = 1; i < n; ++i) b[i] = std::fma(-dl[i - 1], b[i - 1], b[i]) * d[i];
  for (int64_t i = n - 2; i >= 0; --i) b[i] = std::fma(-du[i], b[i + 1], b[i]);
}

template <class Real>
void factor_call(int64_t n, Real* dl, Real* d, Real* du, int64_t* info) {
  *info = n < 0 ? -1 : n == 0 ? 0 : factor(n, dl, d, du);
}

template <class Real>
void solve_call(char trans, int64_t n, int64_t nrhs, const Real* dl, const Real* d, const Real* du, Real* b,
                int64_t ldb, int64_t* info) {
  if (trans != 'N' && trans != 'n') {
    *info = -1;
  } else if (n < 0) {
    *info = -2;
  } else if (nrhs < 0) {
    *info = -3;
  } else if (ldb < std::max<int64_t>(n, 1)) {
    *info = -8;
  } else {
    *info = 0;
    if (n == 0) return;
    for (int64_t k = 0; k < nrhs; ++k) solve_column(n, dl, d, du, b + k * ldb);
  }
}

template <class Real>
void one_step_call(int64_t n, int64_t nrhs, Real* dl, Real* d, Real* du, Real* b, int64_t ldb, int64_t* info) {
  if (n < 0) {
    *info = -1;
  } else if (nrhs < 0) {
    *info = -2;
  } else if (ldb < std::max<int64_t>(n, 1)) {
    *info = -7;
  } else {
    *info = 0;
    if (n == 0) return;
    *info = factor(n, dl, d, du);
    if (*info != 0) return;
    for (int64_t k = 0; k < nrhs; ++k) solve_column(n, dl, d, du, b + k * ldb);
  }
}

}  // namespace
}  // namespace orvik::serv

using namespace orvik::serv;

extern "C" {

void ddttrfb_4dfl(const int64_t* n, double* dl, double* d, double* du, int64_t* info) {
  factor_call(*n, dl, d, du, info);
}
void sdttrfb_4dfl(const int64_t* n, float* dl, float* d, float* du, int64_t* info) { factor_call(*n, dl, d, du, info); }

void ddttrsb_4dfl(const char* trans, const int64_t* n, const int64_t* nrhs, const double* dl, const double* d,
                  const double* du, double* b, const int64_t* ldb, int64_t* info) {
  solve_call(*trans, *n, *nrhs, dl, d, du, b, *ldb, info);
}
void sdttrsb_4dfl(const char* trans, const int64_t* n, const int64_t* nrhs, const float* dl, const float* d,
                  const float* du, float* b, const int64_t* ldb, int64_t* info) {
  solve_call(*trans, *n, *nrhs, dl, d, du, b, *ldb, info);
}

void ddtsvb_4dfl(const int64_t* n, const int64_t* nrhs, double* dl, double* d, double* du, double* b,
                 const int64_t* ldb, int64_t* info) {
  one_step_call(*n, *nrhs, dl, d, du, b, *ldb, info);
}
void sdtsvb_4dfl(const int64_t* n, const int64_t* nrhs, float* dl, float* d, float* du, float* b, const int64_t* ldb,
                 int64_t* info) {
  one_step_call(*n, *nrhs, dl, d, du, b, *ldb, info);
}
}
