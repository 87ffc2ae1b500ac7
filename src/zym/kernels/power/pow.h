// x^y = 2^(y log2 x) for positive normal x and y of ordinary size; all else, and results next to the ends of the
// format, takes the element routine. That one alone tells Pow from Powr. Powx is Pow with one exponent for all.
//
// The logarithms near 1 keep their relative precision, and have more of it than the format where the level needs that:
// an error of log2(x) counts as many times as the result has exponents.
#pragma once

#include "lanes/clamp.h"
#include "zym/kernels/explog/exp.h"
#include "zym/kernels/explog/exp2_sixteenths.h"
#include "zym/kernels/explog/ln.h"
#include "zym/kernels/explog/octave.h"
#include "zym/kernels/explog/tables.h"
#include "zym/kernels/power/coefficients.h"
#include "zym/kernels/power/element.h"
#include "zym/kernels/power/tables.h"
#include "zym/kernels/shared/halves.h"
#include "zym/skeleton/family.h"

namespace orvik::zym {

template <class V, Level L>
struct Pow;
// sPowr LA: 2.8819 ulp at 0x1.e93fe4p-1, -0x1.d4a0c4p+10
// sPowr HA: 0.5051 ulp at 0x1.0011acp+0, 0x1.3fbf6p+18
// sPowr EP: 12.54 bits at 0x1.c6b36cp-1, 0x1.68a284p+9
// dPowr LA: 1.2926 ulp at 0x1.ff9638d28a12cp-1, 0x1.a052e7086d03ep+19
// dPowr HA: 0.5333 ulp at 0x1.ff8f0ab21a07cp-1, 0x1.89cece4280f78p+19
// dPowr EP: 32.89 bits at 0x1.ff7fa491cd8f8p-1, -0x1.5ddce2e5f84a7p+19
template <class V, Level L>
struct Powr : Pow<V, L> {
  static int32_t element(const Element<V>* x, const Element<V>* y, Element<V>* r) {
    return power_element<false>(x, y, r);
  }
};
// sPowx LA: 1.2872 ulp at 0x1.26c788p+6, -0x1p+0
// sPowx HA: 0.5021 ulp at -0x1.e4671p-23, 0x1p+1
// sPowx EP: 12.63 bits at 0x1.35c078p+6, 0x1.4p+4
// dPowx LA: 1.0225 ulp at 0x1.fbf17c1a6d0b2p+3, 0x1.4p+1
// dPowx HA: 0.5041 ulp at 0x1.0f1636c5eac3p+5, 0x1.4p+1
// dPowx EP: 37.38 bits at 0x1.002p+0, -0x1.e848p+19
template <class V, Level L>
struct Powx : Pow<V, L> {};

// --- 32 bits --------------------------------------------------------------------------------------------------------

// Plain: x from 2^-126 to 2^125 (beyond, the estimate of the reciprocal may be 0), |y| from 2^-40 to 2^86 (no product
// over- or underflows). Both ranges are of one length when the sign of y has left by a shift, so that one comparison
// serves.
template <Single V>
struct PowSingle {
  static auto special(V x, V y) {
    return outside<0x00800000u, 0x7DFFFFFFu>(x) | outside_magnitude<0x2B800000u, 0x6A3FFFFFu>(y);
  }
  static int32_t element(const float* x, const float* y, float* r) { return power_element<true>(x, y, r); }
};

// The steps of Ln at LA and of Exp at EP.
// sPow EP: 12.54 bits at 0x1.c6b36cp-1, 0x1.68a284p+9
template <Single V>
struct Pow<V, Level::EP> : PowSingle<V> {
  static auto lanes(V x, V y) {
    const CentredSingle<V> c(x);
    const V p = horner(c.f, kLnSingleLA);
    const V ln = fma(c.e, V(kLn2Head32), fma(c.e, V(kLn2Tail32), fma(c.f * p, c.f, c.f)));
    const V t = y * ln;
    const Mask<V> beyond = magnitude(t) > V(87.300788879f);
    return Masked{Exp<V, Level::EP>::lanes(drop(beyond, t)), beyond};
  }
};

// The reciprocal in three bits after the point, its logarithm from two registers; the first two terms of
// the rest as head and tail.
// sPow LA: 2.8819 ulp at 0x1.e93fe4p-1, -0x1.d4a0c4p+10
template <Single V>
struct Pow<V, Level::LA> : PowSingle<V> {
  static constexpr Knobs knobs = {.vectors = 2};

