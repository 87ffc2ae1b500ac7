// Rejection of integers under a table mountain: a rectangle as high as the mode between exponential tails
// (Kachitvichyanukul, Schmeiser 1985). Two uniforms of type T a candidate.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

#include "qor/rng/kernels.h"
#include "qor/rng/loops.h"
#include "qor/rng/uniforms.h"

namespace orvik::qor {

struct TableMountain {
  double mode, highest;
  double xl, xr;       // the rectangle, from the first number to behind the last
  double left, right;  // rates of the tails
  double p1, p2, p3;   // areas, summed: rectangle, left tail, right tail

  // Heights of the tails where they begin; 0 for none.
  void set(double left_rate, double left_height, double right_rate, double right_height) {
    left = left_rate;
    right = right_rate;
    p1 = xr - xl;
    p2 = p1 + (left_height > 0 ? left_height / left : 0);
    p3 = p2 + (right_height > 0 ? right_height / right : 0);
  }
};

// log_ratio(n, y, r): logarithms of the probabilities of y by that of the mode, of at most kCandidates numbers.
template <class T, int32_t candidates, class LogRatio>
class MountainBatch {
 public:
  static constexpr int32_t kCandidates = candidates;
  MountainBatch(Uniforms<T>& uniforms, const TableMountain& hat, LogRatio log_ratio)
      : uniforms_(uniforms), hat_(hat), log_ratio_(log_ratio) {}

  int32_t operator()(int32_t count, int32_t* out) {
    T w[2 * kCandidates];
    double u[kCandidates], v[kCandidates], logarithm[kCandidates], y[kCandidates], ratio[kCandidates];
    bool possible[kCandidates];
    if (count < 1) return 0;
    if (!uniforms_.draw(2 * count, w)) return -1;
    for (int32_t i = 0; i < count; ++i) {
      u[i] = static_cast<double>(w[2 * i]) * hat_.p3;
      v[i] = static_cast<double>(w[2 * i + 1]);
    }
    kernels::ln.call(Level::high, count, v, logarithm);
    for (int32_t i = 0; i < count; ++i) {
      double place = hat_.xl + u[i];
      if (u[i] > hat_.p1) {  // in a tail the height of a candidate has a part of its own
        const bool to_left = u[i] <= hat_.p2;
        place = to_left ? hat_.xl + logarithm[i] / hat_.left : hat_.xr - logarithm[i] / hat_.right;
        v[i] *= to_left ? (u[i] - hat_.p1) * hat_.left : (u[i] - hat_.p2) * hat_.right;
      }
      place = std::floor(place);
      possible[i] = place >= 0 && place <= hat_.highest;
      y[i] = possible[i] ? place : hat_.mode;
      v[i] = std::max(v[i], std::numeric_limits<double>::min());
    }
    kernels::ln.call(Level::high, count, v, logarithm);
    log_ratio_(count, y, ratio);
    int32_t kept = 0;
    for (int32_t i = 0; i < count; ++i) {
      out[kept] = static_cast<int32_t>(y[i]);
      kept += possible[i] && logarithm[i] <= ratio[i];
    }
    return kept;
  }

 private:
  Uniforms<T>& uniforms_;
  const TableMountain& hat_;
  LogRatio log_ratio_;
};

}  // namespace orvik::qor
