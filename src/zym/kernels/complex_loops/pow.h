// x^y = e^(y log x) of complex numbers. Logarithm, product and exponential are of more precision than the result, since
// an error of y log x is a relative error of the power. Where the product is large (the modulus of x is nearly 1, or
// parts of it cancel) that takes more than heads and tails: wide_power.h.
#pragma once

#include "zym/kernels/complex_loops/logarithm.h"
#include "zym/kernels/complex_loops/loop.h"
#include "zym/kernels/complex_loops/wide_power.h"
#include "zym/kernels/power/element.h"

namespace orvik::zym {
namespace complex_loops {

// Both finite, x not 0. What may overflow is told exactly, since the signs of infinite parts hang on the angle.
template <class N>
inline constexpr double kLargeProduct = kPlain<N> ? 0x1p18 : 0x1p14;
template <class N>
inline constexpr double kLargestExponent = kPlain<N> ? 87 : 708;
template <class N>
struct LogarithmTimes {
  using V = Lanes<N>;
  N re, im;
  V size;
  [[gnu::always_inline]] LogarithmTimes(Pair<V> x, Pair<V> y) {
    const ComplexLogarithm<N> log = complex_logarithm<N, Precision::powers>(x.first, x.second);
    const N angle = signed_by(log.angle, x.second);
    re = add(multiply(log.modulus, y.first), multiply(angle, negative(y.second)));
    im = add(multiply(angle, y.first), multiply(log.modulus, y.second));
    size = (magnitude(y.first) + magnitude(y.second)) * (magnitude(head_of(log.modulus)) + head_of(log.angle));
  }
};
// What the first look does not serve, by heads and tails while these tell the angle to 2^-32 and it is not that near to
// an axis: powers of floats and, beyond the range of the format, the signs of both parts.
template <class N>
[[gnu::noinline, gnu::cold]] Point far_power(Point x, Point y, const LogarithmTimes<N>& first) {
  const auto product = [&] {
    if constexpr (kPlain<N>) {
      return LogarithmTimes<Long>({x.re, x.im}, {y.re, y.im});
    } else {
      return first;
    }
  }();
  constexpr double kBeyond = kPlain<N> ? 104 : 746, kSure = 0x1p-20;
  const auto [exponent, exponent_tail] = product.re;
  const auto [head, tail] = product.im;
  if (product.size < 0x1p36 && (kPlain<N> || magnitude(exponent) > kBeyond)) {
    const double turns = std::nearbyint(head * (0.5 / kPiFirst));
    const double angle = fnma(turns, 2 * kPiSecond, fnma(turns, 2 * kPiFirst, head)) + tail;
    const SineCosine<double> s = sine_cosine<double>(angle);
    if (magnitude(s.sine) > kSure && magnitude(s.cosine) > kSure) {
      if (magnitude(exponent) <= kBeyond) return exponential_of_point<double>(exponent, angle);
      const double scale = exponent > 0 ? 0x1p1000 : 0x1p-1000;
      return {s.cosine * scale * scale, s.sine * scale * scale};
    }
  }
  return wide_power(x, y);
}
template <class N>
[[gnu::always_inline]] inline Point power_of_points(Point x, Point y) {
  const LogarithmTimes<N> product({x.re, x.im}, {y.re, y.im});
  if (!(product.size < kLargeProduct<N>) || head_of(product.re) > kLargestExponent<N>) [[unlikely]]
    return far_power<N>(x, y, product);
  return exponential_of_point<N>(product.re, product.im);
}
// The same of lanes, with the mask of what they do not serve: numbers that are both real are left too.
template <class N, class V = Lanes<N>>
[[gnu::noinline]] Masked<Pair<V>, Mask<V>> powers_of_points(V a, V b, V c, V d) {
  const V zero = V(0.0), filler = V(0.75);
  const Mask<V> real = (d == zero) & ((b == zero) | (c == zero));
  const Mask<V> large = complement((magnitude(c) < V(0x1p100)) & (magnitude(d) < V(0x1p100)));
  const Mask<V> left = far_from_one<N>(a, b) | real | large;
  const Pair<V> x = {select(left, filler, a), select(left, filler, b)};
  const Pair<V> y = {select(left, filler, c), select(left, filler, d)};
  const LogarithmTimes<N> product(x, y);
  const V exponent = head_of(product.re);
  const Mask<V> served = (product.size < V(kLargeProduct<N>)) & (magnitude(head_of(product.im)) < V(0.5 * kLargeAngle)) &
                         (exponent < V(min(kLargestExponent<N>, 700.0))) & (exponent > V(-700.0));
  const auto r = exponential_of_points<N>(product.re, product.im);
  return {r.value, left | complement(served) | r.special};
}

// Zeros, infinities and NaNs in either; both real.
struct SpecialPower {
  Point value;
  int32_t code;
};
template <class E>
[[gnu::noinline, gnu::cold]] SpecialPower special_power(Point x, Point y) {
  if (y.re == 0 && y.im == 0) return {{1.0, 0.0}, 0};  // whatever x is
  if (has_nan(x) || has_nan(y)) {
    const double n = (x.re + x.im) + (y.re + y.im);
    return {{is_nan(n) ? n : nan<double>, is_nan(n) ? n : nan<double>}, 0};
  }
  const bool of_zero = x.re == 0 && x.im == 0;
  const bool of_infinity = is_infinite(x.re) || is_infinite(x.im);
  const double zero = 0.0, inf = infinity<double>;
  if ((of_zero || of_infinity) && finite(y)) {
    if (y.re == 0) return {{invalid(), invalid()}, zymErrorDomain};  // of modulus e^(-y.im angle), turning for ever
    if (of_zero == (y.re > 0)) return {{zero, zero}, 0};
    // Infinite, with a direction only where the exponent is real.
    const double im = y.im == 0 ? zero : invalid();
    return {{of_zero ? 1.0 / opaque(zero) : inf, im}, of_zero ? zymErrorSingularity : 0};
  }
  // An infinite exponent: by the sign of the real part of y log x where that is one.
  const double log = of_zero       ? -inf
                     : of_infinity ? inf
                                   : complex_logarithm<Long, Precision::powers>(x.re, x.im).modulus.head;
  if (is_infinite(y.re) && !is_infinite(y.im) && log != 0) {
    return {(y.re > 0) == (log > 0) ? Point{inf, invalid()} : Point{zero, zero}, 0};
  }
  return {{invalid(), invalid()}, zymErrorDomain};
}

// Real numbers with a real power.
template <class E>
[[gnu::noinline, gnu::cold]] int32_t real_power(Point x, Point y, Complex<E>* r) {
  const E base = static_cast<E>(x.re), exponent = static_cast<E>(y.re);
  const int32_t code = power_element<true>(&base, &exponent, &r->re);
  r->im = 0;
  return code;
}

// cPow HA: 0.7064 ulp norm at 0x1.c3b4dep-15, 0x1.8b0fcep+0, -0x1.02645cp+1, -0x1.6113bap+0
// zPow HA: 0.7501 ulp norm at 0x1p-1022, -0x0p+0, 0x1p+0, -0x1.8p+0
template <class V, Level L>
struct Pow {
  using E = Element<V>;
  static constexpr Knobs knobs = kKnobs;
  static auto lanes(Pair<V> x, Pair<V> y) {
    const auto over = [](auto a, auto b, auto c, auto d) { return powers_of_points<Number<E, decltype(a)>>(a, b, c, d); };
    if constexpr (Single<V>) {
      return by_halves(over, x.first, x.second, y.first, y.second);
    } else {
      return over(x.first, x.second, y.first, y.second);
    }
  }
  static int32_t element(const Complex<E>* px, const Complex<E>* py, Complex<E>* r) {
    return without_underflow([=] { return power(px, py, r); });
  }

