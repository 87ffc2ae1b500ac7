// Written by tools/approx from the rule in zym/kernels/trig/tables.h; do not edit.
#include "zym/kernels/trig/tables.h"

// clang-format off
namespace orvik::zym::trig {

alignas(64) const double kCircle64[4][16] = {
    {
        0.0, 0x1.8f8b83c69a60bp-3, 0x1.87de2a6aea963p-2, 0x1.1c73b39ae68c8p-1, 0x1.6a09e667f3bcdp-1,
        0x1.a9b66290ea1a3p-1, 0x1.d906bcf328d46p-1, 0x1.f6297cff75cbp-1, 0x1p0, 0x1.f6297cff75cbp-1,
        0x1.d906bcf328d46p-1, 0x1.a9b66290ea1a3p-1, 0x1.6a09e667f3bcdp-1, 0x1.1c73b39ae68c8p-1, 0x1.87de2a6aea963p-2,
        0x1.8f8b83c69a60bp-3
    },
    {
        0.0, -0x1.459c4c57a2f17p-57, -0x1.72cedd3d5a61p-57, 0x1.b25dd267f66p-55, -0x1.bdd3413b26456p-55,
        0x1.9f630e8b6dac8p-60, 0x1.457e610231ac2p-56, 0x1.562172a361fd3p-56, 0.0, 0x1.562172a361fd3p-56,
        0x1.457e610231ac2p-56, 0x1.9f630e8b6dac8p-60, -0x1.bdd3413b26456p-55, 0x1.b25dd267f66p-55,
        -0x1.72cedd3d5a61p-57, -0x1.459c4c57a2f17p-57
    },
    {
        0x1p0, 0x1.f6297cff75cbp-1, 0x1.d906bcf328d46p-1, 0x1.a9b66290ea1a3p-1, 0x1.6a09e667f3bcdp-1,
        0x1.1c73b39ae68c8p-1, 0x1.87de2a6aea963p-2, 0x1.8f8b83c69a60bp-3, 0.0, -0x1.8f8b83c69a60bp-3,
        -0x1.87de2a6aea963p-2, -0x1.1c73b39ae68c8p-1, -0x1.6a09e667f3bcdp-1, -0x1.a9b66290ea1a3p-1,
        -0x1.d906bcf328d46p-1, -0x1.f6297cff75cbp-1
    },
    {
        0.0, 0x1.562172a361fd3p-56, 0x1.457e610231ac2p-56, 0x1.9f630e8b6dac8p-60, -0x1.bdd3413b26456p-55,
        0x1.b25dd267f66p-55, -0x1.72cedd3d5a61p-57, -0x1.459c4c57a2f17p-57, 0.0, 0x1.459c4c57a2f17p-57,
        0x1.72cedd3d5a61p-57, -0x1.b25dd267f66p-55, 0x1.bdd3413b26456p-55, -0x1.9f630e8b6dac8p-60,
        -0x1.457e610231ac2p-56, -0x1.562172a361fd3p-56
    },
};

}  // namespace orvik::zym::trig
