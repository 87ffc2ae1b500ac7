// e^x = 2^(n/N) e^r: n by shift rounding, r = x - n ln(2)/N by parts, 2^(i/N) from a table (N = 1 without one), the
// exponent added to the bits. Inputs whose result could leave the normal numbers take the element routine.
#pragma once

#include "zym/kernels/explog/constants.h"
#include "zym/kernels/explog/exp_element.h"
#include "zym/kernels/explog/tables.h"
#include "zym/lanes/lanes.h"

namespace orvik::zym {

template <class V, Level L>
struct Exp;

// Overflow and underflow without the element routine; NaNs and denormal results remain.
template <class V>
V repair_exp(V x, V& r, V mask, V overflow, V underflow) {
  const V above = compare<_CMP_GT_OQ>(x, overflow);
  const V below = compare<_CMP_LT_OQ>(x, underflow);
  r = select(above, V(infinity<typename V::Element>), r);
  r = andnot(below, r);
  return andnot(above | below, mask);
}

// --- 32 bits --------------------------------------------------------------------------------------------------------

struct ExpSingle {
  static auto special(F32 x) { return magnitude_above<0x42AEAC4F>(x); }  // |x| from 87.33655
  static F32 repair(F32 x, F32& r, F32 mask) {
    return repair_exp(x, r, mask, F32(kExpOverflow32), F32(kExpUnderflow32));
  }
  static int32_t element(const float* x, float* r) { return exp_element_narrow(x, r); }
};

// 12.7 bits.
template <>
struct Exp<F32, Level::EP> : ExpSingle {
  static F32 lanes(F32 x) {
    const F32 t = fma(x, F32(kLog2E32), F32(kShifter32));
    const F32 n = t - F32(kShifter32);
    const F32 r = fnma(n, F32(f32(0x3F317218)), x);
    const F32 p = horner(r, F32(f32(0x3E2963AC)), F32(f32(0x3F00F2D6)), F32(f32(0x3F8003DE)), F32(1.0f));
    return as_float(as_bits(p) + shift_left<23>(as_bits(t)));
  }
};

// 2.64 ulp.
template <>
struct Exp<F32, Level::LA> : ExpSingle {
  static F32 lanes(F32 x) {
    const F32 t = fma(x, F32(kLog2E32), F32(kShifter32));
    const F32 n = t - F32(kShifter32);
    const F32 r = fnma(n, F32(kLn2Tail32), fnma(n, F32(kLn2Head32), x));
    const F32 p = horner(r, F32(f32(0x3C07D9FE)), F32(f32(0x3D2B8392)), F32(f32(0x3E2AACAC)), F32(f32(0x3EFFFF34)),
                         F32(f32(0x3F7FFFFE)), F32(1.0f));
    return as_float(as_bits(p) + shift_left<23>(as_bits(t)));
  }
};

// 0.75 ulp. Four rows of 2^(i/4) in registers. The shifter holds the exponent's bias: t << 21 is the exponent field
// with the row's two bits below it, which the table takes off again.
template <>
struct Exp<F32, Level::HA> : ExpSingle {
  static int32_t element(const float* x, float* r) { return exp_element_wide(x, r); }

  static F32 lanes(F32 x) {
    const F32 shifter = f32(0x4B4001FC);
    const F32 t = fma(x, F32(f32(0x40B8AA3B)), shifter);
    const F32 n = t - shifter;
    const F32 r = fnma(n, F32(f32(0x3705FDF4)), fnma(n, F32(f32(0x3E317000)), x));
    const I32 head = _mm256_setr_epi32(0x000000, 0x1837F0 - 0x200000, 0x3504F3 - 0x400000, 0x5744FD - 0x600000,
                                       0x000000, 0x1837F0 - 0x200000, 0x3504F3 - 0x400000, 0x5744FD - 0x600000);
    const F32 low = as_float(I32(_mm256_setr_epi32(0, 0x33092801, 0x329302AE, static_cast<int32_t>(0xB27CE182), 0,
                                                   0x33092801, 0x329302AE, static_cast<int32_t>(0xB27CE182))));
    const I32 row = as_bits(t);
    const F32 s = as_float(as_bits(select_in_quad(as_float(head), row)) + shift_left<21>(row));
    const F32 q = fma(horner(r, F32(f32(0x3D2ABB12)), F32(f32(0x3E2ABB12)), F32(f32(0x3EFFFFFF))), r * r,
                      select_in_quad(low, row));
    return fma(r + q, s, s);
  }
};

// --- 64 bits --------------------------------------------------------------------------------------------------------

struct ExpDouble {
  static auto special(F64 x) { return magnitude_above<0x4086232A>(x); }  // |x| from about 708.39
  static F64 repair(F64 x, F64& r, F64 mask) {
    return repair_exp(x, r, mask, F64(kExpOverflow64), F64(kExpUnderflow64));
  }
  static int32_t element(const double* x, double* r) { return exp_element(x, r); }

  // y 2^k, where t holds k above `Bits` bits of row number.
  template <int Bits>
  static F64 scale(F64 y, F64 t) {
    return as_float(as_bits(y) + (shift_left<52 - Bits>(as_bits(t)) & I64(uint64_t{0xFFF0000000000000})));
  }
};

// 28.2 bits.
template <>
struct Exp<F64, Level::EP> : ExpDouble {
  static F64 lanes(F64 x) {
    const F64 t = fma(x, F64(184.6649652337873), F64(kShifter64));
    const F64 n = t - F64(kShifter64);
    const F64 r = fnma(n, F64(0.0054152123481245725), x);
    const F64 p = horner(r, F64(0.49999908361121337), F64(1.0), F64(1.0));
    return scale<7>(gather(kExp2Frac128, Indices(as_bits(t) & I64(int64_t{127}))) * p, t);
  }
};

// 2.97 ulp.
template <>
struct Exp<F64, Level::LA> : ExpDouble {
  static F64 lanes(F64 x) {
    const F64 t = fma(x, F64(1477.3197218702985), F64(kShifter64));
    const F64 n = t - F64(kShifter64);
    const F64 r = fnma(n, F64(4.137227896298129e-13), fnma(n, F64(0.0006769015431018488), x));
    const F64 p = horner(r, F64(0.16666666666666669), F64(0.5000000035796539), F64(1.0), F64(1.0));
    return scale<10>(gather(kExp2Frac1024, Indices(as_bits(t) & I64(int64_t{1023}))) * p, t);
  }
};

// 0.519 ulp.
template <>
struct Exp<F64, Level::HA> : ExpDouble {
  static F64 lanes(F64 x) {
    const F64 t = fma(x, F64(k64OverLn2), F64(kShifter64));
    const F64 n = t - F64(kShifter64);
    const F64 r = fnma(n, F64(kLn2Over64Tail), fnma(n, F64(kLn2Over64Head), x));
    const F64 q =
        horner(r, F64(0.00833333416441411), F64(0.04166672368662385), F64(0.1666666666667797), F64(0.4999999999994775));
    const GatheredPair row = gather(kExp2Frac64, Indices(as_bits(t) & I64(int64_t{63})));
    const F64 p = fma(r * r, q, r) + row.second;
    return scale<6>(fma(row.first, p, row.first), t);
  }
};

}  // namespace orvik::zym
