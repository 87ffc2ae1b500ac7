#include "zym/kernels/rounding/next_after.h"
#include "zym/kernels/rounding/remainder.h"

#include "zym/skeleton/define.h"

namespace orvik::zym {

ORVIK_ZYM_KERNELS(sNextAfter, NextAfter)
ORVIK_ZYM_KERNELS(sLogb, Logb)
ORVIK_ZYM_KERNELS(sRemainder, Remainder)
ORVIK_ZYM_KERNELS(sFmod, Fmod)

}  // namespace orvik::zym
