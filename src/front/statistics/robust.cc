// Data that are not clean: outliers, a mean and a covariance that they do not move, and missing values.
#include <algorithm>
#include <cmath>
#include <limits>

#include "front/statistics/kernels.h"
#include "serv/memory.h"

namespace orvik::front {
namespace {

template <class T>
orvik_status outliers(int64_t n, int64_t p, const T* x, int32_t layout, T alpha, int8_t* r) {
  if (const orvik_status status = check_call(n, p, x, layout, r, n, 1, sizeof *r); status != ORVIK_SUCCESS)
    return status;
  if (n / 5 < p) return ORVIK_ERROR_BAD_LENGTH;
  if (!(alpha >= 0 && alpha <= 1)) return ORVIK_ERROR_BAD_PARAMETER;
  const KeepErrno keep;
  const serv::Block<T> good(static_cast<uint64_t>(n));
  if (!good) return ORVIK_ERROR_NO_MEMORY;
  const T parameters[] = {2, alpha, 0};  // from the medians; the kernel's own end of the rounds
  const int64_t count = std::size(parameters);
  Task<T> task;
  int32_t status = task.make(p, n, layout, x);
  task.set(OrvikSS_outlierWeights, good.get());
  task.set(OrvikSS_outlierParameters, parameters).set_integer(OrvikSS_outlierParameterCount, &count);
  if (status == 0) status = task.status();
  if (status == 0) status = Statistics<T>::outliers(task.get(), 0, ORVIK_SS_METHOD_BACON, &kThreading);
  if (status != 0) return memory_status(status);
  for (int64_t i = 0; i < n; ++i) r[i] = good[static_cast<uint64_t>(i)] == 0;
  return ORVIK_SUCCESS;
}

template <class T>
orvik_status robust_covariance(int64_t n, int64_t p, const T* x, int32_t layout, T* mean, T* covariance) {
  if (const orvik_status status = check_call(n, p, x, layout, mean, p, 1); status != ORVIK_SUCCESS) return status;
  if ((n - 1) / 2 < p) return ORVIK_ERROR_BAD_LENGTH;
  if (const orvik_status status = check_call(n, p, x, layout, covariance, p, p); status != ORVIK_SUCCESS) {
    return status;
  }
  const auto bytes = static_cast<int64_t>(sizeof(T));
  if (meet(mean, p * bytes, covariance, p * p * bytes)) return ORVIK_ERROR_OVERLAP;
  const KeepErrno keep;
  static constexpr int64_t kFull = ORVIK_SS_MATRIX_FULL;
  Task<T> task;
  int32_t status = task.make(p, n, layout, x);
  task.set(OrvikSS_robustMean, mean).set(OrvikSS_robustCovariance, covariance);
  task.set_integer(OrvikSS_robustCovarianceStorage, &kFull);
  if (status == 0) status = task.status();
  if (status == 0) status = Statistics<T>::robust_covariance(task.get(), 0, ORVIK_SS_METHOD_ROBUST, &kThreading);
  return memory_status(status);
}

// Steps of maximisation at most, and the change that ends them; steps of data augmentation before a set is taken.
constexpr double kMaximisation = 500, kChange = 1e-6, kAugmentation = 100;

// Calls visit(k) for each missing value x[k], variable by variable.
template <class T, class Visit>
void for_each_missing(int64_t n, int64_t p, const T* x, int32_t layout, const Visit& visit) {
  const int64_t of_variable = layout == ORVIK_ROWS ? n : 1, of_observation = layout == ORVIK_ROWS ? 1 : p;
  for (int64_t j = 0; j < p; ++j) {
    for (int64_t i = 0; i < n; ++i) {
      if (const int64_t k = j * of_variable + i * of_observation; std::isnan(x[k])) visit(k);
    }
  }
}

// The kernel's imputations of a copy, whose missing values bear its mark: set after set. In double for either
// precision, as the kernel works, since parameters that are counts go through the element type.
orvik_status simulate(int64_t n, int64_t p, const double* x, int32_t layout, int64_t m, int64_t missing,
                      double* simulated) {
  const double parameters[] = {kMaximisation, kAugmentation, kChange, static_cast<double>(m),
                               static_cast<double>(missing)};
  const int64_t count = std::size(parameters), values = m * missing;
  Task<double> task;
  int32_t status = task.make(p, n, layout, x);
  task.set(OrvikSS_imputationParameters, parameters).set_integer(OrvikSS_imputationParameterCount, &count);
  task.set(OrvikSS_simulatedValues, simulated).set_integer(OrvikSS_simulatedValueCount, &values);
  if (status == 0) status = task.status();
  if (status == 0) status = _qordSSMissingValues(task.get(), 0, ORVIK_SS_METHOD_IMPUTATION, &kThreading);
  return memory_status(status);
}

template <class T>
orvik_status impute(int64_t n, int64_t p, const T* x, int32_t layout, int64_t m, T* r) {
  if (const orvik_status status = check_data(n, p, x, layout, sizeof(T)); status != ORVIK_SUCCESS) return status;
  constexpr int64_t kMost = int64_t{1} << 20;  // variables, so that a matrix of them can be counted
  const auto bytes = static_cast<int64_t>(sizeof(T));
  const int64_t size = n * p;
  if (m < 0 || p > kMost || (size > 0 && m > kAddressSpace / 8 / size)) return ORVIK_ERROR_BAD_LENGTH;
  if (m == 0 || n == 0) return ORVIK_SUCCESS;
  if (r == nullptr) return ORVIK_ERROR_NULL_POINTER;
  if (!(x == r && m == 1) && meet(x, size * bytes, r, m * size * bytes)) return ORVIK_ERROR_OVERLAP;
  const KeepErrno keep;
  int64_t missing = 0;
  for (int64_t k = 0; k < size; ++k) missing += std::isnan(x[k]);
  const serv::Block<double> simulated(static_cast<uint64_t>(m * missing));
  if (missing > 0) {
    const serv::Block<double> copy(static_cast<uint64_t>(size));
    if (!copy || !simulated) return ORVIK_ERROR_NO_MEMORY;
    constexpr double kMark = -std::numeric_limits<double>::quiet_NaN();
    std::transform(x, x + size, copy.get(), [](T v) { return std::isnan(v) ? kMark : static_cast<double>(v); });
    const orvik_status status = simulate(n, p, copy.get(), layout, m, missing, simulated.get());
    if (status != ORVIK_SUCCESS) return status;
  }
  const double* value = simulated.get();
  for (int64_t set = 0; set < m; ++set) {
    T* const to = r + set * size;
    if (to != x) std::copy(x, x + size, to);
    for_each_missing(n, p, to, layout, [&](int64_t k) { to[k] = static_cast<T>(*value++); });
  }
  return ORVIK_SUCCESS;
}

}  // namespace
}  // namespace orvik::front

using namespace orvik::front;

#define ROBUST(d, T)                                                                                        \
  orvik_status orvik_##d##_outliers(int64_t n, int64_t p, const T* x, int32_t layout, T alpha, int8_t* r) { \
    return outliers<T>(n, p, x, layout, alpha, r);                                                          \
  }                                                                                                         \
  orvik_status orvik_##d##_robust_covariance(int64_t n, int64_t p, const T* x, int32_t layout, T* mean,     \
                                             T* covariance) {                                               \
    return robust_covariance<T>(n, p, x, layout, mean, covariance);                                         \
  }                                                                                                         \
  orvik_status orvik_##d##_impute(int64_t n, int64_t p, const T* x, int32_t layout, int64_t m, T* r) {      \
    return impute<T>(n, p, x, layout, m, r);                                                                \
  }

extern "C" {
ROBUST(d, double)
ROBUST(s, float)
}  // extern "C"
