// Twisted generalised feedback shift registers (Matsumoto, Nishimura 1998). One class over the parameters: `P` names
// those of the recurrence (twister_rows.h), wide_rows() and wide_tempering(), which are null where registers of 512
// bits are not used.
//
// Words are made in a linear buffer that holds the last N raw words in front of the new ones: word k + N follows from
// words k, k + 1 and k + M, so that eight are made at a time with no seam, whatever N is.
#pragma once

#include <stdint.h>
#include <string.h>

#include "qor/brng/entries.h"
#include "qor/brng/twister_rows.h"

namespace orvik::qor {

template <class P>
struct Twister : NoJumps {
  using State = typename P::State;
  using Raw = RawSink;
  using Vector = I32;
  using Float = TwisterFloats;
  using Double = TwisterDoubles;
  using QuickDouble = TwisterQuickDoubles;
  using Tempering = typename P::Tempering;
  using Rows = TwisterRows<P>;

  static constexpr int kN = P::kN, kM = P::kM;
  static constexpr int kGenerations = P::kGenerations;  // made in one pass over the buffer, about 8 KB

  static uint32_t next(uint32_t w0, uint32_t w1, uint32_t wm, uint32_t matrix) {
    const uint32_t y = (w0 & ~P::kLow) | (w1 & P::kLow);
    return wm ^ y >> 1 ^ (y & 1 ? matrix : 0);
  }

  // Appends `count` words to the N at x and hands them on from index i. Writes up to a multiple of eight. Returns how
  // many words that makes.
  template <SinkOf<Vector> Sink>
  static int advance(uint32_t* x, int k, int count, const State& state, const Tempering& temper, const Sink& sink,
                     ptrdiff_t i) {
    if (WideTwister* const wide = P::wide_rows(Sink::kForm); wide != nullptr) {
      k = wide(Sink::kForm, x, k, count, &state, sink.target(), i);
    }
    k = Rows::advance(x, k, count, state, sink, i);
    const I32 matrix(P::matrix(state));
    for (; k < count; k += 8) {
      I32 w[1];
      Rows::next(x + k, matrix, w);
      store(x + kN + k, w[0]);
      temper(w);
      k + 8 <= count ? sink.group(i + k, w) : sink.some(i + k, w[0], count - k);
    }
    return k;
  }

  template <SinkOf<Vector> Sink>
  static void deliver(const State& state, const uint32_t* word, int count, const Sink& sink, ptrdiff_t i) {
    WideTempering* const wide = count >= kWideTemperingWords ? P::wide_tempering() : nullptr;
    if (wide != nullptr)
      wide(Sink::kForm, word, count, &state, sink.target(), i);
    else
      Rows::deliver(word, count, state, sink, i);
  }

  // A generation, read in the vectors that it was written in: memcpy's own would wait for these.
  static void copy(uint32_t* to, const uint32_t* from) {
    int k = 0;
    for (; k + 8 <= kN; k += 8) store(to + k, load_words(from + k));
    if (k < kN) store_some(to + k, load_some(from + k, kN - k), kN - k);
  }

  // `count` words from a generation's beginning on, tempered on their way out; the state keeps the last generation,
  // raw.
  template <SinkOf<Vector> Sink>
  static void deliver_generations(State& state, int count, const Sink& sink, ptrdiff_t i) {
    const Tempering temper(state);
    constexpr int kBefore = 16;  // advance() reads there
    alignas(64) uint32_t buffer[kBefore + kN * (1 + kGenerations) + 8];
    uint32_t* const x = buffer + kBefore;
    memset(buffer, 0, 4 * kBefore);
    copy(x, state.mt);
    while (count > 0) {
      const int most = kGenerations * kN, wanted = count < most ? count : most, whole = wanted / kN * kN;
      const int k = advance(x, 0, whole, state, temper, sink, i), made = whole < wanted ? whole + kN : whole;
      if (whole < wanted) {  // the last generation is not all delivered
        advance(x, k, made, state, temper, NullSink(), 0);
        deliver(state, x + kN + whole, wanted - whole, sink, i + whole);
      }
      if (count == wanted)
        copy(state.mt, x + made);
      else
        copy(x, x + made);
      i += wanted;
      count -= wanted;
    }
  }

  template <SinkOf<Vector> Sink>
  static int32_t fill(OrvikStream stream, int32_t n, const Sink& sink) {
    State& state = state_of<State>(stream);
    if (n <= 0) return ORVIK_QOR_OK;
    if (static_cast<uint32_t>(state.index) > kN) state.index = kN;  // an image may hold anything
    const int in_hand = kN - state.index, first = n < in_hand ? n : in_hand;
    deliver(state, state.mt + state.index, first, sink, 0);
    state.index += first;
    n -= first;
    if (n == 0) return ORVIK_QOR_OK;
    deliver_generations(state, n, sink, first);
    state.index = (n - 1) % kN + 1;
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
