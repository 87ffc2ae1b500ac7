#include "zym/kernels/rounding/next_after.h"
#include "zym/kernels/rounding/remainder.h"

#include "zym/skeleton/define.h"

namespace orvik::zym {

ORVIK_ZYM_KERNELS(dNextAfter, NextAfter)
ORVIK_ZYM_KERNELS(dLogb, Logb)
ORVIK_ZYM_KERNELS(dRemainder, Remainder)
ORVIK_ZYM_KERNELS(dFmod, Fmod)

}  // namespace orvik::zym
