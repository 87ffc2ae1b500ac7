// Lanes of a vector that a mask chooses, one after the other in memory.
#pragma once

#include <bit>
#include <cstdint>

#include "lanes/lanes.h"

namespace orvik::ss {

// For every mask of a vector the 32-bit words of the chosen lanes, moved to the front; the rest does not matter.
template <class V>
struct ChosenWords {
  static constexpr int kWords = static_cast<int>(sizeof(Element<V>) / 4);
  uint32_t words[1 << kWidth<V>][8] = {};

  constexpr ChosenWords() {
    for (uint32_t bits = 0; bits < 1u << kWidth<V>; ++bits) {
      int to = 0;
      for (uint32_t lane = 0; lane < kWidth<V>; ++lane) {
        if ((bits >> lane & 1) == 0) continue;
        for (uint32_t word = 0; word < kWords; ++word) words[bits][to++] = lane * kWords + word;
      }
    }
  }
};
template <class V>
inline constexpr ChosenWords<V> kChosenWords;

// Stores the lanes of `a` whose bits are set, the lowest first, and returns how many they are. What lies behind them,
// up to a whole vector, is overwritten.
template <class V>
inline int64_t store_chosen(Element<V>* to, uint32_t bits, V a) {
  const Integer<V> words = octet_table<V>(kChosenWords<V>.words[bits]);
  store(to, as_float(look_up(as_bits(a), words)));
  return std::popcount(bits);
}

}  // namespace orvik::ss
