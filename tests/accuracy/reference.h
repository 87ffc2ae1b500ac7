// What each function should give: a table from function name to reference, one line a function.
#pragma once

#include <mpfr.h>

#include <string_view>

namespace orvik::accuracy {

inline constexpr mpfr_prec_t kPrecision = 192;  // bits of a reference value

// A number of MPFR of kPrecision bits.
struct Real {
  mpfr_t v;
  Real() { mpfr_init2(v, kPrecision); }
  ~Real() { mpfr_clear(v); }
  Real(const Real&) = delete;
  Real& operator=(const Real&) = delete;
  operator mpfr_ptr() { return v; }
};

inline constexpr int kMaxArguments = 6;  // a, b, and up to four scalars

struct Reference {
  std::string_view function;

  // Correctly rounded or nearly so, one of these four by the function's shape (array and scalar: binary).
  int (*unary)(mpfr_ptr, mpfr_srcptr, mpfr_rnd_t) = nullptr;
  int (*binary)(mpfr_ptr, mpfr_srcptr, mpfr_srcptr, mpfr_rnd_t) = nullptr;
  int (*unary2)(mpfr_ptr, mpfr_ptr, mpfr_srcptr, mpfr_rnd_t) = nullptr;
  int (*order)(mpfr_ptr, long, mpfr_srcptr, mpfr_rnd_t) = nullptr;

  // The same to about 1e-15, relative, for the exhaustive run over 32-bit floats. Null: MPFR throughout.
  double (*fast[2])(double) = {nullptr, nullptr};

  // Functions without approximation: every bit of the result, NaNs alike, in elements of 32 and 64 bits.
  void (*exact_s)(const float* arguments, float* results) = nullptr;
  void (*exact_d)(const double* arguments, double* results) = nullptr;

  // Whether an exact zero may have either sign.
  bool any_zero_sign = false;

  // Near zeros of some functions the bound is absolute: the error counts in ulp of max(|result|, floor).
  double (*floor)(bool single, const double* arguments) = nullptr;

  bool exact() const { return exact_s != nullptr; }
};

// Null where there is none.
const Reference* find_reference(std::string_view function);

}  // namespace orvik::accuracy
