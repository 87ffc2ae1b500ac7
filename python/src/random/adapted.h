// Draws of the front in NumPy's terms.
#pragma once

#include <cmath>
#include <cstdint>

#include "orvik/front.h"

namespace orvik::python {

// The front's numbers are minima; maxima, which NumPy draws, are their mirror image. `gumbel` draws n of a location.
template <class T, class Draw>
orvik_status maxima(int64_t n, T* r, T loc, const Draw& gumbel) {
  const orvik_status status = gumbel(-loc);
  for (int64_t i = 0; status >= 0 && i < n; ++i) r[i] = -r[i];
  return status;
}

// The front counts failures before a success; NumPy the trials.
inline orvik_status trials(orvik_stream* from, int64_t n, int32_t* r, double p) {
  const orvik_status status = orvik_i_geometric_threads(from, n, r, p, 0);
  for (int64_t i = 0; status >= 0 && i < n; ++i) r[i] += r[i] < INT32_MAX;
  return status;
}

// In the front's integers the sum low + u (high - low) may be rounded up to `high`, which is none of them here.
inline orvik_status integers(orvik_stream* from, int64_t n, int32_t* r, int32_t low, int32_t high) {
  const double length = static_cast<double>(high) - low;
  const bool may_round_up = std::fma(1 - 0x1p-53, length, low) >= high;
  const orvik_status status = orvik_i_uniform_threads(from, n, r, low, high, 0);
  for (int64_t i = 0; may_round_up && status >= 0 && i < n; ++i) r[i] -= r[i] == high;
  return status;
}

}  // namespace orvik::python
