#include "zym/kernels/explog/expm1.h"

#include "zym/skeleton/define.h"

namespace orvik::zym {

ORVIK_ZYM_KERNELS(sExpm1, Expm1)

}  // namespace orvik::zym
