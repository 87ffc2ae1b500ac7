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
