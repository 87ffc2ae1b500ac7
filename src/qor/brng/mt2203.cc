#include "qor/brng/mt2203.h"

#include "qor/brng/twister.h"
#include "qor/stream/registry.h"

namespace orvik::qor {

struct Mt2203Parameters {
  static constexpr int kN = 69, kM = 34, kGenerations = 29;
  static constexpr uint32_t kLow = 0x1F;

  struct State {
    uint32_t mt[kN];
    int32_t index;
    uint32_t matrix_a, mask_b, mask_c;
  };

  static uint32_t matrix(const State& state) { return state.matrix_a; }

  struct Tempering {
    explicit Tempering(const State& state) : b(I32(state.mask_b)), c(I32(state.mask_c)) {}
    template <int G>
    void operator()(I32 (&y)[G]) const {
      temper_right<12>(y);
      temper_left<7>(y, b);
      temper_left<15>(y, c);
      temper_right<18>(y);
    }
    I32 b, c;
  };
};

struct Mt2203 : Twister<Mt2203Parameters> {
  static int32_t seed(OrvikStream stream, int32_t n, const uint32_t* seeds) {
    State& state = state_of<State>(stream);
    seed_by_key(state, n, seeds);
    const Mt2203Set& set = Mt2203Params[find_brng(header(stream)->brng).sub];
    state.matrix_a = set.matrix_a;
    state.mask_b = set.mask_b;
    state.mask_c = set.mask_c;
    return ORVIK_QOR_OK;
  }
};
static_assert(record_size<Mt2203::State>() == 312);

}  // namespace orvik::qor

ORVIK_QOR_GENERATOR(MT2203, orvik::qor::Mt2203)
