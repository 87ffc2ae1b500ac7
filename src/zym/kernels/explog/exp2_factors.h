// 2^(i/n) of 32-bit lanes without a table in memory: the product of two rows that fit registers, one by the upper bits
// of i and one by the lower.
#pragma once

#include "zym/kernels/explog/tables.h"
#include "zym/skeleton/family.h"

namespace orvik::zym {

// Eight rows by the low bits of the index.
template <Single V>
V look_up_8(const float* table, Integer<V> index) {
  return look_up(octet_table<V>(table), index);
}
// (head + low) (1 + tail), where head + low is the exact product of both rows.
template <Single V>
struct Exp2Row {
  V head, low, tail;
  Exp2Row(V coarse, V fine, V coarse_tail, V fine_tail)
      : head(coarse * fine), low(fms(coarse, fine, head)), tail(coarse_tail + fine_tail) {}

  static Exp2Row of_64(Integer<V> i) {
    const Integer<V> upper = shift_right<3>(i);
    return {look_up_8<V>(kExp2Eighths[0], upper), look_up_8<V>(kExp2In64[0], i), look_up_8<V>(kExp2Eighths[1], upper),
            look_up_8<V>(kExp2In64[1], i)};
  }
  static Exp2Row of_128(Integer<V> i) {
    const Integer<V> upper = shift_right<3>(i);
    return {look_up_16<V>(kExp2Sixteenths[0], upper), look_up_8<V>(kExp2In128[0], i),
            look_up_16<V>(kExp2Sixteenths[1], upper), look_up_8<V>(kExp2In128[1], i)};
  }
};

// The product alone, of 32 rows.
template <Single V>
V exp2_of_32(Integer<V> i) {
  return look_up_8<V>(kExp2Eighths[0], shift_right<2>(i)) * select_in_quad(octet_table<V>(kExp2In32[0]), i);
}

// 2^k as bits to add to a float's: k stands in t above `RowBits` bits of row number.
template <int RowBits, Single V>
Integer<V> exponent_bits(V t) {
  return shift_left<23 - RowBits>(as_bits(t)) & Integer<V>(0xFF800000u);
}

}  // namespace orvik::zym
