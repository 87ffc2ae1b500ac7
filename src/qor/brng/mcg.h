// Multiplicative congruential generators x(n+1) = a x(n) mod m. One class over the modulus: `Modulus` gives the element
// types, the multiplication of one member and of four lanes, and the conversion of members to double and float.
#pragma once

#include <stdint.h>

#include "orvik/serv.h"
#include "qor/brng/entries.h"
#include "qor/brng/mcg_lanes.h"
#include "qor/brng/sinks.h"
#include "qor/stream/record.h"

namespace orvik::qor {

template <class Modulus>
struct Mcg {
  using Element = typename Modulus::Element;
  using Vector = typename Modulus::Vector;
  using Raw = RawFours<Modulus>;
  using Float = FloatFours<Modulus>;
  using Double = DoubleFours<Modulus>;

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

  // ---- lanes

  static void fill_lanes(uint64_t* lane, uint64_t x, uint64_t a) {
    lane[0] = x;
    for (int k = 1; k < 4; ++k) lane[k] = Modulus::multiply(lane[k - 1], a);
  }
  static void fill_powers(uint64_t (*power)[4], uint64_t a) {
    const uint64_t a2 = Modulus::multiply(a, a), a4 = Modulus::multiply(a2, a2);
    uint64_t p = a4;
    for (int j = 0; j < 8; ++j, p = Modulus::multiply(p, a4)) store(power[j], I64(p));
  }
  static void rebuild(McgLanes& lanes, uint64_t x, uint64_t a) {
    if (a == 0) a = Modulus::kMultiplier;
    fill_lanes(lanes.lane, x, a);
    fill_powers(lanes.power, a);
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

  // Delivers n members from the four lanes on; returns the lanes behind them.
  template <SinkOf<Vector> Sink>
  static I64 run(I64 members, const uint64_t (*power)[4], int32_t n, const Sink& sink) {
    using Factor = typename Modulus::Factor;
    constexpr int kGroup = 2;  // products that are made together
    auto lane = Modulus::enter(members);
    ptrdiff_t i = 0;
    if (n >= 32) {
      const Sink own = sink;  // a copy: for all the compiler knows the results might overlap it
      Factor factor[8];
      for (int j = 0; j < 8; ++j) factor[j] = Factor(load_words(power[j]));
      for (; i + 32 <= n; i += 32) {
        unroll<8 / kGroup>([&](auto g) __attribute__((always_inline)) {
          Vector w[kGroup];
          if constexpr (g == 0) {
            Vector behind[kGroup - 1];
            Modulus::multiply(lane, factor, behind);
            w[0] = Modulus::unit(lane);
            unroll<kGroup - 1>([&](auto k) __attribute__((always_inline)) { w[k + 1] = behind[k]; });
          } else {
            Modulus::multiply(lane, factor + g * kGroup - 1, w);
          }
          own.group(i + 4 * kGroup * g, w);
        });
        Vector next[1];
        Modulus::multiply(lane, factor + 7, next);
        lane = Modulus::lanes(next[0]);
      }
    }
    const Factor next(load_words(power[0]));
    Vector w[1] = {Modulus::unit(lane)}, after[1];
    for (; i + 4 <= n; i += 4) {
      sink.group(i, w);
      Modulus::multiply(lane, &next, after);
      lane = Modulus::lanes(after[0]);
      w[0] = Modulus::unit(lane);
    }
    const int rest = static_cast<int>(n - i);
    if (rest <= 0) return Modulus::leave(lane);
    sink.some(i, w[0], rest);
    Modulus::multiply(lane, &next, after);
    uint64_t member[8];  // the lanes stay four consecutive members
    store(member, Modulus::leave(lane));
    store(member + 4, Modulus::leave(Modulus::lanes(after[0])));
    return load_words(member + rest);
  }

  // ---- the generator's functions

  // Reads and moves the stream's own member only: the lanes stay where the last real request left them.
  static int32_t fill(OrvikStream stream, int32_t n, const Raw& sink) {
    State& state = state_of<State>(stream);
    if (n < 64) {
      uint64_t x = state.x;
      for (ptrdiff_t i = 0; i < n; ++i, x = Modulus::multiply(x, state.a)) sink.one(i, x);
      state.x = static_cast<Element>(x);
      return ORVIK_QOR_OK;
    }
    uint64_t lane[4], power[8][4];
    fill_lanes(lane, state.x, state.a);
    fill_powers(power, state.a);
    store(lane, run(load_words(lane), power, n, sink));
    sink.one(0, state.x);  // an image may hold bits above the modulus: delivered as they are, whatever the request
    state.x = static_cast<Element>(lane[0]);
    return ORVIK_QOR_OK;
  }

  // Floats and doubles come from the lanes and bring the stream's member up to them.
  template <SinkOf<Vector> Sink>
  static int32_t fill(OrvikStream stream, int32_t n, const Sink& sink) {
    McgLanes* const lanes = find_lanes(stream);
    if (!lanes) return ORVIK_QOR_NO_MEMORY;
    const I64 lane = run(load_words(lanes->lane), lanes->power, n, sink);
    store(lanes->lane, lane);
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
