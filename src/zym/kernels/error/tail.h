// The tails of erfc and of the normal distribution function, which is erfc(-x / sqrt(2)) / 2:
//   e^y q(z), y = -x^2 and z = |x|, or y = -x^2 / 2 - ln(2) and z = |x| / sqrt(2),
// with x^2 and z in head and tail. On the other side of 0 the result is 2 (or 1) less the tail at |x|.
#pragma once

#include "orvik/zym_types.h"
#include "zym/kernels/error/scaled.h"
#include "zym/kernels/shared/halves.h"
#include "zym/skeleton/family.h"

namespace orvik::zym::error {

// Results are computed by lanes up to a magnitude, where those of doubles are still far from denormal, so that parts of
// them do not underflow. From `zero` on the result is 0.
template <class E, bool Normal>
struct TailBounds;
template <bool Normal>
struct TailBounds<float, Normal> {
  static constexpr double zero = Normal ? 14.170185 : 10.054194928818097;
  // The other side is 2, or 1, from here on.
  static constexpr double whole = Normal ? 5.419983 : 3.832506856900711;
  static constexpr bool is_zero(float a) { return Normal ? a > zero : a >= zero; }
  static constexpr bool is_whole(float a) { return Normal ? a > whole : a >= whole; }
  // The last float that is not, by its bits.
  template <class Test>
  static constexpr uint32_t last_before(double bound, Test test) {
    uint32_t bits = std::bit_cast<uint32_t>(static_cast<float>(bound)) + 1;
    while (test(std::bit_cast<float>(bits))) --bits;
    return bits;
  }
  static constexpr uint32_t last_word = last_before(zero, is_zero);
  static constexpr float last_open = std::bit_cast<float>(last_before(whole, is_whole));
};
template <bool Normal>
struct TailBounds<double, Normal> {
  static constexpr double zero = Normal ? 38.6 : 27.3;  // a little above where results round to 0
  static constexpr bool is_zero(double a) { return a > zero; }
  static constexpr uint32_t last_word = high_word(Normal ? 36.3 : 25.7) - 1;
};

// Smaller arguments count as this one, so that squares and their parts do not underflow.
template <class V>
V not_tiny(V a) {
  return max(a, V(Element<V>(Single<V> ? 0x1p-30f : 0x1p-100)));
}
// y, without the ln(2).
template <bool Normal, class V>
[[gnu::always_inline]] inline HeadTail<V> exponent_of(V a) {
  return two_prod(a, a * V(Element<V>(Normal ? -0.5 : -1)));
}
// z and what it lacks.
template <bool Normal, Double V>
[[gnu::always_inline]] inline HeadTail<V> scaled_argument(V a) {
  if constexpr (!Normal) return {a, V(0.0)};
  const HeadTail<V> z = two_prod(a, V(kInverseRoot2));
  return {z.head, fma(a, V(kInverseRoot2Tail), z.tail)};
}

// To 29 bits, a positive; |x| up to the lanes' bound.
template <bool Normal, Double V>
[[gnu::always_inline]] inline V short_tail(V a) {
  const V y = a * (a * V(Normal ? -0.5 : -1.0));
  return exponential_short(y, Normal ? -1 : 0) * scaled_short(Normal ? a * V(kInverseRoot2) : a);
}
template <Double V>
[[gnu::always_inline]] inline V low_tail(const Exponential<V>& e, const Scaled<V>& q) {
  return fma(e.scale, e.rest, e.scale) * (q.head + q.rest);
}
template <Double V>
[[gnu::always_inline]] inline HeadTail<V> high_tail(const Exponential<V>& e, const Scaled<V>& q) {
  const HeadTail<V> product = two_prod(e.scale, q.head);
  return {product.head, fma(e.scale, fma(q.head, e.rest, fma(q.rest, e.rest, q.rest)), product.tail)};
}

// A result that may be denormal, rounded once; a from the lanes' bound on.
template <bool Normal>
double denormal_tail(double a) {
  constexpr int kUp = 200;  // computed 2^200 too high
  const HeadTail<double> z = scaled_argument<Normal>(a);
  const HeadTail<double> value =
      high_tail(Exponential<double>(exponent_of<Normal>(a), kUp - (Normal ? 1 : 0)), Scaled<double>(z.head, z.tail));
  constexpr double kGrid = 0x1.8p-822;  // 2^52 times the least denormal number, 2^200 too high, and half as much
  const double head = value.head < 0x1p-822 ? value.head + kGrid - kGrid : value.head;
  const double tail = (value.head - head) + value.tail;
  return std::fma(0x1p-200, tail, 0x1p-200 * head);
}

template <bool Normal, Level L, class V>
struct Tail {
  using E = Element<V>;
  using Bounds = TailBounds<E, Normal>;
  static constexpr Knobs knobs = {.vectors = Double<V> && L != Level::EP ? 1 : Single<V> && L != Level::HA ? 4 : 2};

