#include "inverse_error.h"

#include <algorithm>
#include <vector>

namespace orvik::approx {
namespace {

constexpr size_t kTerms = 16;

// One step of Newton's method towards the z with w(z) = -ln(1 - erf(z)^2) = w.
Real nearer(const Real& z, const Real& w) {
  Real t, here;
  if (z < Real(1.0)) {
    t = apply(mpfr_erf, z.get());
    here = -apply(mpfr_log1p, (-(t * t)).get());
  } else {
    const Real c = apply(mpfr_erfc, z.get());
    t = Real(1.0) - c;
    here = -apply(mpfr_log, (c * (Real(2.0) - c)).get());
  }
  // dw/dz = 4 t e^(w - z^2) / sqrt(pi)
  const Real slope =
      Real(4.0) * t * apply(mpfr_exp, (here - z * z).get()) / apply(mpfr_sqrt, Real(apply(mpfr_const_pi)).get());
  return z - (here - w) / slope;
}

// From above, where the curve bends towards the solution; precision grows with the digits that are right.
Real solve(const Real& w) {
  const long wanted = mpfr_get_default_prec();
  Real z = apply(mpfr_sqrt, w.get());
  for (int step = 0; step < 7; ++step) {
    const Precision precision(64);
    z = nearer(z, w);
  }
  for (long bits = 64; bits < wanted;) {
    bits = std::min(2 * bits - 8, wanted);
    const Precision precision(bits);
    z = nearer(z, w);
  }
  return nearer(z, w);
}

// With s = e^-w and q = sqrt(pi)/2 e^(z^2) s:  s' = -s,  q' = q (P q - 1),  2 (1 - s) P' = q - s P.
std::vector<Real> expand(const Real& w) {
  const Real z = solve(w), t = apply(mpfr_erf, z.get());
  std::vector<Real> s, q, p, product;
  s.push_back(apply(mpfr_exp, (-w).get()));
  q.push_back(apply(mpfr_sqrt, Real(apply(mpfr_const_pi)).get()) / Real(2.0) * apply(mpfr_exp, (z * z - w).get()));
  p.push_back(z / t);
  const Real rest = -apply(mpfr_expm1, (-w).get());
  for (size_t k = 0; k + 1 < kTerms; ++k) {
    const Real next(static_cast<double>(k + 1));
    Real pq, turn, slope = q[k];
    for (size_t j = 0; j <= k; ++j) pq = pq + p[j] * q[k - j];
    product.push_back(pq);
    for (size_t j = 0; j <= k; ++j) turn = turn + q[j] * product[k - j];
    q.push_back((turn - q[k]) / next);
    for (size_t j = 0; j <= k; ++j) slope = slope - s[j] * p[k - j];
    for (size_t j = 1; j <= k; ++j)
      slope = slope + Real(2.0) * s[j] * Real(static_cast<double>(k - j + 1)) * p[k - j + 1];
    p.push_back(slope / (Real(2.0) * rest * next));
    s.push_back(-(s[k] / next));
  }
  return p;
}

}  // namespace

Real inverse_error_term(const Real& w, long k) {
  if (k == 0) {
    if (mpfr_zero_p(w.get())) return apply(mpfr_sqrt, Real(apply(mpfr_const_pi)).get()) / Real(2.0);
    const Real z = solve(w);
    return z / apply(mpfr_erf, z.get());
  }
  // The terms of one row are asked for one after another.
  struct Row {
    Real w = -1.0;
    long bits = 0;
    std::vector<Real> terms;
  };
  static Row row;
  if (row.bits != mpfr_get_default_prec() || mpfr_equal_p(row.w.get(), w.get()) == 0) {
    row = {w, mpfr_get_default_prec(), expand(w)};
  }
  return row.terms.at(static_cast<size_t>(k));
}

}  // namespace orvik::approx
