// The tails of erfc and of the normal distribution function, which is erfc(-x / sqrt(2)) / 2. On the other side of 0 the
// result is 2 (or 1) less the tail at |x|. With z = |x| or |x| / sqrt(2):
//   floats at LA and EP: e^(-z^2) q(z);
//   doubles, and floats at HA: from the nearest r = i/128, with e = r - z and y = (r + z) e = r^2 - z^2,
//     erfc(z) = erfc(r) e^y (1 + B1 e + B2 e^2 + ...),  B1 = -q'/q at r, B2 = 1 - r B1, Bn+1 = 2/(n + 1) (Bn-1 - r Bn),
//     the series of q, since q' = 2 z q - 2/sqrt(pi);
//   doubles beyond 10 in the second tier, and denormal results one at a time: e^(-z^2) q(z) in head and tail.
#pragma once

#include "orvik/zym_types.h"
#include "zym/kernels/error/scaled.h"
#include "zym/kernels/shared/halves.h"
#include "zym/skeleton/family.h"

namespace orvik::zym::error {

// Where lanes end: floats where results become 0, doubles at the end of the table. The second tier of doubles ends where
// results are still far from denormal, so that parts of them do not underflow.
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
  static constexpr uint32_t last_word = high_word(Normal ? 14.2 : 10.05) - 1;
  static constexpr double wide = Normal ? 36.3 : 25.7;
  static constexpr double zero = Normal ? 38.6 : 27.3;  // a little above where results round to 0
  static constexpr bool is_zero(double a) { return a > zero; }
};

// Smaller arguments count as this one, so that squares and their parts do not underflow.
template <class V>
V not_tiny(V a) {
  return max(a, V(Element<V>(Single<V> ? 0x1p-30f : 0x1p-100)));
}
// -z^2 and what it lacks.
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

// Constants by name: the compiler leaves inexact quotients in code to the processor.
inline constexpr double kThird = 1.0 / 3, kTwoThirds = 2.0 / 3;

// --- by steps -------------------------------------------------------------------------------------------------------

template <Double V>
struct Step {
  V r, e;
  decltype(row_indices(Integer<V>())) index;
  V erfc, b1;

  [[gnu::always_inline]] explicit Step(V z) : Step(z, z + V(kShifter64 / 128)) {}

 private:
  [[gnu::always_inline]] Step(V z, V sum)
      : r(sum - V(kShifter64 / 128)), e(r - z), index(row_indices(as_bits(sum) & Integer<V>(uint64_t{2047}))) {
    const auto row = gather(kErfcSteps, index);
    erfc = row.first;
    b1 = row.second;
  }
};

// erfc(z) to 30 bits.
template <Double V>
[[gnu::always_inline]] inline V short_tail(V z) {
  const Step<V> s(z);
  const V b2 = fnma(s.r, s.b1, V(1.0));
  const V b3 = V(kTwoThirds) * fnma(s.r, b2, s.b1);
  const V y = (s.r + z) * s.e;
  const V growth = fma(y * y, horner(y, kStepDecayShort), y);
  const V series = s.e * horner(s.e, b3, b2, s.b1);
  const V first = fma(s.erfc, series, s.erfc);
  return fma(first, growth, first);
}

// erfc(z) as a sum; at LA all is in the head.
template <Level L, Double V>
[[gnu::always_inline]] inline HeadTail<V> tail_by_steps(HeadTail<V> z) {
  Step<V> s(z.head);
  s.e = s.e - z.tail;
  const V b2 = fnma(s.r, s.b1, V(1.0));
  const V b3 = V(kTwoThirds) * fnma(s.r, b2, s.b1);
  if constexpr (L != Level::HA) {
    // B6 is B4 / 3 for small r, where it counts, and e^6 like 0.87 e^4 / 2^16 within 0.1 / 2^48.
    const V b4 = V(0.5 * (1 + 0.29 * 0x1p-16)) * fnma(s.r, b3, b2);
    const V b5 = V(0.4) * fnma(s.r, b4, b3);
    const V series = s.e * horner(s.e, b5, b4, b3, b2, s.b1);
    const V y = (s.r + z.head) * s.e;
    const V growth = fma(y * y, horner(y, kStepDecay), y);
    const V first = fma(s.erfc, series, s.erfc);
    return {fma(first, growth, first), V(0.0)};
  } else {
    const V b4 = V(0.5) * fnma(s.r, b3, b2);
    const V b5 = V(0.4) * fnma(s.r, b4, b3);
    const V b6 = V(kThird) * fnma(s.r, b5, b4);
    const V series = s.e * horner(s.e, b6, b5, b4, b3, b2, s.b1);
    // erfc (1 + y) with its rounding error, and the rest, which is less than 1/100 of it.
    const HeadTail<V> sum = fast_two_sum(s.r + s.r, V(0.0) - s.e);
    const V y = sum.head * s.e;
    const V y_low = fma(sum.tail, s.e, fms(sum.head, s.e, y));
    const V more = y * y * horner(y, kStepDecay);
    const V rest = fma(series, y + more, series) + (more + y_low);
    const V head = fma(s.erfc, y, s.erfc);
    const V lost = fma(s.erfc, y, s.erfc - head);
    const V low = gather(kErfcStepTails, s.index);
    return {head, fma(s.erfc, rest, fma(low, y, low) + lost)};
  }
}

