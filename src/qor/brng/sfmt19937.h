// The state of SFMT19937, its recurrence in registers of either width, and its characteristic polynomial.
#pragma once

#include <stddef.h>
#include <stdint.h>

#include "qor/brng/sinks.h"

namespace orvik::qor {

constexpr int kSfmtWords = 624, kSfmtBlocks = kSfmtWords / 4;

struct SfmtState {
  uint32_t word[kSfmtWords];    // a ring of blocks of four words
  int32_t index;                // of the next word to deliver, a multiple of four
  uint32_t tail[3];             // words of a block that a request ended in
  uint32_t tail_pos, tail_end;  // of those still to deliver; both 0: none
};

using SfmtFloats = FloatSink<ToFloats<Signed, InDouble<FromMiddle>>>;
using SfmtDoubles = DoubleSink<ToDoubles<Signed, FromMiddle>>;

struct SfmtBlocks {
  static constexpr int kN = kSfmtWords, kPosition = 122;
  alignas(16) static constexpr uint32_t kMask[4] = {0xDFFFFFEF, 0xDDFECB7F, 0xBFFAFFFF, 0xBFFFFFF6};

  // What a block owes to the one that it replaces and to the one 122 on.
  template <class V>
  static V from_far(V a, V b, V mask) {
    return a ^ shift_left_bytes<1>(a) ^ (shift_right<11>(b) & mask);
  }
  // And to the last two: blocks wait for these alone, one behind the other.
  static Quarter next(Quarter far, Quarter c, Quarter d) { return far ^ shift_right_bytes<1>(c) ^ shift_left<18>(d); }

  template <int N>
  static auto vector(const Quarter (&q)[N]) {
    if constexpr (N == 4)
      return join(q);
    else
      return Halves{q[0], q[1]};
  }

  // A whole generation in place, handed on from index i.
  template <class Sink>
  static void generate(uint32_t* w, const Sink& target, ptrdiff_t i) {
    const Sink sink = target;  // a copy: for all the compiler knows the results might overlap it
    const I32 mask = in_quarters(kMask);
    Quarter c = load_quarter(w + kN - 8), d = load_quarter(w + kN - 4);
    const auto make = [&](int k, I32 b) __attribute__((always_inline)) {
      const I32 far = from_far(load_words(w + k), b, mask);
      Quarter made[kWords / 4];
      unroll<kWords / 4>([&](auto q) __attribute__((always_inline)) {
        made[q] = next(quarter<q>(far), c, d);
        c = d;
        d = made[q];
      });
      put_one(RawSink(w), k, vector(made));
      put_one(sink, i + k, vector(made));
    };
    constexpr int kWrap = kN - 4 * kPosition, kWhole = kWrap / kWords * kWords;
    int k = 0;
    for (; k < kWhole; k += kWords) make(k, load_words(w + k + 4 * kPosition));
    if constexpr (kWrap != kWhole) {  // half of a register before the end
      make(k, join(load_half(w + kN - kWords / 2), load_half(w)));
      k += kWords;
    }
    for (; k < kN; k += kWords) make(k, load_words(w + k - kWrap));
  }
  template <class Sink>
  static void generations(uint32_t* word, int count, const Sink& sink, ptrdiff_t i) {
    for (; count > 0; --count, i += kN) generate(word, sink, i);
  }

  template <class Sink>
  static void deliver(const uint32_t* word, int count, const Sink& sink, ptrdiff_t i) {
    int k = 0;
    for (; k + kWords <= count; k += kWords) put_one(sink, i + k, load_words(word + k));
    if (k < count) sink.some(i + k, load_some(word + k, count - k), count - k);
  }
};

// The same, compiled for registers of 512 bits.
using WideSfmtGenerations = void(Form form, uint32_t* word, int count, const Target& target, ptrdiff_t i);
using WideSfmtDeliver = void(Form form, const uint32_t* word, int count, const Target& target, ptrdiff_t i);
extern "C" WideSfmtGenerations orvik_qor_wide_sfmt_generations;
extern "C" WideSfmtDeliver orvik_qor_wide_sfmt_deliver;
// From so many words in hand on the second pays.
inline constexpr int kWideSfmtWords = 32;

constexpr int kSfmtDegree = 19968, kSfmtTerms = 6711;
// Exponents of the characteristic polynomial of a step of one block, ascending.
extern const uint32_t kSfmtPolynomial[kSfmtTerms];

}  // namespace orvik::qor
