// Sine and cosine of one argument. At the lower levels |x| = n pi/2 + r with one polynomial for each, which change
// places with every n; at the highest level one point of the circle serves both.
#pragma once

#include "zym/kernels/trig/element.h"
#include "zym/kernels/trig/reduce.h"
#include "zym/kernels/trig/sin.h"
#include "zym/kernels/trig/sin_units.h"
#include "zym/kernels/trig/sine.h"
#include "zym/skeleton/family.h"

namespace orvik::zym {

namespace trig {

template <class V>
struct NotFinitePair {
  static int32_t element(const Element<V>* x, Element<V>* r1, Element<V>* r2) {
    const int32_t code = not_finite_element(x, r1);
    *r2 = *r1;
    return code;
  }
};

// sin and cos of n pi/2 from those of 0, n in the low bits of t.
template <class V>
[[gnu::always_inline]] inline Pair<V> turned(Pair<V> x, V t) {
  const V odd = sign_from<0>(t);
  const V half = sign_from<1>(t);  // from n = 2 on, modulo 4
  const Mask<V> swapped = sign_decides(odd);
  return {flip_sign(select(swapped, x.second, x.first), half),
          flip_sign(select(swapped, x.first, x.second), half ^ odd)};
}
template <class V, size_t N, size_t M>
[[gnu::always_inline]] inline Pair<V> both(V r, const Element<V> (&p)[N], const Element<V> (&q)[M]) {
  const V z = r * r;
  return {fma(r * z, horner(z, p), r), fma(z, horner(z, q), V(Element<V>(1)))};
}

// Two functions' results over the halves of floats.
template <class F, Single V, class... More>
[[gnu::always_inline]] inline Pair<V> pair_by_halves(F function, V x, More... more) {
  const auto low = function(widen_low(x), widen_low(more)...);
  const auto high = function(widen_high(x), widen_high(more)...);
  return {narrow(low.first, high.first), narrow(low.second, high.second)};
}

// |x| = n pi/2 + r of floats, r and both polynomials in 64 bits; pi/2 in parts: n times the first is exact.
inline constexpr float k2OverPi32 = 0.6366197466850281f;
template <Double W>
[[gnu::always_inline]] inline Pair<W> both_of_float(W a, W n) {
  const W f = fnma(n, W(0.5 * 5.126688303189038e-12), fnma(n, W(0.5 * 3.1415926535846666), a));
  return both(f, kPairSineHA32, kPairCosineHA32);
}

template <Single V>
Masked<Pair<V>, Mask<V>> both_of_large(V x) {
  const Pair<V> r = over_large<2>(magnitude(x), 0.0, [](auto reduced) {
    using W = decltype(reduced.t);
    return turned(both(reduced.f * W(kPi), kPairSineHA32, kPairCosineHA32), reduced.t);
  });
  return {{flip_sign(r.first, x), r.second}, not_finite(x)};
}

template <Level L, Single V>
struct BothSingle : NotFinitePair<V> {
  static constexpr Knobs knobs = knobs_of(2);
  // From 10000 on, from 524288.
  static auto special(V x) { return magnitude_above < L == Level::EP ? 0x461C3FFFu : 0x48FFFFFFu > (x); }

  static Pair<V> lanes(V x) {
    const V a = magnitude(x);
    const auto [t, n] = shift_round(a, V(k2OverPi32));
    Pair<V> r;
    V f = fnma(n, V(-4.371138828673793e-08f), fnma(n, V(1.5707963705062866f), a));
    if constexpr (L == Level::LA) {
      f = fnma(n, V(-1.7151245100058819e-15f), f);
      r = both(f, kPairSineLA32, kPairCosineLA32);
    } else {
      r = both(f, kPairSineEP32, kPairCosineEP32);
    }
    r = turned(r, t);
    return {flip_sign(r.first, x), r.second};
  }

  static Masked<Pair<V>, Mask<V>> wide(V x) { return both_of_large(x); }
};

template <Level L, Double V>
struct BothDouble : NotFinitePair<V> {
  static constexpr Knobs knobs = knobs_of(2);
  static auto special(V x) { return magnitude_above<0x416FFFFFu>(x); }  // from 2^24 on

