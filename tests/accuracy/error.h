// The error of a result against an exact value.
//
// In ulp: the distance in units of the last place that the exact value has in the result's format, never below the unit
// of the denormal range. Overflow: an infinite result counts as 2^emax (2^128, 2^1024), and exact values beyond that
// count as it, so that a finite result where the format's largest would do, or infinity one step early, is an error of
// about one. Relative (level EP): the distance over the exact value, or over the smallest normal number where that is
// larger. A NaN, a pole or an exact zero must be met, the latter two with their sign; anything else is an infinite
// error.
//
// A complex result by its norm: the length of the difference in units of the last place of the exact value's length, or
// over that length. NaNs and infinities must be met part by part; a part that is an exact zero may be off by what the
// norm allows, but where it is a zero it has its sign.
#pragma once

#include <mpfr.h>

#include <string>

namespace orvik::accuracy {

enum class Metric { ulp, relative };

struct Format {
  bool single;
  int precision() const { return single ? 24 : 53; }
  int max_exponent() const { return single ? 128 : 1024; }    // values lie below 2^this
  int min_exponent() const { return single ? -125 : -1021; }  // of the smallest normal, as m 2^e with m in [0.5, 1)
};

// floor: see Reference::floor; 0 for none.
double error_of(double got, mpfr_srcptr exact, Metric metric, Format format, bool any_zero_sign, double floor);

// any_sign: parts whose sign is not stated where they are zero or infinite.
double norm_error_of(const double* got, mpfr_srcptr re, mpfr_srcptr im, Metric metric, Format format,
                     const bool* any_sign);
double part_error_of(double got, mpfr_srcptr exact, Metric metric, Format format, bool any_sign);

// As the records state it: four digits of ulp rounded up, or bits with two digits rounded down.
std::string state_error(double error, Metric metric);

// Hexadecimal digits of a float, inf, -inf or nan.
std::string hexadecimal(double x);
// Enough decimal digits of an exact value to see the error: 20 (double) or 12.
std::string decimal(mpfr_srcptr exact, Format format);

}  // namespace orvik::accuracy
