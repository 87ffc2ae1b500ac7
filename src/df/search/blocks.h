// The search methods over many sites: the cells of cells.h, faster.
#ifndef ORVIK_DF_SEARCH_BLOCKS_H
#define ORVIK_DF_SEARCH_BLOCKS_H

#include "df/lanes.h"
#include "df/search/cells.h"

namespace orvik::df {

// Cells of whole vectors of any sites. The last cell is held by an upper bound of the position, one step lower for the
// right end itself, where (x[1] - x[0]) * value is never a whole step short of nx - 1. What is not at or right of x[0]
// lies at -1, before the cell of position 0; a position that is not a number lies at the bound.
template <class Real, class Cell>
void uniform_lanes(const Lookup<Real>& p, int64_t n, const Real* site, Cell* cell) {
  using V = Lanes<Real>;
  const V x0(p.x[0]), x1(p.x[1]), value(p.value), most(static_cast<Real>(p.nx - 1)), one(Real(1)), before(Real(-1));
  const LaneIndices<Real> next(1);
  for (int64_t j = 0; j < n; j += kWidth<V>) {
    const V t = load<V>(site + j);
    const Mask<V> inside = t >= x0;
    const V bound = keep(inside, most - keep(t == x1, one)) | drop(inside, before);
    store_indices(cell + j, truncated(max(min((t - x0) * value, bound), before)) + next);
  }
}

// Blocks of sites whose positions lie from 0 to below nx - 1 need no bounds. A position below 0 has a sign; one that is
// no number or too large becomes the largest index without one.
template <class Index, class Real, class Cell>
void uniform_cells(const Lookup<Real>& p, int64_t n, const Real* site, Cell* cell) {
  using V = Lanes<Real>;
  constexpr int64_t kTogether = 8 * kWidth<V>;
  int64_t j = 0;
  // All cell numbers are reals without rounding.
  if (p.nx < (int64_t(1) << (sizeof(Real) == 8 ? 31 : 24)) - 1) {
    const V x0(p.x[0]), value(p.value);
    const LaneIndices<Real> next(1), zero(0);
    const LaneIndices<Real> last(static_cast<int32_t>(p.nx - 2));
    for (; j + kTogether <= n; j += kTogether) {
      V signs(Real(0));
      LaneIndices<Real> most = zero;
      for (int64_t k = 0; k < kTogether; k += kWidth<V>) {
        const V position = (load<V>(site + j + k) - x0) * value;
        const LaneIndices<Real> i = truncated(position);
        signs = signs | position;
        most = max_unsigned(most, i);
        store_indices(cell + j + k, i + next);
      }
      if (!none(sign_decides(signs)) || any_above_unsigned(most, last)) {
        uniform_lanes(p, kTogether, site + j, cell + j);
      }
    }
    const int64_t rest = (n - j) / kWidth<V> * kWidth<V>;
    uniform_lanes(p, rest, site + j, cell + j);
    j += rest;
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

inline constexpr int64_t kSortedChunk = 64;  // ascending sites that are looked at together
inline constexpr int64_t kFewFar = 8;        // of what is left of them so many are, where they lie far apart

// Ascending sites that pass few breakpoints: as many as lie before the next one are in the state's cell.
template <class Index, class Real, class Cell>
void sorted_sparse_cells(const Lookup<Real>& p, int64_t n, const Real* site, Cell* cell, Index* state) {
  using V = Lanes<Real>;
  constexpr unsigned kAll = (1u << kWidth<V>)-1;
  const Index nx = static_cast<Index>(p.nx);
  for (int64_t j = 0; j < n;) {
    if (*state < nx && j + kWidth<V> <= n) {
      const unsigned before = lane_bits(load<V>(site + j) < V(p.x[*state]));
      for (int64_t k = 0; k < kWidth<V>; ++k) cell[j + k] = *state;
      // A predicted branch here keeps the next load from waiting for this comparison.
      if (before == kAll) {
        j += kWidth<V>;
        continue;
      }
      j += __builtin_ctz(~before);
    }
    cell[j] = sorted_cell(p, site[j], state);
    ++j;
  }
}

// Sites that pass a breakpoint every few sites: eight are counted against the next kAhead breakpoints without a branch.
// Whatever is out of that order goes site by site. Of `present` sites the first n are wanted.
template <int kAhead, class Index, class Real, class Cell>
void sorted_dense_cells(const Lookup<Real>& p, int64_t n, int64_t present, const Real* site, Cell* cell, Index* state) {
  using V = Lanes<Real>;
  constexpr int64_t kTogether = 8, kVectors = kTogether / kWidth<V>;
  constexpr unsigned kAll = (1u << kWidth<V>)-1;
  const Index nx = static_cast<Index>(p.nx);
  int64_t j = 0;
  for (; j + kTogether <= n && j + kTogether < present; j += kTogether) {
    const Index k = *state;
    V t[kVectors];
    unsigned ascending = kAll;
    for (int64_t i = 0; i < kVectors; ++i) {
      t[i] = load<V>(site + j + i * kWidth<V>);
      ascending &= lane_bits(load<V>(site + j + i * kWidth<V> + 1) >= t[i]);
    }
    if (ascending != kAll || k >= nx - kAhead || !(p.x[k + kAhead] > site[j + kTogether - 1])) {
      for (int64_t i = 0; i < kTogether; ++i) cell[j + i] = sorted_cell(p, site[j + i], state);
      continue;
    }
    Integer<V> passed[kVectors];  // as -1
    for (int64_t i = 0; i < kVectors; ++i) passed[i] = Integer<V>(Bits<V>(0));
    for (int64_t ahead = 0; ahead < kAhead; ++ahead) {
      const V x(p.x[k + ahead]);
      for (int64_t i = 0; i < kVectors; ++i) passed[i] = passed[i] + minus_one(t[i] >= x);
    }
    for (int64_t i = 0; i < kVectors; ++i) {
      store_indices(cell + j + i * kWidth<V>, LaneIndices<Real>(static_cast<int32_t>(k)) - to_indices(passed[i]));
    }
    // Anew for the last site, so that the next turn waits for no store.
    const Real t_last = site[j + kTogether - 1];
    Index ahead = 0;
    if constexpr (kAhead % kWidth<V> == 0) {
      for (int64_t i = 0; i < kAhead; i += kWidth<V>) {
        ahead += static_cast<Index>(__builtin_popcount(lane_bits(V(t_last) >= load<V>(p.x + k + i))));
      }
    } else {
      for (int64_t i = 0; i < kAhead; ++i) ahead += p.x[k + i] <= t_last;
    }
    *state = k + ahead;
  }
  for (; j < n; ++j) cell[j] = sorted_cell(p, site[j], state);
}

template <class Index, class Real, class Cell>
void peak_cells(const Lookup<Real>& p, int64_t n, const Real* site, Cell* cell) {
  for (int64_t j = 0; j < n; ++j) cell[j] = peak_cell<Index>(p, site[j]);
}

// The buckets of `count` sites, a multiple of kCount. A not-a-number is put into bucket 0.
template <class Real>
void find_buckets(const Lookup<Real>& p, int64_t count, const Real* site, int32_t* bucket) {
  using V = Lanes<Real>;
  const V x0(p.x[0]), scale(p.value), zero(Real(0)), most(static_cast<Real>(bucket_count(p.nx)));
  for (int64_t j = 0; j < count; j += kWidth<V>) {
    const V position = (load<V>(site + j) - x0) * scale;
    const V held = select(zero < position, select(position < most, position, most), zero);
    store_indices(bucket + j, truncated(held));
  }
}

// First breakpoints of the buckets' brackets; returns the greatest width.
inline int32_t load_brackets(const int64_t* table, int64_t count, const int32_t* bucket, int32_t* start) {
  I32Half width(0);
  for (int64_t j = 0; j < count; j += 4) {
    const auto [lo, hi] = gather_pairs(table, bucket + j);
    width = max(width, hi - lo);
    store_indices(start + j, lo);
  }
  return largest(width);
}

// Breakpoints around which cells are counted: windows of `width` from a site's start on, all of them in x[0 .. limit).
// Every breakpoint before a window is at or below its sites, every one behind it is above.
template <class Real>
struct Windows {
  const Real* x;
  int32_t width, limit;
};
template <class Real>
inline constexpr int32_t kNarrowWindow = 6 * kWidth<Lanes<Real>>;  // these are counted, not halved

// Halves the windows together until they are narrow enough to be counted.
template <class Real>
int32_t halve_windows(const Windows<Real>& w, int32_t narrow, int64_t count, const Real* site, int32_t* start) {
  using V = Lanes<Real>;
  using I = LaneIndices<Real>;
  int32_t width = w.width;
  for (; width > narrow; width -= width / 2) {
    const int32_t half = width / 2;
    const I leap(half), most(w.limit - width);
    for (int64_t j = 0; j < count; j += kWidth<V>) {
      const I from = min(load_indices<I>(start + j), most);
      const V middle = gather(w.x + half - 1, from);
      store_indices(start + j, select_index(load<V>(site + j) >= middle, from + leap, from));
    }
  }
  return width;
}

// start[j] plus the breakpoints of its window that are not above site[j], for four sites at a time.
template <class Real, class Cell>
void count_windows(const Windows<Real>& w, int64_t count, const Real* site, const int32_t* start, int32_t last_index,
                   Real last, Cell* cell) {
  using V = Lanes<Real>;
  const int32_t vectors = (w.width + kWidth<V> - 1) / kWidth<V>;
  const int32_t most = w.limit - vectors * kWidth<V>;
  for (int64_t j = 0; j < count; j += 4) {
    const Real* x[4];
    Integer<V> passed[4];  // as -1
    for (int k = 0; k < 4; ++k) {
      x[k] = w.x + std::min(start[j + k], most);
      passed[k] = Integer<V>(Bits<V>(0));
    }
    for (int32_t v = 0; v < vectors; ++v) {
      for (int k = 0; k < 4; ++k) {
        passed[k] = passed[k] + minus_one(V(site[j + k]) >= load<V>(x[k] + v * kWidth<V>));
      }
    }
    const I32Half from = min(load_indices<I32Half>(start + j), I32Half(most));
    // Only sites beyond the last breakpoint pass it.
    const I32Half cells = min(from - totals(passed), I32Half(last_index));
    store_indices(cell + j, cells - four_above(site + j, last));
  }
}

// Sites that pass about as many breakpoints as they are, or more: all are sought at once in the stretch of breakpoints
// that the last one ends. False where the sites do not ascend from the state on, or end at the last breakpoint.
template <class Real, class Cell>
bool sorted_far_cells(const Lookup<Real>& p, int64_t wanted, const Real* site, Cell* cell, int32_t* state) {
  using V = Lanes<Real>;
  // Two vectors at least: each site is compared with the next.
  const int64_t n = std::max<int64_t>((wanted + kWidth<V> - 1) & -kWidth<V>, 2 * kWidth<V>);
  Real padded[kSortedChunk];
  Cell padded_cell[kSortedChunk];
  if (n != wanted) {  // with the last site once more
    Real* last = std::copy(site, site + wanted, padded);
    std::fill(last, padded + n, site[wanted - 1]);
    if (!sorted_far_cells(p, n, padded, padded_cell, state)) return false;
    std::copy(padded_cell, padded_cell + wanted, cell);
    return true;
  }
  const int32_t nx = static_cast<int32_t>(p.nx), from = *state;
  const Real last = site[n - 1];
  Mask<V> ascend = load<V>(site + 1) >= load<V>(site);
  for (int64_t j = kWidth<V>; j < n; j += kWidth<V>) ascend = ascend & (load<V>(site + j) >= load<V>(site + j - 1));
  if (lane_bits(ascend) != (1u << kWidth<V>)-1 || last == p.x[nx - 1]) return false;
  if (from > 0 && !(site[0] >= p.x[from - 1])) return false;
  const int32_t end = leap_up(p.x, nx, from, last);
  int32_t start[kSortedChunk];
  std::fill(start, start + n, from);
  Windows<Real> windows{p.x, end - from, nx};
  windows.width = halve_windows(windows, kNarrowWindow<Real>, n, site, start);
  count_windows(windows, n, site, start, nx - 1, p.x[nx - 1], cell);
  *state = end;
  return true;
}

template <class Index, class Real, class Cell>
void sorted_cells(const Lookup<Real>& p, int64_t n, const Real* site, Cell* cell, int64_t* sorted_state) {
  constexpr Index kFar = 80;  // breakpoints
  if (n < 1) return;
  Index state = static_cast<Index>(*sorted_state);
  approach_first_site(p, site[0], &state);
  const Index nx = static_cast<Index>(p.nx);
  for (int64_t at = 0; at < n; at += kSortedChunk) {
    const int64_t count = std::min(kSortedChunk, n - at);
    const auto passes = [&](Index breakpoints) {  // by the chunk
      return state < nx - breakpoints && p.x[state + breakpoints] <= site[at + count - 1];
    };
    // The counting of cells needs 32-bit ones.
    if constexpr (sizeof(Index) == 4) {
      if (count >= kFewFar && nx >= kNarrowWindow<Real> && passes(kFar) &&
          sorted_far_cells(p, count, site + at, cell + at, &state)) {
        continue;
      }
    }
    const auto dense = [&]<int kAhead>() {
      sorted_dense_cells<kAhead>(p, count, n - at, site + at, cell + at, &state);
    };
    if (sizeof(Index) == 8 || !passes(3)) {
      sorted_sparse_cells(p, count, site + at, cell + at, &state);
    } else if (!passes(8)) {
      dense.template operator()<3>();
    } else if (!passes(28)) {
      dense.template operator()<8>();
    } else {
      dense.template operator()<16>();
    }
  }
  *sorted_state = state;
}

template <class Index, class Real, class Cell>
void hybrid_cells(const Lookup<Real>& p, int64_t n, const Real* site, Cell* cell) {
  constexpr int64_t kGroup = 128, kTogether = 8;
  constexpr int32_t kNarrow = kNarrowWindow<Real>;
  int64_t at = 0;
  if constexpr (sizeof(Index) == 4) {
    int32_t bucket[kGroup], start[kGroup];
    Real padded[kNarrow];
    const bool tabled = p.table != nullptr && p.nx > 16;
    const int32_t nx = static_cast<int32_t>(p.nx);
    while (n - at >= kTogether) {
      const int64_t count = std::min(kGroup, (n - at) & -kTogether);
      Windows<Real> windows{p.x, nx - 1, nx};
      if (tabled) {
        find_buckets(p, count, site + at, bucket);
        windows.width = std::min(load_brackets(p.table, count, bucket, start), nx - 1);
      } else {
        std::fill(start, start + count, 0);
      }
      windows.width = halve_windows(windows, kNarrow, count, site + at, start);
      if (nx < kNarrow) {  // no whole window fits: a copy that ends in breakpoints which nothing passes
        std::fill(std::copy(p.x, p.x + nx, padded), padded + kNarrow, std::numeric_limits<Real>::quiet_NaN());
        windows.x = padded;
        windows.limit = kNarrow;
      }
      count_windows(windows, count, site + at, start, nx - 1, p.x[nx - 1], cell + at);
      at += count;
    }
  }
  for (; at < n; ++at) cell[at] = static_cast<Cell>(hybrid_cell<Index>(p, site[at]));
}

}  // namespace orvik::df

#endif
