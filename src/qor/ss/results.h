// The caller's rows as numbers in double: zero where the work list does not have the row, and nothing written.
#pragma once

#include <cmath>

#include "qor/ss/moments.h"
#include "qor/ss/plan.h"
#include "qor/ss/task.h"

namespace orvik::ss {

template <class T>
class Results {
 public:
  Results(const Task& task, const Plan& plan) : task_(task), work_(plan.work) {}

  bool has(int bit) const { return (work_ >> bit & 1) != 0; }
  double get(int bit, int64_t j) const { return has(bit) ? static_cast<double>(row(bit)[j]) : 0.0; }
  void set(int bit, int64_t j, double value) const {
    if (has(bit)) row(bit)[j] = static_cast<T>(value);
  }

  // Plain sums s[k] of a pass with those of the run before it; raw moments r[k] of all.
  void add_run(int64_t j, double old, int order, double* s) const {
    s[0] += old;
    s[1] += has(kSum) ? get(kSum, j) : old * get(kMean, j);
    for (int k = 2; k <= order; ++k) {
      s[k] += has(kRawSum2 + k - 2) ? get(kRawSum2 + k - 2, j) : old * get(kRaw2 + k - 2, j);
    }
  }

  // All rows of a variable but the mean, up to an order: plain sums, raw moments, central sums, and the averages c[k]
  // of powers of deviations from the mean.
  void put(int64_t j, int order, double mean, double factor, const double* s, const double* r, const double* sums,
           double weight) const {
    set(kSum, j, s[1]);
    if (order < 2) return;
    double c[5] = {};
    for (int k = 2; k <= order; ++k) {
      c[k] = sums[k] / weight * (k == 2 ? factor : 1.0);
      set(kRaw2 + k - 2, j, r[k]);
      set(kRawSum2 + k - 2, j, s[k]);
      set(kCentral2 + k - 2, j, c[k]);
      set(kCentralSum2 + k - 2, j, sums[k]);
    }
    put_ratios(j, mean, c);
  }

  // Coefficient of variation, skewness, kurtosis from the moments of orders 2 to 4.
  void put_ratios(int64_t j, double mean, const double* c) const {
    if (has(kVariation)) set(kVariation, j, std::sqrt(c[2]) / mean);
    if (has(kSkewness)) set(kSkewness, j, c[3] / std::sqrt(c[2] * c[2] * c[2]));
    if (has(kKurtosis)) set(kKurtosis, j, c[4] / (c[2] * c[2]) - 3.0);
  }

 private:
  T* row(int bit) const { return real<T>(output(task_, bit)); }

  const Task& task_;
  uint32_t work_;
};

}  // namespace orvik::ss
