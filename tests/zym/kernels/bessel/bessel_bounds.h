// Errors of Bessel functions against MPFR, in units of the last place of the larger of the result and the floor that
// holds from about the first zero on: 1/16 (32 bits) or 1/2 (64 bits) of the amplitude min(1/2, sqrt(2/(pi x))).
#pragma once

#include <mpfr.h>

#include <cmath>
#include <cstdlib>
#include <limits>
#include <string>
#include <vector>

#include "support/row_calls.h"

namespace orvik::test {

class ExactBessel {
 public:
  ExactBessel() { mpfr_inits2(240, value_, work_, nullptr); }
  ~ExactBessel() { mpfr_clears(value_, work_, nullptr); }
  ExactBessel(const ExactBessel&) = delete;
  ExactBessel& operator=(const ExactBessel&) = delete;

  template <class E>
  double ulps(char kind, int32_t order, E x, E got) {
    const double m = std::fabs(static_cast<double>(x));
    mpfr_set_d(work_, x, MPFR_RNDN);
    if (kind == 'J') mpfr_jn(value_, order, work_, MPFR_RNDN);
    if (kind == 'Y') mpfr_yn(value_, order, work_, MPFR_RNDN);
    if (kind == 'I') modified(order);
    const int n = std::abs(order);
    const double first = n == 0        ? (kind == 'J' ? 2 : 0.8)
                         : n == 1      ? (kind == 'J' ? 3 : 2)
                         : kind == 'J' ? n + 1
                                       : 0.9 * n;
    double floor = 0;
    if (kind != 'I' && m >= first) floor = std::fmin(0.5, std::sqrt(2 / (M_PI * m))) / (sizeof(E) == 4 ? 16 : 2);
    if (std::isinf(got)) return mpfr_get_exp(value_) > std::numeric_limits<E>::max_exponent ? 0 : INFINITY;
    const double scale = std::fmax(floor, std::fabs(mpfr_get_d(value_, MPFR_RNDN)));
    int exponent = std::numeric_limits<E>::min_exponent;  // of the smallest normal number
    if (scale > 0) exponent = std::max(exponent, std::ilogb(scale) + 1);
    mpfr_sub_d(work_, value_, got, MPFR_RNDN);
    mpfr_mul_2si(work_, work_, std::numeric_limits<E>::digits - exponent, MPFR_RNDN);
    return std::fabs(mpfr_get_d(work_, MPFR_RNDN));
  }

 private:
  void modified(int order) {  // the power series
    mpfr_t square, term;
    mpfr_inits2(240, square, term, nullptr);
    mpfr_sqr(square, work_, MPFR_RNDN);
    mpfr_div_2ui(square, square, 2, MPFR_RNDN);
    mpfr_set_ui(term, 1, MPFR_RNDN);
    if (order == 1) mpfr_div_2ui(term, work_, 1, MPFR_RNDN);
    mpfr_set(value_, term, MPFR_RNDN);
    for (unsigned long k = 1; k < 3000; ++k) {
      mpfr_mul(term, term, square, MPFR_RNDN);
      mpfr_div_ui(term, term, k, MPFR_RNDN);
      mpfr_div_ui(term, term, k + static_cast<unsigned long>(order), MPFR_RNDN);
      mpfr_add(value_, value_, term, MPFR_RNDN);
    }
    mpfr_clears(square, term, nullptr);
  }
  mpfr_t value_, work_;
};

// The worst error of a row over these arguments; it is below one unit.
template <class E>
void expect_below_an_ulp(const std::string& function, int32_t order, const std::vector<E>& x) {
  ExactBessel exact;
  const char last = function[1];
  const int32_t of_row = last == 'n' ? order : last - '0';
  std::vector<E> r(x.size());
  Call<E> c;
  c.n = static_cast<int32_t>(x.size()), c.a = x.data(), c.r1 = r.data(), c.order = order;
  ASSERT_TRUE(call_row(row_named(row_of<E>(function)), 1, false, c));
  for (size_t i = 0; i < x.size(); ++i) {
    EXPECT_LT(exact.ulps(function[0], of_row, x[i], r[i]), 1)
        << row_of<E>(function) << '(' << of_row << ", " << std::hexfloat << x[i] << ") = " << r[i];
  }
}

}  // namespace orvik::test
