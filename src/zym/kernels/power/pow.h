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
// dPowr LA: 1.1351 ulp at 0x1.079db13594827p+0, -0x1.e92e9ea94778cp+13
// dPowr HA: 0.5315 ulp at 0x1.991481ef35903p+3, -0x1.553c89ae6dbcp-2
// dPowr EP: 33.78 bits at 0x1.01b00e7c8e4e8p+0, -0x1.a16c729924406p+16
template <class V, Level L>
struct Powr : Pow<V, L> {
  static int32_t element(const Element<V>* x, const Element<V>* y, Element<V>* r) {
    return power_element<false>(x, y, r);
  }
};
// sPowx LA: 1.2872 ulp at 0x1.26c788p+6, -0x1p+0
// sPowx HA: 0.5021 ulp at -0x1.e4671p-23, 0x1p+1
// sPowx EP: 12.63 bits at 0x1.35c078p+6, 0x1.4p+4
// dPowx LA: 1.0000 ulp at 0x1.4p+0, 0x1.8p+1
// dPowx HA: 0.5261 ulp at 0x1.e4edb9c4a2bc5p+5, 0x1.5555555555555p-2
// dPowx EP: 36.02 bits at 0x1.001f00e5c9428p+0, -0x1.e848p+19
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
      const auto row = octave_row<kPowOctave64, W>(k.at());
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

// --- 64 bits --------------------------------------------------------------------------------------------------------

// x = 2^e m, m in [63/64, 63/32); c near 1/m and its logarithm by a row that registers hold.
template <Double V>
struct PowKey {
  using I = Integer<V>;
  V x;
  I key;
  explicit PowKey(V a) : x(a), key(as_bits(a) + I(uint64_t{1} << 47)) {}
  V e() const { return NormalExponents<V>(as_float(key)).numbers(); }
  I row() const { return shift_right<48>(key); }
  // c m - 1, exact, of x below 2^1022.
  V r(V c) const {
    return fms(as_float(as_bits(c) - (key & I(Format<V>::exponent_field))), x, V(1.0));
  }
};

// One column each: the reciprocals, and their logarithms in one part.
template <Double V>
V pow_reciprocal(PowKey<V> k) {
  if constexpr (kHasPermutes64<V>) {
    return look_up_in_16(kColumns<kPowRows64>.of[0], k.row());
  } else {
    return reciprocal_by_words<kPowRows64>(k.key);
  }
}
template <Double V>
V pow_log(PowKey<V> k) {
  if constexpr (kHasPermutes64<V>) {
    return look_up_in_16(kColumns<kPowRows64>.of[1], k.row());
  } else {
    return gather(kColumns<kPowRows64>.of[1], indices(k.row() & Integer<V>(uint64_t{15})));
  }
}
// Both parts of the logarithm.
template <Double V>
struct PowParts {
  V head, tail;
  explicit PowParts(PowKey<V> k) {
    if constexpr (kHasPermutes64<V>) {
      head = look_up_in_16(kColumns<kPowRowParts64>.of[0], k.row());
      tail = look_up_in_16(kColumns<kPowRowParts64>.of[1], k.row());
    } else {
      const auto parts = gather(kPowRowParts64, indices(k.row() & Integer<V>(uint64_t{15})));
      head = parts.first, tail = parts.second;
    }
  }
};

// log2(x), within 2^-43 of itself.
template <Double V>
[[gnu::always_inline]] inline V log2_in_one(V x) {
  const PowKey<V> k(x);
  const V log = pow_log(k);
  const V r = k.r(pow_reciprocal(k));
  return fma(r, estrin(r, kPowLog2DoubleEP), k.e() + log);
}

