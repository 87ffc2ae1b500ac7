// SFMT19937 (Saito, Matsumoto 2008): a recurrence over blocks of 128 bits.
#include "qor/brng/sfmt19937.h"

#include <string.h>

#include "qor/brng/entries.h"
#include "qor/brng/sinks.h"
#include "qor/brng/wide.h"

namespace orvik::qor {

const uint32_t kSfmtPolynomial[kSfmtTerms] = {
#include "qor/brng/sfmt19937_polynomial.inc"
};

struct Sfmt19937 : NoJumps {
  static constexpr int kN = kSfmtWords, kBlocks = kSfmtBlocks, kPosition = SfmtBlocks::kPosition;
  // Jumps up to here take the plainer method.
  static constexpr int64_t kShortJump = 19967;

  using State = SfmtState;
  using Vector = Halves;
  using Raw = RawSink;
  using Float = SfmtFloats;
  using Double = SfmtDoubles;

  template <class Sink>
  static void generate(State& state, int count, const Sink& sink, ptrdiff_t i) {
    if (WideSfmtGenerations* const wide = ORVIK_QOR_WHOLE(orvik_qor_wide_sfmt_generations); wide != nullptr)
      wide(Sink::kForm, state.word, count, sink.target(), i);
    else
      SfmtBlocks::generations(state.word, count, sink, i);
  }
  template <class Sink>
  static void deliver(const uint32_t* word, int count, const Sink& sink, ptrdiff_t i) {
    WideSfmtDeliver* const wide = ORVIK_QOR_WHOLE(orvik_qor_wide_sfmt_deliver);
    if (count >= kWideSfmtWords && wide != nullptr)
      wide(Sink::kForm, word, count, sink.target(), i);
    else
      SfmtBlocks::deliver(word, count, sink, i);
  }

  // Moves the index on by `count` words of the generation in hand; what is left of a block that is cut goes to the
  // tail.
  static void take(State& state, int count) {
    const int end = state.index + count;
    state.index = (end + 3) & ~3;
    keep_tail(state, state.word + end, state.index - end);
  }
  static void keep_tail(State& state, const uint32_t* word, int count) {
    memcpy(state.tail, word, 4 * static_cast<size_t>(count));
    state.tail_pos = 0;
    state.tail_end = static_cast<uint32_t>(count);
  }
  static int in_tail(const State& state) { return static_cast<int>(state.tail_end - state.tail_pos); }
  static void use_tail(State& state, int count) {
    state.tail_pos += static_cast<uint32_t>(count);
    if (state.tail_pos == state.tail_end) state.tail_pos = state.tail_end = 0;
  }

  // An image may hold anything.
  static void make_sound(State& state) {
    if (state.tail_end > 3 || state.tail_pos >= state.tail_end) state.tail_pos = state.tail_end = 0;
    if (static_cast<uint32_t>(state.index) > kN || state.index % 4 != 0) state.index = kN;
  }

  template <SinkOf<Vector> Sink>
  static int32_t fill(OrvikStream stream, int32_t n, const Sink& sink) {
    if (n <= 0) return ORVIK_QOR_OK;
    State& state = state_of<State>(stream);
    make_sound(state);
    ptrdiff_t i = 0;
    if (state.tail_end != 0) {
      const int count = in_tail(state) < n ? in_tail(state) : n;
      deliver(state.tail + state.tail_pos, count, sink, 0);
      use_tail(state, count);
      i = count;
    }
    const auto in_hand = [&] {
      const int most = kN - state.index, count = n - i < most ? static_cast<int>(n - i) : most;
      deliver(state.word + state.index, count, sink, i);
      take(state, count);
      i += count;
    };
    if (i < n && state.index < kN) in_hand();
    if (const int whole = static_cast<int>(n - i) / kN; whole > 0) {
      generate(state, whole, sink, i);
      i += whole * kN;
    }
    if (i < n) {
      generate(state, 1, NullSink(), 0);
      state.index = 0;
      in_hand();
    }
    return ORVIK_QOR_OK;
  }

