// Weighted sums of powers of deviations from a point of each variable: the one pass that all methods are made of.
#pragma once

#include "qor/ss/plan.h"
#include "qor/ss/task.h"

namespace orvik::ss {

// m weights, m above zero.
template <class T>
Weights weigh(const T* w, int64_t m);

// Weights of the observations [i, i + m).
template <class T>
Weights weigh(const Data<T>& d, int64_t i, int64_t m) {
  const auto count = static_cast<double>(m);
  return d.weights == nullptr ? Weights{count, count, m} : weigh(d.weights + i, m);
}

// sums[k - 1][j] += sum of w (x - shift[j])^k, k = 1 to order, over the observations [i0, i1) of the variables [j0,
// j1). `shift` is null for plain sums. An observation of weight 0 counts for nothing, whatever it is. No more than
// some ten thousand observations at once: within a call sums are of the precision of the data.
template <class T>
void add_power_sums(const Data<T>& d, int64_t i0, int64_t i1, int64_t j0, int64_t j1, int order, const T* shift,
                    double* const sums[4]);

}  // namespace orvik::ss
