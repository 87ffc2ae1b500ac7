// Written by tools/approx from the rule in zym/kernels/explog/tables.h; do not edit.
#include "zym/kernels/explog/tables.h"

// clang-format off
namespace orvik::zym {

alignas(64) const float kExp2In64[2][8] = {
    {
        0x1p0f, 0x1.02c9a4p0f, 0x1.059b0ep0f, 0x1.087452p0f, 0x1.0b5586p0f, 0x1.0e3ec4p0f, 0x1.11301ep0f, 0x1.1429aap0f
    },
    {
        0.0f, -0x1.844542p-28f, -0x1.947414p-25f, -0x1.d32b6ep-26f, 0x1.8d96d4p-25f, -0x1.8f4da6p-25f, -0x1.dda2fcp-25f,
        0x1.b2e51p-25f
    },
};

}  // namespace orvik::zym
