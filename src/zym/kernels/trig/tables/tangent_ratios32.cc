// Written by tools/approx from the rule in zym/kernels/trig/tables.h; do not edit.
#include "zym/kernels/trig/tables.h"

// clang-format off
namespace orvik::zym::trig {

alignas(64) const float kTangentRatios32[2][16] = {
    {
        0.0f, 0x1.cb8p12f, 0x1.b12p13f, 0x1.b0b8p14f, 0x1p0f, 0x1.43cep15f, 0x1.056ap15f, 0x1.20c2p15f, 0x1p0f,
        -0x1.20c2p15f, -0x1.056ap15f, -0x1.43cep15f, -0x1p0f, -0x1.b0b8p14f, -0x1.b12p13f, -0x1.cb8p12f
    },
    {
        0x1p0f, 0x1.20c2p15f, 0x1.056ap15f, 0x1.43cep15f, 0x1p0f, 0x1.b0b8p14f, 0x1.b12p13f, 0x1.cb8p12f, 0.0f,
        0x1.cb8p12f, 0x1.b12p13f, 0x1.b0b8p14f, 0x1p0f, 0x1.43cep15f, 0x1.056ap15f, 0x1.20c2p15f
    },
};

}  // namespace orvik::zym::trig
