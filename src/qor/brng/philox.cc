// PHILOX4X32X10: ten rounds of Philox-4x32 (Salmon, Moraes, Dror, Shaw 2011).
#include "qor/brng/counter.h"

namespace orvik::qor {

struct Philox {
  using Raw = RawSink;
  using Float = FloatSink<FromMiddle>;
  using Double = DoubleSink<FromMiddle>;

  struct State {
    uint32_t key[2], counter[4], left, block[4];
  };

  static constexpr int kRounds = 10;

  // Keys of all rounds, in every lane.
  struct Keys {
    explicit Keys(const State& state) {
      for (int r = 0; r < kRounds; ++r) {
        k0[r] = broadcast64(state.key[0] + 0x9E3779B9u * static_cast<uint32_t>(r));
        k1[r] = broadcast64(state.key[1] + 0xBB67AE85u * static_cast<uint32_t>(r));
      }
    }
    __m256i k0[kRounds], k1[kRounds];
  };

  // G times four blocks, each four in the lanes 0, 2, 1, 3: unpacking then stores them in order. `high` holds words 2
  // and 3 of the counters. Every step is done for all G, since ten rounds in a row are longer than the processor looks
  // ahead.
  template <int G>
  static void blocks(const __m256i (&low)[G], const __m256i (&high)[G], const Keys& keys, __m256i (&words)[2 * G]) {
    const __m256i m0 = broadcast64(0xD2511F53), m1 = broadcast64(0xCD9E8D57);
    // Only the low half of a 64-bit lane counts in c0 to c3; products bring junk into the high halves.
    __m256i c0[G], c1[G], c2[G], c3[G];
    unroll<G>([&](auto g) __attribute__((always_inline)) {
      c0[g] = low[g];
      c1[g] = _mm256_srli_epi64(low[g], 32);
      c2[g] = high[g];
      c3[g] = _mm256_srli_epi64(high[g], 32);
    });
    unroll<kRounds>([&](auto r) __attribute__((always_inline)) {
      __m256i p0[G], p1[G];
      unroll<G>([&](auto g) __attribute__((always_inline)) {
        p0[g] = _mm256_mul_epu32(c0[g], m0);
        p1[g] = _mm256_mul_epu32(c2[g], m1);
      });
      unroll<G>([&](auto g) __attribute__((always_inline)) {
        c0[g] = _mm256_xor_si256(_mm256_srli_epi64(p1[g], 32), _mm256_xor_si256(c1[g], keys.k0[r]));
        c2[g] = _mm256_xor_si256(_mm256_srli_epi64(p0[g], 32), _mm256_xor_si256(c3[g], keys.k1[r]));
        c1[g] = p1[g];
        c3[g] = p0[g];
      });
    });
    unroll<G>([&](auto g) __attribute__((always_inline)) {
      const __m256i words01 = _mm256_blend_epi32(c0[g], _mm256_slli_epi64(c1[g], 32), 0xAA);
      const __m256i words23 = _mm256_blend_epi32(c2[g], _mm256_slli_epi64(c3[g], 32), 0xAA);
      words[2 * g] = _mm256_unpacklo_epi64(words01, words23);
      words[2 * g + 1] = _mm256_unpackhi_epi64(words01, words23);
    });
  }

  static void lanes(Counter128 counter, __m256i& low, __m256i& high) {
    const uint64_t l = static_cast<uint64_t>(counter), h = static_cast<uint64_t>(counter >> 64);
    low = _mm256_add_epi64(broadcast64(l), _mm256_setr_epi64x(0, 2, 1, 3));
    high = broadcast64(h);
    if (l < ~uint64_t{0} - 2) return;
    const auto carry = [l](uint64_t step) { return static_cast<long long>(l + step < l ? 1 : 0); };
    high = _mm256_add_epi64(high, _mm256_setr_epi64x(0, carry(2), carry(1), carry(3)));
  }

  static void one_block(State& state) {
    __m256i low[1], high[1], words[2];
    const Counter128 counter = load_counter(state.counter);
    lanes(counter, low[0], high[0]);
    blocks(low, high, Keys(state), words);
    _mm_storeu_si128(reinterpret_cast<__m128i*>(state.block), _mm256_castsi256_si128(words[0]));
    store_counter(state.counter, counter + 1);
  }

