// Running mean and central sums of variables, joined by the formulas of Chan, Golub, LeVeque 1983 and Pébay 2008: one
// observation more is a state of its own, and so is a block of them.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace orvik::ss {

// rows[0] the means, rows[k - 1] the weighted sums of k-th powers of deviations, k = 2 to K. Joins the states of
// `count` variables, `from` of weight b into `into` of weight a. What has weight 0 is nothing. Equal means stay what
// they are. Rows are pointers or arrays.
template <int K, class Rows>
inline void join_states(int64_t count, double a, double b, Rows& into, const Rows& from) {
  if (b == 0) return;
  if (a == 0) {
    for (int k = 0; k < K; ++k) std::copy(from[k], from[k] + count, into[k]);
    return;
  }
  const double s = a + b;
  const double pa = a / s, pb = b / s, ab = a * pb;
  const double cube = ab * (pa - pb), fourth = ab * (pa * pa - pa * pb + pb * pb);
  for (int64_t j = 0; j < count; ++j) {
    const double ma = into[0][j], mb = from[0][j];
    const double d = mb - ma;
    if constexpr (K >= 2) {
      const double a2 = into[1][j], b2 = from[1][j];
      const double d2 = d * d;
      if constexpr (K >= 3) {
        const double a3 = into[2][j], b3 = from[2][j];
        if constexpr (K >= 4) {
          into[3][j] +=
              from[3][j] + 4 * d * (pa * b3 - pb * a3) + 6 * d2 * (pa * pa * b2 + pb * pb * a2) + fourth * d2 * d2;
        }
        into[2][j] = a3 + b3 + 3 * d * (pa * b2 - pb * a2) + cube * d2 * d;
      }
      into[1][j] = a2 + b2 + ab * d2;
    }
    // From one mean to the other: a mean that all have alike is kept to the last bit. Not between infinities.
    into[0][j] = std::fabs(d) <= __DBL_MAX__ ? ma + pb * d : pa * ma + pb * mb;
  }
}

}  // namespace orvik::ss
