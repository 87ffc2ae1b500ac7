// The nearest use that a matrix of estimated correlations can be put to: negative eigenvalues, which a correlation
// matrix cannot have, become zero, and the diagonal is scaled back to 1 (Rebonato and Jäckel 2000).
#include <algorithm>
#include <cmath>

#include "orvik/ss.h"
#include "qor/ss/kernels.h"
#include "qor/ss/matrix.h"
#include "qor/ss/missing_field.h"
#include "serv/blas.h"
#include "serv/memory.h"

namespace orvik::ss {
namespace {

namespace blas = serv::blas;

int32_t check(const Task& task, uint64_t method) {
  if (task.dimension == nullptr || task.p() < 1) return kBadDimension;
  if ((method & ORVIK_SS_METHOD_PARAMETRIZATION) == 0) return kBadMethod;
  if (task.correlation == nullptr) return missing_field::correlation;
  if (const int32_t status = check_matrix_storage_value(task, task.correlationStorage); status != kDone) return status;
  if (task.parametrizedCorrelation == nullptr) return missing_field::parametrizedCorrelation;
  return check_matrix_storage_value(task, task.parametrizedCorrelationStorage);
}

// a: the eigenvectors in columns, scaled by the roots of the eigenvalues that are above zero, which come last; c: their
// products, the upper triangle, with a diagonal of 1.
void rebuild(int64_t p, const double* values, double* a, double* c, double* roots) {
  const auto order = static_cast<int32_t>(p);
  const auto zeros = static_cast<int64_t>(std::upper_bound(values, values + p, 0.0) - values);
  for (int64_t k = zeros; k < p; ++k) {
    const double root = kernel_sqrt(values[k]);
    for (int64_t i = 0; i < p; ++i) a[k * p + i] *= root;
  }
  std::fill(c, c + p * p, 0.0);
  if (zeros < p) {
    blas::syrk('U', 'N', order, static_cast<int32_t>(p - zeros), 1.0, a + zeros * p, order, 0.0, c, order);
  }
  for (int64_t j = 0; j < p; ++j) roots[j] = c[j * p + j];
  inverse_square_roots(order, roots, roots);
  for (int64_t j = 0; j < p; ++j) {
    for (int64_t i = 0; i < j; ++i) {
      const double r = c[j * p + i] * roots[i] * roots[j];
      c[j * p + i] = std::isnan(r) ? 0.0 : std::clamp(r, -1.0, 1.0);  // nothing is left of a variable
    }
    c[j * p + j] = 1;
  }
}

template <class T>
int32_t parametrize(OrvikSSTask handle, uint64_t method) {
  if (handle == nullptr) return kNoTask;
  const Task& task = *static_cast<Task*>(handle);
  if (const int32_t status = check(task, method); status != kDone) return status;
  if (!blas::load()) return kNoMemory;
  const int64_t p = task.p();
  const auto order = static_cast<int32_t>(p);
  double best = 0, none = 0;
  blas::syev<double>('V', 'U', order, &none, order, &none, &best, -1);
  const auto length = static_cast<int64_t>(best);
  const serv::Block<double> work(static_cast<uint64_t>(2 * p * p + 2 * p + length));
  const serv::Block<T> held(static_cast<uint64_t>(p * p));
  if (!work || !held) return kNoMemory;
  double *a = work.get(), *c = a + p * p, *values = c + p * p, *roots = values + p;

  matrix_of<T>(task, task.correlation, task.correlationStorage, p).unpack(held.get());
  for (int64_t j = 0; j < p; ++j) {
    for (int64_t i = 0; i <= j; ++i) {
      a[j * p + i] = static_cast<double>(held[static_cast<uint64_t>(j * p + i)]);
      if (!std::isfinite(a[j * p + i])) return kMatrixFailed;
    }
  }
  if (blas::syev('V', 'U', order, a, order, values, roots + p, static_cast<int32_t>(length)) != 0) return kMatrixFailed;
  if (values[0] < 0) {
    rebuild(p, values, a, c, roots);
    for (int64_t j = 0; j < p; ++j) {
      for (int64_t i = 0; i <= j; ++i) held[static_cast<uint64_t>(j * p + i)] = static_cast<T>(c[j * p + i]);
    }
  }
  matrix_of<T>(task, task.parametrizedCorrelation, task.parametrizedCorrelationStorage, p).pack(held.get());
  return kDone;
}

}  // namespace
}  // namespace orvik::ss

extern "C" {
int32_t _qordSSCorParametrization(OrvikSSTask task, uint64_t, uint64_t method, const OrvikThreading*) {
  return orvik::ss::parametrize<double>(task, method);
}
int32_t _qorsSSCorParametrization(OrvikSSTask task, uint64_t, uint64_t method, const OrvikThreading*) {
  return orvik::ss::parametrize<float>(task, method);
}
}
