#include "qor/brng/mcg.h"

#include "qor/brng/mcg_moduli.h"

namespace orvik::qor {

using Mcg31m1 = Mcg<Mod2P31M1>;
using Mcg59 = Mcg<Mod2P59>;
static_assert(record_size<Mcg31m1::State>() == 24);
static_assert(record_size<Mcg59::State>() == 32);

namespace {

template <class G>
void restore(OrvikStream stream, McgLanes& lanes) {
  typename G::State state;
  __builtin_memcpy(&state, state_bytes(stream), sizeof state);
  G::rebuild(lanes, lanes.lane[0], state.a);
}

}  // namespace

void restore_mcg_chunk(OrvikStream stream) {
  McgLanes* const lanes = Mcg31m1::find_lanes(stream);
  if (!lanes) return;
  // Records have 16 bytes to spare, so that the larger state may be read from the smaller generator's record.
  if (lanes->row == Mod2P31M1::kRow) restore<Mcg31m1>(stream, *lanes);
  if (lanes->row == Mod2P59::kRow) restore<Mcg59>(stream, *lanes);
}

}  // namespace orvik::qor

ORVIK_QOR_GENERATOR(MCG31M1, orvik::qor::Mcg31m1)
ORVIK_QOR_GENERATOR(MCG59, orvik::qor::Mcg59)

extern "C" {
uint32_t __qoriPowMod2P31M1(uint32_t a, uint64_t n) {
  return static_cast<uint32_t>(orvik::qor::Mcg31m1::power(a % orvik::qor::Mod2P31M1::kModulus, n));
}
uint64_t __qoriPowMod2P59(uint64_t a, uint64_t n) { return orvik::qor::Mcg59::power(a, n); }
}
