// A number of MPFR as a value. Its precision is the default one at the time it is made.
#pragma once

#include <mpfr.h>

#include <utility>

namespace orvik::approx {

class Real {
 public:
  Real() { mpfr_init_set_ui(v_, 0, MPFR_RNDN); }
  Real(double x) {  // NOLINT: numbers of the machine are reals
    mpfr_init(v_);
    mpfr_set_d(v_, x, MPFR_RNDN);
  }
  Real(const Real& other) {
    mpfr_init2(v_, mpfr_get_prec(other.v_));
    mpfr_set(v_, other.v_, MPFR_RNDN);
  }
  Real& operator=(Real other) {
    mpfr_swap(v_, other.v_);
    return *this;
  }
  ~Real() { mpfr_clear(v_); }

  mpfr_ptr get() { return v_; }
  mpfr_srcptr get() const { return v_; }

 private:
  mpfr_t v_;
};

// What a function of MPFR makes of its operands.
template <class Function, class... Operands>
Real apply(Function* function, Operands... operands) {
  Real result;
  function(result.get(), operands..., MPFR_RNDN);
  return result;
}

inline Real operator+(const Real& x, const Real& y) { return apply(mpfr_add, x.get(), y.get()); }
inline Real operator-(const Real& x, const Real& y) { return apply(mpfr_sub, x.get(), y.get()); }
inline Real operator*(const Real& x, const Real& y) { return apply(mpfr_mul, x.get(), y.get()); }
inline Real operator/(const Real& x, const Real& y) { return apply(mpfr_div, x.get(), y.get()); }
inline Real operator-(const Real& x) { return apply(mpfr_neg, x.get()); }
inline bool operator<(const Real& x, const Real& y) { return mpfr_less_p(x.get(), y.get()) != 0; }
inline Real abs(const Real& x) { return apply(mpfr_abs, x.get()); }

// All numbers made while this lives have so many bits.
class Precision {
 public:
  explicit Precision(long bits) : old_(mpfr_get_default_prec()) { mpfr_set_default_prec(bits); }
  ~Precision() { mpfr_set_default_prec(old_); }
  Precision(const Precision&) = delete;
  Precision& operator=(const Precision&) = delete;

 private:
  mpfr_prec_t old_;
};

}  // namespace orvik::approx
