// From what a pass has accumulated, or from what the task holds, to the caller's results. For what depends on the
// method of the pass: finish_fast.h, finish_one_pass.h, finish_user_mean.h.
#pragma once

#include "qor/ss/pass.h"
#include "qor/ss/plan.h"
#include "qor/ss/task.h"

namespace orvik::ss {

// The fast method's mean, and its matrix about it.
template <class T>
void center_matrix(const Task& task, const Data<T>& d, const Weights& old, const Accumulators<T>& acc);

// Derives results from the sums that the task holds.
template <class T>
void finish_held(const Task& task, const Data<T>& d, const Plan& plan, const Weights& total);

// Which of the matrices asked for can be accumulated in place: full storage, all variables selected. Null if none.
template <class T>
T* matrix_in_place(const Task& task, const Data<T>& d, const Plan& plan);

// Starts the p by p accumulator (upper triangle, column-major) from the task's matrices, or from zero.
template <class T>
void seed_matrix(const Task& task, const Data<T>& d, const Plan& plan, const Weights& old, T* cross);

// Writes covariance, correlation and cross-product from the accumulator, which may be one of them. `scratch` has p
// values.
template <class T>
void finish_matrix(const Task& task, const Data<T>& d, const Plan& plan, const Weights& total, T* cross, T* scratch);

}  // namespace orvik::ss
