#include <sleef.h>

#include "zym/vector_peer.h"

namespace orvik::bench {
namespace {

#define VECTORS(call, Function, source, ulp, f, d)                                             \
  {"s" #Function, source, ulp, call<float, f, false>, call<float, f, true>},                   \
      {"d" #Function, source, ulp, call<double, d, false>, call<double, d, true>},
#if ORVIK_REGISTER_BITS == 512
#define WIDTH " 512"
#define PEERS sleef_wide_peers
#define SINGLE(stem, bound) Sleef_##stem##f16_##bound##avx512f
#define DOUBLE(stem, bound) Sleef_##stem##d8_##bound##avx512f
#else
#define WIDTH
#define PEERS sleef_peers
#define SINGLE(stem, bound) Sleef_##stem##f8_##bound##avx2
#define DOUBLE(stem, bound) Sleef_##stem##d4_##bound##avx2
#endif
// The names carry the bound: u10 is 1.0 ulp.
#define U05(call, Function, stem) VECTORS(call, Function, "sleef u05" WIDTH, 0.51, SINGLE(stem, u05), DOUBLE(stem, u05))
#define U10(call, Function, stem) VECTORS(call, Function, "sleef u10" WIDTH, 1.0, SINGLE(stem, u10), DOUBLE(stem, u10))
#define U15(call, Function, stem) VECTORS(call, Function, "sleef u15" WIDTH, 1.5, SINGLE(stem, u15), DOUBLE(stem, u15))
#define U35(call, Function, stem) VECTORS(call, Function, "sleef u35" WIDTH, 3.5, SINGLE(stem, u35), DOUBLE(stem, u35))
#define EXACT(call, Function, stem) VECTORS(call, Function, "sleef" WIDTH, 0.5, SINGLE(stem, ), DOUBLE(stem, ))

constexpr Peer kPeers[] = {
    EXACT(vector1, Abs, fabs) EXACT(vector1, Ceil, ceil) EXACT(vector1, Floor, floor) EXACT(vector1, Trunc, trunc)
    EXACT(vector1, Rint, rint) EXACT(vector1, NearbyInt, rint) EXACT(vector1, Round, round)
    EXACT(vector2, CopySign, copysign) EXACT(vector2, Fdim, fdim) EXACT(vector2, Fmax, fmax) EXACT(vector2, Fmin, fmin)
    EXACT(vector2, NextAfter, nextafter) EXACT(vector2, Fmod, fmod) EXACT(vector_pair, Modf, modf)
    U05(vector1, Sqrt, sqrt) U35(vector1, Sqrt, sqrt) EXACT(vector1, Sqrt, sqrt)
    U10(vector1, Cbrt, cbrt) U35(vector1, Cbrt, cbrt) U05(vector2, Hypot, hypot) U35(vector2, Hypot, hypot)
    U10(vector1, Exp, exp) U10(vector1, Exp2, exp2) U35(vector1, Exp2, exp2) U10(vector1, Exp10, exp10)
    U35(vector1, Exp10, exp10) U10(vector1, Expm1, expm1) U10(vector1, Ln, log) U35(vector1, Ln, log)
    U10(vector1, Log10, log10) U10(vector1, Log2, log2) U35(vector1, Log2, log2) U10(vector1, Log1p, log1p)
    U10(vector1, Sin, sin) U35(vector1, Sin, sin) U10(vector1, Cos, cos) U35(vector1, Cos, cos)
    U10(vector1, Tan, tan) U35(vector1, Tan, tan) U10(vector_pair, SinCos, sincos) U35(vector_pair, SinCos, sincos)
    U05(vector1, Sinpi, sinpi) U05(vector1, Cospi, cospi) U05(vector_pair, SinCospi, sincospi)
    U35(vector_pair, SinCospi, sincospi)
    U10(vector1, Asin, asin) U35(vector1, Asin, asin) U10(vector1, Acos, acos) U35(vector1, Acos, acos)
    U10(vector1, Atan, atan) U35(vector1, Atan, atan) U10(vector2, Atan2, atan2) U35(vector2, Atan2, atan2)
    U10(vector1, Sinh, sinh) U35(vector1, Sinh, sinh) U10(vector1, Cosh, cosh) U35(vector1, Cosh, cosh)
    U10(vector1, Tanh, tanh) U35(vector1, Tanh, tanh) U10(vector1, Asinh, asinh) U10(vector1, Acosh, acosh)
    U10(vector1, Atanh, atanh) U10(vector2, Pow, pow) U10(vector2, Powr, pow) U10(vector_scalar, Powx, pow)
    U10(vector1, Erf, erf) U15(vector1, Erfc, erfc) U10(vector1, TGamma, tgamma) U10(vector1, LGamma, lgamma)
};

}  // namespace

std::span<const Peer> PEERS() { return kPeers; }

}  // namespace orvik::bench
