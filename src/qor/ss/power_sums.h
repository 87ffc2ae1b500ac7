// Weighted sums of powers of x, or of deviations from a given point: the pass of the fast and of the user mean method.
#pragma once

#include "qor/ss/task.h"

namespace orvik::ss {

// sums[k - 1][j] += sum of w (x - shift[j])^k, k = 1 to order, over the observations [i0, i1) of the variables [j0,
// j1). `shift` is null for plain sums.
template <class T>
void add_power_sums(const Data<T>& d, int64_t i0, int64_t i1, int64_t j0, int64_t j1, int order, const T* shift,
                    T* const sums[4]);

}  // namespace orvik::ss