// log2(x) within 2^-64 or 2^-70 of itself; the tail is below 2^-16 of the head.
template <Double V, Level L>
[[gnu::always_inline]] inline HeadTail<V> log2_in_two(V x) {
  const PowKey<V> k(x);
  const PowParts<V> row(k);
  const V r = k.r(pow_reciprocal(k));
  // log2(1 + r) = r (c1 + r (c2 + r c3)) + ...: each sum with its rest, the product with its.
  const V inner = fma(r, V(kPowThird64), V(kPowSecond64));
  const V inner_rest = fma(r, V(kPowThird64), V(kPowSecond64) - inner) + V(kPowSecondTail64);
  const V factor = fma(r, inner, V(kPowLead64));
  const V factor_rest = fma(r, inner, V(kPowLead64) - factor) + V(kPowLeadTail64);
  const V q = r * factor;
  const V q_rest = fms(r, factor, q);
  const HeadTail<V> log = fast_two_sum(k.e() + row.head, q);
  const V lost = (log.tail + row.tail) + q_rest;
  const V square = r * r;
  if constexpr (L == Level::HA) {
    return {log.head, fma(r, fma(r, fma(r, estrin(r, kPowLog2DoubleHA), inner_rest), factor_rest), lost)};
  } else {
    const V rest = fma(r, fma(r, inner_rest, factor_rest), lost);
    return {log.head, fma(square * square, estrin(r, kPowLog2DoubleLA), rest)};
  }
}

// Plain: x from 2^-1022 to 2^1022 (c stays normal), |y| from 2^-100 to 2^921 (no product over- or underflows).
template <Double V>
struct PowDouble {
  static auto special(V x, V y) {
    return outside<0x00100000u, 0x7FCF7FFFu>(x) | outside_magnitude<0x39B00000u, 0x798FBFFFu>(y);
  }
  static int32_t element(const double* x, const double* y, double* r) { return power_element<true>(x, y, r); }
};

// y log2(x), split into sixteenths and a rest; whether it is too large for a normal result.
template <Double V>
struct Sixteenths {
  Mask<V> beyond;
  V sum, f;
  template <class... Tail>
  [[gnu::always_inline]] explicit Sixteenths(V t, Tail... tail) : beyond(magnitude(t) > V(1021.5)) {
    const V shifter = kShifter64 / 16;
    const V shifted = t + shifter;
    sum = drop(beyond, shifted);
    f = drop(beyond, ((t - (shifted - shifter)) + ... + tail));
  }
};

// 2^f - 1, alone and with an addend.
template <Double V>
[[gnu::always_inline]] inline V exp2_less_1(V f) {
  return fma(f, V(kPowLn2), f * f * estrin(f, kPowExp2Double));
}
template <Double V>
[[gnu::always_inline]] inline V exp2_less_1(V f, V more) {
  return fma(f, V(kPowLn2), fma(f * f, estrin(f, kPowExp2Double), more));
}

// dPow EP: 33.74 bits at 0x1.fbf0b31061505p-1, 0x1.5a9144871b113p+16
template <Double V>
struct Pow<V, Level::EP> : PowDouble<V> {
  static constexpr Knobs knobs = {.vectors = 2};

  static auto lanes(V x, V y) {
    const Sixteenths<V> t(y * log2_in_one(x));
    const V head = exp2_head_of_16(t.sum);
    return Masked{fma(head, t.f * estrin(t.f, kPowExp2Sixteenth), head), t.beyond};
  }
};

template <Double V>
[[gnu::always_inline]] inline Sixteenths<V> times(V y, HeadTail<V> log) {
  const V t = y * log.head;
  return Sixteenths<V>(t, fma(y, log.tail, fms(y, log.head, t)));
}

// dPow LA: 1.1351 ulp at 0x1.079db13594827p+0, -0x1.e92e9ea94778cp+13
template <Double V>
struct Pow<V, Level::LA> : PowDouble<V> {
  static constexpr Knobs knobs = {.vectors = 2};

  static auto lanes(V x, V y) {
    const Sixteenths<V> t = times(y, log2_in_two<V, Level::LA>(x));
    const V head = exp2_head_of_16(t.sum);
    return Masked{fma(head, exp2_less_1(t.f), head), t.beyond};
  }
};

// dPow HA: 0.5328 ulp at 0x1.4df691aa3dba3p+5, 0x1.d82ec9da35cd2p+2
template <Double V>
struct Pow<V, Level::HA> : PowDouble<V> {
  static constexpr Knobs knobs = {.vectors = 2};

  static auto lanes(V x, V y) {
    const Sixteenths<V> t = times(y, log2_in_two<V, Level::HA>(x));
    const auto [head, tail] = exp2_of_16(t.sum);
    return Masked{fma(head, exp2_less_1(t.f, tail), head), t.beyond};
  }
};

}  // namespace orvik::zym
