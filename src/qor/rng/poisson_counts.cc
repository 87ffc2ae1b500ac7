// The quantile of Poisson's distribution up to 1 / lambda (Cornish, Fisher 1937; Giles 2016) and its distribution
// function by the uniform expansion of the incomplete gamma function (Temme 1979).
#include "qor/rng/poisson_counts.h"

#include <limits>

#include "lanes/round.h"
#include "qor/rng/gaussian.h"
#include "qor/rng/kernels.h"
#include "qor/rng/loops.h"

namespace orvik::qor {
namespace {

constexpr double kRootHalf = 0x1.6a09e667f3bcdp-1, kTwoPi = 0x1.921fb54442d18p+2;
constexpr double kMostCount = std::numeric_limits<int32_t>::max();

using V = F64;

// x - ln(1 + x) where |x| is at most 1/16; what follows is below 2^-38 of it.
constexpr double kNear = 0.0625;
V less_logarithm(V x) {
  const V sum = V(1.0 / 7) - x * (V(0.125) - x * (V(1.0 / 9) - x * V(0.1)));
  const V rest = V(0.25) - x * (V(0.2) - x * (V(1.0 / 6) - x * sum));
  return x * x * (V(0.5) - x * (V(1.0 / 3) - x * rest));
}

// What the distribution function has beyond erfc, by its density at the mean.
V beyond_erfc(V eta, V k) {
  const V far =
      V(0.00035273368606701940) +
      eta * (V(-0.00017875514403292181) + eta * (V(0.000039192631785224378) - eta * V(0.0000021854485106799922)));
  const V zeroth =
      V(-0.33333333333333333) +
      eta * (V(0.083333333333333333) + eta * (V(-0.014814814814814815) + eta * (V(0.0011574074074074074) + eta * far)));
  const V first =
      V(-0.0018518518518518519) +
      eta * (V(-0.0034722222222222222) +
             eta * (V(0.0026455026455026455) + eta * (V(-0.00099022633744855967) + eta * V(0.00020576131687))));
  const V second = V(0.0041335978835978836) - eta * V(0.0026813271604938272);
  return zeroth + (first + second / k) / k;
}

// P(X < counts[i])
void probabilities_below(int32_t n, const double* mean, const double* counts, double* below) {
  double ratio[kCounts], eta[kCounts], density[kCounts];
  for_each_vector<V>(n, [&](auto at) { at.store(ratio, at.load(mean) / at.load(counts)); });
  kernels::ln.call(Level::high, n, ratio, ratio);
  for_each_vector<V>(n, [&](auto at) {
    const V k = at.load(counts), x = (at.load(mean) - k) / k;
    const V half_square = select(magnitude(x) <= V(kNear), less_logarithm(x), x - at.load(ratio));
    const V root = copy_sign(sqrt(max(V(0), V(2) * half_square)), x);
    at.store(eta, root);
    at.store(below, root * sqrt(V(0.5) * k));
    at.store(density, (k ^ sign_mask<V>()) * half_square);
  });
  kernels::erf.call(Level::low, n, below, below);
  kernels::exp(n, density, density);
  for_each_vector<V>(n, [&](auto at) {
    const V k = at.load(counts), at_mean = at.load(density) / sqrt(V(kTwoPi) * k);
    at.store(below, V(0.5) - V(0.5) * at.load(below) + at_mean * beyond_erfc(at.load(eta), k));
  });
}

}  // namespace

void OpenCounts::take(int32_t all, const double* x, double* list) const {
  int32_t taken = 0;
  for_each_vector<V>(all, [&](auto at) { taken += gather_chosen(places(at), at.load(x), list + taken); });
}

void OpenCounts::settle(const double* u) {
  double below[kCounts];
  probabilities_below(n, mean, count, below);
  for_each_vector<V>(n, [&](auto at) { at.store(count, at.load(count) - keep(at.load(u) <= at.load(below), V(1))); });
}

void counts_of_normals(int32_t n, const double* z, const double* mean, double error, double* counts, OpenCounts& open) {
  open.n = 0;
  for_each_vector<V>(n, [&](auto at) {
    const V w = at.load(z), square = w * w, lambda = at.load(mean), sigma = sqrt(lambda);
    const V quantile = lambda + sigma * w + (V(1.0 / 3) + square * V(1.0 / 6)) -
                       w * (V(1.0 / 36) + square * V(1.0 / 72)) / sigma +
                       (V(-8.0 / 405) + square * (V(7.0 / 810) + square * V(1.0 / 270))) / lambda;
    // The first: of the series, for means from 27 and |w| up to 8.
    const V gap =
        (V(0.05) + square * square * square * V(0.001)) / (lambda * sigma) + sigma * V(error) * max(magnitude(w), V(1));
    const V highest = round<Direction::down>(quantile + gap), low = quantile - gap;
    // Of a mean that is infinite the quantile may be no number.
    const V k = select(highest < V(kMostCount), max(V(0), highest), V(kMostCount));
    at.store(counts, k);
    const uint32_t bits = at.bits((k > low) & (k >= V(1)) & (k < V(kMostCount)));
    open.places.set(at, bits);
    gather_chosen(bits, w, open.z + open.n);
    gather_chosen(bits, lambda, open.mean + open.n);
    open.n += gather_chosen(bits, k, open.count + open.n);
  });
}

void deliver(int32_t n, const double* counts, const OpenCounts& open, double* r) {
  Expander<V> settled(open.count);
  for_each_vector<V>(n, [&](auto at) {
    const uint32_t bits = open.places(at);
    at.store(r, select(chosen<V>(bits), settled(bits), at.load(counts)));
  });
}

bool counts_of_drawn_normals(Uniforms<double>& uniforms, int32_t n, const double* mean, double* counts) {
  constexpr double kError = 0x1p-22;  // of the floats at low accuracy
  float normals[kCounts];
  double z[kCounts];
  OpenCounts open;
  if (!uniforms.took(gaussian<float>(kInverse, uniforms.stream(), n, normals, 0, 1))) return false;
  for (int32_t i = 0; i < n; ++i) z[i] = static_cast<double>(normals[i]);
  counts_of_normals(n, z, mean, kError, counts, open);
  if (open.n == 0) return true;
  double u[kCounts];
  if (!uniforms.draw(open.n, u)) return false;
  for_each_vector<V>(open.n, [&](auto at) {
    const V w = at.load(open.z);
    at.store(u, (w + (V(2) * at.load(u) - V(1)) * V(kError) * max(magnitude(w), V(1))) * V(kRootHalf));
  });
  kernels::erf.call(Level::low, open.n, u, u);
  transform(open.n, u, [](double x) { return 0.5 + 0.5 * x; });
  open.settle(u);
  deliver(n, counts, open, counts);
  return true;
}

}  // namespace orvik::qor
