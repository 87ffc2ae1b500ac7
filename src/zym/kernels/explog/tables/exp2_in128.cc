// Written by tools/approx from the rule in zym/kernels/explog/tables.h; do not edit.
#include "zym/kernels/explog/tables.h"

// clang-format off
namespace orvik::zym {

alignas(64) const float kExp2In128[2][8] = {
    {
        0x1p0f, 0x1.0163dap0f, 0x1.02c9a4p0f, 0x1.04315ep0f, 0x1.059b0ep0f, 0x1.0706b2p0f, 0x1.087452p0f, 0x1.09e3ecp0f
    },
    {
        0.0f, 0x1.3dacd2p-25f, -0x1.844542p-28f, 0x1.0976e4p-25f, -0x1.947414p-25f, 0x1.334fa4p-25f, -0x1.d32b6ep-26f,
        0x1.4c0a74p-25f
    },
};

}  // namespace orvik::zym
