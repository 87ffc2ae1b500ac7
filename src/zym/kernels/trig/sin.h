// sin(x) and cos(x). |x| = n pi + r, or (n - 1/2) pi + r for the cosine, which makes it a sine of r; the sign changes
// with every n. The highest level of doubles takes steps of pi/16 and the sum of angles (circle.h). Larger arguments
// are reduced exactly in a second vector form (reduce.h); the lowest level of doubles has a routine of its own for
// them.
#pragma once

#include "zym/kernels/trig/circle.h"
#include "zym/kernels/trig/element.h"
#include "zym/kernels/trig/reduce.h"
#include "zym/kernels/trig/sin_element.h"
#include "zym/kernels/trig/sine.h"
#include "zym/skeleton/family.h"

namespace orvik::zym {

namespace trig {

inline constexpr float kInvPi32 = 0.31830987334251404f;

// --- 32 bits --------------------------------------------------------------------------------------------------------

template <bool Cosine, Level L>
constexpr const auto& single_sine() {
  if constexpr (L == Level::EP) {
    if constexpr (Cosine) return kSineEP32OfCosine;
    if constexpr (!Cosine) return kSineEP32;
  } else if constexpr (L == Level::LA) {
    if constexpr (Cosine) return kSineLA32OfCosine;
    if constexpr (!Cosine) return kSineLA32;
  } else {
    if constexpr (Cosine) return kSineHA32OfCosine;
    if constexpr (!Cosine) return kSineHA32;
  }
}

// Sine without the sign of x, cosine. n by shift rounding: of x/pi, or of (x + pi/2)/pi.
template <bool Cosine, Level L, Single V>
struct SineSingle : NotFiniteElement<V> {
  static constexpr Knobs knobs = knobs_of(4);
  static constexpr const auto& kPolynomial = single_sine<Cosine, L>();

  // From 10000 on, from 524288.
  static auto special(V x) { return magnitude_above < L == Level::EP ? 0x461C3FFFu : 0x48FFFFFFu > (x); }

  static V lanes(V x) {
    const V a = magnitude(x);
    auto [t, n] = shift_round(Cosine ? a + V(1.5707963705062866f) : a, V(kInvPi32));
    if constexpr (Cosine) n = n - V(0.5f);
    V s;
    if constexpr (L == Level::HA) {
      s = by_halves(
          [](auto y, auto m) __attribute__((always_inline)) {
            using W = decltype(y);
            const W r = fnma(m, W(5.126688303189038e-12), fnma(m, W(3.1415926535846666), y));
            return odd_sum(r, kPolynomial);
          },
          a, n);
    } else {
      V r = fnma(n, V(-8.742277657347586e-08f), fnma(n, V(3.1415927410125732f), a));
      if constexpr (L == Level::LA) r = fnma(n, V(-3.4302490200117637e-15f), r);
      s = polynomial(r);
    }
    s = flip_odd(s, t);
    return Cosine ? s : flip_sign(s, x);
  }

  static Masked<V, Mask<V>> wide(V x) {
    const V a = magnitude(x);
    V s = over_large<1>(a, Cosine ? 0.5 : 0.0, [](auto reduced) {
      using W = decltype(reduced.t);
      const W r = flip_odd(reduced.f * W(kPi), reduced.t);
      if constexpr (L == Level::HA) {
        return odd_sum(r, kPolynomial);
      } else {
        return r;
      }
    });
    if constexpr (L != Level::HA) s = polynomial(s);
    return {Cosine ? s : flip_sign(s, x), not_finite(x)};
  }

 private:
  static V polynomial(V r) {
    if constexpr (L == Level::EP) {
      return odd_product(r, kPolynomial);
    } else {
      return odd_sum(r, kPolynomial);
    }
  }
};

// --- 64 bits --------------------------------------------------------------------------------------------------------

template <bool Cosine, Level L, Double V>
struct SineDouble : NotFiniteElement<V> {
  static constexpr Knobs knobs = knobs_of(4);
  static constexpr const auto& kPolynomial = []() -> const auto& {
    if constexpr (L == Level::EP) return kSineEP64;
    if constexpr (L != Level::EP) return kSineLA64;
  }
  ();

