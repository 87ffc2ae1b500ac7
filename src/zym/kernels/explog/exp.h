// e^x = 2^(n/N) e^r: n by shift rounding, r = x - n ln(2)/N by parts, 2^(i/N) from a table (N = 1 without one), the
// exponent added to the bits. Inputs whose result could leave the normal numbers take the element routine.
#pragma once

#include "zym/kernels/explog/coefficients.h"
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
  static auto special(V x) { return magnitude_above<std::bit_cast<uint32_t>(-kExpNormal32)>(x); }
  static Mask<V> repair(V x, V& r, Mask<V> mask) {
    return repair_exp(x, r, mask, V(kExpOverflow32), V(kExpUnderflow32));
  }
  static int32_t element(const float* x, float* r) { return exp_element_narrow(x, r); }
};

// sExp EP: 12.70 bits at 0x1.53a462p+6
template <Single V>
struct Exp<V, Level::EP> : ExpSingle<V> {
  static V lanes(V x) {
    const auto [t, n] = shift_round(x, V(kLog2E32));
    const V r = fnma(n, V(kLn2Whole32), x);
    const V p = horner(r, kExpSingleEP);
    return as_float(as_bits(p) + shift_left<23>(as_bits(t)));
  }
};

// sExp LA: 2.6375 ulp at -0x1.0fb666p+4
template <Single V>
struct Exp<V, Level::LA> : ExpSingle<V> {
  static V lanes(V x) {
    const auto [t, n] = shift_round(x, V(kLog2E32));
    const V r = fnma(n, V(kLn2Tail32), fnma(n, V(kLn2Head32), x));
    const V p = horner(r, kExpSingleLA);
    return as_float(as_bits(p) + shift_left<23>(as_bits(t)));
  }
};

// Four rows of 2^(i/4) in registers. The shifter holds the exponent's bias: t << 21 is the exponent field
// with the row's two bits below it, which the table takes off again.
struct Quarters {
  float bits[4];
  constexpr Quarters() : bits{} {
    for (uint32_t i = 0; i < 4; ++i) {
      bits[i] = f32(std::bit_cast<uint32_t>(kExp2Quarters[0][i]) - std::bit_cast<uint32_t>(1.0f) - (i << 21));
    }
  }
};
inline constexpr Quarters kQuarters;

// sExp HA: 0.7493 ulp at -0x1.73cfbap+0
template <Single V>
struct Exp<V, Level::HA> : ExpSingle<V> {
  static int32_t element(const float* x, float* r) { return exp_element_wide(x, r); }

  static V lanes(V x) {
    const auto [t, n] = shift_round(x, V(k4OverLn2In32), V(kShifter32 + 127 * 4));
    const V r = fnma(n, V(kLn2Over4Tail32), fnma(n, V(kLn2Over4Head32), x));
    const Integer<V> row = as_bits(t);
    const V s = as_float(as_bits(select_in_quad(quad_table<V>(kQuarters.bits), row)) + shift_left<21>(row));
    const V q = fma(horner(r, kExpSingleHA), r * r, select_in_quad(quad_table<V>(kExp2Quarters[1]), row));
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
  static auto special(V x) { return magnitude_above<high_word(-kExpNormal64) - 1>(x); }
  static Mask<V> repair(V x, V& r, Mask<V> mask) {
    return repair_exp(x, r, mask, V(kExpOverflow64), V(kExpUnderflow64));
  }
  static int32_t element(const double* x, double* r) { return exp_element(x, r); }
};

// dExp EP: 28.17 bits at 0x1.d68f6f50bab4p+3
template <Double V>
struct Exp<V, Level::EP> : ExpDouble<V> {
  static V lanes(V x) {
    const auto [t, n] = shift_round(x, V(k128OverLn2));
    const V r = fnma(n, V(kLn2Over128), x);
    const V p = horner(r, kExpDoubleEP);
    return scale_by_row<7>(gather(kExp2Frac128, indices(as_bits(t) & Integer<V>(int64_t{127}))) * p, t);
  }
};

// dExp LA: 2.9696 ulp at -0x1.e8438e13adc87p-9
template <Double V>
struct Exp<V, Level::LA> : ExpDouble<V> {
  static V lanes(V x) {
    const auto [t, n] = shift_round(x, V(k1024OverLn2));
    const V r = fnma(n, V(kLn2Over1024Tail), fnma(n, V(kLn2Over1024Head), x));
    const V p = horner(r, kExpDoubleLA);
    return scale_by_row<10>(gather(kExp2Frac1024, indices(as_bits(t) & Integer<V>(int64_t{1023}))) * p, t);
  }
};

// dExp HA: 0.5184 ulp at 0x1.3eb2bb7562dp+6
template <Double V>
struct Exp<V, Level::HA> : ExpDouble<V> {
  static V lanes(V x) {
    const auto [t, n] = shift_round(x, V(k64OverLn2));
    const V r = fnma(n, V(kLn2Over64Tail), fnma(n, V(kLn2Over64Head), x));
    const V q = horner(r, kExpDoubleHA);
    const auto row = gather(kExp2Frac64, indices(as_bits(t) & Integer<V>(int64_t{63})));
    const V p = fma(r * r, q, r) + row.second;
    return scale_by_row<6>(fma(row.first, p, row.first), t);
  }
};

}  // namespace orvik::zym
