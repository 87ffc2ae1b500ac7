// Square root of z = x + i y (Hull, Fairgrieve, Tang 1994): w = sqrt((|x| + |z|) / 2) and v = |y| / (2 w) are the
// parts, w the real one where x is not negative; the imaginary one has the sign of y, also on the cut. Floats at the
// highest level in 64-bit arithmetic; doubles there in two parts.
#pragma once

#include "lanes/quotients.h"
#include "zym/kernels/complex/parts.h"
#include "zym/kernels/roots/hypot.h"
#include "zym/kernels/roots/sqrt.h"
#include "zym/kernels/shared/flags.h"
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

// w of two parts, within 2^-60 before they are rounded, and v; the larger part between 2^-500 and 2^500, lanes of 512
// bits between 2^-450 and 2^450.
template <class V>
struct RootParts {
  HeadTail<V> w;
  V twice, inverse;

  [[gnu::always_inline]] RootParts(V x, V y) {
    const V half = V(0.5);
    const HeadTail<V> p = two_square(max(x, y)), q = two_square(min(x, y));
    const HeadTail<V> s = fast_two_sum(p.head, q.head);
    const V m = root(s.head);
    const V m_tail = (fnma(m, m, s.head) + (s.tail + (p.tail + q.tail))) * divided(half, m);
    const HeadTail<V> sum = two_sum(x, m);
    w.head = root(sum.head * half);
    inverse = divided(half, w.head);
    w.tail = (fnma(w.head, w.head, sum.head * half) + (sum.tail + m_tail) * half) * inverse;
    twice = w.head + w.head;
  }
  [[gnu::always_inline]] V larger() const { return w.head + w.tail; }
  // y / (2 w). The residue of what is too tiny would underflow.
  [[gnu::always_inline]] V smaller(V y) const {
    const V v = y * inverse;
    return v + (fnma(v, twice, y) - v * (w.tail + w.tail)) * inverse;
  }
  V smaller_of_tiny(V y) const { return y / (twice + (w.tail + w.tail)); }
};
inline constexpr double kTinyPart = 0x1p-900;

inline ZymComplexDouble finite_root(ZymComplexDouble z) {
  const double x = std::fabs(z.re), y = std::fabs(z.im), larger = max(x, y);
  double real, v;
  if (y == 0) {
    real = std::sqrt(x);
    v = 0;
  } else if (larger > 0x1p-500 && larger < 0x1p500) [[likely]] {
    const RootParts<double> parts(x, y);
    real = parts.larger();
    v = y > kTinyPart ? parts.smaller(y) : parts.smaller_of_tiny(y);
  } else {
    // An even power of two brings the larger part to 1 .. 4; a smaller one that this makes inexact is taken as it was.
    const int e = exponent(z) & ~1;
    const double u = times_two_to(y, -e);
    const RootParts<double> parts(times_two_to(x, -e), u);
    real = times_two_to(parts.larger(), e / 2);
    v = u > kTinyPart ? times_two_to(parts.smaller(u), e / 2) : y / (2 * real);
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
      const uint32_t before = read_control();
      const ZymComplexDouble w = finite_root(widen(z));
      // What is lost on the way is none of the result's, unless that is denormal itself.
      const double smaller = std::fabs(w.re) < std::fabs(w.im) ? w.re : w.im;
      if (smaller == 0 || std::fabs(smaller) >= 0x1p-1022) take_back_underflow(before);
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
  static HypotLanes<V> size_of(Pair<V> z) {
    if constexpr (Single<V>) return Magnitude::lanes(z.first, z.second);
    if constexpr (Double<V>) return Magnitude::scaled(z.first, z.second);
  }

  static auto lanes(Pair<V> z) {
    const V half = V(E(0.5));
    const auto size = size_of(z);
    const V w = zym::Sqrt<V, Level::HA>::lanes((magnitude(z.first) + size.value) * half);
    return Masked{placed_root(w, magnitude(z.second) / (w + w), z), size.special};
  }
};

// zSqrt HA: 0.7071 ulp norm at 0x1.6d8c384e79bb4p+73, -0x1.bb6053bdfc9c5p+679
template <Double V>
struct Sqrt<V, Level::HA> : SqrtElement<double> {
  // Tails of squares underflow; of the parts none does.
  static constexpr Knobs knobs = {.vectors = 1, .stray = kUnderflowFlag};
  static Mask<V> special(Pair<V> z) {
    const V y = magnitude(z.second);
    return far_from_1<450>(z) | (andnot(y > V(kTinyPart), y > V(0.0)));
  }
  static Pair<V> lanes(Pair<V> z) {
    const V y = magnitude(z.second);
    RootParts<V> parts(magnitude(z.first), y);
    parts.w.tail = keep(y > V(0.0), parts.w.tail);  // of a real number the head is the root, rounded
    return placed_root(parts.larger(), parts.smaller(y), z);
  }
};

}  // namespace orvik::zym::complex
