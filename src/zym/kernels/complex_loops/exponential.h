// e^x, and sine and cosine of both kinds, as numbers: what sin, sinh, tan and the powers are products of.
#pragma once

#include "zym/kernels/complex_loops/coefficients.h"
#include "zym/kernels/complex_loops/number.h"
#include "zym/kernels/explog/coefficients.h"
#include "zym/kernels/explog/constants.h"
#include "zym/kernels/explog/tables.h"
#include "zym/kernels/trig/reduce.h"
#include "zym/kernels/trig/sine.h"

namespace orvik::zym::complex_loops {

template <class N>
struct SineCosine {
  N sine, cosine;
};

// --- circular -------------------------------------------------------------------------------------------------------

// Of n pi/256 + r, n in the low bits of t; `sign` is that of the argument, |argument| was reduced.
template <class N, class V = Lanes<N>>
[[gnu::always_inline]] inline SineCosine<N> on_grid(V t, HeadTail<V> r, V sign) {
  const trig::GridPoint<V> p(t);
  const V sine_sign = flip_sign(p.sign, sign);
  if constexpr (kPlain<N>) {
    const V angle = r.head + r.tail;
    const trig::GridRest<V> rest(angle);
    const V s = p.sine + fma(p.sine, rest.cosine, p.cosine * (angle + rest.sine));
    const V c = p.cosine + fms(p.cosine, rest.cosine, p.sine * (angle + rest.sine));
    return {flip_sign(s, sine_sign), flip_sign(c, p.sign)};
  } else {
    const HeadTail<V> s = trig::grid_sine_parts(p, r), c = trig::grid_cosine_parts(p, r);
    return {signed_by(fast_two_sum(s.head, s.tail), sine_sign), signed_by(fast_two_sum(c.head, c.tail), p.sign)};
  }
}

// From this on the reduction is that of Payne and Hanek, for one element.
inline constexpr double kLargeAngle = 65536.0;
template <class N>
[[gnu::noinline, gnu::cold]] SineCosine<N> sine_cosine_of_large(double x) {
  const auto reduced = trig::reduce_finite<256>(magnitude(x));
  return on_grid<N>(reduced.t, reduced.r, x);
}

// x finite, of lanes not large.
template <class N, class V = Lanes<N>>
[[gnu::always_inline]] inline SineCosine<N> sine_cosine(V x) {
  const V a = magnitude(x);
  if constexpr (kAlone<N>) {
    if (!(a < kLargeAngle)) [[unlikely]]
      return sine_cosine_of_large<N>(x);
  }
  const auto [t, n] = shift_round(a, V(trig::k256OverPi));
  return on_grid<N>(t, trig::reduce_by_grid(a, n), x);
}
// Of head and tail that are not large.
template <Double V>
[[gnu::always_inline]] inline SineCosine<HeadTail<V>> sine_cosine_of(HeadTail<V> x) {
  const V a = magnitude(x.head);
  const auto [t, n] = shift_round(a, V(trig::k256OverPi));
  const HeadTail<V> r = trig::reduce_by_grid(a, n);
  return on_grid<HeadTail<V>>(t, two_sum(r.head, r.tail + flip_sign(x.tail, x.head)), x.head);
}
template <Double V>
[[gnu::always_inline]] inline SineCosine<V> sine_cosine_of(V x) {
  return sine_cosine<V>(x);
}

// --- exponential ----------------------------------------------------------------------------------------------------

// Of a sum of the shifter and n: the row n modulo 64 of the table, whose second number only those in head and tail
// read, and 2^(n / 64 - Less) rounded down, a normal number.
template <class N, class V = Lanes<N>>
[[gnu::always_inline]] inline Pair<V> exp2_row(V sum) {
  const auto row = indices(as_bits(sum) & Integer<V>(int64_t{63}));
  if constexpr (kPlain<N>) {
    return {gather_first(kExp2Frac64, row), V(0.0)};
  } else {
    return gather(kExp2Frac64, row);
  }
}
template <int Less = 0, class V>
[[gnu::always_inline]] inline V exp2_scale(V sum) {
  constexpr int64_t kUp = 4096;  // makes n positive
  const Integer<V> n = as_bits(sum) - (as_bits(V(kShifter64)) - Integer<V>(64 * kUp));
  return as_float(shift_left<52>(shift_right<6>(n) + Integer<V>(1023 - kUp - Less)));
}

// x = n ln(2)/64 + r, |x| up to 2^11.
template <class V>
struct ReducedExponent {
  V sum, n, r, r_low;
  [[gnu::always_inline]] explicit ReducedExponent(V x) {
    const auto [t, steps] = shift_round(x, V(k64OverLn2));
    const V upper = fnma(steps, V(kLn2Over64Head), x);
    r = fnma(steps, V(kLn2Over64Tail), upper);
    r_low = fnma(steps, V(kLn2Over64Tail), upper - r);
    sum = t, n = steps;
  }
};

// e^(x + tail) divided by 2^(n / 64), n in the low bits of `sum`.
template <class N>
struct Exponential {
  N value;
  Lanes<N> sum;
  int64_t power() const { return static_cast<int64_t>(bits_of(sum) - bits_of(kShifter64)) >> 6; }
};
template <class N, class V = Lanes<N>>
[[gnu::always_inline]] inline Exponential<N> exponential(V x, V tail = V(0.0)) {
  const ReducedExponent<V> e(x);
  const Pair<V> row = exp2_row<N>(e.sum);
  const V rest = e.r * e.r * horner(e.r, kExpElement);
  if constexpr (kPlain<N>) {
    return {fma(row.first, e.r + rest, row.first), e.sum};
  } else {
    const V head = fma(row.first, e.r, row.first);
    const V lost = fma(row.first, e.r, row.first - head);
    const V low = e.r_low + tail + row.second;
    return {fast_two_sum(head, fma(row.first, fma(low, e.r, low) + rest, lost)), e.sum};
  }
}

// e^(x + i y) of numbers, rounded once.
template <class N>
[[gnu::always_inline]] inline Point exponential_of_point(N x, N y) {
  Exponential<N> e;
  if constexpr (kPlain<N>) {
    e = exponential<N>(max(min(x, 1400.0), -1400.0));
  } else {
    e = exponential<N>(max(min(x.head, 1400.0), -1400.0), x.tail);
  }
  const SineCosine<N> s = sine_cosine_of(y);
  const int64_t power = e.power(), k = power >> 1;
  const double scale = power_of_two<double>(k), rest = power_of_two<double>(power - k);
  return {rounded_product(e.value, s.cosine) * scale * rest, rounded_product(e.value, s.sine) * scale * rest};
}
// The same of lanes with |x| below 700, |y| not large; with the mask of those where it is tiny.
template <class N, class V = Lanes<N>>
[[gnu::always_inline]] inline Masked<Pair<V>, Mask<V>> exponential_of_points(N x, N y) {
  Exponential<N> e;
  if constexpr (kPlain<N>) {
    e = exponential<N>(x);
  } else {
    e = exponential<N>(x.head, x.tail);
  }
  const SineCosine<N> s = sine_cosine_of(y);
  const V scale = exp2_scale(e.sum);
  const auto re = tested_product(e.value, s.cosine), im = tested_product(e.value, s.sine);
  return {{re.value * scale, im.value * scale}, re.special | im.special};
}

// --- hyperbolic -----------------------------------------------------------------------------------------------------

// cosh y and sinh y divided by the square of `scale`, a power of two, 1 but for large |y|. With a = 2^(n/64) / 2, b =
// 1/(4 a), C = cosh r, S = sinh r: cosh = (a + b) C + (a - b) S, sinh = (a - b) C + (a + b) S; for n = 0 that is S
// itself. Lanes: |y| below a bound.
inline constexpr double kLargeExponent = 690.0;
template <class N>
struct Hyperbolic {
  using V = Lanes<N>;
  N sine, cosine;
  V scale;

