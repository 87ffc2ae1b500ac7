// Estimates of 1/x and 1/sqrt(x) that the refinements start from, within 1.5 * 2^-12 on every processor. The bits of an
// estimate, and with them the last bits of what is refined from it, differ between processor makers.
#pragma once

#include "zym/lanes/lanes.h"

namespace orvik::zym::roots {

inline constexpr uint64_t high(uint32_t word) { return static_cast<uint64_t>(word) << 32; }

inline F32 inverse_root(F32 x) { return inverse_root_estimate(x); }

// The 64-bit form, for every normal x > 0: the high word, shifted, becomes a float with the fraction of x and an
// exponent of 0 or -1, its own lowest bit. The estimate is shifted back and given the rest of the exponent, which is
// even, halved. The low word is an infinity, so that its estimate is a zero and the wide estimate is the narrow one, of
// 24 bits at most.
inline F64 inverse_root(F64 x) {
  const I64 bits = as_bits(x);
  const I64 narrow =
      select_bytes(I64(high(0xFF000000u) | 0xFFFFFFFFu), I64(high(0x3F000000u) | 0x7F800000u), shift_left<3>(bits));
  const I64 estimate = as_bits(inverse_root_estimate(F32(_mm256_castsi256_ps(narrow.v)))).v;
  const I64 exponent = shift_right<1>(bits & I64(high(0x7FE00000u)));
  return as_float((shift_right<3>(estimate) + I64(high(1407u << 20))) - exponent);
}

// Special lanes by magnitude, as by `outside`: the sign leaves by a shift.
template <uint32_t first, uint32_t last>
auto outside_magnitude(F32 x) {
  const I32 moved = shift_left<1>(as_bits(x)) + I32(0x80000000u - 2 * first);
  return Above<F32, static_cast<int32_t>(2 * (last - first) + 0x80000001u)>{moved.v};
}
template <uint32_t first, uint32_t last>
auto outside_magnitude(F64 x) {
  const I64 moved = shift_left<1>(as_bits(x)) + I64(high(0x80000000u - 2 * first));
  return Above<F64, static_cast<int32_t>(2 * (last - first) + 0x80000001u)>{moved.v};
}

}  // namespace orvik::zym::roots
