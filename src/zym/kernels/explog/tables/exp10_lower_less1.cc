// Written by tools/approx from the rule in zym/kernels/explog/tables.h; do not edit.
#include "zym/kernels/explog/tables.h"

// clang-format off
namespace orvik::zym {

alignas(64) const float kExp10LowerLess1[8] = {
    -0x1.5f134ap-6f, -0x1.0804a4p-6f, -0x1.60f9fap-7f, -0x1.61eea4p-8f, 0.0f, 0x1.63daap-8f, 0x1.64d1f4p-7f,
    0x1.0c57a2p-6f
};

}  // namespace orvik::zym
