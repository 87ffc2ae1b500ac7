#include "zym/kernels/rounding/rounding.h"

#include "zym/skeleton/define.h"

namespace orvik::zym {

ORVIK_ZYM_KERNELS(sCeil, Ceil)
ORVIK_ZYM_KERNELS(sFloor, Floor)
ORVIK_ZYM_KERNELS(sTrunc, Trunc)
ORVIK_ZYM_KERNELS(sRint, Rint)
ORVIK_ZYM_KERNELS(sNearbyInt, NearbyInt)
ORVIK_ZYM_KERNELS(sRound, Round)
ORVIK_ZYM_KERNELS(sFrac, Frac)
ORVIK_ZYM_KERNELS(sModf, Modf)

}  // namespace orvik::zym
