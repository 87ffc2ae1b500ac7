// The parameter sets of the MT2203 family.
#pragma once

#include <stdint.h>

namespace orvik::qor {

struct Mt2203Set {
  uint32_t matrix_a, mask_b, mask_c;
};
constexpr int kMt2203Members = 6024;
extern const Mt2203Set Mt2203Params[kMt2203Members];

}  // namespace orvik::qor