  static int32_t seed(OrvikStream stream, int32_t n, const uint32_t* key) {
    static constexpr uint32_t kOne = 1;
    if (n < 1) {
      n = 1;
      key = &kOne;
    }
    State& state = state_of<State>(stream);
    memset(state.word, 0x8B, sizeof state.word);
    const auto word = [&state](int i) -> uint32_t& { return state.word[i < kN ? i : i - kN]; };
    const auto mixed = [](uint32_t x, uint32_t factor) { return (x ^ x >> 27) * factor; };
    int i = 0;
    // Stirs word i in, `more` with it.
    const auto stir = [&](uint32_t more) {
      uint32_t r = mixed(word(i) ^ word(i + 306) ^ word(i + 623), 1664525);
      word(i + 306) += r;
      r += more;
      word(i + 317) += r;
      word(i) = r;
      i = i + 1 == kN ? 0 : i + 1;
    };
    stir(static_cast<uint32_t>(n));
    const int32_t steps = n > kN - 1 ? n : kN - 1;
    for (int32_t j = 0; j < steps; ++j) stir((j < n ? key[j] : 0) + static_cast<uint32_t>(i));
    for (int j = 0; j < kN; ++j) {
      uint32_t r = mixed(word(i) + word(i + 306) + word(i + 623), 1566083941);
      word(i + 306) ^= r;
      r -= static_cast<uint32_t>(i);
      word(i + 317) ^= r;
      word(i) = r;
      i = i + 1 == kN ? 0 : i + 1;
    }
    // The full period needs odd parity under this mask.
    const uint32_t check = (state.word[0] & 1) ^ (state.word[3] & 0x13C9E684);
    if (__builtin_parity(check) == 0) state.word[0] ^= 1;
    state.index = kN;
    state.tail_pos = state.tail_end = 0;
    return ORVIK_QOR_OK;
  }

  static int32_t skip(OrvikStream stream, uint64_t count) {
    State& state = state_of<State>(stream);
    make_sound(state);
    const int32_t index = state.index;
    const uint32_t tail_pos = state.tail_pos, tail_end = state.tail_end;
    const auto jump = static_cast<int64_t>(count) <= kShortJump ? __qor_SkipAheadHorner : __qor_SkipAheadSWin;
    const int32_t status = jump(stream, clear, add, copy, step, store_back, start, count, (kSfmtDegree + 63) / 64,
                                kSfmtDegree, record_size<State>(), kSfmtTerms, kSfmtPolynomial);
    if (status < 0) {
      state.index = index;
      state.tail_pos = tail_pos;
      state.tail_end = tail_end;
    }
    return status;
  }

 private:
  // Work states are whole records whose blocks form a ring from `index` on.
  static void clear(void* record) {
    State& state = state_of<State>(record);
    memset(state.word, 0, sizeof state.word);
    state.index = 0;
  }
  static void copy(void* target, const void* source) {
    State& to = state_of<State>(target);
    to = state_of<State>(const_cast<void*>(source));
    if (to.index >= kN) to.index = 0;
  }
  static void add(void* target, const void* source) {
    State& to = state_of<State>(target);
    const State& from = state_of<State>(const_cast<void*>(source));
    int t = to.index % kN, s = from.index % kN;
    for (int left = kN; left > 0;) {
      int run = left < kN - t ? left : kN - t;
      run = run < kN - s ? run : kN - s;
      for (int k = 0; k < run; k += 4)
        orvik::store(to.word + t + k, load_half(to.word + t + k) ^ load_half(from.word + s + k));
      t = t + run == kN ? 0 : t + run;
      s = s + run == kN ? 0 : s + run;
      left -= run;
    }
  }
  static void step(void* record) {
    State& state = state_of<State>(record);
    if (state.index >= kN) state.index = 0;
    const int k = state.index;
    const auto block = [&state, k](int distance) {
      const int at = k + 4 * distance;
      return load_half(state.word + (at < kN ? at : at - kN));
    };
    orvik::store(state.word + k,
                 SfmtBlocks::next(SfmtBlocks::from_far(block(0), block(kPosition), load_half(SfmtBlocks::kMask)),
                                  block(kBlocks - 2), block(kBlocks - 1)));
    state.index = k + 4;
  }
  static void store_back(void* stream, void* record, int32_t offset) {
    State& to = state_of<State>(stream);
    const State& from = state_of<State>(record);
    const int at = from.index % kN, head = kN - at;
    memcpy(to.word, from.word + at, 4 * static_cast<size_t>(head));
    memcpy(to.word + head, from.word, 4 * static_cast<size_t>(at));
    to.index = kN;
    if (offset != 0) keep_tail(to, to.word + kN - 4 + offset, 4 - offset);
  }
  // What lies in the tail and in the generation in hand needs no jump; the rest is counted in blocks.
  static int32_t start(void* stream, uint64_t* count, int32_t* offset) {
    State& state = state_of<State>(stream);
    const uint64_t kept = static_cast<uint64_t>(in_tail(state));
    if (*count <= kept) {
      use_tail(state, static_cast<int>(*count));
      return 0;
    }
    uint64_t rest = *count - kept;
    state.tail_pos = state.tail_end = 0;
    const uint64_t left = static_cast<uint64_t>(kN - state.index);
    if (rest <= left) {
      take(state, static_cast<int>(rest));
      return 0;
    }
    rest -= left;
    state.index = kN;
    *offset = static_cast<int32_t>(rest % 4);
    *count = rest / 4 + (rest % 4 != 0);
    return 1;
  }
};
static_assert(record_size<Sfmt19937::State>() == 2536);

}  // namespace orvik::qor

ORVIK_QOR_GENERATOR(SFMT19937, orvik::qor::Sfmt19937)
