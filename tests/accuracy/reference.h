// What each function should give: a table from function name to reference, one line a function.
#pragma once

#include <mpc.h>
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

// A complex number of that precision.
struct Complex {
  mpc_t v;
  Complex() { mpc_init2(v, kPrecision); }
  ~Complex() { mpc_clear(v); }
  Complex(const Complex&) = delete;
  Complex& operator=(const Complex&) = delete;
  operator mpc_ptr() { return v; }
};

// What a complex reference says of its result: a part may be without a stated sign where it is zero or infinite, and a
// whole value without a statement (powers of infinities and NaNs).
struct Stated {
  bool any = false;
  bool any_sign[2] = {false, false};
};

inline constexpr int kMaxArguments = 6;  // the parts of a and b, and up to four scalars

enum class Parity { none, even, odd };

struct Reference {
  std::string_view function;

  // Correctly rounded or nearly so, one of these four by the function's shape (array and scalar: binary).
  int (*unary)(mpfr_ptr, mpfr_srcptr, mpfr_rnd_t) = nullptr;
  int (*binary)(mpfr_ptr, mpfr_srcptr, mpfr_srcptr, mpfr_rnd_t) = nullptr;
  int (*unary2)(mpfr_ptr, mpfr_ptr, mpfr_srcptr, mpfr_rnd_t) = nullptr;
  int (*order)(mpfr_ptr, long, mpfr_srcptr, mpfr_rnd_t) = nullptr;

  // The same to about 1e-15, relative to max(|result|, floor), at arguments that are values of 32-bit floats: the
  // filter of the exhaustive run. Null: MPFR throughout. With a parity only positive arguments are asked for.
  double (*fast[2])(double) = {nullptr, nullptr};
  Parity parity[2] = {Parity::none, Parity::none};

  // Functions without approximation: every bit of the result, NaNs alike, in elements of 32 and 64 bits.
  void (*exact_s)(const float* arguments, float* results) = nullptr;
  void (*exact_d)(const double* arguments, double* results) = nullptr;

  // Whether an exact zero may have either sign; at arguments of zero it may not.
  bool any_zero_sign = false;

  // Near zeros of some functions the bound is absolute: the error counts in ulp of max(|result|, floor). 0: no floor
  // here.
  double (*floor)(bool single, const double* arguments, int order) = nullptr;

  bool exact() const { return exact_s != nullptr; }
  bool real() const {
    return exact() || unary != nullptr || binary != nullptr || unary2 != nullptr || order != nullptr;
  }
};

// Of complex rows. Parts are always judged by the norm of the result, and also each by itself.
struct ComplexReference {
  std::string_view function;

  // One of these by the function's shape (array and scalar: binary).
  Stated (*unary)(mpc_ptr, mpc_srcptr) = nullptr;
  Stated (*binary)(mpc_ptr, mpc_srcptr, mpc_srcptr) = nullptr;
  Stated (*to_real)(mpfr_ptr, mpc_srcptr) = nullptr;
  Stated (*from_real)(mpc_ptr, mpfr_srcptr) = nullptr;

  // Functions without approximation: every bit of both parts. Arguments are the parts in order.
  void (*exact_s)(const float* arguments, float* results) = nullptr;
  void (*exact_d)(const double* arguments, double* results) = nullptr;

  // Whether the bound of a level holds for each part by itself; otherwise it holds for the norm of the result.
  bool by_component = false;

  bool exact() const { return exact_s != nullptr; }
};

// Null where there is none.
const Reference* find_reference(std::string_view function);
const ComplexReference* find_complex_reference(std::string_view function);

}  // namespace orvik::accuracy