  // From 2^24 on; the cosine at LA from 2^23.
  static auto special(V x) { return magnitude_above < Cosine && L == Level::LA ? 0x415FFFFFu : 0x416FFFFFu > (x); }

  static V lanes(V x) {
    const V a = magnitude(x);
    auto [t, n] = shift_round(Cosine ? a + V(1.5707963267948966) : a, V(0.3183098861837907));
    if constexpr (Cosine) n = n - V(0.5);
    V r = fnma(n, V(1.224646799147353e-16), fnma(n, V(3.141592653589793), a));
    if constexpr (L == Level::LA) r = fnma(n, V(2.165713347843828e-32), r);
    const V s = flip_odd(odd_sum(r, kPolynomial), t);
    return Cosine ? s : flip_sign(s, x);
  }

  static Masked<V, Mask<V>> wide(V x) {
    const V a = magnitude(x);
    V s;
    if constexpr (L == Level::EP) {
      s = sine_by_routine<Cosine>(a);
    } else {
      const auto [t, r] = reduce_large<1>(a, V(Cosine ? 0.5 : 0.0));
      s = flip_odd(odd_sum(r.head, kPolynomial), t);
    }
    return {Cosine ? s : flip_sign(s, x), not_finite(x)};
  }

  static int32_t element(const double* x, double* r) {
    if constexpr (L == Level::EP) return sine_element<Cosine>(x, r);
    return not_finite_element(x, r);
  }
};

template <bool Cosine, Double V>
struct SineDouble<Cosine, Level::HA, V> : NotFiniteElement<V> {
  static constexpr Knobs knobs = knobs_of(2);
  static constexpr double kQuarterTurn = Cosine ? 8.0 : 0.0;

  static auto special(V x) { return magnitude_above<0x40EFFFFFu>(x); }  // from 65536 on

  static V lanes(V x) {
    const V a = magnitude(x);
    const auto [t, n] = shift_round(a, V(k16OverPi<V>), V(kShifter64 + kQuarterTurn));
    const V s = circle_sine(CirclePoint<V>(t), reduce_by_sixteenths(a, n));
    return Cosine ? s : flip_sign(s, x);
  }

  static Masked<V, Mask<V>> wide(V x) {
    const auto [t, r] = reduce_large<16>(magnitude(x), V(kQuarterTurn / 16));
    const V s = circle_sine(CirclePoint<V>(t), r);
    return {Cosine ? s : flip_sign(s, x), not_finite(x)};
  }
};

template <bool Cosine, Level L, class V>
struct SineOf;
template <bool Cosine, Level L, Single V>
struct SineOf<Cosine, L, V> : SineSingle<Cosine, L, V> {};
template <bool Cosine, Level L, Double V>
struct SineOf<Cosine, L, V> : SineDouble<Cosine, L, V> {};

}  // namespace trig

// sSin LA: 2.2828 ulp at -0x1.072a1ap+65
// sSin HA: 0.7709 ulp at -0x1.e5e49ep+18
// sSin EP: 12.43 bits at -0x1.f9cbe2p+8
// dSin LA: 3.1976 ulp at 0x1.01b7928a733bcp+6
// dSin HA: 0.5722 ulp at -0x1.14db8662a414p+6
// dSin EP: 27.12 bits at 0x1.5e199850e5dep+3
template <class V, Level L>
struct Sin : trig::SineOf<false, L, V> {};
// sCos LA: 2.4673 ulp at 0x1.917224p+18
// sCos HA: 0.8741 ulp at -0x1.fc0872p+18
// sCos EP: 12.43 bits at 0x1.f9cbe2p+7
// dCos LA: 3.1403 ulp at -0x1.eaf39beb3de7ap+555
// dCos HA: 0.5819 ulp at -0x1.4d675041e5851p+6
// dCos EP: 27.12 bits at 0x1.f4e58a92d12cp+3
template <class V, Level L>
struct Cos : trig::SineOf<true, L, V> {};

}  // namespace orvik::zym
