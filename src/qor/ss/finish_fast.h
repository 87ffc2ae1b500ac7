// Results of the fast method. Where all weights are zero, sums are zero and moments no numbers.
#pragma once

#include "qor/ss/pass.h"
#include "qor/ss/results.h"

namespace orvik::ss {

template <class T, class S>
inline void finish_fast(const Task& task, const Data<T>& d, const Plan& plan, const Weights& old,
                        const Accumulators<T, S>& acc) {
  const Results<T> rows(task, plan);
  const Weights& total = acc.weights;
  const int order = S::power(plan);
  const double factor = order < 2 ? 1.0 : unbiased(total), pass = total.sum - old.sum;
  for (int64_t j = 0; j < d.p; ++j) {
    if (!d.selected(j)) continue;
    double s[5] = {pass}, r[5] = {}, sums[5] = {};
    for (int k = 1; k <= order; ++k) s[k] = acc.power[k - 1][j];
    // With a matrix the deviations are from a point, and so is the mean: it is exact where the variable does not vary.
    if (acc.shift != nullptr) {
      const double about[5] = {s[0], s[1], s[2], s[3], s[4]};
      plain_sums(static_cast<double>(acc.shift[j]), about, s);
    }
    if (old.sum != 0) rows.add_run(j, old.sum, order, s);
    for (int k = 1; k <= order; ++k) r[k] = s[k] / total.sum;
    double mean = r[1];
    if constexpr (!S::kOne) {
      if (acc.mean != nullptr) mean = acc.mean[j];
    }
    // One observation does not deviate from its mean; a mean that is no number still spreads.
    for (int k = 2; k <= order; ++k) {
      sums[k] = total.sum == 0 ? 0.0 : total.observations <= 1 ? mean - mean : central_from_raw(k, mean, r) * total.sum;
    }
    rows.set(kMean, j, mean);
    rows.put(j, order, mean, factor, s, r, sums, total.sum);
  }
}

}  // namespace orvik::ss
