#include "qor/ss/chi_square.h"

#include <algorithm>
#include <cmath>

#include "orvik/ss.h"
#include "qor/ss/kernels.h"

namespace orvik::ss {
namespace {

constexpr double kLeast = -709.7827129;          // below, an exponential counts as 0
constexpr double kTerm = 9.999999999999999e-16;  // relative size of a last term
constexpr double kStep = 1e-15;                  // relative size of a last step of Newton's
constexpr double kLargeShape = 20;               // from here on by Stirling's series

// u - ln(1 + u) for 1 + u = x / a, no digits lost around 0.
double excess_of_log(double x, double a) {
  const double u = (x - a) / a;
  if (std::fabs(u) > 0.25) return u - std::log(x / a);
  double power = u * u, sum = power / 2;
  for (int k = 3; k < 60; ++k) {
    power *= -u;
    const double term = power / k;
    sum += term;
    if (std::fabs(term) <= 1e-17 * sum) break;
  }
  return sum;
}

// ln Gamma(a) - ((a - 1/2) ln a - a + ln(2 pi) / 2), for large a.
double stirling_rest(double a) {
  const double s = 1 / (a * a);
  return (1.0 / 12 - s * (1.0 / 360 - s * (1.0 / 1260 - s * (1.0 / 1680 - s * (1.0 / 1188 - s * (691.0 / 360360)))))) /
         a;
}

// x^a e^-x / Gamma(a). For large a the three factors are far larger than their product, so that their logarithms would
// cancel: there the power of e is taken from the distance of x to a.
double head(double a, double x) {
  double exponent, factor = 1;
  if (a < kLargeShape) {
    exponent = a * std::log(x) - x - kernel_lgamma(a);
  } else {
    exponent = -a * excess_of_log(x, a) - stirling_rest(a);
    factor = std::sqrt(a / (2 * M_PI));
  }
  return exponent < kLeast ? 0.0 : factor * std::exp(exponent);
}

// Lower part of the incomplete gamma function by its series.
double by_series(double a, double x) {
  const double h = head(a, x);
  if (h == 0) return 0;
  double term = 1, sum = 1;
  for (double k = a; term / sum > kTerm;) {
    k += 1;
    term *= x / k;
    sum += term;
  }
  return h * sum / a;
}

// Upper part by its continued fraction (Lentz's form; Thompson and Barnett 1986).
double by_fraction(double a, double x) {
  const double h = head(a, x);
  if (h == 0) return 0;
  constexpr double kTiny = 1e-300;
  double b = x + 1 - a, c = 1 / kTiny, d = 1 / b, f = d;
  for (int64_t k = 1; k < 1'000'000'000; ++k) {
    const double step = static_cast<double>(k), numerator = -step * (step - a);
    b += 2;
    d = numerator * d + b;
    d = 1 / (std::fabs(d) < kTiny ? kTiny : d);
    c = b + numerator / c;
    if (std::fabs(c) < kTiny) c = kTiny;
    const double change = c * d;
    f *= change;
    if (std::fabs(change - 1) <= kTerm) break;
  }
  return h * f;
}

bool series_serves(double a, double x) { return x <= 1 || x <= a; }

}  // namespace

double chi_square_below(double k, double x) {
  if (x != x) return x;
  if (!(x > 0)) return 0;
  if (x > kChiSquareCap && x > 4 * k) return 1;
  const double a = k / 2, y = x / 2;
  return series_serves(a, y) ? std::min(by_series(a, y), 1.0) : 1 - by_fraction(a, y);
}

double chi_square_above(double k, double x) {
  if (x != x) return x;
  if (!(x > 0)) return 1;
  if (x > kChiSquareCap && x > 4 * k) return 0;
  const double a = k / 2, y = x / 2;
  return series_serves(a, y) ? std::max(1 - by_series(a, y), 0.0) : by_fraction(a, y);
}

double chi_square_density(double k, double x) {
  if (x != x) return x;
  if (!(x > 0) || std::isinf(x)) return 0;
  // ln 2 / 2 as the interface fixes it, 2e-11 from the true one.
  const double exponent = (k / 2 - 1) * std::log(x) - x / 2 - 0.34657359029999996 * k - kernel_lgamma(k / 2);
  return exponent < kLeast ? 0.0 : std::exp(exponent);
}

// Newton's steps from the start of Wilson and Hilferty (1931), between bounds that close in: far out in a tail a step
// may leave them, and is replaced by their middle.
double chi_square_quantile(double p, double k) {
  if (p != p) return p;
  if (p <= 0) return 0;
  if (p >= 1) return kChiSquareCap;
  const double v = 2.0 / 9 / k, z = M_SQRT2 * kernel_erf_inv(std::max(2 * p - 1, -1 + 0x1p-52));
  const double root = 1 - v + z * std::sqrt(v);
  // Where the cube is no use, the first term of the series at 0: P = (x/2)^(k/2) / Gamma(k/2 + 1).
  double x = k * root * root * root;
  const double small = 2 * std::exp((std::log(p) + kernel_lgamma(k / 2 + 1)) * 2 / k);
  if (!(root > 0) || x < small) x = small;
  if (!(x > 0)) return 0;
  double low = 0, high = kChiSquareCap;
  x = std::min(x, high);
  for (int round = 0; round < 200; ++round) {
    // In the lower half on the logarithms, where the function is nearly a power of x.
    const double below = chi_square_below(k, x), density = chi_square_density(k, x);
    const double fault = p < 0.5 ? below - p : (1 - p) - chi_square_above(k, x);
    if (fault == 0) break;
    (fault < 0 ? low : high) = x;
    const double newton =
        p < 0.5 && below > 0 ? x * std::exp(below * std::log(p / below) / (x * density)) : x - fault / density;
    if (std::fabs(newton - x) <= kStep * x) return newton;
    const bool outside = !(newton > low && newton < high);
    x = !outside ? newton : high < kChiSquareCap ? (low + high) / 2 : std::min(2 * x, kChiSquareCap);
    if (high - low <= kStep * low) break;
  }
  return x;
}

}  // namespace orvik::ss

extern "C" {
double __qordLGamma(double x) { return orvik::ss::kernel_lgamma(x); }
double __qordChi2CDF(int32_t k, double x) { return orvik::ss::chi_square_below(k, x); }
double __qordChi2PDF(int32_t k, double x) { return orvik::ss::chi_square_density(k, x); }
double __qordChi2ICDF(double p, int32_t k) { return orvik::ss::chi_square_quantile(p, k); }
}
