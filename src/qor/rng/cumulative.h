// Inversion of a discrete distribution by a table: the least k with u <= P(X <= k).
#pragma once

#include <cstdint>
#include <limits>

namespace orvik::qor {

template <int32_t kEntries, int32_t kCells = 256, class Index = uint8_t>
struct CumulativeTable {
  double below_or_at[kEntries];  // P(X <= k), up to `last`
  Index first[kCells];           // where the walk begins for u of each cell of the interval
  static_assert(kEntries - 1 <= std::numeric_limits<Index>::max());

  // `probability(k)` for k from 0 to `last`, in order; sums are as the plain walk has them.
  template <class Probability>
  void fill(int32_t last, Probability probability) {
    double sum = 0;
    int32_t cell = 0;
    for (int32_t k = 0; k <= last; ++k) {
      below_or_at[k] = sum += probability(k);
      for (; cell < kCells && cell <= sum * kCells; ++cell) first[cell] = static_cast<Index>(k);
    }
    for (; cell < kCells; ++cell) first[cell] = static_cast<Index>(last);
  }

  // `last` + 1 when u is above the end of the table.
  int32_t find(double u, int32_t last) const {
    const double cell = u * kCells;
    int32_t k = cell > 0 ? first[cell < kCells - 1 ? static_cast<int32_t>(cell) : kCells - 1] : 0;
    while (k <= last && u > below_or_at[k]) ++k;
    return k;
  }
};

}  // namespace orvik::qor
