// Extremes of each variable. The caller's arrays hold the starting values.
#include <algorithm>
#include <limits>

#include "orvik/ss.h"
#include "qor/ss/fold.h"
#include "qor/ss/lanes.h"
#include "qor/ss/task.h"

namespace orvik::ss {
namespace {

// Running extremes; a NaN that was seen stays known apart, since the comparing instructions pass it by.
template <class T>
struct Extremes {
  using L = Lanes<T>;
  using V = typename L::V;
  V low = L::all(std::numeric_limits<T>::infinity());
  V high = L::all(-std::numeric_limits<T>::infinity());
  V nan = L::all(0);

  void take(V x) {
    low = L::min(x, low);
    high = L::max(x, high);
    nan = L::either(nan, L::unordered(x));
  }
  void take(const Extremes& other) {
    low = L::min(other.low, low);
    high = L::max(other.high, high);
    nan = L::either(nan, other.nan);
  }
};

template <class T>
struct Result {
  T* minimum;  // null: not asked for
  T* maximum;

  void take(int64_t j, T low, T high, bool nan) const {
    const T none = std::numeric_limits<T>::quiet_NaN();
    if (minimum != nullptr && (nan || low < minimum[j])) minimum[j] = nan ? none : low;
    if (maximum != nullptr && (nan || high > maximum[j])) maximum[j] = nan ? none : high;
  }
};

template <class T>
void take_lanes(const Extremes<T>& e, int64_t count, int64_t j, int64_t p, const Result<T>& result, int64_t base) {
  constexpr int kWidth = Lanes<T>::kWidth;
  T low[kWidth], high[kWidth];
  Lanes<T>::store(low, e.low);
  Lanes<T>::store(high, e.high);
  const int nan = Lanes<T>::bits(e.nan);
  for (int64_t lane = 0; lane < count; ++lane) {
    result.take(base + (j + lane) % p, low[lane], high[lane], (nan >> lane & 1) != 0);
  }
}

template <class T>
void scan_contiguous(int64_t n, const T* x, int64_t j, const Result<T>& result) {
  using L = Lanes<T>;
  constexpr int kUnroll = 4;
  Extremes<T> e[kUnroll];
  int64_t i = 0;
  for (; i + kUnroll * L::kWidth <= n; i += kUnroll * L::kWidth) {
#pragma GCC unroll 4
    for (int r = 0; r < kUnroll; ++r) e[r].take(L::load(x + i + r * L::kWidth));
  }
  for (; i + L::kWidth <= n; i += L::kWidth) e[0].take(L::load(x + i));
  for (int r = 1; r < kUnroll; ++r) e[0].take(e[r]);
  take_lanes(e[0], L::kWidth, 0, 1, result, j);
  for (; i < n; ++i) result.take(j, x[i], x[i], x[i] != x[i]);
}

// Rows of `length` values, `step` apart; the value at place j of a row belongs to variable base + j mod p. The extremes
// of up to kVectors vectors stay in registers through all rows.
template <class T, int N>
void scan_rows(int64_t rows, const T* x, int64_t step, int64_t j, int64_t tail, int64_t p, const Result<T>& result,
               int64_t base) {
  using L = Lanes<T>;
  Extremes<T> e[N];
  const auto mask = L::first(tail);
  for (int64_t i = 0; i < rows; ++i, x += step) {
#pragma GCC unroll 4
    for (int v = 0; v < N - 1; ++v) e[v].take(L::load(x + j + v * L::kWidth));
    e[N - 1].take(L::load(x + j + (N - 1) * L::kWidth, mask));
  }
  for (int v = 0; v < N; ++v) {
    take_lanes(e[v], v == N - 1 ? tail : L::kWidth, j + v * L::kWidth, p, result, base);
  }
}

template <class T>
void scan_observations(const Data<T>& d, int64_t j0, int64_t j1, const Result<T>& result) {
  constexpr int64_t kWidth = Lanes<T>::kWidth, kVectors = 4;
  const bool whole = j0 == 0 && j1 == d.p;
  const Fold fold(whole ? d.p : Fold::kRow);
  const int64_t length = fold.observations > 1 ? fold.length : j1 - j0;
  const int64_t rows = d.n / fold.observations;
  const int64_t step = d.p * fold.observations;
  const int64_t block = std::max<int64_t>(32, 0x8000 / (length * static_cast<int64_t>(sizeof(T))));
  for (int64_t i = 0; i < rows; i += block) {
    const int64_t m = std::min(block, rows - i);
    for (int64_t j = 0; j < length;) {
      const int64_t vectors = std::min((length - j + kWidth - 1) / kWidth, kVectors);
      const int64_t tail = std::min(length - j - (vectors - 1) * kWidth, kWidth);
      const T* x = d.x + i * step + j0;
      switch (vectors) {
        case 1: scan_rows<T, 1>(m, x, step, j, tail, j1 - j0, result, j0); break;
        case 2: scan_rows<T, 2>(m, x, step, j, tail, j1 - j0, result, j0); break;
        case 3: scan_rows<T, 3>(m, x, step, j, tail, j1 - j0, result, j0); break;
        default: scan_rows<T, 4>(m, x, step, j, tail, j1 - j0, result, j0); break;
      }
      j += (vectors - 1) * kWidth + tail;
    }
  }
  for (int64_t i = rows * fold.observations; i < d.n; ++i) {
    for (int64_t j = j0; j < j1; ++j) {
      const T x = d.x[i * d.p + j];
      result.take(j, x, x, x != x);
    }
  }
}

template <class T>
int32_t minmax(OrvikSSTask handle, uint64_t estimates, uint64_t method) {
  if (handle == nullptr) return kNoTask;
  const Task& task = *static_cast<Task*>(handle);
  const bool low = (estimates & ORVIK_SS_MINIMUM) != 0, high = (estimates & ORVIK_SS_MAXIMUM) != 0;
  if (low && task.minimum == nullptr) return kNoMinimum;
  if (high && task.maximum == nullptr) return kNoMaximum;
  if ((method & (ORVIK_SS_METHOD_FAST | ORVIK_SS_METHOD_ONE_PASS)) == 0) return kBadMethod;
  if (const int32_t status = check_storage(task); status != kDone) return status;
  if (const int32_t status = check_observations(task); status != kDone) return status;

  const Data<T> d = data_of<T>(task);
  const Result<T> result{low ? real<T>(task.minimum) : nullptr, high ? real<T>(task.maximum) : nullptr};
  for_selected_ranges(d, [&](int64_t j0, int64_t j1) {
    if (!d.contiguous_variables) return scan_observations(d, j0, j1, result);
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
