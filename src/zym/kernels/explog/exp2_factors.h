// 2^(i/n) of 32-bit lanes without a table in memory: the product of two rows that fit registers, one by the upper bits
// of i and one by the lower.
#pragma once

#include "zym/kernels/explog/tables.h"
#include "zym/lanes/lanes.h"

namespace orvik::zym {

// Eight and sixteen rows by the low bits of the index.
inline F32 look_up_8(const float* table, I32 index) { return as_float(look_up(as_bits(load<F32>(table)), index)); }
inline F32 look_up_16(const float* table, I32 index) {
  const F32 upper = as_float(shift_left<28>(index));
  return select(upper, look_up_8(table + 8, index), look_up_8(table, index));
}

// (head + low) (1 + tail), where head + low is the exact product of both rows.
struct Exp2Row {
  F32 head, low, tail;
  Exp2Row(F32 coarse, F32 fine, F32 coarse_tail, F32 fine_tail)
      : head(coarse * fine), low(fms(coarse, fine, head)), tail(coarse_tail + fine_tail) {}

  static Exp2Row of_64(I32 i) {
    const I32 upper = shift_right<3>(i);
    return {look_up_8(kExp2Eighths[0], upper), look_up_8(kExp2In64[0], i), look_up_8(kExp2Eighths[1], upper),
            look_up_8(kExp2In64[1], i)};
  }
  static Exp2Row of_128(I32 i) {
    const I32 upper = shift_right<3>(i);
    return {look_up_16(kExp2Sixteenths[0], upper), look_up_8(kExp2In128[0], i), look_up_16(kExp2Sixteenths[1], upper),
            look_up_8(kExp2In128[1], i)};
  }
};

// The product alone, of 32 rows.
inline F32 exp2_of_32(I32 i) {
  return look_up_8(kExp2Eighths[0], shift_right<2>(i)) * select_in_quad(load<F32>(kExp2In32[0]), i);
}

// 2^k as bits to add to a float's: k stands in t above `Bits` bits of row number.
template <int Bits>
I32 exponent_bits(F32 t) {
  return shift_left<23 - Bits>(as_bits(t)) & I32(0xFF800000u);
}

}  // namespace orvik::zym
