// Counter-based generators: block number c of a sequence is a function of c and a key, four 32-bit words a block. One
// class over the block function `B` holds delivery, seeding and jumps. B names
//   kKeyWords                 words of its key
//   Vector                    eight words, the blocks of counters c and c + 1, as its sinks take them
//   Keys                      what it makes of the key once per request
//   kFew, make(c, keys, w)    makes kFew vectors of consecutive blocks, carrying through all words of the counter
//   Runs                      blocks while the low half of the counter does not wrap (counter_runs.h)
//   wide_runs()               the same of 512 bits where they are used, or null
//   kShort, kLong             how its jumps land
//   ready(real32)             0, or why it cannot run here
#pragma once

#include <stdint.h>
#include <string.h>

#include <type_traits>

#include "qor/brng/counter_runs.h"
#include "qor/brng/entries.h"
#include "qor/brng/sinks.h"

namespace orvik::qor {

__extension__ typedef unsigned __int128 Counter128;

inline Counter128 load_counter(const uint32_t* words) {
  uint64_t half[2];
  memcpy(half, words, sizeof half);
  return static_cast<Counter128>(half[1]) << 64 | half[0];
}
inline void store_counter(uint32_t* words, Counter128 c) {
  const uint64_t half[2] = {static_cast<uint64_t>(c), static_cast<uint64_t>(c >> 64)};
  memcpy(words, half, sizeof half);
}

// Where a jump that leaves the block in hand ends.
enum class Landing {
  ahead,     // in the block that holds the next word, made even when all of it is left
  in_block,  // in the block that holds the last word skipped, even when none of it is left
  exact,     // in a block only when some of it is left
};

template <int KeyWords>
struct CounterState {
  uint32_t key[KeyWords], counter[4], left, block[4];
};

template <class B>
struct CounterGenerator {
  using State = CounterState<B::kKeyWords>;
  using Vector = typename B::Vector;
  using Keys = typename B::Keys;
  using Raw = RawSink;
  using Float = CounterFloats;
  using Double = CounterDoubles;

  template <SinkOf<Vector> Sink>
  static int32_t fill(OrvikStream stream, int32_t n, const Sink& sink) {
    if (const int32_t status = B::ready(std::is_same_v<Sink, Float>); status < 0) return status;
    State& state = state_of<State>(stream);
    const int32_t i = deliver_block(state, n, sink);
    if (i < n) deliver_blocks(state, i, n, sink);
    return ORVIK_QOR_OK;
  }

  static int32_t seed(OrvikStream stream, int32_t n, const uint32_t* seeds) {
    State& state = state_of<State>(stream);
    state = {};
    const int32_t count = n < B::kKeyWords + 4 ? n : B::kKeyWords + 4;
    for (int32_t i = 0; i < count; ++i) (i < B::kKeyWords ? state.key[i] : state.counter[i - B::kKeyWords]) = seeds[i];
    return ORVIK_QOR_OK;
  }

  static int32_t leapfrog(OrvikStream, int32_t, int32_t) { return ORVIK_QOR_NO_LEAPFROG; }
  static int32_t skip(OrvikStream stream, uint64_t count) {
    const uint64_t words[3] = {count, 0, 0};
    return jump(stream, words, B::kShort);
  }
  // Up to three words of the count are read.
  static int32_t skip_long(OrvikStream stream, int32_t n, const uint64_t* count) {
    uint64_t words[3];
    for (int32_t i = 0; i < 3; ++i) words[i] = i < n ? count[i] : 0;
    return jump(stream, words, B::kLong);
  }

 private:
  static uint32_t words_left(const State& state) {
    return state.left < 4 ? state.left : 4;  // an image may hold anything
  }

  // Delivers what the block in hand still holds, up to n words; returns how many.
  template <class Sink>
  static int32_t deliver_block(State& state, int32_t n, const Sink& sink) {
    const uint32_t left = words_left(state);
    const int32_t count = n < static_cast<int32_t>(left) ? n : static_cast<int32_t>(left);
    if (count <= 0) return 0;
    const I32 words = load_some(state.block + 4 - left, count);
    if constexpr (std::is_same_v<Vector, Halves>)
      sink.some(0, Halves{low_half(words), high_half(words)}, count);
    else
      sink.some(0, words, count);
    state.left = left - static_cast<uint32_t>(count);
    return count;
  }

