// 1/x and a/b: the division instruction at the levels that ask for it, elsewhere an estimate y of the reciprocal and
// e = 1 - x y, |e| <= 1.5 * 2^-12. Special lanes are divided one at a time; a zero divisor is reported, 0/0 included.
#pragma once

#include "orvik/zym_types.h"
#include "zym/kernels/roots/estimate.h"
#include "zym/lanes/scalar.h"

namespace orvik::zym {

template <class E>
struct InvElement {
  static int32_t element(const E* px, E* r) {
    const E x = *px;
    *r = E(1) / opaque(x);
    return x == 0 ? zymErrorSingularity : 0;
  }
};

template <class E>
struct DivElement {
  static int32_t element(const E* pa, const E* pb, E* r) {
    const E b = *pb;
    *r = *pa / opaque(b);
    return b == 0 ? zymErrorSingularity : 0;
  }
};

template <class V, Level L>
struct Inv : InvElement<typename V::Element> {
  static V special(V x) {
    if constexpr (L == Level::HA) return compare<_CMP_EQ_OQ>(x, V(0.0f));
    // Normal, and a reciprocal that is normal: up to 4.2519718974541703e+37, up to 2^1021.
    if constexpr (V::width == 8) return roots::outside_magnitude(x, 0x00800000, 0x7DFFE800);
    if constexpr (V::width == 4) return roots::outside_magnitude(x, 0x00100000, 0x7FBFFFFF);
  }

  static V lanes(V x) {
    if constexpr (L == Level::HA) return V(1.0f) / x;
    const V y = roots::reciprocal(x);
    const V e = fnma(x, y, V(1.0f));
    if constexpr (L == Level::EP && V::width == 8) return fma(y, e, y);             // e^2: 1.4e-7
    if constexpr (L == Level::EP || V::width == 8) return fma(y, fma(e, e, e), y);  // e^3: 4.9e-11
    const V e2 = e * e;
    return fma(fma(y, e, y), fma(e2, e2, e2), fma(y, e, y));  // e^6
  }
};

template <class V, Level L>
struct Div;

template <class V>
struct HardwareDiv : DivElement<typename V::Element> {
  static V special(V, V b) { return compare<_CMP_EQ_OQ>(b, V(0.0f)); }
  static V lanes(V a, V b) { return a / b; }
};
template <>
struct Div<F32, Level::HA> : HardwareDiv<F32> {};
template <>
struct Div<F64, Level::LA> : HardwareDiv<F64> {};
template <>
struct Div<F64, Level::HA> : HardwareDiv<F64> {};

// Plain where the first quotient q = a y is normal with room to both sides, which a zero, denormal, huge, infinite or
// NaN divisor never gives, and where a is far enough from the denormals for an exact residue a - b q.
template <class V>
struct EstimatedDiv : DivElement<typename V::Element> {
  static constexpr int vectors = 2;
  static V special(V a, V b) {
    const V q = a * roots::reciprocal(b);
    if constexpr (V::width == 8) return roots::outside_magnitude(a, q, 0x0D800000, 0x7E7FFFFF);
    // The estimate of a 64-bit divisor that is not normal looks like one of a normal divisor.
    if constexpr (V::width == 4)
      return roots::outside_magnitude(a, q, 0x03700000, 0x7FCFFFFF) |
             roots::outside_magnitude(b, 0x00100000, 0x7FBFFFFF);
  }
};

template <>
struct Div<F32, Level::EP> : EstimatedDiv<F32> {
  static F32 lanes(F32 a, F32 b) {
    const F32 y = roots::reciprocal(b);
    const F32 q = a * y;
    return fma(fnma(b, q, a), y, q);  // e^2: 1.4e-7
  }
};

template <>
struct Div<F32, Level::LA> : EstimatedDiv<F32> {
  static F32 lanes(F32 a, F32 b) {
    const F32 y = roots::reciprocal(b);
    const F32 q = a * y;
    const F32 e = fnma(b, y, F32(1.0f));
    return fma(fnma(b, q, a), fma(y, e, y), q);  // e^3; the rounding of q is part of the residue
  }
};

template <>
struct Div<F64, Level::EP> : EstimatedDiv<F64> {
  static F64 lanes(F64 a, F64 b) {
    const F64 y = roots::reciprocal(b);
    const F64 q = a * y;
    const F64 e = fnma(b, y, F64(1.0));
    return fma(q, fma(e, e, e), q);  // e^3: 4.9e-11
  }
};

}  // namespace orvik::zym
