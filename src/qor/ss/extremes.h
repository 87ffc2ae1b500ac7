// Running extremes, and those of rows of contiguous observations, a place of the row for each variable.
#pragma once

#include <algorithm>
#include <limits>

#include "qor/ss/rows.h"
#include "qor/unroll.h"

namespace orvik::ss {

// Running extremes; a NaN that was seen stays known apart, since the comparing instructions pass it by.
template <class T>
struct Extremes {
  using V = VectorOf<T>;
  V low = VectorOf<T>(std::numeric_limits<T>::infinity());
  V high = VectorOf<T>(-std::numeric_limits<T>::infinity());
  V nan = V(T(0));  // all ones where one was seen

  void take(V x) {
    low = min(x, low);
    high = max(x, high);
    nan = nan | as_float(minus_one(unordered(x, x)));
  }
  void take(const Extremes& other) {
    low = min(other.low, low);
    high = max(other.high, high);
    nan = nan | other.nan;
  }
};

template <class T>
struct Result {
  const Data<T>& data;
  T* minimum;  // null: not asked for
  T* maximum;

  void take(int64_t j, T low, T high, bool nan) const {
    if (!data.selected(j)) return;
    const T none = std::numeric_limits<T>::quiet_NaN();
    if (minimum != nullptr && (nan || low < minimum[j])) minimum[j] = nan ? none : low;
    if (maximum != nullptr && (nan || high > maximum[j])) maximum[j] = nan ? none : high;
  }
};

// Running extremes of a row of values, in memory.
template <class T>
struct RowExtremes {
  static constexpr int64_t kLength = 512;
  // Apart by no multiple of 4 KiB, at which loads would wait for unrelated stores.
  static constexpr int64_t kGap = 1024 / sizeof(T);
  alignas(64) T low[kLength + kGap];
  alignas(64) T high[kLength + kGap];
  alignas(64) T nan[kLength + kGap];

  void clear(int64_t length) {
    using V = VectorOf<T>;
    constexpr T kInf = std::numeric_limits<T>::infinity();
    const int64_t padded = (length + kWidth<V> - 1) / kWidth<V> * kWidth<V>;
    std::fill(low, low + padded, kInf);
    std::fill(high, high + padded, -kInf);
    std::fill(nan, nan + padded, T{0});
    length_ = length;
  }

  // One row of each of N streams, `apart` values from one to the next. What lies behind a whole row is nobody's place;
  // behind a shorter one, which comes last, there are others.
  template <int N>
  void take(std::integral_constant<int, N>, int64_t length, const T* x, int64_t apart) {
    using V = VectorOf<T>;
    const bool whole = length == length_;
    for_vectors<V>(
        length, [&](int64_t j, auto vector) __attribute__((always_inline)) {
          Extremes<T> e{load<V>(low + j), load<V>(high + j), load<V>(nan + j)};
          unroll<N>([&](auto stream) __attribute__((always_inline)) { e.take(vector.load(x + stream * apart + j)); });
          const auto put = [&](auto to) __attribute__((always_inline)) {
            to.store(low + j, e.low);
            to.store(high + j, e.high);
            to.store(nan + j, e.nan);
          };
          // Stores of whole vectors: the next row's loads need not wait for parts.
          whole ? put(WholeVector<V>{}) : put(vector);
        });
  }

  // The value at place j belongs to variable base + j mod p.
  void put(int64_t length, int64_t p, int64_t base, const Result<T>& result) const {
    for (int64_t i = 0; i < length; i += p) {
      for (int64_t j = 0; j < p; ++j) result.take(base + j, low[i + j], high[i + j], nan[i + j] != 0);
    }
  }

 private:
  int64_t length_ = 0;
};

template <class T>
void scan_observations(const Data<T>& d, int64_t j0, int64_t j1, const Result<T>& result) {
  const Fold fold(j0 == 0 && j1 == d.p ? d.p : Fold::kRow, d.n, false);
  RowExtremes<T> extremes;
  for (int64_t first = j0; first < j1; first += RowExtremes<T>::kLength) {
    const int64_t width = std::min(RowExtremes<T>::kLength, j1 - first);
    const int64_t length = fold.observations > 1 ? fold.length : width;
    extremes.clear(length);
    for_rows(
        d, 0, d.n, first, width, fold,
        [&](auto streams, int64_t size, const T* x, int64_t apart, int64_t, int64_t)
            __attribute__((always_inline)) { extremes.take(streams, size, x, apart * d.p); });
    extremes.put(length, width, first, result);
  }
}

}  // namespace orvik::ss
