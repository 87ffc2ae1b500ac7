// Medians of values that are computed as they are needed, never stored, and of any distribution: a sample tells between
// which two values the median lies, one pass counts what is below and keeps what lies between (Floyd and Rivest 1975).
// The result is the median itself; where the sample was not like the rest, all values are selected from.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "qor/ss/estimators.h"
#include "qor/ss/selection.h"

namespace orvik::ss {

// value(i) is the i-th of n values; scratch holds n.
template <class T, class F>
T sampled_median(int64_t n, F&& value, T* scratch) {
  constexpr int64_t kShort = 8192, kSample = 2048, kBlock = 512;
  constexpr int64_t kMargin = 70;  // ranks of the sample: three deviations, sqrt(kSample) / 2 each
  auto all = [&] {
    for (int64_t i = 0; i < n; ++i) scratch[i] = value(i);
    return median_of(n, scratch);
  };
  if (n < kShort) return all();

  // Every so many-th value, in steps that no small period shares.
  const int64_t step = (n / kSample) | 1;
  for (int64_t k = 0; k < kSample; ++k) scratch[k] = value(k * step % n);
  if (move_nans(scratch, kSample) != kSample) return all();
  select(scratch, 0, kSample - 1, kSample / 2 - kMargin);
  select(scratch, kSample / 2 - kMargin + 1, kSample - 1, kSample / 2 + kMargin);
  const T low = scratch[kSample / 2 - kMargin], high = scratch[kSample / 2 + kMargin];

  // A NaN is neither below nor between, and so counts as the largest.
  int64_t below = 0, kept = 0;
  T block[kBlock];
  for (int64_t i = 0; i < n; i += kBlock) {
    const int64_t m = std::min(kBlock, n - i);
    for (int64_t k = 0; k < m; ++k) block[k] = value(i + k);
    int32_t less = 0;
    for (int64_t k = 0; k < m; ++k) less += block[k] < low;
    below += less;
    for (int64_t k = 0; k < m; ++k) {
      scratch[kept] = block[k];
      kept += static_cast<int64_t>(block[k] >= low) & static_cast<int64_t>(block[k] <= high);
    }
  }
  const int64_t rank = (n - 1) / 2 - below, next = n / 2 - below;
  if (rank < 0 || next >= kept) return all();
  select(scratch, 0, kept - 1, rank);
  T above = scratch[rank];
  if (next != rank) above = *std::min_element(scratch + next, scratch + kept);
  return scratch[rank] == above ? above : std::fma(above - scratch[rank], T{0.5}, scratch[rank]);
}

// Median absolute deviation from the median, which is returned as well.
template <class T, class F>
T sampled_deviation(int64_t n, F&& value, T* scratch, T* median) {
  const T m = sampled_median(n, value, scratch);
  if (median != nullptr) *median = m;
  return sampled_median(
      n, [&](int64_t i) { return std::fabs(value(i) - m); }, scratch);
}

}  // namespace orvik::ss
