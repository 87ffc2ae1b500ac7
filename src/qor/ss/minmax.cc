// Extremes of each variable. The caller's arrays hold the starting values.
#include <limits>

#include "orvik/ss.h"
#include "qor/ss/extremes.h"
#include "qor/ss/segment.h"
#include "qor/ss/wide_rows.h"
#include "serv/registers.h"

namespace orvik::ss {
namespace {

template <class T>
void take_lanes(const Extremes<T>& e, int64_t j, const Result<T>& result) {
  constexpr int kLanes = kWidth<VectorOf<T>>;
  T low[kLanes], high[kLanes];
  store(low, e.low);
  store(high, e.high);
  const bool nan = lane_bits(sign_decides(e.nan)) != 0;
  for (int lane = 0; lane < kLanes; ++lane) result.take(j, low[lane], high[lane], nan);
}

template <class T>
void scan_contiguous(int64_t n, const T* x, int64_t j, const Result<T>& result) {
  using V = VectorOf<T>;
  constexpr int kCount = 4;
  Extremes<T> e[kCount];
  const auto vector = [&](int64_t i, auto r) __attribute__((always_inline)) { e[r].take(load<V>(x + i)); };
  for_streams<V, kCount, 1>(n, vector, vector, [&](int64_t i, int64_t lanes) {
    for (int64_t k = i; k < i + lanes; ++k) result.take(j, x[k], x[k], x[k] != x[k]);
  });
  for (int r = 1; r < kCount; ++r) e[0].take(e[r]);
  take_lanes(e[0], j, result);
}

template <class T>
int32_t minmax(OrvikSSTask handle, uint64_t estimates, uint64_t method) {
  if (handle == nullptr) return kNoTask;
  const Task& task = *static_cast<Task*>(handle);
  const bool low = (estimates & ORVIK_SS_MINIMUM) != 0, high = (estimates & ORVIK_SS_MAXIMUM) != 0;
  if (low && task.minimum == nullptr) return missing_field::minimum;
  if (high && task.maximum == nullptr) return missing_field::maximum;
  if ((method & (ORVIK_SS_METHOD_FAST | ORVIK_SS_METHOD_ONE_PASS)) == 0) return kBadMethod;
  if (const int32_t status = check_storage(task); status != kDone) return status;
  if (const int32_t status = check_observations(task); status != kDone) return status;

  const Data<T> d = data_of<T>(task);
  const Result<T> result{d, low ? real<T>(task.minimum) : nullptr, high ? real<T>(task.maximum) : nullptr};
  for_selected_ranges(d, [&](int64_t j0, int64_t j1) {
    if (!d.contiguous_variables) {
#if ORVIK_WIDE_REGISTERS
      if (serv::wide_registers && wide_extremes_pay(d, d.n, j0, j1)) return wide_row_extremes(d, j0, j1, result);
#endif
      return scan_observations(d, j0, j1, result);
    }
    for (int64_t j = j0; j < j1; ++j) scan_contiguous(d.n, d.x + j * d.n, j, result);
  });
  return kDone;
}

}  // namespace
}  // namespace orvik::ss

extern "C" {
int32_t _qordSSMinmax(OrvikSSTask task, uint64_t estimates, uint64_t method) {
  return orvik::ss::minmax<double>(task, estimates, method);
}
int32_t _qorsSSMinmax(OrvikSSTask task, uint64_t estimates, uint64_t method) {
  return orvik::ss::minmax<float>(task, estimates, method);
}
}
