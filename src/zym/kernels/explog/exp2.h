// 2^x and 10^x, one kernel for all levels: the method of e^x with tables of head and tail. What the base sets: the step
// of the rounding, the reduction in units of the exponent (so that it is exact up to its last part), the polynomial.
#pragma once

#include "zym/kernels/explog/constants_fit.h"
#include "zym/kernels/explog/exp.h"
#include "zym/kernels/explog/exp2_factors.h"
#include "zym/kernels/explog/exp_element.h"
#include "zym/lanes/lanes.h"

namespace orvik::zym {

// What the element routines need: b^x = 2^k head (1 + rest).
inline ExpParts exp2_parts(double x) {
  const double shifter = kShifter64 / 64;
  const double t = x + shifter;
  return ExpParts::from_reduced(static_cast<int64_t>(bits_of(t) - bits_of(shifter)), x - (t - shifter), kExp2Double);
}
inline constexpr double k64OverLog10Of2 = 0x1.a934f0979a371p+7;
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

template <class V, Level>
struct Exp2;

template <Level L>
struct Exp2<F32, L> {
  static auto special(F32 x) { return magnitude_above<0x42FC0000>(x); }  // 126
  static F32 repair(F32 x, F32& r, F32 mask) {
    return repair_exp<F32>(x, r, mask, std::nextafter(128.0f, 0.0f), std::nextafter(-150.0f, 0.0f));
  }
  static int32_t element(const float* x, float* r) { return power_element(*x, r, 128.0f, -150.0f, exp2_parts); }

  static F32 lanes(F32 x) {
    const F32 shifter = 196608.0f;  // 1.5 * 2^17: steps of 1/64
    const F32 t = x + shifter;
    const F32 r = x - (t - shifter);
    const Exp2Row row = Exp2Row::of_64(as_bits(t));
    const F32 q = fma(fma(F32(0.24022668600082397f), r, F32(0.693149745464325f)), r, row.tail);
    const F32 y = row.head + fma(row.head, q, row.low);
    return as_float(as_bits(y) + exponent_bits<6>(t));
  }
};

template <Level L>
struct Exp2<F64, L> {
  static auto special(F64 x) { return magnitude_above<0x408FEFFF>(x); }  // from 1022
  static F64 repair(F64 x, F64& r, F64 mask) {
    return repair_exp<F64>(x, r, mask, std::nextafter(1024.0, 0.0), std::nextafter(-1075.0, 0.0));
  }
  static int32_t element(const double* x, double* r) { return power_element(*x, r, 1024.0, -1075.0, exp2_parts); }

  static F64 lanes(F64 x) {
    const F64 shifter = kShifter64 / 64;
    const F64 t = x + shifter;
    const F64 r = x - (t - shifter);
    const GatheredPair row = gather(kExp2Frac64, Indices(as_bits(t) & I64(int64_t{63})));
    const F64 p = fma(r, horner(r, kExp2Double), row.second);
    return ExpDouble::scale<6>(fma(row.first, p, row.first), t);
  }
};

template <class V, Level>
struct Exp10;

template <Level L>
struct Exp10<F32, L> {
  static auto special(F32 x) { return magnitude_above<std::bit_cast<uint32_t>(37.92978286743164f) - 1>(x); }
  static F32 repair(F32 x, F32& r, F32 mask) { return repair_exp<F32>(x, r, mask, 39.0f, -46.0f); }
  static int32_t element(const float* x, float* r) { return power_element(*x, r, 39.0f, -46.0f, exp10_parts); }

  static F32 lanes(F32 x) {
    const F32 t = fma(x, F32(425.206787109375f), F32(kShifter32));  // steps of log10(2)/128
    const F32 n = t - F32(kShifter32);
    const F32 r = fnma(n, F32(-1.8713717508944683e-06f), fnma(n, F32(0.002353668212890625f), x));
    const Exp2Row row = Exp2Row::of_128(as_bits(t));
    const F32 q = fma(fma(F32(2.650949716567993f), r, F32(2.3025872707366943f)), r, row.tail);
    const F32 y = row.head + fma(row.head, q, row.low);
    return as_float(as_bits(y) + exponent_bits<7>(t));
  }
};

template <Level L>
struct Exp10<F64, L> {
  static auto special(F64 x) { return magnitude_above<0x40733A70>(x); }  // from 307.652
  static F64 repair(F64 x, F64& r, F64 mask) { return repair_exp<F64>(x, r, mask, 308.3, -324.0); }
  static int32_t element(const double* x, double* r) { return power_element(*x, r, 308.3, -324.0, exp10_parts); }

  static F64 lanes(F64 x) {
    const F64 t = fma(x, F64(k64OverLog10Of2), F64(kShifter64));
    const F64 n = t - F64(kShifter64);
    const F64 r = fnma(n, F64(kLog10Of2Over64Tail), fnma(n, F64(kLog10Of2Over64Head), x));
    const GatheredPair row = gather(kExp2Frac64, Indices(as_bits(t) & I64(int64_t{63})));
    const F64 p = fma(r, horner(r, kExp10Double), row.second);
    return ExpDouble::scale<6>(fma(row.first, p, row.first), t);
  }
};

}  // namespace orvik::zym
