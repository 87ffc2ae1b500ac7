// Few variables in contiguous observations: several observations are taken as one row of more, so that the inner loops
// run over long rows whatever the number of variables is.
#pragma once

#include <cstdint>

namespace orvik::ss {

struct Fold {
  static constexpr int64_t kRow = 64;      // least length of a row
  static constexpr int64_t kWorthIt = 16;  // rows from which long ones pay for the places that they keep

  int64_t observations;  // of one row
  int64_t length;        // of one row

  // A multiple of 8 observations makes a row of whole vectors.
  Fold(int64_t p, int64_t n) : observations(p >= kRow ? 1 : (kRow / p + 7) / 8 * 8), length(p * observations) {
    if (n < kWorthIt * observations) observations = 1, length = p;
  }
};

}  // namespace orvik::ss
