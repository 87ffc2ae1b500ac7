// Arc tangent of one number and of a point, also in half turns. With n <= d the smaller and the larger of the two
// magnitudes (of x and 1, or of x and y), c = 9/16 where n/d is above 9/32 and 0 below,
//   atan(n/d) = atan(c) + atan(t),  t = (n - c d) / (d + c n),  |t| <= 0.2813,  atan(t) = t + t z P(z), z = t^2;
// the octant then says what to take it from: the result is base +- atan(n/d). At EP in 32 bits c is always 0. At HA
// there are more pivots (pivots.h).
#pragma once

#include "orvik/zym_types.h"
#include "zym/kernels/arc/coefficients.h"
#include "zym/kernels/arc/constants.h"
#include "zym/kernels/arc/pivots.h"
#include "zym/skeleton/family.h"

namespace orvik::zym {
namespace arc {

template <class V, Level L, Unit U>
constexpr const auto& tangent_coefficients() {
  constexpr bool kRadian = U == Unit::radian;
  if constexpr (Single<V> && L == Level::EP) return kRadian ? kAtanSingleEP : kAtanpiSingleEP;
  if constexpr (Single<V> && L == Level::LA) return kRadian ? kAtanSingleLA : kAtanpiSingleLA;
  if constexpr (Double<V> && L == Level::EP) return kRadian ? kAtanDoubleEP : kAtanpiDoubleEP;
  if constexpr (Double<V> && L == Level::LA) return kRadian ? kAtanDoubleLA : kAtanpiDoubleLA;
}

// atan(9/16)/pi as the short polynomial needs it for an exact 1/4 at t = 7/25.
inline constexpr double kPivotpiShort64 = [] {
  constexpr double t = 7.0 / 25;
  double p = 0;
  for (const double c : kAtanpiDoubleEP) p = p * (t * t) + c;
  return 0.25 - t * (t * t * p + kInversePi64);
}();

// base + atan(t) in the unit, |t| small (EP of floats: up to 1).
template <class V, Level L, Unit U>
[[gnu::always_inline]] inline V small_angle(V t, V base) {
  const V z = safe_square<false>(t);
  const V p = horner(z, tangent_coefficients<V, L, U>());
  if constexpr (U == Unit::half_turn) return fma(t, fma(z, p, V(Constants<Element<V>>::inverse_pi)), base);
  return base + fma(t, z * p, t);
}

// atan(n/d), 0 <= n <= d.
template <class V, Level L, Unit U>
[[gnu::always_inline]] inline V first_octant(V n, V d) {
  using E = Element<V>;
  if constexpr (Single<V> && L == Level::EP) {
    return small_angle<V, L, U>(n / d, V(E(0)));
  } else {
    const Mask<V> pivot = n > V(E(9.0 / 32)) * d;
    const V c = keep(pivot, V(E(9.0 / 16)));
    constexpr E kPivot = Constants<E>::pivot[static_cast<int>(U)];
    const V base = keep(pivot, V(L == Level::EP && U == Unit::half_turn ? E(kPivotpiShort64) : kPivot));
    return small_angle<V, L, U>(fnma(c, d, n) / fma(c, n, d), base);
  }
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
    if constexpr (L == Level::HA) {
      return flip_sign(by_pivots<U>(a), x);
    } else if constexpr (Single<V> && L == Level::LA) {
      return flip_sign(by_quarters(a), x);
    } else {
      const Mask<V> steep = a > one;
      const V right = keep(steep, V(kHalfTurn<E, U> / 2));
      const V angle = first_octant<V, L, U>(min(a, one), max(a, one));
      return flip_sign(right + flip_sign(angle, minus_where<V>(steep)), x);
    }
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

 private:
  // Bounds 9/32, 1, 32/9 and pivots c = 0, 9/16, 16/9, infinity, as quotients q/p: t = (a p - q) / (a q + p). Rows of
  // what a lane needs follow the negative number of bounds below it.
  static V by_quarters(V a) {
    using K = Constants<float>;
    constexpr int kUnit = static_cast<int>(U);
    struct Pivots {
      float p[4], q[4], base[4];
    };
    static constexpr Pivots kPivots = {
        {1, 0, 9.0f / 16, 1}, {0, 1, 1, 9.0f / 16}, {0, K::pi[kUnit] / 2, K::far_pivot[kUnit], K::pivot[kUnit]}};
    const auto above = [&](float bound) { return minus_one(a > V(bound)); };
    constexpr float kFar = 32.0f / 9;  // a constant: the compiler leaves inexact quotients in code to the processor
    const Integer<V> row = above(9.0f / 32) + above(1) + above(kFar);
    const V p = select_in_quad(quad_table<V>(kPivots.p), row), q = select_in_quad(quad_table<V>(kPivots.q), row);
    return small_angle<V, L, U>(fms(a, p, q) / fma(a, q, p), select_in_quad(quad_table<V>(kPivots.base), row));
  }
};

}  // namespace arc

// sAtan LA: 2.2308 ulp at 0x1.4be0cp-2
// sAtan HA: 0.5341 ulp at -0x1.06595p-1
// sAtan EP: 14.79 bits at -0x1.1ecb64p-1
// dAtan LA: 1.8861 ulp at -0x1.06706bd24a6b9p+0
// dAtan HA: 0.5177 ulp at -0x1.3da31723a3d4p+0
// dAtan EP: 30.83 bits at -0x1.49c124da0aa4p-3
template <class V, Level L>
struct Atan : arc::ArcTangent<V, L, Unit::radian> {
  static constexpr Knobs knobs = {.together = L == Level::HA};
};
// sAtanpi LA: 2.3050 ulp at -0x1.3e74cp-2
// sAtanpi HA: 0.5164 ulp at 0x1.fe995p-1
// sAtanpi EP: 13.88 bits at -0x1.e5f5bap-1
// dAtanpi LA: 2.0521 ulp at -0x1.20940b65c0c6p-2
// dAtanpi HA: 0.5060 ulp at 0x1.62a2d008e64ap+1
// dAtanpi EP: 30.46 bits at -0x1.2ef6589345f8p-2
template <class V, Level L>
struct Atanpi : arc::ArcTangent<V, L, Unit::half_turn> {
  static constexpr Knobs knobs = {.together = L == Level::HA};
};

}  // namespace orvik::zym
