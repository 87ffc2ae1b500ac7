// Multiplicative congruential generators x(n+1) = a x(n) mod m. One class over the modulus: `Modulus` gives the element
// types, the multiplication of one member and of four lanes, and the conversion of members to double and float.
#pragma once

#include <immintrin.h>
#include <stdint.h>

#include <type_traits>

#include "orvik/serv.h"
#include "qor/brng/entries.h"
#include "qor/brng/mcg_lanes.h"
#include "qor/brng/words.h"
#include "qor/stream/record.h"

namespace orvik::qor {

inline __m256i load4(const uint64_t* p) { return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p)); }
inline void store4(uint64_t* p, __m256i w) { _mm256_storeu_si256(reinterpret_cast<__m256i*>(p), w); }

template <class Modulus>
class McgRawSink {
 public:
  using Product = typename Modulus::Product;
  explicit McgRawSink(void* r) : r_(static_cast<typename Modulus::Element*>(r)) {}
  template <int N>
  void fours(ptrdiff_t i, const Product (&w)[N]) const {
    unroll<N>([&](auto k) __attribute__((always_inline)) { Modulus::store(r_ + i + 4 * k, w[k]); });
  }
  void some(ptrdiff_t i, Product w, int count) const {
    uint64_t word[4];
    store4(word, Modulus::leave(Modulus::lanes(w)));
    for (int k = 0; k < count; ++k) one(i + k, word[k]);
  }
  void one(ptrdiff_t i, uint64_t w) const { r_[i] = static_cast<typename Modulus::Element>(w); }

 private:
  typename Modulus::Element* r_;
};

template <class Modulus>
class McgFloatSink {
 public:
  using Product = typename Modulus::Product;
  McgFloatSink(float* r, float a, float b)
      : r_(r), scale_(_mm256_set1_ps((b - a) * Modulus::kFloatScale)), a_(_mm256_set1_ps(a)) {}
  template <int N>
  void fours(ptrdiff_t i, const Product (&w)[N]) const {
    __m256 x[(N + 1) / 2];
    Modulus::to_float(w, x);
    unroll<(N + 1) / 2>([&](auto k) __attribute__((always_inline)) { x[k] = _mm256_fmadd_ps(scale_, x[k], a_); });
    unroll<N / 2>([&](auto k) __attribute__((always_inline)) { _mm256_storeu_ps(r_ + i + 8 * k, x[k]); });
    if constexpr (N % 2 == 1) _mm_storeu_ps(r_ + i + 4 * (N - 1), _mm256_castps256_ps128(x[N / 2]));
  }
  void some(ptrdiff_t i, Product w, int count) const {
    const Product words[1] = {w};
    __m256 x[1];
    Modulus::to_float(words, x);
    _mm_maskstore_ps(r_ + i, _mm256_castsi256_si128(lane_mask(count)),
                     _mm256_castps256_ps128(_mm256_fmadd_ps(scale_, x[0], a_)));
  }

 private:
  float* r_;
  __m256 scale_, a_;
};

template <class Modulus>
class McgDoubleSink {
 public:
  using Product = typename Modulus::Product;
  McgDoubleSink(double* r, double a, double b)
      : r_(r), scale_(_mm256_set1_pd((b - a) * Modulus::kDoubleScale)), a_(_mm256_set1_pd(a)) {}
  template <int N>
  void fours(ptrdiff_t i, const Product (&w)[N]) const {
    __m256d x[N];
    Modulus::to_double(w, x);
    unroll<N>([&](auto k) __attribute__((always_inline)) {
      _mm256_storeu_pd(r_ + i + 4 * k, _mm256_fmadd_pd(scale_, x[k], a_));
    });
  }
  void some(ptrdiff_t i, Product w, int count) const {
    const Product words[1] = {w};
    __m256d x[1];
    Modulus::to_double(words, x);
    _mm256_maskstore_pd(r_ + i, _mm256_cvtepi32_epi64(_mm256_castsi256_si128(lane_mask(count))),
                        _mm256_fmadd_pd(scale_, x[0], a_));
  }

 private:
  double* r_;
  __m256d scale_, a_;
};

