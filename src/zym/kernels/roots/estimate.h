// Estimates of 1/x and 1/sqrt(x) that the refinements start from, within 1.5 * 2^-12 on every processor. The bits of an
// estimate, and with them the last bits of what is refined from it, differ between processor makers.
#pragma once

#include "zym/skeleton/family.h"

namespace orvik::zym::roots {

inline constexpr uint64_t high(uint32_t word) { return static_cast<uint64_t>(word) << 32; }

template <Single V>
V inverse_root(V x) {
  return inverse_root_estimate(x);
}

// The 64-bit form, for every normal x > 0: the high word, shifted, becomes a float with the fraction of x and an
// exponent of 0 or -1, its own lowest bit. The estimate is shifted back and given the rest of the exponent, which is
// even, halved. The low word is an infinity, so that its estimate is a zero and the wide estimate is the narrow one, of
// 24 bits at most.
template <Double V>
V inverse_root(V x) {
  using I = Integer<V>;
  const I bits = as_bits(x);
  const I narrow =
      select_bytes(I(high(0xFF000000u) | 0xFFFFFFFFu), I(high(0x3F000000u) | 0x7F800000u), shift_left<3>(bits));
  const I estimate = as_long_words(as_bits(inverse_root_estimate(as_float(as_words(narrow)))));
  const I exponent = shift_right<1>(bits & I(high(0x7FE00000u)));
  return as_float((shift_right<3>(estimate) + I(high(1407u << 20))) - exponent);
}

}  // namespace orvik::zym::roots
