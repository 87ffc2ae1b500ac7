// Exact reduction of large arguments (Payne and Hanek 1983): u = |x|/pi modulo 2 from the bits of 1/pi that matter for
// the exponent of x, then n = u Grid rounded to an integer and the angle that is left, to a relative error of 2^-60 for
// doubles and 2^-48 for floats whatever x is: the doubles nearest to a multiple of pi/2 leave 2^-61, the floats 2^-31.
#pragma once

#include "lanes/lanes.h"
#include "zym/kernels/trig/tables.h"

namespace orvik::zym::trig {

inline constexpr double kPi = 3.141592653589793, kPiTail = 1.2246467991473532e-16;

// Magnitudes of finite numbers from a bound on; what is less, infinite or NaN gives something there is, before it
// raises a flag.
template <class V>
[[gnu::always_inline]] inline V finite_from(V a, Element<V> bound) {
  if constexpr (Single<V>) {  // magnitudes are in the order of their bits
    return as_float(larger_words(smaller_words(as_bits(a), Integer<V>(0x7F7FFFFFu)), as_bits(V(bound))));
  } else {
    return max(select(Mask<V>(not_finite(a)), V(bound), a), V(bound));
  }
}

// |x| = (n / Grid) pi + r; n in the low bits of t.
template <class V>
struct LargeReduced {
  V t;
  HeadTail<V> r;
};

// Exact product of an angle in half turns and pi.
template <class V>
[[gnu::always_inline]] inline HeadTail<V> half_turns(HeadTail<V> f) {
  const HeadTail<V> r = two_prod(f.head, V(kPi));
  return {r.head, fma(f.tail, V(kPi), fma(f.head, V(kPiTail), r.tail))};
}

// a = |x| from 2^8 on, finite. `phase` is added to u.
template <int Grid, Double V>
[[gnu::always_inline]] inline LargeReduced<V> reduce_finite(V a, V phase = V(0.0)) {
  // The upper eight bits of the exponent choose the row, the lower three stay with the mantissa.
  const Integer<V> bits = as_bits(a);
  const auto row = gather<128>(kInvPiGroups, indices(shift_right<55>(bits)));
  const V m = as_float((bits & Integer<V>(uint64_t{0x007FFFFFFFFFFFFF})) | Integer<V>(uint64_t{0x3F80000000000000}));

  // Parts of u: the first without multiples of 2, which it may exceed by 2^60.
  const HeadTail<V> p0 = two_prod(m, row.c[0]);
  const HeadTail<V> p1 = two_prod(m, row.c[1]);
  const HeadTail<V> p2 = two_prod(m, row.c[2]);
  const V even = round<Direction::nearest>(p0.head * V(0.5));
  const V u0 = (fnma(even, V(2.0), p0.head) + p0.tail) + phase;  // exact: a multiple of 2^-46 below 2^8
  const HeadTail<V> u = two_sum(u0, p1.head);
  const auto [t, n] = shift_round(u.head, V(1.0), V(kShifter64 / Grid));
  // What is left, each sum exact but the last.
  const HeadTail<V> f1 = two_sum(u.head - n, u.tail + p1.tail);
  const HeadTail<V> f2 = two_sum(f1.head, p2.head);
  const V rest = (f1.tail + f2.tail) + fma(m, row.c[3], p2.tail);
  return {t, half_turns(fast_two_sum(f2.head, rest))};
}

// Smaller ones, infinities and NaNs give something finite.
template <int Grid, Double V>
[[gnu::always_inline]] inline LargeReduced<V> reduce_large(V a, V phase = V(0.0)) {
  return reduce_finite<Grid>(finite_from(a, 256.0), phase);
}

// Doubles that hold floats, from 2^13 on. The angle left is in half turns, n in the low bits of t.
template <class V>
struct LargeReducedSingle {
  V t, f;
};
template <int Grid, Double V, class I>
[[gnu::always_inline]] inline LargeReducedSingle<V> reduce_large_single(V a, I rows, V phase) {
  const auto row = gather<140>(kInvPiSingle, indices(rows));
  const V p0 = fma(a, row.c[0], phase);  // exact
  const auto [t, n] = shift_round(fma(a, row.c[1], p0), V(1.0), V(kShifter64 / Grid));
  const V f = fma(a, row.c[1], p0 - n);  // exact, but where it is not small
  return {t, fma(a, row.c[2], f)};
}

// A function of reduced doubles over the halves of large floats a = |x|; its result may be a Pair.
template <int Grid, Single V, class F>
[[gnu::always_inline]] inline auto over_large(V a, double phase, F function) {
  a = finite_from(a, 8192.0f);
  const Integer<V> rows = shift_right<23>(as_bits(a));
  const auto half = [&](Wide<V> x, Index<Wide<V>> i) {
    return function(reduce_large_single<Grid>(x, i, Wide<V>(phase)));
  };
  const auto low = half(widen_low(a), low_half(rows));
  const auto high = half(widen_high(a), high_half(rows));
  if constexpr (requires { low.first; }) {
    return Pair<V>{narrow(low.first, high.first), narrow(low.second, high.second)};
  } else {
    return narrow(low, high);
  }
}

}  // namespace orvik::zym::trig
