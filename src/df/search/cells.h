// The search methods, one site at a time: the meaning of every method, and what short calls run.
//
// Cell 0 lies left of x[0], cell i is [x[i-1], x[i]), cell nx lies right of x[nx-1]; x[nx-1] itself is in cell nx - 1.
// No method leaves its arrays, whatever the site: not-a-numbers and infinities included.
#ifndef ORVIK_DF_SEARCH_CELLS_H
#define ORVIK_DF_SEARCH_CELLS_H

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

#include "df/lanes.h"

namespace orvik::df {

// A partition and what a method needs beside it. `value` is the inverse step, the peak or the buckets' scale.
template <class Real>
struct Lookup {
  int64_t nx;
  const Real* x;
  Real value;
  const int64_t* table;  // of the hybrid method; null: none
};

// The least real that is not below n.
template <class Real>
Real real_not_below(int64_t n) {
  const Real r = static_cast<Real>(n);
  return static_cast<int64_t>(r) < n ? std::nextafter(r, std::numeric_limits<Real>::infinity()) : r;
}

// First k >= start with x[k] > t, nx if there is none, for ascending x: leaps twice as far each time, the last one
// halved.
template <class Real, class Index>
[[gnu::noinline]] Index leap_up(const Real* x, Index nx, Index start, Real t) {
  int64_t lo = static_cast<int64_t>(start) - 1, leap = 1;  // x[lo] is not above t, or before the start
  while (lo + leap < nx && !(x[lo + leap] > t)) {
    lo += leap;
    leap *= 2;
  }
  int64_t hi = std::min<int64_t>(lo + leap, nx);
  while (hi - lo > 1) {
    const int64_t mid = lo + (hi - lo) / 2;
    const bool above = x[mid] > t;
    hi = above ? mid : hi;
    lo = above ? lo : mid;
  }
  return static_cast<Index>(hi);
}

// Greatest k < start with x[k-1] <= t, 0 if there is none, likewise.
template <class Real, class Index>
[[gnu::noinline]] Index leap_down(const Real* x, Index start, Real t) {
  int64_t hi = static_cast<int64_t>(start), leap = 1;  // x[hi-1] is above t
  while (hi - leap > 0 && !(x[hi - leap - 1] <= t)) {
    hi -= leap;
    leap *= 2;
  }
  int64_t lo = std::max<int64_t>(hi - leap, 0);
  while (hi - lo > 1) {
    const int64_t mid = lo + (hi - lo) / 2;
    const bool not_above = x[mid - 1] <= t;
    lo = not_above ? mid : lo;
    hi = not_above ? hi : mid;
  }
  return static_cast<Index>(lo);
}

inline constexpr int kNear = 16;  // breakpoints that are passed one by one; what is farther is found by leaps

// First k >= start with x[k] > t, nx if there is none.
template <class Real, class Index>
Index scan_up(const Real* x, Index nx, Index start, Real t) {
  Index k = start;
  for (int near = 0; near < kNear; ++near, ++k) {
    if (!(k < nx) || x[k] > t) return k;
  }
  return leap_up(x, nx, k, t);
}

// Greatest k <= start with x[k-1] <= t, 0 if there is none.
template <class Real, class Index>
Index scan_down(const Real* x, Index start, Real t) {
  const Index far = start > kNear ? start - kNear : 0;
  Index k = start;
  while (k > far && !(x[k - 1] <= t)) --k;
  return k > far || far == 0 || x[k - 1] <= t ? k : leap_down(x, k, t);
}

// Only the two ends x[0] and x[1] exist. A site just above the right end has the cell that the formula gives.
template <class Index, class Real>
Index uniform_cell(const Lookup<Real>& p, Real t) {
  const Index nx = static_cast<Index>(p.nx);
  if (t == p.x[1]) return nx - 1;
  if (!(t >= p.x[0])) return 0;
  const Real position = (t - p.x[0]) * p.value;
  if (!(position < real_not_below<Real>(p.nx - 1))) return nx;
  return position > 0 ? static_cast<Index>(position) + 1 : 1;
}

// A guess from an even spacing, kept inside the partition.
template <class Index, class Real>
Index even_guess(const Lookup<Real>& p, Real t) {
  const Real position = (t - p.x[0]) * p.value;
  if (!(position < real_not_below<Real>(p.nx - 1))) return static_cast<Index>(p.nx);
  return position > 0 ? static_cast<Index>(position) + 1 : 1;
}

template <class Index, class Real>
Index cell_from_guess(const Lookup<Real>& p, Index guess, Real t) {
  const Index nx = static_cast<Index>(p.nx);
  if (!(t >= p.x[0])) return 0;
  if (t == p.x[nx - 1]) return nx - 1;
  if (guess >= nx) return scan_down(p.x, nx, t);
  return t >= p.x[guess] ? scan_up(p.x, nx, guess, t) : scan_down(p.x, guess, t);
}

template <class Index, class Real>
Index quasi_uniform_cell(const Lookup<Real>& p, Real t) {
  return cell_from_guess(p, even_guess<Index>(p, t), t);
}

// From the breakpoint that the caller takes for the sites' centre.
template <class Index, class Real>
Index peak_cell(const Lookup<Real>& p, Real t) {
  const Index nx = static_cast<Index>(p.nx);
  const Index peak = p.value >= static_cast<Real>(p.nx) ? nx : static_cast<Index>(p.value);
  if (t == p.x[nx - 1]) return nx - 1;
  if (peak >= nx) return p.x[nx - 1] < t ? nx : scan_down<Real, Index>(p.x, nx - 1, t);
  return t >= p.x[peak] ? scan_up(p.x, nx, peak, t) : scan_down(p.x, peak, t);
}

// The hybrid method's bracket: the cell is lo plus the breakpoints of lo .. hi - 1 that are not above the site.
template <class Index>
struct Bracket {
  Index lo, hi;
};

inline int64_t bucket_count(int64_t nx) { return std::clamp<int64_t>(nx / 16, 16, 1024); }

template <class Index, class Real>
Bracket<Index> hybrid_bracket(const Lookup<Real>& p, Real t) {
  if (p.table == nullptr || p.nx <= 16) return {0, static_cast<Index>(p.nx - 1)};
  const int64_t buckets = bucket_count(p.nx);
  const Real position = (t - p.x[0]) * p.value;
  int64_t b = 0;
  if (position >= static_cast<Real>(buckets)) {
    b = buckets;
  } else if (position > 0) {
    b = static_cast<int64_t>(position);
  }
  return {static_cast<Index>(p.table[2 * b]), static_cast<Index>(p.table[2 * b + 1])};
}

// lo plus the number of k in lo <= k < hi with x[k] <= t, for ascending x. A narrow bracket is counted: its comparisons
// do not wait for each other.
template <class Real, class Index>
Index count_one_site(const Real* x, Index lo, Index hi, Real t) {
  using V = Lanes<Real>;
  constexpr Index kCountingWidth = 40;  // wider ones are halved first
  while (hi - lo > kCountingWidth) {
    const Index mid = lo + (hi - lo) / 2;
    const bool above = x[mid] > t;
    hi = above ? mid : hi;
    lo = above ? lo : mid;
  }
  Index count = 0, k = lo;
  for (; k + kWidth<V> <= hi; k += kWidth<V>) count += __builtin_popcount(lane_bits(V(t) >= load<V>(x + k)));
  const Index rest = hi - k;
  if (rest > 0 && hi >= kWidth<V>) {  // they are the last ones before hi
    const unsigned last = lane_bits(V(t) >= load<V>(x + hi - kWidth<V>));
    return lo + count + __builtin_popcount(last >> (kWidth<V> - rest));
  }
  for (; k < hi; ++k) count += x[k] <= t;
  return lo + count;
}

template <class Index, class Real>
Index hybrid_cell(const Lookup<Real>& p, Real t) {
  const Index nx = static_cast<Index>(p.nx);
  if (!(t >= p.x[0])) return 0;
  if (t > p.x[nx - 1]) return nx;
  if (t == p.x[nx - 1]) return nx - 1;
  const auto [lo, hi] = hybrid_bracket<Index>(p, t);
  return count_one_site(p.x, lo, hi, t);
}

// One site of an ascending sequence; *state is the cell that the one before ended in.
template <class Index, class Real>
Index sorted_cell(const Lookup<Real>& p, Real t, Index* state) {
  const Index nx = static_cast<Index>(p.nx);
  if (t == p.x[nx - 1]) return nx - 1;
  return *state = scan_up(p.x, nx, *state, t);
}

// Before the first site, to near its cell.
template <class Index, class Real>
void approach_first_site(const Lookup<Real>& p, Real t, Index* state) {
  if (*state >= p.nx - p.nx / 2 || t == p.x[p.nx - 1]) return;
  *state = leap_up(p.x, static_cast<Index>(p.nx), *state, t);
}

// A caller's guess made right. A site equal to x[guess] stays in cell `guess`.
template <class Real>
int64_t refined_cell(const Lookup<Real>& p, int64_t guess, Real t) {
  const int64_t nx = p.nx, g = std::max<int64_t>(guess, 0);
  const Real end = p.x[nx - 1];
  if (g >= nx) return t == end ? nx - 1 : scan_down<Real, int64_t>(p.x, nx, t);
  if (t <= p.x[g]) {
    if (guess < 1) return 0;
    if (p.x[g - 1] <= t) return g;
    return t == end ? nx - 1 : scan_down<Real, int64_t>(p.x, g, t);
  }
  return t == end ? nx - 1 : scan_up<Real, int64_t>(p.x, nx, g, t);
}

}  // namespace orvik::df

#endif
