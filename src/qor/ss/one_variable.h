// A call for moments of one variable in one chunk.
#pragma once

#include "qor/ss/plan.h"
#include "qor/ss/task.h"

namespace orvik::ss {

// The plan has an order above 0 and no matrix. `user_mean` and `old_mean` are the user's means of this block and of the
// one before, null if there are none. Returns the sums of weights.
template <class T>
Weights run_one(const Task& task, const Data<T>& d, const Plan& plan, const Weights& old, const T* user_mean,
                const T* old_mean);

}  // namespace orvik::ss
