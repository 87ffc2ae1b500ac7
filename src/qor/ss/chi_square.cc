#include "qor/ss/chi_square.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "orvik/ss.h"
#include "qor/ss/kernels.h"

namespace orvik::ss {
namespace {

// Logarithms, sums and products are taken in extended precision: exponents reach 745, and sums have some 10^4 terms
// where there are 10^7 degrees. A result is rounded once.
using Wide = long double;

constexpr Wide kLeast = -709.7827129L;  // below, an exponential counts as 0
constexpr Wide kTerm = 5e-20L;          // relative size of what a series leaves out
constexpr Wide kChange = 5e-19L;  // relative size of a last step of the fraction, above what rounding makes of one
constexpr Wide kStep = 1e-15L;    // relative size of a last step of Newton's
constexpr Wide kLargeShape = 20;  // from here on by Stirling's series

// The exponential that a value is a multiple of is so small that it counts as 0.
bool is_least(Wide exponent) { return exponent < kLeast; }

Wide log_gamma(Wide a) {
  int sign;  // not the process's one
  return lgammal_r(a, &sign);
}

// u - ln(1 + u) for 1 + u = x / a, no digits lost around 0: with v = u / (2 + u), ln(1 + u) = 2 (v + v^3 / 3 + ...) and
// u - 2 v = u v.
Wide excess_of_log(Wide x, Wide a) {
  const Wide u = (x - a) / a;
  if (u < -0.5L || u > 1) return u - std::log(x / a);
  const Wide v = u / (2 + u), square = v * v;
  Wide power = v, rest = 0;
  for (int k = 3; k < 60; k += 2) {
    power *= square;
    const Wide term = power / k;
    rest += term;
    if (std::fabs(term) <= kTerm * std::fabs(rest)) break;
  }
  return u * v - 2 * rest;
}

// ln Gamma(a) - ((a - 1/2) ln a - a + ln(2 pi) / 2), for large a.
Wide stirling_rest(Wide a) {
  constexpr Wide kCoefficients[] = {-3617.0L / 122400, 1.0L / 156,  -691.0L / 360360, 1.0L / 1188,
                                    -1.0L / 1680,      1.0L / 1260, -1.0L / 360,      1.0L / 12};
  const Wide s = 1 / (a * a);
  Wide sum = 0;
  for (const Wide c : kCoefficients) sum = sum * s + c;
  return sum / a;
}

// x^a e^-x / Gamma(a) as a factor and an exponent. For large a the three factors are far larger than their product, so
// that their logarithms would cancel: there the power of e is taken from the distance of x to a.
struct Head {
  Wide exponent, factor = 1;

  Head(Wide a, Wide x) {
    if (a < kLargeShape) {
      exponent = a * std::log(x) - x - log_gamma(a);
    } else {
      exponent = -a * excess_of_log(x, a) - stirling_rest(a);
      factor = std::sqrt(a / (2 * std::numbers::pi_v<Wide>));
    }
  }
  Wide value() const { return factor * std::exp(exponent); }
};

// What the head is multiplied with for the lower part of the incomplete gamma function, by its series.
Wide by_series(Wide a, Wide x) {
  Wide term = 1, sum = 1;
  for (Wide k = a; k < x || term * x > kTerm * sum * (k + 1 - x);) {  // the rest is less than a geometric series
    k += 1;
    term *= x / k;
    sum += term;
  }
  return sum / a;
}

// For the upper part by its continued fraction (Lentz's form; Thompson and Barnett 1986).
Wide by_fraction(Wide a, Wide x) {
  constexpr Wide kTiny = 1e-300L;
  constexpr Wide kNear = 1e-15L;
  Wide b = x + 1 - a, c = 1 / kTiny, d = 1 / b, f = d, last = 1;
  for (int64_t k = 1; k < 1'000'000'000; ++k) {
    const Wide step = static_cast<Wide>(k), numerator = -step * (step - a);
    b += 2;
    d = numerator * d + b;
    d = 1 / (std::fabs(d) < kTiny ? kTiny : d);
    c = b + numerator / c;
    if (std::fabs(c) < kTiny) c = kTiny;
    const Wide change = c * d;
    f *= change;
    const Wide left = std::fabs(change - 1);
    // The steps of a caller who has set the unit to fewer bits end where they shrink no more.
    if (left <= kChange || (left <= kNear && left >= last)) break;
    last = left;
  }
  return f;
}

// The upper part of few degrees about an x of at most 1, where the lower one is near 1: that is y / Gamma(1 + a) with
// y = x^a, less an alternating series.
Wide above_of_few(Wide a, Wide x) {
  const Wide exponent = a * std::log(x) - log_gamma(1 + a);
  Wide power = x, sum = 0;  // x^k / k!
  for (int k = 1; k < 60; ++k) {
    const Wide term = power / (a + k);
    sum += k % 2 != 0 ? term : -term;
    if (term <= kTerm * sum) break;
    power *= x / (k + 1);
  }
  return std::exp(exponent) * a * sum - std::expm1(exponent);
}

bool series_serves(Wide a, Wide x) { return x <= 1 || x <= a; }

// The two parts about x, and the head, which is x times the density.
struct Parts {
  Wide head, below, above;

