#include "accuracy/reference.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>

#include "accuracy/special_functions.h"

namespace orvik::accuracy {
namespace {

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
double power_of_10(double x) { return static_cast<double>(exp10l(x)); }

// Floors of the absolute bounds near zeros. LGamma: 2^-8 on the positive axis, 2^-3 on the negative one. Bessel functions:
// 1/16 (32 bits) or 1/2 (64 bits) of the amplitude min(0.5, sqrt(2/(pi |x|))).
double gamma_floor(bool, const double* x) { return x[0] >= 0 ? 0x1p-8 : 0x1p-3; }
double bessel_floor(bool single, const double* x) {
  const double amplitude = std::fmin(0.5, std::sqrt(0.6366197723675814 / std::fabs(x[0])));
  return amplitude * (single ? 0.0625 : 0.5);
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

    {.function = "Inv", .unary = reciprocal, .fast = {inverse}},
    {.function = "Div", .binary = mpfr_div},
    {.function = "Sqrt", .unary = mpfr_sqrt, .fast = {std::sqrt}},
    {.function = "InvSqrt", .unary = inverse_square_root, .fast = {inverse_root}},
    {.function = "Cbrt", .unary = mpfr_cbrt, .fast = {std::cbrt}},
    {.function = "InvCbrt", .unary = inverse_cube_root, .fast = {inverse_cube}},
    {.function = "Hypot", .binary = mpfr_hypot},
    {.function = "Pow3o2", .unary = power_3_2, .fast = {root_of_cube}},
    {.function = "Pow2o3", .unary = power_2_3, .fast = {square_of_cube_root}},

    {.function = "Exp", .unary = mpfr_exp, .fast = {std::exp}},
    {.function = "Exp2", .unary = mpfr_exp2, .fast = {std::exp2}},
    {.function = "Exp10", .unary = mpfr_exp10, .fast = {power_of_10}},
    {.function = "Expm1", .unary = mpfr_expm1, .fast = {std::expm1}},
    {.function = "Ln", .unary = mpfr_log, .fast = {std::log}},
    {.function = "Log10", .unary = mpfr_log10, .fast = {std::log10}},
    {.function = "Log2", .unary = mpfr_log2, .fast = {std::log2}},
    {.function = "Log1p", .unary = mpfr_log1p, .fast = {std::log1p}},

    {.function = "Sin", .unary = mpfr_sin, .fast = {std::sin}},
    {.function = "Cos", .unary = mpfr_cos, .fast = {std::cos}},
    {.function = "SinCos", .unary2 = sine_cosine, .fast = {std::sin, std::cos}},
    {.function = "Tan", .unary = mpfr_tan, .fast = {std::tan}},
    {.function = "Sinpi", .unary = mpfr_sinpi, .any_zero_sign = true},
    {.function = "Cospi", .unary = mpfr_cospi, .any_zero_sign = true},
    {.function = "SinCospi", .unary2 = sine_cosine_pi, .any_zero_sign = true},
    {.function = "Tanpi", .unary = mpfr_tanpi, .any_zero_sign = true},
    {.function = "Sind", .unary = sine_degrees, .any_zero_sign = true},
    {.function = "Cosd", .unary = cosine_degrees, .any_zero_sign = true},
    {.function = "Tand", .unary = tangent_degrees, .any_zero_sign = true},

    {.function = "Asin", .unary = mpfr_asin, .fast = {std::asin}},
    {.function = "Acos", .unary = mpfr_acos, .fast = {std::acos}},
    {.function = "Atan", .unary = mpfr_atan, .fast = {std::atan}},
    {.function = "Asinpi", .unary = mpfr_asinpi},
    {.function = "Acospi", .unary = mpfr_acospi},
    {.function = "Atanpi", .unary = mpfr_atanpi},
    {.function = "Atan2", .binary = mpfr_atan2},
    {.function = "Atan2pi", .binary = mpfr_atan2pi},
    {.function = "Sinh", .unary = mpfr_sinh, .fast = {std::sinh}},
    {.function = "Cosh", .unary = mpfr_cosh, .fast = {std::cosh}},
    {.function = "Tanh", .unary = mpfr_tanh, .fast = {std::tanh}},
    {.function = "Asinh", .unary = mpfr_asinh, .fast = {std::asinh}},
    {.function = "Acosh", .unary = mpfr_acosh, .fast = {std::acosh}},
    {.function = "Atanh", .unary = mpfr_atanh, .fast = {std::atanh}},

    {.function = "Pow", .binary = mpfr_pow},
    {.function = "Powx", .binary = mpfr_pow},
    {.function = "Powr", .binary = mpfr_powr},

    {.function = "Erf", .unary = mpfr_erf, .fast = {std::erf}},
    {.function = "Erfc", .unary = mpfr_erfc, .fast = {std::erfc}},
    {.function = "Erfcx", .unary = scaled_erfc},
    {.function = "ErfInv", .unary = inverse_erf},
    {.function = "ErfcInv", .unary = inverse_erfc},
    {.function = "CdfNorm", .unary = normal_cdf},
    {.function = "CdfNormInv", .unary = inverse_normal_cdf},
    {.function = "LGamma", .unary = log_gamma, .any_zero_sign = true, .floor = gamma_floor},
    {.function = "TGamma", .unary = mpfr_gamma},
    {.function = "ExpInt1", .unary = exponential_integral_1},
    {.function = "I0", .unary = bessel_i0},
    {.function = "I1", .unary = bessel_i1},
    {.function = "J0", .unary = mpfr_j0, .floor = bessel_floor},
    {.function = "J1", .unary = mpfr_j1, .floor = bessel_floor},
    {.function = "Y0", .unary = mpfr_y0, .floor = bessel_floor},
    {.function = "Y1", .unary = mpfr_y1, .floor = bessel_floor},
    {.function = "Jn", .order = mpfr_jn, .floor = bessel_floor},
    {.function = "Yn", .order = mpfr_yn, .floor = bessel_floor},
};

}  // namespace

const Reference* find_reference(std::string_view function) {
  for (const Reference& reference : kReferences) {
    if (reference.function == function) return &reference;
  }
  return nullptr;
}

}  // namespace orvik::accuracy
