#include "zym/peers.h"

namespace orvik::bench {

std::vector<Peer> all_peers() {
  std::vector<Peer> all;
  const auto take = [&all](std::span<const Peer> some) { all.insert(all.end(), some.begin(), some.end()); };
  take(loop_peers());
#ifdef ORVIK_BENCH_SLEEF
  take(sleef_peers());
#endif
#ifdef ORVIK_BENCH_LIBMVEC
  take(libmvec_peers());
#endif
#ifdef ORVIK_BENCH_WIDE
  if (__builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512dq")) {
#ifdef ORVIK_BENCH_SLEEF
    take(sleef_wide_peers());
#endif
#ifdef ORVIK_BENCH_LIBMVEC
    take(libmvec_wide_peers());
#endif
  }
#endif
#ifdef ORVIK_BENCH_EIGEN
  take(eigen_peers());
#endif
#ifdef ORVIK_BENCH_BOOST
  take(boost_peers());
#endif
#ifdef ORVIK_BENCH_GSL
  take(gsl_peers());
#endif
#ifdef ORVIK_BENCH_NUMPY
  take(numpy_peers());
#endif
  return all;
}

#ifndef ORVIK_BENCH_NUMPY
std::string numpy_description() { return ""; }
#endif

}  // namespace orvik::bench
