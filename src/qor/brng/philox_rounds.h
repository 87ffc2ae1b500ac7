// The rounds of Philox-4x32-10, for as many counters as registers hold.
#pragma once

#include <stddef.h>
#include <stdint.h>

#include "lanes/words.h"
#include "qor/unroll.h"

namespace orvik::qor {

inline constexpr int kPhiloxRounds = 10;

// Keys of all rounds, in every lane.
struct PhiloxKeys {
  explicit PhiloxKeys(const uint32_t* key) {
    for (uint32_t r = 0; r < kPhiloxRounds; ++r) {
      k0[r] = I64(uint64_t{key[0] + 0x9E3779B9u * r});
      k1[r] = I64(uint64_t{key[1] + 0xBB67AE85u * r});
    }
  }
  I64 k0[kPhiloxRounds], k1[kPhiloxRounds];
};

// G registers of counters, whose blocks stand in the lanes as quarter_numbers() says: interleaving then puts them in
// order. `high` holds words 2 and 3 of the counters. Every step is done for all G, since ten rounds in a row are longer
// than the processor looks ahead.
template <int G>
__attribute__((always_inline)) inline void philox_blocks(const I64 (&low)[G], const I64 (&high)[G],
                                                         const PhiloxKeys& keys, I32 (&words)[2 * G]) {
  const I64 m0(uint64_t{0xD2511F53}), m1(uint64_t{0xCD9E8D57});
  // Only the low half of a 64-bit lane counts in c0 to c3; products bring junk into the high halves. Halves change
  // places by a shuffle, since shifts compete with the products.
  I64 c0[G], c1[G], c2[G], c3[G];
  unroll<G>([&](auto g) __attribute__((always_inline)) {
    c0[g] = low[g];
    c1[g] = swap_words(low[g]);
    c2[g] = high[g];
    c3[g] = swap_words(high[g]);
  });
  unroll<kPhiloxRounds>([&](auto r) __attribute__((always_inline)) {
    I64 p0[G], p1[G];
    unroll<G>([&](auto g) __attribute__((always_inline)) {
      p0[g] = multiply_low_words(c0[g], m0);
      p1[g] = multiply_low_words(c2[g], m1);
    });
    unroll<G>([&](auto g) __attribute__((always_inline)) {
      c0[g] = swap_words(p1[g]) ^ (c1[g] ^ keys.k0[r]);
      c2[g] = swap_words(p0[g]) ^ (c3[g] ^ keys.k1[r]);
      c1[g] = p1[g];
      c3[g] = p0[g];
    });
  });
  unroll<G>([&](auto g) __attribute__((always_inline)) {
    const I64 words01 = with_high_words(c0[g], swap_words(c1[g]));
    const I64 words23 = with_high_words(c2[g], swap_words(c3[g]));
    words[2 * g] = as_words(first_words(words01, words23));
    words[2 * g + 1] = as_words(second_words(words01, words23));
  });
}

// G pairs of registers at a time (counter_runs.h).
template <int G>
struct PhiloxRun {
  using Keys = PhiloxKeys;
  using Vector = I32;
  static constexpr int kVectors = 2 * G;
  PhiloxRun(uint64_t low, uint64_t high) : low_(low), high_(high) { low_ = low_ + quarter_numbers(); }
  __attribute__((always_inline)) void make(const Keys& keys, Vector (&words)[kVectors]) {
    constexpr uint64_t kBlocks = kWords / 2;  // of a pair of registers
    I64 low[G], high[G];
    unroll<G>([&](auto g) __attribute__((always_inline)) {
      low[g] = low_ + I64(kBlocks * g);
      high[g] = high_;
    });
    philox_blocks(low, high, keys, words);
    low_ = low_ + I64(kBlocks * G);
  }
  template <class Sink>
  void deliver(const Keys& keys, const Sink& sink, ptrdiff_t i) {
    Vector words[kVectors];
    make(keys, words);
    sink.group(i, words);
  }
  I64 low_, high_;
};
struct PhiloxRuns {
  using Keys = PhiloxKeys;
  static constexpr bool kAhead = false;
  // As many as hide the latency of a product.
  using Long = PhiloxRun<kWords == 16 ? 4 : 2>;
  using Short = PhiloxRun<kWords == 16 ? 2 : 1>;
};

}  // namespace orvik::qor
