// Inverse error functions: ErfInv, ErfcInv, CdfNormInv. All are t P(w) with w = -ln(1 - t^2) (ratio.h):
//   ErfInv:      t = x,      1 - t^2 = (1 - x)(1 + x);
//   ErfcInv:     t = 1 - x,  1 - t^2 = x (2 - x);
//   CdfNormInv:  sqrt(2) t P(w) with t = y - 1,  1 - t^2 = y (2 - y),  y = 2x.
// 32 bits at HA are 64 bits at EP.
#pragma once

#include "orvik/zym_types.h"
#include "zym/kernels/inverse_error/ratio.h"
#include "zym/skeleton/family.h"

namespace orvik::zym {
namespace inverse_error {

// In 64-bit lanes, halves of 32-bit ones.
template <template <class, Level> class Function, Single V>
V in_double_lanes(V x) {
  using F = Function<Wide<V>, Level::EP>;
  return narrow(F::lanes(widen_low(x)), F::lanes(widen_high(x)));
}
template <template <class, Level> class Function>
float in_double(float x) {
  return static_cast<float>(first_lane(Function<F64, Level::EP>::lanes(F64(x))));
}

// Below this the parts of products would leave the normal numbers: 2^-960 in 64 bits.
template <class V>
inline constexpr uint32_t kFirstWord = Single<V> ? 0x00800000u : 0x03F00000u;
inline constexpr double kLift = 0x1p200;  // takes smaller numbers back into range
inline constexpr double kLiftExponent = 200;

// y (2 - y), 0 < y < 2, exact but for terms far below its last place.
template <class V>
HeadTail<V> square_complement(V y) {
  const V u = V(2.0) - y;
  const V u_low = (V(2.0) - u) - y;
  const V s = y * u;
  return {s, fma(y, keep(y > V(0x1p-100), u_low), fms(y, u, s))};
}

template <class E>
int32_t outside_domain(E* r) {
  *r = opaque(E(0)) * infinity<E>;
  return zymErrorDomain;
}

}  // namespace inverse_error

// --- ErfInv ---------------------------------------------------------------------------------------------------------

// sErfInv LA: 2.1919 ulp at -0x1.9f7a8ep-1
// sErfInv HA: 0.5272 ulp at 0x1.fbd9b4p-1
// sErfInv EP: 13.50 bits at 0x1.373b06p-1
// dErfInv LA: 2.1899 ulp at 0x1.a0e0eae46807cp-1
// dErfInv HA: 0.7429 ulp at -0x0.b699cf3d18144p-1022
// dErfInv EP: 28.88 bits at -0x1.fb4a47e4c0ad1p-1
template <class V, Level L>
struct ErfInv {
  using E = Element<V>;
  static constexpr Knobs knobs = {.vectors = L == Level::HA ? 1 : 2, .together = Single<V> || L == Level::EP};

  // Below 2^-24 the slope at 0 is all there is, and at every level it is worth having exactly.
  static auto special(V x) requires Single<V> { return outside_magnitude<0x33800000u, 0x3F7FFFFFu>(x); }
  static auto special(V x) requires Double<V> {
    return outside_magnitude<inverse_error::kFirstWord<V>, 0x3FEFFFFFu>(x);
  }

  static V lanes(V x) {
    if constexpr (Single<V> && L == Level::HA) {
      return inverse_error::in_double_lanes<zym::ErfInv>(x);
    } else if constexpr (Single<V>) {
      return inverse_error::t_times_ratio<L>(x, fnma(x, x, V(1.0f)));
    } else if constexpr (L == Level::EP) {
      return inverse_error::t_times_ratio_ep(x, fnma(x, x, V(1.0)));
    } else if constexpr (L == Level::LA) {
      return inverse_error::t_times_ratio_la(x, fnma(x, x, V(1.0)));
    } else {
      const HeadTail<V> square = two_square(max(magnitude(x), V(0x1p-60)));  // no underflow
      const V difference = V(1.0) - square.head;
      const V lost = (V(1.0) - difference) - square.head;
      const V s = difference - square.tail;
      const V s_low = ((difference - s) - square.tail) + lost;
      return inverse_error::t_times_ratio_ha<V>({x, V(0.0)}, {s, s_low}, 0.0);
    }
  }

  static int32_t element(const E* px, E* r) {
    const E x = *px;
    if (is_nan(x)) {
      *r = x + x;
    } else if (magnitude(x) > 1) {
      return inverse_error::outside_domain(r);
    } else if (magnitude(x) == 1) {
      *r = x / opaque(E(0));
      return zymErrorSingularity;
    } else if (x == 0) {  // denormals too where they read as zero
      *r = quiet(x);
    } else {
      *r = tiny(x);
    }
    return 0;
  }

 private:
  static float tiny(float x) { return static_cast<float>(x * kErfInvSlope); }
  static double tiny(double x) {
    return first_lane(ErfInv<F64, Level::HA>::lanes(F64(x * inverse_error::kLift))) / inverse_error::kLift;
  }
};

// --- ErfcInv and CdfNormInv -----------------------------------------------------------------------------------------

// sErfcInv LA: 2.7522 ulp at 0x1.84d044p-3
// sErfcInv HA: 0.5308 ulp at 0x1.2d6a84p-7
// sErfcInv EP: 13.50 bits at 0x1.91705ap-2
// dErfcInv LA: 2.6100 ulp at 0x1.f006e8415343fp-2
// dErfcInv HA: 0.5767 ulp at 0x1.fdd80a70e5bd2p-1
// dErfcInv EP: 28.86 bits at 0x1.fda5156a942edp+0
template <class V, Level L>
struct ErfcInv {
  using E = Element<V>;
  static constexpr Knobs knobs = {.vectors = L == Level::HA ? 1 : 2, .together = Single<V> || L == Level::EP};

