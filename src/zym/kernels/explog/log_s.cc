#include "zym/kernels/explog/log.h"

#include "zym/skeleton/define.h"

namespace orvik::zym {

ORVIK_ZYM_KERNELS(sLog2, Log2)
ORVIK_ZYM_KERNELS(sLog10, Log10)

}  // namespace orvik::zym
