// Moments, sums, covariance: one call over a block of observations.
#include <algorithm>

#include "orvik/ss.h"
#include "qor/ss/cross_product.h"
#include "qor/ss/finish.h"
#include "qor/ss/pass.h"
#include "qor/ss/plan.h"
#include "qor/ss/threads.h"
#include "serv/blas.h"
#include "serv/memory.h"

namespace orvik::ss {
namespace {

template <class T>
Weights weights_so_far(const Task& task) {
  const T* held = real<T>(task.accumulatedWeights);
  if (held == nullptr || held[0] == 0) return {};
  return {static_cast<double>(held[0]), static_cast<double>(held[1])};
}

template <class T>
int32_t count_threads(const Data<T>& d, const Plan& plan, const OrvikThreading* threading) {
  const double work =
      static_cast<double>(d.p) * static_cast<double>(d.n) * (plan.matrix() ? static_cast<double>(d.p) : 1.0) / 8192.0;
  const int64_t by_work = static_cast<int64_t>(std::min(work, 1e9));
  return static_cast<int32_t>(std::max<int64_t>(1, std::min({by_work, int64_t{max_threads(threading)}, d.n >> 4})));
}

// The rows of all threads, their matrices and the scratch row of the correlation in one block; few values live on the
// frame.
template <class T>
class Workspace {
 public:
  bool allocate(const Data<T>& d, const Plan& plan, int32_t threads, T* in_place) {
    const int64_t matrix = plan.matrix() ? d.p * d.p : 0;
    const int64_t rows = rows_of(plan);
    const int64_t size =
        threads * rows * d.p + (threads - (in_place != nullptr ? 1 : 0)) * matrix + (plan.matrix() ? d.p : 0);
    next_ = frame_;
    if (size > kFrame) {
      block_ = serv::Block<T>(static_cast<uint64_t>(size));
      if (!block_) return false;
      next_ = block_.get();
    }
    std::fill(next_, next_ + size, T{0});
    p_ = d.p;
    return true;
  }

  T* row() { return take(p_); }
  T* matrix() { return take(p_ * p_); }

  Accumulators<T> accumulators(const Plan& plan, T* in_place) {
    Accumulators<T> acc;
    for (int k = 0; k < plan.power_order(); ++k) acc.power[k] = row();
    for (int k = 0; k < plan.central_order(); ++k) acc.central[k] = row();
    if (plan.matrix()) {
      if (plan.method == Method::Fast) acc.mean = row();
      acc.cross = in_place != nullptr ? in_place : matrix();
    }
    return acc;
  }

 private:
  static constexpr int64_t kFrame = 512;

  T* take(int64_t count) {
    next_ += count;
    return next_ - count;
  }

  T frame_[kFrame];
  serv::Block<T> block_;
  T* next_ = nullptr;
  int64_t p_ = 0;
};

template <class T>
int32_t finish_only(const Task& task, const Plan& plan) {
  const Data<T> d = data_of<T>(task);
  Weights total = weights_so_far<T>(task);
  if (task.accumulatedWeights == nullptr) total = {static_cast<double>(d.n), static_cast<double>(d.n)};
  Workspace<T> work;
  T* in_place = plan.matrix() ? matrix_in_place(task, d, plan) : nullptr;
  Plan matrix_only = plan;
  matrix_only.work &= 1u << kCovariance | 1u << kCorrelation | 1u << kCrossProduct;
  if (!work.allocate(d, matrix_only, 1, in_place)) return kNoMemory;
  finish_held(task, d, plan, total);
  if (plan.matrix()) {
    T* cross = in_place != nullptr ? in_place : work.matrix();
    seed_matrix(task, d, plan, total, cross);
    finish_matrix(task, d, plan, total, cross, work.row());
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
int32_t run(const Data<T>& d, const Plan& plan, int32_t threads, const T* user_mean, Accumulators<T>* first,
            Accumulators<T>* others, const OrvikThreading* threading) {
  const int64_t chunk = d.n / threads;
  const int32_t status = run_threads(threading, threads, [&](int32_t thread) {
    const int64_t begin = thread * chunk;
    const int64_t end = thread == threads - 1 ? d.n : begin + chunk;
    return run_pass(d, plan, begin, end, user_mean, thread == 0 ? first : others + (thread - 1));
  });
  if (status < 0) return status;
  for (int32_t k = 1; k < threads; ++k) merge(d, plan, first, others[k - 1]);
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
  const int32_t threads = count_threads(d, plan, threading);
  T* in_place = plan.matrix() ? matrix_in_place(task, d, plan) : nullptr;
  if (plan.matrix() && !serv::blas::load()) return kNoMemory;

  Workspace<T> work;
  serv::Block<Accumulators<T>> others;
  if (!work.allocate(d, plan, threads, in_place)) return kNoMemory;
  if (threads > 1) {
    others = serv::Block<Accumulators<T>>(static_cast<uint64_t>(threads - 1));
    if (!others) return kNoMemory;
  }
  const bool user = plan.method == Method::UserMean && plan.has(kMean);
  const T* user_mean = user ? real<T>(task.mean) : nullptr;
  const T* old_mean = nullptr;
  if (user) {
    if (const int32_t status = reserve_mean_scratch(&task, d.p, old, &old_mean); status != kDone) return status;
  }

  Accumulators<T> first = work.accumulators(plan, in_place);
  for (int32_t k = 1; k < threads; ++k) new (others.get() + k - 1) Accumulators<T>(work.accumulators(plan, nullptr));
  T* scratch = plan.matrix() ? work.row() : nullptr;
  seed(task, d, plan, old, &first);
  if (plan.matrix()) {
    seed_matrix(task, d, plan, old, first.cross);
    if (old_mean != nullptr) {  // what came before, about the new mean
      for (int64_t j = 0; j < d.p; ++j) scratch[j] = d.selected(j) ? old_mean[j] - user_mean[j] : T{0};
      CrossProduct<T>(d, plan.method, first.cross).add_outer(old.sum, scratch);
    }
  }
  if (const int32_t status = run(d, plan, threads, user_mean, &first, others.get(), threading); status < 0)
    return status;

  finish(task, d, plan, old, first, old_mean);
  if (plan.matrix()) finish_matrix(task, d, plan, first.weights, first.cross, scratch);
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
