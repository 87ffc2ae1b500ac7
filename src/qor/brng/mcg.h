// Multiplicative congruential generators x(n+1) = a x(n) mod m. One class over the modulus: `Modulus` gives the element
// types, the multiplication of one member and of four lanes, and the conversion of members to double and float.
#pragma once

#include <stdint.h>

#include "orvik/serv.h"
#include "qor/brng/entries.h"
#include "qor/brng/mcg_lanes.h"
#include "qor/brng/mcg_run.h"
#include "qor/brng/sinks.h"
#include "qor/brng/wide.h"
#include "qor/stream/record.h"

namespace orvik::qor {

template <class Modulus>
struct Mcg {
  using Element = typename Modulus::Element;
  using Vector = typename Modulus::Vector;
  using Raw = RawLongs<Modulus>;
  using Float = FloatLongs<Modulus>;
  using Double = DoubleLongs<Modulus>;

  struct State {
    Element x;  // the next member to deliver
    Element a;
  };

  static uint64_t power(uint64_t a, uint64_t n) {
    uint64_t result = 1;
    for (; n != 0; n >>= 1) {
      if (n & 1) result = Modulus::multiply(result, a);
      a = Modulus::multiply(a, a);
    }
    return result;
  }

  // Requests of fewer words are made one by one.
  static constexpr int32_t kFew = Modulus::kFew;

  // ---- lanes

  static void fill_lanes(uint64_t* lane, uint64_t x, uint64_t a) {
    const uint64_t a2 = Modulus::multiply(a, a);
    lane[0] = x;
    lane[1] = Modulus::multiply(x, a);
    lane[2] = Modulus::multiply(x, a2);
    lane[3] = Modulus::multiply(lane[1], a2);
  }
  // A^4, A^8 ... A^32, with few products one behind the other.
  static void fill_powers(uint64_t (&power)[8], uint64_t a) {
    const uint64_t a2 = Modulus::multiply(a, a);
    power[0] = Modulus::multiply(a2, a2);
    for (int j = 1; j < 8; ++j) power[j] = Modulus::multiply(power[j / 2], power[(j - 1) / 2]);
  }
  static void rebuild(McgLanes& lanes, uint64_t x, uint64_t a) {
    if (a == 0) a = Modulus::kMultiplier;
    fill_lanes(lanes.lane, x, a);
    uint64_t power[8];
    fill_powers(power, a);
    for (int j = 0; j < 8; ++j) store(lanes.power[j], I64(power[j]));
  }

  // The stream's side block, unless it is missing or too small to be one. A block that an image brought and that does
  // not name this generator becomes this generator's by its first lane.
  static McgLanes* find_lanes(OrvikStream stream) {
    auto* const lanes = static_cast<McgLanes*>(find_chunk(stream, kMcgChunk, sizeof(McgLanes)));
    if (lanes && lanes->row != Modulus::kRow) {
      lanes->row = Modulus::kRow;
      restore(*lanes, state_of<State>(stream).a);
    }
    return lanes;
  }
  // The first lane is trusted but for its size.
  static void restore(McgLanes& lanes, uint64_t a) {
    rebuild(lanes, Modulus::residue(lanes.lane[0]), Modulus::residue(a));
  }

  // Delivers n members from the four lanes on and moves these behind them.
  template <SinkOf<Vector> Sink>
  static void run(uint64_t* members, McgPowers powers, int32_t n, const Sink& sink) {
    WideMcg* const wide =
        Modulus::kRow == Mod2P59::kRow ? ORVIK_QOR_WHOLE(orvik_qor_wide_mcg59) : ORVIK_QOR_WHOLE(orvik_qor_wide_mcg31m1);
    if (n >= kWideMcgMembers && wide != nullptr)
      wide(Sink::kForm, members, powers, n, sink.target());
    else
      run_lanes<Modulus>(members, powers, n, sink);
  }

  // ---- the generator's functions

  // Reads and moves the stream's own member only: the lanes stay where the last real request left them.
  static int32_t fill(OrvikStream stream, int32_t n, const Raw& sink) {
    State& state = state_of<State>(stream);
    if (n < kFew) {
      uint64_t x = state.x;
      for (ptrdiff_t i = 0; i < n; ++i, x = Modulus::multiply(x, state.a)) sink.one(i, x);
      state.x = static_cast<Element>(x);
      return ORVIK_QOR_OK;
    }
    uint64_t lane[4], power[8];
    fill_lanes(lane, state.x, state.a);
    fill_powers(power, state.a);
    run(lane, {power, 1}, n, sink);
    sink.one(0, state.x);  // an image may hold bits above the modulus: delivered as they are, whatever the request
    state.x = static_cast<Element>(lane[0]);
    return ORVIK_QOR_OK;
  }

  // Floats and doubles come from the lanes and bring the stream's member up to them.
  template <SinkOf<Vector> Sink>
  static int32_t fill(OrvikStream stream, int32_t n, const Sink& sink) {
    McgLanes* const lanes = find_lanes(stream);
    if (!lanes) return ORVIK_QOR_NO_MEMORY;
    run(lanes->lane, {lanes->power[0], 4}, n, sink);
    state_of<State>(stream).x = static_cast<Element>(lanes->lane[0]);
    return ORVIK_QOR_OK;
  }

  static int32_t seed(OrvikStream stream, int32_t n, const uint32_t* seeds) {
    State& state = state_of<State>(stream);
    const uint64_t x = Modulus::member(n, seeds);
    state.x = static_cast<Element>(x == 0 ? 1 : x);
    state.a = static_cast<Element>(Modulus::kMultiplier);
    remove_chunks(stream, kMcgChunk);  // of an earlier seeding
    auto* const lanes = static_cast<McgLanes*>(orvik_serv_allocate(sizeof(McgLanes), kAlignment));
    if (!lanes) return ORVIK_QOR_NO_MEMORY;
    *lanes = {};
    lanes->row = Modulus::kRow;
    rebuild(*lanes, state.x, state.a);
    const int32_t status = __qorAddChunk(stream, kMcgChunk, nullptr, lanes, sizeof(McgLanes));
    if (status < 0) orvik_serv_deallocate(lanes);
    return status;
  }

  static int32_t leapfrog(OrvikStream stream, int32_t nstreams, int32_t k) {
    McgLanes* const lanes = find_lanes(stream);
    if (!lanes) return ORVIK_QOR_NO_MEMORY;
    State& state = state_of<State>(stream);
    state.x = step(state, static_cast<uint64_t>(k));
    state.a = static_cast<Element>(power(state.a, static_cast<uint64_t>(nstreams)));
    rebuild(*lanes, state.x, state.a);
    return ORVIK_QOR_OK;
  }

  static int32_t skip(OrvikStream stream, uint64_t count) {
    McgLanes* const lanes = find_lanes(stream);
    if (!lanes) return ORVIK_QOR_NO_MEMORY;
    State& state = state_of<State>(stream);
    state.x = step(state, count);
    rebuild(*lanes, state.x, state.a);
    return ORVIK_QOR_OK;
  }

  static int32_t skip_long(OrvikStream, int32_t, const uint64_t*) { return ORVIK_QOR_NO_SKIPAHEAD_EX; }

 private:
  static Element step(const State& state, uint64_t count) {
    return static_cast<Element>(Modulus::multiply(state.x, power(state.a, count)));
  }
};

}  // namespace orvik::qor
