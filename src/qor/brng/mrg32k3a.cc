// MRG32K3A: two recurrences of third order, combined (L'Ecuyer 1999).
#include "qor/brng/mrg32k3a.h"

#include <string.h>

#include "qor/brng/entries.h"
#include "qor/brng/mrg32k3a_blocks.h"
#include "qor/brng/sinks.h"
#include "qor/brng/wide.h"
#include "qor/stream/restore.h"

namespace orvik::qor {

const PowerTable Mrg32k3aPowers1 = kMrgPowers1, Mrg32k3aPowers2 = kMrgPowers2;

struct Mrg32k3a {
  using State = Mrg32k3aState;
  using Vector = I32;
  using Raw = RawSink;
  using Float = MrgFloats;
  using Double = MrgDoubles;

  template <SinkOf<Vector> Sink>
  static int32_t fill(OrvikStream stream, int32_t n, const Sink& target) {
    State& kept = state_of<State>(stream);
    State state = kept;
    const Sink sink = target;  // copies: for all the compiler knows the results might overlap them
    ptrdiff_t i = 0;
    if (WideMrg* const wide = n >= kWideMrgWords ? ORVIK_QOR_WIDE(orvik_qor_wide_mrg32k3a) : nullptr; wide != nullptr)
      i = wide(Sink::kForm, state, i, n, sink.target());
    i = MrgBlocks::deliver(state, i, n, sink);
    alignas(32) uint32_t few[16];
    while (i < n) {
      const int count = n - i < 8 ? static_cast<int>(n - i) : 8;
      for (int k = 0; k < count; ++k) few[k] = mrg_step(state);
      if (count == 8)
        put_one(sink, i, load_words(few));
      else
        sink.some(i, load_some(few, count), count);
      i += count;
    }
    kept = state;
    return ORVIK_QOR_OK;
  }

  static int32_t seed(OrvikStream stream, int32_t n, const uint32_t* seeds) {
    State& s = state_of<State>(stream);
    uint32_t word[6] = {1, 1, 1, 1, 1, 1};
    for (int32_t i = 0; i < n && i < 6; ++i) word[i] = seeds[i];
    memcpy(&s, word, sizeof s);
    reduce(s);
    if ((s.x[0] | s.x[1] | s.x[2]) == 0) s.x[0] = 1;
    if ((s.y[0] | s.y[1] | s.y[2]) == 0) s.y[0] = 1;
    return ORVIK_QOR_OK;
  }

  static void reduce(State& s) {
    for (uint32_t& x : s.x) x = x >= kMrgModulus1 ? x - kMrgModulus1 : x;
    for (uint32_t& y : s.y) y = y >= kMrgModulus2 ? y - kMrgModulus2 : y;
  }

  static int32_t leapfrog(OrvikStream, int32_t, int32_t) { return ORVIK_QOR_NO_LEAPFROG; }

  static int32_t skip(OrvikStream stream, uint64_t count) {
    return skip_long(stream, 1, &count);
  }

  // The tables reach to 192 bits.
  static int32_t skip_long(OrvikStream stream, int32_t n, const uint64_t* count) {
    State& s = state_of<State>(stream);
    bool long_count = false;
    for (int32_t i = 3; i < n; ++i) long_count |= count[i] != 0;
    if (long_count) {
      __qoriVect3PowArrayMod(s.x, kMrgFirst, kMrgModulus1, n, count);
      return __qoriVect3PowArrayMod(s.y, kMrgSecond, kMrgModulus2, n, count);
    }
    const int32_t words = n < 3 ? n : 3;
    __qoriVect3PowArrayMod_M1(s.x, words, count, Mrg32k3aPowers1.data());
    __qoriVect3PowArrayMod_M2(s.y, words, count, Mrg32k3aPowers2.data());
    return ORVIK_QOR_OK;
  }
};
static_assert(record_size<Mrg32k3a::State>() == 40);

int32_t restore_mrg32k3a(OrvikStream stream) {
  Mrg32k3a::reduce(state_of<Mrg32k3aState>(stream));
  return ORVIK_QOR_OK;
}

}  // namespace orvik::qor

ORVIK_QOR_GENERATOR(MRG32K3A, orvik::qor::Mrg32k3a)
