// Median and mean absolute deviation.
#include <cmath>

#include "orvik/ss.h"
#include "qor/ss/by_variable.h"
#include "qor/ss/sort.h"

namespace orvik::ss {
namespace {

// The median of an array that may be reordered: the mean of the two middle values when their number is even.
template <class T>
T median(int64_t n, T* a) {
  const int64_t numbers = move_nans(a, n);
  const int64_t k = (n - 1) / 2;
  if (k < numbers) select(a, 0, numbers - 1, k);
  if (n % 2 != 0) return a[k];
  T next = a[k + 1];
  for (int64_t i = k + 2; i < numbers; ++i) next = a[i] < next ? a[i] : next;
  return std::fma(next - a[k], T{0.5}, a[k]);
}

template <class T>
T mean(int64_t n, const T* a) {
  double sum = 0;
  for (int64_t i = 0; i < n; ++i) sum += static_cast<double>(a[i]);
  return static_cast<T>(sum / static_cast<double>(n));
}

int32_t check(const Task& task, bool median, bool mean, uint64_t method) {
  if ((method & ORVIK_SS_METHOD_FAST) == 0) return kBadMethod;
  if (task.dimension == nullptr || task.p() < 1) return kBadDimension;
  if (const int32_t status = check_observations(task); status != kDone) return status;
  if (const int32_t status = check_storage(task); status != kDone) return status;
  if (median && task.medianAbsDeviation == nullptr) return kNoMedianAbsDeviation;
  if (mean && task.meanAbsDeviation == nullptr) return kNoMeanAbsDeviation;
  if (mean && (method & ORVIK_SS_METHOD_USER_MEAN) != 0 && task.mean == nullptr) return kNoMean;
  return median || mean ? kDone : kBadMethod;
}

template <class T>
int32_t mad(OrvikSSTask handle, uint64_t estimates, uint64_t method, const OrvikThreading* threading) {
  if (handle == nullptr) return kNoTask;
  const Task& task = *static_cast<Task*>(handle);
  const bool by_median = (estimates & ORVIK_SS_MEDIAN_ABS_DEVIATION) != 0;
  const bool by_mean = (estimates & ORVIK_SS_MEAN_ABS_DEVIATION) != 0;
  if (const int32_t status = check(task, by_median, by_mean, method); status != kDone) return status;
  const Data<T> d = data_of<T>(task);
  const T* given = (method & ORVIK_SS_METHOD_USER_MEAN) != 0 ? real<T>(task.mean) : nullptr;
  return for_each_variable(d, threading, d.n, [&](int64_t j, T* a) {
    copy_variable(d, j, a);
    if (by_mean) {
      const T m = given != nullptr ? given[j] : mean(d.n, a);
      double sum = 0;
      for (int64_t i = 0; i < d.n; ++i) sum += static_cast<double>(std::fabs(a[i] - m));
      real<T>(task.meanAbsDeviation)[j] = static_cast<T>(sum / static_cast<double>(d.n));
    }
    if (by_median) {
      const T m = median(d.n, a);
      for (int64_t i = 0; i < d.n; ++i) a[i] = std::fabs(a[i] - m);
      real<T>(task.medianAbsDeviation)[j] = median(d.n, a);
    }
  });
}

}  // namespace
}  // namespace orvik::ss

extern "C" {
int32_t _qordSSMAD(OrvikSSTask task, uint64_t estimates, uint64_t method, const OrvikThreading* threading) {
  return orvik::ss::mad<double>(task, estimates, method, threading);
}
int32_t _qorsSSMAD(OrvikSSTask task, uint64_t estimates, uint64_t method, const OrvikThreading* threading) {
  return orvik::ss::mad<float>(task, estimates, method, threading);
}
}
