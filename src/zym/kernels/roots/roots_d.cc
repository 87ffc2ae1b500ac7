#include "zym/kernels/roots/inv.h"
#include "zym/kernels/roots/sqrt.h"

#include "zym/skeleton/define.h"

namespace orvik::zym {

ORVIK_ZYM_KERNELS(dInv, Inv)
ORVIK_ZYM_KERNELS(dDiv, Div)
ORVIK_ZYM_KERNELS(dSqrt, Sqrt)
ORVIK_ZYM_KERNELS(dInvSqrt, InvSqrt)

}  // namespace orvik::zym
