// e^x = 2^(n/N) e^r: n by shift rounding, r = x - n ln(2)/N by parts, 2^(i/N) from a table (N = 1 without one), the
// exponent added to the bits. Inputs whose result could leave the normal numbers take the element routine.
#pragma once

#include "zym/kernels/explog/constants.h"
#include "zym/kernels/explog/exp_element.h"
#include "zym/kernels/explog/tables.h"
#include "zym/skeleton/family.h"

namespace orvik::zym {

template <class V, Level L>
struct Exp;

// Overflow and underflow without the element routine; NaNs and denormal results remain.
template <class V>
Mask<V> repair_exp(V x, V& r, Mask<V> mask, V overflow, V underflow) {
  const Mask<V> above = x > overflow;
  const Mask<V> below = x < underflow;
  r = select(above, V(infinity<Element<V>>), r);
  r = drop(below, r);
  return andnot(above | below, mask);
}

// --- 32 bits --------------------------------------------------------------------------------------------------------

template <Single V>
struct ExpSingle {
  static auto special(V x) { return magnitude_above<0x42AEAC4F>(x); }  // |x| from 87.33655
  static Mask<V> repair(V x, V& r, Mask<V> mask) {
    return repair_exp(x, r, mask, V(kExpOverflow32), V(kExpUnderflow32));
  }
  static int32_t element(const float* x, float* r) { return exp_element_narrow(x, r); }
};

// 12.7 bits.
template <Single V>
struct Exp<V, Level::EP> : ExpSingle<V> {
  static V lanes(V x) {
    const auto [t, n] = shift_round(x, V(kLog2E32));
    const V r = fnma(n, V(f32(0x3F317218)), x);
    const V p = horner(r, V(f32(0x3E2963AC)), V(f32(0x3F00F2D6)), V(f32(0x3F8003DE)), V(1.0f));
    return as_float(as_bits(p) + shift_left<23>(as_bits(t)));
  }
};

// 2.64 ulp.
template <Single V>
struct Exp<V, Level::LA> : ExpSingle<V> {
  static V lanes(V x) {
    const auto [t, n] = shift_round(x, V(kLog2E32));
    const V r = fnma(n, V(kLn2Tail32), fnma(n, V(kLn2Head32), x));
    const V p = horner(r, V(f32(0x3C07D9FE)), V(f32(0x3D2B8392)), V(f32(0x3E2AACAC)), V(f32(0x3EFFFF34)),
                       V(f32(0x3F7FFFFE)), V(1.0f));
    return as_float(as_bits(p) + shift_left<23>(as_bits(t)));
  }
};

// 0.75 ulp. Four rows of 2^(i/4) in registers. The shifter holds the exponent's bias: t << 21 is the exponent field
// with the row's two bits below it, which the table takes off again.
template <Single V>
struct Exp<V, Level::HA> : ExpSingle<V> {
  static int32_t element(const float* x, float* r) { return exp_element_wide(x, r); }

  static V lanes(V x) {
    const auto [t, n] = shift_round(x, V(f32(0x40B8AA3B)), V(f32(0x4B4001FC)));
    const V r = fnma(n, V(f32(0x3705FDF4)), fnma(n, V(f32(0x3E317000)), x));
    static constexpr float kHead[4] = {f32(0), f32(0x1837F0 - 0x200000), f32(0x3504F3 - 0x400000),
                                       f32(0x5744FD - 0x600000)};
    static constexpr float kLow[4] = {f32(0), f32(0x33092801), f32(0x329302AE), f32(0xB27CE182)};
    const Integer<V> row = as_bits(t);
    const V s = as_float(as_bits(select_in_quad(quad_table<V>(kHead), row)) + shift_left<21>(row));
    const V q = fma(horner(r, V(f32(0x3D2ABB12)), V(f32(0x3E2ABB12)), V(f32(0x3EFFFFFF))), r * r,
                    select_in_quad(quad_table<V>(kLow), row));
    return fma(r + q, s, s);
  }
};

// --- 64 bits --------------------------------------------------------------------------------------------------------

// y 2^k, where t holds k above `RowBits` bits of row number.
template <int RowBits, Double V>
V scale_by_row(V y, V t) {
  return as_float(as_bits(y) + (shift_left<52 - RowBits>(as_bits(t)) & Integer<V>(uint64_t{0xFFF0000000000000})));
}

template <Double V>
struct ExpDouble {
  static auto special(V x) { return magnitude_above<0x4086232A>(x); }  // |x| from about 708.39
  static Mask<V> repair(V x, V& r, Mask<V> mask) {
    return repair_exp(x, r, mask, V(kExpOverflow64), V(kExpUnderflow64));
  }
  static int32_t element(const double* x, double* r) { return exp_element(x, r); }
};

// 28.2 bits.
template <Double V>
struct Exp<V, Level::EP> : ExpDouble<V> {
  static V lanes(V x) {
    const auto [t, n] = shift_round(x, V(184.6649652337873));
    const V r = fnma(n, V(0.0054152123481245725), x);
    const V p = horner(r, V(0.49999908361121337), V(1.0), V(1.0));
    return scale_by_row<7>(gather(kExp2Frac128, indices(as_bits(t) & Integer<V>(int64_t{127}))) * p, t);
  }
};

// 2.97 ulp.
template <Double V>
struct Exp<V, Level::LA> : ExpDouble<V> {
  static V lanes(V x) {
    const auto [t, n] = shift_round(x, V(1477.3197218702985));
    const V r = fnma(n, V(4.137227896298129e-13), fnma(n, V(0.0006769015431018488), x));
    const V p = horner(r, V(0.16666666666666669), V(0.5000000035796539), V(1.0), V(1.0));
    return scale_by_row<10>(gather(kExp2Frac1024, indices(as_bits(t) & Integer<V>(int64_t{1023}))) * p, t);
  }
};

// 0.519 ulp.
template <Double V>
struct Exp<V, Level::HA> : ExpDouble<V> {
  static V lanes(V x) {
    const auto [t, n] = shift_round(x, V(k64OverLn2));
    const V r = fnma(n, V(kLn2Over64Tail), fnma(n, V(kLn2Over64Head), x));
    const V q = horner(r, V(0.00833333416441411), V(0.04166672368662385), V(0.1666666666667797), V(0.4999999999994775));
    const auto row = gather(kExp2Frac64, indices(as_bits(t) & Integer<V>(int64_t{63})));
    const V p = fma(r * r, q, r) + row.second;
    return scale_by_row<6>(fma(row.first, p, row.first), t);
  }
};

}  // namespace orvik::zym