// --- by the scaled function -----------------------------------------------------------------------------------------

// erfc(z) 2^power.
template <bool Normal, Double V>
[[gnu::always_inline]] inline HeadTail<V> far_tail(V a, int power) {
  const HeadTail<V> z = scaled_argument<Normal>(a);
  const Exponential<V> e(exponent_of<Normal>(a), power);
  const Scaled<V> q(z.head, z.tail);
  const HeadTail<V> product = two_prod(e.scale, q.head);
  return {product.head, fma(e.scale, fma(q.head, e.rest, fma(q.rest, e.rest, q.rest)), product.tail)};
}

// A result that may be denormal, rounded once.
template <bool Normal>
double denormal_tail(double a) {
  constexpr int kUp = 200;  // computed 2^200 too high
  const HeadTail<double> value = far_tail<Normal>(a, Normal ? kUp - 1 : kUp);
  constexpr double kGrid = 0x1.8p-822;  // the least denormal number times 1.5 * 2^52, 2^200 too high
  const double head = value.head < 0x1p-822 ? value.head + kGrid - kGrid : value.head;
  const double tail = (value.head - head) + value.tail;
  return std::fabs(std::fma(0x1p-200, tail, 0x1p-200 * head));  // +0 where denormals are flushed
}

// --- the functions --------------------------------------------------------------------------------------------------

template <bool Normal, Level L, class V>
struct TailFloat {
  static constexpr Knobs knobs = {.vectors = 2};
  using Bounds = TailBounds<float, Normal>;

  static V lanes(V x) {
    const Mask<V> other = Normal ? x > V(0.0f) : x < V(0.0f);
    const V a = not_tiny(magnitude(x));
    const V whole = keep(other, V(Normal ? 1.0f : 2.0f));
    const V sign = keep(other, sign_mask<V>());
    if constexpr (L == Level::HA) {
      return by_halves(
          [](auto b, auto w, auto s) __attribute__((always_inline)) {
            using W = decltype(b);
            return fma(short_tail(Normal ? b * W(kInverseRoot2) : b), W(Normal ? 0.5 : 1.0) ^ s, w);
          },
          a, whole, sign);
    } else {
      HeadTail<V> y;
      if constexpr (L == Level::EP) y = {a * (a * V(Normal ? -0.5f : -1.0f)), V(0.0f)};
      if constexpr (L != Level::EP) y = exponent_of<Normal>(a);
      constexpr int kUp = 64;
      const DecaySingle<L, V> decay(y, Normal ? kUp - 1 : kUp);
      V tail = decay.fraction * scaled<L>(a, Normal ? kErfcxScaleNormal : kErfcxScale) * decay.scale;
      // The bits of EP leave more than half a unit where the other side has become whole.
      if constexpr (L == Level::EP) tail = keep(Normal ? x <= V(Bounds::last_open) : x >= V(-Bounds::last_open), tail);
      return fma(tail, V(0x1p-64f) ^ sign, whole);  // rounds once, also to denormal numbers
    }
  }

  // The other side, whatever its argument.
  static Masked<V, Mask<V>> wide(V x) {
    return {V(Normal ? 1.0f : 2.0f), complement(Normal ? x > V(0.0f) : x < V(0.0f))};
  }
};

template <bool Normal, Level L, class V>
struct TailDouble {
  static constexpr Knobs knobs = {.vectors = L == Level::HA ? 1 : 2};
  using Bounds = TailBounds<double, Normal>;

  static V lanes(V x) {
    // As integers, which leaves the arithmetic units alone. -0 counts as negative, which is no matter.
    const Integer<V> zero(uint64_t{0});
    const Mask<V> other = Normal ? greater_signed(as_bits(x), zero) : greater_signed(zero, as_bits(x));
    const V a = not_tiny(magnitude(x));
    const V whole = keep(other, V(Normal ? 1.0 : 2.0));
    const V factor = V(Normal ? 0.5 : 1.0) ^ keep(other, sign_mask<V>());
    if constexpr (L == Level::EP) return fma(short_tail(Normal ? a * V(kInverseRoot2) : a), factor, whole);
    if constexpr (L != Level::EP) {
      const HeadTail<V> tail = tail_by_steps<L>(scaled_argument<Normal>(a));
      if constexpr (L == Level::LA) return fma(tail.head, factor, whole);
      const HeadTail<V> sum = fast_two_sum(whole, tail.head * factor);
      return sum.head + fma(tail.tail, factor, sum.tail);
    }
  }

  // Both sides; a tail that may underflow is left.
  static Masked<V, Mask<V>> wide(V x) {
    const Mask<V> other = Normal ? x > V(0.0) : x < V(0.0);
    const V bound = V(Bounds::wide);
    const V a = magnitude(x);
    const Mask<V> near = a < bound;
    const HeadTail<V> tail = far_tail<Normal>(select(near, a, bound), Normal ? -1 : 0);
    return {select(other, V(Normal ? 1.0 : 2.0), tail.head + tail.tail), complement(other | near)};
  }
};

template <bool Normal, Level L, class V>
struct Tail : std::conditional_t<Single<V>, TailFloat<Normal, L, V>, TailDouble<Normal, L, V>> {
  using E = Element<V>;
  using Bounds = TailBounds<E, Normal>;

  static auto special(V x) { return magnitude_above<Bounds::last_word>(x); }

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
};

}  // namespace orvik::zym::error
