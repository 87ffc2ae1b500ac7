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

  // Blocks 0, 2, 1, 3 in the lanes: unpacking then stores them in order. `high` holds words 2 and 3 of the counters.
  static void four_blocks(__m256i low, __m256i high, const Keys& keys, __m256i& first, __m256i& second) {
    const __m256i m0 = broadcast64(0xD2511F53), m1 = broadcast64(0xCD9E8D57);
    // Only the low half of a 64-bit lane counts in c0 to c3; products bring junk into the high halves.
    __m256i c0 = low, c1 = _mm256_srli_epi64(low, 32), c2 = high, c3 = _mm256_srli_epi64(high, 32);
    for (int r = 0; r < kRounds; ++r) {
      const __m256i p0 = _mm256_mul_epu32(c0, m0), p1 = _mm256_mul_epu32(c2, m1);
      c0 = _mm256_xor_si256(_mm256_xor_si256(_mm256_srli_epi64(p1, 32), keys.k0[r]), c1);
      c2 = _mm256_xor_si256(_mm256_xor_si256(_mm256_srli_epi64(p0, 32), keys.k1[r]), c3);
      c1 = p1;
      c3 = p0;
    }
    const __m256i words01 = _mm256_blend_epi32(c0, _mm256_slli_epi64(c1, 32), 0xAA);
    const __m256i words23 = _mm256_blend_epi32(c2, _mm256_slli_epi64(c3, 32), 0xAA);
    first = _mm256_unpacklo_epi64(words01, words23);
    second = _mm256_unpackhi_epi64(words01, words23);
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
    __m256i low, high, first, second;
    const Counter128 counter = load_counter(state.counter);
    lanes(counter, low, high);
    four_blocks(low, high, Keys(state), first, second);
    _mm_storeu_si128(reinterpret_cast<__m128i*>(state.block), _mm256_castsi256_si128(first));
    store_counter(state.counter, counter + 1);
  }

  template <class Sink>
  static int32_t fill(OrvikStream stream, int32_t n, const Sink& sink) {
    State& state = state_of<State>(stream);
    ptrdiff_t i = deliver_block(state, n, 0, sink);
    if (i >= n) return ORVIK_QOR_OK;
    const Keys keys(state);
    Counter128 counter = load_counter(state.counter);
    __m256i low, high, first, second;
    for (; i + 16 <= n; i += 16, counter += 4) {
      lanes(counter, low, high);
      four_blocks(low, high, keys, first, second);
      sink.eight(i, first);
      sink.eight(i + 8, second);
    }
    const int rest = static_cast<int>(n - i);
    if (rest > 0) {
      lanes(counter, low, high);
      four_blocks(low, high, keys, first, second);
      if (rest >= 8) sink.eight(i, first);
      const __m256i last = rest >= 8 ? second : first;
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
