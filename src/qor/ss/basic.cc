// Moments, sums, covariance: one call over a block of observations.
#include <algorithm>
#include <limits>
#include <utility>

#include "orvik/ss.h"
#include "qor/ss/call.h"
#include "qor/ss/one_variable.h"
#include "qor/ss/plan.h"
#include "qor/ss/workspace.h"
#include "serv/blas.h"
#include "serv/memory.h"

namespace orvik::ss {
namespace {

template <class T>
Weights weights_so_far(const Task& task) {
  const T* held = real<T>(task.accumulatedWeights);
  if (held == nullptr || held[0] == 0) return {};
  const double sum = static_cast<double>(held[0]), squares = static_cast<double>(held[1]);
  // Rounded sums of one weight alone.
  const bool one = squares >= sum * sum * (1 - 4 * static_cast<double>(std::numeric_limits<T>::epsilon()));
  return {sum, squares, one ? 1 : 2};
}

template <class T>
int32_t finish_only(const Task& task, const Plan& plan) {
  const Data<T> d = data_of<T>(task);
  Weights total = weights_so_far<T>(task);
  if (task.accumulatedWeights == nullptr) total = {static_cast<double>(d.n), static_cast<double>(d.n), d.n};
  Workspace<T> work;
  T* in_place = plan.matrix() ? matrix_in_place(task, d, plan) : nullptr;
  Plan matrix_only = plan;
  matrix_only.work &= 1u << kCovariance | 1u << kCorrelation | 1u << kCrossProduct;
  if (!work.allocate(d.p, false, matrix_only, Shares(d.n), in_place != nullptr)) return kNoMemory;
  finish_held(task, d, plan, total);
  if (plan.matrix()) {
    T* cross = in_place != nullptr ? in_place : work.matrix();
    seed_matrix(task, d, plan, total, cross);
    finish_matrix(task, d, plan, total, cross, work.template row<T>());
  }
  return kDone;
}

bool has_mean_scratch(const Task& task, int64_t p) {
  return task.meanScratch != nullptr && task.meanScratchVariables >= p;
}

// The mean of the block before under the user mean method; space for this block's.
template <class T>
int32_t reserve_mean_scratch(Task* task, int64_t p, const Weights& old, const T** old_mean) {
  if (has_mean_scratch(*task, p)) {
    *old_mean = old.sum != 0 ? static_cast<T*>(task->meanScratch) : nullptr;
    return kDone;
  }
  orvik_serv_deallocate(task->meanScratch);  // of fewer variables
  task->meanScratch = serv::Block<T>(static_cast<uint64_t>(p)).release();
  task->meanScratchVariables = p;
  return task->meanScratch == nullptr ? kNoMemory : kDone;
}

// A pass whose deviations are from `shift`. `total` gets the sums of weights.
template <class T>
int32_t run_many(const Task& task, const Data<T>& d, const Plan& plan, const Shares& shares, const Weights& old,
                 const T* user_mean, const T* old_mean, const OrvikThreading* threading, Weights* total) {
  T* const in_place = plan.matrix() ? matrix_in_place(task, d, plan) : nullptr;
  Workspace<T> work;
  if (!work.allocate(d.p, d.weights != nullptr, plan, shares, in_place != nullptr)) return kNoMemory;
  Accumulators<T> alone;
  serv::Block<Accumulators<T>> several;
  if (shares.sets > 1) {
    several = serv::Block<Accumulators<T>>(static_cast<uint64_t>(shares.sets));
    if (!several) return kNoMemory;
  }
  Accumulators<T>* const parts = shares.sets > 1 ? several.get() : &alone;

  T* const scratch = work.template row<T>();
  T* const point = work.template row<T>();
  work.share_out(plan, shares, in_place, parts);
  Accumulators<T>& first = parts[0];
  const T* shift = user_mean;
  if (plan.central != 0 || (plan.method == Method::Fast && plan.matrix())) {
    find_point(task, d, old, point);
    shift = point;
  }
  for (int32_t k = 0; k < shares.sets; ++k) parts[k].shift = shift;
  seed(task, d, plan, old, old_mean, &first);
  const int32_t status =
      run_chunks(shares, d.p, plan, threading, parts,
                 [&](int32_t, int64_t i, int64_t end, Accumulators<T>* acc) { run_pass(d, plan, i, end, acc); });
  if (status != kDone) return status;
  if (first.mean != nullptr) center_matrix(task, d, old, first);
  finish(task, d, plan, old, old_mean, first);
  if (plan.matrix()) finish_matrix(task, d, plan, first.weights, first.cross.matrix(), scratch);
  *total = first.weights;
  return kDone;
}

template <class T>
int32_t basic(OrvikSSTask handle, uint64_t estimates, uint64_t method, const OrvikThreading* threading) {
  if (handle == nullptr) return kNoTask;
  Task& task = *static_cast<Task*>(handle);
  Plan plan;
  if (const int32_t status = make_plan(task, estimates, method, &plan); status != kDone) return status;
  if (plan.work == 0) return kDone;
  if (plan.method == Method::Finish) return finish_only<T>(task, plan);

  const Data<T> d = data_of<T>(task);
  const Weights old = weights_so_far<T>(task);
  const Shares shares(d.p, d.n, plan.matrix(), threading);
  if (plan.matrix() && !serv::blas::load()) return kNoMemory;
  const bool user = plan.method == Method::UserMean && plan.has(kMean);
  const T* user_mean = user ? real<T>(task.mean) : nullptr;
  const T* old_mean = nullptr;
  const bool first_block = !has_mean_scratch(task, d.p);
  if (user) {
    if (const int32_t status = reserve_mean_scratch(&task, d.p, old, &old_mean); status != kDone) return status;
  }
  Weights total;
  const bool one = d.p == 1 && d.selected(0) && !plan.matrix() && shares.sets == 1 && plan.order() != 0;
  if (one) {
    total = run_one(task, d, plan, old, user_mean, old_mean);
  } else if (const int32_t status = run_many(task, d, plan, shares, old, user_mean, old_mean, threading, &total);
             status != kDone) {
    if (user && first_block) orvik_serv_deallocate(std::exchange(task.meanScratch, nullptr));  // it holds no mean yet
    return status;
  }
  if (user) std::copy(user_mean, user_mean + d.p, static_cast<T*>(task.meanScratch));
  if (T* held = real<T>(task.accumulatedWeights); held != nullptr) {
    held[0] = static_cast<T>(total.sum);
    held[1] = static_cast<T>(total.squares);
  }
  return kDone;
}

}  // namespace
}  // namespace orvik::ss

extern "C" {
int32_t _qordSSBasic(OrvikSSTask task, uint64_t estimates, uint64_t method, const OrvikThreading* threading) {
  return orvik::ss::basic<double>(task, estimates, method, threading);
}
int32_t _qorsSSBasic(OrvikSSTask task, uint64_t estimates, uint64_t method, const OrvikThreading* threading) {
  return orvik::ss::basic<float>(task, estimates, method, threading);
}
}
