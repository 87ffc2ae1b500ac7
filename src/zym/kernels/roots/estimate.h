// Estimates of 1/x and 1/sqrt(x) that the refinements start from, within 1.5 * 2^-12 on every processor. The bits of an
// estimate, and with them the last bits of what is refined from it, differ between processor makers.
#pragma once

#include "zym/lanes/lanes.h"

namespace orvik::zym::roots {

inline constexpr uint64_t high(uint32_t word) { return static_cast<uint64_t>(word) << 32; }

// The 64-bit forms narrow by shifting the bits: the high word becomes a float with the fraction of x and an exponent of
// 0 (or -1), whose estimate is shifted back and given the true exponent. Every normal x is in range. The low word is
// an infinity, so that its estimate is a zero and the wide estimate is exactly the narrow one, of 24 bits at most.
inline F64 narrowed(F64 x, uint32_t keep, uint32_t exponent) {
  const I64 bits = shift_left<3>(as_bits(x));
  return as_float((bits & I64(high(keep))) | I64(high(exponent) | 0x7F800000u));
}
inline F64 widened(F32 estimate, I64 exponent) { return as_float(shift_right<3>(I64(as_bits(estimate).v)) + exponent); }
inline F32 halves(F64 x) { return _mm256_castpd_ps(x.v); }

inline F64 reciprocal(F64 x) {
  const I64 exponent = as_bits(x) & I64(high(0xFFF00000u));
  return widened(reciprocal_estimate(halves(narrowed(x, 0x007FFFFFu, 0x3F800000u))), I64(high(1919u << 20)) - exponent);
}
inline F32 reciprocal(F32 x) { return reciprocal_estimate(x); }

// x > 0. The lowest bit of the exponent stays with the fraction: the rest of it is even and halved.
inline F64 inverse_root(F64 x) {
  const I64 exponent = shift_right<1>(as_bits(x) & I64(high(0x7FE00000u)));
  return widened(inverse_root_estimate(halves(narrowed(x, 0x00FFFFFFu, 0x3F000000u))),
                 I64(high(1407u << 20)) - exponent);
}
inline F32 inverse_root(F32 x) { return inverse_root_estimate(x); }

// Special lanes: bits outside [first, last], all of them positive. One addition moves the range to the lowest signed
// integers, one compare finds what is above. In 64 bits the high words decide.
inline F32 outside(F32 x, uint32_t first, uint32_t last) {
  const uint32_t shift = 0x80000000u - first;
  return as_float((as_bits(x) + I32(shift)) > I32(last + shift));
}
inline F64 outside(F64 x, uint32_t first, uint32_t last) {
  const uint32_t shift = 0x80000000u - first;
  return as_float(high_above(as_bits(x) + I64(high(shift)), I64(high(last + shift) | 0xFFFFFFFFu)));
}

// The same on magnitudes: the sign leaves by a shift. With two operands each must be in range.
inline I32 moved(F32 x, uint32_t first) { return shift_left<1>(as_bits(x)) + I32(0x80000000u - 2 * first); }
inline I64 moved(F64 x, uint32_t first) { return shift_left<1>(as_bits(x)) + I64(high(0x80000000u - 2 * first)); }

inline F32 outside_magnitude(F32 x, uint32_t first, uint32_t last) {
  return as_float(moved(x, first) > I32(2 * (last - first) + (0x80000000u | 1u)));
}
inline F32 outside_magnitude(F32 x, F32 z, uint32_t first, uint32_t last) {
  return as_float(max(moved(x, first), moved(z, first)) > I32(2 * (last - first) + (0x80000000u | 1u)));
}
inline F64 outside_magnitude(F64 x, uint32_t first, uint32_t last) {
  return as_float(high_above(moved(x, first), I64(high(2 * (last - first) + (0x80000000u | 1u)))));
}
inline F64 outside_magnitude(F64 x, F64 z, uint32_t first, uint32_t last) {
  return as_float(
      high_above(high_max(moved(x, first), moved(z, first)), I64(high(2 * (last - first) + (0x80000000u | 1u)))));
}

}  // namespace orvik::zym::roots
