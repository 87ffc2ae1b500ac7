// Before and after the pass of a call for moments: the point of its deviations, what the run before has left, the
// results.
#pragma once

#include <algorithm>

#include "qor/ss/finish.h"
#include "qor/ss/finish_fast.h"
#include "qor/ss/finish_one_pass.h"
#include "qor/ss/finish_user_mean.h"

namespace orvik::ss {

// The point of a call: the mean so far, at first an observation that has weight, the heaviest of a few along the data:
// one that counts for nothing beside the others may lie anywhere, and their digits would be lost at its distance.
template <class T>
inline void find_point(const Task& task, const Data<T>& d, const Weights& old, T* to) {
  constexpr int64_t kFew = 8;
  int64_t i = 0;
  double weight = 1;
  if (const T* w = d.weights; w != nullptr) {
    while (i < d.n && w[i] == 0) ++i;
    for (int64_t k = i, step = std::max<int64_t>(1, d.n / kFew); k < d.n; k += step) i = w[k] > w[i] ? k : i;
    weight = i < d.n ? static_cast<double>(w[i]) : 0;
  }
  const bool observed = old.sum == 0 || weight > old.sum;
  for (int64_t j = 0; j < d.p; ++j) {
    if (!d.selected(j) || (observed && i == d.n)) continue;
    const T x = observed ? d.x[i * d.observation_step() + j * d.variable_step()] : real<T>(task.mean)[j];
    to[j] = finite_or_zero(x);
  }
}

// The accumulators take over what the run before has left.
template <class T, class S>
inline void seed(const Task& task, const Data<T>& d, const Plan& plan, const Weights& old, const T* old_mean,
                 Accumulators<T, S>* acc) {
  acc->weights = old;
  if (plan.method == Method::OnePass && old.sum != 0) seed_one_pass(task, d, plan, old, acc);
  if constexpr (!S::kOne) {
    if (!plan.matrix()) return;
    seed_matrix(task, d, plan, old, acc->cross.matrix());
    if (old.sum == 0 || plan.method == Method::OnePass) return;
    // What came before, about the point of this pass.
    const T* from = plan.method == Method::Fast ? real<T>(task.mean) : old_mean;
    if (from == nullptr) return;
    for (int64_t j = 0; j < d.p; ++j) acc->outer[j] = d.selected(j) ? from[j] - acc->shift[j] : T{0};
    acc->cross.add_outer(old.sum, acc->outer);
  }
}

template <class T, class S>
inline void finish(const Task& task, const Data<T>& d, const Plan& plan, const Weights& old, const T* old_mean,
                   const Accumulators<T, S>& acc) {
  if (S::kStates || plan.method == Method::OnePass) return finish_one_pass(task, d, plan, old, acc);
  if constexpr (!S::kStates) {
    plan.method == Method::Fast ? finish_fast(task, d, plan, old, acc)
                                : finish_user_mean(task, d, plan, old, acc, old_mean);
  }
}

}  // namespace orvik::ss
