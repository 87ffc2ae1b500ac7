// Sorts each variable of a task.
#include <algorithm>

#include "orvik/ss.h"
#include "qor/ss/by_variable.h"
#include "qor/ss/sort.h"

namespace orvik::ss {
namespace {

constexpr int64_t kForms = ORVIK_SS_STORAGE_ROWS | ORVIK_SS_STORAGE_COLUMNS;

int32_t check(const Task& task, uint64_t method) {
  if ((method & ORVIK_SS_METHOD_SORT) == 0) return kBadMethod;
  if (task.sortedObservations == nullptr) return missing_field::sortedObservations;
  if (task.sortedStorage == nullptr) return missing_field::sortedStorage;
  const int64_t form = task.integer(task.sortedStorage) & kForms;
  if (form == kForms) return kAmbiguousSorted;
  if (form == 0) return kBadStorage;
  if (const int32_t status = check_observations(task); status != kDone) return status;
  return check_storage(task);
}

template <class T>
int32_t sort_task(OrvikSSTask handle, uint64_t method, const OrvikThreading* threading) {
  if (handle == nullptr) return kNoTask;
  const Task& task = *static_cast<Task*>(handle);
  if (const int32_t status = check(task, method); status != kDone) return status;
  const Data<T> d = data_of<T>(task);
  const Observations<T> o(d);
  T* sorted = real<T>(task.sortedObservations);
  const bool rows = d.p == 1 || (task.integer(task.sortedStorage) & ORVIK_SS_STORAGE_ROWS) != 0;
  if (rows) {
    const Copying copying{.scratch = d.n, .copied = !d.contiguous_variables};
    return for_each_variable(o, d.flags, threading, copying, [&](int64_t j, const T* copy, T* scratch) {
      sort_to(d.n, d.contiguous_variables ? d.x + j * d.n : copy, sorted + j * d.n, scratch);
    });
  }
  const Copying copying{.scratch = d.n, .together = true};
  return for_each_neighbours(o, d.flags, threading, copying, [&](const Neighbours<T>& v) {
    for (int64_t k = 0; k < v.count; ++k) {
      if (v.selected(k)) sort_with_scratch(d.n, v.copy(k), v.scratch);
    }
    spread_neighbours(v, d.p, sorted);
  });
}

}  // namespace
}  // namespace orvik::ss

extern "C" {
int32_t _qordSSSort(OrvikSSTask task, uint64_t, uint64_t method, const OrvikThreading* threading) {
  return orvik::ss::sort_task<double>(task, method, threading);
}
int32_t _qorsSSSort(OrvikSSTask task, uint64_t, uint64_t method, const OrvikThreading* threading) {
  return orvik::ss::sort_task<float>(task, method, threading);
}
}
