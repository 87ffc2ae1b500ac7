// Y of order 0 and 1 for small arguments, by their series (Watson 1944, 3.51), z = x^2/4:
//   pi/2 Y0 = (ln(x/2) + gamma) J0 + z - 3/8 z^2 + 11/216 z^3 ...
//   pi/2 Y1 = -1/x + (ln(x/2) + gamma) J1 - x/2 (1/2 - 5/8 z + 5/36 z^2 ...).
#pragma once

#include "zym/kernels/bessel/coefficients.h"
#include "zym/kernels/explog/octave.h"

namespace orvik::zym::bessel {

// ln(x/2) + gamma within 2^-62; the exponent of x is `added` less.
template <Double V>
[[gnu::always_inline]] inline HeadTail<V> logarithm_part(V x, double added = 0.0) {
  const HeadTail<V> log = ln_head_tail<Exponents>(x, added);
  const HeadTail<V> sum = two_sum(log.head, V(kGammaLessLn2));
  return fast_two_sum(sum.head, sum.tail + (log.tail + V(kGammaLessLn2Tail)));
}

template <Double V>
[[gnu::always_inline]] inline HeadTail<V> times_two_over_pi(V head, V tail) {
  const HeadTail<V> p = two_prod(head, V(kTwoOverPi));
  return {p.head, fma(tail, V(kTwoOverPi), fma(head, V(kTwoOverPiTail), p.tail))};
}

template <int Order, Double V>
[[gnu::always_inline]] inline HeadTail<V> second_near_zero(V x) {
  const V root = max(x, V(0x1p-500));  // whose square is no denormal number
  const V z = root * root * V(0.25);
  const HeadTail<V> log = logarithm_part(x);
  if constexpr (Order == 0) {
    const V j_less_1 = z * horner(z, V(kSeriesJ0[0]), V(kSeriesJ0[1]), V(kSeriesJ0[2]), V(-1.0));
    const V rest = z * horner(z, kSeriesY0);
    return times_two_over_pi(log.head, fma(log.head, j_less_1, log.tail + rest));
  } else {
    const V inverse = V(1.0) / x;
    const V lacks = fnma(inverse, x, V(1.0)) * inverse;
    const V rest = V(0.5) * x * fms(log.head, horner(z, kSeriesJ1), horner(z, kSeriesY1));
    return times_two_over_pi(V(0.0) - inverse, rest - lacks);
  }
}

// One element below 2^-1000.
template <int Order>
inline double second_of_tiny(double x) {
  if constexpr (Order == 0) {
    const HeadTail<F64> log = logarithm_part(F64(x * 0x1p54), 54.0);
    const HeadTail<F64> r = times_two_over_pi(log.head, log.tail);
    return first_lane(r.head + r.tail);
  } else {
    const double scaled = x * 0x1p600;
    const HeadTail<double> q = divide(kTwoOverPi, scaled);
    return opaque(-(q.head + (q.tail + kTwoOverPiTail / scaled))) * 0x1p600;
  }
}

}  // namespace orvik::zym::bessel
