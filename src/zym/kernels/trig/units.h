// Arguments in half turns (sin(pi x)) and in degrees: the reduction is exact, for every finite argument.
#pragma once

#include "lanes/lanes.h"
#include "zym/kernels/trig/coefficients.h"
#include "zym/kernels/trig/reduce.h"
#include "zym/kernels/trig/tables.h"

namespace orvik::zym::trig {

// The polynomials of a level in the unit: sine for |r| up to a quarter turn, tangent up to an eighth.
template <class Unit, bool Wide, bool EP>
struct UnitPolynomials;
#define ORVIK_UNIT_POLYNOMIALS(Unit, Wide, EP, level)                  \
  template <>                                                          \
  struct UnitPolynomials<Unit, Wide, EP> {                             \
    static constexpr const auto& sine = kSine##level##Unit;            \
    static constexpr const auto& tangent_p = kTangent##level##Unit##P; \
    static constexpr const auto& tangent_q = kTangent##level##Unit##Q; \
  };
struct Turns;
struct Degrees;
ORVIK_UNIT_POLYNOMIALS(Turns, false, true, EP32)
ORVIK_UNIT_POLYNOMIALS(Turns, false, false, LA32)
ORVIK_UNIT_POLYNOMIALS(Turns, true, true, EP64)
ORVIK_UNIT_POLYNOMIALS(Turns, true, false, LA64)
ORVIK_UNIT_POLYNOMIALS(Degrees, false, true, EP32)
ORVIK_UNIT_POLYNOMIALS(Degrees, false, false, LA32)
ORVIK_UNIT_POLYNOMIALS(Degrees, true, true, EP64)
ORVIK_UNIT_POLYNOMIALS(Degrees, true, false, LA64)
#undef ORVIK_UNIT_POLYNOMIALS

// a modulo a whole turn, from minus a half turn to a half turn and hardly more.
struct Turns {
  static constexpr double kHalfTurn = 1.0;
  static constexpr double kRadians = 3.141592653589793, kRadiansTail = 1.2246467991473532e-16;
  static constexpr float kRadians32 = 3.1415927410125732f, kRadiansTail32 = -8.742277657347586e-08f;
  static constexpr const auto& kSineHA32 = kSineHA32Turns;

  template <class V>
  static auto special(V x) {
    return not_finite(x);
  }
  template <class V>
  static V within_turn(V a) {
    using E = Element<V>;
    return fnma(round<Direction::nearest>(a * V(E(0.5))), V(E(2)), a);
  }
};

struct Degrees {
  static constexpr double kHalfTurn = 180.0;
  static constexpr double kRadians = 0.017453292519943295, kRadiansTail = 2.9486522708701687e-19;
  static constexpr float kRadians32 = 0.01745329238474369f, kRadiansTail32 = 1.3519960151420207e-10f;
  static constexpr const auto& kSineHA32 = kSineHA32Degrees;

  // From 2^23 (2^52) on the number of turns does not fit the rounding by addition.
  template <class V>
  static auto special(V x) {
    return magnitude_above < Single<V> ? 0x4AFFFFFFu : 0x432FFFFFu > (x);
  }
  template <class V>
  static V within_turn(V a) {
    constexpr Element<V> kTurns(1.0 /
                                360);  // a constant: the compiler leaves inexact quotients in code to the processor
    const auto [t, n] = shift_round(a, V(kTurns));
    return fnma(n, V(Element<V>(360)), a);
  }

  // The same for larger ones, which are integers: mantissa times (power of two modulo 360). Infinities and NaNs give
  // something finite.
  template <Single V>
  static V within_turn_of_large(V a) {
    a = finite_from(a, 8388608.0f);
    const Integer<V> rows = shift_right<23>(as_bits(a));
    const auto half = [](auto x, auto i) {  // the product is below 2^33
      return within_turn(x * gather<150>(kPowersModTurnSingle, indices(i)));
    };
    return narrow(half(widen_low(a), low_half(rows)), half(widen_high(a), high_half(rows)));
  }
  template <Double V>
  static V within_turn_of_large(V a) {
    a = finite_from(a, 4503599627370496.0);
    const Integer<V> bits = as_bits(a);
    const V m = as_float((bits & Integer<V>(uint64_t{0x000FFFFFFFFFFFFF})) | Integer<V>(uint64_t{0x4330000000000000}));
    return within_turn(within_turn(m) * gather<1075>(kPowersModTurn, indices(shift_right<52>(bits))));
  }
};

template <class Unit, class V>
inline constexpr HeadTail<Element<V>> kRadiansOf =
    Single<V> ? HeadTail<Element<V>>{Element<V>(Unit::kRadians32), Element<V>(Unit::kRadiansTail32)}
              : HeadTail<Element<V>>{Element<V>(Unit::kRadians), Element<V>(Unit::kRadiansTail)};
template <class Unit, class V>
[[gnu::always_inline]] inline HeadTail<V> in_radians(V w) {
  const HeadTail<V> r = two_prod(w, V(kRadiansOf<Unit, V>.head));
  return {r.head, fma(w, V(kRadiansOf<Unit, V>.tail), r.tail)};
}
// s, or the angle itself in radians where it is so small that products' tails would be denormal.
template <class Unit, class V>
V unless_tiny(V s, V f) {
  const V head = V(kRadiansOf<Unit, V>.head), tail = V(kRadiansOf<Unit, V>.tail);
  if constexpr (Single<V>) {
    const V scaled = f * V(0x1p40f);  // its products have all their digits
    return select(magnitude(f) < V(0x1p-70f), fma(scaled, head, scaled * tail) * V(0x1p-40f), s);
  } else {
    return select(magnitude(f) < V(0x1p-900), fma(f, head, f * tail), s);
  }
}

// f, |f| up to a half turn, or where its magnitude is above a quarter turn what is left to the half turn of its sign:
// the same sine. A sum that is 0 is +0.
template <class Unit, class V>
V folded(V f) {
  using E = Element<V>;
  const V quarter = V(E(Unit::kHalfTurn / 2));
  return fms(V(E(2)), min(max(f, V(E(-Unit::kHalfTurn / 2))), quarter), f);
}

}  // namespace orvik::zym::trig
