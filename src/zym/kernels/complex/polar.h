// Magnitude and angle of complex numbers, and the point of the unit circle at an angle: the lanes of hypotenuse, arc
// tangent of a point, sine and cosine.
#pragma once

#include "zym/kernels/complex/angle.h"
#include "zym/kernels/roots/hypot.h"
#include "zym/kernels/trig/sin_cos.h"
#include "zym/skeleton/family.h"

namespace orvik::zym::complex {

template <class V, Level L>
struct Abs {
  using E = Element<V>;
  using Real = Hypot<V, L>;
  static constexpr Knobs knobs = Real::knobs;
  static auto lanes(Pair<V> z) { return Real::lanes(z.first, z.second); }
  static int32_t element(const Complex<E>* z, E* r) { return Real::element(&z->re, &z->im, r); }
};

template <class V, Level L>
struct Arg {
  using E = Element<V>;
  using Real = Atan2<V, L>;
  static constexpr Knobs knobs = Real::knobs;
  static auto special(Pair<V> z) { return Real::special(z.second, z.first); }
  static V lanes(Pair<V> z) { return Real::lanes(z.second, z.first); }
  static Masked<V, Mask<V>> wide(Pair<V> z) { return wide_angle<L>(z); }
  static int32_t element(const Complex<E>* z, E* r) { return Real::element(&z->im, &z->re, r); }
};

template <class V, Level L>
struct CIS {
  using E = Element<V>;
  using Real = SinCos<V, L>;
  static constexpr Knobs knobs = Real::knobs;
  static auto special(V x) { return Real::special(x); }
  static Pair<V> lanes(V x) { return exchanged(Real::lanes(x)); }
  static Masked<Pair<V>, Mask<V>> wide(V x) {
    const auto r = Real::wide(x);
    return {exchanged(r.value), r.special};
  }
  static int32_t element(const E* x, Complex<E>* r) { return Real::element(x, &r->im, &r->re); }

 private:
  static Pair<V> exchanged(Pair<V> x) { return {x.second, x.first}; }
};

}  // namespace orvik::zym::complex
