// 2^(i/n) of 32-bit lanes without a table in memory: the product of two rows that fit registers, one by the upper bits
// of i and one by the lower.
#pragma once

#include <bit>

#include "zym/kernels/explog/constants.h"
#include "zym/kernels/explog/tables.h"
#include "zym/skeleton/family.h"

namespace orvik::zym {

// Eight rows by the low bits of the index.
template <Single V>
V look_up_8(const float* table, Integer<V> index) {
  return look_up(octet_table<V>(table), index);
}
// 2^(i/32) as the product of both heads.
template <Single V>
V exp2_of_32(Integer<V> i) {
  return look_up_8<V>(kExp2Eighths[0], shift_right<2>(i)) * select_in_quad(octet_table<V>(kExp2In32[0]), i);
}

// The upper factors as bits less the number of the row where those of an index that is shifted to the exponent have it:
// the sum is the factor times 2^k.
template <class E, int Rows>
struct RowFields {
  static constexpr int kShift = FloatFormat<E>::mantissa_bits - std::bit_width(unsigned{Rows - 1});
  E bits[Rows];
  explicit constexpr RowFields(const E (&heads)[Rows]) : bits{} {
    using Bits = typename FloatFormat<E>::Bits;
    for (Bits i = 0; i < Rows; ++i) bits[i] = std::bit_cast<E>(std::bit_cast<Bits>(heads[i]) - (i << kShift));
  }
};
inline constexpr RowFields kExp2EighthFields32(kExp2UpperEighths);
inline constexpr RowFields kExp2SixteenthFields32(kExp2UpperSixteenths);

// b^r 2^(n/N): the upper factor with 2^k, 1 + fine the lower one, and what the upper one lacks as an addend of r. n + 4
// stands in the low bits of t.
template <Single V>
struct FineRow {
  V head, fine, rest;
};
template <Single V>
FineRow<V> exp2_row_of_64(V t) {
  const Integer<V> upper = shift_right<3>(as_bits(t));
  return {as_float(as_bits(look_up_8<V>(kExp2EighthFields32.bits, upper)) + shift_left<20>(upper)),
          look_up_8<V>(kExp2LowerLess1, as_bits(t)), look_up_8<V>(kExp2EighthsRest32, upper)};
}
template <Single V>
FineRow<V> exp10_row_of_128(V t) {
  const Integer<V> upper = shift_right<3>(as_bits(t));
  return {as_float(as_bits(look_up_16<V>(kExp2SixteenthFields32.bits, upper)) + shift_left<19>(upper)),
          look_up_8<V>(kExp10LowerLess1, as_bits(t)), look_up_16<V>(kExp10SixteenthsRest32, upper)};
}

// 2^k as bits to add to a float's: k stands in t above `RowBits` bits of row number.
template <int RowBits, Single V>
Integer<V> exponent_bits(V t) {
  return shift_left<23 - RowBits>(as_bits(t)) & Integer<V>(0xFF800000u);
}

}  // namespace orvik::zym
