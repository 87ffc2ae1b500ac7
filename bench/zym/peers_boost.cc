// Boost.Math with the precision that it has by default (floats are computed as doubles, doubles as long doubles), errors
// as values instead of exceptions.
#include <boost/math/distributions/normal.hpp>
#include <boost/math/special_functions/bessel.hpp>
#include <boost/math/special_functions/erf.hpp>
#include <boost/math/special_functions/expint.hpp>
#include <boost/math/special_functions/gamma.hpp>

#include "zym/peers.h"

namespace orvik::bench {
namespace {

namespace policies = boost::math::policies;
template <policies::error_policy_type A>
using Silent = policies::policy<policies::domain_error<A>, policies::pole_error<A>, policies::overflow_error<A>,
                                policies::underflow_error<A>, policies::denorm_error<A>, policies::evaluation_error<A>,
                                policies::rounding_error<A>, policies::indeterminate_result_error<A>>;
constexpr Silent<policies::ignore_error> kSilent;

template <class E, bool Strided, auto F>
void loop(int32_t n, const Arrays& arrays) {
  const E* a = static_cast<const E*>(arrays.a);
  E* r = static_cast<E*>(arrays.r1);
  const int64_t incA = Strided ? arrays.incA : 1, incR = Strided ? arrays.incR1 : 1;
  for (int32_t i = 0; i < n; ++i) r[i * incR] = F(a[i * incA]);
}

template <class E>
boost::math::normal_distribution<E, Silent<policies::ignore_error>> normal(E) {
  return {};
}

#define BOTH(Function, ulp, ...)                                                              \
  {"s" #Function, "boost", ulp, loop<float, false, (__VA_ARGS__)>, loop<float, true, (__VA_ARGS__)>}, \
      {"d" #Function, "boost", ulp, loop<double, false, (__VA_ARGS__)>, loop<double, true, (__VA_ARGS__)>},
#define BOOST1(Function, ulp, call) BOTH(Function, ulp, [](auto x) { return boost::math::call; })

constexpr Peer kPeers[] = {
    BOOST1(Erf, 1, erf(x, kSilent)) BOOST1(Erfc, 1, erfc(x, kSilent)) BOOST1(ErfInv, 1, erf_inv(x, kSilent))
    BOOST1(ErfcInv, 1, erfc_inv(x, kSilent)) BOOST1(CdfNorm, 100, cdf(normal(x), x))
    BOOST1(CdfNormInv, 100, quantile(normal(x), x)) BOOST1(LGamma, 1, lgamma(x, kSilent))
    BOOST1(TGamma, 1, tgamma(x, kSilent)) BOOST1(ExpInt1, 1, expint(1U, x, kSilent))
    BOOST1(I0, 1, cyl_bessel_i(0, x, kSilent)) BOOST1(I1, 1, cyl_bessel_i(1, x, kSilent))
    BOOST1(J0, 1, cyl_bessel_j(0, x, kSilent)) BOOST1(J1, 1, cyl_bessel_j(1, x, kSilent))
    BOOST1(Y0, 1, cyl_neumann(0, x, kSilent)) BOOST1(Y1, 1, cyl_neumann(1, x, kSilent))
    BOOST1(Jn, 10, cyl_bessel_j(kOrder, x, kSilent)) BOOST1(Yn, 10, cyl_neumann(kOrder, x, kSilent))
};

}  // namespace

std::span<const Peer> boost_peers() { return kPeers; }

}  // namespace orvik::bench
