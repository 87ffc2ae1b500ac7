// Rejection of integers under a hat: a parallelogram on a triangle, whose triangle lies below the distribution, between
// exponential tails (Schmeiser, Kachitvichyanukul 1981, 1988). Two floats a candidate.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

#include "qor/rng/kernels.h"
#include "qor/rng/loops.h"
#include "qor/rng/uniforms.h"

namespace orvik::qor {

struct TriangleHat {
  double mode;            // the most probable number
  double xm, xl, xr;      // middle and ends of the parallelogram
  double c;               // its height above the triangle
  double left, right;     // rates of the tails
  double p1, p2, p3, p4;  // areas, summed: triangle, parallelogram, left tail, right tail

  // half: of the width; heights of the tails where they begin.
  void set(double m, double half, double height, double left_rate, double right_rate, double left_height,
           double right_height) {
    mode = m;
    p1 = half;
    xm = m + 0.5;
    xl = xm - p1;
    xr = xm + p1;
    c = height;
    left = left_rate;
    right = right_rate;
    p2 = p1 * (1 + c + c);
    p3 = p2 + left_height / left;
    p4 = p3 + right_height / right;
  }
};

// target.log_ratio(n, y, r): logarithms of the probabilities of y by that of the mode; target.highest.
// What leaves the triangle is decided by the exact test at once: for lists of candidates its logarithms cost less than
// the branches of squeezes, whose answers are the same.
template <class Target>
class HatBatch {
 public:
  static constexpr int32_t kCandidates = 1024;
  HatBatch(Uniforms<float>& uniforms, const TriangleHat& hat, const Target& target)
      : uniforms_(uniforms), hat_(hat), target_(target) {}

  int32_t operator()(int32_t count, int32_t* out) {
    float w[2 * kCandidates];
    double y[kCandidates];
    bool accepted[kCandidates];
    if (!uniforms_.draw(2 * count, w)) return -1;
    for (int32_t i = 0; i < count; ++i) {
      const double u = static_cast<double>(w[2 * i]) * hat_.p4, v = static_cast<double>(w[2 * i + 1]);
      y[i] = std::floor(hat_.xm - hat_.p1 * v + u);
      accepted[i] = u <= hat_.p1;
    }
    int32_t at[kCandidates], leaving = 0;
    for (int32_t i = 0; i < count; ++i) {
      at[leaving] = i;
      leaving += !accepted[i];
    }
    if (leaving > 0) decide(leaving, at, w, y, accepted);
    int32_t kept = 0;
    for (int32_t i = 0; i < count; ++i) {
      out[kept] = static_cast<int32_t>(y[i]);
      kept += accepted[i];
    }
    return kept;
  }

 private:
  void decide(int32_t n, const int32_t* at, const float* w, double* y, bool* accepted) {
    double u[kCandidates], v[kCandidates], logarithm[kCandidates], k[kCandidates];
    bool possible[kCandidates];
    for (int32_t i = 0; i < n; ++i) {
      u[i] = static_cast<double>(w[2 * at[i]]) * hat_.p4;
      v[i] = static_cast<double>(w[2 * at[i] + 1]);
    }
    kernels::ln.call(Level::high, n, v, logarithm);
    for (int32_t i = 0; i < n; ++i) {
      double place, height = v[i];
      if (u[i] <= hat_.p2) {
        const double x = hat_.xl + (u[i] - hat_.p1) / hat_.c;
        height = height * hat_.c + 1 - std::fabs(hat_.mode - x + 0.5) / hat_.p1;
        place = std::floor(x);
      } else if (u[i] <= hat_.p3) {
        place = std::floor(hat_.xl + logarithm[i] / hat_.left);
        height *= (u[i] - hat_.p2) * hat_.left;
      } else {
        place = std::floor(hat_.xr - logarithm[i] / hat_.right);
        height *= (u[i] - hat_.p3) * hat_.right;
      }
      possible[i] = height <= 1 && place >= 0 && place <= target_.highest;
      k[i] = possible[i] ? place : hat_.mode;
      v[i] = std::max(height, std::numeric_limits<double>::min());
    }
    kernels::ln.call(Level::high, n, v, logarithm);
    target_.log_ratio(n, k, v);
    for (int32_t i = 0; i < n; ++i) {
      accepted[at[i]] = possible[i] && logarithm[i] <= v[i];
      y[at[i]] = k[i];
    }
  }

  Uniforms<float>& uniforms_;
  const TriangleHat& hat_;
  const Target& target_;
};

}  // namespace orvik::qor
