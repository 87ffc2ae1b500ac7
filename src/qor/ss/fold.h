// Few variables in contiguous observations: several observations are taken as one row of more, so that the inner loops
// run over long rows whatever the number of variables is.
#pragma once

#include <cstdint>

namespace orvik::ss {

struct Fold {
  static constexpr int64_t kRow = 64;  // least length of a row

  int64_t observations;  // of one row
  int64_t length;        // of one row

  // A multiple of 8 observations makes a row of whole vectors.
  explicit Fold(int64_t p) : observations(p >= kRow ? 1 : (kRow / p + 7) / 8 * 8), length(p * observations) {}
};

}  // namespace orvik::ss
