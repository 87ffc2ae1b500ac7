#include "zym/kernels/explog/exp2.h"

#include "zym/skeleton/define.h"

namespace orvik::zym {

ORVIK_ZYM_KERNELS(sExp2, Exp2)
ORVIK_ZYM_KERNELS(sExp10, Exp10)

}  // namespace orvik::zym
