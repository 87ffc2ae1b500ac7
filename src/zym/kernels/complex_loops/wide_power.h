// Complex powers whose y log x is large: its error is that of the logarithm times its size, and the angle counts modulo
// a turn. In numbers of 113 bits (the compiler's, in software) the logarithm gets a step of Newton's method,
//   log x = w + (x e^-w - 1) - (x e^-w - 1)^2 / 2,
// w from heads alone, and is good to 2^-104. Angles that are a multiple of pi/4 are taken modulo a turn exactly.
#pragma once

#include <cmath>

#include "zym/kernels/complex_loops/constants.h"
#include "zym/kernels/complex_loops/logarithm.h"
#include "zym/kernels/complex_loops/loop.h"

namespace orvik::zym::complex_loops {

using Wide = __float128;

inline Wide wide_of(double first, double second, double third) { return Wide(first) + Wide(second) + Wide(third); }
inline Long long_of(Wide a) {
  const double head = static_cast<double>(a);
  return {head, static_cast<double>(a - Wide(head))};
}

struct WidePoint {
  Wide re, im;
};
inline WidePoint product(WidePoint a, WidePoint b) {
  return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re};
}

// e^w - 1, |w| up to 4: its series at w / 256, doubled eight times.
inline WidePoint exponential_less_one(WidePoint w) {
  const WidePoint v = {w.re * Wide(0x1p-8), w.im * Wide(0x1p-8)};
  WidePoint sum = {0, 0};
  for (int n = 15; n >= 1; --n) {  // v/n (1 + sum)
    const WidePoint p = product(v, {sum.re + Wide(1), sum.im});
    sum = {p.re / Wide(n), p.im / Wide(n)};
  }
  for (int i = 0; i < 8; ++i) {
    const WidePoint s = product(sum, sum);
    sum = {sum.re + sum.re + s.re, sum.im + sum.im + s.im};
  }
  return sum;
}

// log x, the angle with the sign of the imaginary part. x brought near 1 by a power of two.
inline WidePoint wide_logarithm(Point x) {
  const int e = std::ilogb(max(magnitude(x.re), magnitude(x.im)));
  const Point z = {std::scalbn(x.re, -e), std::scalbn(x.im, -e)};
  const ComplexLogarithm<Long> rough = complex_logarithm<Long, Precision::powers>(z.re, z.im);
  const WidePoint w = {rough.modulus.head, std::copysign(rough.angle.head, x.im)};
  const WidePoint r = exponential_less_one({-w.re, -w.im});
  const WidePoint q = product({z.re, z.im}, r);
  const WidePoint left = {q.re + (Wide(z.re) - Wide(1)), q.im + Wide(z.im)};  // z e^-w - 1
  const WidePoint s = product(left, left);
  return {w.re + (left.re - s.re / 2) + Wide(e) * wide_of(kLn2First, kLn2Second, kLn2Third), w.im + (left.im - s.im / 2)};
}

// y modulo what turns a multiple of pi/4 by whole turns.
inline double within_turns(Point x, double y) {
  if (x.im == 0) return std::remainder(y, 2.0);
  if (x.re == 0) return std::remainder(y, 4.0);
  if (magnitude(x.re) == magnitude(x.im)) return std::remainder(y, 8.0);
  return y;
}

// Both finite, x not 0.
[[gnu::noinline, gnu::cold]] inline Point wide_power(Point x, Point y) {
  const WidePoint log = wide_logarithm(x);
  const Wide exponent = log.re * Wide(y.re) - log.im * Wide(y.im);
  if (exponent < Wide(-1400.0)) return {0.0, 0.0};
  Wide angle = log.im * Wide(within_turns(x, y.re)) + log.re * Wide(y.im);
  // Beyond 2^100 turns nothing is known of the angle.
  const double turns = static_cast<double>(angle) / 6.283185307179586;
  if (magnitude(turns) < 0x1p100) {
    const double n = std::nearbyint(turns);
    angle = ((angle - Wide(n) * Wide(2 * kPiFirst)) - Wide(n) * Wide(2 * kPiSecond)) - Wide(n) * Wide(2 * kPiThird);
  } else {
    angle = 0;
  }
  return exponential_of_point(exponent > Wide(1100.0) ? Long{1100.0, 0.0} : long_of(exponent), long_of(angle));
}

}  // namespace orvik::zym::complex_loops
