// Medians of values that are computed as they are needed, never stored, and of any distribution: a sample tells between
// which two values the median lies, one pass counts what is below and keeps what lies between (Floyd and Rivest 1975).
// The result is the median itself; where the sample was not like the rest, all values are selected from.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>

#include "qor/ss/compress.h"
#include "qor/ss/estimators.h"
#include "qor/ss/selection.h"

namespace orvik::ss {

// How many of the values seen are below a bracket, and those within it. A NaN is neither, and so counts as the largest.
template <class T>
struct Bracket {
  T low, high;
  T* kept;
  int64_t below = 0, count = 0;

  // `kept` has room for all values that are added.
  void add(int64_t m, const T* values) {
    using V = VectorOf<T>;
    Integer<V> less = minus_one(V(low) < V(low));
    int64_t k = 0;
    for (; k + kWidth<V> <= m; k += kWidth<V>) {
      const V x = load<V>(values + k);
      less = less + minus_one(x < V(low));
      count += store_chosen(kept + count, lane_bits((x >= V(low)) & (x <= V(high))), x);
    }
    below -= sum_of_lanes(less);
    for (; k < m; ++k) {
      below += values[k] < low;
      if (values[k] >= low && values[k] <= high) kept[count++] = values[k];
    }
  }

 private:
  static int64_t sum_of_lanes(I64 a) { return sum<int64_t>(&a); }
  static int64_t sum_of_lanes(I32 a) { return sum<int32_t>(&a); }
  template <class Lane, class V>
  static int64_t sum(const V* a) {
    Lane lanes[sizeof(V) / sizeof(Lane)];
    memcpy(lanes, a, sizeof(lanes));
    int64_t total = 0;
    for (const Lane lane : lanes) total += lane;
    return total;
  }
};

inline constexpr int64_t kSample = 2048;

// Whether n values are so many that a sample is taken, and where its k-th value is: every so many-th, in steps that no
// small period shares.
inline bool is_sampled(int64_t n) { return n >= 4 * kSample; }
inline int64_t place_in_sample(int64_t n, int64_t k) {
  const int64_t step = (n / kSample) | 1, i = k * step;
  return i < n ? i : i - n;
}

// value(i) is the i-th of n values, sample(k) the k-th of the sample; scratch holds n.
template <class T, class F, class Sample>
T sampled_median(int64_t n, F&& value, Sample&& sample, T* scratch) {
  constexpr int64_t kBlock = 512;
  constexpr int64_t kMargin = 70;  // ranks of the sample: three deviations, sqrt(kSample) / 2 each
  auto all = [&] {
    for (int64_t i = 0; i < n; ++i) scratch[i] = value(i);
    return median_of(n, scratch);
  };
  if (!is_sampled(n)) return all();

  for (int64_t k = 0; k < kSample; ++k) scratch[k] = sample(k);
  if (move_nans(scratch, kSample) != kSample) return all();
  select(scratch, 0, kSample - 1, kSample / 2 - kMargin);
  select(scratch, kSample / 2 - kMargin + 1, kSample - 1, kSample / 2 + kMargin);
  Bracket<T> bracket{scratch[kSample / 2 - kMargin], scratch[kSample / 2 + kMargin], scratch};
  T block[kBlock];
  for (int64_t i = 0; i < n; i += kBlock) {
    const int64_t m = std::min(kBlock, n - i);
    for (int64_t k = 0; k < m; ++k) block[k] = value(i + k);
    bracket.add(m, block);
  }
  const int64_t rank = (n - 1) / 2 - bracket.below, next = n / 2 - bracket.below;
  if (rank < 0 || next >= bracket.count) return all();
  select(scratch, 0, bracket.count - 1, rank);
  T above = scratch[rank];
  if (next != rank) above = *std::min_element(scratch + next, scratch + bracket.count);
  return scratch[rank] == above ? above : std::fma(above - scratch[rank], T{0.5}, scratch[rank]);
}

// Median absolute deviation from the median, which is returned as well.
template <class T, class F, class Sample>
T sampled_deviation(int64_t n, F&& value, Sample&& sample, T* scratch, T* median) {
  const T m = sampled_median(n, value, sample, scratch);
  if (median != nullptr) *median = m;
  return sampled_median(
      n, [&](int64_t i) { return std::fabs(value(i) - m); }, [&](int64_t k) { return std::fabs(sample(k) - m); },
      scratch);
}
// Of values whose sample is not at hand.
template <class T, class F>
T sampled_deviation(int64_t n, F&& value, T* scratch, T* median) {
  return sampled_deviation(
      n, value, [&](int64_t k) { return value(place_in_sample(n, k)); }, scratch, median);
}

}  // namespace orvik::ss
