// WH: four multiplicative generators with moduli just below 2^24, their sum modulo 1 (Wichmann, Hill 1982; MacLaren
// 1989).
#include "qor/brng/wh.h"

#include "qor/brng/entries.h"
#include "qor/brng/wh_run.h"
#include "qor/brng/wide.h"
#include "qor/stream/registry.h"
#include "qor/stream/restore.h"

namespace orvik::qor {

const WhSet WhParams[kWhMembers] = {
#include "qor/brng/wh_params.inc"
};

namespace {

int member_of(OrvikStream stream) { return find_brng(header(stream)->brng).sub; }
const WhSet& set_of(OrvikStream stream) { return WhParams[member_of(stream)]; }

// Of the moduli.
struct Reciprocals {
  alignas(32) double of[kWhMembers][4];
};
constexpr Reciprocals kReciprocals = [] {
  constexpr WhSet kSets[kWhMembers] = {
#include "qor/brng/wh_params.inc"
  };
  Reciprocals r = {};
  for (int member = 0; member < kWhMembers; ++member)
    for (int j = 0; j < 4; ++j) r.of[member][j] = 1.0 / kSets[member].modulus[j];
  return r;
}();

}  // namespace

struct Wh {
  using State = WhState;
  using Vector = WhElements;
  using Raw = WhWords;
  using Float = WhFloats;
  using Double = WhDoubles;

  template <SinkOf<Vector> Sink>
  static int32_t fill(OrvikStream stream, int32_t n, const Sink& sink) {
    State& state = state_of<State>(stream);
    const int member = member_of(stream);
    const uint32_t* const moduli = WhParams[member].modulus;
    const double* const reciprocals = kReciprocals.of[member];
    if (n >= (Sink::kForm == Form::raw ? kWideWhWords : kWideWhNumbers)) {
      if (WideWh* const wide = ORVIK_QOR_WIDE(orvik_qor_wide_wh); wide != nullptr) {
        wide(Sink::kForm, state, moduli, reciprocals, n, sink.target());
        return ORVIK_QOR_OK;
      }
    }
    const Moduli m(moduli, reciprocals);
    if (n >= 8) {
      run_wh(state, m, n, sink);
      return ORVIK_QOR_OK;
    }
    F64 x = to_double(load_fours(state.x));
    const F64 a = to_double(load_fours(state.a));
    for (ptrdiff_t i = 0; i < n; ++i, x = m.multiply(x, a)) sink.first(i, WhElements{{x, x, x, x}, m.reciprocal});
    store(state.x, truncated_words(x));
    return ORVIK_QOR_OK;
  }

  // Four seeds are used unless there are 0 to 3.
  static int32_t seed(OrvikStream stream, int32_t n, const uint32_t* seeds) {
    State& state = state_of<State>(stream);
    const WhSet& set = set_of(stream);
    const int32_t count = n >= 0 && n < 4 ? n : 4;
    for (int j = 0; j < 4; ++j) {
      const uint32_t x = j < count ? seeds[j] % set.modulus[j] : 0;
      state.x[j] = x == 0 ? 1 : x;
      state.a[j] = set.multiplier[j];
    }
    return ORVIK_QOR_OK;
  }

  static int32_t leapfrog(OrvikStream stream, int32_t nstreams, int32_t k) {
    State& state = state_of<State>(stream);
    const WhSet& set = set_of(stream);
    skip(stream, static_cast<uint64_t>(k));
    for (int j = 0; j < 4; ++j) state.a[j] = __qoriPowMod(state.a[j], static_cast<uint64_t>(nstreams), set.modulus[j]);
    return ORVIK_QOR_OK;
  }

  static int32_t skip(OrvikStream stream, uint64_t count) {
    State& state = state_of<State>(stream);
    const WhSet& set = set_of(stream);
    for (int j = 0; j < 4; ++j) {
      const uint64_t power = __qoriPowMod(state.a[j], count, set.modulus[j]);
      state.x[j] = static_cast<uint32_t>(state.x[j] * power % set.modulus[j]);
    }
    return ORVIK_QOR_OK;
  }

  static int32_t skip_long(OrvikStream, int32_t, const uint64_t*) { return ORVIK_QOR_NO_SKIPAHEAD_EX; }
};
static_assert(record_size<Wh::State>() == 48);

// Members above their moduli would leave the range in which products are exact.
int32_t restore_wh(OrvikStream stream) {
  auto& state = state_of<WhState>(stream);
  const WhSet& set = set_of(stream);
  for (int j = 0; j < 4; ++j) {
    state.x[j] %= set.modulus[j];
    state.a[j] %= set.modulus[j];
  }
  return ORVIK_QOR_OK;
}

}  // namespace orvik::qor

ORVIK_QOR_GENERATOR(WH, orvik::qor::Wh)
