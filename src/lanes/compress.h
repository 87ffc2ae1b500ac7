// Lanes that are chosen, brought together and taken apart again: what leaves a loop over candidates goes to a list, and
// what the list says comes back to its places. The choice is the bits of a mask (lane_bits), lowest lane first.
#pragma once

#include <bit>
#include <cstdint>

#include "lanes/memory.h"
#include "lanes/vectors.h"
#if ORVIK_REGISTER_BITS == 512
#include "lanes/wide/compress.h"
#else
#include "lanes/narrow/compress.h"
#endif

namespace orvik {

// compress(x, bits): the chosen lanes of x, in order, in the first lanes; the others hold anything.
// expand(x, bits): the first lanes of x, in order, in the chosen lanes; the others hold anything.

// Lanes whose bits are set, and how many.
template <class V>
inline Mask<V> chosen(uint32_t bits) {
  return mask_of_bits(V(Element<V>(0)), bits);
}
inline int32_t how_many(uint32_t bits) { return std::popcount(bits); }

}  // namespace orvik
