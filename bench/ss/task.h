// Tasks of the benchmarks: every array that an estimator may want, over one matrix.
#pragma once

#include <random>
#include <vector>

#include "orvik/ss.h"

namespace orvik::bench {

inline std::vector<double> normal_values(int64_t count, uint64_t seed = 1) {
  std::mt19937_64 engine(seed);
  std::vector<double> x(count);
  // A sum of uniforms is near enough and quick to make.
  for (double& v : x) v = static_cast<double>(engine() >> 40) * 0x1p-24 + static_cast<double>(engine() >> 40) * 0x1p-24;
  return x;
}

class Task {
 public:
  Task(int64_t p, int64_t n, int64_t storage, const double* x) : p_(p), n_(n), storage_(storage) {
    __qordSSNewTask(&task_, &p_, &n_, &storage_, x, nullptr, nullptr, 1);
    rows_.assign(32, std::vector<double>(p));
    const int32_t ids[] = {7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18};
    for (int k = 0; k < 12; ++k) __qordSSEditTask(task_, ids[k], rows_[k].data());
    matrix_.resize(p * p);
    __qordSSEditTask(task_, OrvikSS_covariance, matrix_.data());
    __qoriSSEditTask(task_, OrvikSS_covarianceStorage, &full_);
    __qordSSEditTask(task_, OrvikSS_quantileOrders, &half_);
    __qoriSSEditTask(task_, OrvikSS_quantileOrderCount, &one_);
    __qordSSEditTask(task_, OrvikSS_quantiles, rows_[20].data());
  }
  ~Task() { __qorSSDeleteTask(&task_); }
  Task(const Task&) = delete;
  Task& operator=(const Task&) = delete;

  void basic(uint64_t estimates, uint64_t method, const OrvikThreading* threading = nullptr) {
    _qordSSBasic(task_, estimates, method, threading);
  }
  OrvikSSTask get() const { return task_; }

 private:
  int64_t p_, n_, storage_, full_ = 0, one_ = 1;
  double half_ = 0.5;
  std::vector<std::vector<double>> rows_;
  std::vector<double> matrix_;
  OrvikSSTask task_ = nullptr;
};

}  // namespace orvik::bench
