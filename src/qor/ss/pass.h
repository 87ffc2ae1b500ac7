// One pass over the data by one thread, and the merge of two threads' results.
#pragma once

#include "qor/ss/plan.h"
#include "qor/ss/task.h"

namespace orvik::ss {

// What a thread accumulates: rows of p values, null where the plan does not need them.
template <class T>
struct Accumulators {
  Weights weights;     // with the seed in the first thread
  T* power[4] = {};    // sums of powers of x, or of deviations from the user's mean; of the pass alone, never seeded
  T* central[4] = {};  // running mean and central sums
  T* cross = nullptr;  // p by p, upper triangle, column-major
  T* mean = nullptr;   // fast method with a matrix: the mean
};

// Number of rows that the plan needs.
inline int rows_of(const Plan& plan) {
  return plan.power_order() + plan.central_order() + (plan.matrix() && plan.method == Method::Fast ? 1 : 0);
}

// Feeds the observations [i0, i1). `user_mean` is the mean of the user mean method.
template <class T>
int32_t run_pass(const Data<T>& d, const Plan& plan, int64_t i0, int64_t i1, const T* user_mean, Accumulators<T>* acc);

// a += b. `b` is left without meaning.
template <class T>
void merge(const Data<T>& d, const Plan& plan, Accumulators<T>* a, const Accumulators<T>& b);

}  // namespace orvik::ss
