#include "zym/kernels/roots/inv.h"
#include "zym/kernels/roots/sqrt.h"

#include "zym/skeleton/define.h"

namespace orvik::zym {

ORVIK_ZYM_KERNELS(sInv, Inv)
ORVIK_ZYM_KERNELS(sDiv, Div)
ORVIK_ZYM_KERNELS(sSqrt, Sqrt)
ORVIK_ZYM_KERNELS(sInvSqrt, InvSqrt)

}  // namespace orvik::zym