  static auto special(V x) { return magnitude_above<Bounds::last_word>(x); }

  static V lanes(V x) {
    const Mask<V> other = Normal ? x > V(E(0)) : x < V(E(0));
    const V a = not_tiny(magnitude(x));
    const V whole = keep(other, V(kWhole));
    const V sign = keep(other, sign_mask<V>());
    if constexpr (Single<V> && L != Level::HA) {
      HeadTail<V> y;
      if constexpr (L == Level::EP) y = {a * (a * V(Normal ? -0.5f : -1.0f)), V(0.0f)};
      if constexpr (L != Level::EP) y = exponent_of<Normal>(a);
      constexpr int kUp = 64;
      const DecaySingle<L, V> e(y, Normal ? kUp - 1 : kUp);
      const V tail = e.fraction * scaled<L>(a, Normal ? kErfcxScaleNormal : kErfcxScale) * e.scale;
      const V open = Normal ? keep(x <= V(Bounds::last_open), tail) : keep(x >= V(-Bounds::last_open), tail);
      return fma(open, V(0x1p-64f) ^ sign, whole);  // rounds once, also to denormal numbers
    } else if constexpr (Single<V>) {
      return by_halves(
          [](auto b, auto w, auto s) __attribute__((always_inline)) { return w + (short_tail<Normal>(b) ^ s); }, a,
          whole, sign);
    } else if constexpr (L == Level::EP) {
      return whole + (short_tail<Normal>(a) ^ sign);
    } else {
      const HeadTail<V> z = scaled_argument<Normal>(a);
      const Exponential<V> e(exponent_of<Normal>(a), Normal ? -1 : 0);
      const Scaled<V> q(z.head, z.tail);
      if constexpr (L == Level::LA) {
        return whole + (low_tail(e, q) ^ sign);
      } else {
        const HeadTail<V> tail = high_tail(e, q);
        const HeadTail<V> sum = fast_two_sum(whole, tail.head ^ sign);
        return sum.head + (sum.tail + (tail.tail ^ sign));
      }
    }
  }

  // The other side, whatever its argument.
  static Masked<V, Mask<V>> wide(V x) {
    return {V(kWhole), complement(Normal ? x > V(E(0)) : x < V(E(0)))};
  }

  static int32_t element(const E* px, E* r) {
    const E x = *px;
    if (is_nan(x)) {
      *r = x * x;
      return 0;
    }
    if (is_infinite(x)) {
      *r = E(0);
      return 0;
    }
    const E a = magnitude(x);
    if constexpr (Double<V>) {
      if (!Bounds::is_zero(a)) {
        *r = denormal_tail<Normal>(a);
        return *r == 0 ? zymErrorUnderflow : 0;
      }
    }
    *r = opaque(std::numeric_limits<E>::min()) * std::numeric_limits<E>::min();  // raises underflow
    return zymErrorUnderflow;
  }

  static Mask<V> repair(V x, V& r, Mask<V> mask) {
    const Mask<V> below = magnitude(x) > V(E(Single<V> ? 15 : 39));
    r = drop(below & mask, r);
    return andnot(below, mask);
  }

 private:
  static constexpr E kWhole = Normal ? 1 : 2;
};

}  // namespace orvik::zym::error
