// Speed of the distributions beside the standard library's, Boost's and GSL's, in one run: each comparison is timed in
// turns (bench/support/paired.h). All sides draw from a Mersenne twister of 2^19937 - 1.
//
//   bench_distributions [SECONDS [NAME [alone | calls]]]    of each comparison, 0.2 by default; prints a table
//     NAME: those with it in their names, "" all; alone: without the others; calls: ours for a few numbers
#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "distribution_peers.h"
#include "orvik/qor.h"
#include "support/paired.h"

namespace {

using orvik::bench::Paired;
using orvik::bench::Peer;

double seconds = 0.2;
bool alone = false;
constexpr int32_t kFew[] = {1, 4, 15, 16};  // an odd number leaves half a pair behind

// What a comparison with peers of a library must reach; 0: no goal.
struct Goals {
  double standard = 0, others = 0;
};

template <class T>
struct Subject {
  std::string name;
  std::function<int32_t(OrvikStream stream, int32_t n, T* r)> draw;
  std::vector<Peer<T>> peers;
  Goals goals;
  int32_t row = 1;  // numbers that come together
};

void print(const std::string& what, int32_t n, double ours, double peer, const std::string& name, double goal) {
  char text[32] = "";
  if (goal > 0) std::snprintf(text, sizeof text, ">= %g", goal);
  if (peer > 0)
    std::printf("| %s, n = %d, beside %s | %.3f | %.3f | %.2f | %s |\n", what.c_str(), n, name.c_str(), ours, peer,
                peer / ours, text);
  else
    std::printf("| %s, n = %d | %.3f | | | |\n", what.c_str(), n, ours);
  std::fflush(stdout);
}

// How many of n numbers a peer draws a turn: a slow one fewer, since times are per number.
template <class T>
int32_t share(const Peer<T>& peer, int32_t n, T* r) {
  using Clock = std::chrono::steady_clock;
  constexpr int32_t kSome = 100, kRow = 50;  // the longest vector or row
  constexpr double kTurn = 0.02;             // s
  peer.fill(r, kSome);
  const auto start = Clock::now();
  peer.fill(r, kSome);
  const double each = std::chrono::duration<double>(Clock::now() - start).count() / kSome;
  return each * n <= kTurn ? n : std::max(kSome, static_cast<int32_t>(kTurn / each) / kRow * kRow);
}

template <class T>
void compare(const Subject<T>& subject, int32_t n) {
  OrvikStream stream;
  const uint32_t seed = 777;
  if (__qorNewStreamEx(&stream, ORVIK_BRNG_MT19937, 1, &seed) != 0) std::abort();
  std::vector<T> r(static_cast<size_t>(n));
  Paired paired;
  paired.add("ours", [&](int64_t turns) {
    for (; turns > 0; --turns)
      if (subject.draw(stream, n, r.data()) < 0) std::abort();
  });
  const std::vector<Peer<T>> peers = alone ? std::vector<Peer<T>>() : subject.peers;
  std::vector<int32_t> shares;
  for (const Peer<T>& peer : peers) {
    shares.push_back(share(peer, n, r.data()));
    paired.add(peer.name, [&, many = shares.back()](int64_t turns) {
      for (; turns > 0; --turns) peer.fill(r.data(), many);
    });
  }
  const std::vector<double> best = paired.measure(seconds);
  if (peers.empty()) print(subject.name, n, best[0] / n, 0, "", 0);
  for (size_t k = 0; k < peers.size(); ++k) {
    const bool standard = peers[k].name.starts_with("std");
    print(subject.name, n, best[0] / n, best[k + 1] / shares[k], peers[k].name,
          standard ? subject.goals.standard : subject.goals.others);
  }
  __qorDeleteStream(&stream);
}

template <class T>
void run(const std::vector<Subject<T>>& subjects, const char* only) {
  for (const Subject<T>& subject : subjects) {
    if (subject.name.find(only) == std::string::npos) continue;
    for (const int32_t n : {1000, 1000000}) compare(subject, n);
  }
}

// Nanoseconds of a call for a few numbers.
template <class T>
void time_calls(const std::vector<Subject<T>>& subjects, const char* only) {
  for (const Subject<T>& subject : subjects) {
    if (subject.row > 1 || subject.name.find(only) == std::string::npos) continue;
    OrvikStream stream;
    const uint32_t seed = 777;
    if (__qorNewStreamEx(&stream, ORVIK_BRNG_MT19937, 1, &seed) != 0) std::abort();
    std::printf("| %s |", subject.name.c_str());
    for (const int32_t n : kFew) {
      std::vector<T> r(static_cast<size_t>(n));
      Paired paired;
      paired.add("", [&](int64_t turns) {
        for (; turns > 0; --turns)
          if (subject.draw(stream, n, r.data()) < 0) std::abort();
      });
      std::printf(" %.1f |", paired.measure(seconds)[0]);
    }
    std::printf("\n");
    std::fflush(stdout);
    __qorDeleteStream(&stream);
  }
}

#define ORVIK_DRAW(T, Function, method, ...) \
  [=](OrvikStream s, int32_t n, T* r) { return _qor##Function(method, s, n, r, __VA_ARGS__); }

// Vectors of 50 dimensions; numbers are counted.
Subject<double> gaussian_vectors() {
  constexpr int32_t kDimen = 50;
  std::vector<double> factor(static_cast<size_t>(kDimen) * kDimen), mean(kDimen, 1);
  for (size_t i = 0; i < kDimen; ++i)
    for (size_t j = 0; j <= i; ++j) factor[i * kDimen + j] = 1 / static_cast<double>(1 + i + j);
  return {"GaussianMV of 50 dimensions, method 1",
          [=](OrvikStream s, int32_t n, double* r) {
            return _qordRngGaussianMV(ORVIK_GAUSSIAN_BOX_MULLER_PAIRS, s, n / kDimen, r, kDimen, ORVIK_FACTOR_FULL,
                                      mean.data(), factor.data());
          },
          orvik::bench::normals_and_product(kDimen, factor),
          {0, 0.77},
          kDimen};
}

// Rows of five outcomes; counts are counted.
Subject<int32_t> multinomial(uint32_t method, int32_t trials) {
  const std::vector<double> p = {0.1, 0.2, 0.3, 0.15, 0.25};
  return {"Multinomial of " + std::to_string(trials) + ", method " + std::to_string(method),
          [=](OrvikStream s, int32_t n, int32_t* r) {
            return _qoriRngMultinomial(method, s, n / 5, r, trials, 5, p.data());
          },
          orvik::bench::multinomial_peers(trials, p),
          {},
          5};
}

std::vector<Subject<double>> real() {
  using namespace orvik::bench;
  std::vector<Subject<double>> list = {
      {"Uniform", ORVIK_DRAW(double, dRngUniform, 0, 0, 1), own_uniform(), {0, 0.95}},
      {"Exponential", ORVIK_DRAW(double, dRngExponential, 0, 0, 1), exponential_peers(), {8, 2.5}},
      {"Gaussian, method 0", ORVIK_DRAW(double, dRngGaussian, 0, 0, 1), gaussian_peers(), {5, 1.3}},
      {"Gaussian, method 1", ORVIK_DRAW(double, dRngGaussian, 1, 0, 1), gaussian_peers(), {8, 2}},
      {"Gaussian, method 2", ORVIK_DRAW(double, dRngGaussian, 2, 0, 1), gaussian_peers(), {8, 2}},
      {"Gamma of shape 0.001", ORVIK_DRAW(double, dRngGamma, 0, 0.001, 0, 1), gamma_peers(0.001), {}},
      {"Gamma of shape 0.3", ORVIK_DRAW(double, dRngGamma, 0, 0.3, 0, 1), gamma_peers(0.3), {3, 3}},
      {"Gamma of shape 0.8", ORVIK_DRAW(double, dRngGamma, 0, 0.8, 0, 1), gamma_peers(0.8), {3, 3}},
      {"Gamma of shape 5", ORVIK_DRAW(double, dRngGamma, 0, 5, 0, 1), gamma_peers(5), {3, 3}},
      {"Beta of shapes 0.3, 0.4", ORVIK_DRAW(double, dRngBeta, 0, 0.3, 0.4, 0, 1), beta_peers(0.3, 0.4), {3, 3}},
      {"Beta of shapes 0.8, 0.7", ORVIK_DRAW(double, dRngBeta, 0, 0.8, 0.7, 0, 1), beta_peers(0.8, 0.7), {3, 3}},
      {"Beta of shapes 0.5, 3", ORVIK_DRAW(double, dRngBeta, 0, 0.5, 3, 0, 1), beta_peers(0.5, 3), {3, 3}},
      {"Beta of shapes 2, 5", ORVIK_DRAW(double, dRngBeta, 0, 2, 5, 0, 1), beta_peers(2, 5), {3, 3}},
      {"ChiSquare of 4", ORVIK_DRAW(double, dRngChiSquare, 0, 4), chi_square_peers(4), {3, 3}},
      {"ChiSquare of 15", ORVIK_DRAW(double, dRngChiSquare, 0, 15), chi_square_peers(15), {3, 3}},
      {"ChiSquare of 50", ORVIK_DRAW(double, dRngChiSquare, 0, 50), chi_square_peers(50), {3, 3}},
      {"Cauchy", ORVIK_DRAW(double, dRngCauchy, 0, 0, 1), cauchy_peers(), {}},
      {"Weibull of shape 2.5", ORVIK_DRAW(double, dRngWeibull, 0, 2.5, 0, 1), weibull_peers(2.5), {}},
      {"Lognormal", ORVIK_DRAW(double, dRngLognormal, 0, 0, 1, 0, 1), lognormal_peers(), {}},
      gaussian_vectors(),
      {"Gumbel", ORVIK_DRAW(double, dRngGumbel, 0, 0, 1), {}, {}},
      {"Laplace", ORVIK_DRAW(double, dRngLaplace, 0, 0, 1), {}, {}},
      {"Rayleigh", ORVIK_DRAW(double, dRngRayleigh, 0, 0, 1), {}, {}},
  };
  return list;
}

std::vector<Subject<int32_t>> discrete() {
  using namespace orvik::bench;
  std::vector<Subject<int32_t>> list = {
      {"Bernoulli of 0.3", ORVIK_DRAW(int32_t, iRngBernoulli, 0, 0.3), bernoulli_peers(0.3), {}},
      {"Binomial of 40, 0.3", ORVIK_DRAW(int32_t, iRngBinomial, 0, 40, 0.3), binomial_peers(40, 0.3), {3, 3}},
      {"Binomial of 1000, 0.3", ORVIK_DRAW(int32_t, iRngBinomial, 0, 1000, 0.3), binomial_peers(1000, 0.3), {3, 3}},
      {"Binomial of 10^7, 0.2",
       ORVIK_DRAW(int32_t, iRngBinomial, 0, 10000000, 0.2),
       binomial_peers(10000000, 0.2),
       {3, 3}},
      {"Hypergeometric of 100, 30, 40",
       ORVIK_DRAW(int32_t, iRngHypergeometric, 0, 100, 30, 40),
       hypergeometric_peers(100, 30, 40),
       {3, 3}},
      {"Hypergeometric of 1000, 300, 400",
       ORVIK_DRAW(int32_t, iRngHypergeometric, 0, 1000, 300, 400),
       hypergeometric_peers(1000, 300, 400),
       {3, 3}},
      {"Hypergeometric of 10^6, 5000, 4000",
       ORVIK_DRAW(int32_t, iRngHypergeometric, 0, 1000000, 5000, 4000),
       hypergeometric_peers(1000000, 5000, 4000),
       {3, 3}},
      {"Negbinomial of 5, 0.3",
       ORVIK_DRAW(int32_t, iRngNegbinomial, 0, 5, 0.3),
       negative_binomial_peers(5, 0.3),
       {3, 3}},
      {"Negbinomial of 1000, 0.3",
       ORVIK_DRAW(int32_t, iRngNegbinomial, 0, 1000, 0.3),
       negative_binomial_peers(1000, 0.3),
       {3, 3}},
      {"Negbinomial of 40, 0.005",
       ORVIK_DRAW(int32_t, iRngNegbinomial, 0, 40, 0.005),
       negative_binomial_peers(40, 0.005),
       {3, 3}},
      {"Poisson of 10", ORVIK_DRAW(int32_t, iRngPoisson, 0, 10), poisson_peers(10), {3, 3}},
      {"Poisson of 100", ORVIK_DRAW(int32_t, iRngPoisson, 0, 100), poisson_peers(100), {3, 3}},
      {"Poisson of 10^6", ORVIK_DRAW(int32_t, iRngPoisson, 0, 1e6), poisson_peers(1e6), {3, 3}},
      {"Poisson of 10^6, method 1", ORVIK_DRAW(int32_t, iRngPoisson, 1, 1e6), poisson_peers(1e6), {3, 3}},
      multinomial(0, 100),
      multinomial(1, 100),
      multinomial(0, 1000000),
      {"Geometric of 0.2", ORVIK_DRAW(int32_t, iRngGeometric, 0, 0.2), geometric_peers(0.2), {}},
  };
  return list;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc > 1) seconds = std::atof(argv[1]);
  const char* const only = argc > 2 ? argv[2] : "";
  alone = argc > 3 && std::strcmp(argv[3], "alone") == 0;
  if (argc > 3 && std::strcmp(argv[3], "calls") == 0) {
    std::printf("| a call, ns |");
    for (const int32_t n : kFew) std::printf(" n = %d |", n);
    std::printf("\n|---|---|---|---|---|\n");
    time_calls(real(), only);
    time_calls(discrete(), only);
    return 0;
  }
  std::printf("| what | ours, ns | peer, ns | peer / ours | goal |\n|---|---|---|---|---|\n");
  run(real(), only);
  run(discrete(), only);
  return 0;
}
