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

template <class P>
struct Twister : NoJumps {
  using State = typename P::State;
  using Raw = RawSink;
  using Float = FloatSink<FromLow>;
  using Double = DoubleSink<FromLow>;
  using Tempering = typename P::Tempering;

  static constexpr int kN = P::kN, kM = P::kM;
  static constexpr int kGenerations = P::kGenerations;  // made in one pass over the buffer, about 8 KB
  static_assert(kM + 7 < kN && kN - kM > 8);

  static uint32_t next(uint32_t w0, uint32_t w1, uint32_t wm, uint32_t matrix) {
    const uint32_t y = (w0 & ~P::kLow) | (w1 & P::kLow);
    return wm ^ y >> 1 ^ (y & 1 ? matrix : 0);
  }

  static __m256i next8(const uint32_t* x, __m256i matrix) {
    const __m256i low = broadcast32(P::kLow), w1 = load8(x + 1);
    const __m256i y = _mm256_or_si256(_mm256_andnot_si256(low, load8(x)), _mm256_and_si256(w1, low));
    const __m256i odd = _mm256_srai_epi32(_mm256_slli_epi32(w1, 31), 31);
    const __m256i twist = _mm256_xor_si256(_mm256_srli_epi32(y, 1), _mm256_and_si256(odd, matrix));
    return _mm256_xor_si256(load8(x + kM), twist);
  }

  // Appends `count` words to the N at x and hands them on from index i. Writes up to a multiple of eight.
  template <class Sink>
  static void advance(uint32_t* x, int count, const State& state, const Tempering& temper, const Sink& sink,
                      ptrdiff_t i) {
    const __m256i matrix = broadcast32(P::matrix(state));
    int k = 0;
    for (; k + 8 <= count; k += 8) {
      const __m256i w = next8(x + k, matrix);
      store8(x + kN + k, w);
      sink.eight(i + k, temper(w));
    }
    if (k < count) {
      const __m256i w = next8(x + k, matrix);
      store8(x + kN + k, w);
      sink.some(i + k, temper(w), count - k);
    }
  }

  template <class Sink>
  static void deliver(const uint32_t* word, int count, const Tempering& temper, const Sink& sink, ptrdiff_t i) {
    int k = 0;
    for (; k + 8 <= count; k += 8) sink.eight(i + k, temper(load8(word + k)));
    if (k < count) sink.some(i + k, temper(load_some(word + k, count - k)), count - k);
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
