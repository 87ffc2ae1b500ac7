// The quantile of Poisson's distribution up to 1 / lambda (Cornish, Fisher 1937; Giles 2016) and its distribution
// function by the uniform expansion of the incomplete gamma function (Temme 1979).
#include "qor/rng/poisson_counts.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "qor/rng/gaussian.h"
#include "qor/rng/kernels.h"
#include "qor/rng/loops.h"

namespace orvik::qor {
namespace {

constexpr double kRootHalf = 0x1.6a09e667f3bcdp-1, kTwoPi = 0x1.921fb54442d18p+2;
constexpr double kMostCount = std::numeric_limits<int32_t>::max();

// x - ln(1 + x) where |x| is at most 1/16; what follows is below 2^-38 of it.
constexpr double kNear = 0.0625;
double less_logarithm(double x) {
  const double sum = 1.0 / 7 - x * (0.125 - x * (1.0 / 9 - x * 0.1));
  return x * x * (0.5 - x * (1.0 / 3 - x * (0.25 - x * (0.2 - x * (1.0 / 6 - x * sum)))));
}

// What the distribution function has beyond erfc, by its density at the mean.
double beyond_erfc(double eta, double k) {
  const double zeroth =
      -0.33333333333333333 +
      eta * (0.083333333333333333 +
             eta * (-0.014814814814814815 +
                    eta * (0.0011574074074074074 +
                           eta * (0.00035273368606701940 +
                                  eta * (-0.00017875514403292181 +
                                         eta * (0.000039192631785224378 - eta * 0.0000021854485106799922))))));
  const double first = -0.0018518518518518519 +
                       eta * (-0.0034722222222222222 +
                              eta * (0.0026455026455026455 + eta * (-0.00099022633744855967 + eta * 0.00020576131687)));
  const double second = 0.0041335978835978836 - eta * 0.0026813271604938272;
  return zeroth + (first + second / k) / k;
}

}  // namespace

template <class T>
int32_t counts_of_normals(int32_t n, const T* z, const double* lambda, double error, int32_t* r, int32_t* open) {
  double low[kCounts];
  for (int32_t i = 0; i < n; ++i) {
    const double w = static_cast<double>(z[i]), square = w * w, sigma = std::sqrt(lambda[i]);
    const double quantile = lambda[i] + sigma * w + (1.0 / 3 + square * (1.0 / 6)) -
                            w * (1.0 / 36 + square * (1.0 / 72)) / sigma +
                            (-8.0 / 405 + square * (7.0 / 810 + square * (1.0 / 270))) / lambda[i];
    // The first: of the series, for means from 27 and |w| up to 8.
    const double gap =
        (0.05 + square * square * square * 0.001) / (lambda[i] * sigma) + sigma * error * std::max(1.0, std::fabs(w));
    const double highest = std::floor(quantile + gap);
    low[i] = quantile - gap;
    // Of a mean that is infinite the quantile may be no number.
    r[i] = static_cast<int32_t>(highest < kMostCount ? std::max(highest, 0.0) : kMostCount);
  }
  int32_t opened = 0;
  for (int32_t i = 0; i < n; ++i) {
    open[opened] = i;
    const double k = r[i];
    opened += (k > low[i]) & (k >= 1) & (k < kMostCount);
  }
  return opened;
}
template int32_t counts_of_normals(int32_t, const double*, const double*, double, int32_t*, int32_t*);
template int32_t counts_of_normals(int32_t, const float*, const double*, double, int32_t*, int32_t*);

void probabilities_below(int32_t n, const int32_t* open, const double* lambda, const int32_t* r, double* below) {
  double ratio[kCounts], eta[kCounts], density[kCounts];
  for (int32_t j = 0; j < n; ++j) ratio[j] = lambda[open[j]] / r[open[j]];
  kernels::ln.call(Level::high, n, ratio, ratio);
  for (int32_t j = 0; j < n; ++j) {
    const double k = r[open[j]], x = (lambda[open[j]] - k) / k;
    const double half_square = std::fabs(x) <= kNear ? less_logarithm(x) : x - ratio[j];
    eta[j] = std::copysign(std::sqrt(std::max(2 * half_square, 0.0)), x);
    below[j] = eta[j] * std::sqrt(0.5 * k);
    density[j] = -k * half_square;
  }
  kernels::erf.call(Level::low, n, below, below);
  kernels::exp(n, density, density);
  for (int32_t j = 0; j < n; ++j) {
    const double k = r[open[j]];
    below[j] = 0.5 - 0.5 * below[j] + density[j] / std::sqrt(kTwoPi * k) * beyond_erfc(eta[j], k);
  }
}

bool counts_of_drawn_normals(Uniforms<double>& uniforms, int32_t n, const double* lambda, int32_t* r) {
  constexpr double kError = 0x1p-22;  // of the floats at low accuracy
  float z[kCounts];
  int32_t open[kCounts];
  if (!uniforms.took(gaussian<float>(kInverse, uniforms.stream(), n, z, 0, 1))) return false;
  const int32_t opened = counts_of_normals(n, z, lambda, kError, r, open);
  if (opened == 0) return true;
  double u[kCounts], below[kCounts];
  if (!uniforms.draw(opened, u)) return false;
  for (int32_t j = 0; j < opened; ++j) {
    const double w = static_cast<double>(z[open[j]]);
    u[j] = (w + (2 * u[j] - 1) * kError * std::max(1.0, std::fabs(w))) * kRootHalf;
  }
  kernels::erf.call(Level::low, opened, u, u);
  probabilities_below(opened, open, lambda, r, below);
  for (int32_t j = 0; j < opened; ++j) r[open[j]] -= 0.5 + 0.5 * u[j] <= below[j];
  return true;
}

}  // namespace orvik::qor
