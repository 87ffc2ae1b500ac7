// Twisted generalised feedback shift registers (Matsumoto, Nishimura 1998). One class over the parameters: `P` names N,
// M, the low bits that come from the second word, the state, and the four tempering steps.
//
// Words are made in a linear buffer that holds the last N raw words in front of the new ones: word k + N follows from
// words k, k + 1 and k + M, so that eight are made at a time with no seam, whatever N is.
#pragma once

#include <stdint.h>
#include <string.h>

#include "qor/brng/entries.h"
#include "qor/brng/sinks.h"

namespace orvik::qor {

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
struct Twister : NoJumps {
  using State = typename P::State;
  using Raw = RawSink;
  using Vector = I32;
  using Float = FloatSink<ToFloats<Unsigned, FromLow<Words32>>>;
  using Double = DoubleSink<ToDoubles<Unsigned, FromLow<Words32>>>;
  using QuickDouble = DoubleSink<ToDoublesBiased<Words32>>;
  using Tempering = typename P::Tempering;

  static constexpr int kN = P::kN, kM = P::kM;
  static constexpr int kGenerations = P::kGenerations;  // made in one pass over the buffer, about 8 KB
  static constexpr int kGroup = 4;                      // vectors that are made together
  static_assert(kM + 8 * kGroup <= kN && kN - kM >= 8 * kGroup);

  static uint32_t next(uint32_t w0, uint32_t w1, uint32_t wm, uint32_t matrix) {
    const uint32_t y = (w0 & ~P::kLow) | (w1 & P::kLow);
    return wm ^ y >> 1 ^ (y & 1 ? matrix : 0);
  }

  // Eight words for each of G vectors, every step for all of them.
  template <int G>
  static void next(const uint32_t* x, I32 matrix, I32 (&w)[G]) {
    const I32 low(P::kLow);
    I32 twist[G];
    unroll<G>([&](auto g) __attribute__((always_inline)) {
      const I32 w1 = load_words(x + 8 * g + 1);
      w[g] = clear_bits(low, load_words(x + 8 * g)) | (w1 & low);
      twist[g] = shift_left<31>(w1);
    });
    unroll<G>([&](auto g) __attribute__((always_inline)) { twist[g] = shift_right_arithmetic<31>(twist[g]); });
    unroll<G>([&](auto g) __attribute__((always_inline)) { w[g] = shift_right<1>(w[g]); });
    unroll<G>([&](auto g)
                  __attribute__((always_inline)) { w[g] = load_words(x + kM + 8 * g) ^ w[g] ^ (twist[g] & matrix); });
  }

  // Appends `count` words to the N at x and hands them on from index i. Writes up to a multiple of eight.
  template <SinkOf<Vector> Sink>
  static void advance(uint32_t* x, int count, const State& state, const Tempering& tempering, const Sink& target,
                      ptrdiff_t i) {
    const I32 matrix(P::matrix(state));
    const Tempering temper = tempering;  // copies: for all the compiler knows the results might overlap them
    const Sink sink = target;
    int k = 0;
    for (; k + 8 * kGroup <= count; k += 8 * kGroup) {
      I32 w[kGroup];
      next(x + k, matrix, w);
      unroll<kGroup>([&](auto g) __attribute__((always_inline)) { store(x + kN + k + 8 * g, w[g]); });
      temper(w);
      sink.group(i + k, w);
    }
    for (; k < count; k += 8) {
      I32 w[1];
      next(x + k, matrix, w);
      store(x + kN + k, w[0]);
      temper(w);
      k + 8 <= count ? sink.group(i + k, w) : sink.some(i + k, w[0], count - k);
    }
  }

  template <SinkOf<Vector> Sink>
  static void deliver(const uint32_t* word, int count, const Tempering& temper, const Sink& sink, ptrdiff_t i) {
    for (int k = 0; k < count; k += 8) {
      I32 w[1] = {k + 8 <= count ? load_words(word + k) : load_some(word + k, count - k)};
      temper(w);
      k + 8 <= count ? sink.group(i + k, w) : sink.some(i + k, w[0], count - k);
    }
  }

  // Whole generations, tempered on their way out; the state keeps the last one, raw.
  template <SinkOf<Vector> Sink>
  static void deliver_generations(State& state, int count, const Tempering& temper, const Sink& sink, ptrdiff_t i) {
    alignas(32) uint32_t x[kN * (1 + kGenerations) + 8];
    memcpy(x, state.mt, sizeof state.mt);
    while (count > 0) {
      const int made = (count < kGenerations ? count : kGenerations) * kN;
      advance(x, made, state, temper, sink, i);
      memmove(x, x + made, sizeof state.mt);
      i += made;
      count -= made / kN;
    }
    memcpy(state.mt, x, sizeof state.mt);
  }

  template <SinkOf<Vector> Sink>
  static int32_t fill(OrvikStream stream, int32_t n, const Sink& sink) {
    State& state = state_of<State>(stream);
    const Tempering temper(state);
    if (n <= 0) return ORVIK_QOR_OK;
    if (static_cast<uint32_t>(state.index) > kN) state.index = kN;  // an image may hold anything
    const int in_hand = kN - state.index, first = n < in_hand ? n : in_hand;
    deliver(state.mt + state.index, first, temper, sink, 0);
    state.index += first;
    n -= first;
    if (n == 0) return ORVIK_QOR_OK;
    const int whole = n / kN, rest = n % kN;
    if (whole > 0) deliver_generations(state, whole, temper, sink, first);
    if (rest > 0) {
      deliver_generations(state, 1, temper, NullSink(), 0);
      deliver(state.mt, rest, temper, sink, first + whole * kN);
      state.index = rest;
    }
    return ORVIK_QOR_OK;
  }

  // The published seeding from a key of any length; no key is the key of one word 1.
  static void seed_by_key(State& state, int32_t n, const uint32_t* key) {
    static constexpr uint32_t kOne = 1;
    if (n < 1) {
      n = 1;
      key = &kOne;
    }
    uint32_t* const mt = state.mt;
    const auto mixed = [mt](int i, uint32_t factor) { return mt[i] ^ ((mt[i - 1] ^ mt[i - 1] >> 30) * factor); };
    mt[0] = 19650218;
    for (int i = 1; i < kN; ++i) mt[i] = 1812433253 * (mt[i - 1] ^ mt[i - 1] >> 30) + static_cast<uint32_t>(i);
    int i = 1;
    const auto move_on = [mt, &i] {
      if (++i < kN) return;
      mt[0] = mt[kN - 1];
      i = 1;
    };
    int32_t j = 0;
    for (int32_t left = kN > n ? kN : n; left > 0; --left) {
      mt[i] = mixed(i, 1664525) + key[j] + static_cast<uint32_t>(j);
      move_on();
      if (++j == n) j = 0;
    }
    for (int left = kN - 1; left > 0; --left) {
      mt[i] = mixed(i, 1566083941) - static_cast<uint32_t>(i);
      move_on();
    }
    mt[0] = 0x80000000;
    state.index = kN;
  }
};

}  // namespace orvik::qor