 private:
  static int32_t power(const Complex<E>* px, const Complex<E>* py, Complex<E>* r) {
    const Point x = widened<E>(px), y = widened<E>(py);
    if (!finite(x) || !finite(y) || (x.re == 0 && x.im == 0) || (y.re == 0 && y.im == 0)) [[unlikely]] {
      const SpecialPower p = special_power<E>(x, y);
      narrow_to<E>(r, p.value);
      return p.code;
    }
    if (x.im == 0 && y.im == 0 && (x.re > 0 || parity(static_cast<E>(y.re)) != Parity::none)) {
      return real_power<E>(x, y, r);
    }
    narrow_to<E>(r, power_of_points<Number<E>>(x, y));
    return code_of<E>(*r);
  }
};
// cPowx HA: 0.7030 ulp norm at -0x1p+2, -0x1.fec9ap+1, 0x1.4p+4, -0x1.ep+3
// zPowx HA: 1.0099 ulp norm at -0x1.eb1fb7409106ap+677, 0x1.59602cc0bddb4p+226, -0x1.8p+0, 0x1.2p+0
template <class V, Level L>
struct Powx : Pow<V, L> {};

}  // namespace complex_loops

using complex_loops::Pow;
using complex_loops::Powx;

}  // namespace orvik::zym
