// Modified Bessel functions I of order 0 and 1. Up to 31.75 expansions from a table; above e^x / sqrt(2 pi x) times a
// polynomial in 1/x, the leading product in head and tail. Even and odd.
#pragma once

#include "orvik/zym_types.h"
#include "zym/kernels/bessel/coefficients.h"
#include "zym/kernels/bessel/rows.h"
#include "zym/kernels/explog/exp.h"
#include "zym/skeleton/family.h"

namespace orvik::zym {
namespace bessel {

template <int Order>
struct ModifiedOf;
template <>
struct ModifiedOf<0> {
  static constexpr const auto& rows64 = kI0Rows64;
  static constexpr const auto& rows32 = kI0Rows32;
  static constexpr const auto& scaled64 = kScaled0;
  static constexpr const auto& scaled32 = kScaledSingle0;
  static constexpr double first = 0.125;
  static constexpr float overflow32 = kI0Overflow32;
  static constexpr double overflow64 = kI0Overflow64;
};
template <>
struct ModifiedOf<1> {
  static constexpr const auto& rows64 = kI1Rows64;
  static constexpr const auto& rows32 = kI1Rows32;
  static constexpr const auto& scaled64 = kScaled1;
  static constexpr const auto& scaled32 = kScaledSingle1;
  static constexpr double first = -0.375;
  static constexpr float overflow32 = kI1Overflow32;
  static constexpr double overflow64 = kI1Overflow64;
};

// From kModifiedRowsEnd to the overflow bound. The exponent is added to a number above 2^-7, so that results up to the
// largest are reached though e^x itself is beyond.
template <int Order, bool Short, Double V>
[[gnu::always_inline]] inline V modified_far(V a) {
  using Of = ModifiedOf<Order>;
  const auto [t, n] = shift_round(a, V(k64OverLn2));
  const V r = fnma(n, V(kLn2Over64Tail), fnma(n, V(kLn2Over64Head), a));
  const auto row = gather(kExp2Frac64, indices(as_bits(t) & Integer<V>(int64_t{63})));
  const V u = V(1.0) / a;
  const V exponential = fma(r * r, horner(r, kExpDoubleHA), r) + row.second;  // e^r 2^(i/64) / head - 1
  if constexpr (Short) {
    const V series = u * fma(u, horner(u, Of::scaled32), V(Of::first));
    const V leading = row.first * V(kRootHalfOverPi) / sqrt(a);
    return scale_by_row<6>(fma(leading, fma(exponential, series, exponential + series), leading), t);
  } else {
    const V series = u * fma(u, horner(u, Of::scaled64), V(Of::first));
    // What the root and the quotient lack, relative to them.
    const V root = sqrt(a), inverse = V(1.0) / root;
    const V lacks = fnma(fnma(root, root, a) * V(0.5), u, fnma(root, inverse, V(1.0)));
    const HeadTail<V> constant = two_prod(inverse, V(kRootHalfOverPi));
    const HeadTail<V> leading = two_prod(row.first, constant.head);
    const V constant_tail = fma(inverse, V(kRootHalfOverPiTail), constant.tail);
    const V rest = fma(exponential, series, exponential + series) + lacks;
    return scale_by_row<6>(leading.head + fma(leading.head, rest, fma(row.first, constant_tail, leading.tail)), t);
  }
}

template <int Order, class V>
struct Modified {
  using E = Element<V>;
  using Of = ModifiedOf<Order>;
  static constexpr Knobs knobs = {.vectors = 2, .stray = kUnderflowFlag, .together = Double<V>};
  static constexpr E kOverflow = Single<V> ? E(Of::overflow32) : E(Of::overflow64);

  static auto special(V x) { return magnitude_above < Single<V> ? 0x41FDFFFFu : 0x403FBFFFu > (x); }

  static V lanes(V x) {
    const V a = magnitude(x);
    if constexpr (Single<V>) {
      const auto half = [](Wide<V> y) __attribute__((always_inline)) { return expand(Of::rows32, even_row(y), y); };
      return signed_as(narrow(half(widen_low(a)), half(widen_high(a))), x);
    } else {
      const HeadTail<V> r = expand(Of::rows64, even_row(a), a);
      return signed_as(r.head + r.tail, x);
    }
  }

  static Masked<V, Mask<V>> wide(V x) {
    const Mask<V> outside = complement(magnitude(x) <= V(kOverflow));
    const V a =
        max(select(outside, V(E(32)), magnitude(x)), V(E(kModifiedRowsEnd)));  // of no NaN: it would raise invalid
    V r;
    if constexpr (Single<V>) {
      r = narrow(modified_far<Order, true>(widen_low(a)), modified_far<Order, true>(widen_high(a)));
    } else {
      r = modified_far<Order, false>(a);
    }
    return {signed_as(r, x), outside};
  }

  // What overflows, with reports off.
  static Mask<V> repair(V x, V& r, Mask<V> mask) {
    const Mask<V> above = (magnitude(x) > V(kOverflow)) & mask;
    r = select(above, signed_as(V(infinity<E>), x), r);
    return andnot(above, mask);
  }

  static int32_t element(const E* x, E* r) {
    if (is_nan(*x)) {
      *r = *x * *x;
      return 0;
    }
    if (is_infinite(*x)) {
      *r = Order == 0 ? infinity<E> : *x;
      return 0;
    }
    const E huge = std::numeric_limits<E>::max();
    *r = opaque(huge) * (Order == 1 && *x < E(0) ? -huge : huge);
    return zymErrorOverflow;
  }

 private:
  static V signed_as(V r, V x) { return Order == 0 ? r : flip_sign(r, x); }
};

}  // namespace bessel

// sI0 HA: 0.5059 ulp at -0x1.240136p+4
// dI0 HA: 0.5371 ulp at 0x1.0fd767809c4e8p+2
template <class V, Level L>
struct I0 : bessel::Modified<0, V> {};
// sI1 HA: 0.5075 ulp at -0x1.002df8p-2
// dI1 HA: 0.5575 ulp at -0x1.a827faecad71p+3
template <class V, Level L>
struct I1 : bessel::Modified<1, V> {};

}  // namespace orvik::zym
