// The angle of the point (x, y), y first, also in half turns: the angle of the first octant placed by base and sign,
//   |y| > |x|: pi/2 - a for x > 0, pi/2 + a for x < 0;  else a for x > 0, pi - a for x < 0;  with the sign of y.
// At HA by pivots of the half plane (pivots.h).
// Points with a coordinate far from 1 (axes among them) take the element routine. No element is ever reported.
#pragma once

#include <cmath>
#include <type_traits>

#include "zym/kernels/arc/arc_tangent.h"

namespace orvik::zym {
namespace arc {

template <class V, Level L, Unit U>
struct PointAngle {
  using E = Element<V>;
  static constexpr Knobs knobs = {.vectors = 2};

  // Both coordinates within 2^-38 .. 2^38, or 2^-400 .. 2^400: neither the quotient nor what corrects it underflows.
  static auto special(V y, V x) {
    constexpr uint32_t kFirst = Single<V> ? 0x2C800000u : 0x26F00000u, kLast = Single<V> ? 0x527FFFFFu : 0x58EFFFFFu;
    return outside<kFirst, kLast>(magnitude(y)) | outside<kFirst, kLast>(magnitude(x));
  }

  static V lanes(V y, V x) {
    const V ay = magnitude(y), ax = magnitude(x);
    if constexpr (L == Level::HA) {
      return flip_sign(by_octaves<U>(ay, x), y);
    } else {
      const Mask<V> steep = ay > ax, left = x < V(E(0));
      const V base = select(steep, V(kHalfTurn<E, U> / 2), keep(left, V(kHalfTurn<E, U>)));
      const V angle = first_octant<V, L, U>(min(ay, ax), max(ay, ax));
      return flip_sign(base + flip_sign(angle, flip_sign(minus_where<V>(steep), x)), y);
    }
  }

  static int32_t element(const E* py, const E* px, E* r) {
    const E y = *py, x = *px;
    *r = is_nan(y) || is_nan(x) ? y + x : join_sign(upper(magnitude(y), x), y);
    return 0;
  }

 private:
  // Of y >= 0.
  static E upper(E y, E x) {
    constexpr E kRight = kHalfTurn<E, U> / 2;
    const E straight = is_negative(x) ? kHalfTurn<E, U> : E(0);
    if (y == 0) return straight;
    if (x == 0) return kRight;
    if (is_infinite(x)) {
      if (!is_infinite(y)) return straight;
      return is_negative(x) ? Constants<E>::three_quarters[static_cast<int>(U)] : kRight / 2;
    }
    if (is_infinite(y)) return kRight;
    if constexpr (std::is_same_v<E, float>) {
      return static_cast<float>(PointAngle<double, Level::HA, U>::lanes(y, x));
    } else {
      return far(y, x);
    }
  }

  // Both brought near 1 by a power of two; where they are too far apart, a base alone or the quotient.
  static double far(double y, double x) {
    const int ey = exponent_of(y), ex = exponent_of(x);
    if (ey > ex + 200) return kHalfTurn<E, U> / 2;
    if (ex > ey + 200) {
      if (x < 0) return kHalfTurn<E, U>;
      if constexpr (U == Unit::radian) return y / x;
      const HeadTail<double> quotient = divide(times_two_to(y, -ey), times_two_to(x, -ex));
      return scaled_once(over_pi(quotient.head, quotient.tail), ey - ex);
    }
    const int e = ey > ex ? ey : ex;
    return PointAngle<double, Level::HA, U>::lanes(times_two_to(y, -e), times_two_to(x, -e));
  }
};

}  // namespace arc

// sAtan2 LA: 2.3591 ulp at -0x1.336264p+1, 0x1.fbf9a6p+2
// sAtan2 HA: 0.5611 ulp at 0x1.611ca4p-3, 0x1.63b59p+0
// sAtan2 EP: 14.79 bits at 0x1.b7ebcp+0, 0x1.a4b084p+2
// dAtan2 LA: 2.0421 ulp at 0x1.3d6c8abe56ba8p+0, 0x1.14e40549ff8cap+2
// dAtan2 HA: 0.5567 ulp at -0x1.9bf57b32503bdp-4, 0x1.9ad45bcead2ap-1
// dAtan2 EP: 30.83 bits at 0x1.29a90b77d67p-3, 0x1.ce33c82726c5p-1
template <class V, Level L>
struct Atan2 : arc::PointAngle<V, L, Unit::radian> {};
// sAtan2pi LA: 2.4073 ulp at 0x1.4d6296p+0, 0x1.0c472cp+2
// sAtan2pi HA: 0.5616 ulp at 0x1.be2336p-1, 0x1.88c268p+2
// sAtan2pi EP: 13.88 bits at -0x1.5f3be8p+2, 0x1.71d174p+2
// dAtan2pi LA: 2.2823 ulp at 0x1.0efa4806b8038p+0, 0x1.d9aa7541b23e4p+1
// dAtan2pi HA: 0.5325 ulp at -0x1.01f812becf16dp-17, 0x1.c1438e59568c1p-33
// dAtan2pi EP: 30.46 bits at 0x1.a3705ac1dd32p-1, 0x1.626cdab0adafcp+1
template <class V, Level L>
struct Atan2pi : arc::PointAngle<V, L, Unit::half_turn> {};

}  // namespace orvik::zym
