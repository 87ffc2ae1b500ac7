// Inversion of a discrete distribution by a table: the least k with u <= P(X <= k).
#pragma once

#include <cstdint>
#include <limits>

#include "lanes/round.h"
#include "qor/rng/loops.h"
#include "qor/rng/vectors.h"

namespace orvik::qor {

template <int32_t kEntries, int32_t kCells = 256, class Index = uint8_t>
struct CumulativeTable {
  double below_or_at[kEntries];  // P(X <= k), and what nothing is above at the end
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
  // No number is above `last`: whatever the sums were rounded to, every uniform has its number.
  void end_at(int32_t last) { below_or_at[last] = std::numeric_limits<double>::infinity(); }

  // Numbers of at most kBlock uniforms: found(i, k). Most walks end within two steps, which are taken without a branch;
  // a few numbers, for which a caller waits, branch.
  template <class Found>
  void find(int32_t n, const double* u, Found found) const {
    using V = F64;
    if (n < kWidth<V>) {
      for (int32_t i = 0; i < n; ++i)
        found(i, static_cast<int32_t>(walk(u[i], first[static_cast<int32_t>(cell(u[i]))])));
      return;
    }
    int32_t cells[kBlock], i = 0;
    for (; n - i >= kWidth<V>; i += kWidth<V>)
      store(cells + i, to_integer(round<Direction::down>(cell(load<V>(u + i)))));
    for (; i < n; ++i) cells[i] = static_cast<int32_t>(cell(u[i]));
    for (i = 0; i < n; ++i) {
      int64_t k = first[cells[i]];
      for (int step = 0; step < 2; ++step) k += u[i] > below_or_at[k];
      found(i, static_cast<int32_t>(walk(u[i], k)));
    }
  }

 private:
  template <class X>
  static X cell(X u) {
    return min(max(u * X(kCells), X(0)), X(kCells - 1));
  }
  int64_t walk(double u, int64_t k) const {
    while (u > below_or_at[k]) ++k;
    return k;
  }
};

}  // namespace orvik::qor
