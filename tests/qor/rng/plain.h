// Plain forms of the steps that distributions are made of: kernels on vectors of numbers through their public entries,
// at the levels that distributions use, and ln 0 as distributions have it.
#pragma once

#include <cmath>
#include <cstdint>
#include <vector>

#include "orvik/qor.h"
#include "orvik/zym.h"

namespace orvik::plain {

template <class T>
using Numbers = std::vector<T>;

// The entries of one function by the type of the numbers: doubles at enhanced performance, floats at low accuracy.
#define ORVIK_PLAIN(name, Function)                                                               \
  inline void name##_of(int32_t n, const double* a, double* r) { _zymd##Function##_26(n, a, r); } \
  inline void name##_of(int32_t n, const float* a, float* r) { _zyms##Function##_21(n, a, r); }   \
  template <class T>                                                                              \
  Numbers<T> name(Numbers<T> x) {                                                                 \
    name##_of(static_cast<int32_t>(x.size()), x.data(), x.data());                                \
    return x;                                                                                     \
  }
ORVIK_PLAIN(raw_ln, Ln)
ORVIK_PLAIN(sqrt, Sqrt)
ORVIK_PLAIN(exp, Exp)
ORVIK_PLAIN(sin, Sin)
ORVIK_PLAIN(cos, Cos)
ORVIK_PLAIN(tan, Tan)
ORVIK_PLAIN(raw_erf_inv, ErfInv)
#undef ORVIK_PLAIN

inline void sin_cos_of(int32_t n, const double* a, double* s, double* c) { _zymdSinCos_26(n, a, s, c); }
inline void sin_cos_of(int32_t n, const float* a, float* s, float* c) { _zymsSinCos_21(n, a, s, c); }
template <class T>
struct Waves {
  Numbers<T> sine, cosine;
};
template <class T>
Waves<T> sin_cos(const Numbers<T>& x) {
  Waves<T> w{x, x};
  sin_cos_of(static_cast<int32_t>(x.size()), x.data(), w.sine.data(), w.cosine.data());
  return w;
}

inline void powx_of(int32_t n, const double* a, double b, double* r) { _zymdPowx_26(n, a, b, r); }
inline void powx_of(int32_t n, const float* a, float b, float* r) { _zymsPowx_21(n, a, b, r); }
template <class T>
Numbers<T> powx(Numbers<T> x, T b) {
  powx_of(static_cast<int32_t>(x.size()), x.data(), b, x.data());
  return x;
}

template <class T>
constexpr T ln_zero() {
  return sizeof(T) == 8 ? static_cast<T>(-744.44007192138122) : static_cast<T>(-103.2789306640625);
}

template <class T>
Numbers<T> ln(Numbers<T> x) {
  const Numbers<T> u = x;
  x = raw_ln(std::move(x));
  for (size_t i = 0; i < u.size(); ++i)
    if (u[i] == 0) x[i] = ln_zero<T>();
  return x;
}

template <class T, class Map>
Numbers<T> each(Numbers<T> x, Map map) {
  for (T& v : x) v = map(v);
  return x;
}

// Every second number from `first` on.
template <class T>
Numbers<T> every_second(const Numbers<T>& x, size_t first) {
  Numbers<T> r;
  for (size_t i = first; i < x.size(); i += 2) r.push_back(x[i]);
  return r;
}

}  // namespace orvik::plain
