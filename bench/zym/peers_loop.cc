// Plain loops, as a caller without a vector library writes them. Those whose operation is an instruction become vector
// code by the compiler ("loop"); the others call the C library's function for every element ("libm"); std::complex ("complex").
#include <math.h>

#include <cmath>
#include <complex>

#include "zym/peers.h"

namespace orvik::bench {
namespace {

template <class In, class Out, bool Strided, auto F>
void map1(int32_t n, const Arrays& arrays) {
  const In* a = static_cast<const In*>(arrays.a);
  Out* r = static_cast<Out*>(arrays.r1);
  const int64_t incA = Strided ? arrays.incA : 1, incR = Strided ? arrays.incR1 : 1;
  for (int32_t i = 0; i < n; ++i) r[i * incR] = F(a[i * incA]);
}
template <class E, bool Strided, auto F>
void loop1(int32_t n, const Arrays& arrays) {
  map1<E, E, Strided, F>(n, arrays);
}

template <class E, bool Strided, auto F>
void loop2(int32_t n, const Arrays& arrays) {
  const E* a = static_cast<const E*>(arrays.a);
  const E* b = static_cast<const E*>(arrays.b);
  E* r = static_cast<E*>(arrays.r1);
  const int64_t incA = Strided ? arrays.incA : 1, incB = Strided ? arrays.incB : 1, incR = Strided ? arrays.incR1 : 1;
  for (int32_t i = 0; i < n; ++i) r[i * incR] = F(a[i * incA], b[i * incB]);
}

// One number for all elements.
template <class E, bool Strided, auto F>
void loop_scalar(int32_t n, const Arrays& arrays) {
  const E* a = static_cast<const E*>(arrays.a);
  const E b = *static_cast<const E*>(arrays.b);
  E* r = static_cast<E*>(arrays.r1);
  const int64_t incA = Strided ? arrays.incA : 1, incR = Strided ? arrays.incR1 : 1;
  for (int32_t i = 0; i < n; ++i) r[i * incR] = F(a[i * incA], b);
}

template <class E, bool Strided, auto F>
void loop_pair(int32_t n, const Arrays& arrays) {
  const E* a = static_cast<const E*>(arrays.a);
  E* r1 = static_cast<E*>(arrays.r1);
  E* r2 = static_cast<E*>(arrays.r2);
  const int64_t incA = Strided ? arrays.incA : 1, inc1 = Strided ? arrays.incR1 : 1, inc2 = Strided ? arrays.incR2 : 1;
  for (int32_t i = 0; i < n; ++i) F(a[i * incA], r1[i * inc1], r2[i * inc2]);
}

#define LOOP(loop, Function, source, ulp, ...)                                                                 \
  {"s" #Function, source, ulp, loop<float, false, (__VA_ARGS__)>, loop<float, true, (__VA_ARGS__)>},           \
      {"d" #Function, source, ulp, loop<double, false, (__VA_ARGS__)>, loop<double, true, (__VA_ARGS__)>},
#define OPERATION1(Function, expression) LOOP(loop1, Function, "loop", 0.5, [](auto x) { return (expression); })
#define OPERATION2(Function, expression) LOOP(loop2, Function, "loop", 0.5, [](auto x, auto y) { return (expression); })
#define LIBM1(Function, ulp, expression) LOOP(loop1, Function, "libm", ulp, [](auto x) { return (expression); })
#define LIBM2(Function, ulp, expression) LOOP(loop2, Function, "libm", ulp, [](auto x, auto y) { return (expression); })

// Complex elements; from and to real ones.
template <class E>
using C = std::complex<E>;
template <class E, bool Strided, auto F>
void to_real(int32_t n, const Arrays& arrays) {
  map1<C<E>, E, Strided, F>(n, arrays);
}
template <class E, bool Strided, auto F>
void from_real(int32_t n, const Arrays& arrays) {
  map1<E, C<E>, Strided, F>(n, arrays);
}
template <class E, bool Strided, auto F>
void complex1(int32_t n, const Arrays& arrays) {
  loop1<C<E>, Strided, F>(n, arrays);
}
template <class E, bool Strided, auto F>
void complex2(int32_t n, const Arrays& arrays) {
  loop2<C<E>, Strided, F>(n, arrays);
}
template <class E, bool Strided, auto F>
void complex_scalar(int32_t n, const Arrays& arrays) {
  loop_scalar<C<E>, Strided, F>(n, arrays);
}
#define COMPLEX(loop, Function, ulp, ...)                                                                           \
  {"c" #Function, "complex", ulp, loop<float, false, (__VA_ARGS__)>, loop<float, true, (__VA_ARGS__)>},             \
      {"z" #Function, "complex", ulp, loop<double, false, (__VA_ARGS__)>, loop<double, true, (__VA_ARGS__)>},
#define COMPLEX1(Function, ulp, expression) COMPLEX(complex1, Function, ulp, [](auto x) { return (expression); })
#define COMPLEX2(Function, ulp, expression) COMPLEX(complex2, Function, ulp, [](auto x, auto y) { return (expression); })

template <class E>
E like(E, double value) {
  return static_cast<E>(value);
}
float power_of_10(float x) { return exp10f(x); }
double power_of_10(double x) { return exp10(x); }
double bessel(double x, double (*f)(double), float (*)(float)) { return f(x); }
float bessel(float x, double (*)(double), float (*f)(float)) { return f(x); }
double bessel_n(double x, double (*f)(int, double), float (*)(int, float)) { return f(kOrder, x); }
float bessel_n(float x, double (*)(int, double), float (*f)(int, float)) { return f(kOrder, x); }

constexpr Peer kPeers[] = {
    OPERATION1(Abs, std::fabs(x)) OPERATION1(Sqr, x * x) OPERATION2(Add, x + y) OPERATION2(Sub, x - y)
    OPERATION2(Mul, x * y) OPERATION2(Div, x / y) OPERATION1(Inv, 1 / x) OPERATION1(Sqrt, std::sqrt(x))
    OPERATION1(InvSqrt, 1 / std::sqrt(x))
    OPERATION2(LinearFrac, (x * like(x, kScaleA) + like(x, kShiftA)) / (y * like(y, kScaleB) + like(y, kShiftB)))
    OPERATION1(Ceil, std::ceil(x)) OPERATION1(Floor, std::floor(x)) OPERATION1(Trunc, std::trunc(x))
    OPERATION1(Rint, std::rint(x)) OPERATION1(NearbyInt, std::nearbyint(x)) OPERATION1(Round, std::round(x))
    OPERATION1(Frac, std::copysign(x - std::trunc(x), x)) OPERATION1(Logb, std::logb(x))
    LOOP(loop_pair, Modf, "loop", 0.5, [](auto x, auto& r1, auto& r2) { r1 = std::trunc(x), r2 = x - r1; })
    OPERATION2(CopySign, std::copysign(x, y)) OPERATION2(Fdim, std::fdim(x, y)) OPERATION2(Fmax, std::fmax(x, y))
    OPERATION2(Fmin, std::fmin(x, y)) OPERATION2(MaxMag, std::fabs(x) > std::fabs(y) ? x : y)
    OPERATION2(MinMag, std::fabs(x) < std::fabs(y) ? x : y) LIBM2(NextAfter, 0.5, std::nextafter(x, y))
    LIBM2(Remainder, 0.5, std::remainder(x, y)) LIBM2(Fmod, 0.5, std::fmod(x, y))
    LIBM1(Cbrt, 2.4, std::cbrt(x)) LIBM1(InvCbrt, 1.5, 1 / std::cbrt(x)) LIBM2(Hypot, 1, std::hypot(x, y))
    LIBM1(Pow3o2, 1, x * std::sqrt(x)) LIBM1(Pow2o3, 2, std::cbrt(x) * std::cbrt(x))
    LIBM1(Exp, 0.6, std::exp(x)) LIBM1(Exp2, 0.6, std::exp2(x)) LIBM1(Exp10, 1, power_of_10(x))
    LIBM1(Expm1, 1, std::expm1(x)) LIBM1(Ln, 0.9, std::log(x)) LIBM1(Log10, 2, std::log10(x))
    LIBM1(Log2, 0.8, std::log2(x)) LIBM1(Log1p, 1, std::log1p(x))
    LIBM1(Sin, 0.6, std::sin(x)) LIBM1(Cos, 0.6, std::cos(x)) LIBM1(Tan, 1, std::tan(x))
    LOOP(loop_pair, SinCos, "libm", 0.6, [](auto x, auto& r1, auto& r2) { r1 = std::sin(x), r2 = std::cos(x); })
    LIBM1(Asin, 1, std::asin(x)) LIBM1(Acos, 1, std::acos(x)) LIBM1(Atan, 1, std::atan(x))
    LIBM2(Atan2, 1.3, std::atan2(x, y)) LIBM1(Sinh, 2, std::sinh(x)) LIBM1(Cosh, 2, std::cosh(x))
    LIBM1(Tanh, 2, std::tanh(x)) LIBM1(Asinh, 2, std::asinh(x)) LIBM1(Acosh, 2, std::acosh(x))
    LIBM1(Atanh, 2, std::atanh(x)) LIBM2(Pow, 0.9, std::pow(x, y)) LIBM2(Powr, 0.9, std::pow(x, y))
    LOOP(loop_scalar, Powx, "libm", 0.9, [](auto x, auto y) { return std::pow(x, y); }) LIBM1(Erf, 1, std::erf(x)) LIBM1(Erfc, 5, std::erfc(x))
    LIBM1(LGamma, 8, std::lgamma(x)) LIBM1(TGamma, 8, std::tgamma(x))
    LIBM1(J0, 10, bessel(x, ::j0, ::j0f)) LIBM1(J1, 10, bessel(x, ::j1, ::j1f)) LIBM1(Y0, 10, bessel(x, ::y0, ::y0f))
    LIBM1(Y1, 10, bessel(x, ::y1, ::y1f)) LIBM1(Jn, 100, bessel_n(x, ::jn, ::jnf)) LIBM1(Yn, 100, bessel_n(x, ::yn, ::ynf))

    COMPLEX2(Add, 0.5, x + y) COMPLEX2(Sub, 0.5, x - y) COMPLEX2(Mul, 2, x * y) COMPLEX2(MulByConj, 2, x * std::conj(y))
    COMPLEX2(Div, 3, x / y) COMPLEX1(Conj, 0.5, std::conj(x)) COMPLEX(to_real, Abs, 1, [](auto x) { return std::abs(x); })
    COMPLEX(to_real, Arg, 2, [](auto x) { return std::arg(x); })
    COMPLEX(from_real, CIS, 1, [](auto x) { return std::complex(std::cos(x), std::sin(x)); })
    COMPLEX1(Exp, 2, std::exp(x)) COMPLEX1(Ln, 2, std::log(x)) COMPLEX1(Log10, 2.5, std::log10(x)) COMPLEX1(Sqrt, 2, std::sqrt(x))
    COMPLEX2(Pow, 1e3, std::pow(x, y)) COMPLEX(complex_scalar, Powx, 1e3, [](auto x, auto y) { return std::pow(x, y); })
    COMPLEX1(Sin, 2, std::sin(x)) COMPLEX1(Cos, 2, std::cos(x)) COMPLEX1(Tan, 5.3, std::tan(x)) COMPLEX1(Sinh, 2, std::sinh(x))
    COMPLEX1(Cosh, 2, std::cosh(x)) COMPLEX1(Tanh, 5.6, std::tanh(x)) COMPLEX1(Asin, 4, std::asin(x))
    COMPLEX1(Acos, 4, std::acos(x)) COMPLEX1(Atan, 4, std::atan(x)) COMPLEX1(Asinh, 4, std::asinh(x))
    COMPLEX1(Acosh, 4, std::acosh(x)) COMPLEX1(Atanh, 4, std::atanh(x))
};

}  // namespace

std::span<const Peer> loop_peers() { return kPeers; }

}  // namespace orvik::bench
