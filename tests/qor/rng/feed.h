// The uniforms of a stream one at a time, for plain forms of methods that take as many as they need.
#pragma once

#include <cmath>
#include <cstdint>
#include <vector>

#include "orvik/zym.h"
#include "qor/rng/call.h"
#include "qor/rng/plain.h"

namespace orvik::testing {

template <class T>
class Feed {
 public:
  Feed(const Stream& source, int32_t count) : numbers_(uniforms<T>(source, count)) {}
  T operator()() { return numbers_.at(at_++); }
  std::vector<T> following(size_t n) const {
    return {numbers_.begin() + static_cast<std::ptrdiff_t>(at_),
            numbers_.begin() + static_cast<std::ptrdiff_t>(at_ + n)};
  }

 private:
  std::vector<T> numbers_;
  size_t at_ = 0;
};

// Kernels on one number.
template <class T>
T ln1(T x) {
  return plain::ln(plain::Numbers<T>{x})[0];
}
template <class T>
T exp1(T x) {
  return plain::exp(plain::Numbers<T>{x})[0];
}
template <class T>
T sqrt1(T x) {
  return plain::sqrt(plain::Numbers<T>{x})[0];
}

// The same by the high accuracy level.
inline double high_ln(double x) { return _zymdLn_HA(1, &x, &x), x; }
inline float high_ln(float x) { return _zymsLn_HA(1, &x, &x), x; }
inline double high_exp(double x) { return _zymdExp_HA(1, &x, &x), x; }
inline float high_exp(float x) { return _zymsExp_HA(1, &x, &x), x; }
inline double high_sqrt(double x) { return _zymdSqrt_HA(1, &x, &x), x; }
inline float high_sqrt(float x) { return _zymsSqrt_HA(1, &x, &x), x; }
inline double high_power(double x, double b) { return _zymdPowx_HA(1, &x, b, &x), x; }
inline float high_power(float x, float b) { return _zymsPowx_HA(1, &x, b, &x), x; }

}  // namespace orvik::testing
