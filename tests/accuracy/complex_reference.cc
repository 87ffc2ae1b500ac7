// References of complex functions: MPC where both parts are finite, Annex G elsewhere.
#include <cmath>

#include "accuracy/annex_g.h"
#include "accuracy/reference.h"

namespace orvik::accuracy {
namespace {

constexpr mpfr_rnd_t kNearest = MPFR_RNDN;
constexpr mpc_rnd_t kNearestBoth = MPC_RNDNN;

using Special = Stated (*)(mpc_ptr, mpc_srcptr);
using Library = int (*)(mpc_ptr, mpc_srcptr, mpc_rnd_t);

template <Library F, Special G>
Stated direct(mpc_ptr r, mpc_srcptr z) {
  if (annex_g::applies(z)) return G(r, z);
  F(r, z, kNearestBoth);
  return {};
}

// G is the rule of the hyperbolic function h: the circular one is -i h(i z), the cosine h(i z).
template <Special G>
Stated turned(mpc_ptr r, mpc_srcptr z) {
  Complex iz, w;
  mpfr_neg(mpc_realref(iz.v), mpc_imagref(z), kNearest);
  mpfr_set(mpc_imagref(iz.v), mpc_realref(z), kNearest);
  const Stated stated = G(w, iz);
  mpfr_set(mpc_realref(r), mpc_imagref(w.v), kNearest);
  mpfr_neg(mpc_imagref(r), mpc_realref(w.v), kNearest);
  return {stated.any, {stated.any_sign[1], stated.any_sign[0]}};
}

template <Special G>
Stated turned_cosine(mpc_ptr r, mpc_srcptr z) {
  Complex iz;
  mpfr_neg(mpc_realref(iz.v), mpc_imagref(z), kNearest);
  mpfr_set(mpc_imagref(iz.v), mpc_realref(z), kNearest);
  return G(r, iz);
}

// MPC's own takes seconds where a part is large or tiny. With t = tan y, s = sinh x (Kahan 1987):
// tanh(x + i y) = ((1 + t^2) s sqrt(1 + s^2) + i t) / (1 + (1 + t^2) s^2); every sum has terms of one sign.
int tangent_of_finite(mpc_ptr r, mpc_srcptr z) {
  const mpfr_srcptr x = mpc_realref(z), y = mpc_imagref(z);
  const mpfr_prec_t bits = kPrecision + 64;
  mpfr_t t, s, b, d, u;
  mpfr_inits2(bits, t, s, b, d, u, static_cast<mpfr_ptr>(nullptr));
  if (mpfr_cmpabs_ui(x, 10000) > 0) {  // +-1 to far beyond the precision, and 4 sin y cos y e^(-2 |x|)
    mpfr_sin_cos(s, t, y, kNearest);
    mpfr_mul(s, s, t, kNearest);
    mpfr_abs(u, x, kNearest);
    mpfr_mul_si(u, u, -2, kNearest);
    mpfr_exp(u, u, kNearest);
    mpfr_mul(s, s, u, kNearest);
    mpfr_mul_2ui(mpc_imagref(r), s, 2, kNearest);
    mpfr_set_si(mpc_realref(r), mpfr_signbit(x) != 0 ? -1 : 1, kNearest);
  } else {
    mpfr_tan(t, y, kNearest);
    mpfr_sinh(s, x, kNearest);
    mpfr_sqr(b, t, kNearest);
    mpfr_add_ui(b, b, 1, kNearest);
    mpfr_sqr(d, s, kNearest);
    mpfr_add_ui(u, d, 1, kNearest);
    mpfr_sqrt(u, u, kNearest);
    mpfr_mul(d, d, b, kNearest);
    mpfr_add_ui(d, d, 1, kNearest);
    mpfr_mul(u, u, b, kNearest);
    mpfr_mul(u, u, s, kNearest);
    mpfr_div(mpc_realref(r), u, d, kNearest);
    mpfr_div(mpc_imagref(r), t, d, kNearest);
  }
  mpfr_clears(t, s, b, d, u, static_cast<mpfr_ptr>(nullptr));
  return 0;
}

Stated hyperbolic_tangent(mpc_ptr r, mpc_srcptr z) {
  if (annex_g::applies(z)) return annex_g::hyperbolic_tangent(r, z);
  tangent_of_finite(r, z);
  return {};
}

Stated logarithm_10(mpc_ptr r, mpc_srcptr z) {
  if (!annex_g::applies(z)) {
    mpc_log10(r, z, kNearestBoth);
    return {};
  }
  const Stated stated = annex_g::logarithm(r, z);
  Real ten;
  mpfr_set_ui(ten, 10, kNearest);
  mpfr_log(ten, ten, kNearest);
  mpc_div_fr(r, r, ten, kNearestBoth);
  return stated;
}

Stated product(mpc_ptr r, mpc_srcptr a, mpc_srcptr b) {
  if (annex_g::applies(a) || annex_g::applies(b)) return annex_g::product(r, a, b);
  mpc_mul(r, a, b, kNearestBoth);
  return {false, {true, true}};  // the sign of a cancelled part is nobody's promise
}

Stated product_by_conjugate(mpc_ptr r, mpc_srcptr a, mpc_srcptr b) {
  Complex conjugate;
  mpc_conj(conjugate, b, kNearestBoth);
  return product(r, a, conjugate);
}

bool zero(mpc_srcptr z) { return mpfr_zero_p(mpc_realref(z)) != 0 && mpfr_zero_p(mpc_imagref(z)) != 0; }

Stated quotient(mpc_ptr r, mpc_srcptr a, mpc_srcptr b) {
  if (annex_g::applies(a) || annex_g::applies(b) || zero(b)) return annex_g::quotient(r, a, b);
  mpc_div(r, a, b, kNearestBoth);
  return {false, {true, true}};
}

// Whether |b| |log a| is beyond 2^40: the power's direction hangs on bits of log a that no library has.
bool beyond_direction(mpc_srcptr a, mpc_srcptr b) {
  Complex log;
  Real size, factor;
  mpc_log(log, a, kNearestBoth);
  mpc_abs(size, log, kNearest);
  mpc_abs(factor, b, kNearest);
  mpfr_mul(size, size, factor, kNearest);
  return mpfr_cmp_ui_2exp(size, 1, 40) > 0;
}

// Infinities, NaNs, and bases of zero with an exponent of no positive real part are not stated; but anything to the
// power 0 is 1.
Stated power(mpc_ptr r, mpc_srcptr a, mpc_srcptr b) {
  if (!zero(b) && (annex_g::applies(a) || annex_g::applies(b) || (zero(a) && mpfr_sgn(mpc_realref(b)) <= 0))) {
    return {.any = true};
  }
  if (zero(b)) {
    mpc_set_ui(r, 1, kNearestBoth);
    return annex_g::applies(a) ? Stated{.any = true} : Stated{false, {true, true}};
  }
  if (zero(a)) {
    mpc_set_ui(r, 0, kNearestBoth);
  } else if (beyond_direction(a, b)) {
    return {.any = true};
  } else {
    mpc_pow(r, a, b, kNearestBoth);
  }
  return {false, {true, true}};
}

Stated magnitude(mpfr_ptr r, mpc_srcptr z) {
  mpfr_hypot(r, mpc_realref(z), mpc_imagref(z), kNearest);
  return {};
}

Stated argument(mpfr_ptr r, mpc_srcptr z) {
  mpfr_atan2(r, mpc_imagref(z), mpc_realref(z), kNearest);
  return {};
}

Stated cosine_and_sine(mpc_ptr r, mpfr_srcptr x) {
  mpfr_sin_cos(mpc_imagref(r), mpc_realref(r), x, kNearest);
  return {};
}

template <auto F>
constexpr ComplexReference exact(std::string_view function) {
  return {.function = function,
          .exact_s = [](const float* x, float* r) { F(x, r); },
          .exact_d = [](const double* x, double* r) { F(x, r); },
          .by_component = true};
}

const ComplexReference kReferences[] = {
    exact<[](auto* x, auto* r) { r[0] = x[0] + x[2], r[1] = x[1] + x[3]; }>("Add"),
    exact<[](auto* x, auto* r) { r[0] = x[0] - x[2], r[1] = x[1] - x[3]; }>("Sub"),
    exact<[](auto* x, auto* r) { r[0] = x[0], r[1] = -x[1]; }>("Conj"),
    {.function = "Mul", .binary = product},
    {.function = "MulByConj", .binary = product_by_conjugate},
    {.function = "Div", .binary = quotient},
    {.function = "Abs", .to_real = magnitude, .by_component = true},
    {.function = "Arg", .to_real = argument, .by_component = true},
    {.function = "CIS", .from_real = cosine_and_sine, .by_component = true},
    {.function = "Exp", .unary = direct<mpc_exp, annex_g::exponential>},
    {.function = "Ln", .unary = direct<mpc_log, annex_g::logarithm>},
    {.function = "Log10", .unary = logarithm_10, .by_component = true},
    {.function = "Sqrt", .unary = direct<mpc_sqrt, annex_g::square_root>},
    {.function = "Pow", .binary = power},
    {.function = "Powx", .binary = power},
    {.function = "Sin", .unary = direct<mpc_sin, turned<annex_g::hyperbolic_sine>>, .by_component = true},
    {.function = "Cos", .unary = direct<mpc_cos, turned_cosine<annex_g::hyperbolic_cosine>>, .by_component = true},
    {.function = "Tan", .unary = turned<hyperbolic_tangent>, .by_component = true},
    {.function = "Sinh", .unary = direct<mpc_sinh, annex_g::hyperbolic_sine>, .by_component = true},
    {.function = "Cosh", .unary = direct<mpc_cosh, annex_g::hyperbolic_cosine>, .by_component = true},
    {.function = "Tanh", .unary = hyperbolic_tangent, .by_component = true},
    {.function = "Asin", .unary = direct<mpc_asin, turned<annex_g::inverse_hyperbolic_sine>>, .by_component = true},
    {.function = "Acos", .unary = direct<mpc_acos, annex_g::arc_cosine>, .by_component = true},
    {.function = "Atan", .unary = direct<mpc_atan, turned<annex_g::inverse_hyperbolic_tangent>>, .by_component = true},
    {.function = "Asinh", .unary = direct<mpc_asinh, annex_g::inverse_hyperbolic_sine>, .by_component = true},
    {.function = "Acosh", .unary = direct<mpc_acosh, annex_g::inverse_hyperbolic_cosine>, .by_component = true},
    {.function = "Atanh", .unary = direct<mpc_atanh, annex_g::inverse_hyperbolic_tangent>, .by_component = true},
};

}  // namespace

const ComplexReference* find_complex_reference(std::string_view function) {
  for (const ComplexReference& reference : kReferences) {
    if (reference.function == function) return &reference;
  }
  return nullptr;
}

}  // namespace orvik::accuracy
