// tan(x), tan(pi x) and the tangent of degrees. At the lower levels |x| = n pi/2 + r and one division: P/Q for even n,
// -Q/P for odd; at the highest steps of pi/16, whose tangents are quotients of short numbers (circle.h).
#pragma once

#include "zym/kernels/trig/circle.h"
#include "zym/kernels/trig/element.h"
#include "zym/kernels/trig/reduce.h"
#include "zym/kernels/trig/sine.h"
#include "zym/kernels/trig/units.h"
#include "zym/skeleton/family.h"

namespace orvik::zym {

namespace trig {

// r P/Q, or Q/(r P) where `inverse` has its sign bit set.
template <class V, size_t N, size_t M>
[[gnu::always_inline]] inline V quotient(V r, V inverse, const Element<V> (&p)[N], const Element<V> (&q)[M]) {
  const V z = r * r;
  const V over = r * horner(z, p);
  const V under = horner(z, q);
  const Mask<V> swapped = sign_decides(inverse);
  return select(swapped, under, over) / select(swapped, over, under);
}

// --- radians --------------------------------------------------------------------------------------------------------

template <Single V>
Masked<V, Mask<V>> tangent_of_large(V x) {
  const V s = over_large<2>(magnitude(x), 0.0, [](auto reduced) {
    using W = decltype(reduced.t);
    const W odd = sign_from<0>(reduced.t);
    return flip_sign(quotient(reduced.f * W(kPi), odd, kTangentEP64P, kTangentEP64Q), odd);
  });
  return {flip_sign(s, x), not_finite(x)};
}

// The sign of tan(n pi/2 + r) is that of r for even n, the other for odd n.
template <Level L, Single V>
struct TangentSingle : NotFiniteElement<V> {
  static constexpr Knobs knobs = knobs_of(4);
  static auto special(V x) { return magnitude_above<0x4600FFFFu>(x); }  // from 8256 on

  static V lanes(V x) {
    const V a = magnitude(x);
    const auto [t, n] = shift_round(a, V(0.6366197466850281f));
    V r = fnma(n, V(-4.371138828673793e-08f), fnma(n, V(1.5707963705062866f), a));
    if constexpr (L == Level::LA) r = fnma(n, V(-1.7151245100058819e-15f), r);
    return flip_sign(quotient(r, sign_from<0>(t), kTangent32P, kTangent32Q), sign_from<0>(t) ^ x);
  }
  static Masked<V, Mask<V>> wide(V x) { return tangent_of_large(x); }
};

template <Level L, Double V>
struct TangentDouble : NotFiniteElement<V> {
  static constexpr Knobs knobs = knobs_of(4);
  static auto special(V x) { return magnitude_above<0x40FF3FFFu>(x); }  // from 128000 on

  static V lanes(V x) {
    const V a = magnitude(x);
    const auto [t, n] = shift_round(a, V(0.6366197723675814));
    V r = fnma(n, V(6.123233995736765e-17), fnma(n, V(1.5707963267948966), a));
    if constexpr (L == Level::LA) r = fnma(n, V(1.082856673921914e-32), r);
    return finish(r, t, x);
  }
  static Masked<V, Mask<V>> wide(V x) {
    const auto [t, r] = reduce_large<2>(magnitude(x));
    const V s = finish(r.head, t, x);
    if constexpr (L == Level::EP) return {s, not_finite(x)};
    // The tangent's and the cotangent's slopes are 1 + s^2, but for the sign.
    return {fma(flip_sign(r.tail, x), fma(s, s, V(1.0)), s), not_finite(x)};
  }

 private:
  static V finish(V r, V t, V x) {
    const V odd = sign_from<0>(t);
    if constexpr (L == Level::EP) return flip_sign(quotient(r, odd, kTangentEP64P, kTangentEP64Q), odd ^ x);
    if constexpr (L == Level::LA) return flip_sign(quotient(r, odd, kTangentLA64P, kTangentLA64Q), odd ^ x);
  }
};
template <class V>
struct CircleTangent : NotFiniteElement<V> {
  static constexpr Knobs knobs = knobs_of(Single<V> ? 4 : 2);
  // From 8256 on, from 65536.
  static auto special(V x) { return magnitude_above < Single<V> ? 0x4600FFFFu : 0x40EFFFFFu > (x); }

