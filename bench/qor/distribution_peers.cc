#include "distribution_peers.h"

#include <dlfcn.h>

#include <memory>
#include <random>

#include "orvik/qor.h"

#ifdef ORVIK_BENCH_BOOST
#include <boost/random.hpp>
#endif
#ifdef ORVIK_BENCH_GSL
#include <gsl/gsl_randist.h>
#include <gsl/gsl_rng.h>
#endif

namespace orvik::bench {
namespace {

// A distribution object over a generator object, a number at a time.
template <class T, class Generator, class Distribution>
Peer<T> objects(const char* name, Distribution distribution) {
  const auto generator = std::make_shared<Generator>(777);
  const auto kept = std::make_shared<Distribution>(distribution);
  return {name, [generator, kept](T* r, int32_t n) {
            Distribution own = *kept;  // in registers: the loop would otherwise reload it for fear of overlap
            for (int32_t i = 0; i < n; ++i) r[i] = static_cast<T>(own(*generator));
          }};
}

template <class T, class Distribution>
void add_std(std::vector<Peer<T>>& peers, Distribution distribution) {
  peers.push_back(objects<T, std::mt19937>("std", distribution));
}
#ifdef ORVIK_BENCH_BOOST
template <class T, class Distribution>
void add_boost(std::vector<Peer<T>>& peers, Distribution distribution) {
  peers.push_back(objects<T, boost::random::mt19937>("Boost", distribution));
}
#endif
#ifdef ORVIK_BENCH_GSL
template <class T, class Draw>
void add_gsl(std::vector<Peer<T>>& peers, Draw draw, const char* name = "GSL") {
  const std::shared_ptr<gsl_rng> g(gsl_rng_alloc(gsl_rng_mt19937), gsl_rng_free);
  peers.push_back({name, [g, draw](T* r, int32_t n) {
                     for (int32_t i = 0; i < n; ++i) r[i] = static_cast<T>(draw(g.get()));
                   }});
}
#endif

}  // namespace

RealPeers own_uniform() {
  const auto stream = std::make_shared<OrvikStream>();
  const uint32_t seed = 777;
  __qorNewStreamEx(stream.get(), ORVIK_BRNG_MT19937, 1, &seed);
  return {{"the generator's function", [stream](double* r, int32_t n) { __qordBRngMT19937(*stream, n, r, 0, 1); }}};
}

// Each library's lines stand or fall with it.
#ifdef ORVIK_BENCH_BOOST
#define ORVIK_BOOST(...) add_boost(peers, boost::random::__VA_ARGS__)
#else
#define ORVIK_BOOST(...) static_cast<void>(0)
#endif
#ifdef ORVIK_BENCH_GSL
#define ORVIK_GSL(...) add_gsl(peers, __VA_ARGS__)
#else
#define ORVIK_GSL(...) static_cast<void>(0)
#endif

RealPeers exponential_peers() {
  RealPeers peers;
  add_std(peers, std::exponential_distribution<double>(1));
  ORVIK_BOOST(exponential_distribution<double>(1));
  ORVIK_GSL([](gsl_rng* g) { return gsl_ran_exponential(g, 1); });
  return peers;
}
RealPeers gaussian_peers() {
  RealPeers peers;
  add_std(peers, std::normal_distribution<double>(0, 1));
  ORVIK_BOOST(normal_distribution<double>(0, 1));
  ORVIK_GSL([](gsl_rng* g) { return gsl_ran_gaussian_ziggurat(g, 1); });
  return peers;
}
RealPeers cauchy_peers() {
  RealPeers peers;
  add_std(peers, std::cauchy_distribution<double>(0, 1));
  ORVIK_BOOST(cauchy_distribution<double>(0, 1));
  ORVIK_GSL([](gsl_rng* g) { return gsl_ran_cauchy(g, 1); });
  return peers;
}
RealPeers weibull_peers(double shape) {
  RealPeers peers;
  add_std(peers, std::weibull_distribution<double>(shape, 1));
  ORVIK_BOOST(weibull_distribution<double>(shape, 1));
  ORVIK_GSL([shape](gsl_rng* g) { return gsl_ran_weibull(g, 1, shape); });
  return peers;
}
RealPeers lognormal_peers() {
  RealPeers peers;
  add_std(peers, std::lognormal_distribution<double>(0, 1));
  ORVIK_BOOST(lognormal_distribution<double>(0, 1));
  ORVIK_GSL([](gsl_rng* g) { return gsl_ran_lognormal(g, 0, 1); });
  return peers;
}
RealPeers gamma_peers(double shape) {
  RealPeers peers;
  add_std(peers, std::gamma_distribution<double>(shape, 1));
  ORVIK_BOOST(gamma_distribution<double>(shape, 1));
  ORVIK_GSL([shape](gsl_rng* g) { return gsl_ran_gamma(g, shape, 1); });
  return peers;
}
RealPeers beta_peers(double p, double q) {
  RealPeers peers;
  ORVIK_BOOST(beta_distribution<double>(p, q));
  ORVIK_GSL([p, q](gsl_rng* g) { return gsl_ran_beta(g, p, q); });
  return peers;
}
RealPeers chi_square_peers(int degrees) {
  RealPeers peers;
  add_std(peers, std::chi_squared_distribution<double>(degrees));
  ORVIK_BOOST(chi_squared_distribution<double>(degrees));
  ORVIK_GSL([degrees](gsl_rng* g) { return gsl_ran_chisq(g, degrees); });
  return peers;
}
IntegerPeers bernoulli_peers(double p) {
  IntegerPeers peers;
  add_std(peers, std::bernoulli_distribution(p));
  ORVIK_BOOST(bernoulli_distribution<double>(p));
  ORVIK_GSL([p](gsl_rng* g) { return gsl_ran_bernoulli(g, p); });
  return peers;
}
IntegerPeers geometric_peers(double p) {
  IntegerPeers peers;
  add_std(peers, std::geometric_distribution<int>(p));
  ORVIK_BOOST(geometric_distribution<int>(p));
  ORVIK_GSL([p](gsl_rng* g) { return gsl_ran_geometric(g, p); });
  return peers;
}
IntegerPeers binomial_peers(int trials, double p) {
  IntegerPeers peers;
  add_std(peers, std::binomial_distribution<int>(trials, p));
  ORVIK_BOOST(binomial_distribution<int>(trials, p));
  ORVIK_GSL([=](gsl_rng* g) { return gsl_ran_binomial(g, p, static_cast<unsigned>(trials)); });
  return peers;
}
IntegerPeers hypergeometric_peers(int lot, int sample, int marked) {
  IntegerPeers peers;
  ORVIK_GSL([=](gsl_rng* g) {
    return gsl_ran_hypergeometric(g, static_cast<unsigned>(marked), static_cast<unsigned>(lot - marked),
                                  static_cast<unsigned>(sample));
  });
  return peers;
}
IntegerPeers negative_binomial_peers(double a, double p) {
  IntegerPeers peers;
  if (a == static_cast<int>(a)) {
    add_std(peers, std::negative_binomial_distribution<int>(static_cast<int>(a), p));
    ORVIK_BOOST(negative_binomial_distribution<int>(static_cast<int>(a), p));
  }
  ORVIK_GSL([=](gsl_rng* g) { return gsl_ran_negative_binomial(g, p, a); });
  return peers;
}
IntegerPeers poisson_peers(double mean) {
  IntegerPeers peers;
  add_std(peers, std::poisson_distribution<int>(mean));
  ORVIK_BOOST(poisson_distribution<int>(mean));
  ORVIK_GSL([mean](gsl_rng* g) { return gsl_ran_poisson(g, mean); });
  return peers;
}

IntegerPeers multinomial_peers(int trials, const std::vector<double>& p) {
  IntegerPeers peers;
#ifdef ORVIK_BENCH_GSL
  const std::shared_ptr<gsl_rng> g(gsl_rng_alloc(gsl_rng_mt19937), gsl_rng_free);
  peers.push_back({"GSL", [=](int32_t* r, int32_t n) {
                     const auto k = static_cast<int32_t>(p.size());
                     for (int32_t i = 0; i + k <= n; i += k)
                       gsl_ran_multinomial(g.get(), p.size(), static_cast<unsigned>(trials), p.data(),
                                           reinterpret_cast<unsigned*>(r + i));
                   }});
#else
  static_cast<void>(trials);
  static_cast<void>(p);
#endif
  return peers;
}

RealPeers normals_and_product(int dimen, const std::vector<double>& factor) {
  using Trmm = void (*)(const char*, const char*, const char*, const char*, const int32_t*, const int32_t*,
                        const double*, const double*, const int32_t*, double*, const int32_t*);
  void* const package = dlopen("libblas.so.3", RTLD_NOW);  // the package that the library itself binds
  const auto trmm = package == nullptr ? nullptr : reinterpret_cast<Trmm>(dlsym(package, "dtrmm_"));
  if (trmm == nullptr) return {};
  const auto stream = std::make_shared<OrvikStream>();
  const uint32_t seed = 777;
  __qorNewStreamEx(stream.get(), ORVIK_BRNG_MT19937, 1, &seed);
  return {{"normals and dtrmm", [=](double* r, int32_t n) {
             const int32_t vectors = n / dimen;
             const double one = 1;
             _qordRngGaussian(ORVIK_GAUSSIAN_BOX_MULLER_PAIRS, *stream, vectors * dimen, r, 0, 1);
             trmm("L", "U", "T", "N", &dimen, &vectors, &one, factor.data(), &dimen, r, &dimen);
           }}};
}

}  // namespace orvik::bench
