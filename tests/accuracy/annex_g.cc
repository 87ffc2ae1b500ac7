#include "accuracy/annex_g.h"

#include <cmath>
#include <limits>

namespace orvik::accuracy::annex_g {
namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr mpfr_rnd_t kNearest = MPFR_RNDN;

// One part of an argument by its class. Every double's part is itself, so that signs and classes are all there is to
// see.
struct Part {
  double v;
  bool nan() const { return std::isnan(v); }
  bool inf() const { return std::isinf(v); }
  bool finite() const { return std::isfinite(v); }
  bool zero() const { return v == 0; }
  double sign() const { return std::signbit(v) ? -1 : 1; }
};

struct Parts {
  Part x, y;
  explicit Parts(mpc_srcptr z) : x{mpfr_get_d(mpc_realref(z), kNearest)}, y{mpfr_get_d(mpc_imagref(z), kNearest)} {}
};

// A part of a result: a double, or that many quarters of pi.
struct Value {
  double v;
  bool pi_quarters = false;
};
Value quarters(double n) { return {n, true}; }

void put(mpfr_ptr r, Value value) {
  mpfr_set_d(r, value.v, kNearest);
  if (!value.pi_quarters) return;
  Real pi;
  mpfr_const_pi(pi, kNearest);
  mpfr_div_2ui(pi, pi, 2, kNearest);
  mpfr_mul_d(r, pi, value.v, kNearest);
}

Stated give(mpc_ptr r, Value re, Value im, bool any_sign_re = false, bool any_sign_im = false) {
  put(mpc_realref(r), re);
  put(mpc_imagref(r), im);
  return {false, {any_sign_re, any_sign_im}};
}

Stated both_nan(mpc_ptr r) { return give(r, {kNan}, {kNan}); }

double infinity(double sign) { return std::copysign(kInf, sign); }
double zero(double sign) { return std::copysign(0.0, sign); }

// scale (cos y + i sin y) where scale is infinite or zero: only the signs are left. y finite.
Value scaled_cosine(double scale, double y) { return {scale * std::copysign(1.0, std::cos(y))}; }
Value scaled_sine(double scale, double y) { return {y == 0 ? y : scale * std::copysign(1.0, std::sin(y))}; }

bool infinite(mpc_srcptr z) { return mpfr_inf_p(mpc_realref(z)) != 0 || mpfr_inf_p(mpc_imagref(z)) != 0; }

}  // namespace

bool applies(mpc_srcptr z) { return mpfr_number_p(mpc_realref(z)) == 0 || mpfr_number_p(mpc_imagref(z)) == 0; }

Stated exponential(mpc_ptr r, mpc_srcptr z) {
  const auto [x, y] = Parts(z);
  if (x.finite()) return both_nan(r);
  if (x.nan()) return y.zero() ? give(r, {kNan}, {y.v}) : both_nan(r);
  if (x.v > 0)
    return y.finite() ? give(r, scaled_cosine(kInf, y.v), scaled_sine(kInf, y.v)) : give(r, {kInf}, {kNan}, true);
  return y.finite() ? give(r, scaled_cosine(0, y.v), scaled_sine(0, y.v)) : give(r, {0}, {0}, true, true);
}

Stated logarithm(mpc_ptr r, mpc_srcptr z) {
  const auto [x, y] = Parts(z);
  if (x.inf() && y.nan()) return give(r, {kInf}, {kNan});
  if (y.inf()) {
    if (x.nan()) return give(r, {kInf}, {kNan});
    return give(r, {kInf}, quarters(y.sign() * (x.finite() ? 2 : x.v > 0 ? 1 : 3)));
  }
  if (x.nan() || y.nan()) return both_nan(r);
  return x.v > 0 ? give(r, {kInf}, {zero(y.sign())}) : give(r, {kInf}, quarters(4 * y.sign()));
}

Stated square_root(mpc_ptr r, mpc_srcptr z) {
  const auto [x, y] = Parts(z);
  if (y.inf()) return give(r, {kInf}, {y.v});
  if (!x.inf()) return both_nan(r);
  if (x.v > 0) return give(r, {kInf}, {y.nan() ? kNan : zero(y.sign())});
  return y.nan() ? give(r, {kNan}, {kInf}, false, true) : give(r, {0}, {infinity(y.sign())});
}

Stated hyperbolic_cosine(mpc_ptr r, mpc_srcptr z) {
  const auto [x, y] = Parts(z);
  if (x.nan()) return y.zero() ? give(r, {kNan}, {0}, false, true) : both_nan(r);
  if (x.finite()) return x.zero() ? give(r, {kNan}, {0}, false, true) : both_nan(r);
  if (y.nan()) return give(r, {kInf}, {kNan});
  if (y.inf()) return give(r, {kInf}, {kNan}, true);
  if (y.zero()) return give(r, {kInf}, {zero(x.sign() * y.sign())});
  return give(r, scaled_cosine(kInf, y.v), scaled_sine(x.v, y.v));
}

Stated hyperbolic_sine(mpc_ptr r, mpc_srcptr z) {
  const auto [x, y] = Parts(z);
  if (x.nan()) return y.zero() ? give(r, {kNan}, {y.v}) : both_nan(r);
  if (x.finite()) return x.zero() ? give(r, {0}, {kNan}, true) : both_nan(r);
  if (!y.finite()) return give(r, {kInf}, {kNan}, true);
  return give(r, scaled_cosine(x.v, y.v), scaled_sine(kInf, y.v));
}

