// Relations between sums, raw and central moments of one variable, all in double.
#pragma once

#include "qor/ss/plan.h"

namespace orvik::ss {

// What makes the second central moment unbiased for reliability weights; 1 where one observation is all there is, which
// rounding of its weight's square must not hide. Orders 3 and 4 are plain averages: their factor is 1, so that a run can
// go on from the two sums of weights alone.
inline double unbiased(const Weights& w) {
  const double correction = w.squares / w.sum;
  return w.observations > 1 && w.sum > correction ? w.sum / (w.sum - correction) : 1.0;
}

// Average of the k-th powers of deviations from the mean, k = 2 to 4; r[k] is the k-th raw moment.
inline double central_from_raw(int k, double m, const double* r) {
  switch (k) {
    case 2:
      return r[2] - m * m;
    case 3:
      return r[3] + m * (2 * m * m - 3 * r[2]);
    default:
      return r[4] - 4 * m * r[3] + m * m * (6 * r[2] - 3 * m * m);
  }
}

// The k-th raw moment; c[k] is the average of the k-th powers of deviations from the mean.
inline double raw_from_central(int k, double m, const double* c) {
  switch (k) {
    case 2:
      return c[2] + m * m;
    case 3:
      return c[3] + m * (3 * c[2] + m * m);
    default:
      return c[4] + m * (4 * c[3] + m * (6 * c[2] + m * m));
  }
}

// The sum of k-th powers of deviations from the mean u + s[1] / s[0], from the sums s[k] of powers of deviations from u;
// s[0] is the sum of weights.
inline double central_sum(int k, const double* s) {
  const double d = s[1] / s[0];
  switch (k) {
    case 2:
      return s[2] - d * s[1];
    case 3:
      return s[3] - d * (3 * s[2] - 2 * d * s[1]);
    default:
      return s[4] - d * (4 * s[3] - d * (6 * s[2] - 3 * d * s[1]));
  }
}

// Sums of powers of x from the sums d[k] of powers of x - u; d[0] is the sum of weights.
inline void plain_sums(double u, const double* d, double* s) {
  s[0] = d[0];
  s[1] = d[1] + u * d[0];
  s[2] = d[2] + u * (2 * d[1] + u * d[0]);
  s[3] = d[3] + u * (3 * d[2] + u * (3 * d[1] + u * d[0]));
  s[4] = d[4] + u * (4 * d[3] + u * (6 * d[2] + u * (4 * d[1] + u * d[0])));
}

}  // namespace orvik::ss
