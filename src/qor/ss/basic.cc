// Moments, sums, covariance: one call over a block of observations.
#include <algorithm>
#include <cstring>
#include <limits>

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
  const double sum = static_cast<double>(held[0]), squares = static_cast<double>(held[1]);
  // Rounded sums of one weight alone.
  const bool one = squares >= sum * sum * (1 - 4 * static_cast<double>(std::numeric_limits<T>::epsilon()));
  return {sum, squares, one ? 1 : 2};
}

template <class T>
int32_t count_threads(const Data<T>& d, const Plan& plan, const OrvikThreading* threading) {
  const double work =
      static_cast<double>(d.p) * static_cast<double>(d.n) * (plan.matrix() ? static_cast<double>(d.p) : 1.0) / 8192.0;
  const int64_t by_work = static_cast<int64_t>(std::min(work, 1e9));
  return static_cast<int32_t>(std::max<int64_t>(1, std::min({by_work, int64_t{max_threads(threading)}, d.n >> 4})));
}

// The rows of all threads, their matrices and the scratch of the matrix kernel in one block; few values live on the frame.
template <class T>
class Workspace {
 public:
  bool allocate(const Data<T>& d, const Plan& plan, int32_t threads, bool in_place) {
    p_ = d.p;
    n_ = d.n;
    weighted_ = d.weights != nullptr;
    const int64_t matrix = plan.matrix() ? d.p * d.p : 0;
    const int64_t scratch = plan.matrix() ? CrossProduct<T>::scratch_size(d.p, chunk(threads), weighted_) : 0;
    const int64_t cleared = threads * double_rows(plan) * bytes<double>(d.p) +
                            (threads * real_rows(plan) + 2) * bytes<T>(d.p) +
                            (in_place ? 0 : bytes<T>(matrix)) + bytes<T>((threads - 1) * matrix);
    const int64_t size = cleared + threads * bytes<T>(scratch);
    next_ = frame_;
    if (size > kFrame) {
      block_ = serv::Block<char>(static_cast<uint64_t>(size));
      if (!block_) return false;
      next_ = block_.get();
    }
    memset(next_, 0, static_cast<size_t>(cleared));
    return true;
  }

  // A row of p values.
  template <class V>
  V* row() {
    return take<V>(p_);
  }
  T* matrix() { return matrices(1); }
  T* matrices(int64_t count) { return take<T>(count * p_ * p_); }

  // All that is cleared is taken before any scratch.
  Accumulators<T> accumulators(const Plan& plan) {
    Accumulators<T> acc;
    const int power = plan.power_order(), central = plan.central_order();
    for (int k = 0; k < power; ++k) acc.power[k] = row<double>();
    for (int k = 0; k < central; ++k) acc.central[k] = row<double>();
    for (int k = 0; central != 0 && k < std::max(power, central); ++k) acc.block[k] = row<double>();
    if (central != 0) acc.pivot = row<T>();
    if (plan.matrix()) acc.outer = row<T>();
    if (plan.matrix() && plan.method == Method::Fast) acc.mean = row<double>();
    return acc;
  }
  CrossProduct<T> cross_product(T* matrix, int32_t threads) {
    T* scratch = take<T>(CrossProduct<T>::scratch_size(p_, chunk(threads), weighted_));
    return CrossProduct<T>(p_, chunk(threads), weighted_, matrix, scratch);
  }

 private:
  static constexpr int64_t kFrame = 4096, kLine = 64;

  // Observations of the longest run of a thread.
  int64_t chunk(int32_t threads) const { return n_ / threads + n_ % threads; }

  template <class V>
  static int64_t bytes(int64_t count) {
    return (count * static_cast<int64_t>(sizeof(V)) + 7) / 8 * 8;
  }
  template <class V>
  V* take(int64_t count) {
    V* const begin = reinterpret_cast<V*>(next_);
    next_ += bytes<V>(count);
    return begin;
  }

  alignas(kLine) char frame_[kFrame];
  serv::Block<char> block_;
  char* next_ = nullptr;
  int64_t p_ = 0, n_ = 0;
  bool weighted_ = false;
};

template <class T>
int32_t finish_only(const Task& task, const Plan& plan) {
  const Data<T> d = data_of<T>(task);
  Weights total = weights_so_far<T>(task);
  if (task.accumulatedWeights == nullptr) total = {static_cast<double>(d.n), static_cast<double>(d.n), d.n};
  Workspace<T> work;
  T* in_place = plan.matrix() ? matrix_in_place(task, d, plan) : nullptr;
  Plan matrix_only = plan;
  matrix_only.work &= 1u << kCovariance | 1u << kCorrelation | 1u << kCrossProduct;
  if (!work.allocate(d, matrix_only, 1, in_place != nullptr)) return kNoMemory;
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
int32_t run(const Data<T>& d, const Plan& plan, int32_t threads, Accumulators<T>* first, Accumulators<T>* others,
            const OrvikThreading* threading) {
  const int64_t chunk = d.n / threads;
  const int32_t status = run_threads(threading, threads, [&](int32_t thread) {
    const int64_t begin = thread * chunk;
    const int64_t end = thread == threads - 1 ? d.n : begin + chunk;
    run_pass(d, plan, begin, end, thread == 0 ? first : others + (thread - 1));
    return int32_t{kDone};
  });
  if (status != kDone) return status;
  for (int32_t k = 1; k < threads; ++k) merge(d.p, plan, first, others[k - 1]);
  return kDone;
}

// The first observation that has weight.
template <class T>
void first_observation(const Data<T>& d, T* to) {
  int64_t i = 0;
  while (d.weights != nullptr && i < d.n && d.weights[i] == 0) ++i;
  for (int64_t j = 0; i < d.n && j < d.p; ++j) to[j] = d.x[i * d.observation_step() + j * d.variable_step()];
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
  const int32_t threads = count_threads(d, plan, threading);
  T* in_place = plan.matrix() ? matrix_in_place(task, d, plan) : nullptr;
  if (plan.matrix() && !serv::blas::load()) return kNoMemory;

  Workspace<T> work;
  serv::Block<Accumulators<T>> others;
  if (!work.allocate(d, plan, threads, in_place != nullptr)) return kNoMemory;
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

  Accumulators<T> first = work.accumulators(plan);
  for (int32_t k = 1; k < threads; ++k) new (others.get() + k - 1) Accumulators<T>(work.accumulators(plan));
  T* const scratch = work.template row<T>();
  T* const point = work.template row<T>();
  first.shift = user_mean;
  if (plan.method == Method::Fast && plan.matrix()) {
    first_observation(d, point);
    first.shift = point;
  }
  if (plan.matrix()) {  // what is cleared comes before any scratch
    T* const own = in_place != nullptr ? in_place : work.matrix();
    T* const rest = work.matrices(threads - 1);
    first.cross = work.cross_product(own, threads);
    for (int32_t k = 1; k < threads; ++k) {
      others[k - 1].cross = work.cross_product(rest + (k - 1) * d.p * d.p, threads);
    }
  }
  for (int32_t k = 1; k < threads; ++k) others[k - 1].shift = first.shift;
  seed(task, d, plan, old, old_mean, &first);
  if (const int32_t status = run(d, plan, threads, &first, others.get(), threading); status != kDone) return status;

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
