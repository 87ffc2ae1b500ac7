// Products of complex numbers, (a + b i) (c + d i) and (a + b i) (c - d i). The highest level adds what products and
// sums lose (Dekker 1971; Knuth 1997): each part is then rounded once. The others round the product of one pair first,
// an error of the norm below 2 u (Jeannerod, Kornerup, Louvet, Muller 2017).
#pragma once

#include "lanes/magnitudes.h"
#include "zym/kernels/complex/parts.h"
#include "zym/skeleton/family.h"

namespace orvik::zym::complex {

// a c - b d and a c + b d: the sum of the first product, rounded, and the second, exact, with what the sum and the
// first product lose. Where the terms do not cancel it is rounded once; where they do, one of them is off by half its
// ulp at most, a quarter of the norm's, since the other part of the product is then twice as large. What is lost is
// subtracted, so that a zero keeps the sign that the plain operations give it.
template <class V>
[[gnu::always_inline]] inline V difference_of_products(V a, V c, V b, V d) {
  const V p = a * c, s = fnma(b, d, p);
  const V q_part = p - s, p_part = s + q_part;
  return s - (fnma(a, c, p_part) - fnma(b, d, q_part));
}
template <class V>
[[gnu::always_inline]] inline V sum_of_products(V a, V c, V b, V d) {
  const V p = a * c, s = fma(b, d, p);
  const V q_part = s - p, p_part = s - q_part;
  return s - (fnma(a, c, p_part) + fnma(b, d, q_part));
}

// Conjugate: of the second factor.
template <bool Conjugate, Level L, class V>
[[gnu::always_inline]] inline Pair<V> product(Pair<V> x, Pair<V> y) {
  const auto [a, b] = x;
  const auto [c, d] = y;
  if constexpr (L == Level::HA) {
    if constexpr (Conjugate) return {sum_of_products(a, c, b, d), difference_of_products(b, c, a, d)};
    return {difference_of_products(a, c, b, d), sum_of_products(a, d, b, c)};
  } else {
    if constexpr (Conjugate) return {fma(a, c, b * d), fms(b, c, a * d)};
    return {fms(a, c, b * d), fma(a, d, b * c)};
  }
}

template <bool Conjugate, class V, Level L>
struct ProductOf {
  using E = Element<V>;
  using C = Complex<E>;
  // Tails of products may underflow where the result does not.
  static constexpr Knobs knobs = {.vectors = L == Level::HA ? 1 : 2,
                                  .stray = (L == Level::HA ? kUnderflowFlag : 0) | kSevereFlags,
                                  .together = L == Level::HA};

  static auto lanes(Pair<V> x, Pair<V> y) {
    const Pair<V> r = product<Conjugate, L>(x, y);
    if constexpr (L == Level::HA) {
      // What is infinite on the way is a NaN in the end. Below half the bound the tails of products are no longer
      // exact, also with denormals flushed.
      const V sum = magnitude(r.first) + magnitude(r.second);
      return Masked{r, small_or_nan(sum, V(E(Single<V> ? 0x1p-97 : 0x1p-963)))};
    } else {
      return Masked{r, not_finite(r)};
    }
  }

  static int32_t element(const C* px, const C* py, C* r) {
    const C x = *px;
    const C y = Conjugate ? C{py->re, -py->im} : *py;
    *r = finite(x) && finite(y) ? finite_product(x, y) : limit_product(x, y);
    return overflow_code(x, y, *r);
  }

 private:
  static C finite_product(C x, C y) {
    if constexpr (std::is_same_v<E, float>) {
      // Products of floats are exact in 64 bits.
      const double a = x.re, b = x.im, c = y.re, d = y.im;
      return {static_cast<float>(fms(a, c, b * d)), static_cast<float>(fma(a, d, b * c))};
    } else {
      const FarSum re = far_sum(x.re, y.re, -x.im, y.im), im = far_sum(x.re, y.im, x.im, y.re);
      return {rounded(re.m, re.e), rounded(im.m, im.e)};
    }
  }

  // C99 Annex G: where both parts are NaNs, an infinite operand still gives infinities, unless the other is 0. Of
  // finite parts only the sign counts, and whether they are 0.
  static C limit_product(C x, C y) {
    const C a = {sign_alone(x.re), sign_alone(x.im)}, b = {sign_alone(y.re), sign_alone(y.im)};
    const C r = formula(a, b);
    if (!is_nan(r.re) || !is_nan(r.im) || (!infinite(x) && !infinite(y))) return r;
    const auto counted = [](C z) {
      if (infinite(z)) return C{boxed(z.re), boxed(z.im)};
      return C{is_nan(z.re) ? std::copysign(E(0), z.re) : z.re, is_nan(z.im) ? std::copysign(E(0), z.im) : z.im};
    };
    const C w = formula(counted(a), counted(b));
    return {infinity<E> * opaque(w.re), infinity<E> * opaque(w.im)};
  }
  static C formula(C x, C y) { return {fms(x.re, y.re, x.im * y.im), fma(x.re, y.im, x.im * y.re)}; }
};

// cMul HA: 0.7072 ulp norm at -0x1p-149, -0x1p-149, -0x1p+0, -0x1.8p+0
// cMul EP: 22.61 bits norm at -0x1.0b78p-133, -0x1.daap-136, 0x1.fba644p+2, -0x1.34fc4p-3
// zMul HA: 0.7072 ulp norm at -0x0.0000000000001p-1022, -0x0.0000000000001p-1022, -0x1p+0, -0x1.8p+0
// zMul EP: 51.62 bits norm at -0x0.0000220e61e21p-1022, -0x0.0139fa2a78f07p-1022, -0x1.1a9c947d82b5p-1, -0x1.887bc6058a84fp-10
// -0x1.887bc6058a84fp-10
template <class V, Level L>
struct Mul : ProductOf<false, V, L> {};
// cMulByConj LA: 1.3466 ulp norm at 0x1.f738p-136, -0x1p-149, -0x1.bf2036p+1, 0x1.8aaaeep+0
// cMulByConj HA: 0.7072 ulp norm at -0x1p-149, -0x1p-149, -0x1p+0, -0x1.8p+0
// cMulByConj EP: 22.57 bits norm at 0x1.f738p-136, -0x1p-149, -0x1.bf2036p+1, 0x1.8aaaeep+0
// zMulByConj HA: 0.7072 ulp norm at -0x0.0000000000001p-1022, -0x0.0000000000001p-1022, -0x1p+0, -0x1.8p+0
// zMulByConj EP: 51.58 bits norm at -0x0.00000c5801afep-1022, -0x0.000001bea289cp-1022, 0x1.a66bb2911634p-26, -0x1.27fc7d40d98a1p-30
// -0x1.27fc7d40d98a1p-30
template <class V, Level L>
struct MulByConj : ProductOf<true, V, L> {};

}  // namespace orvik::zym::complex
