// Every distribution over parameters that take each branch of each method, with its distribution function or its
// probabilities and its moments: what tests of fit and the long run for moments go over.
#pragma once

#include <algorithm>
#include <boost/math/distributions.hpp>
#include <cmath>
#include <functional>
#include <limits>
#include <string>

#include "orvik/qor.h"

namespace orvik::testing {

namespace math = boost::math;
inline constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

struct Case {
  std::string name;
  std::function<int32_t(OrvikStream, int32_t, double*)> d;
  std::function<int32_t(OrvikStream, int32_t, float*)> s;
  std::function<int32_t(OrvikStream, int32_t, int32_t*)> i;
  std::function<double(double)> cdf, pmf;
  double mean = kNone, variance = kNone;  // where they exist
  bool wide = false;                      // integers that spread over so many that cells come from `cdf`
};
inline void PrintTo(const Case& c, std::ostream* out) { *out << c.name; }

template <class Distribution>
void describe(Case& c, const Distribution& distribution, double shift = 0, double scale = 1) {
  const double low = math::support(distribution).first, high = math::support(distribution).second;
  c.cdf = [=](double x) { return math::cdf(distribution, std::clamp((x - shift) / scale, low, high)); };
  c.mean = math::mean(distribution) * scale + shift;
  c.variance = math::variance(distribution) * scale * scale;
}

#define ORVIK_REAL(Function, method, ...)                                                                      \
  c.d = [=](OrvikStream s, int32_t n, double* r) { return _qordRng##Function(method, s, n, r, __VA_ARGS__); }; \
  c.s = [=](OrvikStream s, int32_t n, float* r) { return _qorsRng##Function(method, s, n, r, __VA_ARGS__); }
#define ORVIK_INTEGER(Function, method, ...) \
  c.i = [=](OrvikStream s, int32_t n, int32_t* r) { return _qoriRng##Function(method, s, n, r, __VA_ARGS__); }

inline std::vector<Case> transforms() {
  std::vector<Case> list;
  const auto add = [&](const char* name, auto fill) {
    Case c;
    c.name = name;
    fill(c);
    list.push_back(std::move(c));
  };
  add("Uniform", [](Case& c) {
    ORVIK_REAL(Uniform, 0, -1, 3);
    describe(c, math::uniform(-1, 3));
  });
  add("Cauchy", [](Case& c) {
    ORVIK_REAL(Cauchy, 0, 1, 2);
    c.cdf = [](double x) { return math::cdf(math::cauchy(1, 2), x); };
  });
  add("Exponential", [](Case& c) {
    ORVIK_REAL(Exponential, 0, 1, 2);
    describe(c, math::exponential(0.5), 1);
  });
  add("Gumbel", [](Case& c) {  // of minima: the mirror image of the distribution of maxima
    ORVIK_REAL(Gumbel, 0, 1, 2);
    describe(c, math::extreme_value(0, 1), 1, -2);
    c.cdf = [](double x) { return -std::expm1(-std::exp((x - 1) / 2)); };
  });
  add("Laplace", [](Case& c) {
    ORVIK_REAL(Laplace, 0, 1, 2);
    describe(c, math::laplace(1, 2));
  });
  add("Rayleigh", [](Case& c) {
    ORVIK_REAL(Rayleigh, 0, 1, 2);
    describe(c, math::rayleigh(std::sqrt(2.0)), 1);
  });
  for (const double alpha : {0.7, 1.0, 3.5})
    add(alpha == 1  ? "Weibull_1"
        : alpha < 1 ? "Weibull_below_1"
                    : "Weibull_above_1",
        [=](Case& c) {
          c.d = [=](OrvikStream s, int32_t n, double* r) { return _qordRngWeibull(0, s, n, r, alpha, 1, 2); };
          c.s = [=](OrvikStream s, int32_t n, float* r) {
            return _qorsRngWeibull(0, s, n, r, static_cast<float>(alpha), 1, 2);
          };
          describe(c, math::weibull(alpha, 2), 1);
        });
  for (const uint32_t method : {0u, 1u, 2u})
    add(("Gaussian_" + std::to_string(method)).c_str(), [=](Case& c) {
      ORVIK_REAL(Gaussian, method, 1, 2);
      describe(c, math::normal(1, 2));
    });
  for (const uint32_t method : {0u, 1u})
    add(method == 0 ? "Lognormal_0" : "Lognormal_inverse", [=](Case& c) {
      ORVIK_REAL(Lognormal, method, 0.25f, 0.5f, -1, 2);
      describe(c, math::lognormal(0.25, 0.5), -1, 2);
    });
  // The second number of two that hang together, by each storage of the factor.
  for (const int32_t storage : {ORVIK_FACTOR_FULL, ORVIK_FACTOR_PACKED, ORVIK_FACTOR_DIAGONAL})
    add(("GaussianMV_" + std::to_string(storage)).c_str(), [=](Case& c) {
      const auto second = [storage](auto call, OrvikStream s, int32_t n, auto* r) {
        using T = std::remove_pointer_t<decltype(r)>;
        const T mean[2] = {5, 1}, full[4] = {3, 0, T(1.2), T(1.6)}, packed[3] = {3, T(1.2), T(1.6)},
                diagonal[2] = {3, 2};
        const T* const factor = storage == ORVIK_FACTOR_FULL     ? full
                                : storage == ORVIK_FACTOR_PACKED ? packed
                                                                 : diagonal;
        std::vector<T> pairs(2 * static_cast<size_t>(n));
        const int32_t status = call(ORVIK_GAUSSIAN_INVERSE, s, n, pairs.data(), 2, storage, mean, factor);
        for (size_t i = 0; i < static_cast<size_t>(n); ++i) r[i] = pairs[2 * i + 1];
        return status;
      };
      c.d = [=](OrvikStream s, int32_t n, double* r) { return second(_qordRngGaussianMV, s, n, r); };
      c.s = [=](OrvikStream s, int32_t n, float* r) { return second(_qorsRngGaussianMV, s, n, r); };
      describe(c, math::normal(1, 2));
    });
  add("Uniform_integers", [](Case& c) {
    ORVIK_INTEGER(Uniform, 0, -7, 100);
    c.pmf = [](double k) { return k >= -7 && k < 100 ? 1 / 107.0 : 0; };
    c.mean = 46, c.variance = (107.0 * 107 - 1) / 12;
  });
  add("Bernoulli", [](Case& c) {
    ORVIK_INTEGER(Bernoulli, 0, 0.3);
    c.pmf = [](double k) { return k == 1 ? 0.3 : 0.7; };
    c.mean = 0.3, c.variance = 0.21;
  });
  for (const double p : {0.002, 0.3, 0.95})
    add(p < 0.01  ? "Geometric_rare"
        : p < 0.5 ? "Geometric"
                  : "Geometric_often",
        [=](Case& c) {
          ORVIK_INTEGER(Geometric, 0, p);
          c.pmf = [=](double k) { return math::pdf(math::geometric(p), k); };
          c.mean = (1 - p) / p, c.variance = (1 - p) / (p * p);
        });
  return list;
}

inline std::vector<Case> rejections() {
  std::vector<Case> list;
  // Every method of Gamma and the shapes at its ends.
  for (const auto& [name, alpha] : std::vector<std::pair<const char*, double>>{{"tiny", 0.03},
                                                                               {"two_branches", 0.4},
                                                                               {"two_branches_end", 0.59999},
                                                                               {"weibull_begin", 0.6},
                                                                               {"weibull", 0.8},
                                                                               {"weibull_end", 0.99},
                                                                               {"exponential", 1},
                                                                               {"normal_begin", 1.001},
                                                                               {"normal", 4.5},
                                                                               {"normal_large", 1e4}}) {
    Case c;
    c.name = std::string("Gamma_") + name;
    const double d = alpha;
    const float s = static_cast<float>(alpha);
    c.d = [=](OrvikStream stream, int32_t n, double* r) { return _qordRngGamma(0, stream, n, r, d, 0, 2); };
    c.s = [=](OrvikStream stream, int32_t n, float* r) { return _qorsRngGamma(0, stream, n, r, s, 0, 2); };
    describe(c, math::gamma_distribution<>(alpha, 2));
    list.push_back(c);
  }
  // Every method of Beta, and both orders of the shapes where they are different roles.
  for (const auto& [name, p, q] :
       std::vector<std::tuple<const char*, double, double>>{{"powers", 0.3, 0.4},
                                                            {"powers_small", 0.02, 0.5},
                                                            {"switching", 0.8, 0.7},
                                                            {"switching_high", 0.95, 0.97},
                                                            {"uniform", 1, 1},
                                                            {"power_of_p", 0.4, 1},
                                                            {"power_of_q", 1, 5},
                                                            {"across", 0.5, 3},
                                                            {"across_swapped", 20, 0.9},
                                                            {"log_logistic", 2, 3.5},
                                                            {"log_logistic_swapped", 50, 1.25}}) {
    Case c;
    c.name = std::string("Beta_") + name;
    const float fp = static_cast<float>(p), fq = static_cast<float>(q);
    const double dp = p, dq = q;
    c.d = [=](OrvikStream s, int32_t n, double* r) { return _qordRngBeta(0, s, n, r, dp, dq, 1, 2); };
    c.s = [=](OrvikStream s, int32_t n, float* r) { return _qorsRngBeta(0, s, n, r, fp, fq, 1, 2); };
    describe(c, math::beta_distribution<>(p, q), 1, 2);
    list.push_back(c);
  }
  for (const int32_t v : {1, 2, 3, 14, 15, 16, 31}) {
    Case c;
    c.name = "ChiSquare_" + std::to_string(v);
    ORVIK_REAL(ChiSquare, 0, v);
    describe(c, math::chi_squared(v));
    list.push_back(c);
  }
  return list;
}

inline std::vector<Case> integers() {
  std::vector<Case> list;
  const auto add = [&](std::string name, auto draw, auto pmf, double mean, double variance) {
    Case c;
    c.name = std::move(name);
    c.i = draw;
    c.pmf = pmf;
    c.mean = mean;
    c.variance = variance;
    list.push_back(std::move(c));
  };
  // Inversion and rejection on both sides of one half, and where one meets the other.
  for (const auto& [trials, p] : std::vector<std::pair<int32_t, double>>{{1, 0.5},
                                                                         {10, 0.3},
                                                                         {40, 0.7},
                                                                         {1000000, 0.00002},
                                                                         {59, 0.5},
                                                                         {60, 0.5},
                                                                         {100, 0.3},
                                                                         {100, 0.7},
                                                                         {1000, 0.45},
                                                                         {100000, 0.001},
                                                                         {2000000000, 0.37}}) {
    const int32_t n = trials;
    const double q = p;
    add(
        "Binomial_" + std::to_string(n) + "_" + std::to_string(static_cast<int>(p * 100000)),
        [=](OrvikStream s, int32_t count, int32_t* r) { return _qoriRngBinomial(0, s, count, r, n, q); },
        [=](double k) { return k < 0 || k > n ? 0 : math::pdf(math::binomial(n, q), k); }, n * p, n * p * (1 - p));
  }
  // Table and rejection with all four ways to turn the case around, and narrow and wide modes of the rejection.
  for (const auto& [lot, sample, marked] :
       std::vector<std::tuple<int32_t, int32_t, int32_t>>{{20, 7, 9},
                                                          {76, 38, 38},
                                                          {78, 39, 39},
                                                          {1000, 300, 400},
                                                          {1000, 700, 400},
                                                          {1000, 300, 600},
                                                          {1000, 700, 600},
                                                          {1000, 25, 600},
                                                          {100000, 50, 60},
                                                          {100000, 200, 900},
                                                          {1000000, 400000, 300000}}) {
    const int32_t l = lot, s = sample, m = marked;
    const double share = static_cast<double>(m) / l, mean = s * share;
    add(
        "Hypergeometric_" + std::to_string(l) + "_" + std::to_string(s) + "_" + std::to_string(m),
        [=](OrvikStream stream, int32_t count, int32_t* r) {
          return _qoriRngHypergeometric(0, stream, count, r, l, s, m);
        },
        [=](double k) {
          return k < std::max(0, s + m - l) || k > std::min(s, m)
                     ? 0
                     : std::exp(std::lgamma(m + 1.0) - std::lgamma(k + 1) - std::lgamma(m - k + 1) +
                                std::lgamma(l - m + 1.0) - std::lgamma(s - k + 1) - std::lgamma(l - m - s + k + 1) -
                                std::lgamma(l + 1.0) + std::lgamma(s + 1.0) + std::lgamma(l - s + 1.0));
        },
        mean, mean * (1 - share) * (l - s) / (l - 1.0));
  }
  const auto add_wide = [&](std::string name, auto draw, auto distribution) {
    add(std::move(name), draw, nullptr, math::mean(distribution), math::variance(distribution));
    const double last = math::support(distribution).second;
    list.back().cdf = [=](double k) { return k < 0 ? 0 : math::cdf(distribution, std::min(k, last)); };
    list.back().wide = true;
  };
  // The walk, fine and in strides; rejection of a peak at zero, of a hill next to it, of a far hill; the mixture.
  for (const auto& [name, a, p] : std::vector<std::tuple<const char*, double, double>>{{"walk", 5, 0.3},
                                                                                       {"walk_tiny", 0.1, 0.02},
                                                                                       {"walk_often", 40, 0.99},
                                                                                       {"walk_far", 1000, 0.3},
                                                                                       {"walk_in_strides", 20000, 0.3},
                                                                                       {"walk_widest", 100000, 0.02},
                                                                                       {"peak_tiny", 0.01, 0.001},
                                                                                       {"peak", 0.5, 0.001},
                                                                                       {"peak_wide", 0.5, 1e-6},
                                                                                       {"peak_end", 1, 0.005},
                                                                                       {"hill_begin", 1.001, 0.005},
                                                                                       {"hill_at_zero", 1.5, 0.005},
                                                                                       {"hill", 40, 0.005},
                                                                                       {"hill_far", 1000, 0.001},
                                                                                       {"hill_wide", 3, 3e-7},
                                                                                       {"mixture", 2e6, 0.1},
                                                                                       {"mixture_wide", 0.25, 1e-8}}) {
    const double shape = a, success = p;
    add_wide(
        std::string("Negbinomial_") + name,
        [=](OrvikStream s, int32_t n, int32_t* r) { return _qoriRngNegbinomial(0, s, n, r, shape, success); },
        math::negative_binomial(shape, success));
  }
  // Both methods and a mean for each number: on both sides of 27 and of 1037.
  for (const double lambda : {0.1, 1.0, 26.9, 27.0, 27.9, 100.0, 1036.9, 1037.0, 1e4, 1e6, 1.5e9})
    for (const int32_t method : {0, 1, 2}) {
      static const char* const kNames[] = {"Poisson_0_", "Poisson_1_", "PoissonV_"};
      add_wide(
          kNames[method] + std::to_string(static_cast<int64_t>(lambda * 10)),
          [=](OrvikStream s, int32_t n, int32_t* r) {
            if (method < 2) return _qoriRngPoisson(static_cast<uint32_t>(method), s, n, r, lambda);
            const std::vector<double> means(static_cast<size_t>(n), lambda);
            return _qoriRngPoissonV(0, s, n, r, means.data());
          },
          math::poisson(lambda));
    }
  // An outcome of three, and the sum of two, which tells how they hang together.
  for (const uint32_t method : {ORVIK_MULTINOMIAL_SEQUENTIAL, ORVIK_MULTINOMIAL_POISSON})
    for (const int32_t trials : {5, 100, 5000})
      for (const bool two : {false, true})
        add_wide(
            "Multinomial_" + std::to_string(method) + "_" + std::to_string(trials) + (two ? "_two" : "_one"),
            [=](OrvikStream s, int32_t n, int32_t* r) {
              const double p[3] = {0.15, 0.6, 0.25};
              std::vector<int32_t> rows(3 * static_cast<size_t>(n));
              const int32_t status = _qoriRngMultinomial(method, s, n, rows.data(), trials, 3, p);
              for (size_t i = 0; i < static_cast<size_t>(n); ++i) r[i] = rows[3 * i] + (two ? rows[3 * i + 2] : 0);
              return status;
            },
            math::binomial(trials, two ? 0.4 : 0.15));
  return list;
}

#undef ORVIK_REAL
#undef ORVIK_INTEGER

}  // namespace orvik::testing
