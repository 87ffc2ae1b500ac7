// 1/x and a/b: the division instruction at the levels that ask for it, elsewhere an estimate y of the reciprocal and
// e = 1 - x y, |e| <= 1.5 * 2^-12. Special lanes are divided one at a time; a zero divisor is reported, 0/0 included.
#pragma once

#include <cmath>

#include "lanes/quotients.h"
#include "lanes/scalar.h"
#include "orvik/zym_types.h"
#include "zym/kernels/roots/estimate.h"

namespace orvik::zym {

// a / b with one rounding, but never by a division of or to a denormal number, which stalls some processors: floats in
// 64 bits, where 53 bits are enough to round twice, doubles with a divisor moved towards 1.
inline float extreme_quotient(float a, float b) {
  return static_cast<float>(static_cast<double>(a) / opaque(static_cast<double>(b)));
}
inline double extreme_quotient(double a, double b) {
  if (magnitude_bits(b) < bits_of(0x1p-1000) && b != 0) return a / opaque(b * 0x1p60) * 0x1p60;
  return a / opaque(b);
}

template <class E>
struct InvElement {
  static int32_t element(const E* px, E* r) {
    const E x = *px;
    *r = extreme_quotient(E(1), x);
    return x == 0 ? zymErrorSingularity : 0;
  }
};

template <class E>
struct DivElement {
  static int32_t element(const E* pa, const E* pb, E* r) {
    const E b = *pb;
    *r = extreme_quotient(*pa, b);
    return b == 0 ? zymErrorSingularity : 0;
  }
};

template <class V, Level L>
struct RefinedReciprocal;

// In range: normal, with a normal reciprocal; |x| <= 4.2519718974541703e+37.
template <Single V, Level L>
struct RefinedReciprocal<V, L> {
  static auto special(V x) { return outside_magnitude<0x00800000, 0x7DFFE800>(x); }
  static V lanes(V x) {
    const V y = reciprocal_estimate(x);
    const V e = fnma(x, y, V(1.0f));
    if constexpr (L == Level::EP) return fma(y, e, y);  // e^2: 1.4e-7
    return fma(y, fma(e, e, e), y);                     // e^3: 4.9e-11
  }
};

// In range: a normal float when narrowed, 2^-126 <= |x| < 2^125, so that the estimate is one as well.
template <Double V, Level L>
struct RefinedReciprocal<V, L> {
  static auto special(V x) { return outside_magnitude<0x38100000, 0x47BFFFFF>(x); }
  static V lanes(V x) {
    const V y = reciprocal_estimate(x);
    const V e = fnma(x, y, V(1.0));
    if constexpr (L == Level::EP) return fma(y, fma(e, e, e), y);  // e^3: 4.9e-11
    const V e2 = e * e;
    const V y1 = fma(y, e, y);
    return fma(y1, fma(e2, e2, e2), y1);  // e^6
  }
};

// sInv LA: 0.5003 ulp at 0x1.13dbb8p-124
// sInv EP: 23.06 bits at 0x1.e0002cp+9
// dInv LA: 0.9966 ulp at 0x1.c5dd4b699bc5p-17
// dInv EP: 35.14 bits at 0x1.074029685adb2p+9
template <class V, Level L>
struct Inv : InvElement<Element<V>> {
  static constexpr Knobs knobs = {.together = false};
  static auto special(V x) { return RefinedReciprocal<V, L>::special(x); }
  static V lanes(V x) { return RefinedReciprocal<V, L>::lanes(x); }
};
// sInv HA: 0.5000 ulp at 0x1.fffffep-126
// dInv HA: 0.5000 ulp at 0x1.fffffffffffffp-1019
template <class V>
struct Inv<V, Level::HA> : InvElement<Element<V>> {
  static constexpr Knobs knobs = {.together = true};
  static Mask<V> special(V x) { return x == V(0.0f); }
  static V lanes(V x) { return divided_exactly(V(1.0f), x); }
};

template <class V>
struct HardwareDiv : DivElement<Element<V>> {
  static constexpr Knobs knobs = {.together = true};
  static Mask<V> special(V, V b) { return b == V(0.0f); }
  static V lanes(V a, V b) { return divided_exactly(a, b); }
};

// The dividend comes in by one last multiplication, so that every one of them is plain.
// sDiv LA: 1.4654 ulp at -0x1.f5168ap+6, 0x1.fb5c5ep+8
// sDiv EP: 22.62 bits at 0x1.49362ep+7, 0x1.3940e6p+9
// dDiv EP: 35.17 bits at -0x1.f3ffff365155p+9, 0x1.021fab677e574p-19
template <class V, Level L>
struct Div : DivElement<Element<V>> {
  static auto special(V, V b) { return RefinedReciprocal<V, L>::special(b); }
  static V lanes(V a, V b) { return a * RefinedReciprocal<V, L>::lanes(b); }
};
// sDiv HA: 0.5000 ulp at 0x1p-149, 0x1p+1
// dDiv HA: 0.5000 ulp at 0x0.0000000000001p-1022, 0x1p+1
template <class V>
struct Div<V, Level::HA> : HardwareDiv<V> {};
template <Double V>
struct Div<V, Level::LA> : HardwareDiv<V> {};

}  // namespace orvik::zym
