#include "zym/kernels/rounding/rounding.h"

#include "zym/skeleton/define.h"

namespace orvik::zym {

ORVIK_ZYM_KERNELS(dCeil, Ceil)
ORVIK_ZYM_KERNELS(dFloor, Floor)
ORVIK_ZYM_KERNELS(dTrunc, Trunc)
ORVIK_ZYM_KERNELS(dRint, Rint)
ORVIK_ZYM_KERNELS(dNearbyInt, NearbyInt)
ORVIK_ZYM_KERNELS(dRound, Round)
ORVIK_ZYM_KERNELS(dFrac, Frac)
ORVIK_ZYM_KERNELS(dModf, Modf)

}  // namespace orvik::zym