  Parts(Wide a, Wide x, const Head& h) : head(h.value()) {
    if (series_serves(a, x)) {
      below = std::min<Wide>(head * by_series(a, x), 1);
      above = a < 0.5L ? above_of_few(a, x) : 1 - below;
    } else {
      above = head * by_fraction(a, x);
      below = 1 - above;
    }
  }
  Parts(Wide a, Wide x) : Parts(a, x, Head(a, x)) {}
};

}  // namespace

double chi_square_below(double k, double x) {
  if (x != x) return x;
  if (!(x > 0)) return 0;
  if (x > kChiSquareCap && x > 4 * k) return 1;
  const Wide a = Wide(k) / 2, y = Wide(x) / 2;
  const Head head(a, y);
  if (is_least(head.exponent)) return series_serves(a, y) ? 0 : 1;
  return static_cast<double>(Parts(a, y, head).below);
}

double chi_square_above(double k, double x) {
  if (x != x) return x;
  if (!(x > 0)) return 1;
  if (x > kChiSquareCap && x > 4 * k) return 0;
  const Wide a = Wide(k) / 2, y = Wide(x) / 2;
  const Head head(a, y);
  if (is_least(head.exponent)) return series_serves(a, y) ? 1 : 0;
  return static_cast<double>(Parts(a, y, head).above);
}

double chi_square_density(double k, double x) {
  if (x != x) return x;
  if (!(x > 0) || std::isinf(x)) return 0;
  // ln 2 / 2 as the interface fixes it, 2e-11 from the true one.
  const Wide a = Wide(k) / 2, y = Wide(x) / 2;
  const Wide exponent = (a - 1) * std::log(Wide(x)) - y - Wide(0.34657359029999996) * k - log_gamma(a);
  return is_least(exponent) ? 0.0 : static_cast<double>(std::exp(exponent));
}

// Newton's steps from the start of Wilson and Hilferty (1931), between bounds that close in: far out in a tail a step
// may leave them, and is replaced by their middle. No tail is cut, since x is asked for and not its tail.
double chi_square_quantile(double p, double k) {
  if (p != p) return p;
  if (p <= 0) return 0;
  if (p >= 1) return kChiSquareCap;
  const Wide a = Wide(k) / 2;
  const double v = 2.0 / 9 / k, z = M_SQRT2 * kernel_erf_inv(std::max(2 * p - 1, -1 + 0x1p-52));
  const double root = 1 - v + z * std::sqrt(v);
  // Where the cube is no use, the first term of the series at 0: P = (x/2)^(k/2) / Gamma(k/2 + 1).
  Wide x = k * root * root * root;
  const Wide small = 2 * std::exp((std::log(Wide(p)) + log_gamma(a + 1)) / a);
  if (!(root > 0) || x < small) x = small;
  if (!(x > 0)) return 0;
  Wide low = 0, high = kChiSquareCap;
  x = std::min(x, high);
  for (int round = 0; round < 200; ++round) {
    const Parts parts(a, x / 2);
    // In the lower half on the logarithms, where the function is nearly a power of x.
    const Wide fault = p < 0.5 ? parts.below - p : (1 - Wide(p)) - parts.above;
    if (fault == 0) break;
    (fault < 0 ? low : high) = x;
    const Wide newton = p < 0.5 && parts.below > 0 ? x * std::exp(parts.below * std::log(p / parts.below) / parts.head)
                                                   : x - fault / parts.head * x;
    if (std::fabs(newton - x) <= kStep * x) {
      x = newton;
      break;
    }
    const bool outside = !(newton > low && newton < high);
    x = !outside ? newton : high < kChiSquareCap ? (low + high) / 2 : std::min<Wide>(2 * x, kChiSquareCap);
    if (high - low <= kStep * low) break;
  }
  return static_cast<double>(x);
}

}  // namespace orvik::ss

extern "C" {
double __qordLGamma(double x) { return orvik::ss::kernel_lgamma(x); }
double __qordChi2CDF(int32_t k, double x) { return orvik::ss::chi_square_below(k, x); }
double __qordChi2PDF(int32_t k, double x) { return orvik::ss::chi_square_density(k, x); }
double __qordChi2ICDF(double p, int32_t k) { return orvik::ss::chi_square_quantile(p, k); }
}
