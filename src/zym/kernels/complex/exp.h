// e^(x + i y) = e^x (cos y + i sin y). Floats at the highest level in 64-bit arithmetic; doubles there with e^x, sine
// and cosine of two parts each. What overflows or underflows takes the element routine, which keeps the power of two
// apart, so that e^x may leave the range where the product does not.
#pragma once

#include "zym/kernels/complex/parts.h"
#include "zym/kernels/explog/exp.h"
#include "zym/kernels/shared/flags.h"
#include "zym/kernels/trig/sin_cos.h"
#include "zym/skeleton/family.h"

namespace orvik::zym::complex {

// cos y and sin y of one |y|, of two parts each, without the signs that the grid point and y give them.
template <Double V>
struct CircleParts {
  HeadTail<V> cosine, sine;
  V sign;

  [[gnu::always_inline]] CircleParts(V t, HeadTail<V> r) {
    const trig::GridPoint<V> p(t);
    cosine = trig::grid_cosine_parts(p, r);
    sine = trig::grid_sine_parts(p, r);
    sign = p.sign;
  }
};

// e^x = 2^n (head + tail), 64 n and the number of the table's row in the low bits of t.
template <Double V>
struct ExpParts {
  V t;
  HeadTail<V> e;

  [[gnu::always_inline]] explicit ExpParts(V x) {
    const auto [sum, n] = shift_round(x, V(k64OverLn2));
    t = sum;
    const V r = fnma(n, V(kLn2Over64Tail), fnma(n, V(kLn2Over64Head), x));
    const auto row = gather(kExp2Frac64, indices(as_bits(t) & Integer<V>(int64_t{63})));
    const V p = fma(r * r, horner(r, kExpDoubleHA), r) + row.second;
    e = {row.first, row.first * p};
  }
};

template <Double V>
[[gnu::always_inline]] inline HeadTail<V> product_of_parts(HeadTail<V> e, HeadTail<V> s) {
  const HeadTail<V> p = two_prod(e.head, s.head);
  return {p.head, fma(e.head, s.tail, fma(e.tail, s.head + s.tail, p.tail))};
}
template <Double V>
[[gnu::always_inline]] inline Pair<V> on_circle(HeadTail<V> e, const CircleParts<V>& c, V y) {
  const HeadTail<V> re = product_of_parts(e, c.cosine), im = product_of_parts(e, c.sine);
  return {flip_sign(re.head + re.tail, c.sign), flip_sign(im.head + im.tail, c.sign ^ y)};
}

// --- elements -------------------------------------------------------------------------------------------------------

// e^(x + i y) of finite x and y. Beyond 1500 the result is infinite or zero whatever y is.
inline ZymComplexDouble finite_exponential(double x, double y) {
  const double bounded = x > 1500 ? 1500 : x < -1500 ? -1500 : x;
  const ExpParts<F64> e{F64(bounded)};
  const F64 a = F64(std::fabs(y));
  // One reduction serves all: that of large arguments from 2^8 on, the other below.
  CircleParts<F64> c = [&] {
    if (std::fabs(y) >= 256) {
      const auto [t, r] = trig::reduce_large<256>(a);
      return CircleParts<F64>(t, r);
    }
    const auto [t, n] = shift_round(a, F64(trig::k256OverPi));
    return CircleParts<F64>(t, trig::reduce_by_grid(a, n));
  }();
  int n = static_cast<int>(static_cast<int64_t>(bits_of(first_lane(e.t)) << 13) >> 19);
  if (n > 0) {  // denormal sines become normal before they are multiplied
    const F64 up = F64(0x1p200);
    c.cosine = {c.cosine.head * up, c.cosine.tail * up};
    c.sine = {c.sine.head * up, c.sine.tail * up};
    n -= 200;
  }
  const auto part = [n](HeadTail<F64> p, F64 sign) {
    return flip_sign(rounded(HeadTail<double>{first_lane(p.head), first_lane(p.tail)}, n), first_lane(sign));
  };
  return {part(product_of_parts(e.e, c.cosine), c.sign), part(product_of_parts(e.e, c.sine), c.sign ^ F64(y))};
}

// Of infinities and NaNs, by C99 Annex G; a denormal that counts as zero becomes one.
template <class E>
Complex<E> limit_exponential(E x, E y) {
  if (is_infinite(x)) {
    const E scale = x > 0 ? x : E(0);
    if (std::isfinite(y)) {
      const ZymComplexDouble c = finite_exponential(0, y);
      return {scale * static_cast<E>(c.re), y == 0 ? quiet(y) : scale * static_cast<E>(c.im)};
    }
    if (x < 0) return {0, 0};
    return {x, y - y};
  }
  if (is_nan(x)) return {x + x, y == 0 ? quiet(y) : x + y};
  return {y - y, y - y};
}

template <class V>
struct ExpElement {
  using E = Element<V>;
  static int32_t element(const Complex<E>* pz, Complex<E>* r) {
    const uint32_t before = read_control();
    const Complex<E> z = {opaque(pz->re), opaque(pz->im)};  // nothing is computed before
    if (!finite(z)) {
      *r = limit_exponential(z.re, z.im);
      take_back_underflow(before);
      return 0;
    }
    // Twice rounded doubles would be off in floats' last place only where 29 bits agree.
    const ZymComplexDouble w = finite_exponential(z.re, z.im);
    // What is lost on the way is none of the result's, unless a part is denormal or vanishes.
    const auto tiny = [](double part) { return std::fabs(part) < 0x1p-1022; };
    if (!tiny(w.re) && (z.im == 0 || !tiny(w.im))) take_back_underflow(before);
    *r = {static_cast<E>(w.re), static_cast<E>(w.im)};
    return overflow_code(z, z, *r);
  }
};

// --- lanes ----------------------------------------------------------------------------------------------------------

// e^x to about half an ulp times sine and cosine of the lowest level.
// cExp LA: 1.7519 ulp norm at -0x1.9c1e2cp+4, -0x1.dae284p+3
// zExp LA: 1.8331 ulp norm at -0x1.90d3bc70075ep+4, -0x1.ee9c865fedc7p+1
template <class V, Level L>
struct Exp : ExpElement<V> {
  using Power = zym::Exp<V, Level::HA>;
  using Circle = trig::BothOf<Level::LA, V>;
  static constexpr Knobs knobs = Circle::knobs;

