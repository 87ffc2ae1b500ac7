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

using V = F64;

// The least k with u <= P(X <= k), from P(0), in those lanes.
V by_series(V u, V lambda, V f, Mask<V> lanes) {
  V count = V(0);
  lanes = lanes & (u > f);
  for (int32_t k = 1; k <= kSeriesEnd && !none(lanes); ++k) {
    u = u - f;
    f = f * (lambda / V(k));
    count = count + keep(lanes, V(1));
    lanes = lanes & (u > f);
  }
  return count;
}

// Counts of n uniforms, each with its mean.
void direct(int32_t n, const double* u, const double* mean, double* counts) {
  double f[kCounts], z[kCounts], larger_u[kCounts], larger_mean[kCounts], larger_count[kCounts + kBehind<V>];
  Chosen<V, kCounts> larger;
  for_each_vector<V>(n, [&](auto at) { at.store(f, min(V(kPolynomialFrom), at.load(mean)) ^ sign_mask<V>()); });
  kernels::exp.call(Level::high, n, f, f);
  int32_t many = 0;
  for_each_vector<V>(n, [&](auto at) {
    const V uniform = at.load(u), lambda = at.load(mean);
    const Mask<V> small = lambda < V(kPolynomialFrom);
    at.store(counts, by_series(uniform, lambda, at.load(f), small));
    const uint32_t bits = at.bits(complement(small));
    larger.set(at, bits);
    gather_chosen(bits, uniform, larger_u + many);
    many += gather_chosen(bits, lambda, larger_mean + many);
  });
  if (many == 0) return;
  constexpr double kError = 0x1p-24;  // of the inverse at enhanced performance
  OpenCounts open;
  transform(many, larger_u, z, [](double x) { return 2 * x - 1; });
  kernels::erf_inv(many, z, z);
  transform(many, z, [](double x) { return x * Precision<double>::kSqrtTwo; });
  counts_of_normals(many, z, larger_mean, kError, larger_count, open);
  if (open.n > 0) {
    double open_u[kCounts];
    open.take(many, larger_u, open_u);
    open.settle(open_u);
    deliver(many, larger_count, open, larger_count);
  }
  Expander<V> by_inverse(larger_count);
  for_each_vector<V>(n, [&](auto at) {
    const uint32_t bits = larger(at);
    at.store(counts, select(chosen<V>(bits), by_inverse(bits), at.load(counts)));
  });
}

bool block(Uniforms<double>& uniforms, int32_t n, int32_t* r, const double* mean) {
  double small_mean[kCounts], large_mean[kCounts], u[kCounts], small_count[kCounts + kBehind<V>],
      large_count[kCounts + kBehind<V>];
  Chosen<V, kCounts> small;
  int32_t few = 0, many = 0;
  for_each_vector<V>(n, [&](auto at) {
    const V lambda = at.load(mean);
    const Mask<V> below = lambda < V(kDirectBelow);
    small.set(at, at.bits(below));
    few += gather_chosen(at.bits(below), lambda, small_mean + few);
    many += gather_chosen(at.bits(complement(below)), lambda, large_mean + many);
  });
  Expander<V> small_counts(small_count), large_counts(large_count);
  if (few > 0) {
    if (!uniforms.draw(few, u)) return false;
    direct(few, u, small_mean, small_count);
  }
  if (many > 0 && !counts_of_drawn_normals(uniforms, many, large_mean, large_count)) {
    const double* next = small_count;  // which have been drawn
    for (int32_t i = 0; i < n; ++i)
      if (mean[i] < kDirectBelow) r[i] = static_cast<int32_t>(*next++);
    return false;
  }
  for_each_vector<V>(n, [&](auto at) {
    const uint32_t bits = small(at), others = at.bits(chosen<V>(~bits));
    at.give(r + at.first, select(chosen<V>(bits), small_counts(bits), large_counts(others)));
  });
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
