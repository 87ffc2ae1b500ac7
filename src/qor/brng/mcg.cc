#include "qor/brng/mcg.h"

#include "qor/brng/mcg_moduli.h"
#include "qor/stream/restore.h"

namespace orvik::qor {

using Mcg31m1 = Mcg<Mod2P31M1>;
using Mcg59 = Mcg<Mod2P59>;
static_assert(record_size<Mcg31m1::State>() == 24);
static_assert(record_size<Mcg59::State>() == 32);

// Members and multipliers above the modulus would make requests of different lengths differ.
int32_t restore_mcg31m1(OrvikStream stream) {
  auto& state = state_of<Mcg31m1::State>(stream);
  state.x = static_cast<uint32_t>(Mod2P31M1::residue(state.x));
  state.a = static_cast<uint32_t>(Mod2P31M1::residue(state.a));
  return ORVIK_QOR_OK;
}

namespace {

template <class G>
void restore(OrvikStream stream, McgLanes& lanes) {
  typename G::State state;
  __builtin_memcpy(&state, state_bytes(stream), sizeof state);
  G::restore(lanes, state.a);
}

}  // namespace

// The side block follows from its first lane and the stream's multiplier. Blocks that name no generator, and those of
// too few bytes, are left alone.
int32_t restore_mcg_lanes(OrvikStream stream) {
  auto* const lanes = static_cast<McgLanes*>(find_chunk(stream, kMcgChunk, sizeof(McgLanes)));
  if (!lanes) return ORVIK_QOR_OK;
  // Records have 16 bytes to spare, so that the larger state may be read from any generator's record.
  if (lanes->row == Mod2P31M1::kRow) restore<Mcg31m1>(stream, *lanes);
  if (lanes->row == Mod2P59::kRow) restore<Mcg59>(stream, *lanes);
  return ORVIK_QOR_OK;
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
