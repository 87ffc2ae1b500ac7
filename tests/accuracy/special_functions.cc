#include "accuracy/special_functions.h"

#include <cstdlib>

#include "accuracy/reference.h"

namespace orvik::accuracy {
namespace {

constexpr mpfr_rnd_t kNearest = MPFR_RNDN;
constexpr mpfr_prec_t kGuard = 64;

struct Wide {  // room for cancellation and for the slope of an inverse function
  mpfr_t v;
  explicit Wide(mpfr_prec_t bits) { mpfr_init2(v, bits); }
  ~Wide() { mpfr_clear(v); }
  Wide(const Wide&) = delete;
  Wide& operator=(const Wide&) = delete;
  operator mpfr_ptr() { return v; }
};

bool not_regular(mpfr_srcptr x) { return mpfr_regular_p(x) == 0; }

// One step towards erfc(y) = tail in so many bits: y += (erfc(y) - tail) / (2/sqrt(pi)) exp(-y^2). Returns the binary
// places by which the step is smaller than y.
mpfr_exp_t improve(mpfr_ptr y, mpfr_srcptr tail, mpfr_prec_t bits) {
  Wide here(bits), slope(bits), step(bits);
  mpfr_set(here, y, kNearest);
  mpfr_erfc(step, here, kNearest);
  mpfr_sub(step, step, tail, kNearest);
  mpfr_sqr(slope, here, kNearest);
  mpfr_exp(slope, slope, kNearest);
  mpfr_mul(step, step, slope, kNearest);
  mpfr_const_pi(slope, kNearest);
  mpfr_sqrt(slope, slope, kNearest);
  mpfr_mul(step, step, slope, kNearest);
  mpfr_div_2ui(step, step, 1, kNearest);
  mpfr_add(y, here, step, kNearest);
  return mpfr_zero_p(step) ? static_cast<mpfr_exp_t>(bits) : mpfr_get_exp(y) - mpfr_get_exp(step);
}

// y with erfc(y) = q for 0 < q < 2, q not 1, by Newton's method in growing precision. Starts from the leading term of
// the tail, or from the slope at 0.
void solve_erfc(mpfr_ptr y, mpfr_srcptr q) {
  Wide tail(mpfr_get_prec(q) + kGuard), step(kGuard);
  const bool upper = mpfr_cmp_ui(q, 1) > 0;
  mpfr_ui_sub(tail, 2, q, kNearest);
  if (!upper) mpfr_set(tail, q, kNearest);  // erfc(|y|)
  if (mpfr_cmp_d(tail, 0.3) < 0) {
    mpfr_log(y, tail, kNearest);
    mpfr_neg(y, y, kNearest);
    mpfr_sqrt(y, y, kNearest);
    for (int i = 0; i < 3; ++i) {  // y^2 = -ln(tail sqrt(pi) y)
      mpfr_const_pi(step, kNearest);
      mpfr_sqrt(step, step, kNearest);
      mpfr_mul(step, step, y, kNearest);
      mpfr_mul(step, step, tail, kNearest);
      mpfr_log(step, step, kNearest);
      mpfr_neg(step, step, kNearest);
      if (mpfr_sgn(step.v) <= 0) break;
      mpfr_sqrt(y, step, kNearest);
    }
  } else {
    mpfr_ui_sub(y, 1, tail, kNearest);
    mpfr_mul_d(y, y, 0.8862269254527580, kNearest);
  }
  // What erfc(y) - 1 loses near 0 is added to all precisions. Relative errors are squared, and grow by y^2 < 2^10.
  const mpfr_prec_t lost = mpfr_get_exp(y) < 0 ? -mpfr_get_exp(y) : 0;
  for (int i = 0; i < 100 && improve(y, tail, kGuard + lost) < 25; ++i) {
  }
  for (mpfr_prec_t right = 40; right < kPrecision + kGuard / 2; right = 2 * right - 10) {
    improve(y, tail, 2 * right + 32 + lost);
  }
  if (upper) mpfr_neg(y, y, kNearest);
}

// The bits that 1 - q and 1 + x lose for operands of any size down to 2^-1074.
mpfr_prec_t bits_for(mpfr_srcptr x) {
  const mpfr_exp_t e = mpfr_get_exp(x);
  return 2 * kPrecision + kGuard + (e < 0 ? 2 * -e : 0);
}

// sum over k of (x/2)^(2k + order) / (k! (k + order)!); every term has one sign.
int bessel_i(mpfr_ptr r, unsigned long order, mpfr_srcptr x, mpfr_rnd_t rnd) {
  if (mpfr_nan_p(x)) return mpfr_set(r, x, rnd);
  if (mpfr_inf_p(x)) {
    mpfr_set_inf(r, order == 0 ? 1 : mpfr_sgn(x));
    return 0;
  }
  if (mpfr_cmpabs_ui(x, 5000) > 0) {  // far beyond the largest double
    mpfr_set_inf(r, order == 0 ? 1 : mpfr_sgn(x));
    return 0;
  }
  const mpfr_prec_t bits = kPrecision + kGuard;
  Wide half(bits), square(bits), term(bits), sum(bits);
  mpfr_div_2ui(half, x, 1, kNearest);
  mpfr_sqr(square, half, kNearest);
  mpfr_set_ui(term, 1, kNearest);
  if (order == 1) mpfr_set(term, half, kNearest);
  mpfr_set(sum, term, kNearest);
  for (unsigned long k = 1; k < 20000; ++k) {
    mpfr_mul(term, term, square, kNearest);
    mpfr_div_ui(term, term, k, kNearest);
    mpfr_div_ui(term, term, k + order, kNearest);
    mpfr_add(sum, sum, term, kNearest);
    if (mpfr_zero_p(term) || mpfr_get_exp(term) < mpfr_get_exp(sum) - bits) break;
  }
  return mpfr_set(r, sum, rnd);
}

}  // namespace

int reciprocal(mpfr_ptr r, mpfr_srcptr x, mpfr_rnd_t rnd) { return mpfr_ui_div(r, 1, x, rnd); }

int inverse_square_root(mpfr_ptr r, mpfr_srcptr x, mpfr_rnd_t rnd) {
  return mpfr_zero_p(x) ? mpfr_ui_div(r, 1, x, rnd) : mpfr_rec_sqrt(r, x, rnd);
}

int inverse_cube_root(mpfr_ptr r, mpfr_srcptr x, mpfr_rnd_t rnd) {
  mpfr_cbrt(r, x, rnd);
  return mpfr_ui_div(r, 1, r, rnd);
}

int power_3_2(mpfr_ptr r, mpfr_srcptr x, mpfr_rnd_t rnd) {
  if (mpfr_zero_p(x)) return mpfr_set_ui(r, 0, rnd);
  Wide cube(kPrecision);
  mpfr_pow_ui(cube, x, 3, rnd);
  return mpfr_sqrt(r, cube, rnd);
}

int power_2_3(mpfr_ptr r, mpfr_srcptr x, mpfr_rnd_t rnd) {
  mpfr_cbrt(r, x, rnd);
  return mpfr_sqr(r, r, rnd);
}

int sine_degrees(mpfr_ptr r, mpfr_srcptr x, mpfr_rnd_t rnd) { return mpfr_sinu(r, x, 360, rnd); }
int cosine_degrees(mpfr_ptr r, mpfr_srcptr x, mpfr_rnd_t rnd) { return mpfr_cosu(r, x, 360, rnd); }
int tangent_degrees(mpfr_ptr r, mpfr_srcptr x, mpfr_rnd_t rnd) { return mpfr_tanu(r, x, 360, rnd); }

int sine_cosine(mpfr_ptr s, mpfr_ptr c, mpfr_srcptr x, mpfr_rnd_t rnd) { return mpfr_sin_cos(s, c, x, rnd); }

int sine_cosine_pi(mpfr_ptr s, mpfr_ptr c, mpfr_srcptr x, mpfr_rnd_t rnd) {
  mpfr_sinpi(s, x, rnd);
  return mpfr_cospi(c, x, rnd);
}

int log_gamma(mpfr_ptr r, mpfr_srcptr x, mpfr_rnd_t rnd) {
  int sign;
  return mpfr_lgamma(r, &sign, x, rnd);
}

int exponential_integral_1(mpfr_ptr r, mpfr_srcptr x, mpfr_rnd_t rnd) {
  if (mpfr_zero_p(x)) {
    mpfr_set_inf(r, 1);
    return 0;
  }
  if (mpfr_sgn(x) < 0) {
    mpfr_set_nan(r);
    return 0;
  }
  if (mpfr_inf_p(x)) return mpfr_set_ui(r, 0, rnd);
  Wide negative(kPrecision);
  mpfr_neg(negative, x, kNearest);
  mpfr_eint(r, negative, rnd);
  return mpfr_neg(r, r, rnd);
}

int scaled_erfc(mpfr_ptr r, mpfr_srcptr x, mpfr_rnd_t rnd) {
  if (mpfr_nan_p(x)) return mpfr_set(r, x, rnd);
  if (mpfr_cmp_d(x, 1e3) >
      0) {  // (1 - 1/(2 x^2) + 3/(4 x^4) - 15/(8 x^6) ...) / (x sqrt(pi)), to below 2^-200 with 12 terms
    if (mpfr_inf_p(x)) return mpfr_set_ui(r, 0, rnd);
    Wide term(kPrecision + kGuard), sum(kPrecision + kGuard), square(kPrecision + kGuard);
    mpfr_sqr(square, x, kNearest);
    mpfr_mul_2ui(square, square, 1, kNearest);
    mpfr_set_ui(term, 1, kNearest);
    mpfr_set_ui(sum, 1, kNearest);
    for (long k = 1; k <= 12; ++k) {
      mpfr_mul_si(term, term, -(2 * k - 1), kNearest);
      mpfr_div(term, term, square, kNearest);
      mpfr_add(sum, sum, term, kNearest);
    }
    mpfr_const_pi(term, kNearest);
    mpfr_sqrt(term, term, kNearest);
    mpfr_mul(term, term, x, kNearest);
    return mpfr_div(r, sum, term, rnd);
  }
  Wide square(2 * kPrecision), value(kPrecision + kGuard);
  mpfr_sqr(square, x, kNearest);
  mpfr_exp(square, square, kNearest);
  mpfr_erfc(value, x, kNearest);
  return mpfr_mul(r, square, value, rnd);
}

int normal_cdf(mpfr_ptr r, mpfr_srcptr x, mpfr_rnd_t rnd) {
  const mpfr_prec_t bits = kPrecision + 2 * kGuard;  // the slope of the tail's logarithm is x^2
  Wide z(bits), root(bits);
  mpfr_sqrt_ui(root, 2, kNearest);
  mpfr_div(z, x, root, kNearest);
  mpfr_neg(z, z, kNearest);
  mpfr_erfc(r, z, rnd);
  return mpfr_div_2ui(r, r, 1, rnd);
}

int inverse_erf(mpfr_ptr r, mpfr_srcptr x, mpfr_rnd_t rnd) {
  if (mpfr_zero_p(x)) return mpfr_set(r, x, rnd);
  const int against_one = mpfr_nan_p(x) ? 1 : mpfr_cmpabs_ui(x, 1);
  if (against_one == 0) {
    mpfr_set_inf(r, mpfr_sgn(x));
    return 0;
  }
  if (against_one > 0) {
    mpfr_set_nan(r);
    return 0;
  }
  if (mpfr_get_exp(x) < -50) {  // sqrt(pi)/2 (x + pi/12 x^3 + 7 pi^2/480 x^5 ...)
    Wide pi(kPrecision + kGuard), square(kPrecision + kGuard), sum(kPrecision + kGuard);
    mpfr_const_pi(pi, kNearest);
    mpfr_sqr(square, x, kNearest);
    mpfr_mul(square, square, pi, kNearest);
    mpfr_mul_ui(sum, square, 7, kNearest);
    mpfr_div_ui(sum, sum, 480, kNearest);
    Wide twelfth(kPrecision + kGuard);
    mpfr_set_ui(twelfth, 1, kNearest);
    mpfr_div_ui(twelfth, twelfth, 12, kNearest);
    mpfr_add(sum, sum, twelfth, kNearest);
    mpfr_mul(sum, sum, square, kNearest);
    mpfr_add_ui(sum, sum, 1, kNearest);
    mpfr_sqrt(pi, pi, kNearest);
    mpfr_mul(sum, sum, pi, kNearest);
    mpfr_div_2ui(sum, sum, 1, kNearest);
    return mpfr_mul(r, sum, x, rnd);
  }
  const mpfr_prec_t bits = bits_for(x);
  Wide q(bits), y(bits);
  mpfr_ui_sub(q, 1, x, kNearest);
  solve_erfc(y, q);
  return mpfr_set(r, y, rnd);
}

int inverse_erfc(mpfr_ptr r, mpfr_srcptr x, mpfr_rnd_t rnd) {
  if (mpfr_nan_p(x) || (!mpfr_zero_p(x) && mpfr_sgn(x) < 0) || mpfr_cmp_ui(x, 2) > 0) {
    mpfr_set_nan(r);
    return 0;
  }
  if (mpfr_zero_p(x) || mpfr_cmp_ui(x, 2) == 0) {
    mpfr_set_inf(r, mpfr_zero_p(x) ? 1 : -1);
    return 0;
  }
  if (mpfr_cmp_ui(x, 1) == 0) return mpfr_set_ui(r, 0, rnd);
  Wide y(4 * kPrecision);
  solve_erfc(y, x);
  return mpfr_set(r, y, rnd);
}

// -sqrt(2) erfc^-1(2 x).
int inverse_normal_cdf(mpfr_ptr r, mpfr_srcptr x, mpfr_rnd_t rnd) {
  Wide twice(kPrecision), root(4 * kPrecision);
  mpfr_mul_2ui(twice, x, 1, kNearest);
  if (!not_regular(x) && mpfr_cmp_d(x, 0.5) == 0) return mpfr_set_ui(r, 0, rnd);
  inverse_erfc(r, twice, rnd);
  mpfr_sqrt_ui(root, 2, kNearest);
  mpfr_neg(root, root, kNearest);
  return mpfr_mul(r, r, root, rnd);
}

// f(k+1) = 2k/x f(k) - f(k-1) from orders 0 and 1 up to |order|: stable for Y, and for J where the order is below |x|.
// MPFR's own way takes minutes for an order of 100 at 10^5.
template <class F>
int bessel_upwards(mpfr_ptr r, long order, mpfr_srcptr x, mpfr_rnd_t rnd, F zero, F one) {
  const mpfr_prec_t bits = kPrecision + kGuard + 128;
  Wide before(bits), f(bits), term(bits);
  zero(before, x, kNearest);
  one(f, x, kNearest);
  const long n = std::labs(order);
  for (long k = 1; k < n; ++k) {
    mpfr_mul_si(term, f, 2 * k, kNearest);
    mpfr_div(term, term, x, kNearest);
    mpfr_sub(before, term, before, kNearest);
    mpfr_swap(before, f);
  }
  if (order < 0 && n % 2 != 0) mpfr_neg(f, f, kNearest);
  return mpfr_set(r, f, rnd);
}

// By the positive order: for negative ones MPFR has no expansion for large arguments and takes seconds at 10^4.
template <class F>
int of_order(F function, mpfr_ptr r, long order, mpfr_srcptr x, mpfr_rnd_t rnd) {
  const int rounded = function(r, std::labs(order), x, rnd);
  if (order < 0 && order % 2 != 0) mpfr_neg(r, r, rnd);
  return rounded;
}

int bessel_j(mpfr_ptr r, long order, mpfr_srcptr x, mpfr_rnd_t rnd) {
  const bool odd = order % 2 != 0;
  if (mpfr_inf_p(x) || (mpfr_zero_p(x) && order != 0)) {
    mpfr_set_zero(r, odd && (mpfr_signbit(x) != 0) != (order < 0) ? -1 : 1);
    return 0;
  }
  if (std::labs(order) > 1 && mpfr_cmpabs_ui(x, static_cast<unsigned long>(std::labs(order))) > 0) {
    return bessel_upwards(r, order, x, rnd, mpfr_j0, mpfr_j1);
  }
  return of_order(mpfr_jn, r, order, x, rnd);
}

int bessel_y(mpfr_ptr r, long order, mpfr_srcptr x, mpfr_rnd_t rnd) {
  const int sign = order < 0 && order % 2 != 0 ? -1 : 1;
  if (mpfr_zero_p(x)) {
    mpfr_set_inf(r, -sign);
    return 0;
  }
  if (mpfr_inf_p(x) && mpfr_sgn(x) > 0) {
    mpfr_set_zero(r, sign);
    return 0;
  }
  if (std::labs(order) > 1 && mpfr_sgn(x) > 0) return bessel_upwards(r, order, x, rnd, mpfr_y0, mpfr_y1);
  return of_order(mpfr_yn, r, order, x, rnd);
}

int bessel_j0(mpfr_ptr r, mpfr_srcptr x, mpfr_rnd_t rnd) { return bessel_j(r, 0, x, rnd); }
int bessel_j1(mpfr_ptr r, mpfr_srcptr x, mpfr_rnd_t rnd) { return bessel_j(r, 1, x, rnd); }
int bessel_y0(mpfr_ptr r, mpfr_srcptr x, mpfr_rnd_t rnd) { return bessel_y(r, 0, x, rnd); }
int bessel_y1(mpfr_ptr r, mpfr_srcptr x, mpfr_rnd_t rnd) { return bessel_y(r, 1, x, rnd); }

int power_of_non_negative(mpfr_ptr r, mpfr_srcptr x, mpfr_srcptr y, mpfr_rnd_t rnd) {
  const bool finite = mpfr_number_p(x) != 0 && mpfr_number_p(y) != 0 && mpfr_zero_p(y) == 0;
  const bool minus_one_and_nan = mpfr_nan_p(y) != 0 && mpfr_nan_p(x) == 0 && mpfr_cmp_si(x, -1) == 0;
  if ((finite && mpfr_sgn(x) < 0) || minus_one_and_nan) {
    mpfr_set_nan(r);
    return 0;
  }
  Wide magnitude(kPrecision);  // a zero of either sign is +0
  mpfr_abs(magnitude, x, kNearest);
  return mpfr_pow(r, magnitude, y, rnd);
}

int bessel_i0(mpfr_ptr r, mpfr_srcptr x, mpfr_rnd_t rnd) { return bessel_i(r, 0, x, rnd); }
int bessel_i1(mpfr_ptr r, mpfr_srcptr x, mpfr_rnd_t rnd) { return bessel_i(r, 1, x, rnd); }

}  // namespace orvik::accuracy
