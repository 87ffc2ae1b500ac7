// The four functions of a generator's row, from one class that describes the generator:
//   Raw, Float, Double   its sinks, and QuickDouble where it has one
//   fill(stream, n, sink)
//   seed(stream, n, seeds), and of leapfrog, skip, skip_long those it has
#pragma once

#include <stdint.h>

#include <concepts>

#include "orvik/qor.h"
#include "qor/stream/record.h"

namespace orvik::qor {

// What a generator that cannot jump answers. Generators derive from it and hide what they can do.
struct NoJumps {
  static int32_t leapfrog(OrvikStream, int32_t, int32_t) { return ORVIK_QOR_NO_LEAPFROG; }
  static int32_t skip(OrvikStream, uint64_t) { return ORVIK_QOR_NO_SKIPAHEAD; }
  static int32_t skip_long(OrvikStream, int32_t, const uint64_t*) { return ORVIK_QOR_NO_SKIPAHEAD_EX; }
};

template <class G>
concept Seeded = requires(OrvikStream stream, int32_t n, const uint32_t* seeds, uint64_t count) {
  { G::seed(stream, n, seeds) } -> std::same_as<int32_t>;
  { G::leapfrog(stream, n, n) } -> std::same_as<int32_t>;
  { G::skip(stream, count) } -> std::same_as<int32_t>;
  { G::skip_long(stream, n, &count) } -> std::same_as<int32_t>;
};
// Every form names its sink: none falls into a conversion that was made for other words.
template <class G>
concept BasicGenerator = Seeded<G> && requires(OrvikStream stream, int32_t n, void* r, float* s, double* d) {
  { G::fill(stream, n, typename G::Raw(r)) } -> std::same_as<int32_t>;
  { G::fill(stream, n, typename G::Float(s, 0.0f, 1.0f)) } -> std::same_as<int32_t>;
  { G::fill(stream, n, typename G::Double(d, 0.0, 1.0)) } -> std::same_as<int32_t>;
};

template <Seeded G>
int32_t init_stream(uint32_t method, OrvikStream stream, int32_t n, const void* params) {
  switch (method) {
    case 0:
      return G::seed(stream, n, static_cast<const uint32_t*>(params));
    case 1:
      return G::leapfrog(stream, n, *static_cast<const int32_t*>(params));
    case 2:
      if constexpr (requires { G::kSkipReadsItsLength; }) {
        if (n < 1) return ORVIK_QOR_NO_SKIPAHEAD;
      }
      return G::skip(stream, *static_cast<const uint64_t*>(params));
    case 3:
      return G::skip_long(stream, n, static_cast<const uint64_t*>(params));
    default:
      return ORVIK_QOR_BAD_METHOD;
  }
}

// Doubles by the quicker of two equal ways, where a generator has two and the interval allows it.
template <BasicGenerator G>
int32_t fill_doubles(OrvikStream stream, int32_t n, double* r, double a, double b) {
  if constexpr (requires { typename G::QuickDouble; }) {
    if (G::QuickDouble::applies(a, b)) return G::fill(stream, n, typename G::QuickDouble(r, a, b));
  }
  return G::fill(stream, n, typename G::Double(r, a, b));
}

template <class State>
State& state_of(OrvikStream stream) {
  return *reinterpret_cast<State*>(state_bytes(stream));
}

// A state and its header are a record of the row's size.
template <class State>
constexpr int32_t record_size() {
  constexpr int32_t kUnit = alignof(State) > 8 ? alignof(State) : 8;
  return (kHeaderSize + static_cast<int32_t>(sizeof(State)) + kUnit - 1) / kUnit * kUnit;
}

#define ORVIK_QOR_INIT_STREAM(NAME, G)                                                                                 \
  extern "C" int32_t __qorBRng##NAME##InitStream(uint32_t method, OrvikStream stream, int32_t n, const void* params) { \
    return orvik::qor::init_stream<G>(method, stream, n, params);                                                      \
  }

#define ORVIK_QOR_GENERATOR(NAME, G)                                                                         \
  static_assert(orvik::qor::BasicGenerator<G>);                                                              \
  ORVIK_QOR_INIT_STREAM(NAME, G)                                                                             \
  extern "C" {                                                                                               \
  int32_t __qorsBRng##NAME(OrvikStream stream, int32_t n, float* r, float a, float b) {                      \
    return G::fill(stream, n, G::Float(r, a, b));                                                            \
  }                                                                                                          \
  int32_t __qordBRng##NAME(OrvikStream stream, int32_t n, double* r, double a, double b) {                   \
    return orvik::qor::fill_doubles<G>(stream, n, r, a, b);                                                  \
  }                                                                                                          \
  int32_t __qoriBRng##NAME(OrvikStream stream, int32_t n, void* r) { return G::fill(stream, n, G::Raw(r)); } \
  }

}  // namespace orvik::qor
