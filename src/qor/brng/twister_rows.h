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

  // As many words for each of G registers, every step for all of them.
  template <int G>
  static void next(const uint32_t* x, I32 matrix, I32 (&w)[G]) {
    const I32 low(P::kLow);
    I32 twist[G];
    unroll<G>([&](auto g) __attribute__((always_inline)) {
      const I32 w1 = load_words(x + kWords * g + 1);
      w[g] = clear_bits(low, load_words(x + kWords * g)) | (w1 & low);
      twist[g] = shift_left<31>(w1);
    });
    unroll<G>([&](auto g) __attribute__((always_inline)) { twist[g] = shift_right_arithmetic<31>(twist[g]); });
    unroll<G>([&](auto g) __attribute__((always_inline)) { w[g] = shift_right<1>(w[g]); });
    unroll<G>([&](auto g) __attribute__((always_inline)) {
      w[g] = load_words(x + kM + kWords * g) ^ w[g] ^ (twist[g] & matrix);
    });
  }

  // Appends words k, k + 1 ... below `count` to the N at x, as far as whole groups of registers go, and hands them on
  // from index i + k. Returns the next k.
  template <class Sink>
  static int advance(uint32_t* x, int k, int count, const typename P::State& state, const Sink& target, ptrdiff_t i) {
    const I32 matrix(P::matrix(state));
    const typename P::Tempering temper(state);
    const Sink sink = target;  // a copy: for all the compiler knows the results might overlap it
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
