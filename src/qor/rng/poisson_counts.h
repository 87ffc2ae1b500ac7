// Poisson counts from normal numbers: the quantile as a polynomial in the number and in the mean, and the distribution
// function itself where the polynomial leaves a count open.
#pragma once

#include <cstdint>

#include "qor/rng/uniforms.h"

namespace orvik::qor {

// Counts a block, and the mean from which the polynomial serves.
inline constexpr int32_t kCounts = 2048;
inline constexpr double kPolynomialFrom = 27;

// The counts of n normal numbers, each with its mean, at most kCounts. `error`: of the numbers, relative above 1 and
// absolute below. Where a whole number lies within the errors of the quantile, the count is that number or the one
// before it: r has the higher one, `open` its place; how many.
template <class T>
int32_t counts_of_normals(int32_t n, const T* z, const double* lambda, double error, int32_t* r, int32_t* open);

// P(X < r[i]) for the open places i.
void probabilities_below(int32_t n, const int32_t* open, const double* lambda, const int32_t* r, double* below);

// Counts of floats from Gaussian by its inverse method. Those that the rounding of the floats leaves open are redrawn:
// one uniform puts each anew within the float's error, and the distribution function decides.
[[nodiscard]] bool counts_of_drawn_normals(Uniforms<double>& uniforms, int32_t n, const double* lambda, int32_t* r);

// PoissonV, for distributions that are built on it.
int32_t poisson_v(uint32_t method, OrvikStream stream, int32_t n, int32_t* r, const double* lambda);

}  // namespace orvik::qor
