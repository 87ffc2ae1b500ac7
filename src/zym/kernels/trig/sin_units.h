// Sine and cosine of half turns and of degrees. The cosine is the sine of what |f| lacks to a quarter turn. Zeros are
// exact: sines with the sign of x, cosines +0.
#pragma once

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
      const double steps = 256 / Unit::kHalfTurn;
      const auto [t, n] = Cosine ? shift_round(g, V(-steps), V(kShifter64 + 128)) : shift_round(g, V(steps));
      const V w = Cosine ? fma(n, V(1 / steps), g) : fnma(n, V(1 / steps), g);
      const double sign = Cosine ? -1.0 : 1.0;
      HeadTail<V> r = two_prod(w, V(sign * Unit::kRadians));
      r.tail = fma(w, V(sign * Unit::kRadiansTail), r.tail);
      const V s = grid_sine(GridPoint<V>(t), r);
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

template <class V, Level L>
struct Sinpi : trig::SineOfUnit<trig::Turns, false, L, V> {};
template <class V, Level L>
struct Cospi : trig::SineOfUnit<trig::Turns, true, L, V> {};
template <class V, Level L>
struct Sind : trig::SineOfDegrees<false, L, V> {};
template <class V, Level L>
struct Cosd : trig::SineOfDegrees<true, L, V> {};

}  // namespace orvik::zym
