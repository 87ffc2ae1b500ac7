// Counter-based generators: block number c of a sequence is a function of c and a key, four 32-bit words a block. One
// class over the block function `B` (its state, its blocks in lanes) holds delivery and jumps.
#pragma once

#include <immintrin.h>
#include <stdint.h>
#include <string.h>

#include "qor/brng/entries.h"
#include "qor/brng/words.h"

namespace orvik::qor {

__extension__ typedef unsigned __int128 Counter128;

inline Counter128 load_counter(const uint32_t* words) {
  uint64_t half[2];
  memcpy(half, words, sizeof half);
  return static_cast<Counter128>(half[1]) << 64 | half[0];
}
inline void store_counter(uint32_t* words, Counter128 c) {
  const uint64_t half[2] = {static_cast<uint64_t>(c), static_cast<uint64_t>(c >> 64)};
  memcpy(words, half, sizeof half);
}

template <class State>
uint32_t words_left(const State& state) {
  return state.left < 4 ? state.left : 4;  // an image may hold anything
}

// Delivers what the block in hand still holds, up to n words; returns how many.
template <class State, class Sink>
int32_t deliver_block(State& state, int32_t n, ptrdiff_t i, const Sink& sink) {
  const uint32_t left = words_left(state);
  const int32_t count = n < static_cast<int32_t>(left) ? n : static_cast<int32_t>(left);
  if (count <= 0) return 0;
  sink.some(i, load_some(state.block + 4 - left, count), count);
  state.left = left - static_cast<uint32_t>(count);
  return count;
}

// A long count less the words in hand: the remainder modulo 4 and the quotient by 4, of which 128 bits matter.
struct BlockCount {
  uint32_t words;
  Counter128 blocks;
};
inline BlockCount blocks_behind(const uint64_t* count, uint32_t left) {
  const Counter128 low = static_cast<Counter128>(count[1]) << 64 | count[0], rest = low - left;
  const uint64_t top = count[2] - (low < left ? 1 : 0);
  return {static_cast<uint32_t>(rest) & 3, rest >> 2 | static_cast<Counter128>(top) << 126};
}
// Up to three words of a caller's count.
inline void read_count(uint64_t (&count)[3], int32_t n, const uint64_t* words) {
  for (int32_t i = 0; i < 3; ++i) count[i] = i < n ? words[i] : 0;
}

}  // namespace orvik::qor
