// Complex powers whose y log x is large: its error is that of the logarithm times its size, and the angle counts modulo
// a turn. In numbers of 113 bits (the compiler's, in software) the logarithm gets a step of Newton's method,
//   log x = w + (x e^-w - 1) - (x e^-w - 1)^2 / 2,
// w from heads alone, and is good to 2^-104. Multiples of a right angle are taken modulo a turn exactly.
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

// log x = log + quarter i pi/2: the angle from the nearest half axis, so that a small one keeps its precision. x is
// turned to the positive axis and brought near 1 by a power of two.
struct WideLogarithm {
  WidePoint log;
  int quarter;
  explicit WideLogarithm(Point x) {
    const bool steep = magnitude(x.im) > magnitude(x.re);
    quarter = steep ? (x.im > 0 ? 1 : -1) : x.re > 0 ? 0 : 2;
    Point z = x;
    if (quarter == 1) z = {x.im, -x.re};
    if (quarter == -1) z = {-x.im, x.re};
    if (quarter == 2) z = {-x.re, -x.im};
    const int e = std::ilogb(z.re);
    z = {std::scalbn(z.re, -e), std::scalbn(z.im, -e)};
    const ComplexLogarithm<Long> rough = complex_logarithm<Long, Precision::powers>(z.re, z.im);
    const WidePoint w = {rough.modulus.head, std::copysign(rough.angle.head, z.im)};
    const WidePoint r = exponential_less_one({-w.re, -w.im});
    const WidePoint q = product({z.re, z.im}, r);
    const WidePoint left = {q.re + (Wide(z.re) - Wide(1)), q.im + Wide(z.im)};  // z e^-w - 1
    const WidePoint s = product(left, left);
    log = {w.re + (left.re - s.re / 2) + Wide(e) * wide_of(kLn2First, kLn2Second, kLn2Third), w.im + (left.im - s.im / 2)};
    if (quarter == 2 && is_negative(x.im)) quarter = -2;  // below the cut
  }
};

// Both finite, x not 0.
[[gnu::noinline, gnu::cold]] inline Point wide_power(Point x, Point y) {
  const WideLogarithm w(x);
  const Wide half_pi = wide_of(kPiFirst, kPiSecond, kPiThird) / 2;
  const Wide exponent = w.log.re * Wide(y.re) - (w.log.im + Wide(w.quarter) * half_pi) * Wide(y.im);
  if (exponent < Wide(-1400.0)) return {0.0, 0.0};
  // Quarters modulo a turn are exact.
  Wide angle = (w.log.im * Wide(y.re) + w.log.re * Wide(y.im)) +
               Wide(std::remainder(w.quarter * std::remainder(y.re, 4.0), 4.0)) * half_pi;
  const double turns = static_cast<double>(angle) / 6.283185307179586;
  if (magnitude(turns) < 0x1p100) {
    const Wide n = std::nearbyint(turns);
    angle = ((angle - n * Wide(2 * kPiFirst)) - n * Wide(2 * kPiSecond)) - n * Wide(2 * kPiThird);
  } else {
    angle = 1;  // nothing is known of it
  }
  if (exponent < Wide(1400.0)) return exponential_of_point(long_of(exponent), long_of(angle));
  const Point huge = exponential_of_point(Long{1400.0, 0.0}, long_of(angle));
  return {huge.re * 0x1p1000, huge.im * 0x1p1000};
}

}  // namespace orvik::zym::complex_loops