  template <class Sink>
  static int32_t fill(OrvikStream stream, int32_t n, const Sink& sink) {
    State& state = state_of<State>(stream);
    ptrdiff_t i = deliver_block(state, n, 0, sink);
    if (i >= n) return ORVIK_QOR_OK;
    const Keys keys(state);
    Counter128 counter = load_counter(state.counter);
    constexpr int kGroup = 2;
    if (i + 16 * kGroup <= n) {
      const Sink own = sink;  // a copy: for all the compiler knows the results might overlap it
      for (; i + 16 * kGroup <= n; i += 16 * kGroup, counter += 4 * kGroup) {
        __m256i low[kGroup], high[kGroup], words[2 * kGroup];
        unroll<kGroup>([&](auto g) __attribute__((always_inline)) { lanes(counter + 4 * g, low[g], high[g]); });
        blocks(low, high, keys, words);
        own.group(i, words);
      }
    }
    __m256i low[1], high[1], words[2];
    for (; i + 16 <= n; i += 16, counter += 4) {
      lanes(counter, low[0], high[0]);
      blocks(low, high, keys, words);
      sink.group(i, words);
    }
    const int rest = static_cast<int>(n - i);
    if (rest > 0) {
      lanes(counter, low[0], high[0]);
      blocks(low, high, keys, words);
      if (rest >= 8) sink.eight(i, words[0]);
      const __m256i last = rest >= 8 ? words[1] : words[0];
      if (rest % 8 > 0) sink.some(i + rest / 8 * 8, last, rest % 8);
      counter += static_cast<uint32_t>(rest + 3) / 4;
      state.left = static_cast<uint32_t>(-rest) & 3;
      const __m128i cut = rest % 8 > 4 ? _mm256_extracti128_si256(last, 1) : _mm256_castsi256_si128(last);
      if (state.left != 0) _mm_storeu_si128(reinterpret_cast<__m128i*>(state.block), cut);
    }
    store_counter(state.counter, counter);
    return ORVIK_QOR_OK;
  }

  static int32_t seed(OrvikStream stream, int32_t n, const uint32_t* seeds) {
    State& state = state_of<State>(stream);
    state = {};
    const int32_t count = n < 6 ? n : 6;
    for (int32_t i = 0; i < count; ++i) (i < 2 ? state.key[i] : state.counter[i - 2]) = seeds[i];
    return ORVIK_QOR_OK;
  }

  static int32_t leapfrog(OrvikStream, int32_t, int32_t) { return ORVIK_QOR_NO_LEAPFROG; }

  // Makes the block that the jump ends in even when all its words are behind.
  static int32_t skip(OrvikStream stream, uint64_t count) {
    State& state = state_of<State>(stream);
    const uint32_t left = words_left(state);
    if (count <= left) {
      state.left = left - static_cast<uint32_t>(count);
      return ORVIK_QOR_OK;
    }
    state.left = (left - static_cast<uint32_t>(count)) & 3;
    store_counter(state.counter, load_counter(state.counter) + (count - left - 1) / 4);
    one_block(state);
    return ORVIK_QOR_OK;
  }

  static int32_t skip_long(OrvikStream stream, int32_t n, const uint64_t* words) {
    uint64_t count[3];
    read_count(count, n, words);
    State& state = state_of<State>(stream);
    const uint32_t left = words_left(state);
    if (count[1] == 0 && count[2] == 0 && count[0] <= left) {
      state.left = left - static_cast<uint32_t>(count[0]);
      return ORVIK_QOR_OK;
    }
    const BlockCount jump = blocks_behind(count, left);
    state.left = (4 - jump.words) & 3;
    store_counter(state.counter, load_counter(state.counter) + jump.blocks);
    if (state.left != 0) one_block(state);
    return ORVIK_QOR_OK;
  }
};
static_assert(record_size<Philox::State>() == 64);

}  // namespace orvik::qor

ORVIK_QOR_GENERATOR(PHILOX4X32X10, orvik::qor::Philox)