template <class Modulus>
struct Mcg {
  using Element = typename Modulus::Element;
  using Raw = McgRawSink<Modulus>;
  using Float = McgFloatSink<Modulus>;
  using Double = McgDoubleSink<Modulus>;

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
    for (int j = 0; j < 8; ++j, p = Modulus::multiply(p, a4)) store4(power[j], broadcast64(p));
  }
  static void rebuild(McgLanes& lanes, uint64_t x, uint64_t a) {
    if (a == 0) a = Modulus::kMultiplier;
    fill_lanes(lanes.lane, x, a);
    fill_powers(lanes.power, a);
  }

  // The stream's side block, unless it is missing or too small to be one.
  static McgLanes* find_lanes(OrvikStream stream) {
    for (const ChunkNode* node = header(stream)->chunks; node; node = node->next)
      if (node->id == kMcgChunk)
        return static_cast<uint32_t>(node->size) < sizeof(McgLanes) ? nullptr : static_cast<McgLanes*>(node->data);
    return nullptr;
  }

  // Delivers n members from the four lanes on; returns the lanes behind them.
  template <class Sink>
  static __m256i run(__m256i members, const uint64_t (*power)[4], int32_t n, const Sink& sink) {
    using Factor = typename Modulus::Factor;
    using Product = typename Modulus::Product;
    constexpr int kGroup = 2;  // products that are made together
    auto lane = Modulus::enter(members);
    ptrdiff_t i = 0;
    if (n >= 32) {
      const Sink own = sink;  // a copy: for all the compiler knows the results might overlap it
      Factor factor[8];
      for (int j = 0; j < 8; ++j) factor[j] = Factor(load4(power[j]));
      for (; i + 32 <= n; i += 32) {
        unroll<8 / kGroup>([&](auto g) __attribute__((always_inline)) {
          Product w[kGroup];
          if constexpr (g == 0) {
            Product behind[kGroup - 1];
            Modulus::multiply(lane, factor, behind);
            w[0] = Modulus::unit(lane);
            unroll<kGroup - 1>([&](auto k) __attribute__((always_inline)) { w[k + 1] = behind[k]; });
          } else {
            Modulus::multiply(lane, factor + g * kGroup - 1, w);
          }
          own.fours(i + 4 * kGroup * g, w);
        });
        Product next[1];
        Modulus::multiply(lane, factor + 7, next);
        lane = Modulus::lanes(next[0]);
      }
    }
    const Factor next(load4(power[0]));
    Product w[1] = {Modulus::unit(lane)}, after[1];
    for (; i + 4 <= n; i += 4) {
      sink.fours(i, w);
      Modulus::multiply(lane, &next, after);
      lane = Modulus::lanes(after[0]);
      w[0] = Modulus::unit(lane);
    }
    const int rest = static_cast<int>(n - i);
    if (rest <= 0) return Modulus::leave(lane);
    sink.some(i, w[0], rest);
    Modulus::multiply(lane, &next, after);
    uint64_t member[8];  // the lanes stay four consecutive members
    store4(member, Modulus::leave(lane));
    store4(member + 4, Modulus::leave(Modulus::lanes(after[0])));
    return load4(member + rest);
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
    store4(lane, run(load4(lane), power, n, sink));
    sink.one(0, state.x);  // an image may hold bits above the modulus: delivered as they are, whatever the request
    state.x = static_cast<Element>(lane[0]);
    return ORVIK_QOR_OK;
  }

  // Floats and doubles come from the lanes and bring the stream's member up to them.
  template <class Sink>
  static int32_t fill(OrvikStream stream, int32_t n, const Sink& sink) {
    McgLanes* const lanes = find_lanes(stream);
    if (!lanes) return ORVIK_QOR_NO_MEMORY;
    const __m256i lane = run(load4(lanes->lane), lanes->power, n, sink);
    store4(lanes->lane, lane);
    state_of<State>(stream).x = static_cast<Element>(lanes->lane[0]);
    return ORVIK_QOR_OK;
  }

  static int32_t seed(OrvikStream stream, int32_t n, const uint32_t* seeds) {
    State& state = state_of<State>(stream);
    const uint64_t x = Modulus::member(n, seeds);
    state.x = static_cast<Element>(x == 0 ? 1 : x);
    state.a = static_cast<Element>(Modulus::kMultiplier);
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
