#include "zym/kernels/rounding/selection.h"

#include "zym/skeleton/define.h"

namespace orvik::zym {

ORVIK_ZYM_KERNELS(sCopySign, CopySign)
ORVIK_ZYM_KERNELS(sFdim, Fdim)
ORVIK_ZYM_KERNELS(sFmax, Fmax)
ORVIK_ZYM_KERNELS(sFmin, Fmin)
ORVIK_ZYM_KERNELS(sMaxMag, MaxMag)
ORVIK_ZYM_KERNELS(sMinMag, MinMag)

}  // namespace orvik::zym
