// Partial covariance and correlation: of the kept variables, with the effect of others taken out.
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

struct Wanted {
  bool covariance, correlation;
};

int32_t check_result(const Task& task, const void* result, int32_t missing, const void* storage) {
  if (result == nullptr) return missing;
  return check_matrix_storage_value(task, storage);
}

int32_t check(const Task& task, const Wanted& wanted, uint64_t method) {
  if (task.dimension == nullptr || task.p() < 1) return kBadDimension;
  if ((method & ORVIK_SS_METHOD_FAST) == 0 || !(wanted.covariance || wanted.correlation)) return kBadMethod;
  if (task.covariance == nullptr) return missing_field::covariance;
  if (task.partialCovarianceIndices == nullptr) return missing_field::partialCovarianceIndices;
  if (const int32_t status = check_matrix_storage_value(task, task.covarianceStorage); status != kDone) return status;
  if (wanted.covariance) {
    const int32_t status =
        check_result(task, task.partialCovariance, missing_field::partialCovariance, task.partialCovarianceStorage);
    if (status != kDone) return status;
  }
  if (wanted.correlation) {
    const int32_t status =
        check_result(task, task.partialCorrelation, missing_field::partialCorrelation, task.partialCorrelationStorage);
    if (status != kDone) return status;
  }
  return kDone;
}

// The variables of a task: 1 in `partialCovarianceIndices` is kept, -1 conditioned on, 0 left out.
struct Split {
  int64_t* kept;
  int64_t* given;
  int64_t kept_count = 0, given_count = 0;

  void read(const Task& task, int64_t p) {
    for (int64_t j = 0; j < p; ++j) {
      const int64_t role = task.integer_at(task.partialCovarianceIndices, j);
      if (role > 0) kept[kept_count++] = j;
      if (role < 0) given[given_count++] = j;
    }
  }
};

// C11 - C12 C22^-1 C21: with C22 = L L' and B = L^-1 C21 it is C11 - B' B.
int32_t condition(const Split& s, double* c11, double* c21, double* c22) {
  const auto k = static_cast<int32_t>(s.kept_count), g = static_cast<int32_t>(s.given_count);
  if (g == 0) return kDone;
  if (blas::potrf('L', g, c22, g) != 0 || blas::trtri('L', 'N', g, c22, g) != 0) return kMatrixFailed;
  blas::trmm('L', 'L', 'N', 'N', g, k, 1.0, c22, g, c21, g);
  blas::gemm('T', 'N', k, k, g, -1.0, c21, g, c21, g, 1.0, c11, k);
  return std::all_of(c11, c11 + s.kept_count * s.kept_count, [](double c) { return std::isfinite(c); })
             ? kDone
             : int32_t{kMatrixFailed};
}

template <class T>
void write_covariance(const Task& task, int64_t k, const double* c) {
  const Matrix<T> to = matrix_of<T>(task, task.partialCovariance, task.partialCovarianceStorage, k);
  for (int64_t j = 0; j < k; ++j) {
    for (int64_t i = 0; i <= j; ++i) to.set(i, j, static_cast<T>(c[j * k + i]));
  }
}

// A kept variable that the others determine has no partial correlation: NaN in its row.
template <class T>
void write_correlation(const Task& task, int64_t k, const double* c, double* roots) {
  for (int64_t j = 0; j < k; ++j) roots[j] = c[j * k + j];
  inverse_square_roots(static_cast<int32_t>(k), roots, roots);
  const Matrix<T> to = matrix_of<T>(task, task.partialCorrelation, task.partialCorrelationStorage, k);
  for (int64_t j = 0; j < k; ++j) {
    for (int64_t i = 0; i < j; ++i) to.set(i, j, static_cast<T>(c[j * k + i] * roots[i] * roots[j]));
    to.set(j, j, static_cast<T>(roots[j] == roots[j] ? 1.0 : roots[j]));
  }
}

template <class T>
int32_t partial_covariance(OrvikSSTask handle, uint64_t estimates, uint64_t method) {
  if (handle == nullptr) return kNoTask;
  const Task& task = *static_cast<Task*>(handle);
  const Wanted wanted = {(estimates & ORVIK_SS_PARTIAL_COVARIANCE) != 0,
                         (estimates & ORVIK_SS_PARTIAL_CORRELATION) != 0};
  if (const int32_t status = check(task, wanted, method); status != kDone) return status;
  if (!blas::load()) return kNoMemory;

  const int64_t p = task.p();
  const serv::Block<int64_t> lists(static_cast<uint64_t>(2 * p));
  if (!lists) return kNoMemory;
  Split split{lists.get(), lists.get() + p};
  split.read(task, p);
  if (split.kept_count == 0) return missing_field::partialCovarianceIndices;

  const int64_t k = split.kept_count, g = split.given_count;
  const serv::Block<double> work(static_cast<uint64_t>(k * k + g * k + g * g + k));
  if (!work) return kNoMemory;
  double *c11 = work.get(), *c21 = c11 + k * k, *c22 = c21 + g * k, *roots = c22 + g * g;
  const Matrix<T> all = matrix_of<T>(task, task.covariance, task.covarianceStorage, p);
  auto copy = [&](const int64_t* rows, int64_t m, const int64_t* columns, int64_t n, double* to) {
    for (int64_t j = 0; j < n; ++j) {
      for (int64_t i = 0; i < m; ++i) {
        to[j * m + i] = static_cast<double>(all.get(std::min(rows[i], columns[j]), std::max(rows[i], columns[j])));
      }
    }
  };
  copy(split.kept, k, split.kept, k, c11);
  copy(split.given, g, split.kept, k, c21);
  copy(split.given, g, split.given, g, c22);
  if (const int32_t status = condition(split, c11, c21, c22); status != kDone) return status;
  if (wanted.covariance) write_covariance<T>(task, k, c11);
  if (wanted.correlation) write_correlation<T>(task, k, c11, roots);
  return kDone;
}

}  // namespace
}  // namespace orvik::ss

extern "C" {
int32_t _qordSSPartialCovariance(OrvikSSTask task, uint64_t estimates, uint64_t method, const OrvikThreading*) {
  return orvik::ss::partial_covariance<double>(task, estimates, method);
}
int32_t _qorsSSPartialCovariance(OrvikSSTask task, uint64_t estimates, uint64_t method, const OrvikThreading*) {
  return orvik::ss::partial_covariance<float>(task, estimates, method);
}
}
