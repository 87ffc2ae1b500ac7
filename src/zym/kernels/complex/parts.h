// What the complex families share: tests of both parts of an element, reports, powers of two.
#pragma once

#include <cmath>

#include "lanes/lanes.h"
#include "orvik/zym_types.h"
#include "zym/skeleton/family.h"
#include "zym/skeleton/signature.h"

namespace orvik::zym::complex {

// --- lanes ----------------------------------------------------------------------------------------------------------

template <class V>
auto not_finite(Pair<V> z) {
  return orvik::not_finite(z.first) | orvik::not_finite(z.second);
}
using orvik::not_finite;

// The larger magnitude of both parts by its bits, so that no NaN is lost; in 64 bits the high words count.
template <class V>
Integer<V> larger_part(Pair<V> z) {
  return larger_words(as_bits(magnitude(z.first)), as_bits(magnitude(z.second)));
}
// The larger magnitude is outside 2^-Range .. 2^Range.
template <int Range, class V>
Mask<V> far_from_1(Pair<V> z) {
  constexpr int kBias = Format<V>::bias, kShift = Single<V> ? 23 : 20;
  constexpr uint32_t kFirst = static_cast<uint32_t>(kBias - Range) << kShift,
                     kLast = (static_cast<uint32_t>(kBias + Range) << kShift) - 1;
  constexpr uint32_t kMove = 0x80000000u - kFirst;
  return Mask<V>(Above<V, static_cast<int32_t>(kLast + kMove)>{add_to_words(larger_part(z), kMove)});
}
template <class V>
Mask<V> zero(Pair<V> z) {
  return (z.first == V(Element<V>(0))) & (z.second == V(Element<V>(0)));
}
template <class V>
Pair<V> select(Mask<V> mask, Pair<V> yes, Pair<V> no) {
  return {orvik::select(mask, yes.first, no.first), orvik::select(mask, yes.second, no.second)};
}
using orvik::select;

// 2^-(e + 1) of a positive normal number 2^e m, 1 <= m < 2, below 2^(bias - 2): what brings it below 1, so that the
// difference of its bits and those of 0, where the arc tangent takes a quotient from it, is no NaN's.
template <class V>
V inverse_scale(V x) {
  using I = Integer<V>;
  return as_float(I(Bits<V>(2 * Format<V>::bias - 1) << Format<V>::mantissa_bits) -
                  (as_bits(x) & I(Format<V>::exponent_field)));
}

// Numbers with the larger part brought to 1/2 .. 1 by their scale, a power of two. Left, and 1, are 0, infinities, NaNs,
// what is next to the ends of the range, and parts that are far from each other but not 0.
template <class V>
struct BroughtNear {
  using E = Element<V>;
  static constexpr E kApart = Single<V> ? E(0x1p-38) : E(0x1p-400);
  Pair<V> z;
  V scale;
  Mask<V> left;

