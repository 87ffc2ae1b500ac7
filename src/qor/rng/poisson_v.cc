// PoissonV: a mean for each number. Small means by the series of probabilities, means up to a bound by the inverse of
// the distribution function, both from one uniform; large ones from normal numbers.
#include <algorithm>
#include <cmath>

#include "orvik/qor.h"
#include "qor/rng/bracket.h"
#include "qor/rng/callbacks.h"
#include "qor/rng/entry.h"
#include "qor/rng/kernels.h"
#include "qor/rng/loops.h"
#include "qor/rng/poisson_counts.h"
#include "qor/rng/uniforms.h"

namespace orvik::qor {
namespace {

constexpr double kDirectBelow = 1037;
constexpr int32_t kSeriesEnd = 110;  // P(X > 110) is below 10^-28 where the mean is below 27

// The least k with u <= P(X <= k), from P(0).
int32_t by_series(double u, double lambda, double f) {
  int32_t k = 0;
  while (u > f && k < kSeriesEnd) {
    u -= f;
    ++k;
    f *= lambda / k;
  }
  return k;
}

// Counts of n uniforms, each with its mean; those of the series are listed by their place.
void direct(int32_t n, const double* u, const double* lambda, int32_t* r) {
  double f[kCounts], z[kCounts];
  for (int32_t i = 0; i < n; ++i) f[i] = -std::min(lambda[i], kPolynomialFrom);
  kernels::exp.call(Level::high, n, f, f);
  int32_t at[kCounts], larger = 0;
  for (int32_t i = 0; i < n; ++i) {
    if (lambda[i] < kPolynomialFrom) {
      r[i] = by_series(u[i], lambda[i], f[i]);
    } else {
      at[larger] = i;
      z[larger++] = 2 * u[i] - 1;
    }
  }
  if (larger == 0) return;
  constexpr double kError = 0x1p-24;  // of the inverse at enhanced performance
  double means[kCounts], below[kCounts];
  int32_t counts[kCounts], open[kCounts];
  kernels::erf_inv(larger, z, z);
  for (int32_t j = 0; j < larger; ++j) {
    z[j] *= Precision<double>::kSqrtTwo;
    means[j] = lambda[at[j]];
  }
  const int32_t opened = counts_of_normals(larger, z, means, kError, counts, open);
  if (opened > 0) probabilities_below(opened, open, means, counts, below);
  for (int32_t j = 0; j < opened; ++j) counts[open[j]] -= u[at[open[j]]] <= below[j];
  for (int32_t j = 0; j < larger; ++j) r[at[j]] = counts[j];
}

bool block(Uniforms<double>& uniforms, int32_t n, int32_t* r, const double* lambda) {
  double means[kCounts], u[kCounts];
  int32_t at[kCounts], counts[kCounts], small = 0, large = 0;
  // Small means gather at the front, large ones at the end, both in order.
  for (int32_t i = 0; i < n; ++i) small += lambda[i] < kDirectBelow;
  large = small;
  small = 0;
  const int32_t first_large = large;
  for (int32_t i = 0; i < n; ++i) {
    int32_t& place = lambda[i] < kDirectBelow ? small : large;
    means[place] = lambda[i];
    at[place++] = i;
  }
  if (small > 0) {
    if (!uniforms.draw(small, u)) return false;
    direct(small, u, means, counts);
    for (int32_t j = 0; j < small; ++j) r[at[j]] = counts[j];
  }
  if (large > first_large) {
    const int32_t count = large - first_large;
    if (!counts_of_drawn_normals(uniforms, count, means + first_large, counts)) return false;
    for (int32_t j = 0; j < count; ++j) r[at[first_large + j]] = counts[j];
  }
  return true;
}

}  // namespace

int32_t poisson_v(uint32_t, OrvikStream stream, int32_t n, int32_t* r, const double* lambda) {
  const EntryBracket bracket(gaussian_limits<double>);
  Uniforms<double> uniforms(stream);
  for_each_block<kCounts>(
      n, [&](int32_t first, int32_t count) { return block(uniforms, count, r + first, lambda + first); });
  return uniforms.status();
}

}  // namespace orvik::qor

ORVIK_QOR_ENTRY(_qoriRngPoissonV, poisson_v,
                (uint32_t method, OrvikStream stream, int32_t n, int32_t* r, const double* lambda),
                (method, stream, n, r, lambda))
