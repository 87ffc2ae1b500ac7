// gamma(x). Polynomials about the multiples of 1/4 from -43 to 35: of gamma itself from 1 on, below of its reciprocal
// without the nearest pole, so that no argument has another path than its neighbours: poles and small arguments are a
// division by the exact distance. Doubles beyond them take Stirling's formula as a power of 2, and its reflection.
#pragma once

#include "zym/kernels/gamma/element.h"
#include "zym/kernels/gamma/rows.h"
#include "zym/kernels/power/pow.h"
#include "zym/kernels/trig/sine.h"
#include "zym/kernels/trig/units.h"
#include "zym/skeleton/family.h"

namespace orvik::zym {

template <class V, Level L>
struct TGamma;

// --- 32 bits --------------------------------------------------------------------------------------------------------

// sTGamma HA: 0.5136 ulp at 0x1.1fece4p+0
template <Single V, Level L>
struct TGamma<V, L> {
  static constexpr Knobs knobs = {.vectors = 2};

  // Denormals, zeros, below -43, from 35.04 on.
  static Mask<V> special(V x) {
    return (x >= V(gamma::Bounds<float>::overflow)) | outside_magnitude<0x00800000u, 0x422C0000u>(x);
  }
  static auto lanes(V x) {
    const Mask<V> pole = sign_decides(x) & (round<Direction::nearest>(x) == x);
    return Masked{gamma::in_doubles(
                      [](auto y) __attribute__((always_inline)) { return of_doubles(y); }, x),
                  pole};
  }
  static int32_t element(const float* px, float* r) {
    int32_t code;
    if (!gamma::tgamma_special(*px, r, &code)) {
      *r = static_cast<float>(first_lane(of_doubles(F64(static_cast<double>(*px)))));
    }
    return code;
  }

 private:
  template <Double W>
  [[gnu::always_inline]] static W of_doubles(W x) {
    const gamma::Place<W> p(x);
    const W v = gamma::Row<W>(p.n - W(kGammaFirst)).template value<8>(p.rest);
    const W den = p.distance * v;
    const W divisor = select(p.low, select(den == W(0.0), W(1.0), den), W(1.0));
    return select(p.low, W(1.0), v) / divisor;
  }
};

// --- 64 bits --------------------------------------------------------------------------------------------------------

namespace gamma {

// sin(pi g), 0 < g <= 1/2.
template <Double V>
HeadTail<V> sine_of_half_turns(V g) {
  const auto [t, n] = shift_round(g, V(256.0));
  const V w = fnma(n, V(1.0 / 256), g);
  HeadTail<V> r = two_prod(w, V(trig::Turns::kRadians));
  r.tail = fma(w, V(trig::Turns::kRadiansTail), r.tail);
  const HeadTail<V> sine = trig::grid_sine_parts(trig::GridPoint<V>(t), r);
  return fast_two_sum(sine.head, sine.tail);
}

// gamma(x) for |x| = a beyond the rows: a power of 2 for x > 0,
//   log2(gamma(a)) = (a - 1/2) log2(a) - a log2(e) + log2(2 pi)/2 + s(1/a) log2(e),
// and pi / (sin(pi a) a gamma(a)) with its sign for x < 0, where a is no integer.
template <Double V>
V beyond_rows(V a, V x) {
  const Mask<V> negative = sign_decides(x);
  const HeadTail<V> log = log2_in_two<V, Level::HA>(a);
  const V half = copy_sign(V(0.5), x);
  const V factor = a - half, factor_tail = (a - factor) - half;
  const HeadTail<V> product = two_prod(factor, log.head);
  const HeadTail<V> linear = two_prod(a, V(-kLog2E64));
  const HeadTail<V> sum = two_sum(product.head, linear.head);
  const V products_tail =
      fma(factor, log.tail, fma(factor_tail, log.head, product.tail)) + fma(a, V(-kLog2ETail64), linear.tail);
  const V correction = Row<V>(V(kStirlingRow - kGammaFirst)).increment(V(1.0) / a);
  const V tail = fma(correction, V(kLog2E64), sum.tail + products_tail);

  const HeadTail<V> t = two_sum(flip_sign(sum.head, x), select(negative, V(kLog2OfReflected), V(kLog2OfHalfRoot)));
  const V t_tail = t.tail + (flip_sign(tail, x) + select(negative, V(kLog2OfReflectedTail), V(kLog2OfHalfRootTail)));
  const V shifter = kShifter64 / 16;
  const V shifted = (t.head + t_tail) + shifter;
  const V f = (t.head - (shifted - shifter)) + t_tail;
  const auto sixteenth = exp2_of_16(shifted);
  const Integer<V> exponent_bits =
      shift_left<48>(as_bits(shifted)) & Integer<V>(Format<V>::sign_bit | Format<V>::exponent_field);
  const V row = as_float(as_bits(sixteenth.head) - exponent_bits);
  const V power_rest = exp2_less_1(f, sixteenth.tail);
  const V y = fma(row, power_rest, row);
  const V positive = as_float(as_bits(y) + exponent_bits);
  if (none(negative)) return positive;

  const V y_tail = fma(row, power_rest, row - y);
  const HeadTail<V> sine = sine_of_half_turns(select(negative, magnitude(a - round<Direction::nearest>(a)), V(0.5)));
  const V q = y / sine.head;
  const V rest = fnma(q, sine.head, y) + fnma(q, sine.tail, y_tail);
  // In two steps, of which the second alone rounds where the result is denormal.
  const Integer<V> exponent = select(negative, exponent_bits, Integer<V>(uint64_t{0}));
  const V scaled = (q + rest / sine.head) * as_float(exponent + as_bits(V(0x1p600))) * V(0x1p-600);
  const V whole = round<Direction::down>(a) + V(kShifter64);
  return select(negative, trig::flip_odd(scaled, whole) ^ sign_mask<V>(), positive);
}

// Also below 2^-100, where powers of the argument would underflow: the reciprocal.
template <Double V>
struct TGammaDouble {
  static constexpr Knobs knobs = {.vectors = 2};

