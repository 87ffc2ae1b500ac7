// Arc tangent of one number and of a point, also in half turns. With n <= d the smaller and the larger of the two
// magnitudes (of x and 1, or of x and y), c = 9/16 where n/d is above 9/32 and 0 below,
//   atan(n/d) = atan(c) + atan(t),  t = (n - c d) / (d + c n),  |t| <= 0.2813,  atan(t) = t + t z P(z), z = t^2;
// the octant then says what to take it from: the result is base +- atan(n/d). At EP in 32 bits c is always 0.
#pragma once

#include "orvik/zym_types.h"
#include "zym/kernels/arc/coefficients.h"
#include "zym/kernels/arc/constants.h"
#include "zym/skeleton/family.h"

namespace orvik::zym {
namespace arc {

template <class V, Level L, Unit U>
V tangent_polynomial(V z) {
  if constexpr (U == Unit::radian) {
    if constexpr (Single<V>) {
      if constexpr (L == Level::EP) return horner(z, kAtanSingleEP);
      if constexpr (L == Level::LA) return horner(z, kAtanSingleLA);
      if constexpr (L == Level::HA) return horner(z, kAtanSingleHA);
    } else {
      if constexpr (L == Level::EP) return horner(z, kAtanDoubleEP);
      if constexpr (L == Level::LA) return estrin(z, kAtanDoubleLA);
      if constexpr (L == Level::HA) return estrin(z, kAtanDoubleHA);
    }
  } else {
    if constexpr (Single<V>) {
      if constexpr (L == Level::EP) return horner(z, kAtanpiSingleEP);
      if constexpr (L == Level::LA) return horner(z, kAtanpiSingleLA);
      if constexpr (L == Level::HA) return horner(z, kAtanpiSingleHA);
    } else {
      if constexpr (L == Level::EP) return horner(z, kAtanpiDoubleEP);
      if constexpr (L == Level::LA) return estrin(z, kAtanpiDoubleLA);
      if constexpr (L == Level::HA) return estrin(z, kAtanpiDoubleHA);
    }
  }
}

// atan(n/d), 0 <= n <= d; a tail at HA only.
template <class V, Level L, Unit U>
[[gnu::always_inline]] inline HeadTail<V> first_octant(V n, V d) {
  using E = Element<V>;
  using K = Constants<E>;
  constexpr int kUnit = static_cast<int>(U);
  const V zero = V(E(0));
  // t + t p, in the unit, on top of `base`.
  const auto angle = [](V t, V p, V base) {
    if constexpr (U == Unit::half_turn) return fma(t, p + V(K::inverse_pi), base);
    return base + fma(t, p, t);
  };
  if constexpr (Single<V> && L == Level::EP) {
    const V t = n / d;
    const V z = safe_square<false>(t);
    const V p = z * tangent_polynomial<V, L, U>(z);
    if constexpr (U == Unit::half_turn) return {t * (p + V(K::inverse_pi)), zero};
    return {fma(t, p, t), zero};
  } else {
    const Mask<V> pivot = n > V(E(9.0 / 32)) * d;
    const V c = keep(pivot, V(E(9.0 / 16)));
    const V base = keep(pivot, V(K::pivot[kUnit]));
    const V den = fma(c, n, d);
    if constexpr (L != Level::HA) {
      const V t = fnma(c, d, n) / den;
      const V z = safe_square<false>(t);
      return {angle(t, z * tangent_polynomial<V, L, U>(z), base), zero};
    } else {
      // c d is between n/2 and 2 n, or 0: the difference is exact.
      const HeadTail<V> cd = two_prod(c, d);
      const V num = n - cd.head;
      const V den_low = fma(c, n, d - den);
      const V t = num / den;
      const V t_low = fnma(t, den_low, fnma(t, den, num) - cd.tail) * rough_reciprocal(den);
      const V z = safe_square<true>(t);
      HeadTail<V> small = {t, t_low};
      if constexpr (U == Unit::half_turn) small = over_pi(t, t_low);
      const HeadTail<V> sum = fast_two_sum(base, small.head);
      return {sum.head, sum.tail + (keep(pivot, V(K::pivot_low[kUnit])) + fma(t * z, tangent_polynomial<V, L, U>(z), small.tail))};
    }
  }
}

// base + a, or base - a where `away` has its sign bit set; base is 0 or not below a.
template <Level L, class V>
[[gnu::always_inline]] inline V turned(HeadTail<V> a, V base, V base_low, V away) {
  const V head = flip_sign(a.head, away);
  if constexpr (L != Level::HA) return base + head;
  const HeadTail<V> sum = fast_two_sum(base, head);
  return sum.head + (sum.tail + (base_low + flip_sign(a.tail, away)));
}

// Sign of `mask` lanes.
template <class V>
V minus_where(Mask<V> mask) {
  return keep(mask, V(Element<V>(-0.0)));
}

template <class V, Level L, Unit U>
struct ArcTangent {
  using E = Element<V>;
  // From 2^62 on the quotient could underflow, and the result is a right angle anyway. HA in half turns: small numbers
  // times the tail of 1/pi would underflow.
  static constexpr bool kNarrow = L == Level::HA && U == Unit::half_turn;
  static auto special(V x) {
    constexpr uint32_t kLast = Single<V> ? 0x5E7FFFFFu : 0x43CFFFFFu;
    if constexpr (kNarrow) {
      return outside_magnitude<kSmallestTurn<E>, kLast>(x);
    } else {
      return magnitude_above<kLast>(x);
    }
  }

  static V lanes(V x) {
    const V a = magnitude(x), one = V(E(1));
    const Mask<V> steep = a > one;
    const V right = keep(steep, V(kHalfTurn<E, U> / 2)), right_low = keep(steep, V(kHalfTurnLow<E, U> / 2));
    const HeadTail<V> angle = first_octant<V, L, U>(min(a, one), max(a, one));
    return flip_sign(turned<L>(angle, right, right_low, minus_where<V>(steep)), x);
  }

  static int32_t element(const E* px, E* r) {
    const E x = *px;
    if (is_nan(x)) {
      *r = x + x;
    } else if (magnitude(x) > 1) {
      *r = join_sign(kHalfTurn<E, U> / 2, x);
    } else {
      *r = tiny_over_pi(x);
    }
    return 0;
  }
};

}  // namespace arc

template <class V, Level L>
struct Atan : arc::ArcTangent<V, L, Unit::radian> {};
template <class V, Level L>
struct Atanpi : arc::ArcTangent<V, L, Unit::half_turn> {};

}  // namespace orvik::zym
