// Exact quantiles and order statistics of each variable.
#include <algorithm>
#include <cmath>

#include "orvik/ss.h"
#include "qor/ss/by_variable.h"
#include "qor/ss/sort.h"
#include "qor/ss/task.h"

namespace orvik::ss {
namespace {

template <class T>
bool are_orders(const T* orders, int64_t count) {
  return std::all_of(orders, orders + count, [](T q) { return q >= 0 && q <= 1; });
}

// Where an order lies between two ranks.
struct Place {
  int64_t low, high;
  double fraction;

  Place(double order, int64_t n) {
    const double f = order * static_cast<double>(n - 1);
    low = static_cast<int64_t>(f);
    high = std::min(low + 1, n - 1);
    fraction = f - std::floor(f);
  }
  template <class T>
  T between(T a, T b) const {
    return std::fma(b - a, static_cast<T>(fraction), a);
  }
};

// Selects ranks of one array one after another; each one narrows the search for the next.
template <class T>
class Selection {
 public:
  static constexpr int64_t kMaxOrders = 32;  // beyond, a full sort is faster

  Selection(T* a, int64_t n) : a_(a), numbers_(move_nans(a, n)) {}

  T quantile(const Place& place) {
    select_rank(place.low);
    const T low = a_[place.low];
    // The next rank is the least of those behind.
    if (place.high != place.low) {
      const int64_t next = next_placed(place.low);
      if (next != place.high) {
        int64_t least = place.high;
        for (int64_t i = place.high + 1; i < next; ++i) {
          if (a_[i] < a_[least]) least = i;
        }
        std::swap(a_[place.high], a_[least]);
        mark(place.high);
      }
    }
    return place.between(low, a_[place.high]);
  }

 private:
  void select_rank(int64_t k) {
    if (k >= numbers_) return;
    int64_t before = -1;
    for (int64_t i = 0; i < count_; ++i) {
      if (placed_[i] == k) return;
      if (placed_[i] < k) before = std::max(before, placed_[i]);
    }
    select(a_, before + 1, next_placed(k) - 1, k);
    mark(k);
  }
  // The least rank above k that is in place; NaNs are.
  int64_t next_placed(int64_t k) const {
    int64_t next = std::max(numbers_, k + 1);
    for (int64_t i = 0; i < count_; ++i) {
      if (placed_[i] > k) next = std::min(next, placed_[i]);
    }
    return next;
  }
  void mark(int64_t k) { placed_[count_++] = k; }

  T* a_;
  int64_t numbers_;
  int64_t placed_[2 * kMaxOrders];
  int64_t count_ = 0;
};

int32_t check(const Task& task, uint64_t estimates, uint64_t method, bool orders_in_range) {
  const bool quantiles = (estimates & ORVIK_SS_QUANTILES) != 0, sorted = (estimates & ORVIK_SS_ORDER_STATISTICS) != 0;
  if (quantiles && !orders_in_range) return kBadQuantileOrders;
  if (sorted) {
    if (task.orderStatistics == nullptr) return kNoOrderStatistics;
    if (task.orderStatisticsStorage == nullptr) return kNoStorage;
    if (!has_form(task.integer(task.orderStatisticsStorage))) return kBadStorage;
  }
  if (!quantiles && !sorted) return kBadMethod;
  if ((method & ORVIK_SS_METHOD_FAST) == 0) return kBadMethod;
  return check_observations(task);
}

int32_t check_quantile_fields(const Task& task) {
  if (task.quantiles == nullptr) return kNoQuantiles;
  if (task.quantileOrders == nullptr) return kNoQuantileOrders;
  return task.quantileOrderCount == nullptr || task.integer(task.quantileOrderCount) < 0 ? kBadQuantileOrders : kDone;
}

template <class T>
int32_t quantiles(OrvikSSTask handle, uint64_t estimates, uint64_t method, const OrvikThreading* threading) {
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
  T* results = real<T>(task.quantiles);
  auto from_sorted = [&](int64_t j, const T* a, int64_t step) {
    for (int64_t k = 0; k < count; ++k) {
      const Place place(orders[k], d.n);
      results[j * count + k] = place.between(a[place.low * step], a[place.high * step]);
    }
  };

  if ((estimates & ORVIK_SS_ORDER_STATISTICS) != 0) {
    T* sorted = real<T>(task.orderStatistics);
    const bool rows = d.p == 1 || (task.integer(task.orderStatisticsStorage) & ORVIK_SS_STORAGE_ROWS) != 0;
    return for_each_variable(d, threading, d.n, [&](int64_t j, T* scratch) {
      if (rows) {
        T* out = sorted + j * d.n;
        if (d.contiguous_variables && d.n >= kRadixCount && d.n <= INT32_MAX) {
          radix_sort(d.n, d.x + j * d.n, out, scratch);
        } else {
          copy_variable(d, j, out);
          sort_with_scratch(d.n, out, scratch);
        }
        return from_sorted(j, out, 1);
      }
      copy_variable(d, j, scratch);
      quicksort(scratch, move_nans(scratch, d.n));
      for (int64_t i = 0; i < d.n; ++i) sorted[i * d.p + j] = scratch[i];
      from_sorted(j, scratch, 1);
    });
  }
  if (count == 0) return kDone;
  return for_each_variable(d, threading, d.n, [&](int64_t j, T* scratch) {
    copy_variable(d, j, scratch);
    if (count > Selection<T>::kMaxOrders) {
      quicksort(scratch, move_nans(scratch, d.n));
      return from_sorted(j, scratch, 1);
    }
    Selection<T> selection(scratch, d.n);
    for (int64_t k = 0; k < count; ++k) results[j * count + k] = selection.quantile(Place(orders[k], d.n));
  });
}

}  // namespace
}  // namespace orvik::ss

extern "C" {
int32_t _qordSSQuantiles(OrvikSSTask task, uint64_t estimates, uint64_t method, const OrvikThreading* threading) {
  return orvik::ss::quantiles<double>(task, estimates, method, threading);
}
int32_t _qorsSSQuantiles(OrvikSSTask task, uint64_t estimates, uint64_t method, const OrvikThreading* threading) {
  return orvik::ss::quantiles<float>(task, estimates, method, threading);
}
}
