// The translated biweight (Rocke 1996): a loss that is quadratic up to M, bends over to M + c and is constant beyond.
#pragma once

#include <cstdint>

#include "qor/ss/threads.h"

namespace orvik::ss {

struct Biweight {
  double m;  // distances below count fully
  double c;  // and from m + c on not at all; 0: cut off at m

  // Loss of a distance; what is no number counts as infinitely far.
  double rho(double d) const {
    if (d <= m) return 0.5 * d * d;
    if (!(d < m + c)) return ceiling();
    return 0.5 * m * m + between((d - m) / c);
  }
  double ceiling() const { return 0.5 * m * m + between(1); }
  // rho'(d) / d: 1 up to m, smoothly to 0 at m + c.
  double weight(double d) const {
    if (d <= m) return 1;
    if (!(d < m + c)) return 0;
    const double t = (d - m) / c, bend = 1 - t * t;
    return bend * bend;
  }

 private:
  // The part of the loss behind m: the integral of u w(u) from m to m + c t, as polynomials in t, whose terms do not
  // cancel however short c is against m.
  double between(double t) const {
    const double s = t * t;
    return c * m * t * (1 - s * (2.0 / 3 - s / 5)) + c * c * s * (0.5 - s * (0.5 - s / 6));
  }
};

// Expected loss of the distance of p standard normal numbers from 0.
double expected_loss(const Biweight& b, double p);

// The constants whose expected loss is the share `breakdown` of the largest, which is how far the S-estimator resists,
// and beyond whose reach m + c lies a good observation with probability `rejection`. The breakdown comes first: where
// few variables do not reach it with that rejection, m is 0 and c by the breakdown alone; where many variables exceed
// it, c is 0 and m by the breakdown alone.
Biweight find_biweight(double p, double breakdown, double rejection);

// The s with mean rho(d_i / s) = `loss`, by Newton's steps from the one given; infinite or NaN distances count as
// rejected. 0 where there is none: more than the share of the breakdown has distance 0, or is beyond measure. The
// number of threads does not change it.
template <class T>
int32_t solve_scale(const Biweight& b, double loss, int64_t n, const T* d, const OrvikThreading* threading, double* s);
template <class T>
double solve_scale(const Biweight& b, double loss, int64_t n, const T* d, double start) {
  solve_scale(b, loss, n, d, nullptr, &start);
  return start;
}

// The weights of the distances d_i / s, and the sum of w (d / s)^2.
template <class T>
int32_t weigh_distances(const Biweight& b, double s, int64_t n, const T* d, const OrvikThreading* threading, T* weights,
                        double* squares);

}  // namespace orvik::ss
