// Weighted median of each variable.
#include <limits>

#include "orvik/ss.h"
#include "qor/ss/by_variable.h"
#include "qor/ss/sort.h"

namespace orvik::ss {
namespace {

template <class T>
struct Weighed {
  T value;
  T weight;
  bool operator<(const Weighed& other) const { return value < other.value; }
};

// The value at which the running sum of weights passes half of the total; the mean of two where a sum is exactly half.
// Observations without weight do not count. The values hold no NaN.
template <class T>
T weighted_median(const Weighed<T>* a, int64_t n, double total) {
  double sum = 0;
  for (int64_t i = 0; i < n; ++i) {
    sum += static_cast<double>(a[i].weight);
    if (2 * sum < total) continue;
    if (2 * sum > total || i + 1 == n) return a[i].value;
    return T{0.5} * (a[i].value + a[i + 1].value);
  }
  return a[n - 1].value;
}

int32_t check(const Task& task) {
  if (const int32_t status = check_observations(task); status != kDone) return status;
  if (const int32_t status = check_storage(task); status != kDone) return status;
  if (task.weights == nullptr) return kNoWeights;
  return task.quantiles == nullptr ? kNoQuantiles : kDone;
}

template <class T>
int32_t weighted_medians(OrvikSSTask handle, const OrvikThreading* threading) {
  if (handle == nullptr) return kNoTask;
  const Task& task = *static_cast<Task*>(handle);
  if (const int32_t status = check(task); status != kDone) return status;
  const Data<T> d = data_of<T>(task);
  T* results = real<T>(task.quantiles);
  return for_each_variable(d, threading, 2 * d.n, [&](int64_t j, T* scratch) {
    static_assert(sizeof(Weighed<T>) == 2 * sizeof(T));
    auto* a = reinterpret_cast<Weighed<T>*>(scratch);
    const T* x = d.x + j * d.variable_step();
    int64_t count = 0;
    double total = 0;
    const T* nan = nullptr;
    for (int64_t i = 0; i < d.n; ++i) {
      const T* value = x + i * d.observation_step();
      const T weight = d.weights[i];
      if (weight == 0) continue;
      if (*value != *value || weight != weight) nan = *value != *value ? value : &d.weights[i];
      a[count++] = {*value, weight};
      total += static_cast<double>(weight);
    }
    if (nan != nullptr || count == 0) {
      results[j] = nan != nullptr ? *nan : std::numeric_limits<T>::quiet_NaN();
      return;
    }
    quicksort(a, count);
    results[j] = weighted_median(a, count, total);
  });
}

}  // namespace
}  // namespace orvik::ss

extern "C" {
int32_t _qordSSWMedian(OrvikSSTask task, uint64_t, uint64_t, const OrvikThreading* threading) {
  return orvik::ss::weighted_medians<double>(task, threading);
}
int32_t _qorsSSWMedian(OrvikSSTask task, uint64_t, uint64_t, const OrvikThreading* threading) {
  return orvik::ss::weighted_medians<float>(task, threading);
}
}
