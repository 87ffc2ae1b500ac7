// The rounds of Philox-4x32-10, for as many counters as registers hold.
#pragma once

#include <stddef.h>
#include <stdint.h>

#include "lanes/words.h"
#include "qor/unroll.h"

namespace orvik::qor {

inline constexpr int kPhiloxRounds = 10;
inline constexpr uint64_t kPhiloxM0 = 0xD2511F53, kPhiloxM1 = 0xCD9E8D57;

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

// Words of G registers of counters, whose blocks stand in the lanes as quarter_numbers() says: interleaving then puts
// them in order. Only the low half of a 64-bit lane counts in c0 to c3; products bring junk into the high halves. Every
// step is done for all G, since ten rounds in a row are longer than the processor looks ahead.
template <int G>
struct PhiloxWords {
  I64 c0[G], c1[G], c2[G], c3[G];

  // `high` holds words 2 and 3 of the counters.
  __attribute__((always_inline)) void begin(const I64 (&low)[G], I64 high) {
    unroll<G>([&](auto g) __attribute__((always_inline)) {
      c0[g] = low[g];
      c1[g] = swap_words(low[g]);
      c2[g] = high;
      c3[g] = swap_words(high);
    });
  }

  __attribute__((always_inline)) void multiply(I64 (&p0)[G], I64 (&p1)[G]) const {
    unroll<G>([&](auto g) __attribute__((always_inline)) {
      p0[g] = multiply_low_words(c0[g], I64(kPhiloxM0));
      p1[g] = multiply_low_words(c2[g], I64(kPhiloxM1));
    });
  }

  template <int FROM, int TO>
  __attribute__((always_inline)) void rounds(const PhiloxKeys& keys) {
    unroll<TO - FROM>([&](auto k) __attribute__((always_inline)) {
      I64 p0[G], p1[G];
      multiply(p0, p1);
      // Halves change places by a shuffle, since shifts compete with the products.
      unroll<G>([&](auto g) __attribute__((always_inline)) {
        c0[g] = xor_late(swap_words(p1[g]), c1[g], keys.k0[FROM + k]);
        c2[g] = xor_late(swap_words(p0[g]), c3[g], keys.k1[FROM + k]);
        c1[g] = p1[g];
        c3[g] = p0[g];
      });
    });
  }

  // The last round, behind which c1 and c3 already stand where they belong: above c0 and c2.
  __attribute__((always_inline)) void finish(const PhiloxKeys& keys, I32 (&words)[2 * G]) const {
    constexpr int kLast = kPhiloxRounds - 1;
    I64 p0[G], p1[G];
    multiply(p0, p1);
    unroll<G>([&](auto g) __attribute__((always_inline)) {
      const I64 words01 = xor_late_low_words(swap_words(p1[g]), c1[g], keys.k0[kLast]);
      const I64 words23 = xor_late_low_words(swap_words(p0[g]), c3[g], keys.k1[kLast]);
      words[2 * g] = as_words(first_words(words01, words23));
      words[2 * g + 1] = as_words(second_words(words01, words23));
    });
  }
};

// What the first two rounds make of words 1 to 3 of the counter alone: blocks whose counters differ in word 0 share two
// of their four products.
struct PhiloxShared {
  PhiloxShared(I64 low, I64 high, const PhiloxKeys& keys) {
    const I64 p1 = multiply_low_words(high, I64(kPhiloxM1));
    const I64 c0 = swap_words(p1) ^ (swap_words(low) ^ keys.k0[0]);
    c3_second = multiply_low_words(c0, I64(kPhiloxM0));
    c2_first = swap_words(high) ^ keys.k1[0];
    c0_second = p1 ^ keys.k0[1];
    c2_second = swap_words(c3_second) ^ keys.k1[1];
  }
  // c2 behind the first round but for its product; c0 behind the second but for its product, c2 but for c3, and c3.
  I64 c2_first, c0_second, c2_second, c3_second;
};

// G pairs of registers at a time (counter_runs.h).
template <int G>
class PhiloxRun {
 public:
  using Keys = PhiloxKeys;
  using Vector = I32;
  static constexpr int kVectors = 2 * G;
  PhiloxRun(const Keys& keys, uint64_t low, uint64_t high)
      : keys_(keys),
        low_(I64(low) + quarter_numbers()),
        high_(high),
        shared_(I64(low), high_, keys),
        until_carry_((uint64_t{1} << 32) - static_cast<uint32_t>(low)) {}
  __attribute__((always_inline)) void make(Vector (&words)[kVectors]) {
    PhiloxWords<G> c;
    I64 low[G];
    unroll<G>([&](auto g) __attribute__((always_inline)) { low[g] = low_ + I64(kPairBlocks * g); });
    low_ = low_ + I64(kBlocks);
    if (until_carry_ >= kBlocks) [[likely]] {
      until_carry_ -= kBlocks;
      two_rounds(c, low);
    } else {  // word 0 of the counter wraps among these
      c.begin(low, high_);
      c.template rounds<0, 2>(keys_);
      until_carry_ += (uint64_t{1} << 32) - kBlocks;
      shared_ = PhiloxShared(low_, high_, keys_);
    }
    c.template rounds<2, kPhiloxRounds - 1>(keys_);
    c.finish(keys_, words);
  }
  template <class Sink>
  void deliver(const Sink& sink, ptrdiff_t i) {
    Vector words[kVectors];
    make(words);
    sink.group(i, words);
  }

 private:
  static constexpr uint64_t kPairBlocks = kWords / 2, kBlocks = kPairBlocks * G;

  __attribute__((always_inline)) void two_rounds(PhiloxWords<G>& c, const I64 (&low)[G]) const {
    unroll<G>([&](auto g) __attribute__((always_inline)) {
      const I64 p0 = multiply_low_words(low[g], I64(kPhiloxM0));
      c.c1[g] = multiply_low_words(swap_words(p0) ^ shared_.c2_first, I64(kPhiloxM1));
      c.c2[g] = p0 ^ shared_.c2_second;
      c.c3[g] = shared_.c3_second;
    });
    unroll<G>([&](auto g) __attribute__((always_inline)) { c.c0[g] = swap_words(c.c1[g]) ^ shared_.c0_second; });
  }

  const Keys& keys_;
  I64 low_, high_;
  PhiloxShared shared_;
  uint64_t until_carry_;
};
struct PhiloxRuns {
  using Keys = PhiloxKeys;
  static constexpr bool kAhead = false;
  static constexpr ptrdiff_t kWideWords = 40;
  // As many as hide the latency of a product.
  using Long = PhiloxRun<kWords == 16 ? 4 : 2>;
  using Short = PhiloxRun<kWords == 16 ? 2 : 1>;
};

}  // namespace orvik::qor
