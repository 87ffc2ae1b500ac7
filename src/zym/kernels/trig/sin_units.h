// Sine and cosine of half turns and of degrees. The cosine is the sine of what |f| lacks to a quarter turn. Zeros are
// exact: sines with the sign of x, cosines +0.
#pragma once

#include "zym/kernels/trig/circle.h"
#include "zym/kernels/trig/element.h"
#include "zym/kernels/trig/sine.h"
#include "zym/kernels/trig/units.h"
#include "zym/skeleton/family.h"

namespace orvik::zym {

namespace trig {

template <class Unit, bool Cosine, Level L, class V>
struct SineOfUnit : NotFiniteElement<V> {
  static constexpr Knobs knobs = knobs_of(Double<V> && L == Level::HA ? 2 : 4);
  static auto special(V x) { return Unit::special(x); }

  static V lanes(V x) {
    const V s = of_turn(Unit::within_turn(magnitude(x)));
    return Cosine ? s : flip_sign(s, x);
  }

  // f: |x| within a turn.
  [[gnu::always_inline]] static V of_turn(V f) {
    if constexpr (L == Level::HA) {
      return accurate(f);
    } else {
      using E = Element<V>;
      using P = UnitPolynomials<Unit, Double<V>, L == Level::EP>;
      const V r = Cosine ? V(E(Unit::kHalfTurn / 2)) - magnitude(f) : folded<Unit>(f);
      if constexpr (L == Level::EP) return odd_product(r, P::sine);
      if constexpr (L == Level::LA && Single<V>)
        return odd_sum(r, V(Unit::kRadians32), V(Unit::kRadiansTail32), P::sine);
      if constexpr (L == Level::LA && Double<V>) return odd_sum(r, V(Unit::kRadians), V(Unit::kRadiansTail), P::sine);
    }
  }

 private:
  [[gnu::always_inline]] static V accurate(V f) {
    if constexpr (Single<V>) {
      return by_halves(
          [](auto y) __attribute__((always_inline)) {
            using W = decltype(y);
            const W r = Cosine ? W(Unit::kHalfTurn / 2) - y : y;
            return odd_product(r, Unit::kSineHA32);
          },
          Cosine ? magnitude(f) : folded<Unit>(f));
    } else {
      // The cosine's grid runs backwards from a quarter turn: its zeros are +0.
      const V g = Cosine ? magnitude(f) : folded<Unit>(f);
      constexpr double steps = 16 / Unit::kHalfTurn, step = Unit::kHalfTurn / 16;
      const auto [t, n] = Cosine ? shift_round(g, V(-steps), V(kShifter64 + 8)) : shift_round(g, V(steps));
      const V w = Cosine ? fms(n, V(-step), g) : fnma(n, V(step), g);
      const V s = circle_sine(CirclePoint<V>(t), in_radians<Unit>(w));
      return Cosine ? s : unless_tiny<Unit>(s, g);
    }
  }
};

template <bool Cosine, Level L, class V>
struct SineOfDegrees : SineOfUnit<Degrees, Cosine, L, V> {
  static Masked<V, Mask<V>> wide(V x) {
    const V s = SineOfDegrees::of_turn(Degrees::within_turn_of_large(magnitude(x)));
    return {Cosine ? s : flip_sign(s, x), not_finite(x)};
  }
};

}  // namespace trig

// sSinpi LA: 2.1914 ulp at 0x1.fff366p-2
// sSinpi HA: 0.5004 ulp at 0x1.4595a2p-10
// sSinpi EP: 13.17 bits at 0x1.460286p-13
// dSinpi LA: 3.2054 ulp at 0x1.49f75fc5a6e86p+6
// dSinpi HA: 0.7975 ulp at -0x0.94a9114d689dbp-1022
// dSinpi EP: 27.48 bits at 0x1.11e8ef3eeac3ap+6
template <class V, Level L>
struct Sinpi : trig::SineOfUnit<trig::Turns, false, L, V> {};
// sCospi LA: 2.1915 ulp at 0x1.935ffep-15
// sCospi HA: 0.5004 ulp at 0x1.1064e6p-6
// sCospi EP: 13.17 bits at -0x1.e496aap-3
// dCospi LA: 3.3385 ulp at 0x1.e016c035fd7d8p+5
// dCospi HA: 0.5751 ulp at 0x1.e3bf19ad7319p+5
// dCospi EP: 27.48 bits at -0x1.70fe58fedbe5p-6
template <class V, Level L>
struct Cospi : trig::SineOfUnit<trig::Turns, true, L, V> {};
// sSind LA: 2.0267 ulp at -0x1.68034ep+6
// sSind HA: 0.5004 ulp at -0x1.c85f02p-10
// sSind EP: 13.17 bits at 0x1.cd0b2cp-5
// dSind LA: 3.0481 ulp at -0x1.c381d2aab4859p+8
// dSind HA: 0.6364 ulp at 0x1.aeacba80b0496p-1015
// dSind EP: 27.48 bits at 0x1.c60dd190b73fcp+8
template <class V, Level L>
struct Sind : trig::SineOfDegrees<false, L, V> {};
// sCosd LA: 2.0267 ulp at 0x1.a77ffep-9
// sCosd HA: 0.5004 ulp at 0x1.7b2a8cp+1
// sCosd EP: 13.17 bits at 0x1.c1f194p+8
// dCosd LA: 3.2011 ulp at -0x1.baf4814860062p-14
// dCosd HA: 0.5750 ulp at -0x1.13aa4597724b1p+8
// dCosd EP: 27.48 bits at -0x1.03770f51311p+2
template <class V, Level L>
struct Cosd : trig::SineOfDegrees<true, L, V> {};

}  // namespace orvik::zym
