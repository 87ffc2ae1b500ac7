// Complex powers whose y log x is large: its error is that of the logarithm times its size, and the angle counts modulo
// a turn. In numbers of 113 bits (the compiler's, in software) the logarithm gets a step of Newton's method,
//   log x = w + (x e^-w - 1) - (x e^-w - 1)^2 / 2,
// w from heads alone, and is good to 2^-104. Multiples of a right angle are taken modulo a turn exactly.
#pragma once

#include <cfenv>
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
inline WidePoint product(WidePoint a, WidePoint b) { return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re}; }

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

// log x = log + eighths i pi/4: the angle from the nearest half axis, so that a small one keeps its precision; none on
// the diagonals. x is turned to the positive axis and brought near 1 by a power of two.
struct WideLogarithm {
  WidePoint log;
  int eighths;
  explicit WideLogarithm(Point x) {
    const bool steep = magnitude(x.im) > magnitude(x.re);
    Point z = x;
    if (steep) z = x.im > 0 ? Point{x.im, -x.re} : Point{-x.im, x.re};
    if (!steep && x.re < 0) z = {-x.re, -x.im};
    eighths = steep ? 2 : x.re > 0 ? 0 : 4;
    if (is_negative(x.im)) eighths = -eighths;
    const int e = exponent_of(z.re);
    const Wide down = Wide(power_of_two<double>(-e / 2)) * Wide(power_of_two<double>(-(e - e / 2)));
    const WidePoint m = {Wide(z.re) * down, Wide(z.im) * down};
    const ComplexLogarithm<Long> rough =
        complex_logarithm<Long, Precision::powers>(static_cast<double>(m.re), static_cast<double>(m.im));
    const WidePoint w = {rough.modulus.head, std::copysign(rough.angle.head, z.im)};
    const WidePoint r = exponential_less_one({-w.re, -w.im});
    const WidePoint q = product(m, r);
    const WidePoint left = {q.re + (m.re - Wide(1)), q.im + m.im};  // m e^-w - 1
    const WidePoint s = product(left, left);
    log = {w.re + (left.re - s.re / 2) + Wide(e) * wide_of(kLn2First, kLn2Second, kLn2Third),
           w.im + (left.im - s.im / 2)};
    if (magnitude(z.im) == z.re) {
      log.im = 0;
      eighths += z.im > 0 ? 1 : -1;
    }
  }
};

inline Point turned_by_quarters(Point z, int quarters) {
  if ((quarters & 1) != 0) z = turned(z);
  return (quarters & 2) != 0 ? Point{-z.re, -z.im} : z;
}

// y log x in heads and tails: the exponent held at 3000 where it is more, the angle but for quarters of a turn.
struct WideProduct {
  Long exponent, angle;
  int quarters;
};
inline WideProduct wide_product(Point x, Point y) {
  const WideLogarithm w(x);
  const Wide eighth = wide_of(kPiFirst, kPiSecond, kPiThird) / 4;
  const Wide exponent = w.log.re * Wide(y.re) - (w.log.im + Wide(w.eighths) * eighth) * Wide(y.im);
  // Eighths modulo a turn are exact; whole quarters of them turn the result.
  const double eighths = std::remainder(w.eighths * std::remainder(y.re, 8.0), 8.0);
  const double quarters = std::nearbyint(eighths / 2);
  Wide angle = (w.log.im * Wide(y.re) + w.log.re * Wide(y.im)) + Wide(eighths - 2 * quarters) * eighth;
  const double turns = static_cast<double>(angle) / 6.283185307179586;
  if (magnitude(turns) < 0x1p100) {
    const Wide n = std::nearbyint(turns);
    angle = ((angle - n * Wide(2 * kPiFirst)) - n * Wide(2 * kPiSecond)) - n * Wide(2 * kPiThird);
  } else {
    angle = 1;  // nothing is known of it
  }
  const Wide limit = 3000;
  if (exponent > limit && magnitude(turns) < 0x1p-600 && angle != 0) {
    angle = std::copysign(0x1p-100, angle < 0 ? -1.0 : 1.0);  // however small, its sine times the modulus is infinite
  }
  return {long_of(exponent > limit    ? limit
                  : exponent < -limit ? -limit
                                      : exponent),
          long_of(angle), static_cast<int>(quarters)};
}

// Both finite, x not 0.
[[gnu::noinline, gnu::cold]] inline Point wide_power(Point x, Point y) {
  std::fenv_t flags;  // what numbers in software raise on the way is no flag of the result
  std::feholdexcept(&flags);
  const WideProduct p = wide_product(x, y);
  std::fesetenv(&flags);
  Point power = exponential_of_point(p.exponent, p.angle);  // holds the exponent at +-1400
  if (p.exponent.head > 1400.0) power = {power.re * 0x1p1000, power.im * 0x1p1000};
  return turned_by_quarters(power, p.quarters);
}

}  // namespace orvik::zym::complex_loops
