#include "zym/kernels/roots/cbrt.h"

#include "zym/skeleton/define.h"

namespace orvik::zym {

ORVIK_ZYM_KERNELS(sCbrt, Cbrt)
ORVIK_ZYM_KERNELS(sInvCbrt, InvCbrt)
ORVIK_ZYM_KERNELS(sPow2o3, Pow2o3)

}  // namespace orvik::zym
