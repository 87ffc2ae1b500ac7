// What the tests of statistics share: the entries of either precision under one name, tasks over vectors, threads,
// data.
#pragma once

#include <cstdint>
#include <random>
#include <type_traits>
#include <vector>

#include "orvik/ss.h"
#include "support/threading.h"

namespace orvik::ss::test {

template <class T>
struct Entries;

#define ORVIK_TEST_ENTRIES(d, real)                                    \
  template <>                                                          \
  struct Entries<real> {                                               \
    static constexpr auto new_task = __qor##d##SSNewTask;              \
    static constexpr auto edit = __qor##d##SSEditTask;                 \
    static constexpr auto basic = _qor##d##SSBasic;                    \
    static constexpr auto minmax = _qor##d##SSMinmax;                  \
    static constexpr auto quantiles = _qor##d##SSQuantiles;            \
    static constexpr auto stream = _qor##d##SSStreamQuantiles;         \
    static constexpr auto mad = _qor##d##SSMAD;                        \
    static constexpr auto weighted_median = _qor##d##SSWMedian;        \
    static constexpr auto sort_task = _qor##d##SSSort;                 \
    static constexpr auto distance = _qor##d##SSMahDistance;           \
    static constexpr auto outliers = _qor##d##SSOutliersDetection;     \
    static constexpr auto robust = _qor##d##SSRobustCovariance;        \
    static constexpr auto missing = _qor##d##SSMissingValues;          \
    static constexpr auto pooled = _qor##d##SSPooledCovariance;        \
    static constexpr auto partial = _qor##d##SSPartialCovariance;      \
    static constexpr auto parametrize = _qor##d##SSCorParametrization; \
    static constexpr auto sort = __qor##d##QSort;                      \
    static constexpr auto sort_step = __qor##d##QSortStep;             \
    static constexpr auto select = __qor##d##QSortSelect;              \
  };
ORVIK_TEST_ENTRIES(d, double)
ORVIK_TEST_ENTRIES(s, float)
#undef ORVIK_TEST_ENTRIES

using orvik::test::threads;
inline const OrvikThreading* threads(int n) {
  static const OrvikThreading* const tables[] = {nullptr,      threads<1>(), threads<2>(), threads<3>(), threads<4>(),
                                                 threads<5>(), threads<6>(), threads<7>(), threads<8>()};
  return tables[n];
}

// A matrix of observations in both storages, with weights.
template <class T>
struct Sample {
  int64_t p, n;
  std::vector<T> rows;     // rows[j * n + i]
  std::vector<T> columns;  // columns[i * p + j]
  std::vector<T> weights;

  template <class Generator>
  Sample(int64_t p, int64_t n, Generator&& value) : p(p), n(n), rows(p * n), columns(p * n), weights(n) {
    std::mt19937_64 engine(20);
    for (int64_t i = 0; i < n; ++i) {
      for (int64_t j = 0; j < p; ++j) rows[j * n + i] = columns[i * p + j] = static_cast<T>(value(i, j));
      weights[i] = static_cast<T>(0.25 + static_cast<double>(engine() % 1000) / 500);
    }
  }
  T at(int64_t i, int64_t j) const { return rows[j * n + i]; }
};

// Skewed, correlated columns of different location.
template <class T>
Sample<T> random_sample(int64_t p, int64_t n, uint64_t seed = 1, double location = 1) {
  std::mt19937_64 engine(seed);
  std::exponential_distribution<double> exponential;
  std::normal_distribution<double> normal;
  double common = 0;
  return Sample<T>(p, n, [&](int64_t, int64_t j) {
    if (j == 0) common = normal(engine);
    return location * (1 + static_cast<double>(j % 7)) + exponential(engine) * (1 + static_cast<double>(j % 3)) +
           0.5 * common;
  });
}

// Integers of a task, in the width that it was made with.
class Integers {
 public:
  explicit Integers(bool wide) : wide_(wide) { values_.reserve(64); }
  const void* operator()(int64_t value) {
    values_.push_back(value);  // the low half comes first
    return &values_.back();
  }
  int32_t width() const { return wide_ ? 1 : 0; }

 private:
  bool wide_;
  std::vector<int64_t> values_;
};

// A task over a sample or a block of it; fields are set by id.
template <class T>
class TaskOver {
 public:
  explicit TaskOver(bool wide = false) : integers_(wide) {}
  ~TaskOver() {
    __qorSQuantilesFreeBuffers(task_);
    __qorSSDeleteTask(&task_);
  }
  TaskOver(const TaskOver&) = delete;
  TaskOver& operator=(const TaskOver&) = delete;

  int32_t make(int64_t p, int64_t n, int64_t storage, const T* x, const T* weights = nullptr,
               const int32_t* flags = nullptr) {
    return Entries<T>::new_task(&task_, integers_(p), integers_(n), integers_(storage), x, weights, flags,
                                integers_.width());
  }
  int32_t set(int32_t id, const T* value) { return Entries<T>::edit(task_, id, value); }
  int32_t set(int32_t id, const std::vector<T>& value) { return set(id, value.data()); }
  int32_t set_integer(int32_t id, int64_t value) { return __qoriSSEditTask(task_, id, integers_(value)); }
  OrvikSSTask get() const { return task_; }

 private:
  Integers integers_;
  OrvikSSTask task_ = nullptr;
};

}  // namespace orvik::ss::test
