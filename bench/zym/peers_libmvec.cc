// The C library's vector functions, by the names of the vector function interface; their documented bound is 4 ulp.
#include "zym/vector_peer.h"

#define NAMES1(Function, stem)              \
  __m256 _ZGVdN8v_##stem##f(__m256) noexcept; \
  __m256d _ZGVdN4v_##stem(__m256d) noexcept;
#define NAMES2(Function, stem)                       \
  __m256 _ZGVdN8vv_##stem##f(__m256, __m256) noexcept; \
  __m256d _ZGVdN4vv_##stem(__m256d, __m256d) noexcept;
#define ALL(ONE, TWO)                                                                                                 \
  ONE(Exp, exp) ONE(Exp2, exp2) ONE(Exp10, exp10) ONE(Expm1, expm1) ONE(Ln, log) ONE(Log10, log10) ONE(Log2, log2)    \
  ONE(Log1p, log1p) ONE(Sin, sin) ONE(Cos, cos) ONE(Tan, tan) ONE(Asin, asin) ONE(Acos, acos) ONE(Atan, atan)         \
  ONE(Sinh, sinh) ONE(Cosh, cosh) ONE(Tanh, tanh) ONE(Asinh, asinh) ONE(Acosh, acosh) ONE(Atanh, atanh)               \
  ONE(Cbrt, cbrt) ONE(Erf, erf) ONE(Erfc, erfc) TWO(Pow, pow) TWO(Atan2, atan2) TWO(Hypot, hypot)

extern "C" {
ALL(NAMES1, NAMES2)
}

namespace orvik::bench {
namespace {

#define PEER1(Function, stem)                                                                                    \
  {"s" #Function, "libmvec", 4, vector1<float, _ZGVdN8v_##stem##f, false>, vector1<float, _ZGVdN8v_##stem##f, true>}, \
      {"d" #Function, "libmvec", 4, vector1<double, _ZGVdN4v_##stem, false>, vector1<double, _ZGVdN4v_##stem, true>},
#define PEER2(Function, stem)                                                                                      \
  {"s" #Function, "libmvec", 4, vector2<float, _ZGVdN8vv_##stem##f, false>, vector2<float, _ZGVdN8vv_##stem##f, true>}, \
      {"d" #Function, "libmvec", 4, vector2<double, _ZGVdN4vv_##stem, false>, vector2<double, _ZGVdN4vv_##stem, true>},

constexpr Peer kPeers[] = {
    ALL(PEER1, PEER2) PEER2(Powr, pow)
    {"sPowx", "libmvec", 4, vector_scalar<float, _ZGVdN8vv_powf, false>, vector_scalar<float, _ZGVdN8vv_powf, true>},
    {"dPowx", "libmvec", 4, vector_scalar<double, _ZGVdN4vv_pow, false>, vector_scalar<double, _ZGVdN4vv_pow, true>},
};

}  // namespace

std::span<const Peer> libmvec_peers() { return kPeers; }

}  // namespace orvik::bench
