// ARS5: five AES rounds under a Weyl key schedule (Salmon, Moraes, Dror, Shaw 2011). Built with AES instructions.
#include <type_traits>

#include "qor/brng/counter.h"

namespace orvik::qor {

struct Ars5 {
  using Raw = RawSink;
  using Float = FloatSink<FromMiddle>;
  using Double = DoubleSink<FromMiddle>;

  struct State {
    uint32_t key[4], counter[4], left, block[4];
  };

  struct Keys {
    explicit Keys(const State& state) {
      const __m128i weyl =
          _mm_set_epi64x(static_cast<long long>(0xBB67AE8584CAA73B), static_cast<long long>(0x9E3779B97F4A7C15));
      k[0] = _mm_loadu_si128(reinterpret_cast<const __m128i*>(state.key));
      for (int r = 1; r <= 5; ++r) k[r] = _mm_add_epi64(k[r - 1], weyl);
    }
    __m128i k[6];
  };

  static __m128i block(__m128i counter, const Keys& keys) {
    __m128i x = _mm_xor_si128(counter, keys.k[0]);
    for (int r = 1; r <= 4; ++r) x = _mm_aesenc_si128(x, keys.k[r]);
    return _mm_aesenclast_si128(x, keys.k[5]);
  }

  static __m128i lanes(Counter128 c) {
    return _mm_set_epi64x(static_cast<long long>(static_cast<uint64_t>(c >> 64)),
                          static_cast<long long>(static_cast<uint64_t>(c)));
  }

  static void one_block(State& state) {
    const Counter128 counter = load_counter(state.counter);
    _mm_storeu_si128(reinterpret_cast<__m128i*>(state.block), block(lanes(counter), Keys(state)));
    store_counter(state.counter, counter + 1);
  }

  template <class Sink>
  static int32_t fill(OrvikStream stream, int32_t n, const Sink& sink) {
    // The float form has no test: it relies on an earlier refusal.
    if constexpr (!std::is_same_v<Sink, Float>)
      if (!__qorCPUisAES()) return ORVIK_QOR_NO_AES;
    State& state = state_of<State>(stream);
    ptrdiff_t i = deliver_block(state, n, 0, sink);
    if (i >= n) return ORVIK_QOR_OK;
    const Keys keys(state);
    Counter128 counter = load_counter(state.counter);
    // A low half that cannot wrap within a request needs no carry.
    if (state.counter[1] != 0xFFFFFFFF) {
      __m128i c[8];
      c[0] = lanes(counter);
      for (int k = 1; k < 8; ++k) c[k] = _mm_add_epi64(c[0], _mm_set_epi64x(0, k));
      const __m128i stride = _mm_set_epi64x(0, 8);
      for (; i + 32 <= n; i += 32, counter += 8)
        for (int k = 0; k < 8; k += 2) {
          sink.pair(i + 4 * k, block(c[k], keys), block(c[k + 1], keys));
          c[k] = _mm_add_epi64(c[k], stride);
          c[k + 1] = _mm_add_epi64(c[k + 1], stride);
        }
    }
    for (; i + 8 <= n; i += 8, counter += 2) sink.pair(i, block(lanes(counter), keys), block(lanes(counter + 1), keys));
    if (i + 4 <= n) {
      sink.some(i, _mm256_castsi128_si256(block(lanes(counter), keys)), 4);
      i += 4;
      ++counter;
    }
    // One block is always made ahead.
    _mm_storeu_si128(reinterpret_cast<__m128i*>(state.block), block(lanes(counter), keys));
    store_counter(state.counter, counter + 1);
    state.left = 4;
    deliver_block(state, static_cast<int32_t>(n - i), i, sink);
    return ORVIK_QOR_OK;
  }

  static int32_t seed(OrvikStream stream, int32_t n, const uint32_t* seeds) {
    State& state = state_of<State>(stream);
    state = {};
    const int32_t count = n < 8 ? n : 8;
    for (int32_t i = 0; i < count; ++i) (i < 4 ? state.key[i] : state.counter[i - 4]) = seeds[i];
    return ORVIK_QOR_OK;
  }

  static int32_t leapfrog(OrvikStream, int32_t, int32_t) { return ORVIK_QOR_NO_LEAPFROG; }

  static int32_t skip(OrvikStream stream, uint64_t count) { return skip_long(stream, 1, &count); }

  static int32_t skip_long(OrvikStream stream, int32_t n, const uint64_t* words) {
    if (!__qorCPUisAES()) return ORVIK_QOR_NO_AES;
    uint64_t count[3];
    read_count(count, n, words);
    State& state = state_of<State>(stream);
    const uint32_t left = words_left(state);
    if (count[1] == 0 && count[2] == 0 && count[0] <= left) {
      state.left = left - static_cast<uint32_t>(count[0]);
      return ORVIK_QOR_OK;
    }
    const BlockCount jump = blocks_behind(count, left);
    state.left = 4 - jump.words;
    store_counter(state.counter, load_counter(state.counter) + jump.blocks);
    one_block(state);
    return ORVIK_QOR_OK;
  }
};
static_assert(record_size<Ars5::State>() == 72);

}  // namespace orvik::qor

ORVIK_QOR_GENERATOR(ARS5, orvik::qor::Ars5)
