// Results of the one-pass method, and what they are between the blocks of a run. Where all weights are zero, sums are
// zero and moments no numbers.
#pragma once

#include <algorithm>
#include <limits>

#include "qor/ss/pass.h"
#include "qor/ss/results.h"

namespace orvik::ss {

namespace one_pass {

inline void* central_sum_field(const Task& task, int k) { return output(task, kCentralSum2 + k - 2); }

// Where a running central sum that the pass needs lives between the blocks of a run.
enum class Home { Sum, Moment, Raw, Unasked, None };

inline Home home_of(const Task& task, const Plan& plan, int k) {
  if (plan.has(kCentralSum2 + k - 2)) return Home::Sum;
  if (plan.has(kCentral2 + k - 2)) return Home::Moment;
  bool raw = true;
  for (int i = 2; i <= k; ++i) raw = raw && plan.has(kRaw2 + i - 2);
  if (raw) return Home::Raw;
  return central_sum_field(task, k) != nullptr ? Home::Unasked : Home::None;
}

}  // namespace one_pass

// The running results of a task with `old` weights as accumulators.
template <class T, class S>
inline void seed_one_pass(const Task& task, const Data<T>& d, const Plan& plan, const Weights& old,
                          Accumulators<T, S>* acc) {
  const int order = plan.central;
  if (order == 0) return;
  const Results<T> rows(task, plan);
  const double factor = unbiased(old);
  for (int64_t j = 0; j < d.p; ++j) {
    if (!d.selected(j)) continue;
    const double m = rows.get(kMean, j);
    acc->central[0][j] = m - static_cast<double>(acc->shift[j]);
    const double r[5] = {1, m, rows.get(kRaw2, j), rows.get(kRaw3, j), rows.get(kRaw4, j)};
    for (int k = 2; k <= order; ++k) {
      double c = 0;
      switch (one_pass::home_of(task, plan, k)) {
        case one_pass::Home::Sum:
        case one_pass::Home::Unasked:
          c = real<T>(one_pass::central_sum_field(task, k))[j];
          break;
        case one_pass::Home::Moment:
          c = rows.get(kCentral2 + k - 2, j) * old.sum / (k == 2 ? factor : 1.0);
          break;
        case one_pass::Home::Raw:
          c = central_from_raw(k, m, r) * old.sum;
          break;
        case one_pass::Home::None:
          break;
      }
      acc->central[k - 1][j] = c;
    }
  }
}

template <class T, class S>
inline void finish_one_pass(const Task& task, const Data<T>& d, const Plan& plan, const Weights& old,
                            const Accumulators<T, S>& acc) {
  const Results<T> rows(task, plan);
  const Weights& total = acc.weights;
  const int power = S::power(plan), central = S::central(plan);
  const double factor = std::max(power, central) < 2 ? 1.0 : unbiased(total);
  T* unasked[5] = {};
  for (int k = 2; k <= plan.central; ++k) {
    if (one_pass::home_of(task, plan, k) == one_pass::Home::Unasked)
      unasked[k] = real<T>(one_pass::central_sum_field(task, k));
  }
  for (int64_t j = 0; j < d.p; ++j) {
    if (!d.selected(j)) continue;
    double s[5] = {total.sum - old.sum, 0, 0, 0, 0}, r[5] = {}, sums[5] = {}, c[5] = {};
    for (int k = 1; k <= power; ++k) s[k] = acc.power[k - 1][j];
    if (old.sum != 0) rows.add_run(j, old.sum, power, s);
    for (int k = 1; k <= power; ++k) r[k] = s[k] / total.sum;
    double mean = std::numeric_limits<double>::quiet_NaN();
    if (central != 0 && total.sum != 0) {
      mean = static_cast<double>(acc.shift[j]) + acc.central[0][j];
      for (int k = 2; k <= central; ++k) sums[k] = acc.central[k - 1][j];
    }
    if (power == 0) {
      for (int k = 2; k <= central; ++k) c[k] = sums[k] / total.sum, r[k] = raw_from_central(k, mean, c);
    }
    rows.set(kMean, j, mean);
    rows.put(j, std::max(power, central), mean, factor, s, r, sums, total.sum);
    for (int k = 2; k <= plan.central; ++k) {
      if (unasked[k] != nullptr) unasked[k][j] = static_cast<T>(sums[k]);
    }
  }
}

}  // namespace orvik::ss
