// Median and mean absolute deviation.
#include <algorithm>
#include <cmath>

#include "orvik/ss.h"
#include "qor/ss/by_variable.h"
#include "qor/ss/selection.h"

namespace orvik::ss {
namespace {

constexpr int kChains = 16;

// The sum of what `value` makes of the elements, in several chains.
template <class T, class Value>
double sum_of(int64_t n, const T* a, Value&& value) {
  double s[kChains] = {};
  int64_t i = 0;
  for (; i + kChains <= n; i += kChains) {
    for (int k = 0; k < kChains; ++k) s[k] += value(a[i + k]);
  }
  for (; i < n; ++i) s[0] += value(a[i]);
  for (int half = kChains / 2; half > 0; half /= 2) {
    for (int k = 0; k < half; ++k) s[k] += s[k + half];
  }
  return s[0];
}

constexpr int kTogether = 16;  // neighbouring variables, whose values come with the same reads

// The same sums of neighbouring variables of contiguous observations, value(x, j) of element x of the j-th.
template <class T, class Value>
void sums_of(int64_t n, const T* x, int64_t p, int64_t together, Value&& value, double* sums) {
  double s[kChains][kTogether] = {};
  const auto add = [&](double* to, const T* row) __attribute__((always_inline)) {
    if (together == kTogether) {
      for (int j = 0; j < kTogether; ++j) to[j] += value(row[j], j);
    } else {
      for (int j = 0; j < together; ++j) to[j] += value(row[j], j);
    }
  };
  int64_t i = 0;
  for (; i + kChains <= n; i += kChains) {
    for (int k = 0; k < kChains; ++k) add(s[k], x + (i + k) * p);
  }
  for (; i < n; ++i) add(s[0], x + i * p);
  for (int half = kChains / 2; half > 0; half /= 2) {
    for (int k = 0; k < half; ++k) {
      for (int j = 0; j < kTogether; ++j) s[k][j] += s[k + half][j];
    }
  }
  std::copy(s[0], s[0] + together, sums);
}

template <class T>
T mean(int64_t n, const T* a) {
  return static_cast<T>(sum_of(n, a, [](T x) { return static_cast<double>(x); }) / static_cast<double>(n));
}

int32_t check(const Task& task, bool median, bool mean, uint64_t method) {
  if ((method & ORVIK_SS_METHOD_FAST) == 0) return kBadMethod;
  if (task.dimension == nullptr || task.p() < 1) return kBadDimension;
  if (const int32_t status = check_observations(task); status != kDone) return status;
  if (const int32_t status = check_storage(task); status != kDone) return status;
  if (median && task.medianAbsDeviation == nullptr) return missing_field::medianAbsDeviation;
  if (mean && task.meanAbsDeviation == nullptr) return missing_field::meanAbsDeviation;
  if (mean && (method & ORVIK_SS_METHOD_USER_MEAN) != 0 && task.mean == nullptr) return missing_field::mean;
  return median || mean ? kDone : kBadMethod;
}

// Mean deviations of contiguous observations, with no variable's copy made.
template <class T>
int32_t mean_deviations(const Data<T>& d, const T* given, const OrvikThreading* threading, T* results) {
  const int64_t groups = (d.p + kTogether - 1) / kTogether;
  const auto threads = static_cast<int32_t>(std::min<int64_t>(max_threads(threading), groups));
  return run_threads(threading, threads, [&](int32_t thread) {
    for (int64_t g = groups * thread / threads; g < groups * (thread + 1) / threads; ++g) {
      const int64_t first = g * kTogether, together = std::min<int64_t>(kTogether, d.p - first);
      const T* x = d.x + first;
      double sums[kTogether];
      T m[kTogether] = {};
      if (given != nullptr) {
        std::copy(given + first, given + first + together, m);
      } else {
        sums_of(
            d.n, x, d.p, together, [](T v, int) { return static_cast<double>(v); }, sums);
        for (int64_t j = 0; j < together; ++j) m[j] = static_cast<T>(sums[j] / static_cast<double>(d.n));
      }
      sums_of(
          d.n, x, d.p, together, [&](T v, int j) { return static_cast<double>(std::fabs(v - m[j])); }, sums);
      for (int64_t j = 0; j < together; ++j) {
        if (d.selected(first + j)) results[first + j] = static_cast<T>(sums[j] / static_cast<double>(d.n));
      }
    }
    return int32_t{kDone};
  });
}

template <class T>
int32_t mad(OrvikSSTask handle, uint64_t estimates, uint64_t method, const OrvikThreading* threading) {
  if (handle == nullptr) return kNoTask;
  const Task& task = *static_cast<Task*>(handle);
  const bool by_median = (estimates & ORVIK_SS_MEDIAN_ABS_DEVIATION) != 0;
  const bool by_mean = (estimates & ORVIK_SS_MEAN_ABS_DEVIATION) != 0;
  if (const int32_t status = check(task, by_median, by_mean, method); status != kDone) return status;
  const Data<T> d = data_of<T>(task);
  const Observations<T> o(d);
  const T* given = (method & ORVIK_SS_METHOD_USER_MEAN) != 0 ? real<T>(task.mean) : nullptr;
  if (!by_median && !d.contiguous_variables) {
    return mean_deviations(d, given, threading, real<T>(task.meanAbsDeviation));
  }
  return for_each_variable(o, d.flags, threading, {}, [&](int64_t j, T* a, T*) {
    if (by_mean) {
      const T m = given != nullptr ? given[j] : mean(d.n, a);
      const double sum = sum_of(d.n, a, [m](T x) { return static_cast<double>(std::fabs(x - m)); });
      real<T>(task.meanAbsDeviation)[j] = static_cast<T>(sum / static_cast<double>(d.n));
    }
    if (by_median) {
      real<T>(task.medianAbsDeviation)[j] = median_deviation<T>(d.n, a, nullptr);
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