  static auto lanes(V x, V y) {
    using I = Integer<V>;
    const I c = (as_bits(reciprocal_estimate(x)) + I(0x00080000u)) & I(0xFFF00000u);
    const V r = fms(as_float(c), x, V(1.0f));
    const V table = look_up(octet_table<V>(kLog2Octet[0]), shift_right<20>(c)) - NormalExponents<V>(as_float(c)).numbers();
    const V table_rest = look_up(octet_table<V>(kLog2Octet[1]), shift_right<20>(c));

    const V q = r * V(kPowLead32);
    const V q_rest = fms(r, V(kPowLead32), q);
    const V square = r * r;
    const V two = fma(square, V(kPowSecond32), q);
    const V two_rest = fma(square, V(kPowSecond32), q - two);
    const V constants = fma(r, fma(r, V(kPowSecondTail32), V(kPowLeadTail32)), q_rest);
    const V head = table + two;
    const V lost = two - (head - table);
    const V tail = (lost + table_rest) + fma(square * r, horner(r, kPowLog2Single), constants + two_rest);

    const V product = y * head;
    const V product_tail = fma(y, tail, fms(y, head, product));
    const V t = product + product_tail;
    const Mask<V> beyond = magnitude(t) > V(125.5f);

    // 1.5 * 2^20 and the exponent's bias: eighths in the low three bits, above them the exponent field. The rows take
    // the eighths off again.
    const V shifter = 1572991.0f;
    const V sum = t + shifter;
    const V f = drop(beyond, (product - (sum - shifter)) + product_tail);
    const I eighths = as_bits(drop(beyond, sum));
    const V power = as_float(look_up(octet_table<V>(kExp2OctetFields), eighths) + shift_left<20>(eighths));
    return Masked{fma(power, f * horner(f, kPowExp2Single), power), beyond};
  }
};

// --- 64 bits --------------------------------------------------------------------------------------------------------

// e^t, |t| below 709, within 2^-40: 2048 rows.
template <Double V>
V exp_rows(V t) {
  using I = Integer<V>;
  const auto [sum, n] = shift_round(t, V(k2048OverLn2));
  const V r = fnma(n, V(kLn2Over2048), t);
  const V p = fma(r, fma(r, V(0.5), V(1.0)), V(1.0));
  const V y = gather(kExp2Frac2048, indices(as_bits(sum) & I(int64_t{2047}))) * p;
  return as_float(as_bits(y) + (shift_left<41>(as_bits(sum)) & I(uint64_t{0xFFF0000000000000})));
}

// In 64 bits: rows of an octave for the logarithm, sixteenths for the power, all of them in wide registers. What leaves
// the range of floats is held at its ends, and is special.
// sPow HA: 0.5090 ulp at 0x1.ffa996p-1, 0x1.02c482p+17
template <Single V>
struct Pow<V, Level::HA> : PowSingle<V> {
  static constexpr Knobs knobs = {.vectors = 2};

  static auto lanes(V x, V y) {
    const V power = by_halves([](auto wide_x, auto wide_y) __attribute__((always_inline)) {
      using W = decltype(wide_x);
      const OctaveKey<W> k(wide_x);
      const auto row = octave_row<kPowOctave64, W>(k.row());
      const W r = fms(row.first, k.m(), W(1.0));
      const W log = fma(r, horner(r, kPowLog2Octave), k.e() + row.second);
      const W t = clamp_magnitude(wide_y * log, W(126.0));
      const W shifter = kShifter64 / 16;
      const W sum = t + shifter;
      const W f = t - (sum - shifter);
      const W head = exp2_head_of_16(sum);
      return fma(head, f * horner(f, kPowExp2Sixteenth), head);
    }, x, y);
    return Masked{power, outside<0x00800001u, 0x7E7FFFFFu>(power)};  // between 2^-126 and 2^126
  }
};

// Plain: x from 2^-1022, |y| from 2^-100 to 2^923 (no product over- or underflows).
template <Double V>
struct PowDouble {
  static auto special(V x, V y) {
    return outside<0x00100000u, 0x7FEFFFFFu>(x) | outside_magnitude<0x39B00000u, 0x799FFFFFu>(y);
  }
  static int32_t element(const double* x, const double* y, double* r) { return power_element<true>(x, y, r); }
};

// dPow EP: 32.84 bits at 0x1.fe9fa7b0e7141p-1, 0x1.ef02dcaa8bc8dp+17
template <Double V>
struct Pow<V, Level::EP> : PowDouble<V> {
  static auto lanes(V x, V y) {
    const KeyedNormal<V> k(x);
    const V e = k.centred_exponent();
    const V head = fma(e, V(kLn2Head64), gather<512>(kLnHeads, indices(k.key))) + k.r;
    const V ln = head + fma(e, V(kLn2Tail64), k.r * k.r * horner(k.r, kPowLnDouble));
    const V t = y * ln;
    const Mask<V> beyond = magnitude(t) > V(708.0);
    return Masked{exp_rows(drop(beyond, t)), beyond};
  }
};

// y (head + tail), with head and tail of its own; whether it is too large for a normal result.
template <Double V>
struct Exponent2 {
  V head, tail, sum;
  Mask<V> beyond;
  Exponent2(V y, HeadTail<V> log) {
    head = y * log.head;
    tail = fma(y, log.tail, fms(y, log.head, head));
    sum = head + tail;
    beyond = magnitude(sum) > V(1021.5);
  }
};

// dPow LA: 1.3773 ulp at 0x1.ff9427ffdefddp-1, 0x1.916e2e9dd4982p+19
template <Double V>
struct Pow<V, Level::LA> : PowDouble<V> {
  static constexpr Knobs knobs = {.vectors = 2};

