// References that MPFR does not have, made of those that it has.
#pragma once

#include <mpfr.h>

namespace orvik::accuracy {

int reciprocal(mpfr_ptr r, mpfr_srcptr x, mpfr_rnd_t rnd);
int inverse_square_root(mpfr_ptr r, mpfr_srcptr x, mpfr_rnd_t rnd);  // -inf at -0
int inverse_cube_root(mpfr_ptr r, mpfr_srcptr x, mpfr_rnd_t rnd);
int power_3_2(mpfr_ptr r, mpfr_srcptr x, mpfr_rnd_t rnd);  // +0 at -0
int power_2_3(mpfr_ptr r, mpfr_srcptr x, mpfr_rnd_t rnd);
int sine_degrees(mpfr_ptr r, mpfr_srcptr x, mpfr_rnd_t rnd);
int cosine_degrees(mpfr_ptr r, mpfr_srcptr x, mpfr_rnd_t rnd);
int tangent_degrees(mpfr_ptr r, mpfr_srcptr x, mpfr_rnd_t rnd);
int sine_cosine(mpfr_ptr s, mpfr_ptr c, mpfr_srcptr x, mpfr_rnd_t rnd);
int sine_cosine_pi(mpfr_ptr s, mpfr_ptr c, mpfr_srcptr x, mpfr_rnd_t rnd);
int log_gamma(mpfr_ptr r, mpfr_srcptr x, mpfr_rnd_t rnd);  // ln |gamma(x)|
int exponential_integral_1(mpfr_ptr r, mpfr_srcptr x, mpfr_rnd_t rnd);
int scaled_erfc(mpfr_ptr r, mpfr_srcptr x, mpfr_rnd_t rnd);  // exp(x^2) erfc(x)
int normal_cdf(mpfr_ptr r, mpfr_srcptr x, mpfr_rnd_t rnd);
int inverse_erf(mpfr_ptr r, mpfr_srcptr x, mpfr_rnd_t rnd);
int inverse_erfc(mpfr_ptr r, mpfr_srcptr x, mpfr_rnd_t rnd);
int inverse_normal_cdf(mpfr_ptr r, mpfr_srcptr x, mpfr_rnd_t rnd);
int bessel_i0(mpfr_ptr r, mpfr_srcptr x, mpfr_rnd_t rnd);
int bessel_i1(mpfr_ptr r, mpfr_srcptr x, mpfr_rnd_t rnd);
// Of any order. J at an infinity: a zero, with the sign of x if the order is odd. Y: -inf at 0, NaN below, 0 at +inf; a negative
// odd order turns the sign.
int bessel_j(mpfr_ptr r, long order, mpfr_srcptr x, mpfr_rnd_t rnd);
int bessel_y(mpfr_ptr r, long order, mpfr_srcptr x, mpfr_rnd_t rnd);
int bessel_j0(mpfr_ptr r, mpfr_srcptr x, mpfr_rnd_t rnd);
int bessel_j1(mpfr_ptr r, mpfr_srcptr x, mpfr_rnd_t rnd);
int bessel_y0(mpfr_ptr r, mpfr_srcptr x, mpfr_rnd_t rnd);
int bessel_y1(mpfr_ptr r, mpfr_srcptr x, mpfr_rnd_t rnd);
// |x|^y, but NaN where both are finite and x < 0.
int power_of_non_negative(mpfr_ptr r, mpfr_srcptr x, mpfr_srcptr y, mpfr_rnd_t rnd);

}  // namespace orvik::accuracy
