// Every entry of the distributions as tests loop over them, with parameters that take each branch.
#pragma once

#include <array>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <functional>
#include <map>
#include <ostream>
#include <string>
#include <type_traits>
#include <vector>

#include "orvik/qor.h"

namespace orvik::testing {

struct Entry {
  std::string name;  // its precision, its distribution, what is special about the parameters
  int32_t bytes;     // of an output
  std::function<int32_t(OrvikStream stream, int32_t n, void* r)> call;
  bool free_of_cuts = true;    // the same bits however a request is cut
  int32_t blocks = 0;          // side blocks that it keeps
  bool scratch = false;        // has working memory for the duration of a call
  bool draws_doubles = false;  // integers by way of doubles
};
inline void PrintTo(const Entry& e, std::ostream* out) { *out << e.name; }

template <class T, class Draw>
Entry entry(std::string name, Draw draw) {
  return {std::move(name), sizeof(T),
          [draw](OrvikStream s, int32_t n, void* r) { return draw(s, n, static_cast<T*>(r)); }};
}
// Uniforms for products and for normal numbers take turns by blocks of 1,024.
inline Entry mixes_in_blocks(Entry e) {
  e.free_of_cuts = false;
  return e;
}
inline Entry keeps_a_block(Entry e) {
  ++e.blocks;
  return e;
}
// A pair that a cut divides goes through other kernels than whole pairs.
inline Entry keeps_a_divided_pair(Entry e) {
  e.free_of_cuts = false;
  return keeps_a_block(e);
}
inline Entry with_scratch(Entry e) {
  e.scratch = true;
  return e;
}
inline Entry by_doubles(Entry e) {
  e.draws_doubles = true;
  return e;
}

// Means for as many numbers as any test asks for: one mean, or small and large ones by turns.
inline const double* means_of(double mean) {
  static std::map<double, std::vector<double>> all;
  return all.try_emplace(mean, 100000, mean).first->second.data();
}
inline const double* mixed_means() {
  static const std::vector<double> all = [] {
    std::vector<double> means(100000);
    for (size_t i = 0; i < means.size(); ++i) means[i] = std::exp2(static_cast<double>(i % 61) / 3 - 4);
    return means;
  }();
  return all.data();
}

using Row = std::array<int32_t, 4>;
inline constexpr double kFour[4] = {0.125, 0.5, 0.0625, 0.3125};
template <class Draw>
Entry rows(std::string name, Draw draw) {
  return entry<Row>(std::move(name), [draw](OrvikStream s, int32_t n, Row* r) { return draw(s, n, r->data()); });
}

inline const std::vector<Entry>& entries() {
#define ORVIK_DRAW(T, Function, method, ...) \
  [](OrvikStream s, int32_t n, T* r) { return _qor##Function(method, s, n, r __VA_OPT__(, ) __VA_ARGS__); }
// The two precisions of one call.
#define ORVIK_BOTH(name, Function, method, ...)                                     \
  entry<double>("d" name, ORVIK_DRAW(double, dRng##Function, method, __VA_ARGS__)), \
      entry<float>("s" name, ORVIK_DRAW(float, sRng##Function, method, __VA_ARGS__))
#define ORVIK_BOTH_AS(wrap, name, Function, method, ...)                                  \
  wrap(entry<double>("d" name, ORVIK_DRAW(double, dRng##Function, method, __VA_ARGS__))), \
      wrap(entry<float>("s" name, ORVIK_DRAW(float, sRng##Function, method, __VA_ARGS__)))
#define ORVIK_BOTH_PAIRS(...) ORVIK_BOTH_AS(keeps_a_divided_pair, __VA_ARGS__)
#define ORVIK_BOTH_KEPT(...) ORVIK_BOTH_AS(keeps_a_block, __VA_ARGS__)
#define ORVIK_BOTH_BLOCKS(...) ORVIK_BOTH_AS(mixes_in_blocks, __VA_ARGS__)
#define ORVIK_INTEGERS_BY(name, Function, ...) \
  entry<int32_t>("i" name, ORVIK_DRAW(int32_t, iRng##Function, __VA_ARGS__))
#define ORVIK_INTEGERS(name, Function, ...) ORVIK_INTEGERS_BY(name, Function, 0, __VA_ARGS__)
#define ORVIK_ROWS(name, method, trials) \
  with_scratch(rows("i" name, ORVIK_DRAW(int32_t, iRngMultinomial, method, trials, 4, kFour)))
  static const std::vector<Entry> all = {
      ORVIK_BOTH("Uniform", Uniform, 0, -1, 3),
      ORVIK_BOTH("Uniform_clamped", Uniform, ORVIK_RNG_CLAMP, -1, 3),
      ORVIK_BOTH("Cauchy", Cauchy, 0, 1, 2),
      ORVIK_BOTH("Exponential", Exponential, 0, 1, 2),
      ORVIK_BOTH("Exponential_clamped", Exponential, ORVIK_RNG_CLAMP, 1, 2),
      ORVIK_BOTH("Gumbel", Gumbel, 0, 1, 2),
      ORVIK_BOTH("Laplace", Laplace, 0, 1, 2),
      ORVIK_BOTH("Rayleigh", Rayleigh, 0, 1, 2),
      ORVIK_BOTH("Rayleigh_clamped", Rayleigh, ORVIK_RNG_CLAMP, 1, 2),
      ORVIK_BOTH("Weibull", Weibull, 0, 1.5, 1, 2),
      ORVIK_BOTH("Weibull_of_shape_1", Weibull, 0, 1, 1, 2),
      ORVIK_BOTH("Weibull_clamped", Weibull, ORVIK_RNG_CLAMP, 1.5, 1, 2),
      ORVIK_BOTH("Gaussian_0", Gaussian, ORVIK_GAUSSIAN_BOX_MULLER, 1, 2),
      ORVIK_BOTH_PAIRS("Gaussian_1", Gaussian, ORVIK_GAUSSIAN_BOX_MULLER_PAIRS, 1, 2),
      ORVIK_BOTH("Gaussian_2", Gaussian, ORVIK_GAUSSIAN_INVERSE, 1, 2),
      ORVIK_BOTH("Lognormal_inverse", Lognormal, ORVIK_RNG_CLAMP, 1, 0.5, -1, 2),
      ORVIK_BOTH_PAIRS("Lognormal_0", Lognormal, 0, 1, 0.5, -1, 2),
      ORVIK_BOTH_KEPT("Gamma_above_1", Gamma, 0, 2.5, 1, 2),
      ORVIK_BOTH("Gamma_1", Gamma, 0, 1, 1, 2),
      ORVIK_BOTH("Gamma_from_06", Gamma, ORVIK_RNG_CLAMP, 0.75, 1, 2),
      ORVIK_BOTH("Gamma_below_06", Gamma, 0, 0.25, 1, 2),
      ORVIK_BOTH("Beta_by_powers", Beta, 0, 0.25, 0.5, 1, 2),
      ORVIK_BOTH("Beta_by_switching", Beta, 0, 0.75, 0.875, 1, 2),
      ORVIK_BOTH("Beta_uniform", Beta, 0, 1, 1, 1, 2),
      ORVIK_BOTH("Beta_of_power", Beta, 0, 0.75, 1, 1, 2),
      ORVIK_BOTH("Beta_across_1", Beta, 0, 0.75, 3, 1, 2),
      ORVIK_BOTH("Beta_across_1_swapped", Beta, ORVIK_RNG_CLAMP, 3, 0.75, 1, 2),
      ORVIK_BOTH("Beta_above_1", Beta, 0, 3, 1.5, 1, 2),
      ORVIK_BOTH_BLOCKS("ChiSquare_1", ChiSquare, 0, 1),
      ORVIK_BOTH("ChiSquare_6", ChiSquare, 0, 6),
      ORVIK_BOTH_BLOCKS("ChiSquare_15", ChiSquare, 0, 15),
      ORVIK_BOTH_KEPT("ChiSquare_16", ChiSquare, 0, 16),
      by_doubles(ORVIK_INTEGERS("Uniform", Uniform, -7, 100)),
      ORVIK_INTEGERS("Bernoulli", Bernoulli, 0.3),
      ORVIK_INTEGERS("Geometric", Geometric, 0.2),
      keeps_a_block(ORVIK_INTEGERS("Binomial_inversion", Binomial, 40, 0.3)),
      keeps_a_block(ORVIK_INTEGERS("Binomial_inversion_above_half", Binomial, 40, 0.7)),
      keeps_a_block(ORVIK_INTEGERS("Binomial_rejection", Binomial, 1000, 0.3)),
      keeps_a_block(ORVIK_INTEGERS("Binomial_rejection_above_half", Binomial, 1000, 0.7)),
      by_doubles(keeps_a_block(ORVIK_INTEGERS("Hypergeometric_table", Hypergeometric, 100, 30, 40))),
      keeps_a_block(ORVIK_INTEGERS("Hypergeometric_rejection", Hypergeometric, 1000, 300, 400)),
      keeps_a_block(ORVIK_INTEGERS("Hypergeometric_rejection_turned", Hypergeometric, 1000, 700, 600)),
      by_doubles(keeps_a_block(ORVIK_INTEGERS("Negbinomial_walk", Negbinomial, 5, 0.3))),
      by_doubles(keeps_a_block(ORVIK_INTEGERS("Negbinomial_walk_in_strides", Negbinomial, 20000, 0.3))),
      by_doubles(keeps_a_block(ORVIK_INTEGERS("Negbinomial_rejection", Negbinomial, 40, 0.005))),
      by_doubles(keeps_a_block(ORVIK_INTEGERS("Negbinomial_rejection_of_a_peak", Negbinomial, 0.5, 0.005))),
      keeps_a_block(keeps_a_block(mixes_in_blocks(ORVIK_INTEGERS("Negbinomial_mixture", Negbinomial, 2000000, 0.1)))),
      by_doubles(keeps_a_block(ORVIK_INTEGERS_BY("Poisson_table", Poisson, ORVIK_POISSON_REJECTION, 12.5))),
      keeps_a_block(ORVIK_INTEGERS_BY("Poisson_rejection", Poisson, ORVIK_POISSON_REJECTION, 100.25)),
      keeps_a_block(ORVIK_INTEGERS_BY("Poisson_normal_and_table", Poisson, ORVIK_POISSON_NORMAL, 12.5)),
      mixes_in_blocks(ORVIK_INTEGERS_BY("Poisson_normal", Poisson, ORVIK_POISSON_NORMAL, 1e6)),
      by_doubles(ORVIK_INTEGERS("PoissonV_series", PoissonV, means_of(3.75))),
      by_doubles(ORVIK_INTEGERS("PoissonV_inverse", PoissonV, means_of(300.5))),
      mixes_in_blocks(ORVIK_INTEGERS("PoissonV_normal", PoissonV, means_of(1e6))),
      mixes_in_blocks(ORVIK_INTEGERS("PoissonV_mixed", PoissonV, mixed_means())),
      by_doubles(mixes_in_blocks(ORVIK_ROWS("Multinomial_sequential", ORVIK_MULTINOMIAL_SEQUENTIAL, 40))),
      by_doubles(ORVIK_ROWS("Multinomial_poisson", ORVIK_MULTINOMIAL_POISSON, 40)),
      ORVIK_ROWS("Multinomial_poisson_of_many", ORVIK_MULTINOMIAL_POISSON, 5000),
      entry<uint32_t>("iUniformBits", ORVIK_DRAW(uint32_t, iRngUniformBits, 0)),
      entry<uint32_t>("iUniformBits32", ORVIK_DRAW(uint32_t, iRngUniformBits32, 0)),
      entry<uint64_t>("iUniformBits64", ORVIK_DRAW(uint64_t, iRngUniformBits64, 0)),
  };
#undef ORVIK_DRAW
#undef ORVIK_BOTH
#undef ORVIK_BOTH_AS
#undef ORVIK_BOTH_PAIRS
#undef ORVIK_BOTH_KEPT
#undef ORVIK_BOTH_BLOCKS
#undef ORVIK_INTEGERS
#undef ORVIK_INTEGERS_BY
#undef ORVIK_ROWS
  return all;
}

}  // namespace orvik::testing
