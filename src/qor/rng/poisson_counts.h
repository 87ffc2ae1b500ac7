// Poisson counts from normal numbers: the quantile as a polynomial in the number and in the mean, and the distribution
// function itself where the polynomial leaves a count open.
#pragma once

#include <cstdint>

#include "qor/rng/uniforms.h"
#include "qor/rng/vectors.h"

namespace orvik::qor {

// Counts a block, and the mean from which the polynomial serves.
inline constexpr int32_t kCounts = 2048;
inline constexpr double kPolynomialFrom = 27;

// Where a whole number lies within the errors of a quantile: the count is that number or the one before it. The first
// `n` of each list, in order, and where they stand among all counts.
struct OpenCounts {
  int32_t n;
  Chosen<F64, kCounts> places;
  double z[kCounts], mean[kCounts], count[kCounts + kBehind<F64>];

  // Those of another array.
  void take(int32_t all, const double* x, double* list) const;
  // 1 off where u <= P(X < count).
  void settle(const double* u);
};

// The counts of n normal numbers, each with its mean, at most kCounts. `error`: of the numbers, relative above 1 and
// absolute below.
void counts_of_normals(int32_t n, const double* z, const double* mean, double error, double* counts, OpenCounts& open);

// All counts, the open ones as they were settled; r may be the counts.
void deliver(int32_t n, const double* counts, const OpenCounts& open, double* r);

// Counts of floats from Gaussian by its inverse method. Those that the rounding of the floats leaves open are redrawn:
// one uniform puts each anew within the float's error, and the distribution function decides.
[[nodiscard]] bool counts_of_drawn_normals(Uniforms<double>& uniforms, int32_t n, const double* mean, double* counts);

// PoissonV, for distributions that are built on it.
int32_t poisson_v(uint32_t method, OrvikStream stream, int32_t n, int32_t* r, const double* lambda);

}  // namespace orvik::qor
