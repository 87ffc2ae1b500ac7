// What the element routines share: parts widened to doubles, the routine of a function over the number that goes with
// the element, parts narrowed, the code of the report.
//
// A function F has, for finite parts and for all others (C99 Annex G),
//   template <class N> static Point finite(double x, double y);
//   static Point special(double x, double y);
#pragma once

#include "orvik/zym_types.h"
#include "zym/kernels/complex_loops/number.h"
#include "zym/skeleton/family.h"
#include "zym/skeleton/signature.h"

namespace orvik::zym::complex_loops {

inline bool finite(double x) { return magnitude_bits(x) < FloatFormat<double>::exponent_field; }
inline bool finite(Point z) { return finite(z.re) && finite(z.im); }

template <class E>
Point widened(const Complex<E>* z) {
  return {static_cast<double>(z->re), static_cast<double>(z->im)};
}
template <class E>
void narrow_to(Complex<E>* r, Point w) {
  *r = {static_cast<E>(w.re), static_cast<E>(w.im)};
}

// Finite arguments with an infinite part in the result: an overflow.
template <class E>
int32_t code_of(const Complex<E>& r) {
  return is_infinite(r.re) || is_infinite(r.im) ? zymErrorOverflow : 0;
}

// A NaN of an invalid operation on what was none: infinity times zero and its like.
inline double invalid() { return opaque(infinity<double>) * opaque(0.0); }
inline bool has_nan(Point z) { return is_nan(z.re) || is_nan(z.im); }
// Both NaN: an invalid operation unless a NaN came in.
inline Point no_number(double x, double y) {
  const double n = has_nan({x, y}) ? x + y : invalid();
  return {n, n};
}

// Squares and products of tails are tinier than what they belong to.
inline constexpr Knobs kKnobs = {.stray = kUnderflowFlag};

template <class F, class V>
struct Loop {
  using E = Element<V>;
  static constexpr Knobs knobs = kKnobs;
  static int32_t element(const Complex<E>* pz, Complex<E>* r) {
    const Point z = widened<E>(pz);
    if (!finite(z)) [[unlikely]] {
      return special(z, r);
    }
    narrow_to<E>(r, F::template finite<Number<E>>(z.re, z.im));
    return code_of<E>(*r);
  }

 private:
  [[gnu::noinline, gnu::cold]] static int32_t special(Point z, Complex<E>* r) {
    const Point w = F::special(z.re, z.im);
    narrow_to<E>(r, w);
    return has_nan(w) && !has_nan(z) ? zymErrorDomain : 0;
  }
};

// i z and -i z: the circular functions from the hyperbolic ones, and back.
inline Point turned(Point z) { return {-z.im, z.re}; }
inline Point turned_back(Point z) { return {z.im, -z.re}; }

}  // namespace orvik::zym::complex_loops
