// Magnitude and angle of complex numbers, and the point of the unit circle at an angle: the lanes of hypotenuse, arc
// tangent of a point, sine and cosine.
#pragma once

#include "zym/kernels/complex/angle.h"
#include "zym/kernels/roots/hypot.h"
#include "zym/kernels/trig/sin_cos.h"
#include "zym/skeleton/family.h"

namespace orvik::zym::complex {

template <class V, Level L>
struct AbsOfParts {
  using E = Element<V>;
  using Real = Hypot<V, L>;
  static constexpr Knobs knobs = Real::knobs;
  static auto lanes(Pair<V> z) { return Real::lanes(z.first, z.second); }
  static int32_t element(const Complex<E>* z, E* r) { return Real::element(&z->re, &z->im, r); }
};

// cAbs LA: 1.1475 ulp at 0x1.7d458ep-3, -0x1.6fb328p+2
// cAbs HA: 0.5002 ulp at -0x1.e5b83p+1, -0x1.8b34aap-3
// cAbs EP: 11.58 bits at 0x1.585bfep+2, -0x1.e463bep+0
// zAbs LA: 1.3733 ulp at 0x1.51e1c18f7781p-4, -0x1.fff38e2cc1253p+2
// zAbs HA: 0.7486 ulp at -0x0.00078ff7fd384p-1022, -0x0.ae635c8df090ap-1022
// zAbs EP: 34.92 bits at -0x1.8696a38921808p+2, -0x1.f18810b1ee018p+0
template <class V, Level L>
struct Abs : AbsOfParts<V, L> {};
template <Double V, Level L>
  requires(L != Level::HA)
struct Abs<V, L> : AbsOfParts<V, L> {
  using Real = Hypot<V, L>;
  static auto special(Pair<V> z) { return Real::special(z.first, z.second); }
  static Masked<V, Mask<V>> wide(Pair<V> z) { return Real::wide(z.first, z.second); }
};

// cArg LA: 2.3591 ulp at 0x1.fbf9a6p+2, -0x1.336264p+1
// cArg HA: 0.5522 ulp at 0x1.75b8d8p+2, -0x1.b3d704p-1
// cArg EP: 14.79 bits at 0x1.fffc42p+2, 0x1.1eea18p+2
// zArg LA: 2.0586 ulp at 0x1.562f7d109b5dp+2, -0x1.658866b21cf14p+2
// zArg HA: 0.5567 ulp at 0x1.9ad45bcead2ap-1, -0x1.9bf57b32503bdp-4
// zArg EP: 30.83 bits at 0x1.984545d22d62ap+2, -0x1.06f265a154c26p+0
template <class V, Level L>
struct Arg {
  using E = Element<V>;
  using Real = Atan2<V, L>;
  // The bound that the wide form compares a part with may underflow, its angles do not.
  static constexpr Knobs knobs = {.vectors = Real::knobs.vectors, .stray = kUnderflowFlag};
  static auto special(Pair<V> z) { return Real::special(z.second, z.first); }
  static V lanes(Pair<V> z) { return Real::lanes(z.second, z.first); }
  static Masked<V, Mask<V>> wide(Pair<V> z) { return wide_angle<L>(z); }
  static int32_t element(const Complex<E>* z, E* r) { return Real::element(&z->im, &z->re, r); }
};

// cCIS LA: 1.4386 ulp at 0x1.2965c8p+6
// cCIS HA: 0.5138 ulp at 0x1.f77bb6p+5 (second result)
// cCIS EP: 16.04 bits at 0x1.921fd6p-1 (second result)
// zCIS LA: 2.1403 ulp at -0x1.eaf39beb3de7ap+555
// zCIS HA: 0.5819 ulp at -0x1.4d675041e5851p+6
// zCIS EP: 27.97 bits at -0x1.869fa65a6066ep+6 (second result)
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
