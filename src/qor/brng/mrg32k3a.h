// The constants of MRG32K3A (L'Ecuyer 1999).
#pragma once

#include <stdint.h>

#include "qor/stream/matrix3.h"

namespace orvik::qor {

struct Mrg32k3aState {
  uint32_t x[3], y[3];  // oldest first
};

// Coefficients of the newest, middle and oldest member.
constexpr uint32_t kMrgFirst[3] = {0, 1403580, kMrgModulus1 - 810728};
constexpr uint32_t kMrgSecond[3] = {527612, 0, kMrgModulus2 - 1370589};

// The 2^i-th powers of the two companion matrices.
constexpr PowerTable kMrgPowers1 = make_powers(kMrgFirst, kMrgModulus1),
                     kMrgPowers2 = make_powers(kMrgSecond, kMrgModulus2);
extern const PowerTable Mrg32k3aPowers1, Mrg32k3aPowers2;

}  // namespace orvik::qor
