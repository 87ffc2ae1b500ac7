#include "accuracy/fast_functions.h"

#include <math.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <limits>

namespace orvik::accuracy::fast {
namespace {

constexpr double kPi = 3.141592653589793;
constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

// x less the nearest even integer, exact: in [-1, 1].
double half_turns(double x) { return x - 2 * std::nearbyint(x / 2); }

// The quadrant and the rest in [-45, 45], exact.
struct Quadrant {
  int number;
  double rest;
};

constexpr auto kPowersOf2Mod360 = [] {
  std::array<uint32_t, 128> powers{1};
  for (size_t i = 1; i < powers.size(); ++i) powers[i] = powers[i - 1] * 2 % 360;
  return powers;
}();

Quadrant degrees(double magnitude) {
  if (magnitude < 0x1p40) {  // the rest is a multiple of 2^-18 unless the quotient is 0
    const double quotient = std::nearbyint(magnitude / 90);
    return {static_cast<int>(static_cast<int64_t>(quotient) & 3), std::fma(-90.0, quotient, magnitude)};
  }
  int exponent;
  const double mantissa = std::frexp(magnitude, &exponent);
  const auto significand = static_cast<uint32_t>(mantissa * 0x1p24);
  const uint32_t rest = significand % 360 * kPowersOf2Mod360[static_cast<size_t>(exponent - 24)] % 360;
  const uint32_t quotient = (rest + 45) / 90;
  return {static_cast<int>(quotient & 3), static_cast<double>(rest) - 90.0 * quotient};
}

double radians(double x) { return x * (kPi / 180); }

template <size_t N>
double polynomial(double x, const double (&c)[N]) {  // lowest term first
  double sum = c[N - 1];
  for (size_t i = N - 1; i-- > 0;) sum = std::fma(sum, x, c[i]);
  return sum;
}

// The normal quantile of min(p, 1 - p) where p - 0.5 = q, after Wichura 1988 (algorithm AS 241, PPND16).
double quantile(double q, double tail) {
  if (std::fabs(q) <= 0.425) {
    static constexpr double a[] = {3.3871328727963666080e0,  1.3314166789178437745e+2, 1.9715909503065514427e+3,
                                   1.3731693765509461125e+4, 4.5921953931549871457e+4, 6.7265770927008700853e+4,
                                   3.3430575583588128105e+4, 2.5090809287301226727e+3};
    static constexpr double b[] = {1.0,
                                   4.2313330701600911252e+1,
                                   6.8718700749205790830e+2,
                                   5.3941960214247511077e+3,
                                   2.1213794301586595867e+4,
                                   3.9307895800092710610e+4,
                                   2.8729085735721942674e+4,
                                   5.2264952788528545610e+3};
    const double r = 0.180625 - q * q;
    return q * polynomial(r, a) / polynomial(r, b);
  }
  const double r = std::sqrt(-std::log(tail));
  double value;
  if (r <= 5) {
    static constexpr double c[] = {1.42343711074968357734e0,  4.63033784615654529590e0, 5.76949722146069140550e0,
                                   3.64784832476320460504e0,  1.27045825245236838258e0, 2.41780725177450611770e-1,
                                   2.27238449892691845833e-2, 7.74545014278341407640e-4};
    static constexpr double d[] = {1.0,
                                   2.05319162663775882187e0,
                                   1.67638483018380384940e0,
                                   6.89767334985100004550e-1,
                                   1.48103976427480074590e-1,
                                   1.51986665636164571966e-2,
                                   5.47593808499534494600e-4,
                                   1.05075007164441684324e-9};
    value = polynomial(r - 1.6, c) / polynomial(r - 1.6, d);
  } else {
    static constexpr double e[] = {6.65790464350110377720e0,  5.46378491116411436990e0,  1.78482653991729133580e0,
                                   2.96560571828504891230e-1, 2.65321895265761230930e-2, 1.24266094738807843860e-3,
                                   2.71155556874348757815e-5, 2.01033439929228813265e-7};
    static constexpr double f[] = {1.0,
                                   5.99832206555887937690e-1,
                                   1.36929880922735805310e-1,
                                   1.48753612908506148525e-2,
                                   7.86869131145613259100e-4,
                                   1.84631831751005468180e-5,
                                   1.42151175831644588870e-7,
                                   2.04426310338993978564e-15};
    value = polynomial(r - 5, e) / polynomial(r - 5, f);
  }
  return std::copysign(value, q);
}

// Power series of I0 and I1 by Horner's rule: terms are positive, so that only roundings count. y = (x/2)^2.
template <class R>
R bessel_series(R y, int order, int terms) {
  static const auto reciprocals = [] {
    std::array<std::array<R, 200>, 2> made{};
    for (int k = 1; k < 200; ++k) {
      made[0][static_cast<size_t>(k)] = 1 / (R(k) * R(k));
      made[1][static_cast<size_t>(k)] = 1 / (R(k) * R(k + 1));
    }
    return made;
  }();
  R sum = 1;
  for (int k = terms; k > 0; --k) sum = 1 + sum * y * reciprocals[static_cast<size_t>(order)][static_cast<size_t>(k)];
  return sum;
}

double bessel_even_part(double magnitude, int order) {
  if (magnitude < 2) return bessel_series<double>(magnitude * magnitude / 4, order, 14);
  const int terms = 18 + static_cast<int>(1.4 * magnitude);
  const auto half = static_cast<long double>(magnitude) / 2;
  return static_cast<double>(bessel_series<long double>(half * half, order, terms));
}

// From 2^13 on four terms of Hankel's expansion, which leave 2e-17 of the amplitude; half the C library's time, where
// half of all floats lie. J is sqrt(2/(pi x)) (P cos t - Q sin t), Y with (P sin t + Q cos t), t = x - (2 order + 1)
// pi/4.
template <int order, bool second, double (*near)(double)>
double bessel(double x) {
  const double m = std::fabs(x);
  if (!(m >= 0x1p13) || std::isinf(m) || (second && x < 0)) return near(x);
  double s, c;
  sincos(m, &s, &c);
  const double u = 1 / m, v = u * u;
  const double p = 1 + (order == 0 ? -9.0 / 128 : 15.0 / 128) * v;
  const double q = u * (order == 0 ? -1.0 / 8 + 75.0 / 1024 * v : 3.0 / 8 - 105.0 / 1024 * v);
  const double cosine = order == 0 ? c + s : s - c, sine = order == 0 ? s - c : -(s + c);  // of t, times sqrt(2)
  const double value = std::sqrt(u / kPi) * (second ? p * sine + q * cosine : p * cosine - q * sine);
  return order == 1 && x < 0 ? -value : value;
}

}  // namespace

double bessel_j0(double x) { return bessel<0, false, ::j0>(x); }
double bessel_j1(double x) { return bessel<1, false, ::j1>(x); }
double bessel_y0(double x) { return bessel<0, true, ::y0>(x); }
double bessel_y1(double x) { return bessel<1, true, ::y1>(x); }

double sine_pi(double x) {
  if (!std::isfinite(x)) return kNan;
  if (x == 0) return x;
  const double r = half_turns(x), m = std::fabs(r);
  if (m <= 0.25) return std::sin(kPi * r);
  return std::copysign(m <= 0.75 ? std::cos(kPi * (m - 0.5)) : std::sin(kPi * (1 - m)), r);
}

double cosine_pi(double x) {
  if (!std::isfinite(x)) return kNan;
  const double m = std::fabs(half_turns(x));
  if (m <= 0.25) return std::cos(kPi * m);
  return m <= 0.75 ? std::sin(kPi * (0.5 - m)) : -std::cos(kPi * (1 - m));
}

double tangent_pi(double x) { return x == 0 ? x : sine_pi(x) / cosine_pi(x); }

double sine_degrees(double x) {
  if (!std::isfinite(x)) return kNan;
  const Quadrant q = degrees(std::fabs(x));
  const double r = radians(q.rest);
  const double value = q.number % 2 == 0 ? std::sin(r) : std::cos(r);
  return (q.number >= 2) != std::signbit(x) ? -value : value;
}

double cosine_degrees(double x) {
  if (!std::isfinite(x)) return kNan;
  const Quadrant q = degrees(std::fabs(x));
  const double r = radians(q.rest);
  const double value = q.number % 2 == 0 ? std::cos(r) : std::sin(r);
  return q.number == 1 || q.number == 2 ? -value : value;
}

double tangent_degrees(double x) {
  if (!std::isfinite(x)) return kNan;
  return x == 0 ? x : sine_degrees(x) / cosine_degrees(x);
}

double arc_sine_pi(double x) { return std::asin(x) / kPi; }
double arc_cosine_pi(double x) { return std::acos(x) / kPi; }
double arc_tangent_pi(double x) { return std::atan(x) / kPi; }

double scaled_erfc(double x) {
  if (x <= 10) return std::exp(x * x) * std::erfc(x);  // the square of a float is exact
  // (1 - 1/(2 x^2) + 3/(2 x^2)^2 - 15/(2 x^2)^3 ...) / (x sqrt(pi)): 14 terms leave 1e-17 at 10.
  const double s = 1 / (2 * x * x);
  double sum = 1;
  for (int k = 14; k > 0; --k) sum = 1 - (2 * k - 1) * s * sum;
  return sum / (x * 1.7724538509055160273);
}

double normal_cdf(double x) {
  // -x/sqrt(2) in head and tail: the tail of the function magnifies an error of its argument by x^2.
  constexpr double high = 0.70710678118654752440, low = -4.833646656726456726e-17;
  const double z = -x * high;
  if (!(std::fabs(x) < 40)) return std::erfc(z) / 2;
  const double tail = std::fma(-x, high, -z) - x * low;
  return (std::erfc(z) - tail * 1.1283791670955125739 * std::exp(-z * z)) / 2;
}

double inverse_erf(double x) {
  const double m = std::fabs(x);
  if (!(m < 1)) return m == 1 ? std::copysign(kInf, x) : kNan;
  if (m == 0) return x;
  return quantile(x / 2, (1 - m) / 2) * 0.70710678118654752440;
}

double inverse_erfc(double x) {
  if (!(x > 0 && x < 2)) return x == 0 ? kInf : x == 2 ? -kInf : kNan;
  if (x == 1) return 0;
  return -quantile((x - 1) / 2, (x < 1 ? x : 2 - x) / 2) * 0.70710678118654752440;
}

double inverse_normal_cdf(double x) {
  if (!(x > 0 && x < 1)) return x == 0 ? -kInf : x == 1 ? kInf : kNan;
  if (x == 0.5) return 0;
  return quantile(x - 0.5, x < 0.5 ? x : 1 - x);
}

double log_gamma(double x) {
  if (std::isinf(x)) return kInf;
  int sign;
  return lgamma_r(x, &sign);
}

double gamma(double x) {
  if (x < 0 && x == std::trunc(x)) return kNan;  // -inf too
  return std::tgamma(x);
}

double exponential_integral_1(double x) {
  constexpr double euler = 0.57721566490153286061;
  if (!(x > 0)) return x == 0 ? kInf : kNan;
  if (x < 0x1p-9) return x * (1 - x * (0.25 - x * (1.0 / 18 - x / 96))) - euler - std::log(x);
  if (x <= 1) {  // -ln x - euler + x - x^2/4 + x^3/18 ...
    long double sum = 0, term = -1;
    for (int k = 1; k < 22; ++k) {
      term *= -static_cast<long double>(x) / k;
      sum += term / k;
    }
    return static_cast<double>(sum - 0.577215664901532860606512090082402431L - logl(x));
  }
  if (x > 800) return 0;
  // e^-x / (x + 1 - 1/(x + 3 - 4/(x + 5 - 9/(x + 7 ...)))), from the end.
  long double fraction = 0;
  const long double w = x;
  for (int k = 25 + static_cast<int>(130 / x); k > 0; --k) {
    const auto square = static_cast<long double>(k) * k;
    fraction = square / (w + static_cast<long double>(2 * k + 1) - fraction);
  }
  return std::exp(-x) / static_cast<double>(w + 1 - fraction);
}

double bessel_i0(double x) {
  const double m = std::fabs(x);
  return m > 100 ? kInf : m != m ? x : bessel_even_part(m, 0);
}

double bessel_i1(double x) {
  const double m = std::fabs(x);
  return m > 100 ? std::copysign(kInf, x) : m != m ? x : bessel_even_part(m, 1) * (x / 2);
}

}  // namespace orvik::accuracy::fast