  [[gnu::always_inline]] explicit BroughtNear(Pair<V> a) {
    const V zero = V(E(0)), one = V(E(1));
    const Mask<V> limit = not_finite(a);  // a maximum with a NaN would be invalid
    const V x = magnitude(select(limit, one, a.first)), y = magnitude(select(limit, one, a.second));
    const V larger = max(x, y), smaller = min(x, y), apart = larger * V(kApart);
    const V low = V(E(Single<V> ? 0x1p-120 : 0x1p-1010)), high = V(E(Single<V> ? 0x1p120 : 0x1p1010));
    const Mask<V> close = (larger >= low) & (larger <= high) & ((smaller == zero) | (smaller >= apart));
    left = limit | complement(close);
    scale = inverse_scale(select(left, one, larger));
    z = {select(left, one, a.first) * scale, select(left, one, a.second) * scale};
  }
};

// A function of 64-bit lanes over the halves of complex floats; further vectors come widened beside them.
template <class F, Single V, class... More>
[[gnu::always_inline]] inline Pair<V> by_halves(F function, Pair<V> z, More... more) {
  using W = Wide<V>;
  const Pair<W> low = function(Pair<W>{widen_low(z.first), widen_low(z.second)}, widen_low(more)...);
  const Pair<W> high = function(Pair<W>{widen_high(z.first), widen_high(z.second)}, widen_high(more)...);
  return {narrow(low.first, high.first), narrow(low.second, high.second)};
}

// p + q of two parts each, with what the sum loses; not normalised.
template <class V>
[[gnu::always_inline]] inline HeadTail<V> sum_of_parts(HeadTail<V> p, HeadTail<V> q) {
  const HeadTail<V> s = two_sum(p.head, q.head);
  return {s.head, s.tail + (p.tail + q.tail)};
}
template <class V>
[[gnu::always_inline]] inline HeadTail<V> negative(HeadTail<V> p) {
  return {p.head ^ sign_mask<V>(), p.tail ^ sign_mask<V>()};
}
template <>
[[gnu::always_inline]] inline HeadTail<double> negative(HeadTail<double> p) {
  return {-p.head, -p.tail};
}

// --- elements -------------------------------------------------------------------------------------------------------

template <class C>
using PartOf = decltype(C::re);

template <class C>
bool finite(const C& z) {
  return std::isfinite(z.re) && std::isfinite(z.im);
}
template <class C>
bool infinite(const C& z) {
  return is_infinite(z.re) || is_infinite(z.im);
}
template <class C>
bool zero(const C& z) {
  return z.re == 0 && z.im == 0;
}

// An infinite part that comes of finite operands.
template <class C>
int32_t overflow_code(const C& a, const C& b, const C& r) {
  return infinite(r) && finite(a) && finite(b) ? zymErrorOverflow : 0;
}

// 1 for an infinity, else 0, with the sign: what infinite operands count as.
template <class E>
E boxed(E x) {
  return std::copysign(is_infinite(x) ? E(1) : E(0), x);
}

// 1 for a finite number that is not 0, with its sign: beside infinities and NaNs no more of it counts.
template <class E>
E sign_alone(E x) {
  return std::isfinite(x) && x != 0 ? std::copysign(E(1), x) : x;
}

// The exponent of the larger part of a finite number that is not 0.
inline int exponent(const ZymComplexDouble& z) { return exponent_of(max(magnitude(z.re), magnitude(z.im))); }
inline ZymComplexDouble scaled(const ZymComplexDouble& z, int e) {
  return {times_two_to(z.re, e), times_two_to(z.im, e)};
}

// (head + tail) 2^e, rounded once also where it is denormal.
inline double rounded(HeadTail<double> unordered, int e) {
  const HeadTail<double> m = two_sum(unordered.head, unordered.tail);
  if (m.head == 0 || exponent_of(m.head) + e >= -1022 || e < -1200) {
    return times_two_to(unordered.tail == 0 ? unordered.head : m.head, e);  // zeros with their sign
  }
  // To multiples of the least number by a sum; what that leaves, with the tail, may be more than half of one.
  const double unit = times_two_to(1.0, -1074 - e), shifter = std::copysign(0x1p52 * unit, m.head);
  const double multiple = (m.head + shifter) - shifter;
  const double rest = (m.head - multiple) + m.tail;
  const double more = rest > unit / 2 ? unit : rest < -unit / 2 ? -unit : 0;
  return std::copysign(times_two_to(multiple + more, e), m.head);
}

// a c + b d of any finite numbers as (head + tail) 2^e, e at least -6000: neither product leaves the range.
struct FarSum {
  HeadTail<double> m;
  int e;
};
inline FarSum far_sum(double a, double c, double b, double d) {
  const auto product = [](double x, double y) {
    if (x == 0 || y == 0) return FarSum{{x * y, 0}, -6000};
    const int ex = exponent_of(x), ey = exponent_of(y);
    return FarSum{two_prod(times_two_to(x, -ex), times_two_to(y, -ey)), ex + ey};
  };
  const FarSum p = product(a, c), q = product(b, d);
  const int e = p.e > q.e ? p.e : q.e;
  const auto aligned = [e](const FarSum& x) {  // further below it is a sign alone
    const int shift = x.e - e > -300 ? x.e - e : -300;
    return HeadTail<double>{times_two_to(x.m.head, shift), times_two_to(x.m.tail, shift)};
  };
  return {sum_of_parts(aligned(p), aligned(q)), e};
}

template <class C>
ZymComplexDouble widen(const C& z) {
  return {z.re, z.im};
}

}  // namespace orvik::zym::complex
