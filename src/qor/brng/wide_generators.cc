// The loops of generators in registers of 512 bits. Compiled for these; wide.h tells whether they may be called.
#include "qor/brng/ars5_rounds.h"
#include "qor/brng/counter_runs.h"
#include "qor/brng/digital_points.h"
#include "qor/brng/mcg_run.h"
#include "qor/brng/mrg32k3a_blocks.h"
#include "qor/brng/mt19937.h"
#include "qor/brng/mt2203.h"
#include "qor/brng/philox_rounds.h"
#include "qor/brng/r250_run.h"
#include "qor/brng/sfmt19937.h"
#include "qor/brng/wh_run.h"

namespace orvik::qor {
namespace {

template <class Runs>
void runs(Form form, const uint32_t* key, uint64_t low, uint64_t high, ptrdiff_t i, ptrdiff_t n, const Target& target,
          uint32_t* block) {
  if (form == Form::raw) deliver_all<Runs>(key, low, high, i, n, RawSink(target), block);
  if (form == Form::floats) deliver_all<Runs>(key, low, high, i, n, CounterFloats(target), block);
  if (form == Form::doubles) deliver_all<Runs>(key, low, high, i, n, CounterDoubles(target), block);
}

template <class Modulus>
void members(Form form, uint64_t* lanes, McgPowers powers, int32_t n, const Target& target) {
  if (form == Form::raw) run_lanes<Modulus>(lanes, powers, n, RawLongs<Modulus>(target));
  if (form == Form::floats) run_lanes<Modulus>(lanes, powers, n, FloatLongs<Modulus>(target));
  if (form == Form::doubles) run_lanes<Modulus>(lanes, powers, n, DoubleLongs<Modulus>(target));
}

template <class P>
int rows(Form form, uint32_t* x, int k, int count, const void* kept, const Target& target, ptrdiff_t i) {
  const auto& state = *static_cast<const typename P::State*>(kept);
  switch (form) {
    case Form::none:
      return TwisterRows<P>::advance(x, k, count, state, NullSink(target), i);
    case Form::raw:
      return TwisterRows<P>::advance(x, k, count, state, RawSink(target), i);
    case Form::floats:
      return TwisterRows<P>::advance(x, k, count, state, TwisterFloats(target), i);
    case Form::doubles:
      return TwisterRows<P>::advance(x, k, count, state, TwisterDoubles(target), i);
    case Form::quick_doubles:
      return TwisterRows<P>::advance(x, k, count, state, TwisterQuickDoubles(target), i);
  }
  return k;
}

template <class P>
void tempered(Form form, const uint32_t* word, int count, const void* kept, const Target& target, ptrdiff_t i) {
  const auto& state = *static_cast<const typename P::State*>(kept);
  if (form == Form::raw) TwisterRows<P>::deliver(word, count, state, RawSink(target), i);
  if (form == Form::floats) TwisterRows<P>::deliver(word, count, state, TwisterFloats(target), i);
  if (form == Form::doubles) TwisterRows<P>::deliver(word, count, state, TwisterDoubles(target), i);
  if (form == Form::quick_doubles) TwisterRows<P>::deliver(word, count, state, TwisterQuickDoubles(target), i);
}

}  // namespace

extern "C" void orvik_qor_wide_philox(Form form, const uint32_t* key, uint64_t low, uint64_t high, ptrdiff_t i,
                                      ptrdiff_t n, const Target& target, uint32_t* block) {
  runs<PhiloxRuns>(form, key, low, high, i, n, target, block);
}
extern "C" void orvik_qor_wide_ars5(Form form, const uint32_t* key, uint64_t low, uint64_t high, ptrdiff_t i,
                                    ptrdiff_t n, const Target& target, uint32_t* block) {
  runs<Ars5Runs>(form, key, low, high, i, n, target, block);
}
extern "C" int orvik_qor_wide_mt19937(Form form, uint32_t* x, int k, int count, const void* state, const Target& target,
                                      ptrdiff_t i) {
  return rows<Mt19937Parameters>(form, x, k, count, state, target, i);
}
extern "C" int orvik_qor_wide_mt2203(Form form, uint32_t* x, int k, int count, const void* state, const Target& target,
                                     ptrdiff_t i) {
  return rows<Mt2203Parameters>(form, x, k, count, state, target, i);
}
extern "C" void orvik_qor_wide_mt19937_tempering(Form form, const uint32_t* word, int count, const void* state,
                                                 const Target& target, ptrdiff_t i) {
  tempered<Mt19937Parameters>(form, word, count, state, target, i);
}
extern "C" void orvik_qor_wide_mt2203_tempering(Form form, const uint32_t* word, int count, const void* state,
                                                const Target& target, ptrdiff_t i) {
  tempered<Mt2203Parameters>(form, word, count, state, target, i);
}
extern "C" void orvik_qor_wide_mcg31m1(Form form, uint64_t* lanes, McgPowers powers, int32_t n, const Target& target) {
  members<Mod2P31M1>(form, lanes, powers, n, target);
}
extern "C" void orvik_qor_wide_mcg59(Form form, uint64_t* lanes, McgPowers powers, int32_t n, const Target& target) {
  members<Mod2P59>(form, lanes, powers, n, target);
}
extern "C" void orvik_qor_wide_wh(Form form, WhState& state, const uint32_t* moduli, const double* reciprocals,
                                  int32_t n, const Target& target) {
  const Moduli m(moduli, reciprocals);
  if (form == Form::raw) run_wh(state, m, n, WhWords(target));
  if (form == Form::floats) run_wh(state, m, n, WhFloats(target));
  if (form == Form::doubles) run_wh(state, m, n, WhDoubles(target));
}
extern "C" void orvik_qor_wide_sfmt_generations(Form form, uint32_t* word, int count, const Target& target,
                                                ptrdiff_t i) {
  if (form == Form::none) SfmtBlocks::generations(word, count, NullSink(), i);
  if (form == Form::raw) SfmtBlocks::generations(word, count, RawSink(target), i);
  if (form == Form::floats) SfmtBlocks::generations(word, count, SfmtFloats(target), i);
  if (form == Form::doubles) SfmtBlocks::generations(word, count, SfmtDoubles(target), i);
}
extern "C" void orvik_qor_wide_sfmt_deliver(Form form, const uint32_t* word, int count, const Target& target,
                                            ptrdiff_t i) {
  if (form == Form::raw) SfmtBlocks::deliver(word, count, RawSink(target), i);
  if (form == Form::floats) SfmtBlocks::deliver(word, count, SfmtFloats(target), i);
  if (form == Form::doubles) SfmtBlocks::deliver(word, count, SfmtDoubles(target), i);
}
extern "C" void orvik_qor_wide_dense_points(Form form, const Neighbours& s, uint32_t index, int32_t points,
                                            const Target& target, ptrdiff_t i) {
  if (form == Form::raw) deliver_dense(s, index, points, RawSink(target), i);
  if (form == Form::floats) deliver_dense(s, index, points, DigitalFloats(target), i);
  if (form == Form::doubles) deliver_dense(s, index, points, DigitalDoubles(target), i);
  if (form == Form::quick_doubles) deliver_dense(s, index, points, DigitalQuickDoubles(target), i);
}
extern "C" void orvik_qor_wide_plain_points(Form form, const Neighbours& s, uint32_t index, int32_t points,
                                            const Target& target, ptrdiff_t i, ptrdiff_t width) {
  if (form == Form::raw) deliver_plain(s, index, points, RawSink(target), i, width);
  if (form == Form::floats) deliver_plain(s, index, points, DigitalFloats(target), i, width);
  if (form == Form::doubles) deliver_plain(s, index, points, DigitalDoubles(target), i, width);
  if (form == Form::quick_doubles) deliver_plain(s, index, points, DigitalQuickDoubles(target), i, width);
}
extern "C" void orvik_qor_wide_r250(Form form, uint32_t* x, int count, const Target& target, ptrdiff_t i) {
  if (form == Form::raw) run_r250(x, count, RawSink(target), i);
  if (form == Form::floats) run_r250(x, count, R250Floats(target), i);
  if (form == Form::doubles) run_r250(x, count, R250Doubles(target), i);
  if (form == Form::quick_doubles) run_r250(x, count, R250QuickDoubles(target), i);
}
extern "C" ptrdiff_t orvik_qor_wide_mrg32k3a(Form form, Mrg32k3aState& state, ptrdiff_t i, ptrdiff_t n,
                                             const Target& target) {
  switch (form) {
    case Form::raw:
      return MrgBlocks::deliver(state, i, n, RawSink(target));
    case Form::floats:
      return MrgBlocks::deliver(state, i, n, MrgFloats(target));
    case Form::doubles:
      return MrgBlocks::deliver(state, i, n, MrgDoubles(target));
    default:
      return i;
  }
}

}  // namespace orvik::qor
