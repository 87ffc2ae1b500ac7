// TRNG: the processor's random number instruction.
#include "lanes/hardware_random.h"
#include "qor/brng/entries.h"
#include "qor/brng/sinks.h"
#include "qor/stream/cpu.h"
#include "qor/stream/restore.h"

namespace orvik::qor {

struct Trng : NoJumps {
  static constexpr uint32_t kDefaultRetries = 10;

  struct State {
    uint32_t reserved, retries;
  };

  class Raw {
   public:
    explicit Raw(void* r) : r_(static_cast<uint32_t*>(r)) {}
    void one(ptrdiff_t i, uint32_t w) const { r_[i] = w; }

   private:
    uint32_t* r_;
  };
  using Float = ElementSink<uint32_t, float>;
  using Double = ElementSink<uint64_t, double>;

  // Attempts are counted from 0: one that succeeds as number `retries` is too late.
  template <class Word>
  static bool read(const State& state, Word* word) {
    for (uint64_t attempt = 0; attempt <= state.retries; ++attempt) {
      bool there = hardware_random(word);
      if (hidden_features.rdrand_failures > 0) {
        --hidden_features.rdrand_failures;
        there = false;
      }
      if (sizeof(Word) == 8 && hidden_features.rdrand_of_64) there = false;
      if (there) return attempt < state.retries;
    }
    return false;
  }

  // Two elements a reading; an odd last one from a short reading.
  template <class Sink>
  static int32_t fill(OrvikStream stream, int32_t n, const Sink& sink) {
    if (!__qorCPUisRDRAND()) return ORVIK_QOR_NO_RDRAND;
    const State& state = state_of<State>(stream);
    ptrdiff_t i = 0;
    for (uint64_t words; i + 2 <= n; i += 2) {
      if (!read(state, &words)) return ORVIK_QOR_RDRAND_FAILED;
      sink.one(i, static_cast<uint32_t>(words));
      sink.one(i + 1, static_cast<uint32_t>(words >> 32));
    }
    if (uint32_t word; i < n) {
      if (!read(state, &word)) return ORVIK_QOR_RDRAND_FAILED;
      sink.one(i, word);
    }
    return ORVIK_QOR_OK;
  }
  // A reading each.
  static int32_t fill(OrvikStream stream, int32_t n, const Double& sink) {
    if (!__qorCPUisRDRAND()) return ORVIK_QOR_NO_RDRAND;
    const State& state = state_of<State>(stream);
    uint64_t word;
    for (ptrdiff_t i = 0; i < n; ++i) {
      if (!read(state, &word)) return ORVIK_QOR_RDRAND_FAILED;
      sink.one(i, word);
    }
    return ORVIK_QOR_OK;
  }

  static int32_t seed(OrvikStream stream, int32_t n, const uint32_t* seeds) {
    state_of<State>(stream) = {0, n >= 2 && seeds[1] != 0 ? seeds[1] : kDefaultRetries};
    return ORVIK_QOR_OK;
  }
};
static_assert(record_size<Trng::State>() == 24);

int32_t restore_trng(OrvikStream) { return __qorCPUisRDRAND() ? ORVIK_QOR_OK : ORVIK_QOR_NO_RDRAND; }

}  // namespace orvik::qor

ORVIK_QOR_GENERATOR(TRNG, orvik::qor::Trng)
