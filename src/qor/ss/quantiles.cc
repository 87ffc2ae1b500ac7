// Exact quantiles and order statistics of each variable.
#include <algorithm>

#include "orvik/ss.h"
#include "qor/ss/by_variable.h"
#include "qor/ss/estimators.h"
#include "qor/ss/selection.h"

namespace orvik::ss {
namespace {

template <class T>
bool are_orders(const T* orders, int64_t count) {
  return std::all_of(orders, orders + count, [](T q) { return q >= 0 && q <= 1; });
}

int32_t check(const Task& task, uint64_t estimates, uint64_t method, bool orders_in_range) {
  const bool quantiles = (estimates & ORVIK_SS_QUANTILES) != 0, sorted = (estimates & ORVIK_SS_ORDER_STATISTICS) != 0;
  if (quantiles && !orders_in_range) return kBadQuantileOrders;
  if (sorted) {
    if (task.orderStatistics == nullptr) return missing_field::orderStatistics;
    if (task.orderStatisticsStorage == nullptr) return missing_field::orderStatisticsStorage;
    if (!has_form(task.integer(task.orderStatisticsStorage))) return kBadStorage;
  }
  if (!quantiles && !sorted) return kBadMethod;
  if ((method & ORVIK_SS_METHOD_FAST) == 0) return kBadMethod;
  return check_observations(task);
}

int32_t check_quantile_fields(const Task& task) {
  if (task.quantiles == nullptr) return missing_field::quantiles;
  if (task.quantileOrders == nullptr) return missing_field::quantileOrders;
  return task.quantileOrderCount == nullptr || task.integer(task.quantileOrderCount) < 0 ? kBadQuantileOrders : kDone;
}

template <class T>
int32_t of_task(OrvikSSTask handle, uint64_t estimates, uint64_t method, const OrvikThreading* threading) {
  if (handle == nullptr) return kNoTask;
  const Task& task = *static_cast<Task*>(handle);
  if (const int32_t status = check_storage(task); status != kDone) return status;
  int64_t count = 0;
  const T* orders = real<T>(task.quantileOrders);
  if ((estimates & ORVIK_SS_QUANTILES) != 0) {
    if (const int32_t status = check_quantile_fields(task); status != kDone) return status;
    count = task.integer(task.quantileOrderCount);
  }
  if (const int32_t status = check(task, estimates, method, are_orders(orders, count)); status != kDone) return status;

  const Data<T> d = data_of<T>(task);
  const Observations<T> o(d);
  T* results = real<T>(task.quantiles);
  auto from_sorted = [&](int64_t j, const T* a) {
    for (int64_t k = 0; k < count; ++k) {
      const Place place(orders[k], d.n);
      results[j * count + k] = place.between(a[place.low], a[place.high]);
    }
  };

  if ((estimates & ORVIK_SS_ORDER_STATISTICS) != 0) {
    T* sorted = real<T>(task.orderStatistics);
    const bool rows = d.p == 1 || (task.integer(task.orderStatisticsStorage) & ORVIK_SS_STORAGE_ROWS) != 0;
    if (rows) {
      const Copying copying{.scratch = d.n, .copied = !d.contiguous_variables};
      return for_each_variable(o, d.flags, threading, copying, [&](int64_t j, const T* copy, T* scratch) {
        T* out = sorted + j * d.n;
        sort_to(d.n, d.contiguous_variables ? d.x + j * d.n : copy, out, scratch);
        from_sorted(j, out);
      });
    }
    const Copying copying{.scratch = d.n, .together = true};
    return for_each_neighbours(o, d.flags, threading, copying, [&](const Neighbours<T>& v) {
      for (int64_t k = 0; k < v.count; ++k) {
        if (!v.selected(k)) continue;
        sort_with_scratch(d.n, v.copy(k), v.scratch);
        from_sorted(v.first + k, v.copy(k));
      }
      spread_neighbours(v, d.p, sorted);
    });
  }
  return quantiles(o, d.flags, count, orders, threading, results);
}

}  // namespace
}  // namespace orvik::ss

extern "C" {
int32_t _qordSSQuantiles(OrvikSSTask task, uint64_t estimates, uint64_t method, const OrvikThreading* threading) {
  return orvik::ss::of_task<double>(task, estimates, method, threading);
}
int32_t _qorsSSQuantiles(OrvikSSTask task, uint64_t estimates, uint64_t method, const OrvikThreading* threading) {
  return orvik::ss::of_task<float>(task, estimates, method, threading);
}
}
