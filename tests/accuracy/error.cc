#include "accuracy/error.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>

#include "accuracy/reference.h"

namespace orvik::accuracy {

double error_of(double got, mpfr_srcptr exact, Metric metric, Format format, bool any_zero_sign, double floor) {
  constexpr double wrong = std::numeric_limits<double>::infinity();
  if (mpfr_nan_p(exact)) return std::isnan(got) ? 0 : wrong;
  if (std::isnan(got)) return wrong;
  if (mpfr_inf_p(exact)) return std::isinf(got) && std::signbit(got) == (mpfr_signbit(exact) != 0) ? 0 : wrong;
  if (mpfr_zero_p(exact) && floor == 0) {
    return got == 0 && (any_zero_sign || std::signbit(got) == (mpfr_signbit(exact) != 0)) ? 0 : wrong;
  }
  thread_local Real value, wanted;
  const auto beyond = [&](mpfr_ptr x, int sign) { mpfr_set_si_2exp(x, sign, format.max_exponent(), MPFR_RNDN); };
  if (std::isinf(got)) {
    beyond(value, got > 0 ? 1 : -1);
  } else {
    mpfr_set_d(value, got, MPFR_RNDN);
  }
  mpfr_set(wanted, exact, MPFR_RNDN);
  if (!mpfr_zero_p(exact) && mpfr_get_exp(exact) > format.max_exponent()) beyond(wanted, mpfr_sgn(exact));
  long exponent = mpfr_zero_p(exact) ? format.min_exponent() : static_cast<long>(mpfr_get_exp(wanted));
  exponent = std::clamp<long>(exponent, format.min_exponent(), format.max_exponent());
  if (floor > 0) exponent = std::max<long>(exponent, std::ilogb(floor) + 1);
  mpfr_sub(value, value, wanted, MPFR_RNDN);
  if (metric == Metric::ulp) {
    mpfr_mul_2si(value, value, format.precision() - exponent, MPFR_RNDN);
  } else {
    mpfr_abs(wanted, wanted, MPFR_RNDN);
    Real least;
    mpfr_set_si_2exp(least, 1, format.min_exponent() - 1, MPFR_RNDN);
    if (floor > 0) mpfr_set_d(least, floor, MPFR_RNDN);
    mpfr_max(wanted, wanted, least, MPFR_RNDN);
    mpfr_div(value, value, wanted, MPFR_RNDN);
  }
  return std::fabs(mpfr_get_d(value, MPFR_RNDN));
}

double part_error_of(double got, mpfr_srcptr exact, Metric metric, Format format, bool any_sign) {
  if (any_sign && mpfr_inf_p(exact) && std::isinf(got)) return 0;
  return error_of(got, exact, metric, format, any_sign, 0);
}

double norm_error_of(const double* got, mpfr_srcptr re, mpfr_srcptr im, Metric metric, Format format,
                     const bool* any_sign) {
  constexpr double wrong = std::numeric_limits<double>::infinity();
  const mpfr_srcptr exact[2] = {re, im};
  if (mpfr_number_p(re) == 0 || mpfr_number_p(im) == 0 || (mpfr_zero_p(re) != 0 && mpfr_zero_p(im) != 0)) {
    return std::max(part_error_of(got[0], re, metric, format, any_sign[0]),
                    part_error_of(got[1], im, metric, format, any_sign[1]));
  }
  thread_local Real part, wanted, squares, length;
  const auto beyond = [&](mpfr_ptr x, int sign) { mpfr_set_si_2exp(x, sign, format.max_exponent(), MPFR_RNDN); };
  mpfr_set_zero(squares, 1);
  mpfr_set_zero(length, 1);
  for (int i = 0; i < 2; ++i) {
    if (std::isnan(got[i])) return wrong;
    const bool opposite = std::signbit(got[i]) != (mpfr_signbit(exact[i]) != 0);
    if (mpfr_zero_p(exact[i]) && got[i] == 0 && opposite && !any_sign[i]) return wrong;
    if (std::isinf(got[i])) {
      beyond(part, got[i] > 0 ? 1 : -1);
    } else {
      mpfr_set_d(part, got[i], MPFR_RNDN);
    }
    mpfr_set(wanted, exact[i], MPFR_RNDN);
    if (!mpfr_zero_p(exact[i]) && mpfr_get_exp(exact[i]) > format.max_exponent()) beyond(wanted, mpfr_sgn(exact[i]));
    mpfr_sub(part, part, wanted, MPFR_RNDN);
    mpfr_hypot(squares, squares, part, MPFR_RNDN);
    mpfr_hypot(length, length, wanted, MPFR_RNDN);
  }
  if (metric == Metric::ulp) {
    const long exponent = std::clamp<long>(mpfr_get_exp(length), format.min_exponent(), format.max_exponent());
    mpfr_mul_2si(squares, squares, format.precision() - exponent, MPFR_RNDN);
  } else {
    mpfr_set_si_2exp(part, 1, format.min_exponent() - 1, MPFR_RNDN);
    mpfr_max(length, length, part, MPFR_RNDN);
    mpfr_div(squares, squares, length, MPFR_RNDN);
  }
  return mpfr_get_d(squares, MPFR_RNDN);
}

std::string state_error(double error, Metric metric) {
  if (std::isinf(error)) return "wrong";
  char text[32];
  if (metric == Metric::ulp) {
    std::snprintf(text, sizeof text, "%.4f", std::ceil(error * 1e4 - 1e-6) / 1e4);
  } else {
    std::snprintf(text, sizeof text, "%.2f", std::floor(std::min(-std::log2(error), 64.0) * 100) / 100);
  }
  return text;
}

std::string hexadecimal(double x) {
  if (std::isnan(x)) return "nan";
  char text[40];
  std::snprintf(text, sizeof text, "%a", x);
  return text;
}

std::string decimal(mpfr_srcptr exact, Format format) {
  char text[64];
  mpfr_snprintf(text, sizeof text, format.single ? "%.12Rg" : "%.20Rg", exact);
  return text;
}

}  // namespace orvik::accuracy