  static Pair<V> lanes(V x) {
    const V a = magnitude(x);
    const auto [t, n] = shift_round(a, V(0.6366197723675814));
    V f = fnma(n, V(6.123233995736765e-17), fnma(n, V(1.5707963267948966), a));
    if constexpr (L == Level::LA) f = fnma(n, V(1.082856673921914e-32), f);
    return finish(t, f, x);
  }
  static Masked<Pair<V>, Mask<V>> wide(V x) {
    const auto [t, r] = reduce_large<2>(magnitude(x));
    return {finish(t, r.head, x), not_finite(x)};
  }

 private:
  [[gnu::always_inline]] static Pair<V> finish(V t, V f, V x) {
    Pair<V> r;
    if constexpr (L == Level::EP) r = both(f, kPairSineEP64, kPairCosineEP64);
    if constexpr (L == Level::LA) r = both(f, kPairSineLA64, kPairCosineLA64);
    r = turned(r, t);
    return {flip_sign(r.first, x), r.second};
  }
};
template <class V>
struct CircleBoth : NotFinitePair<V> {
  static constexpr Knobs knobs = knobs_of(Single<V> ? 2 : 1);
  // From 524288 on, from 65536.
  static auto special(V x) { return magnitude_above < Single<V> ? 0x48FFFFFFu : 0x40EFFFFFu > (x); }

  static Pair<V> lanes(V x) {
    const V a = magnitude(x);
    const auto [t, n] = shift_round(a, V(k16OverPi<V>));
    return finish(t, reduce_by_sixteenths(a, n), x);
  }
  static Masked<Pair<V>, Mask<V>> wide(V x) {
    if constexpr (Single<V>) {
      return both_of_large(x);
    } else {
      const auto [t, r] = reduce_large<16>(magnitude(x));
      return {finish(t, r, x), not_finite(x)};
    }
  }

 private:
  [[gnu::always_inline]] static Pair<V> finish(V t, HeadTail<V> r, V x) {
    const CirclePoint<V> p(t);
    return {flip_sign(circle_sine(p, r), x), circle_cosine(p, r)};
  }
};

template <Level L, class V>
struct BothOf;
template <Level L, Single V>
struct BothOf<L, V> : BothSingle<L, V> {};
template <Level L, Double V>
struct BothOf<L, V> : BothDouble<L, V> {};
template <Single V>
struct BothOf<Level::HA, V> : CircleBoth<V> {};
template <Double V>
struct BothOf<Level::HA, V> : CircleBoth<V> {};

}  // namespace trig

// sSinCos LA: 1.5626 ulp at 0x1.c43ebap+18
// sSinCos HA: 0.5265 ulp at 0x1.93fcd6p+14
// sSinCos EP: 13.88 bits at -0x1.f9cbe2p+7 (second result)
// dSinCos LA: 2.2485 ulp at 0x1.06890f3d6b8cdp+631 (second result)
// dSinCos HA: 0.5819 ulp at -0x1.4d675041e5851p+6 (second result)
// dSinCos EP: 27.97 bits at -0x1.ee70df66fcd55p+754 (second result)
template <class V, Level L>
struct SinCos : trig::BothOf<L, V> {};

// One kernel for all levels: the highest.
// sSinCospi HA: 0.5004 ulp at 0x1.1064e6p-6 (second result)
// dSinCospi HA: 0.7975 ulp at -0x0.94a9114d689dbp-1022
template <class V, Level L>
struct SinCospi : trig::NotFinitePair<V> {
  static constexpr Knobs knobs = trig::knobs_of(Single<V> ? 2 : 1);
  static auto special(V x) { return not_finite(x); }
  static Pair<V> lanes(V x) {
    using trig::Turns;
    const V f = Turns::within_turn(magnitude(x));
    if constexpr (Single<V>) {
      return {flip_sign(trig::SineOfUnit<Turns, false, L, V>::of_turn(f), x),
              trig::SineOfUnit<Turns, true, L, V>::of_turn(f)};
    } else {
      const V g = magnitude(f);
      const auto [t, n] = shift_round(g, V(16.0));
      const HeadTail<V> r = trig::in_radians<Turns>(fnma(n, V(1.0 / 16), g));
      const trig::CirclePoint<V> p(t);
      // The sine's magnitude; its sign is that of f but for zeros, which have the sign of x.
      const V sine = copy_sign(trig::unless_tiny<Turns>(trig::circle_sine(p, r), g), trig::folded<Turns>(f));
      return {flip_sign(sine, x), trig::circle_cosine(p, r)};
    }
  }
};

}  // namespace orvik::zym
