// J and Y of order 0 and 1 for large arguments: amplitude sqrt(2/(pi x)) (1 + v M(v)) times the sine of
// x + steps pi/256 + P(v)/x, v = 1/x^2 (Hankel 1869; Watson 1944, 13.75). The angle is reduced exactly and carried in
// head and tail, and so is the amplitude: the error is a little more than half an ulp of the larger factor's product.
#pragma once

#include "zym/kernels/bessel/coefficients.h"
#include "zym/kernels/bessel/rows.h"
#include "zym/kernels/trig/reduce.h"
#include "zym/kernels/trig/sin.h"
#include "zym/kernels/trig/sine.h"

namespace orvik::zym::bessel {

// x - (2 order + 1) pi/4, for J a quarter turn further, in half turns.
template <int Order, bool Second>
inline constexpr double kTurn = (Second ? -0.25 : 0.25) - 0.5 * Order;

template <int Order>
struct FarOf;
template <>
struct FarOf<0> {
  static constexpr const auto& modulus = kModulus0;
  static constexpr const auto& phase = kPhase0;
  static constexpr const auto& modulus_single = kModulusSingle0;
  static constexpr const auto& phase_single = kPhaseSingle0;
};
template <>
struct FarOf<1> {
  static constexpr const auto& modulus = kModulus1;
  static constexpr const auto& phase = kPhase1;
  static constexpr const auto& modulus_single = kModulusSingle1;
  static constexpr const auto& phase_single = kPhaseSingle1;
};

// --- 64 bits --------------------------------------------------------------------------------------------------------

// |x| + Turn half turns = n pi/256 + r; n in the low bits of t. By steps below 2^16, which is less work.
template <Double V>
[[gnu::always_inline]] inline trig::LargeReduced<V> reduce_far(V a, double turn) {
  constexpr double kSteps = 0x1p16;
  const V near = min(a, V(kSteps));
  const auto [t, n] = shift_round(near, V(trig::k256OverPi), V(kShifter64 + 256 * turn));
  trig::LargeReduced<V> reduced{t, trig::reduce_by_grid(near, n)};
  const Mask<V> large = a >= V(kSteps);
  if (!none(large)) {
    const auto exact = trig::reduce_large<256>(a, V(turn));
    reduced = {select(large, exact.t, reduced.t),
               {select(large, exact.r.head, reduced.r.head), select(large, exact.r.tail, reduced.r.tail)}};
  }
  return reduced;
}

// The amplitude of order 0 or 1 at large a, u = 1/a as far as its square counts.
template <int Order, Double V>
[[gnu::always_inline]] inline HeadTail<V> amplitude(V a, V u) {
  // What the root and the reciprocal lack, relative to them.
  const V root = sqrt(a), inverse = V(1.0) / root;
  const V v = u * u;
  const V lacks = fnma(fnma(root, root, a) * inverse, V(0.5) * inverse, fnma(root, inverse, V(1.0)));
  const V more = fma(v, horner(v, FarOf<Order>::modulus), lacks);
  const HeadTail<V> leading = two_prod(inverse, V(kRootTwoOverPi));
  return {leading.head, fma(leading.head, more, fma(inverse, V(kRootTwoOverPiTail), leading.tail))};
}

// The value at a = |x| from kRowsEnd on, finite.
template <int Order, bool Second, Double V>
[[gnu::always_inline]] inline HeadTail<V> far_value(V a) {
  const V u = V(1.0) / min(a, V(0x1p500));  // its square is no denormal number, and nothing beside 1
  auto [t, r] = reduce_far(a, kTurn<Order, Second>);
  const HeadTail<V> angle = two_sum(r.head, u * horner(u * u, FarOf<Order>::phase));
  r = {angle.head, angle.tail + r.tail};

  // Sum of the grid's angle and what is left, as in grid_sine_parts, not added up.
  const trig::GridPoint<V> p(t);
  const V z = r.head * r.head;
  const V sine_rest = fma(r.head * z, horner(z, kAngleSine), r.tail);
  const V cosine_rest = z * horner(z, kAngleCosine);
  const V head = fma(p.cosine, r.head, p.sine);
  const V lost = fma(p.cosine, r.head, p.sine - head);
  const V tail = fma(p.sine, cosine_rest, fma(p.cosine, sine_rest, fma(p.cosine_tail, r.head, p.sine_tail + lost)));

  const HeadTail<V> size = amplitude<Order>(a, u);
  const HeadTail<V> leading = two_prod(size.head, head);
  const V rest = fma(size.head + size.tail, tail, fma(size.tail, head, leading.tail));
  return {flip_sign(leading.head, p.sign), flip_sign(rest, p.sign)};
}

// --- 32 bits, in 64-bit arithmetic ----------------------------------------------------------------------------------

template <int Order, bool Second, Double V, class I>
[[gnu::always_inline]] inline V far_single(V a, I rows) {
  constexpr double kTurnOf = kTurn<Order, Second>;
  constexpr double kFirstLarge = 0x1p13;
  const V near = min(a, V(kFirstLarge));
  auto [t, n] = shift_round(near + V(kTurnOf * trig::kPi), V(0.3183098861837907));
  n = n - V(kTurnOf);
  V r = fnma(n, V(trig::kPiTail), fnma(n, V(trig::kPi), near));
  const Mask<V> large = a >= V(kFirstLarge);
  if (!none(large)) {
    const auto exact = trig::reduce_large_single<1>(max(a, V(kFirstLarge)), rows, V(kTurnOf));
    t = select(large, exact.t, t);
    r = select(large, exact.f * V(trig::kPi), r);
  }
  const V u = V(1.0) / a, v = u * u;
  const V sine = trig::odd_sum(fma(u, horner(v, FarOf<Order>::phase_single), r), kAngleSingle);
  const V size = V(kRootTwoOverPi) / sqrt(a);
  return trig::flip_odd(fma(size, v * horner(v, FarOf<Order>::modulus_single), size) * sine, t);
}

// The halves of floats a = |x|; what is less than the first of them or not finite gives something there is.
template <int Order, bool Second, Single V>
[[gnu::always_inline]] inline V far_single(V a) {
  const Integer<V> rows = larger_words(shift_right<23>(as_bits(a)), Integer<V>(140u));
  return narrow(far_single<Order, Second>(widen_low(a), low_half(rows)),
                far_single<Order, Second>(widen_high(a), high_half(rows)));
}

}  // namespace orvik::zym::bessel
