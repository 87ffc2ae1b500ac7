// ln z = ln |z| + i arg z. ln |z| is half the logarithm of x^2 + y^2, which is held in two parts, so that nothing is
// lost where |z| is near 1; the lower part joins the logarithm's own reduced argument. Floats in 64-bit arithmetic.
#pragma once

#include "zym/kernels/complex/angle.h"
#include "zym/kernels/complex/parts.h"
#include "zym/kernels/explog/octave.h"
#include "zym/kernels/shared/flags.h"
#include "zym/skeleton/family.h"

namespace orvik::zym::complex {

// x^2 + y^2, normalised.
template <Double V>
[[gnu::always_inline]] inline HeadTail<V> squares(V x, V y) {
  const V ax = magnitude(x), ay = magnitude(y);
  const HeadTail<V> p = two_square(max(ax, ay)), q = two_square(min(ax, ay));
  const HeadTail<V> s = fast_two_sum(p.head, q.head);
  return fast_two_sum(s.head, s.tail + (p.tail + q.tail));
}

// ln(s) / 2 of s between 2^-900 and 2^900, whose exponent is `added` less.
template <Level L, Double V>
[[gnu::always_inline]] inline V half_logarithm(HeadTail<V> s, V added) {
  const OctaveKey<V> k(s.head);
  const auto at = k.at();
  const auto row = octave_pair<BaseE::Octave<double>::rows, V>(k, at);
  const V r = fms(row.first, k.m(), V(1.0));
  const V rest = k.scaled(row.first) * s.tail;
  if constexpr (L == Level::HA) {
    const HeadTail<V> sum = octave_sum<BaseE>(k.e() + added, at, r, fnma(rest, r, rest));
    return V(0.5) * (sum.head + fma(r * horner(r, kLnOctaveHA64), r, sum.tail));
  } else {
    V slope;
    if constexpr (L == Level::EP) {
      slope = octave_slope<BaseE>(r, kLnOctaveEP64);
    } else {
      slope = octave_slope<BaseE>(r, kLnOctaveLA64);
    }
    return V(0.5) * fma(r, slope, octave_log<BaseE>(k.centred_e() + added, row.second) + rest);
  }
}

// Of floats: products of doubles are exact, and the polynomial of the lowest level has 31 bits.
template <Single V>
[[gnu::always_inline]] inline V log_magnitude(Pair<V> z) {
  const auto half = [](auto x, auto y) __attribute__((always_inline)) {
    using W = decltype(x);
    const W p = x * x, q = y * y;
    return half_logarithm<Level::EP>(two_sum(p, q), W(0.0));
  };
  return narrow(half(widen_low(z.first), widen_low(z.second)), half(widen_high(z.first), widen_high(z.second)));
}

template <class E>
struct LnElement {
  using C = Complex<E>;

  static int32_t element(const C* pz, C* r) {
    const uint32_t before = read_control();
    const C z = {opaque(pz->re), opaque(pz->im)};  // nothing is computed before
    Atan2<VectorOf<E>, Level::HA>::element(&z.im, &z.re, &r->im);
    r->re = real_part(z);
    // Of squares and quotients, unless a part is denormal itself.
    const auto tiny = [](E part) { return magnitude_bits(part) < FloatBits<E>::min_normal; };
    if (!tiny(r->re) && (z.im == 0 || !tiny(r->im))) take_back_underflow(before);
    return 0;
  }

 private:
  static E real_part(const C& z) {
    if (infinite(z)) return infinity<E>;
    if (!finite(z)) return z.re + z.im;
    if (zero(z)) return E(-1) / opaque(E(0));
    const ZymComplexDouble w = widen(z);
    const int e = exponent(w);
    const bool far = e < -400 || e > 400;
    const ZymComplexDouble u = far ? scaled(w, -e) : w;
    return static_cast<E>(
        first_lane(half_logarithm<Level::HA>(squares(F64(u.re), F64(u.im)), F64(far ? 2.0 * e : 0.0))));
  }
};

template <class V, Level L>
struct Ln;

// cLn LA: 1.9427 ulp norm at 0x1.3fc31ap+0, 0x1.c6fd16p-2
// cLn HA: 0.7094 ulp norm at -0x1.ff381cp-9, 0x1.6dcab8p+1
// cLn EP: 14.79 bits norm at 0x1.eee8ap-1, -0x1.065ea8p-2
template <Single V, Level L>
struct Ln<V, L> : LnElement<float> {
  static constexpr Knobs knobs = {.vectors = 1, .stray = kUnderflowFlag, .together = false};
  static auto special(Pair<V> z) { return Atan2<V, L>::special(z.second, z.first); }
  static Pair<V> lanes(Pair<V> z) { return {log_magnitude(z), Atan2<V, L>::lanes(z.second, z.first)}; }
  static Masked<Pair<V>, Mask<V>> wide(Pair<V> z) {
    const auto angle = wide_angle<L>(z);
    const Pair<V> one = {V(1.0f), V(0.0f)};
    return {{log_magnitude(select(angle.special, one, z)), angle.value}, angle.special};
  }
};

// zLn LA: 1.7676 ulp norm at 0x1.08111b9350b6p+0, 0x1.91a055bf76d1p-25
// zLn HA: 0.7057 ulp norm at 0x1.dfcf80b4c6f98p-11, 0x1.75276225863b4p+1
// zLn EP: 28.06 bits norm at 0x1.069bda5d24b9p+0, -0x1.a8e6266883217p-21
template <Double V, Level L>
struct Ln<V, L> : LnElement<double> {
  static constexpr Knobs knobs = {.vectors = 1, .stray = kUnderflowFlag};
  static auto special(Pair<V> z) { return Atan2<V, L>::special(z.second, z.first); }
  static Pair<V> lanes(Pair<V> z) {
    return {half_logarithm<L>(squares(z.first, z.second), V(0.0)), Atan2<V, L>::lanes(z.second, z.first)};
  }
  // The larger part between 2^-400 and 2^400.
  static Masked<Pair<V>, Mask<V>> wide(Pair<V> z) {
    const auto angle = wide_angle<L>(z);
    const Pair<V> one = {V(1.0), V(0.0)};
    const Pair<V> u = select(angle.special, one, z);
    const V larger = max(magnitude(u.first), magnitude(u.second));
    const Mask<V> far = (larger < V(0x1p-400)) | (larger > V(0x1p400));
    const Pair<V> v = select(far, one, u);
    return {{half_logarithm<L>(squares(v.first, v.second), V(0.0)), angle.value}, angle.special | far};
  }
};

}  // namespace orvik::zym::complex
