// Before and after the pass of a call for moments: the point of its deviations, what the run before has left, the
// results.
#pragma once

#include "qor/ss/finish.h"
#include "qor/ss/finish_fast.h"
#include "qor/ss/finish_one_pass.h"
#include "qor/ss/finish_user_mean.h"

namespace orvik::ss {

// The point of a call: the mean so far, at first the first observation that has weight.
template <class T>
inline void find_point(const Task& task, const Data<T>& d, const Weights& old, T* to) {
  int64_t i = 0;
  while (d.weights != nullptr && i < d.n && d.weights[i] == 0) ++i;
  for (int64_t j = 0; j < d.p; ++j) {
    if (!d.selected(j) || (old.sum == 0 && i == d.n)) continue;
    const T x = old.sum != 0 ? real<T>(task.mean)[j] : d.x[i * d.observation_step() + j * d.variable_step()];
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
