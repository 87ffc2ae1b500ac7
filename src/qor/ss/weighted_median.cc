// Weighted median of each variable.
#include "orvik/ss.h"
#include "qor/ss/estimators.h"

namespace orvik::ss {
namespace {

int32_t check(const Task& task) {
  if (const int32_t status = check_observations(task); status != kDone) return status;
  if (const int32_t status = check_storage(task); status != kDone) return status;
  if (task.weights == nullptr) return missing_field::weights;
  return task.quantiles == nullptr ? missing_field::quantiles : kDone;
}

template <class T>
int32_t of_task(OrvikSSTask handle, const OrvikThreading* threading) {
  if (handle == nullptr) return kNoTask;
  const Task& task = *static_cast<Task*>(handle);
  if (const int32_t status = check(task); status != kDone) return status;
  const Data<T> d = data_of<T>(task);
  return weighted_medians(Observations<T>(d), d.flags, false, threading, real<T>(task.quantiles));
}

}  // namespace
}  // namespace orvik::ss

extern "C" {
int32_t _qordSSWMedian(OrvikSSTask task, uint64_t, uint64_t, const OrvikThreading* threading) {
  return orvik::ss::of_task<double>(task, threading);
}
int32_t _qorsSSWMedian(OrvikSSTask task, uint64_t, uint64_t, const OrvikThreading* threading) {
  return orvik::ss::of_task<float>(task, threading);
}
}
