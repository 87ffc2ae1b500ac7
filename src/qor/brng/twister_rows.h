// The recurrence of twisters over registers of either width, tempered on the way to a sink. `P` names N, M, the low
// bits that come from the second word, the state with its matrix, and the four tempering steps.
#pragma once

#include <stddef.h>
#include <stdint.h>

#include "qor/brng/sinks.h"

namespace orvik::qor {

using TwisterFloats = FloatSink<ToFloats<Unsigned, FromLow<Words32>>>;
using TwisterDoubles = DoubleSink<ToDoubles<Unsigned, FromLow<Words32>>>;
using TwisterQuickDoubles = DoubleSink<ToDoublesBiased<Words32>>;

// Steps of tempering: y ^= y >> S, y ^= (y << S) & mask.
template <int S, int G>
void temper_right(I32 (&y)[G]) {
  unroll<G>([&](auto g) __attribute__((always_inline)) { y[g] = y[g] ^ shift_right<S>(y[g]); });
}
template <int S, int G>
void temper_left(I32 (&y)[G], I32 mask) {
  unroll<G>([&](auto g) __attribute__((always_inline)) { y[g] = y[g] ^ (shift_left<S>(y[g]) & mask); });
}

template <class P>
struct TwisterRows {
  static constexpr int kN = P::kN, kM = P::kM;
  // Registers that are made together: their words may not need each other.
  static constexpr int kGroup = kN - kM >= 4 * kWords && kM >= 4 * kWords ? 4 : 2;
  static_assert(kM + kWords * kGroup <= kN && kN - kM >= kWords * kGroup);

  // Words of a short recurrence are read again before their stores have come to memory. Where there are registers
  // enough, those that they were made in are kept instead, one round of them at a time.
  static constexpr int kKept = (kN + kWords - 1) / kWords;
  static constexpr bool kShort = kKept <= 5;

  // As many words for each of G registers, every step for all of them; `m` are those kM on.
  template <int G>
  static void next(const I32 (&w0)[G], const I32 (&w1)[G], const I32 (&m)[G], I32 matrix, I32 (&w)[G]) {
    const I32 low(P::kLow);
    I32 twist[G];
    unroll<G>([&](auto g) __attribute__((always_inline)) {
      w[g] = clear_bits(low, w0[g]) | (w1[g] & low);
      twist[g] = shift_left<31>(w1[g]);
    });
    unroll<G>([&](auto g) __attribute__((always_inline)) { twist[g] = shift_right_arithmetic<31>(twist[g]); });
    unroll<G>([&](auto g) __attribute__((always_inline)) { w[g] = shift_right<1>(w[g]); });
    unroll<G>([&](auto g) __attribute__((always_inline)) { w[g] = m[g] ^ w[g] ^ (twist[g] & matrix); });
  }
  template <int G>
  static void next(const uint32_t* x, I32 matrix, I32 (&w)[G]) {
    I32 w0[G], w1[G], m[G];
    unroll<G>([&](auto g) __attribute__((always_inline)) {
      w0[g] = load_words(x + kWords * g);
      w1[g] = load_words(x + kWords * g + 1);
      m[g] = load_words(x + kM + kWords * g);
    });
    next(w0, w1, m, matrix, w);
  }
  // The words that stood `Back` words before register g of a round.
  template <int Back>
  static I32 behind(const I32 (&kept)[kKept], int g) {
    constexpr int kAt = kWords * kKept - Back;
    return words_from<kAt % kWords>(kept[(g + kAt / kWords) % kKept], kept[(g + kAt / kWords + 1) % kKept]);
  }

  // Appends words k, k + 1 ... below `count` to the N at x, as far as whole groups of registers go, and hands them on
  // from index i + k. Returns the next k. Up to a register before x is read, whatever it holds.
  template <class Sink>
  static int advance(uint32_t* x, int k, int count, const typename P::State& state, const Sink& target, ptrdiff_t i) {
    const I32 matrix(P::matrix(state));
    const typename P::Tempering temper(state);
    const Sink sink = target;  // a copy: for all the compiler knows the results might overlap it
    if constexpr (kShort) {
      if (k + kWords * kKept > count) return k;
      I32 kept[kKept];
      unroll<kKept>([&](auto g)
                        __attribute__((always_inline)) { kept[g] = load_words(x + k + kN - kWords * (kKept - g)); });
      for (; k + kWords * kKept <= count; k += kWords * kKept) {
        unroll<kKept>([&](auto g) __attribute__((always_inline)) {
          const int at = k + kWords * g;
          const I32 w0[1] = {behind<kN>(kept, g)}, w1[1] = {behind<kN - 1>(kept, g)};
          const I32 m[1] = {behind<kN - kM>(kept, g)};
          I32 w[1];
          next(w0, w1, m, matrix, w);
          store(x + kN + at, w[0]);
          kept[g] = w[0];
          temper(w);
          sink.group(i + at, w);
        });
      }
      return k;
    }
    for (; k + kWords * kGroup <= count; k += kWords * kGroup) {
      I32 w[kGroup];
      next(x + k, matrix, w);
      unroll<kGroup>([&](auto g) __attribute__((always_inline)) { store(x + kN + k + kWords * g, w[g]); });
      temper(w);
      sink.group(i + k, w);
    }
    return k;
  }

  // Words that are made already.
  template <class Sink>
  static void deliver(const uint32_t* word, int count, const typename P::State& state, const Sink& target,
                      ptrdiff_t i) {
    const typename P::Tempering temper(state);
    const Sink sink = target;
    int k = 0;
    for (; k + kWords <= count; k += kWords) {
      I32 w[1] = {load_words(word + k)};
      temper(w);
      sink.group(i + k, w);
    }
    if (k == count) return;
    I32 w[1] = {load_some(word + k, count - k)};
    temper(w);
    sink.some(i + k, w[0], count - k);
  }
};

// The same, compiled for registers of 512 bits: to words, floats, doubles and doubles by the quicker way.
using WideTwister = int(Form form, uint32_t* x, int k, int count, const void* state, const Target& target, ptrdiff_t i);
extern "C" WideTwister orvik_qor_wide_mt19937, orvik_qor_wide_mt2203;
using WideTempering = void(Form form, const uint32_t* word, int count, const void* state, const Target& target,
                           ptrdiff_t i);
extern "C" WideTempering orvik_qor_wide_mt19937_tempering, orvik_qor_wide_mt2203_tempering;
// From so many words in hand on it pays.
inline constexpr int kWideTemperingWords = 32;

}  // namespace orvik::qor
