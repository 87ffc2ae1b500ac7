// Boost.Math's Bessel functions.
#include <boost/math/special_functions/bessel.hpp>

#include "zym/peers.h"

namespace orvik::bench {
namespace {

namespace bm = boost::math;
using Quiet = bm::policies::policy<bm::policies::domain_error<bm::policies::ignore_error>,
                                   bm::policies::pole_error<bm::policies::ignore_error>,
                                   bm::policies::overflow_error<bm::policies::ignore_error>,
                                   bm::policies::evaluation_error<bm::policies::ignore_error>>;

template <class E, bool Strided, auto F>
void loop(int32_t n, const Arrays& arrays) {
  const E* a = static_cast<const E*>(arrays.a);
  E* r = static_cast<E*>(arrays.r1);
  const int64_t incA = Strided ? arrays.incA : 1, incR = Strided ? arrays.incR1 : 1;
  for (int32_t i = 0; i < n; ++i) r[i * incR] = F(a[i * incA]);
}

#define BOOST(Function, ulp, expression)                                                      \
  {"s" #Function, "boost", ulp, loop<float, false, [](auto x) { return (expression); }>,      \
   loop<float, true, [](auto x) { return (expression); }>},                                   \
      {"d" #Function, "boost", ulp, loop<double, false, [](auto x) { return (expression); }>, \
       loop<double, true, [](auto x) { return (expression); }>},

constexpr Peer kPeers[] = {
    BOOST(J0, 10, bm::cyl_bessel_j(0, x, Quiet())) BOOST(J1, 10, bm::cyl_bessel_j(1, x, Quiet()))
        BOOST(Y0, 10, bm::cyl_neumann(0, x, Quiet())) BOOST(Y1, 10, bm::cyl_neumann(1, x, Quiet()))
            BOOST(I0, 2, bm::cyl_bessel_i(0, x, Quiet())) BOOST(I1, 2, bm::cyl_bessel_i(1, x, Quiet())) BOOST(
                Jn, 100, bm::cyl_bessel_j(kOrder, x, Quiet())) BOOST(Yn, 100, bm::cyl_neumann(kOrder, x, Quiet()))};

}  // namespace

std::span<const Peer> boost_peers() { return kPeers; }

}  // namespace orvik::bench
