// Tasks of the benchmarks: every array that an estimator may want, over one matrix.
#pragma once

#include <random>
#include <vector>

#include "orvik/ss.h"

namespace orvik::bench {

template <class T = double>
std::vector<T> normal_values(int64_t count, uint64_t seed = 1) {
  std::mt19937_64 engine(seed);
  std::vector<T> x(count);
  // A sum of uniforms is near enough and quick to make.
  for (T& v : x) {
    v = static_cast<T>(static_cast<double>(engine() >> 40) * 0x1p-24 + static_cast<double>(engine() >> 40) * 0x1p-24);
  }
  return x;
}

template <class T>
struct Entries;
#define ORVIK_BENCH_ENTRIES(d, real)                        \
  template <>                                               \
  struct Entries<real> {                                    \
    static constexpr auto new_task = __qor##d##SSNewTask;   \
    static constexpr auto edit = __qor##d##SSEditTask;      \
    static constexpr auto basic = _qor##d##SSBasic;         \
    static constexpr auto minmax = _qor##d##SSMinmax;       \
    static constexpr auto quantiles = _qor##d##SSQuantiles; \
    static constexpr auto mad = _qor##d##SSMAD;             \
  };
ORVIK_BENCH_ENTRIES(d, double)
ORVIK_BENCH_ENTRIES(s, float)
#undef ORVIK_BENCH_ENTRIES

template <class T>
class TaskOf {
 public:
  TaskOf(int64_t p, int64_t n, int64_t storage, const T* x, const T* weights = nullptr)
      : p_(p), n_(n), storage_(storage), weighted_(weights != nullptr) {
    Entries<T>::new_task(&task_, &p_, &n_, &storage_, x, weights, nullptr, 1);
    rows_.assign(32, std::vector<T>(p * 4));
    const int32_t ids[] = {7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 67, 68, 69, 70, 76, 77};
    for (int k = 0; k < 18; ++k) set(ids[k], rows_[k].data());
    matrix_.resize(p * p);
    set(OrvikSS_covariance, matrix_.data());
    __qoriSSEditTask(task_, OrvikSS_covarianceStorage, &full_);
    set_orders({T{0.5}});
    set(OrvikSS_quantiles, rows_[20].data());
    if (weighted_) set(OrvikSS_accumulatedWeights, accumulated_);
  }
  ~TaskOf() { __qorSSDeleteTask(&task_); }
  TaskOf(const TaskOf&) = delete;
  TaskOf& operator=(const TaskOf&) = delete;

  void set(int32_t id, const T* value) { Entries<T>::edit(task_, id, value); }
  // No more than four.
  void set_orders(std::vector<T> orders) {
    orders_ = std::move(orders);
    count_ = static_cast<int64_t>(orders_.size());
    set(OrvikSS_quantileOrders, orders_.data());
    __qoriSSEditTask(task_, OrvikSS_quantileOrderCount, &count_);
  }
  void basic(uint64_t estimates, uint64_t method, const OrvikThreading* threading = nullptr) {
    accumulated_[0] = 0;
    Entries<T>::basic(task_, estimates, method, threading);
  }
  OrvikSSTask get() const { return task_; }

 private:
  int64_t p_, n_, storage_, full_ = 0, count_ = 1;
  bool weighted_;
  T accumulated_[2] = {};
  std::vector<T> orders_;
  std::vector<std::vector<T>> rows_;
  std::vector<T> matrix_;
  OrvikSSTask task_ = nullptr;
};
using Task = TaskOf<double>;

}  // namespace orvik::bench
