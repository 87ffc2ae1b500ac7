#include "zym/kernels/arithmetic/arithmetic.h"

#include "zym/skeleton/define.h"

namespace orvik::zym {

ORVIK_ZYM_KERNELS(sAbs, Abs)
ORVIK_ZYM_KERNELS(sSqr, Sqr)
ORVIK_ZYM_KERNELS(sAdd, Add)
ORVIK_ZYM_KERNELS(sSub, Sub)
ORVIK_ZYM_KERNELS(sMul, Mul)
ORVIK_ZYM_KERNELS(sLinearFrac, LinearFrac)

}  // namespace orvik::zym
