// Square root of z = x + i y (Hull, Fairgrieve, Tang 1994): w = sqrt((|x| + |z|) / 2) and v = |y| / (2 w) are the
// parts, w the real one where x is not negative; the imaginary one has the sign of y, also on the cut. Floats at the
// highest level in 64-bit arithmetic; doubles there in two parts, one element at a time.
#pragma once

#include "zym/kernels/complex/parts.h"
#include "zym/kernels/roots/hypot.h"
#include "zym/kernels/roots/sqrt.h"
#include "zym/skeleton/family.h"

namespace orvik::zym::complex {

template <class V>
Pair<V> placed_root(V w, V v, Pair<V> z) {
  const Mask<V> left = sign_decides(z.first);
  return {select(left, v, w), flip_sign(select(left, w, v), z.second)};
}

// Of infinities, NaNs and zeros, by C99 Annex G.
template <class C>
C limit_root(const C& z) {
  using E = PartOf<C>;
  if (is_infinite(z.im)) return {infinity<E>, z.im};
  if (is_infinite(z.re)) {
    const E other = is_nan(z.im) ? z.im + z.im : E(0);
    if (z.re > 0) return {z.re, is_nan(z.im) ? other : std::copysign(other, z.im)};
    return {other, std::copysign(infinity<E>, z.im)};
  }
  if (is_nan(z.re) || is_nan(z.im)) return {z.re + z.im, z.re + z.im};
  return {0, quiet(z.im)};  // a denormal that counts as zero becomes one
}

// w of two parts, each within 2^-60 before it is rounded, and v; the larger part between 2^-500 and 2^500.
struct RootParts {
  HeadTail<double> w;
  double v;

  RootParts(double x, double y) {
    const HeadTail<double> p = two_square(max(x, y)), q = two_square(min(x, y));
    const HeadTail<double> s = fast_two_sum(p.head, q.head);
    const double m = std::sqrt(s.head);
    const double m_tail = (fnma(m, m, s.head) + (s.tail + (p.tail + q.tail))) * (0.5 / m);
    const HeadTail<double> sum = two_sum(x, m);
    w.head = std::sqrt(sum.head * 0.5);
    const double inverse = 0.5 / w.head;
    w.tail = (fnma(w.head, w.head, sum.head * 0.5) + (sum.tail + m_tail) * 0.5) * inverse;
    // The residue of what is too tiny would underflow.
    const double twice = 2 * w.head;
    v = y * inverse;
    v = y > 0x1p-900 ? v + (fnma(v, twice, y) - v * (2 * w.tail)) * inverse : y / (twice + 2 * w.tail);
  }
};

inline ZymComplexDouble finite_root(ZymComplexDouble z) {
  const double x = std::fabs(z.re), y = std::fabs(z.im), larger = max(x, y);
  double real, v;
  if (y == 0) {
    real = std::sqrt(x);
    v = 0;
  } else if (larger > 0x1p-500 && larger < 0x1p500) [[likely]] {
    const RootParts root(x, y);
    real = root.w.head + root.w.tail;
    v = root.v;
  } else {
    // An even power of two brings the larger part to 1 .. 4; a smaller one that this makes inexact is taken as it was.
    const int e = exponent(z) & ~1;
    const double u = std::scalbn(y, -e);
    const RootParts root(std::scalbn(x, -e), u);
    real = std::scalbn(root.w.head + root.w.tail, e / 2);
    v = u > 0x1p-900 ? std::scalbn(root.v, e / 2) : y / (2 * real);
  }
  const bool left = is_negative(z.re);
  return {left ? v : real, std::copysign(left ? real : v, z.im)};
}

template <class E>
struct SqrtElement {
  using C = Complex<E>;
  static int32_t element(const C* pz, C* r) {
    const C z = *pz;
    if (!finite(z) || zero(z)) {
      *r = limit_root(z);
    } else {
      const ZymComplexDouble w = finite_root(widen(z));
      *r = {static_cast<E>(w.re), static_cast<E>(w.im)};
    }
    return 0;
  }
};

template <class V, Level L>
struct Sqrt;

// cSqrt HA: 0.7075 ulp norm at 0x1.06bc2p-101, 0x1.50c4d6p+123
template <Single V>
struct Sqrt<V, Level::HA> : SqrtElement<float> {
  static constexpr Knobs knobs = {.vectors = 1, .together = false};
  static Mask<V> special(Pair<V> z) { return not_finite(z) | zero(z); }
  // Roots of 35 bits; squares of floats are within the range of doubles.
  static Pair<V> lanes(Pair<V> z) {
    const Pair<V> r = by_halves(
        [](auto u) __attribute__((always_inline)) {
          using W = decltype(u.first);
          const W x = magnitude(u.first), y = magnitude(u.second);
          const W size = zym::Sqrt<W, Level::EP>::lanes(fma(x, x, y * y));
          const W square = (x + size) * W(0.5);
          const W inverse = InvSqrt<W, Level::EP>::lanes(square);
          return Pair<W>{square * inverse, (y * W(0.5)) * inverse};
        },
        z);
    return placed_root(r.first, r.second, z);
  }
};

// The magnitude and the root by the real functions' lanes, in whose range both parts are.
// cSqrt LA: 1.6778 ulp norm at 0x1.4bb80ep-28, 0x1.881508p-17
// zSqrt LA: 1.9205 ulp norm at 0x1.2b76b20c94748p-30, -0x1.f63da088664e1p-7
template <class V>
struct Sqrt<V, Level::LA> : SqrtElement<Element<V>> {
  using E = Element<V>;
  using Magnitude = Hypot<V, Level::LA>;
  static constexpr Knobs knobs = Magnitude::knobs;

  static auto lanes(Pair<V> z) {
    const V half = V(E(0.5));
    const auto size = Magnitude::lanes(z.first, z.second);
    const V w = zym::Sqrt<V, Level::HA>::lanes((magnitude(z.first) + size.value) * half);
    return Masked{placed_root(w, magnitude(z.second) / (w + w), z), size.special};
  }
};

// One element after another.
// zSqrt HA: 0.7071 ulp norm at 0x1.6d8c384e79bb4p+73, -0x1.bb6053bdfc9c5p+679
template <Double V>
struct Sqrt<V, Level::HA> : SqrtElement<double> {};

}  // namespace orvik::zym::complex
