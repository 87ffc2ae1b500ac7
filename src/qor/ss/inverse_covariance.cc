#include "qor/ss/inverse_covariance.h"

#include <cmath>
#include <limits>

#include "orvik/ss.h"
#include "qor/ss/matrix.h"
#include "serv/blas.h"
#include "serv/memory.h"

namespace orvik::ss {
namespace {

namespace blas = serv::blas;

// Inverses of few variables by cofactors. False where a leading minor is not positive.
bool invert_none(double*) { return true; }

bool invert_one(double* a) {
  if (!(a[0] > 0)) return false;
  a[0] = 1 / a[0];
  return true;
}

bool invert_two(double* a) {
  const double determinant = a[0] * a[3] - a[1] * a[1];
  if (!(a[0] > 0 && determinant > 0)) return false;
  const double r = 1 / determinant, first = a[0];
  a[0] = a[3] * r;
  a[3] = first * r;
  a[1] = a[2] = -a[1] * r;
  return true;
}

bool invert_three(double* a) {
  const double xx = a[0], xy = a[1], xz = a[2], yy = a[4], yz = a[5], zz = a[8];
  const double c0 = yy * zz - yz * yz, c1 = xz * yz - xy * zz, c2 = xy * yz - xz * yy;
  const double minor = xx * yy - xy * xy, determinant = xx * c0 + xy * c1 + xz * c2;
  if (!(xx > 0 && minor > 0 && determinant > 0)) return false;
  const double r = 1 / determinant;
  a[0] = c0 * r;
  a[4] = (xx * zz - xz * xz) * r;
  a[8] = minor * r;
  a[1] = a[3] = c1 * r;
  a[2] = a[6] = c2 * r;
  a[5] = a[7] = (xy * xz - xx * yz) * r;
  return true;
}

constexpr bool (*kFew[])(double*) = {invert_none, invert_one, invert_two, invert_three};

bool invert_many(int32_t p, double* a) {
  if (blas::potrf('L', p, a, p) != 0 || blas::potri('L', p, a, p) != 0) return false;
  mirror_lower(p, a);
  return true;
}

// Scaled to a unit diagonal, so that products of variances neither overflow nor underflow. False where a variance is
// not a positive number. `roots` gets the inverse square roots of the variances.
template <class T>
bool scale_to_unit(int64_t p, const T* matrix, double* to, double* roots) {
  for (int64_t j = 0; j < p; ++j) {
    const double variance = static_cast<double>(matrix[j * p + j]);
    if (!(variance > 0) || std::isinf(variance)) return false;
    roots[j] = 1 / std::sqrt(variance);
  }
  for (int64_t j = 0; j < p; ++j) {
    for (int64_t i = 0; i < p; ++i) {
      to[j * p + i] = i == j ? 1.0 : static_cast<double>(matrix[j * p + i]) * roots[i] * roots[j];
      if (!std::isfinite(to[j * p + i])) return false;
    }
  }
  return true;
}

}  // namespace

template <class T>
int32_t check_rank(int64_t p, const T* matrix) {
  if (p < 1) return kBadDimension;
  if (!blas::load()) return kNoMemory;
  const auto order = static_cast<int32_t>(p);
  double best = 0, none = 0;
  blas::syev<double>('N', 'L', order, &none, order, &none, &best, -1);
  const auto length = static_cast<int64_t>(best);
  const serv::Block<double> work(static_cast<uint64_t>(p * p + 2 * p + length));
  if (!work) return kNoMemory;
  double *a = work.get(), *values = a + p * p, *roots = values + p;
  if (!scale_to_unit(p, matrix, a, roots)) return kSingular;
  if (blas::syev('N', 'L', order, a, order, values, roots + p, static_cast<int32_t>(length)) != 0) return kSingular;
  const double least = 16 * static_cast<double>(p) * std::numeric_limits<T>::epsilon();
  return values[0] > least * values[p - 1] ? kDone : kSingular;
}

template <class T>
int32_t invert_covariance(int64_t p, T* matrix) {
  if (p < 0) return kBadDimension;
  if (!blas::load()) return kNoMemory;
  const serv::Block<double> work(static_cast<uint64_t>(p * p + p));
  if (!work) return kNoMemory;
  double *a = work.get(), *roots = a + p * p;
  if (!scale_to_unit(p, matrix, a, roots)) return kSingular;
  if (!(p < 4 ? kFew[p](a) : invert_many(static_cast<int32_t>(p), a))) return kSingular;
  for (int64_t j = 0; j < p; ++j) {
    for (int64_t i = 0; i <= j; ++i) matrix[j * p + i] = static_cast<T>(a[j * p + i] * roots[i] * roots[j]);
  }
  mirror_upper(p, matrix);
  return kDone;
}

#define ORVIK_INSTANTIATE(T)                      \
  template int32_t check_rank(int64_t, const T*); \
  template int32_t invert_covariance(int64_t, T*);
ORVIK_INSTANTIATE(float)
ORVIK_INSTANTIATE(double)
#undef ORVIK_INSTANTIATE

}  // namespace orvik::ss

extern "C" {
int32_t __qordTestCovRank(int64_t p, const double* matrix) { return orvik::ss::check_rank(p, matrix); }
int32_t __qorsTestCovRank(int64_t p, const float* matrix) { return orvik::ss::check_rank(p, matrix); }
int32_t __qordInvCov(int64_t p, double* matrix) { return orvik::ss::invert_covariance(p, matrix); }
int32_t __qorsInvCov(int64_t p, float* matrix) { return orvik::ss::invert_covariance(p, matrix); }
}
