// Calls of the power rows on lists of pairs, and what a power should be.
#pragma once

#include <mpfr.h>

#include <cmath>

#include "support/row_calls.h"

namespace orvik::test {

template <class E>
struct PowerPairs {
  std::vector<E> x, y;
  void add(E a, E b) { x.push_back(a), y.push_back(b); }
  size_t size() const { return x.size(); }
};

template <class E>
std::vector<E> powers(const std::string& function, int level, const PowerPairs<E>& pairs, bool strided = false) {
  std::vector<E> r(pairs.size());
  Call<E> c;
  c.n = static_cast<int32_t>(pairs.size()), c.a = pairs.x.data(), c.b = pairs.y.data(), c.r1 = r.data();
  EXPECT_TRUE(call_row(row_named(row_of<E>(function)), level, strided, c));
  return r;
}

// x^y in 200 bits.
class ExactPower {
 public:
  ExactPower(double x, double y) {
    mpfr_init2(value_, 200);
    mpfr_t a, b;
    mpfr_inits2(53, a, b, static_cast<mpfr_ptr>(nullptr));
    mpfr_set_d(a, x, MPFR_RNDN);
    mpfr_set_d(b, y, MPFR_RNDN);
    mpfr_pow(value_, a, b, MPFR_RNDN);
    mpfr_clears(a, b, static_cast<mpfr_ptr>(nullptr));
  }
  ExactPower(const ExactPower&) = delete;
  ~ExactPower() { mpfr_clear(value_); }

  template <class E>
  E rounded() const {
    return sizeof(E) == 4 ? static_cast<E>(mpfr_get_flt(value_, MPFR_RNDN))
                          : static_cast<E>(mpfr_get_d(value_, MPFR_RNDN));
  }
  template <class E>
  bool overflows() const {
    return std::isinf(rounded<E>());
  }

  // The distance in units of the last place of the exact value; infinity counts as the next power of two.
  template <class E>
  double units(E got) const {
    using L = std::numeric_limits<E>;
    mpfr_t d;
    mpfr_init2(d, 200);
    if (std::isinf(got)) {
      mpfr_set_si_2exp(d, got < 0 ? -1 : 1, L::max_exponent, MPFR_RNDN);
    } else {
      mpfr_set_d(d, static_cast<double>(got), MPFR_RNDN);
    }
    mpfr_exp_t e = mpfr_zero_p(value_) != 0 ? L::min_exponent : mpfr_get_exp(value_);
    if (e < L::min_exponent) e = L::min_exponent;
    mpfr_sub(d, d, value_, MPFR_RNDN);
    mpfr_mul_2si(d, d, L::digits - e, MPFR_RNDN);
    const double units = std::fabs(mpfr_get_d(d, MPFR_RNDA));
    mpfr_clear(d);
    return units;
  }
  // What a level allows: more below the normal range, where one rounding follows another.
  template <class E>
  double bound(int level) const {
    using L = std::numeric_limits<E>;
    const bool normal = std::fabs(rounded<E>()) >= L::min();
    if (level == 0) return 4;
    if (level == 1) return normal ? 1 : 1.5;
    return std::ldexp(1.0, sizeof(E) == 4 ? 24 - 11 : 53 - 26);
  }

 private:
  mpfr_t value_;
};

}  // namespace orvik::test
