// Every entry of the distributions as tests loop over them, with parameters that take each branch.
#pragma once

#include <cstdint>
#include <cstring>
#include <functional>
#include <ostream>
#include <string>
#include <type_traits>
#include <vector>

#include "orvik/qor.h"

namespace orvik::testing {

struct Entry {
  std::string name;
  int32_t bytes;  // of an output
  std::function<int32_t(OrvikStream stream, int32_t n, void* r)> call;
  bool has_status_of_uniforms;  // false where words and no uniforms are drawn
  // How many numbers later calls give differs with the cuts of a request: see the entries that say so.
  bool free_of_cuts;
  bool allocates;
};
inline void PrintTo(const Entry& e, std::ostream* out) { *out << e.name; }

// Uniform to the words, in the order of the public header.
inline const std::vector<Entry>& entries() {
  static const std::vector<Entry> all = [] {
    std::vector<Entry> list;
    const auto add = [&list]<class T>(std::string name, T, auto call, bool uniforms = true, bool free = true,
                                      bool allocates = false) {
      list.push_back({std::move(name), sizeof(T),
                      [call](OrvikStream s, int32_t n, void* r) { return call(s, n, static_cast<T*>(r)); }, uniforms,
                      free, allocates});
    };
    // The same call of both precisions; T is a double or a float.
#define ORVIK_BOTH(name, Function, method, ...)                                                                        \
  add(                                                                                                                 \
      "d" name, double(),                                                                                              \
      [](OrvikStream s, int32_t n, double* r) { return _qordRng##Function(method, s, n, r, __VA_ARGS__); }, true,      \
      true, allocates);                                                                                                \
  add(                                                                                                                 \
      "s" name, float(),                                                                                               \
      [](OrvikStream s, int32_t n, float* r) { return _qorsRng##Function(method, s, n, r, __VA_ARGS__); }, true, true, \
      allocates)
    bool allocates = false;
    ORVIK_BOTH("Uniform", Uniform, 0, -1, 3);
    ORVIK_BOTH("Uniform_clamped", Uniform, ORVIK_RNG_CLAMP, -1, 3);
    ORVIK_BOTH("Cauchy", Cauchy, 0, 1, 2);
    ORVIK_BOTH("Exponential", Exponential, 0, 1, 2);
    ORVIK_BOTH("Exponential_clamped", Exponential, ORVIK_RNG_CLAMP, 1, 2);
    ORVIK_BOTH("Gumbel", Gumbel, 0, 1, 2);
    ORVIK_BOTH("Laplace", Laplace, 0, 1, 2);
    ORVIK_BOTH("Rayleigh", Rayleigh, 0, 1, 2);
    ORVIK_BOTH("Rayleigh_clamped", Rayleigh, ORVIK_RNG_CLAMP, 1, 2);
    ORVIK_BOTH("Weibull", Weibull, 0, 1.5, 1, 2);
    ORVIK_BOTH("Weibull_of_shape_1", Weibull, 0, 1, 1, 2);
    ORVIK_BOTH("Weibull_clamped", Weibull, ORVIK_RNG_CLAMP, 1.5, 1, 2);
    ORVIK_BOTH("Gaussian_0", Gaussian, ORVIK_GAUSSIAN_BOX_MULLER, 1, 2);
    allocates = true;
    ORVIK_BOTH("Gaussian_1", Gaussian, ORVIK_GAUSSIAN_BOX_MULLER_PAIRS, 1, 2);
    ORVIK_BOTH("Lognormal_0", Lognormal, 0, 1, 0.5, -1, 2);
    allocates = false;
    add("iUniform", int32_t(),
        [](OrvikStream s, int32_t n, int32_t* r) { return _qoriRngUniform(0, s, n, r, -7, 100); });
    add("iBernoulli", int32_t(),
        [](OrvikStream s, int32_t n, int32_t* r) { return _qoriRngBernoulli(0, s, n, r, 0.3); });
    add("iGeometric", int32_t(),
        [](OrvikStream s, int32_t n, int32_t* r) { return _qoriRngGeometric(0, s, n, r, 0.2); });
    add(
        "iUniformBits", uint32_t(),
        [](OrvikStream s, int32_t n, uint32_t* r) { return _qoriRngUniformBits(0, s, n, r); }, false);
    add(
        "iUniformBits32", uint32_t(),
        [](OrvikStream s, int32_t n, uint32_t* r) { return _qoriRngUniformBits32(0, s, n, r); }, false);
    add(
        "iUniformBits64", uint64_t(),
        [](OrvikStream s, int32_t n, uint64_t* r) { return _qoriRngUniformBits64(0, s, n, r); }, false);
#undef ORVIK_BOTH
    return list;
  }();
  return all;
}

}  // namespace orvik::testing
