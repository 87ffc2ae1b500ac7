#include "qor/brng/mt2203.h"

#include "qor/brng/twister.h"
#include "qor/stream/registry.h"

namespace orvik::qor {

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
