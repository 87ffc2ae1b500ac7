// sqrt(x), 1/sqrt(x) and x^(3/2): an estimate y of 1/sqrt(x), refined by fused steps.
#pragma once

#include <cmath>

#include "lanes/scalar.h"
#include "orvik/zym_types.h"
#include "zym/kernels/roots/coefficients.h"
#include "zym/kernels/roots/estimate.h"

namespace orvik::zym {

// What the lanes leave: zeros, denormals, very small floats, negatives, infinities, NaNs.
template <class E>
struct SqrtElement {
  static int32_t element(const E* px, E* r) {
    const E x = *px;
    if (is_nan(x) || (is_infinite(x) && x > 0)) {
      *r = x + x;
      return 0;
    }
    if (x == 0) {
      *r = quiet(x);  // a denormal that counts as zero becomes one
      return 0;
    }
    if (x < 0) {
      *r = nan<E>;
      return zymErrorDomain;
    }
    // A denormal is its bits times 2^-149 or 2^-1074; as an integer it costs no slow arithmetic.
    if (bits_of(x) < FloatBits<E>::min_normal) {
      const E steps = static_cast<E>(static_cast<int64_t>(bits_of(x)));
      *r = sizeof(E) == 4 ? std::sqrt(2 * steps) * E(0x1p-75) : std::sqrt(steps) * E(0x1p-537);
    } else {
      *r = std::sqrt(x);
    }
    return 0;
  }
};

template <class E>
struct InvSqrtElement {
  static int32_t element(const E* px, E* r) {
    const E x = *px;
    if (is_nan(x)) {
      *r = x + x;
      return 0;
    }
    if (x == 0) {
      *r = E(1) / quiet(x);
      return zymErrorSingularity;
    }
    if (x < 0) {
      *r = nan<E>;
      return zymErrorDomain;
    }
    *r = correct(x);
    return 0;
  }

  static float correct(float x) { return static_cast<float>(1.0 / std::sqrt(static_cast<double>(x))); }
  // y = 1/s is off by the roundings of s and of the division: one Newton step on the exact residue of x s^2.
  static double correct(double x) {
    if (is_infinite(x)) return 0;
    const bool tiny = x < 0x1p-1000;
    const double scaled = tiny ? x * 0x1p200 : x * 0x1p-200;
    const double y = 1 / std::sqrt(scaled);
    const double y2 = y * y;
    const double low = std::fma(y, y, -y2);
    const double residue = std::fma(-scaled, low, std::fma(-scaled, y2, 1.0));
    return std::fma(y * 0.5, residue, y) * (tiny ? 0x1p100 : 0x1p-100);
  }
};

template <class V, Level L>
struct Sqrt;

// HA leaves numbers below 2^-100, whose residue x - s^2 would be denormal. At LA the residue may be: what it then lacks is
// 2^-24 of the root at most. With denormals flushed it is lost below 2^-103 or so, and LA is the estimate's 12 bits there.
// sSqrt LA: 2.1992 ulp at 0x1.050148p+9
// sSqrt HA: 0.5001 ulp at 0x1.3d3a6cp+9
// sSqrt EP: 11.59 bits at 0x1.043f84p+5
template <Single V, Level L>
struct Sqrt<V, L> : SqrtElement<float> {
  static auto special(V x) { return outside < L == Level::HA ? 0x0D800000u : 0x00800000u, 0x7F7FFFFFu > (x); }

  // The residue with the first estimate leaves 1.5 (1.5 * 2^-12)^2 = 2.0e-7, 3.4 ulp.
  static V lanes(V x) {
    const V y = roots::inverse_root(x);
    const V s = x * y;
    if constexpr (L == Level::EP) return s;
    const V h = half_of(y);
    if constexpr (L == Level::LA) return fma(fnma(s, s, x), h, s);
    return refined(x, s, h).sum();
  }

  // sqrt(x) as an unevaluated sum, within 2^-33.
  struct Root {
    V head, factor, residue;
    V sum() const { return fma(residue, factor, head); }
  };
  static Root refined(V x, V s, V h) {
    const V t = fnma(s, h, V(0.5f));
    const V g = fma(s, t, s);
    return {g, h, fnma(g, g, x)};
  }
};

// The rounding of s = x y counts half: at most a quarter of an ulp, 0.77 ulp in all.
// dSqrt LA: 0.7731 ulp at 0x1.dc1f7b650f551p+9
// dSqrt HA: 0.7731 ulp at 0x1.dc1f7b650f551p+9
// dSqrt EP: 34.92 bits at 0x1.42fcdeb6850b6p+9
template <Double V, Level L>
struct Sqrt<V, L> : SqrtElement<double> {
  static auto special(V x) { return outside<0x00100000, 0x7FEFFFFF>(x); }

  static V lanes(V x) { return refined(x, roots::inverse_root(x)); }

  // From an estimate y of 1/sqrt(x).
  static V refined(V x, V y) {
    const V s = x * y;
    const V d = fnma(s, y, V(1.0));
    if constexpr (L == Level::EP) return s * horner(d, roots::kInverseRootShort);
    return fma(s, d * horner(d, roots::kInverseRootTail), s);
  }
};

template <class V, Level L>
struct InvSqrt;

// sInvSqrt LA: 2.9371 ulp at 0x1.01e34cp+8
// sInvSqrt HA: 0.5002 ulp at 0x1.71bb5ep+8
template <Single V, Level L>
struct InvSqrt<V, L> : InvSqrtElement<float> {
  static auto special(V x) { return outside<0x00800000, 0x7F7FFFFF>(x); }

  static V lanes(V x) {
    const V y = roots::inverse_root(x);
    const V s = x * y;
    if constexpr (L == Level::HA) {
      // d = 1 - (s + low) y, exact to its own rounding; 1/sqrt(x) = y (1 + d/2 + 3/8 d^2), 5/16 d^3 = 1.3e-10 left.
      const V low = fms(x, y, s);
      const V d = fnma(low, y, fnma(s, y, V(1.0f)));
      return fma(y * d, fma(d, V(0.375f), V(0.5f)), y);
    }
    // One step leaves -3/8 d^2, from -2.0e-7 to 0: half of 2^-22 moves it to the middle, 3.0 ulp with the roundings.
    return fma(half_of(y), fnma(s, y, V(0x1.000004p0f)), y);
  }
};

// From 2^1021 on y^2 may be denormal.
// dInvSqrt HA: 0.5281 ulp at 0x1.10b464bedda84p+8
// dInvSqrt EP: 34.92 bits at 0x1.74fd019e47e5cp+6
template <Double V, Level L>
struct InvSqrt<V, L> : InvSqrtElement<double> {
  static auto special(V x) { return outside<0x00100000, 0x7FBFFFFF>(x); }

  // y has 24 bits at most, so y^2 is exact.
  static V lanes(V x) {
    const V y = roots::inverse_root(x);
    const V d = fnma(x, y * y, V(1.0));
    if constexpr (L == Level::EP) return y * horner(d, roots::kInverseRootShort);
    return fma(y, d * horner(d, roots::kInverseRootTail), y);
  }
};

}  // namespace orvik::zym