  static auto special(V x) {
    return outside < inverse_error::kFirstWord<V>, Single<V> ? 0x3FFFFFFFu : 0x3FFFFFFFu > (x);
  }

  static V lanes(V x) {
    const V t = V(E(1)) - x;
    if constexpr (Single<V> && L == Level::HA) {
      return inverse_error::in_double_lanes<zym::ErfcInv>(x);
    } else if constexpr (Single<V>) {
      return inverse_error::t_times_ratio<L>(t, x * (V(2.0f) - x));
    } else if constexpr (L == Level::EP) {
      return inverse_error::t_times_ratio_ep(t, x * (V(2.0) - x));
    } else if constexpr (L == Level::LA) {
      return inverse_error::t_times_ratio_la(t, x * (V(2.0) - x));
    } else {
      return of(x, x, 0.0);
    }
  }

  static int32_t element(const E* px, E* r) {
    const E x = *px;
    if (is_nan(x)) {
      *r = x * x;
    } else if (x == 0 || x == 2) {
      *r = (1 - x) / opaque(E(0));
      return zymErrorSingularity;
    } else if (!(x > 0 && x < 2)) {
      return inverse_error::outside_domain(r);
    } else {
      *r = tiny(x);
    }
    return 0;
  }

 private:
  template <class, Level>
  friend struct ErfcInv;
  // Its logarithm is that of 2^-added x, which is not worth telling from 0 beside 1 where `added` is not 0.
  static V of(V x, V scaled, double added) {
    const V t = V(1.0) - x;
    return inverse_error::t_times_ratio_ha<V>({t, (V(1.0) - t) - x}, inverse_error::square_complement(scaled), added);
  }
  static float tiny(float x) { return inverse_error::in_double<zym::ErfcInv>(x); }
  static double tiny(double x) {
    return first_lane(
        ErfcInv<F64, Level::HA>::of(F64(0.0), F64(x * inverse_error::kLift), inverse_error::kLiftExponent));
  }
};

// sCdfNormInv LA: 3.3964 ulp at 0x1.8a773p-6
// sCdfNormInv HA: 0.5221 ulp at 0x1.2d77c6p-8
// sCdfNormInv EP: 13.50 bits at 0x1.92606ap-3
// dCdfNormInv LA: 3.1184 ulp at 0x1.f048f0a42aee3p-1
// dCdfNormInv HA: 0.5890 ulp at 0x1.ce13c73d4bf5p-2
// dCdfNormInv EP: 28.87 bits at 0x1.2d72346cf0cbep-8
template <class V, Level L>
struct CdfNormInv {
  using E = Element<V>;
  static constexpr Knobs knobs = {.vectors = L == Level::HA ? 1 : 2, .together = Single<V> || L == Level::EP};

  static auto special(V x) {
    return outside < inverse_error::kFirstWord<V>, Single<V> ? 0x3F7FFFFFu : 0x3FEFFFFFu > (x);
  }

  static V lanes(V x) {
    const V y = x + x, t = y - V(E(1));
    if constexpr (Single<V> && L == Level::HA) {
      return inverse_error::in_double_lanes<zym::CdfNormInv>(x);
    } else if constexpr (Single<V>) {
      return inverse_error::t_times_ratio<L>(t * V(kRoot2In32), y * (V(2.0f) - y));
    } else if constexpr (L == Level::EP) {
      return inverse_error::t_times_ratio_ep(t * V(kRoot2Head), y * (V(2.0) - y));
    } else if constexpr (L == Level::LA) {
      return inverse_error::t_times_ratio_la(t * V(kRoot2Head), y * (V(2.0) - y));
    } else {
      return of(y, y, 0.0);
    }
  }

  static int32_t element(const E* px, E* r) {
    const E x = *px;
    if (is_nan(x)) {
      *r = x * x;
    } else if (x == 0 || x == 1) {
      *r = (x + x - 1) / opaque(E(0));
      return zymErrorSingularity;
    } else if (!(x > 0 && x < 1)) {
      return inverse_error::outside_domain(r);
    } else {
      *r = tiny(x);
    }
    return 0;
  }

 private:
  template <class, Level>
  friend struct CdfNormInv;
  // As ErfcInv, y = 2x.
  static V of(V y, V scaled, double added) {
    const V t = y - V(1.0);
    const V t_low = y - (t + V(1.0));
    const V root_t = t * V(kRoot2Head);
    const V root_t_low = fma(t, V(kRoot2Tail), fma(t_low, V(kRoot2Head), fms(t, V(kRoot2Head), root_t)));
    return inverse_error::t_times_ratio_ha<V>({root_t, root_t_low}, inverse_error::square_complement(scaled), added);
  }
  static float tiny(float x) { return inverse_error::in_double<zym::CdfNormInv>(x); }
  static double tiny(double x) {
    return first_lane(
        CdfNormInv<F64, Level::HA>::of(F64(0.0), F64(2 * x * inverse_error::kLift), inverse_error::kLiftExponent));
  }
};

}  // namespace orvik::zym
