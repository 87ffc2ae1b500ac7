// Arc sine and arc cosine, also in units of pi. With w = |x| up to 1/2, w = sqrt((1 - |x|) / 2) above it, and
// a = asin(w) = w + w z P(z), z = w^2 <= 1/4:
//   asin |x| = a or pi/2 - 2 a;  acos x = pi/2 - (a with the sign of x), or 2 a, or pi - 2 a.
// Every result is base + k a with k = +-1, +-2. From |x| = 1 on the element routine decides.
#pragma once

#include <iterator>

#include "lanes/estimates.h"
#include "lanes/quotients.h"
#include "orvik/zym_types.h"
#include "zym/kernels/arc/coefficients.h"
#include "zym/kernels/arc/constants.h"
#include "zym/kernels/roots/coefficients.h"
#include "zym/kernels/shared/complement.h"
#include "zym/skeleton/family.h"

namespace orvik::zym {
namespace arc {

template <class V, Level L, Unit U>
constexpr const auto& sine_coefficients() {
  constexpr bool kRadian = U == Unit::radian;
  if constexpr (Single<V> && L == Level::EP) return kRadian ? kAsinSingleEP : kAsinpiSingleEP;
  if constexpr (Single<V> && L == Level::LA) return kRadian ? kAsinSingleLA : kAsinpiSingleLA;
  if constexpr (Single<V> && L == Level::HA) return kRadian ? kAsinSingleHA : kAsinpiSingleHA;
  if constexpr (Double<V> && L == Level::EP) return kRadian ? kAsinDoubleEP : kAsinpiDoubleEP;
  if constexpr (Double<V> && L == Level::LA) return kRadian ? kAsinDoubleLA : kAsinpiDoubleLA;
  if constexpr (Double<V> && L == Level::HA) return kRadian ? kAsinDoubleHA : kAsinpiDoubleHA;
}

// sqrt(s), 2^-54 <= s <= 1/2. Estimated, of doubles: within 2^-34, by fewer cycles than the root instruction's, which
// leaves other instructions more of them.
template <bool Estimated, class V>
[[gnu::always_inline]] inline V half_angle_root(V s) {
  if constexpr (Estimated) {
    const V y = inverse_root_estimate(s);
    const V root = s * y;
    return root * horner(fnma(root, y, V(1.0)), roots::kInverseRootShort);
  } else {
    return orvik::root(s);
  }
}

// asin of |x| < 1 before its base is added, LA and EP. `wide`: |x| above 1/2.
template <class V, Level L, Unit U, bool Estimated = false>
struct HalfAngle {
  Mask<V> wide;
  V head, rest;  // of half turns: factors of a

  [[gnu::always_inline]] explicit HalfAngle(V a) {
    using E = Element<V>;
    const V half = V(E(0.5));
    wide = a > half;
    const V s = fnma(a, half, half);
    const V root = half_angle_root<Estimated>(s);
    const V w = min(root, a);
    const V z = min(safe_square<false>(a), s);
    const V p = horner(z, sine_coefficients<V, L, U>());
    if constexpr (U == Unit::radian) {
      head = fma(w, z * p, w);
    } else {
      head = w;
      rest = fma(z, p, V(Constants<E>::inverse_pi));
    }
  }

  // base + k a, |base| >= |k a| or base = 0; k a power of two with a sign.
  [[gnu::always_inline]] V placed(V k, V base) const {
    if constexpr (U == Unit::radian) return fma(k, head, base);
    return fma(k * head, rest, base);
  }
};

// The same at HA of u = +-|x| or +-2 w, 2 w = sqrt(2 - 2 |x|): base + u + u z P(z), |base| >= |u| or base = 0.
template <class V, Unit U>
struct ExactAngle {
  static constexpr const auto& kSeries = sine_coefficients<V, Level::HA, U>();
  Mask<V> wide;
  V root;  // 2 w
  V z, rest;  // P without its lowest coefficient
  V lost;

  [[gnu::always_inline]] explicit ExactAngle(V a) {
    using E = Element<V>;
    const V half = V(E(0.5)), two = V(E(2));
    wide = a > half;
    const V square = fnma(a, two, two);
    root = sqrt(square);
    z = min(safe_square<true>(a), fnma(a, half, half));
    rest = z * horner_but_lowest(z, kSeries);
    lost = keep(wide, fnma(root, root, square));
  }