  static Mask<V> special(Pair<V> z) { return Power::special(z.first) | Circle::special(z.second); }
  static Pair<V> lanes(Pair<V> z) { return product(Power::lanes(z.first), Circle::lanes(z.second)); }
  static Masked<Pair<V>, Mask<V>> wide(Pair<V> z) {
    const Mask<V> outside = Power::special(z.first);
    const auto circle = Circle::wide(z.second);
    return {product(Power::lanes(select(outside, V(Element<V>(0)), z.first)), circle.value),
            outside | Mask<V>(circle.special)};
  }

 private:
  static Pair<V> product(V e, Pair<V> sine_cosine) { return {e * sine_cosine.second, e * sine_cosine.first}; }
};

// cExp HA: 0.7324 ulp norm at 0x1.ce6924p+3, 0x1.d9910ep+3
template <Single V>
struct Exp<V, Level::HA> : ExpElement<V> {
  static constexpr Knobs knobs = trig::knobs_of(1);
  using Power = zym::Exp<V, Level::HA>;
  using Circle = trig::BothOf<Level::HA, V>;

  static Mask<V> special(Pair<V> z) { return Power::special(z.first) | Circle::special(z.second); }

  static Pair<V> lanes(Pair<V> z) {
    const V a = magnitude(z.second);
    const auto [t, n] = shift_round(a, V(trig::k2OverPi32));
    const Pair<V> r = trig::pair_by_halves(
        [](auto y, auto m, auto x) __attribute__((always_inline)) { return times_exp(trig::both_of_float(y, m), x); },
        a, n, z.first);
    return placed(r, t, z.second);
  }

  static Masked<Pair<V>, Mask<V>> wide(Pair<V> z) {
    using W = Wide<V>;
    const Mask<V> outside = Power::special(z.first);
    const V x = select(outside, V(Element<V>(0)), z.first);
    const V a = trig::finite_from(magnitude(z.second), 8192.0f);
    const Integer<V> rows = shift_right<23>(as_bits(a));
    const auto half = [](W angle, Index<W> row, W power) __attribute__((always_inline)) {
      const auto [t, f] = trig::reduce_large_single<2>(angle, row, W(0.0));
      return times_exp(trig::turned(trig::both(f * W(trig::kPi), trig::kPairSineHA32, trig::kPairCosineHA32), t),
                       power);
    };
    const Pair<W> low = half(widen_low(a), low_half(rows), widen_low(x));
    const Pair<W> high = half(widen_high(a), high_half(rows), widen_high(x));
    const V sine = narrow(low.first, high.first), cosine = narrow(low.second, high.second);
    return {{cosine, flip_sign(sine, z.second)}, outside | Mask<V>(not_finite(z.second))};
  }

 private:
  // e^x to 28 bits is off by 0.06 ulp of a float.
  template <Double W>
  [[gnu::always_inline]] static Pair<W> times_exp(Pair<W> c, W x) {
    const W e = zym::Exp<W, Level::EP>::lanes(x);
    return {c.first * e, c.second * e};
  }
  static Pair<V> placed(Pair<V> sine_cosine, V t, V y) {
    const Pair<V> r = trig::turned(sine_cosine, t);
    return {r.second, flip_sign(r.first, y)};
  }
};

// zExp HA: 0.7067 ulp norm at -0x1.15690ba5f8532p+5, 0x1.8e713fa79ff4p-1
template <Double V>
struct Exp<V, Level::HA> : ExpElement<V> {
  static constexpr Knobs knobs = trig::knobs_of(1);
  using Power = zym::Exp<V, Level::HA>;
  using Circle = trig::BothOf<Level::HA, V>;

  static Mask<V> special(Pair<V> z) { return Power::special(z.first) | Circle::special(z.second); }

  static Pair<V> lanes(Pair<V> z) {
    const V a = magnitude(z.second);
    const auto [t, n] = shift_round(a, V(trig::k256OverPi));
    return on_circle(power(z.first), CircleParts<V>(t, trig::reduce_by_grid(a, n)), z.second);
  }
  static Masked<Pair<V>, Mask<V>> wide(Pair<V> z) {
    const Mask<V> outside = Power::special(z.first);
    const auto [t, r] = trig::reduce_large<256>(magnitude(z.second));
    return {on_circle(power(select(outside, V(Element<V>(0)), z.first)), CircleParts<V>(t, r), z.second),
            outside | Mask<V>(not_finite(z.second))};
  }

 private:
  [[gnu::always_inline]] static HeadTail<V> power(V x) {
    const ExpParts<V> e(x);
    const V power = V(1.0);
    const V scale = scale_by_row<6>(power, e.t);
    return {e.e.head * scale, e.e.tail * scale};
  }
};

}  // namespace orvik::zym::complex
