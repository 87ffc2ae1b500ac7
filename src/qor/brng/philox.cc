// PHILOX4X32X10: ten rounds of Philox-4x32 (Salmon, Moraes, Dror, Shaw 2011).
#include "qor/brng/counter.h"

namespace orvik::qor {

struct PhiloxBlocks {
  static constexpr int kKeyWords = 2, kFew = 2, kRounds = 10;
  static constexpr bool kAhead = false;
  // A short jump to a block's end holds that block, a long one does not.
  static constexpr Landing kShort = Landing::in_block, kLong = Landing::exact;
  using Vector = I32;

  static int32_t ready(bool) { return ORVIK_QOR_OK; }

  // Keys of all rounds, in every lane.
  struct Keys {
    explicit Keys(const uint32_t* key) {
      for (uint32_t r = 0; r < kRounds; ++r) {
        k0[r] = I64(uint64_t{key[0] + 0x9E3779B9u * r});
        k1[r] = I64(uint64_t{key[1] + 0xBB67AE85u * r});
      }
    }
    I64 k0[kRounds], k1[kRounds];
  };

  // G times four blocks, each four in the lanes 0, 2, 1, 3: interleaving then puts them in order. `high` holds words 2
  // and 3 of the counters. Every step is done for all G, since ten rounds in a row are longer than the processor looks
  // ahead.
  template <int G>
  static void blocks(const I64 (&low)[G], const I64 (&high)[G], const Keys& keys, I32 (&words)[2 * G]) {
    const I64 m0(uint64_t{0xD2511F53}), m1(uint64_t{0xCD9E8D57});
    // Only the low half of a 64-bit lane counts in c0 to c3; products bring junk into the high halves.
    I64 c0[G], c1[G], c2[G], c3[G];
    unroll<G>([&](auto g) __attribute__((always_inline)) {
      c0[g] = low[g];
      c1[g] = shift_right<32>(low[g]);
      c2[g] = high[g];
      c3[g] = shift_right<32>(high[g]);
    });
    unroll<kRounds>([&](auto r) __attribute__((always_inline)) {
      I64 p0[G], p1[G];
      unroll<G>([&](auto g) __attribute__((always_inline)) {
        p0[g] = multiply_low_words(c0[g], m0);
        p1[g] = multiply_low_words(c2[g], m1);
      });
      unroll<G>([&](auto g) __attribute__((always_inline)) {
        c0[g] = shift_right<32>(p1[g]) ^ (c1[g] ^ keys.k0[r]);
        c2[g] = shift_right<32>(p0[g]) ^ (c3[g] ^ keys.k1[r]);
        c1[g] = p1[g];
        c3[g] = p0[g];
      });
    });
    unroll<G>([&](auto g) __attribute__((always_inline)) {
      const I64 words01 = with_high_words(c0[g], shift_left<32>(c1[g]));
      const I64 words23 = with_high_words(c2[g], shift_left<32>(c3[g]));
      words[2 * g] = as_words(first_words(words01, words23));
      words[2 * g + 1] = as_words(second_words(words01, words23));
    });
  }

  static void lanes(Counter128 counter, I64& low, I64& high) {
    const uint64_t l = static_cast<uint64_t>(counter), h = static_cast<uint64_t>(counter >> 64);
    low = I64(l) + long_words(0, 2, 1, 3);
    high = I64(h);
    if (l < ~uint64_t{0} - 2) return;
    const auto carry = [l](uint64_t step) { return uint64_t{l + step < l}; };
    high = high + long_words(0, carry(2), carry(1), carry(3));
  }

  static void make(Counter128 counter, const Keys& keys, Vector (&w)[kFew]) {
    I64 low[1], high[1];
    lanes(counter, low[0], high[0]);
    blocks(low, high, keys, w);
  }

  struct Run {
    static constexpr int kGroup = 2, kVectors = 2 * kGroup;
    explicit Run(Counter128 counter)
        : low_(static_cast<uint64_t>(counter)), high_(static_cast<uint64_t>(counter >> 64)) {
      low_ = low_ + long_words(0, 2, 1, 3);
    }
    template <class Sink>
    void deliver(const Keys& keys, const Sink& sink, ptrdiff_t i) {
      const I64 low[kGroup] = {low_, low_ + I64(uint64_t{4})}, high[kGroup] = {high_, high_};
      I32 words[kVectors];
      blocks(low, high, keys, words);
      sink.group(i, words);
      low_ = low_ + I64(uint64_t{4 * kGroup});
    }
    I64 low_, high_;
  };
};

using Philox = CounterGenerator<PhiloxBlocks>;
static_assert(record_size<Philox::State>() == 64);

}  // namespace orvik::qor

ORVIK_QOR_GENERATOR(PHILOX4X32X10, orvik::qor::Philox)
