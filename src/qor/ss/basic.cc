// Moments, sums, covariance: one call over a block of observations.
#include <algorithm>
#include <limits>
#include <utility>

#include "orvik/ss.h"
#include "qor/ss/finish.h"
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
  if (!work.allocate(d.p, d.n, false, matrix_only, 1, in_place != nullptr)) return kNoMemory;
  finish_held(task, d, plan, total);
  if (plan.matrix()) {
    T* cross = in_place != nullptr ? in_place : work.matrix();
    seed_matrix(task, d, plan, total, cross);
    finish_matrix(task, d, plan, total, cross, work.template row<T>());
  }
  return kDone;
}

// The mean of the block before under the user mean method; space for this block's.
template <class T>
int32_t reserve_mean_scratch(Task* task, int64_t p, const Weights& old, const T** old_mean) {
  if (task->meanScratch != nullptr) {
    *old_mean = old.sum != 0 ? static_cast<T*>(task->meanScratch) : nullptr;
    return kDone;
  }
  task->meanScratch = serv::Block<T>(static_cast<uint64_t>(p)).release();
  return task->meanScratch == nullptr ? kNoMemory : kDone;
}

// Threads over runs of observations: the first works from the seeded results, the others from nothing.
template <class T>
int32_t run(const Data<T>& d, const Plan& plan, int32_t threads, Accumulators<T>* parts,
            const OrvikThreading* threading) {
  const int64_t chunk = threads == 1 ? d.n : d.n / threads;
  const int32_t status = run_threads(threading, threads, [&](int32_t thread) {
    const int64_t begin = thread * chunk;
    const int64_t end = thread == threads - 1 ? d.n : begin + chunk;
    run_pass(d, plan, begin, end, parts + thread);
    return int32_t{kDone};
  });
  if (status != kDone) return status;
  for (int32_t k = 1; k < threads; ++k) merge(d.p, plan, parts, parts[k]);
  return kDone;
}

// The point of a call: the mean so far, at first the first observation that has weight.
template <class T>
void find_point(const Task& task, const Data<T>& d, const Weights& old, T* to) {
  int64_t i = 0;
  while (d.weights != nullptr && i < d.n && d.weights[i] == 0) ++i;
  for (int64_t j = 0; j < d.p; ++j) {
    if (!d.selected(j) || (old.sum == 0 && i == d.n)) continue;
    const T x = old.sum != 0 ? real<T>(task.mean)[j] : d.x[i * d.observation_step() + j * d.variable_step()];
    to[j] = finite_or_zero(x);
  }
}

// The accumulators take over what the run before has left.
template <class T>
void seed(const Task& task, const Data<T>& d, const Plan& plan, const Weights& old, const T* old_mean,
          Accumulators<T>* acc) {
  acc->weights = old;
  if (plan.method == Method::OnePass && old.sum != 0) seed_one_pass(task, d, plan, old, acc);
  if (!plan.matrix()) return;
  seed_matrix(task, d, plan, old, acc->cross.matrix());
  if (old.sum == 0 || plan.method == Method::OnePass) return;
  // What came before, about the point of this pass.
  const T* from = plan.method == Method::Fast ? real<T>(task.mean) : old_mean;
  if (from == nullptr) return;
  for (int64_t j = 0; j < d.p; ++j) acc->outer[j] = d.selected(j) ? from[j] - acc->shift[j] : T{0};
  acc->cross.add_outer(old.sum, acc->outer);
}

template <class T>
void finish(const Task& task, const Data<T>& d, const Plan& plan, const Weights& old, const T* old_mean,
            const Accumulators<T>& acc, T* scratch) {
  switch (plan.method) {
    case Method::Fast:
      finish_fast(task, d, plan, old, acc);
      break;
    case Method::OnePass:
      finish_one_pass(task, d, plan, old, acc);
      break;
    default:
      finish_user_mean(task, d, plan, old, acc, old_mean);
      break;
  }
  if (plan.matrix()) finish_matrix(task, d, plan, acc.weights, acc.cross.matrix(), scratch);
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
  const int32_t threads = pass_threads(d.p, d.n, plan.matrix(), threading);
  T* in_place = plan.matrix() ? matrix_in_place(task, d, plan) : nullptr;
  if (plan.matrix() && !serv::blas::load()) return kNoMemory;

  Workspace<T> work;
  if (!work.allocate(d.p, d.n, d.weights != nullptr, plan, threads, in_place != nullptr)) return kNoMemory;
  Accumulators<T> alone;
  serv::Block<Accumulators<T>> several;
  if (threads > 1) {
    several = serv::Block<Accumulators<T>>(static_cast<uint64_t>(threads));
    if (!several) return kNoMemory;
  }
  Accumulators<T>* const parts = threads > 1 ? several.get() : &alone;
  const bool user = plan.method == Method::UserMean && plan.has(kMean);
  const T* user_mean = user ? real<T>(task.mean) : nullptr;
  const T* old_mean = nullptr;
  const bool first_block = task.meanScratch == nullptr;
  if (user) {
    if (const int32_t status = reserve_mean_scratch(&task, d.p, old, &old_mean); status != kDone) return status;
  }

  T* const scratch = work.template row<T>();
  T* const point = work.template row<T>();
  work.share_out(plan, threads, in_place, parts);
  Accumulators<T>& first = parts[0];
  const T* shift = user_mean;
  if (plan.central != 0 || (plan.method == Method::Fast && plan.matrix())) {
    find_point(task, d, old, point);
    shift = point;
  }
  for (int32_t k = 0; k < threads; ++k) parts[k].shift = shift;
  seed(task, d, plan, old, old_mean, &first);
  if (const int32_t status = run(d, plan, threads, parts, threading); status != kDone) {
    if (first_block) orvik_serv_deallocate(std::exchange(task.meanScratch, nullptr));  // it holds no mean yet
    return status;
  }

  if (first.mean != nullptr) center_matrix(task, d, old, first);
  finish(task, d, plan, old, old_mean, first, scratch);
  if (user) std::copy(user_mean, user_mean + d.p, static_cast<T*>(task.meanScratch));
  if (T* held = real<T>(task.accumulatedWeights); held != nullptr) {
    held[0] = static_cast<T>(first.weights.sum);
    held[1] = static_cast<T>(first.weights.squares);
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
