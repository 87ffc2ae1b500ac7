// R250: the generalised feedback shift register x(n) = x(n - 250) ^ x(n - 147) (Kirkpatrick, Stoll 1981).
#include <string.h>

#include "qor/brng/entries.h"
#include "qor/brng/r250_run.h"
#include "qor/brng/sinks.h"
#include "qor/brng/wide.h"

namespace orvik::qor {

struct R250 : NoJumps {
  static constexpr int kWords = kR250Words, kDistance = kR250Distance;
  // Requests of so many words run in a linear buffer, up to kLinear of them in one pass: registers of 512 bits are the
  // sooner worth the copies.
  static constexpr int kLong = 4096, kWideLong = 256, kLinear = 2048;

  struct State {
    uint32_t r[kWords];
    int32_t p, q;
  };

  using Vector = I32;
  using Raw = RawSink;
  using Float = R250Floats;
  using Double = R250Doubles;
  using QuickDouble = R250QuickDoubles;

  // `count` words in place, none of which is read after it was written: eight at a time.
  template <class Sink>
  static void run(uint32_t* p, const uint32_t* q, int count, const Sink& sink, ptrdiff_t i) {
    constexpr int kGroup = 2;
    int k = 0;
    for (; k + 8 * kGroup <= count; k += 8 * kGroup) {
      I32 w[kGroup];
      unroll<kGroup>([&](auto g) __attribute__((always_inline)) {
        w[g] = load_words(p + k + 8 * g) ^ load_words(q + k + 8 * g);
      });
      unroll<kGroup>([&](auto g) __attribute__((always_inline)) { store(p + k + 8 * g, w[g]); });
      sink.group(i + k, w);
    }
    for (; k + 8 <= count; k += 8) {
      const I32 w = load_words(p + k) ^ load_words(q + k);
      store(p + k, w);
      put_one(sink, i + k, w);
    }
    if (k == count) return;
    const I32 w = load_some(p + k, count - k) ^ load_some(q + k, count - k);
    store_some(p + k, w, count - k);
    sink.some(i + k, w, count - k);
  }

  // n words from place p on, with the other place kDistance ahead.
  template <class Sink>
  static void run_linear(State& state, int p, WideR250* wide, ptrdiff_t n, const Sink& sink) {
    alignas(64) uint32_t x[kWords + kLinear + orvik::kWords * 2];
    const auto rotated = [](int place) { return place < kWords ? place : place - kWords; };
    memcpy(x, state.r + p, 4 * static_cast<size_t>(kWords - p));
    memcpy(x + kWords - p, state.r, 4 * static_cast<size_t>(p));
    for (ptrdiff_t i = 0; i < n;) {
      const int count = n - i < kLinear ? static_cast<int>(n - i) : kLinear;
      if (wide != nullptr)
        wide(Sink::kForm, x, count, sink.target(), i);
      else
        run_r250(x, count, sink, i);
      memmove(x, x + count, sizeof state.r);
      p = rotated(p + count % kWords);
      i += count;
    }
    memcpy(state.r + p, x, 4 * static_cast<size_t>(kWords - p));
    memcpy(state.r, x + kWords - p, 4 * static_cast<size_t>(p));
    state.p = p;
    state.q = rotated(p + kDistance);
  }

  template <SinkOf<Vector> Sink>
  static int32_t fill(OrvikStream stream, int32_t n, const Sink& sink) {
    State& state = state_of<State>(stream);
    const auto inside = [](int32_t place) { return static_cast<uint32_t>(place) < kWords ? place : 0; };
    int p = inside(state.p), q = inside(state.q);  // an image may hold anything
    const int ahead = q > p ? q - p : q - p + kWords, behind = kWords - ahead;
    WideR250* const wide = ORVIK_QOR_WHOLE(orvik_qor_wide_r250);
    if (n >= (wide != nullptr ? kWideLong : kLong) && ahead == kDistance) {
      run_linear(state, p, wide, n, sink);
      return ORVIK_QOR_OK;
    }
    // A run ends where either place wraps, or where it would read what it has just written.
    const int longest = p == q ? 1 : ahead < behind ? ahead : behind;
    for (ptrdiff_t i = 0; i < n;) {
      const int to_end = kWords - (p > q ? p : q), most = to_end < longest ? to_end : longest;
      const int count = n - i < most ? static_cast<int>(n - i) : most;
      run(state.r + p, state.r + q, count, sink, i);
      p = p + count == kWords ? 0 : p + count;
      q = q + count == kWords ? 0 : q + count;
      i += count;
    }
    state.p = p;
    state.q = q;
    return ORVIK_QOR_OK;
  }

  static int32_t seed(OrvikStream stream, int32_t n, const uint32_t* seeds) {
    State& state = state_of<State>(stream);
    state.p = 0;
    state.q = kDistance;
    if (n >= kWords) {
      memcpy(state.r, seeds, sizeof state.r);
      return ORVIK_QOR_OK;
    }
    uint32_t s = n < 1 || seeds[0] == 0 ? 1 : seeds[0];
    for (uint32_t& word : state.r) word = s *= 69069;
    // A triangle of bits, so that no bit of the words begins degenerate.
    for (int k = 0; k < 32; ++k) {
      const uint32_t bit = 0x80000000 >> k;
      uint32_t& word = state.r[3 + 7 * k];
      word = (word & (bit - 1)) | bit;
    }
    return ORVIK_QOR_OK;
  }
};
static_assert(record_size<R250::State>() == 1024);

}  // namespace orvik::qor

ORVIK_QOR_GENERATOR(R250, orvik::qor::R250)
