#include "zym/kernels/explog/log1p.h"

#include "zym/skeleton/define.h"

namespace orvik::zym {

ORVIK_ZYM_KERNELS(sLog1p, Log1p)

}  // namespace orvik::zym
