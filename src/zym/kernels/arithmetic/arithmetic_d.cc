#include "zym/kernels/arithmetic/arithmetic.h"

#include "zym/skeleton/define.h"

namespace orvik::zym {

ORVIK_ZYM_KERNELS(dAbs, Abs)
ORVIK_ZYM_KERNELS(dSqr, Sqr)
ORVIK_ZYM_KERNELS(dAdd, Add)
ORVIK_ZYM_KERNELS(dSub, Sub)
ORVIK_ZYM_KERNELS(dMul, Mul)
ORVIK_ZYM_KERNELS(dLinearFrac, LinearFrac)

}  // namespace orvik::zym