  static auto special(V x) { return outside_magnitude<0x39B00000u, 0x40417FFFu>(x); }

  static Masked<V, Mask<V>> wide(V x) {
    using B = Bounds<double>;
    const V a = magnitude(x);
    const Mask<V> tiny = (a > V(kGammaOverflowTiny<double>)) & (a < V(1.0));
    const Mask<V> large = (a > V(1.0)) & (x < V(B::overflow)) & (x >= V(B::underflow)) &
                          complement(sign_decides(x) & (round<Direction::nearest>(a) == a));
    const V reciprocal = V(1.0) / select(tiny, x, V(1.0));
    return {select(large, beyond_rows(select(large, a, V(100.5)), x), reciprocal), complement(tiny | large)};
  }

  static int32_t element(const double* px, double* r) {
    int32_t code = 0;
    tgamma_special(*px, r, &code);
    return code;
  }
};

}  // namespace gamma

// dTGamma HA: 0.6959 ulp at -0x1.553d70a3d70a1p+7
template <Double V>
struct TGamma<V, Level::HA> : gamma::TGammaDouble<V> {
  static auto lanes(V x) {
    const gamma::Place<V> p(x);
    const HeadTail<V> v = gamma::Row<V>(p.n - V(kGammaFirst)).head_tail(p.rest);
    const V head = p.distance * v.head;
    const V tail = fma(p.distance, v.tail, fms(p.distance, v.head, head));
    const Mask<V> pole = p.distance == V(0.0);
    const V divisor = select(p.low, select(pole, V(1.0), head), V(1.0));
    const V q = V(1.0) / divisor;
    const V reciprocal = fma(q, fnma(q, tail, fnma(q, divisor, V(1.0))), q);
    return Masked{select(p.low, reciprocal, v.head + v.tail), pole};
  }
};

// dTGamma LA: 2.9755 ulp at -0x1.d4033210addf2p+3
template <Double V, Level L>
struct TGamma<V, L> : gamma::TGammaDouble<V> {
  static auto lanes(V x) {
    const gamma::Place<V> p(x);
    const V v = gamma::Row<V>(p.n - V(kGammaFirst)).template value<gamma::kRest>(p.rest);
    const Mask<V> pole = p.distance == V(0.0);
    const V divisor = select(p.low, select(pole, V(1.0), p.distance * v), V(1.0));
    return Masked{select(p.low, V(1.0), v) / divisor, pole};
  }
};

}  // namespace orvik::zym
