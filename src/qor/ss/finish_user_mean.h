// Results of the user's mean. Where all weights are zero, sums are zero and moments no numbers.
#pragma once

#include "qor/ss/pass.h"
#include "qor/ss/results.h"

namespace orvik::ss {

// A central sum about `mean`, given one about `mean` + `delta` whose own first-order sum is zero.
inline double rebase(int k, double weight, double delta, const double* c) {
  switch (k) {
    case 2:
      return c[2] + weight * delta * delta;
    case 3:
      return c[3] + 3 * delta * c[2] + weight * delta * delta * delta;
    default:
      return c[4] + delta * (4 * c[3] + delta * (6 * c[2] + weight * delta * delta));
  }
}

// `old_mean` is the user's mean of the block before, null if there is none.
template <class T, class S>
inline void finish_user_mean(const Task& task, const Data<T>& d, const Plan& plan, const Weights& old,
                             const Accumulators<T, S>& acc, const T* old_mean) {
  const Results<T> rows(task, plan);
  const Weights& total = acc.weights;
  const bool running = old.sum != 0;
  const double factor = unbiased(total), old_factor = running ? unbiased(old) : 1.0;
  const int order = S::power(plan);
  for (int64_t j = 0; j < d.p; ++j) {
    if (!d.selected(j)) continue;
    const double mean = rows.get(kMean, j);
    double about[5] = {total.sum - old.sum, 0, 0, 0, 0}, s[5], r[5] = {}, before[5] = {}, sums[5] = {};
    for (int k = 1; k <= order; ++k) about[k] = acc.power[k - 1][j];
    plain_sums(acc.shift == nullptr ? 0.0 : mean, about, s);
    if (running) rows.add_run(j, old.sum, order, s);
    for (int k = 1; k <= order; ++k) r[k] = s[k] / total.sum;
    const double u = running && old_mean != nullptr ? static_cast<double>(old_mean[j]) : mean, delta = u - mean;
    const double held[5] = {1, u, rows.get(kRaw2, j), rows.get(kRaw3, j), rows.get(kRaw4, j)};
    bool raw = true;
    for (int k = 2; k <= order && running; ++k) {
      raw = raw && rows.has(kRaw2 + k - 2);
      if (rows.has(kCentralSum2 + k - 2)) {
        before[k] = rows.get(kCentralSum2 + k - 2, j);
      } else if (rows.has(kCentral2 + k - 2)) {
        before[k] = rows.get(kCentral2 + k - 2, j) * old.sum / (k == 2 ? old_factor : 1.0);
      } else if (raw && delta != 0) {
        before[k] = central_from_raw(k, u, held) * old.sum;  // what a higher order needs
      }
    }
    for (int k = 2; k <= order; ++k) {
      sums[k] = about[k] + (delta == 0 ? before[k] : rebase(k, old.sum, delta, before));
    }
    rows.put(j, order, mean, factor, s, r, sums, total.sum);
  }
}

}  // namespace orvik::ss
