// The rounds of ARS-5, for as many counters as registers hold.
#pragma once

#include <stddef.h>
#include <stdint.h>

#include <type_traits>

#include "lanes/aes.h"
#include "qor/brng/sinks.h"

namespace orvik::qor {

// The Weyl sequence of keys that follows the stream's.
struct Ars5Keys {
  explicit Ars5Keys(const uint32_t* key) {
    const Blocks weyl = in_blocks(0x9E3779B97F4A7C15, 0xBB67AE8584CAA73B);
    k[0] = in_blocks(key);
    for (int r = 1; r <= 5; ++r) k[r] = add_long(k[r - 1], weyl);
  }
  Blocks k[6];
};

inline Blocks ars5_blocks(Blocks counter, const Ars5Keys& keys) {
  Blocks x = counter ^ keys.k[0];
  for (int r = 1; r <= 4; ++r) x = aes_round(x, keys.k[r]);
  return aes_last_round(x, keys.k[5]);
}

// So many registers at a time (counter_runs.h).
template <int kRegisters>
struct Ars5Run {
  using Keys = Ars5Keys;
  using Vector = std::conditional_t<sizeof(Blocks) == sizeof(I32), I32, Halves>;
  static constexpr int kVectors = kRegisters * kBlocks * 4 / kWords;
  Ars5Run(const Keys& keys, uint64_t low, uint64_t high) : keys(keys) {
    for (int k = 0; k < kRegisters; ++k)
      c[k] = add_long(in_blocks(low + static_cast<uint64_t>(kBlocks * k), high), block_numbers());
  }
  void make(Vector (&words)[kVectors]) const {
    unroll<kVectors>([&](auto v) __attribute__((always_inline)) { words[v] = vector(c, v, keys); });
  }
  template <class Sink>
  void deliver(const Sink& sink, ptrdiff_t i) {
    const Blocks stride = in_blocks(kRegisters * kBlocks, 0);
    unroll<kVectors>([&](auto v) __attribute__((always_inline)) { put_one(sink, i + kWords * v, vector(c, v, keys)); });
    for (Blocks& counter : c) counter = add_long(counter, stride);
  }
  template <class B>
  static auto vector(const B (&c)[kRegisters], int v, const Keys& keys) {
    if constexpr (sizeof(B) == sizeof(I32))
      return ars5_blocks(c[v], keys);
    else
      return Halves{ars5_blocks(c[2 * v], keys), ars5_blocks(c[2 * v + 1], keys)};
  }
  const Keys& keys;
  Blocks c[kRegisters];
};
struct Ars5Runs {
  using Keys = Ars5Keys;
  static constexpr bool kAhead = true;
  static constexpr ptrdiff_t kWideWords = 48;
  using Long = Ars5Run<8>;
  using Short = Ars5Run<4>;
};

}  // namespace orvik::qor
