// Sine and cosine of one argument. At the lower levels |x| = n pi/2 + r with one polynomial for each, which change places
// with every n; at the highest level of doubles one point of the grid serves both.
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

// sin and cos of n pi/2 + r, n in the low bits of t.
template <class V, size_t N, size_t M>
[[gnu::always_inline]] inline Pair<V> both(V t, V r, const Element<V> (&p)[N], const Element<V> (&q)[M]) {
  const V z = r * r;
  const V s = fma(r * z, horner(z, p), r);
  const V c = fma(z, horner(z, q), V(Element<V>(1)));
  const V odd = sign_from<0>(t);
  const V half = sign_from<1>(t);  // from n = 2 on, modulo 4
  const Mask<V> swapped = sign_decides(odd);
  return {flip_sign(select(swapped, c, s), half), flip_sign(select(swapped, s, c), half ^ odd)};
}

// Two functions' results over the halves of floats.
template <class F, Single V, class... More>
[[gnu::always_inline]] inline Pair<V> pair_by_halves(F function, V x, More... more) {
  const auto low = function(widen_low(x), low_half(more)...);
  const auto high = function(widen_high(x), high_half(more)...);
  return {narrow(low.first, high.first), narrow(low.second, high.second)};
}

template <Level L, Single V>
struct BothSingle : NotFinitePair<V> {
  static constexpr Knobs knobs = {.vectors = 2};
  // From 10000 on, from 524288.
  static auto special(V x) { return magnitude_above < L == Level::EP ? 0x461C3FFFu : 0x48FFFFFFu > (x); }

  static Pair<V> lanes(V x) {
    const V a = magnitude(x);
    Pair<V> r;
    if constexpr (L == Level::HA) {
      r = pair_by_halves(
          [](auto y) __attribute__((always_inline)) {
            using W = decltype(y);
            const auto [t, n] = shift_round(y, W(0.6366197723675814));
            const W f = fnma(n, W(6.123233995736765e-17), fnma(n, W(1.5707963267948966), y));
            return both(t, f, kPairSineHA32, kPairCosineHA32);
          },
          a);
    } else {
      const auto [t, n] = shift_round(a, V(0.6366197466850281f));
      V f = fnma(n, V(-4.371138828673793e-08f), fnma(n, V(1.5707963705062866f), a));
      if constexpr (L == Level::LA) {
        f = fnma(n, V(-1.7151245100058819e-15f), f);
        r = both(t, f, kPairSineLA32, kPairCosineLA32);
      } else {
        r = both(t, f, kPairSineEP32, kPairCosineEP32);
      }
    }
    return {flip_sign(r.first, x), r.second};
  }

  static Masked<Pair<V>, Mask<V>> wide(V x) {
    V a = magnitude(x);
    a = min(max(a, V(8192.0f)), V(3.4028234663852886e38f));
    const Pair<V> r = pair_by_halves(
        [](auto y, auto rows) {
          using W = decltype(y);
          const auto [t, f] = reduce_large_single<2, false>(y, rows, W(0.0));
          return both(t, f * W(kPi), kPairSineHA32, kPairCosineHA32);
        },
        a, shift_right<23>(as_bits(a)));
    return {{flip_sign(r.first, x), r.second}, not_finite(x)};
  }
};

template <Level L, Double V>
struct BothDouble : NotFinitePair<V> {
  static constexpr Knobs knobs = {.vectors = 2};
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
    if constexpr (L == Level::EP) r = both(t, f, kPairSineEP64, kPairCosineEP64);
    if constexpr (L == Level::LA) r = both(t, f, kPairSineLA64, kPairCosineLA64);
    return {flip_sign(r.first, x), r.second};
  }
};
template <Double V>
struct BothDouble<Level::HA, V> : NotFinitePair<V> {
  static constexpr Knobs knobs = {.vectors = 1};
  static auto special(V x) { return magnitude_above<0x40EFFFFFu>(x); }  // from 65536 on

  static Pair<V> lanes(V x) {
    const V a = magnitude(x);
    const auto [t, n] = shift_round(a, V(k256OverPi));
    return finish(t, reduce_by_grid(a, n), x);
  }
  static Masked<Pair<V>, Mask<V>> wide(V x) {
    const auto [t, r] = reduce_large<256>(magnitude(x));
    return {finish(t, r, x), not_finite(x)};
  }

 private:
  [[gnu::always_inline]] static Pair<V> finish(V t, HeadTail<V> r, V x) {
    const GridPoint<V> p(t);
    return {flip_sign(grid_sine(p, r), x), grid_cosine(p, r)};
  }
};

template <Level L, class V>
struct BothOf;
template <Level L, Single V>
struct BothOf<L, V> : BothSingle<L, V> {};
template <Level L, Double V>
struct BothOf<L, V> : BothDouble<L, V> {};

}  // namespace trig

template <class V, Level L>
struct SinCos : trig::BothOf<L, V> {};

// One kernel for all levels: the highest.
template <class V, Level L>
struct SinCospi : trig::NotFinitePair<V> {
  static constexpr Knobs knobs = {.vectors = Single<V> ? 2 : 1};
  static auto special(V x) { return not_finite(x); }
  static Pair<V> lanes(V x) {
    const V f = trig::Turns::within_turn(magnitude(x));
    return {flip_sign(trig::SineOfUnit<trig::Turns, false, L, V>::of_turn(f), x),
            trig::SineOfUnit<trig::Turns, true, L, V>::of_turn(f)};
  }
};

}  // namespace orvik::zym
