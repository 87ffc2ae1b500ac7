// Twisted generalised feedback shift registers (Matsumoto, Nishimura 1998). One class over the parameters: `P` names N,
// M, the low bits that come from the second word, the state, and the four tempering steps.
//
// Words are made in a linear buffer that holds the last N raw words in front of the new ones: word k + N follows from
// words k, k + 1 and k + M, so that eight are made at a time with no seam, whatever N is.
#pragma once

#include <immintrin.h>
#include <stdint.h>
#include <string.h>

#include "qor/brng/entries.h"
#include "qor/brng/words.h"

namespace orvik::qor {

// Steps of tempering: y ^= y >> S, y ^= (y << S) & mask.
template <int S, int G>
void shift_right(__m256i (&y)[G]) {
  unroll<G>([&](auto g) __attribute__((always_inline)) { y[g] = _mm256_xor_si256(y[g], _mm256_srli_epi32(y[g], S)); });
}
template <int S, int G>
void shift_left(__m256i (&y)[G], __m256i mask) {
  unroll<G>([&](auto g) __attribute__((always_inline)) {
    y[g] = _mm256_xor_si256(y[g], _mm256_and_si256(_mm256_slli_epi32(y[g], S), mask));
  });
}

template <class P>
struct Twister : NoJumps {
  using State = typename P::State;
  using Raw = RawSink;
  using Float = FloatSink<FromLow>;
  using Double = DoubleSink<FromLow>;
  using QuickDouble = DoubleSink<FromLowBiased>;
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
  static void next(const uint32_t* x, __m256i matrix, __m256i (&w)[G]) {
    const __m256i low = broadcast32(P::kLow);
    __m256i twist[G];
    unroll<G>([&](auto g) __attribute__((always_inline)) {
      const __m256i w1 = load8(x + 8 * g + 1);
      w[g] = _mm256_or_si256(_mm256_andnot_si256(low, load8(x + 8 * g)), _mm256_and_si256(w1, low));
      twist[g] = _mm256_slli_epi32(w1, 31);
    });
    unroll<G>([&](auto g) __attribute__((always_inline)) { twist[g] = _mm256_srai_epi32(twist[g], 31); });
    unroll<G>([&](auto g) __attribute__((always_inline)) { w[g] = _mm256_srli_epi32(w[g], 1); });
    unroll<G>([&](auto g) __attribute__((always_inline)) {
      w[g] = _mm256_xor_si256(_mm256_xor_si256(load8(x + kM + 8 * g), w[g]), _mm256_and_si256(twist[g], matrix));
    });
  }

  // Appends `count` words to the N at x and hands them on from index i. Writes up to a multiple of eight.
  template <class Sink>
  static void advance(uint32_t* x, int count, const State& state, const Tempering& tempering, const Sink& target,
                      ptrdiff_t i) {
    const __m256i matrix = broadcast32(P::matrix(state));
    const Tempering temper = tempering;  // copies: for all the compiler knows the results might overlap them
    const Sink sink = target;
    int k = 0;
    for (; k + 8 * kGroup <= count; k += 8 * kGroup) {
      __m256i w[kGroup];
      next(x + k, matrix, w);
      unroll<kGroup>([&](auto g) __attribute__((always_inline)) { store8(x + kN + k + 8 * g, w[g]); });
      temper(w);
      sink.group(i + k, w);
    }
    for (; k < count; k += 8) {
      __m256i w[1];
      next(x + k, matrix, w);
      store8(x + kN + k, w[0]);
      temper(w);
      k + 8 <= count ? sink.group(i + k, w) : sink.some(i + k, w[0], count - k);
    }
  }

  template <class Sink>
  static void deliver(const uint32_t* word, int count, const Tempering& temper, const Sink& sink, ptrdiff_t i) {
    for (int k = 0; k < count; k += 8) {
      __m256i w[1] = {k + 8 <= count ? load8(word + k) : load_some(word + k, count - k)};
      temper(w);
      k + 8 <= count ? sink.group(i + k, w) : sink.some(i + k, w[0], count - k);
    }
  }

  // Whole generations, tempered on their way out; the state keeps the last one, raw.
  template <class Sink>
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

  template <class Sink>
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
