// The search methods over many sites: the cells of cells.h, faster.
#ifndef ORVIK_DF_SEARCH_BLOCKS_H
#define ORVIK_DF_SEARCH_BLOCKS_H

#include "df/search/cells.h"

namespace orvik::df {

template <class Index, class Real, class Cell>
void uniform_cells(const Lookup<Real>& p, int64_t n, const Real* site, Cell* cell) {
  const Real x0 = p.x[0], x1 = p.x[1], value = p.value, limit = real_not_below<Real>(p.nx - 1);
  const Index nx = static_cast<Index>(p.nx);
  for (int64_t j = 0; j < n; ++j) {
    const Real t = site[j];
    const Real position = (t - x0) * value;
    const bool inside = t >= x0 && t < x1 && position < limit;
    const Index c = static_cast<Index>(inside ? position : Real(0)) + 1;
    const Index outside = t == x1 ? nx - 1 : t >= x0 ? nx : 0;
    cell[j] = inside ? c : outside;
  }
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
  for (int64_t j = 0; j < n; ++j) cell[j] = sorted_cell(p, site[j], &state);
  *sorted_state = state;
}

template <class Index, class Real, class Cell>
void peak_cells(const Lookup<Real>& p, int64_t n, const Real* site, Cell* cell) {
  for (int64_t j = 0; j < n; ++j) cell[j] = peak_cell<Index>(p, site[j]);
}

template <class Index, class Real, class Cell>
void hybrid_cells(const Lookup<Real>& p, int64_t n, const Real* site, Cell* cell) {
  for (int64_t j = 0; j < n; ++j) cell[j] = hybrid_cell<Index>(p, site[j]);
}

}  // namespace orvik::df

#endif
