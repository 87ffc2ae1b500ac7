// Running mean and central sums, one observation at a time (West 1979; Pébay 2008 for orders 3 and 4).
#pragma once

#include "qor/ss/task.h"

namespace orvik::ss {

// Updates the central state of the variables [j0, j1) by the observations [i0, i1): state[0] the mean, state[k - 1] the
// weighted sum of the k-th powers of deviations, up to `order`. `weight` is the sum of the weights that the state
// already stands for; returns it with the new ones.
template <class T>
double update_central_sums(const Data<T>& d, int64_t i0, int64_t i1, int64_t j0, int64_t j1, int order, double weight,
                           T* const state[4]);

// Joins the states of `count` variables, `from` of weight b into `into` of weight a (Chan, Golub, LeVeque 1983; Pébay
// 2008 for orders 3 and 4).
template <class T>
void merge_central_sums(int64_t count, int order, double a, double b, T* const into[4], T* const from[4]);

}  // namespace orvik::ss
