// Few variables in contiguous observations: several observations are taken as one row of more, so that the inner loops
// run over long rows whatever the number of variables is.
#pragma once

#include <algorithm>
#include <cstdint>

namespace orvik::ss {

struct Fold {
  static constexpr int64_t kRow = 64;      // least length of a row
  static constexpr int64_t kWorthIt = 16;  // rows from which long ones pay for the places that they keep
  static constexpr int64_t kFew = 8;       // variables below which half as many do

  int64_t observations;  // of one row
  int64_t length;        // of one row

  // A multiple of 8 observations makes a row of whole vectors: as many as make a row, or fewer of few. Each weight has
  // its price where it is not that of a row: only long rows pay it.
  Fold(int64_t p, int64_t n, bool weighted) : observations(1) {
    const int64_t most = p >= kRow ? 1 : (kRow / p + 7) / 8 * 8;
    if (n >= kWorthIt * most) {
      observations = most;
    } else if (most > 1 && !weighted && n >= (p < kFew ? kWorthIt / 2 : kWorthIt) * 8) {
      observations = std::max<int64_t>(n / (8 * kWorthIt), 1) * 8;
    }
    length = p * observations;
  }
};

}  // namespace orvik::ss
