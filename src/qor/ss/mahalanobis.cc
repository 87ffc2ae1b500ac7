// Mahalanobis distances of observations.
#include "orvik/ss.h"
#include "qor/ss/estimators.h"

namespace orvik::ss {
namespace {

template <class T>
int32_t distances(OrvikSSTask handle, int64_t p, const T* inverse, T* results, const OrvikThreading* threading) {
  if (handle == nullptr) return kNoTask;
  const Task& task = *static_cast<Task*>(handle);
  if (p < 1) return kBadDimension;
  if (const int32_t status = check_observations(task); status != kDone) return status;
  if (const int32_t status = check_storage(task); status != kDone) return status;
  if (task.mean == nullptr) return missing_field::mean;
  Data<T> d = data_of<T>(task);
  d.p = p;
  return mahalanobis(Observations<T>(d), real<T>(task.mean), inverse, threading, results);
}

}  // namespace
}  // namespace orvik::ss

extern "C" {
int32_t _qordSSMahDistance(OrvikSSTask task, int64_t p, const double* inverse, double* results,
                           const OrvikThreading* threading) {
  return orvik::ss::distances(task, p, inverse, results, threading);
}
int32_t _qorsSSMahDistance(OrvikSSTask task, int64_t p, const float* inverse, float* results,
                           const OrvikThreading* threading) {
  return orvik::ss::distances(task, p, inverse, results, threading);
}
}
