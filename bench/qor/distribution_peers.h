// What the distributions are measured beside: the standard library, Boost and GSL, each over its own Mersenne twister.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace orvik::bench {

template <class T>
struct Peer {
  std::string name;
  std::function<void(T* r, int32_t n)> fill;
};
using RealPeers = std::vector<Peer<double>>;
using IntegerPeers = std::vector<Peer<int32_t>>;

RealPeers own_uniform();  // the generator's own function
RealPeers exponential_peers();
RealPeers gaussian_peers();
RealPeers cauchy_peers();
RealPeers weibull_peers(double shape);
RealPeers lognormal_peers();
RealPeers gamma_peers(double shape);
RealPeers beta_peers(double p, double q);
RealPeers chi_square_peers(int degrees);
IntegerPeers bernoulli_peers(double p);
IntegerPeers geometric_peers(double p);
IntegerPeers binomial_peers(int trials, double p);
IntegerPeers hypergeometric_peers(int lot, int sample, int marked);
IntegerPeers negative_binomial_peers(double a, double p);
IntegerPeers poisson_peers(double mean);
IntegerPeers multinomial_peers(int trials, const std::vector<double>& p);  // rows of counts one after another

// Normal numbers of our own and BLAS's triangular product, of vectors of that dimension; none where there is no BLAS.
RealPeers normals_and_product(int dimen, const std::vector<double>& factor);

}  // namespace orvik::bench
