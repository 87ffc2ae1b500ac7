// x^(3/2): x times the root, at HA with what the rounding of both lost.
#pragma once

#include "lanes/quotients.h"
#include "zym/kernels/roots/sqrt.h"

namespace orvik::zym {

template <class V, Level L>
struct Pow3o2;

// One for every special x; `positive` serves those whose result may leave the normal range.
template <class E, class Positive>
int32_t pow3o2_element(E x, E* r, Positive positive) {
  if (is_nan(x) || (is_infinite(x) && x > 0)) {
    *r = x + x;
    return 0;
  }
  if (x == 0) {
    *r = E(0);
    return 0;
  }
  if (x < 0) {
    *r = nan<E>;
    return zymErrorDomain;
  }
  *r = positive(x);
  return is_infinite(*r) ? zymErrorOverflow : 0;
}

// With s near the root and e = x - s^2, which is exact: x (s + e / (2 s)) = x s + s e / 2 but for e^2. Within 0.51 ulp
// for roots of 4 ulp, where the result is normal.
template <class V>
V pow3o2_by_root(V x, V s) {
  const V e = fnma(s, s, x);
  const V p = x * s;
  return p + fma(half_of(s), e, fms(x, s, p));
}

// From 2^-64 on the low part of the product is normal; below 1.25 * 2^85 the result is finite at every level.
// sPow3o2 LA: 1.2898 ulp at 0x1.95fdd6p-44
// sPow3o2 HA: 0.5001 ulp at 0x1.fffffep-63
// sPow3o2 EP: 11.59 bits at 0x1.043f84p+5
template <Single V, Level L>
struct Pow3o2<V, L> {
  static auto special(V x) { return outside<0x1F800000, 0x6A1FFFFF>(x); }

  static V lanes(V x) {
    if constexpr (L == Level::HA) return pow3o2_by_root(x, Sqrt<V, Level::LA>::lanes(x));
    const V y = roots::inverse_root(x);
    const V s = x * y;
    if constexpr (L == Level::EP) return x * s;
    return x * Sqrt<V, Level::HA>::refined(x, s, half_of(y)).sum();
  }

  static int32_t element(const float* x, float* r) {
    return pow3o2_element(*x, r, [](float v) {
      const double wide = v;
      return static_cast<float>(wide * std::sqrt(wide));
    });
  }
};

// dPow3o2 LA: 1.5000 ulp at 0x1.fffffffffffffp-599
// dPow3o2 HA: 0.7484 ulp at 0x1.83671eccdb887p-682
// dPow3o2 EP: 34.92 bits at 0x1.2eeed50d65d8bp-51
template <Double V, Level L>
struct Pow3o2<V, L> {
  static constexpr Knobs knobs = {.vectors = 2, .together = L == Level::HA};
  static auto special(V x) { return outside<0x1A700000, 0x6A8FFFFF>(x); }  // [2^-600, 2^682)

  static V lanes(V x) {
    if constexpr (L == Level::HA) return pow3o2_by_root(x, root_of_few(x));
    const V y = roots::inverse_root(x);
    const V s = x * y;
    const V d = fnma(s, y, V(1.0));
    const V p = x * s;
    if constexpr (L == Level::EP) return p * horner(d, roots::kInverseRootShort);
    return fma(p, d * horner(d, roots::kInverseRootTail), p);
  }

  static int32_t element(const double* x, double* r) {
    return pow3o2_element(*x, r, [](double v) {
      const bool large = v > 1;
      const double scaled = first_lane(Pow3o2<F64, Level::HA>::lanes(F64(v * (large ? 0x1p-400 : 0x1p600))));
      return large ? scaled * 0x1p600 : scaled * 0x1p-900;
    });
  }
};

}  // namespace orvik::zym
