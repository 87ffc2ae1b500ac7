#include "zym/kernels/explog/exp.h"

#include "zym/skeleton/define.h"

namespace orvik::zym {

ORVIK_ZYM_KERNELS(sExp, Exp)

}  // namespace orvik::zym
