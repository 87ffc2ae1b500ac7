#include "zym/kernels/roots/hypot.h"
#include "zym/kernels/roots/inv.h"
#include "zym/kernels/roots/pow3o2.h"
#include "zym/kernels/roots/sqrt.h"

#include "zym/skeleton/define.h"

namespace orvik::zym {

ORVIK_ZYM_KERNELS(dInv, Inv)
ORVIK_ZYM_KERNELS(dDiv, Div)
ORVIK_ZYM_KERNELS(dSqrt, Sqrt)
ORVIK_ZYM_KERNELS(dInvSqrt, InvSqrt)
ORVIK_ZYM_KERNELS(dHypot, Hypot)
ORVIK_ZYM_KERNELS(dPow3o2, Pow3o2)

}  // namespace orvik::zym
