#include "zym/kernels/roots/cbrt.h"

#include "zym/skeleton/define.h"

namespace orvik::zym {

ORVIK_ZYM_KERNELS(dCbrt, Cbrt)
ORVIK_ZYM_KERNELS(dInvCbrt, InvCbrt)
ORVIK_ZYM_KERNELS(dPow2o3, Pow2o3)

}  // namespace orvik::zym
