#include "zym/kernels/explog/ln.h"

#include "zym/skeleton/define.h"

namespace orvik::zym {

ORVIK_ZYM_KERNELS(sLn, Ln)

}  // namespace orvik::zym
