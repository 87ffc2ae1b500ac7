// The kernels' statistics by element type, and a task that deletes itself.
#pragma once

#include <cstdint>
#include <type_traits>

#include "front/handles.h"
#include "front/math/extents.h"
#include "front/modes.h"
#include "front/pool.h"
#include "front/processor.h"
#include "orvik/ss.h"

namespace orvik::front {

template <class T>
struct Statistics;
#define ORVIK_FRONT_KERNELS(T, d, bits)                                    \
  template <>                                                              \
  struct Statistics<T> {                                                   \
    static constexpr Kind kSummary = Kind::kSummary##bits;                 \
    static constexpr Kind kStreamQuantiles = Kind::kStreamQuantiles##bits; \
    static constexpr auto new_task = __qor##d##SSNewTask;                  \
    static constexpr auto edit = __qor##d##SSEditTask;                     \
    static constexpr auto edit_sums = __qor##d##SSEditSums;                \
    static constexpr auto basic = _qor##d##SSBasic;                        \
    static constexpr auto minmax = _qor##d##SSMinmax;                      \
    static constexpr auto quantiles = _qor##d##SSQuantiles;                \
    static constexpr auto stream_quantiles = _qor##d##SSStreamQuantiles;   \
    static constexpr auto save_streams = orvik_ss_##d##_save_streams;      \
    static constexpr auto load_streams = orvik_ss_##d##_load_streams;      \
    static constexpr auto mad = _qor##d##SSMAD;                            \
    static constexpr auto weighted_median = _qor##d##SSWMedian;            \
    static constexpr auto sort = _qor##d##SSSort;                          \
    static constexpr auto outliers = _qor##d##SSOutliersDetection;         \
    static constexpr auto robust_covariance = _qor##d##SSRobustCovariance; \
  };
ORVIK_FRONT_KERNELS(double, d, 64)
ORVIK_FRONT_KERNELS(float, s, 32)
#undef ORVIK_FRONT_KERNELS

// A kernel's task over the caller's data. Integers have 64 bits and live here.
template <class T>
class Task {
 public:
  using S = Statistics<T>;
  Task() = default;
  ~Task() {
    if (task_ != nullptr) __qorSSDeleteTask(&task_);
  }
  Task(const Task&) = delete;
  Task& operator=(const Task&) = delete;

  int32_t make(int64_t p, int64_t n, int32_t layout, const T* x, const T* weights = nullptr) {
    p_ = p, n_ = n, storage_ = storage_of(layout);
    return S::new_task(&task_, &p_, &n_, &storage_, x, weights, nullptr, 1);
  }
  static int64_t storage_of(int32_t layout) {
    return layout == ORVIK_ROWS ? ORVIK_SS_STORAGE_ROWS : ORVIK_SS_STORAGE_COLUMNS;
  }
  // Fields; the first failure stays.
  Task& set(int32_t id, const T* values) {
    if (status_ == 0) status_ = S::edit(task_, id, values);
    return *this;
  }
  Task& set_central_sums(T* mean, T* second, T* third, T* fourth) {
    if (status_ == 0) status_ = S::edit_sums(task_, nullptr, nullptr, nullptr, nullptr, second, third, fourth);
    return set(OrvikSS_mean, mean);
  }
  Task& set_integer(int32_t id, const int64_t* value) {
    if (status_ == 0) status_ = __qoriSSEditTask(task_, id, value);
    return *this;
  }
  void set_data(int64_t n, int32_t layout, const T* x) {
    n_ = n, storage_ = storage_of(layout);
    set(OrvikSS_observations, x);
  }
  int32_t status() const { return status_; }
  OrvikSSTask get() const { return task_; }

 private:
  OrvikSSTask task_ = nullptr;
  int64_t p_ = 0, n_ = 0, storage_ = 0;
  int32_t status_ = 0;
};

// The front's pool as the kernels' threads, on which no bit of their results depends.
extern const OrvikThreading kThreading;

// Data of n observations of p variables: negative counts, and products that fit in no memory, are bad lengths.
orvik_status check_data(int64_t n, int64_t p, const void* x, int32_t layout, int32_t bytes);
// The checks that estimators of arrays have in common; results are `rows` times `columns` elements.
template <class T>
orvik_status check_call(int64_t n, int64_t p, const T* x, int32_t layout, const void* r, int64_t rows, int64_t columns,
                        int64_t bytes = sizeof(T)) {
  if (const orvik_status status = check_data(n, p, x, layout, sizeof(T)); status != ORVIK_SUCCESS) return status;
  if (n == 0 || columns < 0 || (columns > 0 && rows > kAddressSpace / 8 / columns)) return ORVIK_ERROR_BAD_LENGTH;
  if (columns > 0 && r == nullptr) return ORVIK_ERROR_NULL_POINTER;
  return meet(x, n * p * static_cast<int64_t>(sizeof(T)), r, rows * columns * bytes) ? ORVIK_ERROR_OVERLAP
                                                                                     : ORVIK_SUCCESS;
}

template <class T>
bool orders_sound(int64_t m, const T* orders) {
  for (int64_t k = 0; k < m; ++k) {
    if (!(orders[k] >= 0 && orders[k] <= 1)) return false;
  }
  return true;
}

// Memory of the kernels is the front's.
inline orvik_status memory_status(int32_t status) { return status == -4000 ? ORVIK_ERROR_NO_MEMORY : status; }

}  // namespace orvik::front
