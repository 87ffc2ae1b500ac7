#include "accuracy/reference.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>

#include "accuracy/fast_functions.h"
#include "accuracy/special_functions.h"

namespace orvik::accuracy {
namespace {

using enum Parity;

// An exact function from a generic lambda over its arguments.
template <auto F>
constexpr Reference exact(std::string_view function) {
  return {.function = function,
          .exact_s = [](const float* x, float* r) { F(x, r); },
          .exact_d = [](const double* x, double* r) { F(x, r); }};
}

// A NaN loses; of two equal magnitudes the larger (smaller) is taken.
template <class E>
bool first_wins(E a, E b, bool larger_magnitude) {
  if (std::isnan(a) || std::isnan(b)) return !std::isnan(a);
  const E x = std::fabs(a), y = std::fabs(b);
  if (x == y) return larger_magnitude ? a > b : a < b;
  return larger_magnitude ? x > y : x < y;
}

template <class E>
E quotient_of_fused(const E* x) {
  return std::fma(x[0], x[2], x[3]) / std::fma(x[1], x[4], x[5]);
}

// A NaN loses, a signalling one too (the C library's functions give a NaN then). Of two equal values, zeros of both signs
// included, the second is taken, as the vector maximum and minimum have it.
template <class E>
E one_of(E a, E b, bool larger) {
  if (std::isnan(a) || std::isnan(b)) return std::isnan(b) ? a : b;
  return (larger ? a > b : a < b) ? a : b;
}

// In the direction of its sign, so that a zero keeps it.
template <class E>
E fraction_of(E x) {
  return std::copysign(std::isinf(x) ? E(0) : x - std::trunc(x), x);
}

double inverse(double x) { return 1 / x; }
double inverse_root(double x) { return 1 / std::sqrt(x); }
double inverse_cube(double x) { return 1 / std::cbrt(x); }
double root_of_cube(double x) { return x == 0 ? 0 : x * std::sqrt(x); }
double square_of_cube_root(double x) { return std::cbrt(x) * std::cbrt(x); }

// Floors of the absolute bounds near zeros. LGamma: 2^-8 on the positive axis, 2^-3 on the negative one.
double gamma_floor(bool, const double* x, int) { return x[0] >= 0 ? 0x1p-8 : 0x1p-3; }

// Bessel functions: 1/16 (32 bits) or 1/2 (64 bits) of the amplitude min(0.5, sqrt(2/(pi |x|))), from about the first zero on.
double bessel_floor(bool single, double x, double first) {
  const double magnitude = std::fabs(x);
  if (!(magnitude >= first)) return 0;
  return std::fmin(0.5, std::sqrt(0.6366197723675814 / magnitude)) * (single ? 0.0625 : 0.5);
}
template <auto First>  // in tenths
double bessel_floor_from(bool single, const double* x, int) {
  return bessel_floor(single, x[0], First / 10.0);
}
double bessel_j_floor(bool single, const double* x, int order) {
  const int n = std::abs(order);
  return bessel_floor(single, x[0], n < 2 ? 2 : n + 1);
}
double bessel_y_floor(bool single, const double* x, int order) {
  const int n = std::abs(order);
  return bessel_floor(single, x[0], n < 2 ? 0.8 : 0.9 * n);
}

const Reference kReferences[] = {
    exact<[](auto* x, auto* r) { *r = std::fabs(*x); }>("Abs"),
    exact<[](auto* x, auto* r) { *r = *x * *x; }>("Sqr"),
    exact<[](auto* x, auto* r) { *r = x[0] + x[1]; }>("Add"),
    exact<[](auto* x, auto* r) { *r = x[0] - x[1]; }>("Sub"),
    exact<[](auto* x, auto* r) { *r = x[0] * x[1]; }>("Mul"),
    exact<[](auto* x, auto* r) { *r = quotient_of_fused(x); }>("LinearFrac"),
    exact<[](auto* x, auto* r) { *r = std::ceil(*x); }>("Ceil"),
    exact<[](auto* x, auto* r) { *r = std::floor(*x); }>("Floor"),
    exact<[](auto* x, auto* r) { *r = std::trunc(*x); }>("Trunc"),
    exact<[](auto* x, auto* r) { *r = std::rint(*x); }>("Rint"),
    exact<[](auto* x, auto* r) { *r = std::nearbyint(*x); }>("NearbyInt"),
    exact<[](auto* x, auto* r) { *r = std::round(*x); }>("Round"),
    exact<[](auto* x, auto* r) { *r = fraction_of(*x); }>("Frac"),
    exact<[](auto* x, auto* r) { r[0] = std::trunc(*x), r[1] = fraction_of(*x); }>("Modf"),
    exact<[](auto* x, auto* r) { *r = std::logb(*x); }>("Logb"),
    exact<[](auto* x, auto* r) { *r = std::copysign(x[0], x[1]); }>("CopySign"),
    exact<[](auto* x, auto* r) { *r = std::fdim(x[0], x[1]); }>("Fdim"),
    exact<[](auto* x, auto* r) { *r = one_of(x[0], x[1], true); }>("Fmax"),
    exact<[](auto* x, auto* r) { *r = one_of(x[0], x[1], false); }>("Fmin"),
    exact<[](auto* x, auto* r) { *r = first_wins(x[0], x[1], true) ? x[0] : x[1]; }>("MaxMag"),
    exact<[](auto* x, auto* r) { *r = first_wins(x[0], x[1], false) ? x[0] : x[1]; }>("MinMag"),
    exact<[](auto* x, auto* r) { *r = std::nextafter(x[0], x[1]); }>("NextAfter"),
    exact<[](auto* x, auto* r) { *r = std::remainder(x[0], x[1]); }>("Remainder"),
    exact<[](auto* x, auto* r) { *r = std::fmod(x[0], x[1]); }>("Fmod"),

    {.function = "Inv", .unary = reciprocal, .fast = {inverse}, .parity = {odd}},
    {.function = "Div", .binary = mpfr_div},
    {.function = "Sqrt", .unary = mpfr_sqrt, .fast = {std::sqrt}},
    {.function = "InvSqrt", .unary = inverse_square_root, .fast = {inverse_root}},
    {.function = "Cbrt", .unary = mpfr_cbrt, .fast = {std::cbrt}, .parity = {odd}},
    {.function = "InvCbrt", .unary = inverse_cube_root, .fast = {inverse_cube}, .parity = {odd}},
    {.function = "Hypot", .binary = mpfr_hypot},
    {.function = "Pow3o2", .unary = power_3_2, .fast = {root_of_cube}},
    {.function = "Pow2o3", .unary = power_2_3, .fast = {square_of_cube_root}, .parity = {even}},

    {.function = "Exp", .unary = mpfr_exp, .fast = {std::exp}},
    {.function = "Exp2", .unary = mpfr_exp2, .fast = {std::exp2}},
    {.function = "Exp10", .unary = mpfr_exp10, .fast = {::exp10}},
    {.function = "Expm1", .unary = mpfr_expm1, .fast = {std::expm1}},
    {.function = "Ln", .unary = mpfr_log, .fast = {std::log}},
    {.function = "Log10", .unary = mpfr_log10, .fast = {std::log10}},
    {.function = "Log2", .unary = mpfr_log2, .fast = {std::log2}},
    {.function = "Log1p", .unary = mpfr_log1p, .fast = {std::log1p}},

    {.function = "Sin", .unary = mpfr_sin, .fast = {std::sin}, .parity = {odd}},
    {.function = "Cos", .unary = mpfr_cos, .fast = {std::cos}, .parity = {even}},
    {.function = "SinCos", .unary2 = sine_cosine, .fast = {std::sin, std::cos}, .parity = {odd, even}},
    {.function = "Tan", .unary = mpfr_tan, .fast = {std::tan}, .parity = {odd}},
    {.function = "Sinpi", .unary = mpfr_sinpi, .fast = {fast::sine_pi}, .parity = {odd}, .any_zero_sign = true},
    {.function = "Cospi", .unary = mpfr_cospi, .fast = {fast::cosine_pi}, .parity = {even}, .any_zero_sign = true},
    {.function = "SinCospi", .unary2 = sine_cosine_pi, .fast = {fast::sine_pi, fast::cosine_pi}, .parity = {odd, even},
     .any_zero_sign = true},
    {.function = "Tanpi", .unary = mpfr_tanpi, .fast = {fast::tangent_pi}, .parity = {odd}, .any_zero_sign = true},
    {.function = "Sind", .unary = sine_degrees, .fast = {fast::sine_degrees}, .parity = {odd}, .any_zero_sign = true},
    {.function = "Cosd", .unary = cosine_degrees, .fast = {fast::cosine_degrees}, .parity = {even}, .any_zero_sign = true},
    {.function = "Tand", .unary = tangent_degrees, .fast = {fast::tangent_degrees}, .parity = {odd}, .any_zero_sign = true},

    {.function = "Asin", .unary = mpfr_asin, .fast = {std::asin}, .parity = {odd}},
    {.function = "Acos", .unary = mpfr_acos, .fast = {std::acos}},
    {.function = "Atan", .unary = mpfr_atan, .fast = {std::atan}, .parity = {odd}},
    {.function = "Asinpi", .unary = mpfr_asinpi, .fast = {fast::arc_sine_pi}, .parity = {odd}},
    {.function = "Acospi", .unary = mpfr_acospi, .fast = {fast::arc_cosine_pi}},
    {.function = "Atanpi", .unary = mpfr_atanpi, .fast = {fast::arc_tangent_pi}, .parity = {odd}},
    {.function = "Atan2", .binary = mpfr_atan2},
    {.function = "Atan2pi", .binary = mpfr_atan2pi},
    {.function = "Sinh", .unary = mpfr_sinh, .fast = {std::sinh}, .parity = {odd}},
    {.function = "Cosh", .unary = mpfr_cosh, .fast = {std::cosh}, .parity = {even}},
    {.function = "Tanh", .unary = mpfr_tanh, .fast = {std::tanh}, .parity = {odd}},
    {.function = "Asinh", .unary = mpfr_asinh, .fast = {std::asinh}, .parity = {odd}},
    {.function = "Acosh", .unary = mpfr_acosh, .fast = {std::acosh}},
    {.function = "Atanh", .unary = mpfr_atanh, .fast = {std::atanh}, .parity = {odd}},

    {.function = "Pow", .binary = mpfr_pow},
    {.function = "Powx", .binary = mpfr_pow},
    {.function = "Powr", .binary = power_of_non_negative},

    {.function = "Erf", .unary = mpfr_erf, .fast = {std::erf}, .parity = {odd}},
    {.function = "Erfc", .unary = mpfr_erfc, .fast = {std::erfc}},
    {.function = "Erfcx", .unary = scaled_erfc, .fast = {fast::scaled_erfc}},
    {.function = "ErfInv", .unary = inverse_erf, .fast = {fast::inverse_erf}, .parity = {odd}},
    {.function = "ErfcInv", .unary = inverse_erfc, .fast = {fast::inverse_erfc}},
    {.function = "CdfNorm", .unary = normal_cdf, .fast = {fast::normal_cdf}},
    {.function = "CdfNormInv", .unary = inverse_normal_cdf, .fast = {fast::inverse_normal_cdf}},
    {.function = "LGamma", .unary = log_gamma, .fast = {fast::log_gamma}, .any_zero_sign = true, .floor = gamma_floor},
    {.function = "TGamma", .unary = mpfr_gamma, .fast = {fast::gamma}},
    {.function = "ExpInt1", .unary = exponential_integral_1, .fast = {fast::exponential_integral_1}},
    {.function = "I0", .unary = bessel_i0, .fast = {fast::bessel_i0}, .parity = {even}},
    {.function = "I1", .unary = bessel_i1, .fast = {fast::bessel_i1}, .parity = {odd}},
    {.function = "J0", .unary = bessel_j0, .fast = {fast::bessel_j0}, .parity = {even}, .floor = bessel_floor_from<20>},
    {.function = "J1", .unary = bessel_j1, .fast = {fast::bessel_j1}, .parity = {odd}, .floor = bessel_floor_from<30>},
    {.function = "Y0", .unary = bessel_y0, .fast = {fast::bessel_y0}, .floor = bessel_floor_from<8>},
    {.function = "Y1", .unary = bessel_y1, .fast = {fast::bessel_y1}, .floor = bessel_floor_from<20>},
    {.function = "Jn", .order = bessel_j, .floor = bessel_j_floor},
    {.function = "Yn", .order = bessel_y, .floor = bessel_y_floor},
};

}  // namespace

const Reference* find_reference(std::string_view function) {
  for (const Reference& reference : kReferences) {
    if (reference.function == function) return &reference;
  }
  return nullptr;
}

}  // namespace orvik::accuracy