Stated hyperbolic_tangent(mpc_ptr r, mpc_srcptr z) {
  const auto [x, y] = Parts(z);
  if (x.nan()) return y.zero() ? give(r, {kNan}, {y.v}) : both_nan(r);
  if (x.finite()) return x.zero() ? give(r, {x.v}, {kNan}) : both_nan(r);
  if (!y.finite()) return give(r, {x.sign()}, {0}, false, true);
  return give(r, {x.sign()}, {zero(y.zero() ? y.sign() : std::sin(y.v) * std::cos(y.v))});
}

Stated arc_cosine(mpc_ptr r, mpc_srcptr z) {
  const auto [x, y] = Parts(z);
  if (y.inf()) {
    if (x.nan()) return give(r, {kNan}, {-y.v});
    return give(r, quarters(x.finite() ? 2 : x.v > 0 ? 1 : 3), {-y.v});
  }
  if (x.inf()) {
    if (y.nan()) return give(r, {kNan}, {kInf}, false, true);
    return x.v > 0 ? give(r, {0}, {infinity(-y.sign())}) : give(r, quarters(4), {infinity(-y.sign())});
  }
  return x.zero() ? give(r, quarters(2), {kNan}) : both_nan(r);
}

Stated inverse_hyperbolic_cosine(mpc_ptr r, mpc_srcptr z) {
  const auto [x, y] = Parts(z);
  if (y.inf()) {
    if (x.nan()) return give(r, {kInf}, {kNan});
    return give(r, {kInf}, quarters(y.sign() * (x.finite() ? 2 : x.v > 0 ? 1 : 3)));
  }
  if (x.inf()) {
    if (y.nan()) return give(r, {kInf}, {kNan});
    return x.v > 0 ? give(r, {kInf}, {zero(y.sign())}) : give(r, {kInf}, quarters(4 * y.sign()));
  }
  return x.zero() ? give(r, {kNan}, quarters(2), false, true) : both_nan(r);
}

Stated inverse_hyperbolic_sine(mpc_ptr r, mpc_srcptr z) {
  const auto [x, y] = Parts(z);
  if (y.inf()) {
    if (x.nan()) return give(r, {kInf}, {kNan}, true);
    return give(r, {infinity(x.sign())}, quarters(y.sign() * (x.inf() ? 1 : 2)));
  }
  if (x.inf()) return give(r, {x.v}, {y.nan() ? kNan : zero(y.sign())});
  return x.nan() && y.zero() ? give(r, {kNan}, {y.v}) : both_nan(r);
}

Stated inverse_hyperbolic_tangent(mpc_ptr r, mpc_srcptr z) {
  const auto [x, y] = Parts(z);
  if (y.inf()) return give(r, {x.nan() ? 0 : zero(x.sign())}, quarters(2 * y.sign()), x.nan());
  if (x.inf()) return y.nan() ? give(r, {zero(x.sign())}, {kNan}) : give(r, {zero(x.sign())}, quarters(2 * y.sign()));
  return x.zero() ? give(r, {x.v}, {kNan}) : both_nan(r);
}

Stated product(mpc_ptr r, mpc_srcptr a, mpc_srcptr b) {
  Real p, q, re, im;
  mpfr_mul(p, mpc_realref(a), mpc_realref(b), kNearest);
  mpfr_mul(q, mpc_imagref(a), mpc_imagref(b), kNearest);
  mpfr_sub(re, p, q, kNearest);
  mpfr_mul(p, mpc_realref(a), mpc_imagref(b), kNearest);
  mpfr_mul(q, mpc_imagref(a), mpc_realref(b), kNearest);
  mpfr_add(im, p, q, kNearest);
  mpc_set_fr_fr(r, re, im, MPC_RNDNN);
  if (mpfr_nan_p(re) == 0 || mpfr_nan_p(im) == 0) return {};
  // The standard's example: an infinite operand gives infinities, unless the other is 0.
  const auto counted = [](mpc_srcptr z) {
    Parts parts(z);
    const bool box = parts.x.inf() || parts.y.inf();
    for (Part* part : {&parts.x, &parts.y}) {
      if (box) part->v = std::copysign(part->inf() ? 1.0 : 0.0, part->v);
      if (part->nan()) part->v = std::copysign(0.0, part->v);
    }
    return parts;
  };
  if (!infinite(a) && !infinite(b)) return {};
  const auto [x, y] = counted(a);
  const auto [u, v] = counted(b);
  return give(r, {kInf * (x.v * u.v - y.v * v.v)}, {kInf * (x.v * v.v + y.v * u.v)});
}

Stated quotient(mpc_ptr r, mpc_srcptr numerator, mpc_srcptr denominator) {
  auto [a, b] = Parts(numerator);
  auto [c, d] = Parts(denominator);
  if (c.zero() && d.zero() && (!a.nan() || !b.nan())) {
    return give(r, {infinity(c.sign()) * a.v}, {infinity(c.sign()) * b.v});
  }
  const auto boxed = [](Part p) { return std::copysign(p.inf() ? 1.0 : 0.0, p.v); };
  if ((a.inf() || b.inf()) && c.finite() && d.finite()) {
    const double x = boxed(a), y = boxed(b);
    return give(r, {kInf * (x * c.v + y * d.v)}, {kInf * (y * c.v - x * d.v)});
  }
  if ((c.inf() || d.inf()) && a.finite() && b.finite()) {
    const double x = boxed(c), y = boxed(d);
    return give(r, {0 * (a.v / 2 * x + b.v / 2 * y)}, {0 * (b.v / 2 * x - a.v / 2 * y)}, true, true);
  }
  return both_nan(r);
}

}  // namespace orvik::accuracy::annex_g
