// The C library's vector functions, by the names of the vector function interface; their documented bound is 4 ulp.
#include "zym/vector_peer.h"

#if ORVIK_REGISTER_BITS == 512
#define SOURCE "libmvec 512"
#define PEERS libmvec_wide_peers
#define SINGLE(arguments, stem) _ZGVeN16##arguments##_##stem##f
#define DOUBLE(arguments, stem) _ZGVeN8##arguments##_##stem
#define FLOATS __m512
#define DOUBLES __m512d
#else
#define SOURCE "libmvec"
#define PEERS libmvec_peers
#define SINGLE(arguments, stem) _ZGVdN8##arguments##_##stem##f
#define DOUBLE(arguments, stem) _ZGVdN4##arguments##_##stem
#define FLOATS __m256
#define DOUBLES __m256d
#endif
#define NAMES1(Function, stem)              \
  FLOATS SINGLE(v, stem)(FLOATS) noexcept; \
  DOUBLES DOUBLE(v, stem)(DOUBLES) noexcept;
#define NAMES2(Function, stem)                      \
  FLOATS SINGLE(vv, stem)(FLOATS, FLOATS) noexcept; \
  DOUBLES DOUBLE(vv, stem)(DOUBLES, DOUBLES) noexcept;
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

#define PEER(Function, call, arguments, stem)                                                                              \
  {"s" #Function, SOURCE, 4, call<float, SINGLE(arguments, stem), false>, call<float, SINGLE(arguments, stem), true>},     \
      {"d" #Function, SOURCE, 4, call<double, DOUBLE(arguments, stem), false>, call<double, DOUBLE(arguments, stem), true>},
#define PEER1(Function, stem) PEER(Function, vector1, v, stem)
#define PEER2(Function, stem) PEER(Function, vector2, vv, stem)

constexpr Peer kPeers[] = {ALL(PEER1, PEER2) PEER2(Powr, pow) PEER(Powx, vector_scalar, vv, pow)};

}  // namespace

std::span<const Peer> PEERS() { return kPeers; }

}  // namespace orvik::bench
