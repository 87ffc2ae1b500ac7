#include "zym/kernels/roots/hypot.h"
#include "zym/kernels/roots/inv.h"
#include "zym/kernels/roots/pow3o2.h"
#include "zym/kernels/roots/sqrt.h"

#include "zym/skeleton/define.h"

namespace orvik::zym {

ORVIK_ZYM_KERNELS(sInv, Inv)
ORVIK_ZYM_KERNELS(sDiv, Div)
ORVIK_ZYM_KERNELS(sSqrt, Sqrt)
ORVIK_ZYM_KERNELS(sInvSqrt, InvSqrt)
ORVIK_ZYM_KERNELS(sHypot, Hypot)
ORVIK_ZYM_KERNELS(sPow3o2, Pow3o2)

}  // namespace orvik::zym