  static auto lanes(V x, V y) {
    using I = Integer<V>;
    const KeyedNormal<V> k(x);
    const auto row = gather<512>(kLog2Pairs, indices(k.key));
    const V q = k.r * V(kPowLead64);
    const V q_tail = fma(k.r, V(kPowLeadTail64), fms(k.r, V(kPowLead64), q));
    const HeadTail<V> log = fast_two_sum(k.exponent() + row.first, q);
    const V tail = fma(k.r * k.r, horner(k.r, kPowLog2DoubleLA), (log.tail + row.second) + q_tail);

    const Exponent2<V> t(y, {log.head, tail});
    const V sum = t.sum + V(0x1.8p44);  // 1/256
    const V f = drop(t.beyond, (t.head - (sum - V(0x1.8p44))) + t.tail);
    const V power = gather(kExp2Frac256, indices(as_bits(sum) & I(int64_t{255})));
    const V result = fma(power, f * horner(f, kPowExp2DoubleLA), power);
    return Masked{as_float(as_bits(result) + (shift_left<44>(as_bits(sum)) & I(uint64_t{0xFFF0000000000000}))),
                  t.beyond};
  }
};

// log2(x) of a normal x, within 2^-72 or 2^-67 of itself.
template <Double V>
[[gnu::always_inline]] inline HeadTail<V> log2_lanes(V x) {
  const KeyedNormal<V> k(x);
  const auto row = gather<512>(kLog2Pairs, indices(k.key));
  // log2(1 + r) = r (c1 + c2 r + ...): the sum of the first two with its rest, the product with its.
  const V factor = fma(k.r, V(kPowSecond64), V(kLog2E64));
  const V factor_rest = fma(k.r, V(kPowSecond64), V(kLog2E64) - factor) + V(kLog2ETail64);
  const V q = k.r * factor;
  const V q_rest = fms(k.r, factor, q);
  const HeadTail<V> log = fast_two_sum(k.exponent() + row.first, q);
  const V rest = fma(k.r * k.r, horner(k.r, kPowLog2DoubleHA), factor_rest);
  return {log.head, fma(k.r, rest, (log.tail + row.second) + q_rest)};
}

// 2^t = row (1 + rest) 2^k, k above seven bits in the low bits of `sum`.
template <Double V>
struct Exp2Parts {
  static constexpr double kShift = 0x1.8p45;  // added to t: 1/128
  V sum, row, rest;
  // The sum and f, what it lacks of t.
  [[gnu::always_inline]] Exp2Parts(V sum_of_t, V f) : sum(sum_of_t) {
    const auto power = gather(kExp2Pairs128, indices(as_bits(sum) & Integer<V>(int64_t{127})));
    row = power.first;
    rest = fma(f, horner(f, kPowExp2DoubleHA), power.second);
  }
  Integer<V> exponent() const { return shift_left<45>(as_bits(sum)) & Integer<V>(uint64_t{0xFFF0000000000000}); }
};

// dPow HA: 0.5333 ulp at 0x1.ff8f0ab21a07cp-1, 0x1.89cece4280f78p+19
template <Double V>
struct Pow<V, Level::HA> : PowDouble<V> {
  static constexpr Knobs knobs = {.vectors = 2};

  static auto lanes(V x, V y) {
    const Exponent2<V> t(y, log2_lanes(x));
    const V sum = t.sum + V(Exp2Parts<V>::kShift);
    const V f = drop(t.beyond, (t.head - (sum - V(Exp2Parts<V>::kShift))) + t.tail);
    const Exp2Parts<V> power(sum, f);
    const V result = fma(power.row, power.rest, power.row);
    return Masked{as_float(as_bits(result) + power.exponent()), t.beyond};
  }
};

}  // namespace orvik::zym
