// Quotients of complex numbers, (a + b i) / (c + d i) = ((a c + b d) + (b c - a d) i) / (c^2 + d^2). Floats in 64-bit
// arithmetic, at the lowest level in their own where neither squares nor products leave the range; doubles with the
// divisor and the dividend near 1, at the highest level numerators and the divisor's norm in two parts.
#pragma once

#include "zym/kernels/complex/mul.h"
#include "zym/kernels/complex/parts.h"
#include "zym/skeleton/family.h"

namespace orvik::zym::complex {

template <class V>
[[gnu::always_inline]] inline Pair<V> plain_quotient(Pair<V> x, Pair<V> y) {
  const auto [a, b] = x;
  const auto [c, d] = y;
  const V inverse = V(Element<V>(1)) / fma(c, c, d * d);
  return {fma(a, c, b * d) * inverse, fms(b, c, a * d) * inverse};
}

// n / d of two parts each, `inverse` that of the head of d.
template <class V>
[[gnu::always_inline]] inline HeadTail<V> careful_ratio(HeadTail<V> n, HeadTail<V> d, V inverse) {
  const V q = n.head * inverse;
  return {q, (fnma(q, d.head, n.head) + fnma(q, d.tail, n.tail)) * inverse};
}

// Every part within 0.51 ulp of itself, unless its numerator cancels.
template <class V>
[[gnu::always_inline]] inline Pair<V> careful_quotient(Pair<V> x, Pair<V> y) {
  const auto [a, b] = x;
  const auto [c, d] = y;
  const HeadTail<V> norm = sum_of_parts(two_square(c), two_square(d));
  const V inverse = V(Element<V>(1)) / norm.head;
  const HeadTail<V> re = careful_ratio(sum_of_parts(two_prod(a, c), two_prod(b, d)), norm, inverse);
  const HeadTail<V> im = careful_ratio(sum_of_parts(two_prod(b, c), negative(two_prod(a, d))), norm, inverse);
  return {re.head + re.tail, im.head + im.tail};
}

// The magnitudes of the larger parts are within 2^-Range .. 2^Range, as all that the lanes compute then is; a dividend
// of 0 may be.
template <int Range, class V>
Mask<V> far_from_1(Pair<V> x, Pair<V> y) {
  return far_from_1<Range>(y) | andnot(zero(x), far_from_1<Range>(x));
}

template <class E>
struct DivElement {
  using C = Complex<E>;

  static int32_t element(const C* px, const C* py, C* r) {
    const C x = *px, y = *py;
    if (zero(y)) {
      // By an infinity with the sign of the divisor's real part; (0, 0) / (0, 0) is NaN.
      const E inf = std::copysign(infinity<E>, y.re);
      *r = {opaque(x.re) * inf, opaque(x.im) * inf};
      return 0;
    } else if (finite(x) && finite(y)) {
      *r = finite_quotient(x, y);
    } else if (infinite(x) && finite(y)) {
      const E a = boxed(x.re), b = boxed(x.im);
      *r = {infinity<E> * opaque(fma(a, y.re, b * y.im)), infinity<E> * opaque(fms(b, y.re, a * y.im))};
    } else if (infinite(y) && finite(x)) {
      const E c = boxed(y.re) / 2, d = boxed(y.im) / 2;  // halves: the sums stay finite
      *r = {E(0) * opaque(fma(x.re, c, x.im * d)), E(0) * opaque(fms(x.im, c, x.re * d))};
    } else {  // NaN in both parts; infinities by infinities are invalid
      const E a = sign_alone(x.re), b = sign_alone(x.im), c = sign_alone(y.re), d = sign_alone(y.im);
      const E sum = a * c + b * d + (b * c - a * d);
      *r = {sum - sum, sum - sum};
    }
    return overflow_code(x, y, *r);
  }

