// The search methods over many sites: the cells of cells.h, faster.
#ifndef ORVIK_DF_SEARCH_BLOCKS_H
#define ORVIK_DF_SEARCH_BLOCKS_H

#include "df/lanes.h"
#include "df/search/cells.h"

namespace orvik::df {

template <class Index, class Real, class Cell>
void uniform_cells(const Lookup<Real>& p, int64_t n, const Real* site, Cell* cell) {
  using V = Lanes<Real>;
  int64_t j = 0;
  // All cell numbers are reals without rounding: the cases are told apart before one conversion.
  if (p.nx < (int64_t(1) << (sizeof(Real) == 8 ? 31 : 24)) - 1) {
    const Real steps = static_cast<Real>(p.nx - 1);
    const V x0(p.x[0]), x1(p.x[1]), value(p.value), limit(steps), before(Real(-1)), at_end(steps - 1);
    for (; j + V::kCount <= n; j += V::kCount) {
      const V t = V::load(site + j);
      const V position = (t - x0) * value;
      const V inside = (t < x1) & (position < limit);
      V next = select(inside, position, limit);
      next = select(t == x1, at_end, next);
      select(t >= x0, next, before).store_next(cell + j);
    }
  }
  for (; j < n; ++j) cell[j] = static_cast<Cell>(uniform_cell<Index>(p, site[j]));
}

template <class Index, class Real, class Cell>
void quasi_uniform_cells(const Lookup<Real>& p, int64_t n, const Real* site, Cell* cell) {
  constexpr int64_t kAhead = 32;  // guesses are made ahead of the branches that refine them
  Index guess[kAhead];
  for (int64_t at = 0; at < n; at += kAhead) {
    const int64_t count = std::min(kAhead, n - at);
    for (int64_t j = 0; j < count; ++j) guess[j] = even_guess<Index>(p, site[at + j]);
    for (int64_t j = 0; j < count; ++j) cell[at + j] = cell_from_guess(p, guess[j], site[at + j]);
  }
}

template <class Index, class Real, class Cell>
void sorted_cells(const Lookup<Real>& p, int64_t n, const Real* site, Cell* cell, int64_t* sorted_state) {
  if (n < 1) return;
  Index state = static_cast<Index>(*sorted_state);
  approach_first_site(p, site[0], &state);
  using V = Lanes<Real>;
  constexpr unsigned kAll = (1u << V::kCount) - 1;
  const Index nx = static_cast<Index>(p.nx);
  for (int64_t j = 0; j < n;) {
    // As many sites as lie before the next breakpoint are in the state's cell.
    if (state < nx && j + V::kCount <= n) {
      const unsigned before = (V::load(site + j) < V(p.x[state])).bits();
      for (int64_t k = 0; k < V::kCount; ++k) cell[j + k] = state;
      // A predicted branch here keeps the next load from waiting for this comparison.
      if (before == kAll) {
        j += V::kCount;
        continue;
      }
      j += __builtin_ctz(~before);
    }
    cell[j] = sorted_cell(p, site[j], &state);
    ++j;
  }
  *sorted_state = state;
}

template <class Index, class Real, class Cell>
void peak_cells(const Lookup<Real>& p, int64_t n, const Real* site, Cell* cell) {
  for (int64_t j = 0; j < n; ++j) cell[j] = peak_cell<Index>(p, site[j]);
}

// Cells lo .. of `count` sites, a multiple of twice kCount, from their brackets; all are halved together, so that the
// loads of one vector do not wait for the comparisons of another.
template <class Real, class Cell>
void halve_together(const Real* x, const int32_t* lo, const int32_t* hi, int steps, Real last, int64_t count,
                    const Real* site, Cell* cell) {
  using V = Lanes<Real>;
  using I = Indices<Real>;
  constexpr int64_t kCount = V::kCount;
  for (int64_t j = 0; j < count; j += 2 * kCount) {
    const V t0 = V::load(site + j), t1 = V::load(site + j + kCount);
    const I hi0 = I::load(hi + j), hi1 = I::load(hi + j + kCount);
    I lo0 = I::load(lo + j), lo1 = I::load(lo + j + kCount);
    for (int step = steps - 1; step >= 0; --step) {
      const I leap(1 << step);
      const I ahead0 = min(lo0 + leap, hi0), ahead1 = min(lo1 + leap, hi1);
      lo0 = select(t0 >= gather(x - 1, ahead0), ahead0, lo0);
      lo1 = select(t1 >= gather(x - 1, ahead1), ahead1, lo1);
    }
    // The right end of the last bracket is the last breakpoint, which only sites beyond it pass.
    const I one(1);
    select(V(last) < t0, lo0 + one, lo0).store(cell + j);
    select(V(last) < t1, lo1 + one, lo1).store(cell + j + kCount);
  }
}

// The buckets of `count` sites, a multiple of kCount. A not-a-number is put into bucket 0.
template <class Real>
void find_buckets(const Lookup<Real>& p, int64_t count, const Real* site, int32_t* bucket) {
  using V = Lanes<Real>;
  const V x0(p.x[0]), scale(p.value), zero(Real(0)), most(static_cast<Real>(bucket_count(p.nx)));
  for (int64_t j = 0; j < count; j += V::kCount) {
    const V position = (V::load(site + j) - x0) * scale;
    const V held = select(zero < position, select(position < most, position, most), zero);
    held.store_truncated(bucket + j);
  }
}

template <class Index, class Real, class Cell>
void hybrid_cells(const Lookup<Real>& p, int64_t n, const Real* site, Cell* cell) {
  constexpr int64_t kGroup = 128, kTogether = 2 * Lanes<Real>::kCount;
  int64_t at = 0;
  if constexpr (sizeof(Index) == 4) {
    int32_t bucket[kGroup], lo[kGroup], hi[kGroup];
    const bool tabled = p.table != nullptr && p.nx > 16;
    while (n - at >= kTogether) {
      const int64_t count = std::min(kGroup, (n - at) & -kTogether);
      int32_t width = 0;
      if (tabled) {
        find_buckets(p, count, site + at, bucket);
        for (int64_t j = 0; j < count; ++j) {
          const int64_t* pair = p.table + 2 * static_cast<int64_t>(bucket[j]);
          lo[j] = static_cast<int32_t>(pair[0]);
          hi[j] = static_cast<int32_t>(pair[1]);
          width = std::max(width, hi[j] - lo[j]);
        }
      } else {
        width = static_cast<int32_t>(p.nx - 1);
        std::fill(lo, lo + count, 0);
        std::fill(hi, hi + count, width);
      }
      halve_together(p.x, lo, hi, halvings(width), p.x[p.nx - 1], count, site + at, cell + at);
      at += count;
    }
  }
  for (; at < n; ++at) cell[at] = static_cast<Cell>(hybrid_cell<Index>(p, site[at]));
}

}  // namespace orvik::df

#endif
