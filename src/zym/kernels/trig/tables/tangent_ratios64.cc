// Written by tools/approx from the rule in zym/kernels/trig/tables.h; do not edit.
#include "zym/kernels/trig/tables.h"

// clang-format off
namespace orvik::zym::trig {

alignas(64) const double kTangentRatios64[2][16] = {
    {
        0.0, 0x1.96dbd37p28, 0x1.38be2424p30, 0x1.99a3b7cp29, 0x1p0, 0x1.3288d0bcp30, 0x1.79838db4p31, 0x1.ff5aac9cp30,
        0x1p0, -0x1.ff5aac9cp30, -0x1.79838db4p31, -0x1.3288d0bcp30, -0x1p0, -0x1.99a3b7cp29, -0x1.38be2424p30,
        -0x1.96dbd37p28
    },
    {
        0x1p0, 0x1.ff5aac9cp30, 0x1.79838db4p31, 0x1.3288d0bcp30, 0x1p0, 0x1.99a3b7cp29, 0x1.38be2424p30,
        0x1.96dbd37p28, 0.0, 0x1.96dbd37p28, 0x1.38be2424p30, 0x1.99a3b7cp29, 0x1p0, 0x1.3288d0bcp30, 0x1.79838db4p31,
        0x1.ff5aac9cp30
    },
};

}  // namespace orvik::zym::trig