 private:
  static ZymComplexFloat finite_quotient(ZymComplexFloat x, ZymComplexFloat y) {
    const Pair<double> q = plain_quotient(Pair<double>{x.re, x.im}, Pair<double>{y.re, y.im});
    return {static_cast<float>(q.first), static_cast<float>(q.second)};
  }
  static ZymComplexDouble finite_quotient(ZymComplexDouble x, ZymComplexDouble y) {
    const FarSum norm = far_sum(y.re, y.re, y.im, y.im);
    const auto ratio = [&](const FarSum& n) {
      return rounded(careful_ratio(n.m, norm.m, 1 / norm.m.head), n.e - norm.e);
    };
    return {ratio(far_sum(x.re, y.re, x.im, y.im)), ratio(far_sum(x.im, y.re, -x.re, y.im))};
  }
};

template <class V, Level L>
struct Div;

// cDiv HA: 0.7072 ulp norm at -0x0p+0, 0x1.7a6ap-131, -0x1p+3, -0x1p+3
template <Single V>
struct Div<V, Level::HA> : DivElement<float> {
  static constexpr Knobs knobs = {.vectors = 1, .together = false};
  static Mask<V> special(Pair<V> x, Pair<V> y) { return not_finite(x) | not_finite(y) | zero(y); }
  static auto lanes(Pair<V> x, Pair<V> y) {
    const Pair<V> r = by_halves(
        [](auto u, auto c, auto d) __attribute__((always_inline)) {
          return plain_quotient(u, decltype(u){c, d});
        },
        x, y.first, y.second);
    return Masked{r, not_finite(r)};
  }
};

// cDiv EP: 21.92 bits norm at -0x1.fd6eb8p+0, -0x1.0f3d2p-20, -0x1.08ace6p-3, 0x1.13ac4p+2
template <Single V>
struct Div<V, Level::EP> : DivElement<float> {
  static constexpr Knobs knobs = {.vectors = 2, .stray = kUnderflowFlag};
  static Mask<V> special(Pair<V> x, Pair<V> y) { return far_from_1<30>(x, y); }
  static Pair<V> lanes(Pair<V> x, Pair<V> y) {
    const auto [a, b] = x;
    const auto [c, d] = y;
    const V norm = fma(c, c, d * d);
    const V estimate = reciprocal_estimate(norm);
    const V inverse = fma(estimate, fnma(norm, estimate, V(1.0f)), estimate);
    return {fma(a, c, b * d) * inverse, fms(b, c, a * d) * inverse};
  }
  static Masked<Pair<V>, Mask<V>> wide(Pair<V> x, Pair<V> y) {
    const Pair<V> one = {V(1.0f), V(1.0f)};
    const Mask<V> limit = Div<V, Level::HA>::special(x, y);
    const auto r = Div<V, Level::HA>::lanes(select(limit, one, x), select(limit, one, y));
    return {r.value, limit | r.special};
  }
};

// zDiv LA: 2.2757 ulp norm at 0x1.79a928615017p+0, 0x1.730e47f871adp+1, 0x1.79a928615016dp+0, 0x1.730e47f871ad1p+1
// zDiv HA: 0.7069 ulp norm at 0x0p+0, 0x0.00000000005bp-1022, -0x1.81359ef44c858p+2, 0x1.a41201fc25bd8p+2
// zDiv EP: 50.98 bits norm at 0x1.2184b858466c8p+1, 0x1.8fb248578df1cp+2, 0x1.02d2db5ffcep-1, 0x1.745867ba96812p+2
template <Double V, Level L>
struct Div<V, L> : DivElement<double> {
  static constexpr Knobs knobs = {.vectors = L == Level::HA ? 1 : 2, .stray = kUnderflowFlag};
  static Mask<V> special(Pair<V> x, Pair<V> y) { return far_from_1<300>(x, y); }
  static Pair<V> lanes(Pair<V> x, Pair<V> y) {
    if constexpr (L == Level::HA) {
      return careful_quotient(x, y);
    } else if constexpr (L == Level::LA) {
      // Numerators within 2 u of the norm, the rest within half an ulp: 3 ulp at most.
      const auto [a, b] = x;
      const auto [c, d] = y;
      const HeadTail<V> norm = sum_of_parts(two_square(c), two_square(d));
      const V inverse = V(1.0) / norm.head;
      const V re = fma(a, c, b * d), im = fms(b, c, a * d), u = re * inverse, v = im * inverse;
      return {fma(fnma(u, norm.tail, fnma(u, norm.head, re)), inverse, u),
              fma(fnma(v, norm.tail, fnma(v, norm.head, im)), inverse, v)};
    } else {
      return plain_quotient(x, y);
    }
  }
  // At every level in the steps of the element routine, powers of two aside. Left are operands too far from each other
  // and results that are denormal or nearly so.
  static Masked<Pair<V>, Mask<V>> wide(Pair<V> x, Pair<V> y) {
    const V far = V(0x1p-960), least = V(0x1p-1000), zero = V(0.0), one = V(1.0);
    const BroughtNear<V> a(x), b(y);
    const Mask<V> left = a.left | b.left | complement((a.scale >= b.scale * far) & (b.scale >= a.scale * far));
    const V up = select(left, one, b.scale) / select(left, one, a.scale);
    const Pair<V> q = careful_quotient(a.z, b.z);
    const Pair<V> r = {q.first * up, q.second * up};
    const auto tiny = [=](V part) { return andnot(part == zero, magnitude(part) < least); };
    return {r, left | tiny(r.first) | tiny(r.second)};
  }
};

}  // namespace orvik::zym::complex
