// Array expressions of Eigen. Bounds in ulp are the largest errors that `zym_bench --section peers` finds, rounded up.
#include <Eigen/Core>
#include <unsupported/Eigen/SpecialFunctions>

#include "zym/peers.h"

namespace orvik::bench {
namespace {

template <class E, bool Strided>
using Stride = Eigen::InnerStride<Strided ? Eigen::Dynamic : 1>;
template <class E, bool Strided>
using In = Eigen::Map<const Eigen::Array<E, Eigen::Dynamic, 1>, Eigen::Unaligned, Stride<E, Strided>>;
template <class E, bool Strided>
using Out = Eigen::Map<Eigen::Array<E, Eigen::Dynamic, 1>, Eigen::Unaligned, Stride<E, Strided>>;

template <class E, bool Strided, auto F>
void expression1(int32_t n, const Arrays& arrays) {
  const In<E, Strided> a(static_cast<const E*>(arrays.a), n, Stride<E, Strided>(Strided ? arrays.incA : 1));
  Out<E, Strided> r(static_cast<E*>(arrays.r1), n, Stride<E, Strided>(Strided ? arrays.incR1 : 1));
  F(a, r);
}

template <class E, bool Strided, auto F>
void expression2(int32_t n, const Arrays& arrays) {
  const In<E, Strided> a(static_cast<const E*>(arrays.a), n, Stride<E, Strided>(Strided ? arrays.incA : 1));
  const In<E, Strided> b(static_cast<const E*>(arrays.b), n, Stride<E, Strided>(Strided ? arrays.incB : 1));
  Out<E, Strided> r(static_cast<E*>(arrays.r1), n, Stride<E, Strided>(Strided ? arrays.incR1 : 1));
  F(a, b, r);
}

#define EIGEN1(Function, ulp_s, ulp_d, expression)                                                          \
  {"s" #Function, "eigen", ulp_s, expression1<float, false, [](auto& a, auto& r) { r = expression; }>,      \
   expression1<float, true, [](auto& a, auto& r) { r = expression; }>},                                     \
      {"d" #Function, "eigen", ulp_d, expression1<double, false, [](auto& a, auto& r) { r = expression; }>, \
       expression1<double, true, [](auto& a, auto& r) { r = expression; }>},
#define EIGEN2(Function, ulp_s, ulp_d, expression)                                                                   \
  {"s" #Function, "eigen", ulp_s, expression2<float, false, [](auto& a, auto& b, auto& r) { r = expression; }>,      \
   expression2<float, true, [](auto& a, auto& b, auto& r) { r = expression; }>},                                     \
      {"d" #Function, "eigen", ulp_d, expression2<double, false, [](auto& a, auto& b, auto& r) { r = expression; }>, \
       expression2<double, true, [](auto& a, auto& b, auto& r) { r = expression; }>},

constexpr Peer kPeers[] = {
    EIGEN1(Abs, 0.5, 0.5, a.abs()) EIGEN1(Sqr, 0.5, 0.5, a.square()) EIGEN2(Add, 0.5, 0.5, a + b)
    EIGEN2(Sub, 0.5, 0.5, a - b) EIGEN2(Mul, 0.5, 0.5, a * b) EIGEN2(Div, 0.5, 0.5, a / b)
    EIGEN1(Inv, 0.5, 0.5, a.inverse()) EIGEN1(Ceil, 0.5, 0.5, a.ceil()) EIGEN1(Floor, 0.5, 0.5, a.floor())
    EIGEN1(Rint, 0.5, 0.5, a.rint()) EIGEN1(Round, 0.5, 0.5, a.round()) EIGEN2(Fmax, 0.5, 0.5, a.max(b))
    EIGEN2(Fmin, 0.5, 0.5, a.min(b)) EIGEN1(Sqrt, 3.2, 0.5, a.sqrt()) EIGEN1(InvSqrt, 4, 4, a.rsqrt())
    EIGEN1(Exp, 4, 4, a.exp()) EIGEN1(Expm1, 4, 4, a.expm1()) EIGEN1(Ln, 4, 4, a.log()) EIGEN1(Log2, 4, 4, a.log2())
    EIGEN1(Log10, 4, 4, a.log10()) EIGEN1(Log1p, 4, 4, a.log1p()) EIGEN1(Sin, 4, 4, a.sin()) EIGEN1(Cos, 4, 4, a.cos())
    EIGEN1(Tanh, 4.3, 4, a.tanh()) EIGEN2(Pow, 4, 4, a.pow(b)) EIGEN1(CdfNormInv, 8, 5, a.ndtri())
};

}  // namespace

std::span<const Peer> eigen_peers() { return kPeers; }

}  // namespace orvik::bench
