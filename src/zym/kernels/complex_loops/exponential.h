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

// 2^k of a normal number.
inline double power_of_two(int64_t k) { return float_of<double>(static_cast<uint64_t>(k + 1023) << 52); }

// --- circular -------------------------------------------------------------------------------------------------------

// Of n pi/256 + r, n in the low bits of t; `sign` is that of the argument, |argument| was reduced.
template <class N>
[[gnu::always_inline]] inline SineCosine<N> on_grid(double t, HeadTail<double> r, double sign) {
  const trig::GridPoint<double> p(t);
  const double sine_sign = as_float(as_bits(p.sign) ^ as_bits(sign_of(sign)));
  if constexpr (std::is_same_v<N, double>) {
    const double angle = r.head + r.tail;
    const trig::GridRest<double> rest(angle);
    const double s = p.sine + fma(p.sine, rest.cosine, p.cosine * (angle + rest.sine));
    const double c = p.cosine + fma(p.cosine, rest.cosine, -p.sine * (angle + rest.sine));
    return {flip_sign(s, sine_sign), flip_sign(c, p.sign)};
  } else {
    const Long s_parts = trig::grid_sine_parts(p, r), c_parts = trig::grid_cosine_parts(p, r);
    const Long s = fast_two_sum(s_parts.head, s_parts.tail), c = fast_two_sum(c_parts.head, c_parts.tail);
    return {{flip_sign(s.head, sine_sign), flip_sign(s.tail, sine_sign)},
            {flip_sign(c.head, p.sign), flip_sign(c.tail, p.sign)}};
  }
}

// From 2^16 on the reduction is that of Payne and Hanek.
template <class N>
[[gnu::noinline, gnu::cold]] SineCosine<N> sine_cosine_of_large(double x) {
  const auto reduced = trig::reduce_finite<256>(magnitude(x));
  return on_grid<N>(reduced.t, reduced.r, x);
}

// x finite.
template <class N>
[[gnu::always_inline]] inline SineCosine<N> sine_cosine(double x) {
  const double a = magnitude(x);
  if (!(a < 65536.0)) [[unlikely]]
    return sine_cosine_of_large<N>(x);
  const auto [t, n] = shift_round(a, trig::k256OverPi);
  return on_grid<N>(t, trig::reduce_by_grid(a, n), x);
}
// Of head and tail below 2^16.
[[gnu::always_inline]] inline SineCosine<Long> sine_cosine_of(Long x) {
  const double a = magnitude(x.head);
  const auto [t, n] = shift_round(a, trig::k256OverPi);
  const HeadTail<double> r = trig::reduce_by_grid(a, n);
  return on_grid<Long>(t, two_sum(r.head, r.tail + flip_sign(x.tail, x.head)), x.head);
}
[[gnu::always_inline]] inline SineCosine<double> sine_cosine_of(double x) { return sine_cosine<double>(x); }

// --- exponential ----------------------------------------------------------------------------------------------------

// x = n ln(2)/64 + r, |x| up to 2^11.
struct ReducedExponent {
  int64_t n;
  double r, r_low;
  explicit ReducedExponent(double x) {
    const auto [t, steps] = shift_round(x, k64OverLn2);
    const double upper = fnma(steps, kLn2Over64Head, x);
    r = fnma(steps, kLn2Over64Tail, upper);
    r_low = fnma(steps, kLn2Over64Tail, upper - r);
    n = static_cast<int64_t>(bits_of(t) - bits_of(kShifter64));
  }
};

// 2^k times a number in [0.99, 2].
template <class N>
struct Exponential {
  N value;
  int64_t k;
};
// e^(x + tail).
template <class N>
[[gnu::always_inline]] inline Exponential<N> exponential(double x, double tail = 0.0) {
  const ReducedExponent e(x);
  const double* row = kExp2Frac64[e.n & 63];
  const double rest = e.r * e.r * horner(e.r, kExpElement);
  if constexpr (std::is_same_v<N, double>) {
    return {fma(row[0], e.r + rest, row[0]), e.n >> 6};
  } else {
    const double head = fma(row[0], e.r, row[0]);
    const double lost = fma(row[0], e.r, row[0] - head);
    const double low = e.r_low + tail + row[1];
    return {fast_two_sum(head, fma(row[0], fma(low, e.r, low) + rest, lost)), e.n >> 6};
  }
}

// e^(x + i y) of numbers, rounded once.
template <class N>
[[gnu::always_inline]] inline Point exponential_of_point(N x, N y) {
  Exponential<N> e;
  if constexpr (std::is_same_v<N, double>) {
    e = exponential<N>(max(min(x, 1400.0), -1400.0));
  } else {
    e = exponential<N>(max(min(x.head, 1400.0), -1400.0), x.tail);
  }
  const SineCosine<N> s = sine_cosine_of(y);
  const int64_t k = e.k >> 1;
  const double scale = power_of_two(k), rest = power_of_two(e.k - k);
  return {rounded_product(e.value, s.cosine) * scale * rest, rounded_product(e.value, s.sine) * scale * rest};
}

// --- hyperbolic -----------------------------------------------------------------------------------------------------

// cosh y and sinh y divided by the square of `scale`, a power of two, 1 but for large |y|. With a = 2^(n/64) / 2, b =
// 1/(4 a), C = cosh r, S = sinh r: cosh = (a + b) C + (a - b) S, sinh = (a - b) C + (a + b) S; for n = 0 that is S
// itself.
template <class N>
struct Hyperbolic {
  N sine, cosine;
  double scale;

  [[gnu::always_inline]] explicit Hyperbolic(double y) {
    // Beyond e^1500 every product with a sine or cosine, 2^-1074 at least, overflows.
    const ReducedExponent e(min(magnitude(y), 1500.0));
    const int64_t k = e.n >> 6;
    const int64_t above = k > 1000 ? (k - 999) / 2 : 0;
    scale = power_of_two(above);
    const double up_scale = power_of_two(k - 2 * above - 1);
    const int64_t down_k = (-e.n) >> 6;
    const double down_scale = power_of_two((down_k > -200 ? down_k : -200) - 1);
    const double* up_row = kExp2Frac64[e.n & 63];
    const double* down_row = kExp2Frac64[-e.n & 63];
    const double up = up_row[0] * up_scale, down = down_row[0] * down_scale;
    const double r = e.r, z = r * r;
    const double cubic = r * z * horner(z, kSinhRest);
    const double c = z * horner(z, kCoshRest);
    if constexpr (std::is_same_v<N, double>) {
      const double p = up + down, m = up - down;
      const double s = r + cubic;
      cosine = p + fma(p, c, m * s);
      sine = flip_sign(m + fma(m, c, p * s), y);
    } else {
      const Long p = fast_two_sum(up, down), m = fast_two_sum(up, -down);
      const double up_low = up * up_row[1], down_low = down * down_row[1];
      const double p_low = p.tail + (up_low + down_low), m_low = m.tail + (up_low - down_low);
      const double s = cubic + e.r_low;
      const auto joined = [&](double one, double one_low, double other, double other_low) __attribute__((always_inline))
                              ->Long {
        const double head = fma(other, r, one);
        const double lost = fma(other, r, one - head);
        return fast_two_sum(head, fma(other, s, one * c) + (lost + fma(other_low, r, one_low)));
      };
      cosine = joined(p.head, p_low, m.head, m_low);
      const Long upper = joined(m.head, m_low, p.head, p_low);
      sine = {flip_sign(upper.head, y), flip_sign(upper.tail, y)};
    }
  }
};

}  // namespace orvik::zym::complex_loops
