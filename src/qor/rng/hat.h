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
  static constexpr int32_t kNear = 256;
  double near[2 * kNear + 1];  // probabilities by that of the mode, of the numbers up to kNear away from it
  double mode;                 // the most probable number
  double xm, xl, xr;           // middle and ends of the parallelogram
  double c;                    // its height above the triangle
  double left, right;          // rates of the tails
  double p1, p2, p3, p4;       // areas, summed: triangle, parallelogram, left tail, right tail

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

  // step(k): P(k + 1) / P(k); 0 beyond the last number.
  template <class Step>
  void set_near(Step step) {
    near[kNear] = 1;
    for (int32_t i = 0; i < kNear; ++i) {
      near[kNear + i + 1] = near[kNear + i] * step(mode + i);
      near[kNear - i - 1] = mode - i > 0 ? near[kNear - i] / step(mode - i - 1) : 0;
    }
  }
};

// target.log_ratio(n, y, r): logarithms of the probabilities of y by that of the mode; target.highest;
// target.variance. What leaves the triangle is decided in lists: near the mode by a table; further away most by a
// squeeze about the logarithm of the normal density (Kachitvichyanukul, Schmeiser 1988), whose answers are the exact
// test's, and the others by that test.
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
    double place[kCandidates], height[kCandidates];
    int32_t tails[kCandidates], in_tails = 0;
    for (int32_t i = 0; i < n; ++i) {
      const double u = static_cast<double>(w[2 * at[i]]) * hat_.p4, v = static_cast<double>(w[2 * at[i] + 1]);
      const double x = hat_.xl + (u - hat_.p1) / hat_.c;
      height[i] = v * hat_.c + 1 - std::fabs(hat_.mode - x + 0.5) / hat_.p1;
      place[i] = std::floor(x);
      tails[in_tails] = i;
      in_tails += !(u <= hat_.p2);
    }
    place_in_tails(in_tails, tails, at, w, place, height);
    int32_t far[kCandidates], remaining = 0;
    constexpr int32_t kNear = TriangleHat::kNear;
    for (int32_t i = 0; i < n; ++i) {
      const bool possible = (height[i] <= 1) & (place[i] >= 0) & (place[i] <= target_.highest);
      place[i] = possible ? place[i] : hat_.mode;
      const double away = place[i] - hat_.mode;
      const bool near = std::fabs(away) <= kNear;
      accepted[at[i]] = possible & near & (height[i] <= hat_.near[near ? static_cast<int32_t>(away) + kNear : 0]);
      y[at[i]] = place[i];
      far[remaining] = i;
      remaining += possible & !near;
    }
    if (remaining > 0) decide_far(remaining, far, at, place, height, accepted);
  }

  void decide_far(int32_t n, const int32_t* far, const int32_t* at, const double* place, const double* height,
                  bool* accepted) {
    double logarithm[kCandidates];
    for (int32_t j = 0; j < n; ++j) logarithm[j] = std::max(height[far[j]], std::numeric_limits<double>::min());
    kernels::ln.call(Level::high, n, logarithm, logarithm);
    const double inverse = 1 / target_.variance, end = target_.variance * 0.5 - 1;
    double open_places[kCandidates], open_logarithms[kCandidates];
    int32_t open[kCandidates], opened = 0;
    for (int32_t j = 0; j < n; ++j) {
      const double k = std::fabs(place[far[j]] - hat_.mode);
      const double rho = (k * inverse) * ((k * (k * (1.0 / 3) + 0.625) + 1.0 / 6) * inverse + 0.5);
      const double t = k * k * inverse * -0.5;
      const bool squeezes = k < end, accepts = squeezes & (logarithm[j] < t - rho);
      accepted[at[far[j]]] = accepts;
      open[opened] = at[far[j]];
      open_places[opened] = place[far[j]];
      open_logarithms[opened] = logarithm[j];
      opened += !(accepts | (squeezes & (logarithm[j] > t + rho)));
    }
    if (opened == 0) return;
    target_.log_ratio(opened, open_places, logarithm);
    for (int32_t j = 0; j < opened; ++j) accepted[open[j]] = open_logarithms[j] <= logarithm[j];
  }

  void place_in_tails(int32_t n, const int32_t* tails, const int32_t* at, const float* w, double* place,
                      double* height) {
    double v[kCandidates], logarithm[kCandidates];
    for (int32_t j = 0; j < n; ++j) v[j] = static_cast<double>(w[2 * at[tails[j]] + 1]);
    kernels::ln.call(Level::high, n, v, logarithm);
    for (int32_t j = 0; j < n; ++j) {
      const double u = static_cast<double>(w[2 * at[tails[j]]]) * hat_.p4;
      const bool to_left = u <= hat_.p3;
      place[tails[j]] = std::floor(to_left ? hat_.xl + logarithm[j] / hat_.left : hat_.xr - logarithm[j] / hat_.right);
      height[tails[j]] = v[j] * (to_left ? (u - hat_.p2) * hat_.left : (u - hat_.p3) * hat_.right);
    }
  }

  Uniforms<float>& uniforms_;
  const TriangleHat& hat_;
  const Target& target_;
};

}  // namespace orvik::qor
