// Sites that are given as an even grid by its two ends.
#ifndef ORVIK_DF_SEARCH_SITES_H
#define ORVIK_DF_SEARCH_SITES_H

#include <cmath>
#include <cstdint>

namespace orvik::df {

// out[j] = site first + j of `total` between ends[0] and ends[1]. One site alone is not a number.
template <class Real>
void expand_uniform_sites(const Real* ends, int64_t total, int64_t first, int64_t count, Real* out) {
  const Real start = ends[0], range = ends[1] - ends[0];
  const Real part = 1 / static_cast<Real>(total - 1);
  for (int64_t j = 0; j < count; ++j) out[j] = std::fma(part, range * static_cast<Real>(first + j), start);
}

}  // namespace orvik::df

#endif
