#include "cylinder.h"

#include <cmath>
#include <map>
#include <string>
#include <vector>

namespace orvik::approx {
namespace {

Real pi() {
  Real r;
  mpfr_const_pi(r.get(), MPFR_RNDN);
  return r;
}
Real root(const Real& x) { return apply(mpfr_sqrt, x.get()); }
bool zero(const Real& x) { return mpfr_zero_p(x.get()) != 0; }

// The power series: all terms are positive.
Real modified(int order, const Real& x) {
  const Real y = x * x * 0.25;
  Real term = order == 0 ? Real(1) : x * 0.5;
  Real sum = term;
  const Real epsilon = apply(mpfr_exp2, Real(-static_cast<double>(mpfr_get_default_prec()) - 8).get());
  for (int k = 1; sum * epsilon < term; ++k) {
    term = term * y / Real(static_cast<double>(k) * (k + order));
    sum = sum + term;
  }
  return sum;
}

Real ordinary(int function, const Real& x) {
  static constexpr auto kFunctions = {mpfr_j0, mpfr_j1, mpfr_y0, mpfr_y1};
  return apply(kFunctions.begin()[function], x.get());
}

// What J + iY = sqrt(2/(pi x)) (1 + v M) e^(i (x - (2 order + 1) pi/4 + P/x)) has for M, P.
Real modulus(int order, const Real& v) {
  const Real x = Real(1) / root(v);
  const Real j = ordinary(order, x), y = ordinary(2 + order, x);
  return (root(pi() * x * 0.5 * (j * j + y * y)) - Real(1)) / v;
}
Real phase(int order, const Real& v) {
  const Real x = Real(1) / root(v);
  const Real j = ordinary(order, x), y = ordinary(2 + order, x);
  const Real turn = pi() * 2;
  const Real rest = apply(mpfr_atan2, y.get(), j.get()) - x + pi() * (0.25 * (2 * order + 1));
  return (rest - apply(mpfr_rint, (rest / turn).get()) * turn) * x;
}
Real scaled(int order, const Real& u) {
  const Real x = Real(1) / u;
  const Real value = root(pi() * 2 * x) * modified(order, x) * apply(mpfr_exp, (-x).get());
  return (value - Real(1) + Real((4.0 * order * order - 1) / 8) * u) / (u * u);
}

}  // namespace

Real cylinder(int function, const Real& x) {
  if (function < 4) return ordinary(function, x);
  if (function < 6) return modified(function - 4, x);
  if (function < 8) return modulus(function - 6, x);
  if (function < 10) return phase(function - 8, x);
  return scaled(function - 10, x);
}

Real cylinder_slope(int function, const Real& x) {
  switch (function) {
    case 0:
      return -cylinder(1, x);
    case 2:
      return -cylinder(3, x);
    case 4:
      return cylinder(5, x);
    default:
      return zero(x) ? Real(0.5) : cylinder(function - 1, x) - cylinder(function, x) / x;
  }
}

Real cylinder_centre(int function, const Real& from, const Real& to) {
  if (zero(from)) return from;
  Real low = from, high = to;
  const bool rising = cylinder(function, low) < Real(0);
  if ((cylinder(function, high) < Real(0)) == rising) return (from + to) * 0.5;
  for (int step = 0; step < 60; ++step) {
    const Real middle = (low + high) * 0.5;
    ((cylinder(function, middle) < Real(0)) == rising ? low : high) = middle;
  }
  Real x = low;
  for (int step = 0; step < 4; ++step) x = x - cylinder(function, x) / cylinder_slope(function, x);
  return Real(mpfr_get_d(x.get(), MPFR_RNDN));
}

Real cylinder_inverse(int function, const Real& value) {
  const Real wanted = apply(mpfr_log, value.get());
  Real x = wanted;
  for (int step = 0; step < 40; ++step) {  // of the logarithm, whose slope is nearly 1
    const Real f = cylinder(function, x);
    x = x + (wanted - apply(mpfr_log, f.get())) * f / cylinder_slope(function, x);
  }
  return x;
}

namespace {

std::vector<Real> interpolate(int function, int first, const Real& from, const Real& to, const Real& c, int n) {
  std::vector<Real> places, c_values;
  const Real value = first > 0 ? cylinder(function, c) : Real(0);
  const Real slope = first > 1 ? cylinder_slope(function, c) : Real(0);
  for (int j = 0; j < n; ++j) {
    const Real angle = pi() * ((2 * j + 1) / 2.0) / Real(n);
    const Real x = (from + to) * 0.5 + (to - from) * 0.5 * apply(mpfr_cos, angle.get());
    const Real t = x - c;
    Real f = cylinder(function, x);
    if (first > 0) f = (f - value) / t;
    if (first > 1) f = (f - slope) / t;
    places.push_back(t);
    c_values.push_back(f);
  }
  // Newton's divided differences, then his polynomial multiplied out.
  for (int k = 1; k < n; ++k) {
    for (int j = n - 1; j >= k; --j) {
      c_values[j] = (c_values[j] - c_values[j - 1]) / (places[j] - places[j - k]);
    }
  }
  std::vector<Real> p(n);
  for (int k = n - 1; k >= 0; --k) {
    for (int j = n - 1; j > 0; --j) p[j] = p[j - 1] - p[j] * places[k];
    p[0] = c_values[k] - p[0] * places[k];
  }
  return p;
}

std::string text_of(const Real& x) {
  char text[128];
  mpfr_snprintf(text, sizeof text, "%.40Ra", x.get());
  return text;
}

}  // namespace

Real cylinder_rest(int function, int first, const Real& from, const Real& to, const Real& c, int n, int k) {
  static std::map<std::string, std::vector<Real>> made;  // the coefficients of a row are asked for one by one
  const std::string key = std::to_string(mpfr_get_default_prec()) + ' ' + std::to_string(function) + ' ' +
                          std::to_string(first) + ' ' + std::to_string(n) + ' ' + text_of(from) + ' ' + text_of(to) +
                          ' ' + text_of(c);
  auto found = made.find(key);
  if (found == made.end()) found = made.emplace(key, interpolate(function, first, from, to, c, n)).first;
  return found->second[static_cast<size_t>(k)];
}

}  // namespace orvik::approx
