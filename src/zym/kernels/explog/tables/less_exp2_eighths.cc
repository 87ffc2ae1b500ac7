// Written by tools/approx from the rule in zym/kernels/explog/tables.h; do not edit.
#include "zym/kernels/explog/tables.h"

// clang-format off
namespace orvik::zym {

alignas(64) const float kLessExp2Eighths[8] = {
    0x1.2bec34p-2f, 0x1.d4c6bp-3f, 0x1.45d81ap-3f, 0x1.53f392p-4f, 0.0f, -0x1.72b83cp-4f, -0x1.837f06p-3f,
    -0x1.2ff6b6p-2f
};

}  // namespace orvik::zym
