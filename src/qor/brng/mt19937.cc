#include "qor/brng/mt19937.h"

#include "qor/brng/twister.h"

namespace orvik::qor {

const uint32_t kMt19937Polynomial[kMt19937Terms] = {
#include "qor/brng/mt19937_polynomial.inc"
};

struct Mt19937 : Twister<Mt19937Parameters> {
  // Stepping is cheaper than a jump up to here.
  static constexpr uint64_t kLongestWalk = 2097151;

  static int32_t seed(OrvikStream stream, int32_t n, const uint32_t* seeds) {
    seed_by_key(state_of<State>(stream), n, seeds);
    return ORVIK_QOR_OK;
  }

  static int32_t skip(OrvikStream stream, uint64_t count) {
    if (count <= kLongestWalk) return fill(stream, static_cast<int32_t>(count), NullSink());
    State& state = state_of<State>(stream);
    const int32_t index = state.index;
    const int32_t status =
        __qor_SkipAheadSWin(stream, clear, add, copy, step, store, start, count, (kMt19937Degree + 63) / 64,
                            kMt19937Degree, record_size<State>(), kMt19937Terms, kMt19937Polynomial);
    if (status < 0) state.index = index;
    return status;
  }

 private:
  // Work states are whole records whose words form a ring from `index` on.
  static void clear(void* record) {
    State& state = state_of<State>(record);
    memset(state.mt, 0, sizeof state.mt);
    state.index = 0;
  }
  static void copy(void* target, const void* source) {
    State& to = state_of<State>(target);
    to = state_of<State>(const_cast<void*>(source));
    if (static_cast<uint32_t>(to.index) >= kN) to.index = 0;
  }
  static void add_run(uint32_t* to, const uint32_t* from, int count) {
    int i = 0;
    for (; i + 8 <= count; i += 8) orvik::store(to + i, load_words(to + i) ^ load_words(from + i));
    for (; i < count; ++i) to[i] ^= from[i];
  }
  static void add(void* target, const void* source) {
    State& to = state_of<State>(target);
    const State& from = state_of<State>(const_cast<void*>(source));
    int t = to.index % kN, s = from.index % kN;
    for (int left = kN; left > 0;) {
      int run = left < kN - t ? left : kN - t;
      run = run < kN - s ? run : kN - s;
      add_run(to.mt + t, from.mt + s, run);
      t = t + run == kN ? 0 : t + run;
      s = s + run == kN ? 0 : s + run;
      left -= run;
    }
  }
  static void step(void* record) {
    State& state = state_of<State>(record);
    const int k = state.index, k1 = k + 1 == kN ? 0 : k + 1, km = k + kM >= kN ? k + kM - kN : k + kM;
    state.mt[k] = next(state.mt[k], state.mt[k1], state.mt[km], Mt19937Parameters::kMatrix);
    state.index = k1;
  }
  static void store(void* stream, void* record, int32_t) {
    State& to = state_of<State>(stream);
    const State& from = state_of<State>(record);
    const int head = kN - from.index;
    memcpy(to.mt, from.mt + from.index, 4 * static_cast<size_t>(head));
    memcpy(to.mt + head, from.mt, 4 * static_cast<size_t>(from.index));
    to.index = kN;
  }
  // What lies inside the generation in hand needs no jump.
  static int32_t start(void* stream, uint64_t* count, int32_t*) {
    State& state = state_of<State>(stream);
    if (static_cast<uint32_t>(state.index) > kN) state.index = kN;
    const uint64_t left = kN - static_cast<uint64_t>(state.index);
    if (*count <= left) {
      state.index += static_cast<int32_t>(*count);
      return 0;
    }
    *count -= left;
    state.index = kN;
    return 1;
  }
};
static_assert(record_size<Mt19937::State>() == 2520);

}  // namespace orvik::qor

ORVIK_QOR_GENERATOR(MT19937, orvik::qor::Mt19937)