  [[gnu::always_inline]] explicit Hyperbolic(V y) {
    // Beyond e^1500 every product with a sine or cosine, 2^-1074 at least, overflows.
    const ReducedExponent<V> e(kAlone<N> ? min(magnitude(y), V(1500.0)) : magnitude(y));
    V up_scale = exp2_scale<1>(e.sum);
    scale = V(1.0);
    if constexpr (kAlone<N>) {
      const int64_t k = static_cast<int64_t>(bits_of(e.sum) - bits_of(kShifter64)) >> 6;
      if (k > 1000) [[unlikely]] {
        const int64_t above = (k - 999) / 2;
        scale = power_of_two<double>(above), up_scale = power_of_two<double>(k - 2 * above - 1);
      }
    }
    // Where it counts for nothing, b stays a normal number.
    const V down_sum = V(kShifter64) - min(e.n, V(64.0 * 200));
    const Pair<V> up_row = exp2_row<N>(e.sum), down_row = exp2_row<N>(down_sum);
    const V up = up_row.first * up_scale, down = down_row.first * exp2_scale<1>(down_sum);
    const V r = e.r, z = r * r;
    const V cubic = r * z * horner(z, kSinhRest);
    const V c = z * horner(z, kCoshRest);
    if constexpr (kPlain<N>) {
      const V p = up + down, m = up - down;
      const V s = r + cubic;
      cosine = p + fma(p, c, m * s);
      sine = flip_sign(m + fma(m, c, p * s), y);
    } else {
      const HeadTail<V> p = fast_two_sum(up, down), m = fast_two_sum(up, negative(down));
      const V up_low = up * up_row.second, down_low = down * down_row.second;
      const V p_low = p.tail + (up_low + down_low), m_low = m.tail + (up_low - down_low);
      const V s = cubic + e.r_low;
      const auto joined = [&](V one, V one_low, V other, V other_low) __attribute__((always_inline)) -> N {
        const V head = fma(other, r, one);
        const V lost = fma(other, r, one - head);
        return fast_two_sum(head, fma(other, s, one * c) + (lost + fma(other_low, r, one_low)));
      };
      cosine = joined(p.head, p_low, m.head, m_low);
      sine = signed_by(joined(m.head, m_low, p.head, p_low), y);
    }
  }
};

}  // namespace orvik::zym::complex_loops
