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
    const int ey = std::ilogb(y), ex = std::ilogb(x);
    if (ey > ex + 200) return kHalfTurn<E, U> / 2;
    if (ex > ey + 200) {
      if (x < 0) return kHalfTurn<E, U>;
      if constexpr (U == Unit::radian) return y / x;
      const HeadTail<double> quotient = divide(std::ldexp(y, -ey), std::ldexp(x, -ex));
      return scaled_once(over_pi(quotient.head, quotient.tail), ey - ex);
    }
    const int e = ey > ex ? ey : ex;
    return PointAngle<double, Level::HA, U>::lanes(std::ldexp(y, -e), std::ldexp(x, -e));
  }
};

}  // namespace arc

// sAtan2 LA: 2.0640 ulp at -0x1.2decc6p+1, 0x1.a2d434p+2
// sAtan2 HA: 0.5294 ulp at -0x1.43a3eap-1, 0x1.42b892p+2
// sAtan2 EP: 14.79 bits at 0x1.f11fb8p-1, 0x1.d7d9cep+1
// dAtan2 LA: 2.0118 ulp at 0x1.1b0621d0a37cbp+0, 0x1.e0107d313217cp+1
// dAtan2 HA: 0.5528 ulp at 0x1.bc5a802ad15e8p+0, 0x1.7a68a88e62b84p+2
// dAtan2 EP: 30.83 bits at -0x1.27521c480066p+0, 0x1.145134607496p+2
template <class V, Level L>
struct Atan2 : arc::PointAngle<V, L, Unit::radian> {};
// sAtan2pi LA: 2.1496 ulp at 0x1.65d7d4p-15, 0x1.cb30dcp-4
// sAtan2pi HA: 0.5520 ulp at 0x1.f727f2p-2, 0x1.aa6c4cp+2
// sAtan2pi EP: 13.88 bits at -0x1.eb8c48p+1, 0x1.02f926p+2
// dAtan2pi LA: 2.1274 ulp at -0x1.6b85ef93b0a1ap-16, 0x1.fffffffeb4224p+2
// dAtan2pi HA: 0.7323 ulp at 0x0.0000000940ep-1022, 0x1.c8fbbf42e13a9p-31
// dAtan2pi EP: 30.46 bits at 0x1.d0bd3d6bcb4ap-1, 0x1.88aaca49c07f8p+1
template <class V, Level L>
struct Atan2pi : arc::PointAngle<V, L, Unit::half_turn> {};

}  // namespace orvik::zym
