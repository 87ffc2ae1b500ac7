// 2^x and 10^x, one kernel for all levels: the method of e^x with 2^(n/N) from registers, of floats as two factors, and
// what these lack added to the reduced argument. What the base sets: the step of the rounding, the reduction in units
// of the exponent (so that it is exact up to its last part), the polynomial.
#pragma once

#include "zym/kernels/explog/coefficients.h"
#include "zym/kernels/explog/exp.h"
#include "zym/kernels/explog/exp2_factors.h"
#include "zym/kernels/explog/exp2_sixteenths.h"
#include "zym/kernels/explog/exp_element.h"
#include "zym/skeleton/family.h"

namespace orvik::zym {

// What the element routines need: b^x = 2^k head (1 + rest).
inline ExpParts exp2_parts(double x) {
  const double shifter = kShifter64 / 64;
  const double t = x + shifter;
  return ExpParts::from_reduced(static_cast<int64_t>(bits_of(t) - bits_of(shifter)), x - (t - shifter), kExp2Double);
}
inline ExpParts exp10_parts(double x) {
  const double t = std::fma(x, k64OverLog10Of2, kShifter64);
  const double n = t - kShifter64;
  const double r = std::fma(-n, kLog10Of2Over64Tail, std::fma(-n, kLog10Of2Over64Head, x));
  return ExpParts::from_reduced(static_cast<int64_t>(bits_of(t) - bits_of(kShifter64)), r, kExp10Double);
}

// b^x to within a rounding of the element type; `above` and `below` bound what is neither infinite nor zero for sure.
template <class E>
int32_t power_element(E x, E* r, E above, E below, ExpParts (*parts_of)(double)) {
  if (is_nan(x) || is_infinite(x)) {
    *r = exp_not_finite(x);
    return 0;
  }
  if (x >= above) {
    *r = infinity<E>;
    return zymErrorOverflow;
  }
  if (x <= below) {
    *r = E(0);
    return zymErrorUnderflow;
  }
  const ExpParts parts = parts_of(static_cast<double>(x));
  *r = static_cast<E>(parts.k < -1021 ? parts.denormal() : parts.normal());
  if (*r == infinity<E>) return zymErrorOverflow;
  return *r < std::numeric_limits<E>::min() ? zymErrorUnderflow : 0;
}

// head (1 + fine) b^(r + rest)
template <Single V, size_t N>
V from_row(FineRow<V> row, V r, const float (&p)[N]) {
  const V x = r + row.rest;
  const V q = x * horner(x, p);
  return fma(row.head, fma(row.fine + V(1.0f), q, row.fine), row.head);
}

template <class V, Level>
struct Exp2;

// sExp2 HA: 0.6613 ulp at -0x1.107a48p-4
template <Single V, Level L>
struct Exp2<V, L> {
  static auto special(V x) { return magnitude_above<std::bit_cast<uint32_t>(126.0f)>(x); }
  static Mask<V> repair(V x, V& r, Mask<V> mask) {
    return repair_exp<V>(x, r, mask, std::nextafter(128.0f, 0.0f), std::nextafter(-150.0f, 0.0f));
  }
  static int32_t element(const float* x, float* r) { return power_element(*x, r, 128.0f, -150.0f, exp2_parts); }

  static V lanes(V x) {
    const V shifter = kShifter32 / 64 + 4.0f / 64;
    const V t = x + shifter;
    const V r = x - (t - shifter);
    return from_row(exp2_row_of_64(t), r, kExp2Single);
  }
};

// dExp2 HA: 0.5902 ulp at 0x1.dfba97cfd4fb8p+5
template <Double V, Level L>
struct Exp2<V, L> {
  static constexpr Knobs knobs = {.together = false};

  static auto special(V x) { return magnitude_above<high_word(1022.0) - 1>(x); }
  static Mask<V> repair(V x, V& r, Mask<V> mask) {
    return repair_exp<V>(x, r, mask, std::nextafter(1024.0, 0.0), std::nextafter(-1075.0, 0.0));
  }
  static int32_t element(const double* x, double* r) { return power_element(*x, r, 1024.0, -1075.0, exp2_parts); }

  static V lanes(V x) {
    const V shifter = kShifter64 / 16;
    const V t = x + shifter;
    const V r = x - (t - shifter);
    const auto [head, tail] = exp2_of_16(t);
    return fma(head, fma(r, horner(r, kExp2Sixteenth), tail), head);
  }
};

template <class V, Level>
struct Exp10;

// sExp10 HA: 0.5515 ulp at 0x1.f4c10ap+4
template <Single V, Level L>
struct Exp10<V, L> {
  static auto special(V x) { return magnitude_above<std::bit_cast<uint32_t>(kExp10Bound32) - 1>(x); }
  static Mask<V> repair(V x, V& r, Mask<V> mask) { return repair_exp<V>(x, r, mask, 39.0f, -46.0f); }
  static int32_t element(const float* x, float* r) { return power_element(*x, r, 39.0f, -46.0f, exp10_parts); }

  static V lanes(V x) {
    const auto [t, n] = shift_round(x, V(k128OverLog10Of2In32), V(kShifter32 + 4));
    const V r = fnma(n, V(kLog10Of2Over128Tail32), fnma(n, V(kLog10Of2Over128Head32), x));
    return from_row(exp10_row_of_128(t), r, kExp10Single);
  }
};

// dExp10 HA: 0.5985 ulp at -0x1.64db80c333652p+4
template <Double V, Level L>
struct Exp10<V, L> {
  static constexpr Knobs knobs = {.together = false};

  static auto special(V x) { return magnitude_above<high_word(kExp10Bound64) - 1>(x); }
  static Mask<V> repair(V x, V& r, Mask<V> mask) { return repair_exp<V>(x, r, mask, 308.3, -324.0); }
  static int32_t element(const double* x, double* r) { return power_element(*x, r, 308.3, -324.0, exp10_parts); }

  static V lanes(V x) {
    const auto [t, n] = shift_round(x, V(k16OverLog10Of2));
    const V r = fnma(n, V(kLog10Of2Over16Tail), fnma(n, V(kLog10Of2Over16Head), x));
    const auto [head, tail] = exp2_of_16(t);
    return fma(head, fma(r, horner(r, kExp10Sixteenth), tail), head);
  }
};

}  // namespace orvik::zym