  [[gnu::always_inline]] V placed(V u, V base) const {
    using E = Element<V>;
    using K = Constants<E>;
    constexpr bool kRadian = U == Unit::radian;
    const V head = kRadian ? u : u * V(K::inverse_pi);
    const HeadTail<V> sum = fast_two_sum(base, head);
    V tail = sum.tail;
    if constexpr (kRadian) {
      tail = fma(base, V(K::pi_rest), tail);  // pi/2 and pi
    } else {
      tail = tail + fma(u, V(K::inverse_pi_low), fms(u, V(K::inverse_pi), head));
    }
    // What the rounded root lacks, in the unit, within 10 %: lost / (2 u), times 1 + z P(z).
    const V lacks = near_reciprocal<kRadian ? 0x7FCF800000000000u : 0x7FB4800000000000u>(u);
    const V cube = u * z, lowest = V(kSeries[std::size(kSeries) - 1]);
    return sum.head + fma(cube, lowest, fma(cube, rest, fma(lost, lacks, tail)));
  }
};

// |x| >= 1 and what is no number; where small arguments times the tail of 1/pi would underflow, those as well.
template <class V, Level L, Unit U>
auto outside_lanes(V x) {
  if constexpr (L == Level::HA && U == Unit::half_turn) {
    return outside_magnitude < kSmallestTurn<Element<V>>, Single<V> ? 0x3F7FFFFFu : 0x3FEFFFFFu > (x);
  } else {
    return magnitude_above < Single<V> ? 0x3F7FFFFFu : 0x3FEFFFFFu > (x);
  }
}

// yes or no.
template <class V>
V constant_of(Mask<V> mask, Element<V> yes, Element<V> no) {
  return V(no) ^ keep(mask, pattern<V>(bits_of(yes) ^ bits_of(no)));
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
  static auto special(V x) { return outside_lanes<V, L, U>(x); }

  static V lanes(V x) {
    const V magnitude = orvik::magnitude(x);
    if constexpr (L == Level::HA) {
      const ExactAngle<V, U> a(magnitude);
      const V u = select(a.wide, a.root ^ sign_mask<V>(), magnitude);
      return flip_sign(a.placed(u, keep(a.wide, V(kHalfTurn<E, U> / 2))), x);
    } else {
      // The cosine has so much else to do that an estimate gains nothing with registers of 256 bits.
      const HalfAngle<V, L, U, Double<V> && L == Level::EP> a(magnitude);
      return flip_sign(a.placed(constant_of<V>(a.wide, -2, 1), keep(a.wide, V(kHalfTurn<E, U> / 2))), x);
    }
  }

  static int32_t element(const E* px, E* r) {
    const E x = *px;
    if (is_nan(x) || magnitude(x) > 1) return outside_unit(x, r);
    *r = magnitude(x) == 1 ? flip_sign(kHalfTurn<E, U> / 2, x) : tiny_over_pi(x);
    return 0;
  }
};

template <class V, Level L, Unit U>
struct ArcCosine {
  using E = Element<V>;
  using K = Constants<E>;
  static auto special(V x) { return outside_lanes<V, L, U>(x); }

  static V lanes(V x) {
    const V right = V(kHalfTurn<E, U> / 2);
    if constexpr (L == Level::HA) {
      const ExactAngle<V, U> a(magnitude(x));
      const V u = flip_sign(select(a.wide, a.root, x | sign_mask<V>()), x);
      return a.placed(u, right - keep(a.wide, join_sign(right, x)));
    } else {
      const HalfAngle<V, L, U> a(magnitude(x));
      const V k = flip_sign(constant_of<V>(a.wide, 2, -1), x);
      const Mask<V> negative = V(E(0)) > x;
      return a.placed(k, drop(a.wide, right) | keep(a.wide & negative, V(kHalfTurn<E, U>)));
    }
  }

  static int32_t element(const E* px, E* r) {
    const E x = *px;
    if (is_nan(x) || magnitude(x) > 1) return outside_unit(x, r);
    *r = x == 1 ? E(0) : x == -1 ? kHalfTurn<E, U> : E(0.5);
    return 0;
  }
};

}  // namespace arc

// sAsin LA: 2.3474 ulp at -0x1.002018p-1
// sAsin HA: 0.5873 ulp at -0x1.09aba4p-1
// sAsin EP: 13.69 bits at -0x1.000032p-1
// dAsin LA: 2.1710 ulp at 0x1.040c51222595cp-1
// dAsin HA: 0.5811 ulp at 0x1.03dc3f718857ep-1
// dAsin EP: 26.61 bits at -0x1.0001ec3b19d4cp-1
template <class V, Level L>
struct Asin : arc::ArcSine<V, L, Unit::radian> {
  static constexpr Knobs knobs = {.together = Double<V> && L != Level::EP};
};
// sAsinpi LA: 2.9371 ulp at -0x1.177efep-1
// sAsinpi HA: 0.5866 ulp at -0x1.04c4cap-1
// sAsinpi EP: 13.69 bits at 0x1.00007p-1
// dAsinpi LA: 2.7761 ulp at -0x1.04482efdfcad4p-1
// dAsinpi HA: 0.5830 ulp at -0x1.02ee901faf912p-1
// dAsinpi EP: 26.61 bits at -0x1.0001ec3b19d4cp-1
template <class V, Level L>
struct Asinpi : arc::ArcSine<V, L, Unit::half_turn> {
  static constexpr Knobs knobs = {.together = Double<V> && L == Level::LA};
};
// sAcos LA: 1.2612 ulp at -0x1.003818p-1
// sAcos HA: 0.5735 ulp at 0x1.152566p-1
// sAcos EP: 14.69 bits at 0x1.41affap-1
// dAcos LA: 1.1642 ulp at 0x1.21a2c15e0f367p-1
// dAcos HA: 0.5771 ulp at 0x1.1b5018608a6ep-1
// dAcos EP: 27.62 bits at 0x1.10edac1269eeap-1
template <class V, Level L>
struct Acos : arc::ArcCosine<V, L, Unit::radian> {
  // The arc sine of a denormal underflows, the right angle less it does not.
  static constexpr Knobs knobs = {.stray = L == Level::HA ? 0 : kUnderflowFlag,
                                  .together = Double<V> && L != Level::HA};
};
// sAcospi LA: 2.4558 ulp at 0x1.6de6e2p-1
// sAcospi HA: 0.5473 ulp at 0x1.6a1ddep-1
// sAcospi EP: 14.69 bits at 0x1.421394p-1
// dAcospi LA: 2.3251 ulp at 0x1.dd2b4737cb31p-1
// dAcospi HA: 0.5411 ulp at 0x1.737a36701799ap-1
// dAcospi EP: 27.62 bits at 0x1.10edac1269eeap-1
template <class V, Level L>
struct Acospi : arc::ArcCosine<V, L, Unit::half_turn> {
  static constexpr Knobs knobs = {.together = Double<V> && L != Level::HA};
};

}  // namespace orvik::zym