  static V lanes(V x) {
    const V a = magnitude(x);
    const auto [t, n] = shift_round(a, V(k16OverPi<V>));
    return flip_sign(circle_tangent<false>(TangentPoint<V>(t), reduce_by_sixteenths(a, n)), x);
  }
  static Masked<V, Mask<V>> wide(V x) {
    if constexpr (Single<V>) {
      return tangent_of_large(x);
    } else {
      const auto [t, r] = reduce_large<16>(magnitude(x));
      return {flip_sign(circle_tangent<false>(TangentPoint<V>(t), r), x), not_finite(x)};
    }
  }
};

// --- half turns, degrees --------------------------------------------------------------------------------------------

// Zeros and poles are exact. The tangent of half turns at n is 0, of the sign of x for even n, of the other for odd n;
// at n + 1/2 infinite, with the sign of x for even n, with the other for odd n (IEEE 754-2019, tanPi). Degrees alike.
template <class Unit, Level L, class V>
struct TangentOfUnit : NotFiniteElement<V> {
  using E = Element<V>;
  static constexpr Knobs knobs = knobs_of(Double<V> && L == Level::HA ? 2 : 4);
  static auto special(V x) { return Unit::special(x); }
  static V lanes(V x) { return flip_sign(of_turn(Unit::within_turn(magnitude(x))), x); }

  [[gnu::always_inline]] static V of_turn(V f) {
    // What is left to the half turn has the other tangent.
    const V r = folded<Unit>(f);
    const V other = as_float(as_bits(V(E(Unit::kHalfTurn / 2)) - magnitude(f)));  // its sign bit
    V s;
    if constexpr (L == Level::HA) {
      s = accurate(r);
    } else {
      // Beyond an eighth turn one over the tangent of what is left to the quarter turn.
      const V eighth = V(E(Unit::kHalfTurn / 4));
      const V w = fms(V(E(2)), min(max(r, V(E(-Unit::kHalfTurn / 4))), eighth), r);
      using P = UnitPolynomials<Unit, Double<V>, L == Level::EP>;
      s = quotient(w, eighth - magnitude(r), P::tangent_p, P::tangent_q);
    }
    // A pole gives an infinity of r's sign, whatever sign the zero had that it was divided by.
    return flip_sign(copy_sign(s, r), other);
  }

 private:
  [[gnu::always_inline]] static V accurate(V f) {
    const auto [t, n] = shift_round(f, V(E(16 / Unit::kHalfTurn)));
    const HeadTail<V> r = in_radians<Unit>(fnma(n, V(E(Unit::kHalfTurn / 16)), f));
    return unless_tiny<Unit>(circle_tangent<true>(TangentPoint<V>(t), r), f);
  }
};
template <Level L, class V>
struct TangentOfDegrees : TangentOfUnit<Degrees, L, V> {
  static Masked<V, Mask<V>> wide(V x) {
    const V s = TangentOfDegrees::of_turn(Degrees::within_turn_of_large(magnitude(x)));
    return {flip_sign(s, x), not_finite(x)};
  }
};

template <Level L, class V>
struct TangentOf;
template <Level L, Single V>
struct TangentOf<L, V> : TangentSingle<L, V> {};
template <Level L, Double V>
struct TangentOf<L, V> : TangentDouble<L, V> {};
template <Single V>
struct TangentOf<Level::HA, V> : CircleTangent<V> {};
template <Double V>
struct TangentOf<Level::HA, V> : CircleTangent<V> {};

}  // namespace trig

// sTan LA: 3.6507 ulp at -0x1.5149dp+0
// sTan HA: 0.5951 ulp at 0x1.c55c0ap-4
// sTan EP: 13.88 bits at 0x1.f9cbe2p+12
// dTan LA: 3.1583 ulp at -0x1.0799040a8b9b8p+4
// dTan HA: 0.5642 ulp at 0x1.ce08c34b19648p+15
// dTan EP: 32.71 bits at 0x1.9eb0b2ee64e81p+5
template <class V, Level L>
struct Tan : trig::TangentOf<L, V> {};
// sTanpi LA: 2.8534 ulp at -0x1.fdf1bep-3
// sTanpi HA: 0.7499 ulp at 0x1.6e962p-129
// sTanpi EP: 13.45 bits at -0x1.6ccf36p-3
// dTanpi LA: 2.9092 ulp at 0x1.70299ccff4c7p+3
// dTanpi HA: 0.7975 ulp at -0x0.94a9114d689dbp-1022
// dTanpi EP: 27.99 bits at -0x1.4c262993d16ebp-20
template <class V, Level L>
struct Tanpi : trig::TangentOfUnit<trig::Turns, L, V> {};
// sTand LA: 2.9727 ulp at -0x1.627aa2p+5
// sTand HA: 0.7491 ulp at 0x1.32617cp-121
// sTand EP: 13.45 bits at 0x1.2c7598p-3
// dTand LA: 3.0514 ulp at 0x1.5933d371d1bep+5
// dTand HA: 0.6364 ulp at 0x1.aeacba80b0496p-1015
// dTand EP: 27.99 bits at 0x1.14bd00254f9b4p+7
template <class V, Level L>
struct Tand : trig::TangentOfDegrees<L, V> {};

}  // namespace orvik::zym
