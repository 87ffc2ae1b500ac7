#include "zym/kernels/rounding/selection.h"

#include "zym/skeleton/define.h"

namespace orvik::zym {

ORVIK_ZYM_KERNELS(dCopySign, CopySign)
ORVIK_ZYM_KERNELS(dFdim, Fdim)
ORVIK_ZYM_KERNELS(dFmax, Fmax)
ORVIK_ZYM_KERNELS(dFmin, Fmin)
ORVIK_ZYM_KERNELS(dMaxMag, MaxMag)
ORVIK_ZYM_KERNELS(dMinMag, MinMag)

}  // namespace orvik::zym
