#include "zym/kernels/explog/log.h"

#include "zym/skeleton/define.h"

namespace orvik::zym {

ORVIK_ZYM_KERNELS(dLog2, Log2)
ORVIK_ZYM_KERNELS(dLog10, Log10)

}  // namespace orvik::zym
