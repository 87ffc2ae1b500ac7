// Written by tools/approx from the rule in zym/kernels/explog/tables.h; do not edit.
#include "zym/kernels/explog/tables.h"

// clang-format off
namespace orvik::zym {

alignas(64) const float kExp2LowerLess1[8] = {
    -0x1.5b505ep-5f, -0x1.05e412p-5f, -0x1.5f134ap-6f, -0x1.60f9fap-7f, 0.0f, 0x1.64d1f4p-7f, 0x1.66c34cp-6f,
    0x1.0e8a3p-5f
};

}  // namespace orvik::zym