  // What follows the block in hand, apart from it so that calls that end there do not pay for it.
  template <class Sink>
  [[gnu::noinline]] static void deliver_blocks(State& state, ptrdiff_t i, ptrdiff_t n, const Sink& sink) {
    Counter128 counter = load_counter(state.counter);
    // A low half that cannot wrap within a request needs no carry.
    const bool carries = state.counter[1] == 0xFFFFFFFF;
    const auto low = static_cast<uint64_t>(counter), high = static_cast<uint64_t>(counter >> 64);
    if (WideRuns* const wide = n - i >= B::Runs::kWideWords && !carries ? B::wide_runs() : nullptr; wide != nullptr) {
      wide(Sink::kForm, state.key, low, high, i, n, sink.target(), state.block);
      finish(state, counter, n - i);
      return;
    }
    if (!carries && n - i > kWords * B::Runs::Short::kVectors) {
      deliver_all<typename B::Runs>(state.key, low, high, i, n, sink, state.block);
      finish(state, counter, n - i);
      return;
    }
    const Keys keys(state.key);
    Vector w[B::kFew];
    for (; i + 8 * B::kFew <= n; i += 8 * B::kFew, counter += 2 * B::kFew) {
      B::make(counter, keys, w);
      sink.group(i, w);
    }
    const int rest = static_cast<int>(n - i);
    if (rest > 0 || B::Runs::kAhead) {
      B::make(counter, keys, w);
      unroll<B::kFew>([&](auto k) __attribute__((always_inline)) {
        const int left = rest - 8 * k;
        if (left >= 8)
          put_one(sink, i + 8 * k, w[k]);
        else if (left > 0)
          sink.some(i + 8 * k, w[k], left);
      });
      if (B::Runs::kAhead || rest % 4 != 0) keep_block(state, w, rest / 4);
    }
    finish(state, counter, rest);
  }
  // The counter behind `words` more, and behind the block in hand.
  static void finish(State& state, Counter128 counter, ptrdiff_t words) {
    counter += static_cast<uint64_t>(words) / 4;
    if (B::Runs::kAhead || words % 4 != 0) {
      state.left = 4 - static_cast<uint32_t>(words % 4);
      ++counter;
    }
    store_counter(state.counter, counter);
  }

  static I32Half low_block(I32 w) { return low_half(w); }
  static I32Half high_block(I32 w) { return high_half(w); }
  static I32Half low_block(Halves w) { return w.low; }
  static I32Half high_block(Halves w) { return w.high; }
  static void keep_block(State& state, const Vector (&w)[B::kFew], int block) {
    unroll<B::kFew>([&](auto k) __attribute__((always_inline)) {
      if (block == 2 * k) store(state.block, low_block(w[k]));
      if (block == 2 * k + 1) store(state.block, high_block(w[k]));
    });
  }

  static int32_t jump(OrvikStream stream, const uint64_t (&count)[3], Landing landing) {
    if (const int32_t status = B::ready(false); status < 0) return status;
    State& state = state_of<State>(stream);
    const uint32_t left = words_left(state);
    if (count[1] == 0 && count[2] == 0 && count[0] <= left) {
      state.left = left - static_cast<uint32_t>(count[0]);
      return ORVIK_QOR_OK;
    }
    // The count less the words in hand: of its quotient by 4 only 128 bits matter.
    const Counter128 low = static_cast<Counter128>(count[1]) << 64 | count[0], rest = low - left;
    const uint64_t top = count[2] - (low < left ? 1 : 0);
    const uint32_t over = static_cast<uint32_t>(rest) & 3;
    Counter128 blocks = rest >> 2 | static_cast<Counter128>(top) << 126;
    state.left = 4 - over;
    if (over == 0 && landing != Landing::ahead) {
      state.left = 0;
      if (landing == Landing::in_block) --blocks;
    }
    Counter128 counter = load_counter(state.counter) + blocks;
    if (state.left != 0 || landing == Landing::in_block) {
      Vector w[B::kFew];
      B::make(counter, Keys(state.key), w);
      keep_block(state, w, 0);
      ++counter;
    }
    store_counter(state.counter, counter);
    return ORVIK_QOR_OK;
  }
};

}  // namespace orvik::qor
