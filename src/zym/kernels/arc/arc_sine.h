// Arc sine and arc cosine, also in units of pi. With w = |x| up to 1/2, w = sqrt((1 - |x|) / 2) above it, and
// a = asin(w) = w + w z P(z), z = w^2 <= 1/4:
//   asin |x| = a or pi/2 - 2 a;  acos x = pi/2 - (a with the sign of x), or 2 a, or pi - 2 a.
// Every result is base + k a with k = +-1, +-2. From |x| = 1 on the element routine decides.
#pragma once

#include "lanes/lanes.h"
#include "zym/kernels/arc/coefficients.h"
#include "zym/kernels/arc/constants.h"
#include "zym/skeleton/define.h"

namespace orvik::zym {

// What one unit is: a radian, or half a turn (results are then divided by pi, exact multiples of 1/2 stay exact).
enum class Unit { radian, half_turn };

namespace arc {

template <class V, Level L, Unit U>
constexpr const auto& sine_coefficients() {
  if constexpr (Single<V>) {
    if constexpr (U == Unit::radian) {
      if constexpr (L == Level::EP) return kAsinSingleEP;
      else if constexpr (L == Level::LA) return kAsinSingleLA;
      else return kAsinSingleHA;
    } else {
      if constexpr (L == Level::EP) return kAsinpiSingleEP;
      else if constexpr (L == Level::LA) return kAsinpiSingleLA;
      else return kAsinpiSingleHA;
    }
  } else {
    if constexpr (U == Unit::radian) {
      if constexpr (L == Level::EP) return kAsinDoubleEP;
      else if constexpr (L == Level::LA) return kAsinDoubleLA;
      else return kAsinDoubleHA;
    } else {
      if constexpr (L == Level::EP) return kAsinpiDoubleEP;
      else if constexpr (L == Level::LA) return kAsinpiDoubleLA;
      else return kAsinpiDoubleHA;
    }
  }
}

// asin of |x| < 1 before its base is added. `wide`: |x| above 1/2.
template <class V, Level L, Unit U>
struct HalfAngle {
  Mask<V> wide;
  V head, tail;  // (w and what it lacks) in the unit; LA and EP: all of a, no tail
  V rest;        // HA: w z P(z)

  explicit HalfAngle(V a) {
    using E = Element<V>;
    using K = Constants<E>;
    const V half = V(E(0.5));
    wide = a > half;
    const V s = fnma(a, half, half);
    const V root = sqrt(s);
    const V w = min(root, a);
    // The last summand keeps the square of a tiny number from underflow.
    const V z = min(fma(a, a, V(K::tiny)), s);
    const V p = z * polynomial<L == Level::HA>(z, sine_coefficients<V, L, U>());
    if constexpr (L != Level::HA) {
      tail = rest = V(E(0));
      if constexpr (U == Unit::radian) {
        head = fma(w, p, w);
      } else {
        head = w * (p + V(K::inverse_pi));
      }
    } else {
      // sqrt(s) - w to first order.
      const V lost = keep(wide, fnma(w, w, s) * rough_reciprocal(w + w));
      rest = w * p;
      if constexpr (U == Unit::radian) {
        head = w;
        tail = lost;
      } else {
        head = w * V(K::inverse_pi);
        tail = fma(w, V(K::inverse_pi_low), fma(lost, V(K::inverse_pi), fms(w, V(K::inverse_pi), head)));
      }
    }
  }

  // base + k a, |base| >= |k a| or base = 0; k a power of two with a sign.
  V placed(V k, V base, V base_low) const {
    if constexpr (L != Level::HA) return fma(k, head, base);
    const V scaled = k * head;
    const HeadTail<V> sum = fast_two_sum(base, scaled);
    return sum.head + fma(k, tail + rest, sum.tail + base_low);
  }
};

// Part of the domain's end: |x| >= 1 and what is no number.
template <class V>
auto from_one_on(V x) {
  return magnitude_above<Single<V> ? 0x3F7FFFFFu : 0x3FEFFFFFu>(x);
}

// The result of an argument outside [-1, 1], infinite or NaN.
template <class E>
int32_t outside_unit(E x, E* r) {
  if (is_nan(x) || is_infinite(x)) {
    *r = x / opaque(x);
    return is_nan(x) ? 0 : zymErrorDomain;
  }
  const E zero = x - opaque(x);
  *r = zero / opaque(zero);
  return zymErrorDomain;
}

template <class V, Level L, Unit U>
struct ArcSine {
  using E = Element<V>;
  using K = Constants<E>;
  static auto special(V x) { return from_one_on(x); }

  static V lanes(V x) {
    const HalfAngle<V, L, U> a(magnitude(x));
    const V one = V(E(1)), minus_two = V(E(-2));
    const V r = a.placed(select(a.wide, minus_two, one), keep(a.wide, V(half_turn<E, U>(0.5))),
                         keep(a.wide, V(half_turn_low<E, U>(0.5))));
    return flip_sign(r, x);
  }

  static int32_t element(const E* px, E* r) {
    const E x = *px;
    if (magnitude_bits(x) != bits_of(E(1))) return outside_unit(x, r);
    *r = flip_sign(half_turn<E, U>(0.5) + half_turn_low<E, U>(0.5), x);
    return 0;
  }
};

template <class V, Level L, Unit U>
struct ArcCosine {
  using E = Element<V>;
  using K = Constants<E>;
  static auto special(V x) { return from_one_on(x); }

  static V lanes(V x) {
    const HalfAngle<V, L, U> a(magnitude(x));
    const V k = flip_sign(select(a.wide, V(E(2)), V(E(-1))), x);
    const Mask<V> negative = V(E(0)) > x;
    const auto base = [&](E right, E straight) {
      return select(a.wide, keep(negative, V(straight)), V(right));
    };
    return a.placed(k, base(half_turn<E, U>(0.5), half_turn<E, U>(1)),
                    base(half_turn_low<E, U>(0.5), half_turn_low<E, U>(1)));
  }

  static int32_t element(const E* px, E* r) {
    const E x = *px;
    if (magnitude_bits(x) != bits_of(E(1))) return outside_unit(x, r);
    *r = x > 0 ? E(0) : half_turn<E, U>(1) + half_turn_low<E, U>(1);
    return 0;
  }
};

}  // namespace arc

template <class V, Level L>
struct Asin : arc::ArcSine<V, L, Unit::radian> {};
template <class V, Level L>
struct Asinpi : arc::ArcSine<V, L, Unit::half_turn> {};
template <class V, Level L>
struct Acos : arc::ArcCosine<V, L, Unit::radian> {};
template <class V, Level L>
struct Acospi : arc::ArcCosine<V, L, Unit::half_turn> {};

}  // namespace orvik::zym
