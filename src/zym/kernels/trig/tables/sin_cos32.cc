// Written by tools/approx from the rule in zym/kernels/trig/tables.h; do not edit.
#include "zym/kernels/trig/tables.h"

// clang-format off
namespace orvik::zym::trig {

alignas(64) const double kSinCos32[32][2] = {
    {0.0, 0x1p0}, {0x1.917a6bc29b42cp-4, 0x1.fd88da3d12526p-1}, {0x1.8f8b83c69a60bp-3, 0x1.f6297cff75cbp-1},
    {0x1.294062ed59f06p-2, 0x1.e9f4156c62ddap-1}, {0x1.87de2a6aea963p-2, 0x1.d906bcf328d46p-1},
    {0x1.e2b5d3806f63bp-2, 0x1.c38b2f180bdb1p-1}, {0x1.1c73b39ae68c8p-1, 0x1.a9b66290ea1a3p-1},
    {0x1.44cf325091dd6p-1, 0x1.8bc806b151741p-1}, {0x1.6a09e667f3bcdp-1, 0x1.6a09e667f3bcdp-1},
    {0x1.8bc806b151741p-1, 0x1.44cf325091dd6p-1}, {0x1.a9b66290ea1a3p-1, 0x1.1c73b39ae68c8p-1},
    {0x1.c38b2f180bdb1p-1, 0x1.e2b5d3806f63bp-2}, {0x1.d906bcf328d46p-1, 0x1.87de2a6aea963p-2},
    {0x1.e9f4156c62ddap-1, 0x1.294062ed59f06p-2}, {0x1.f6297cff75cbp-1, 0x1.8f8b83c69a60bp-3},
    {0x1.fd88da3d12526p-1, 0x1.917a6bc29b42cp-4}, {0x1p0, 0.0}, {0x1.fd88da3d12526p-1, -0x1.917a6bc29b42cp-4},
    {0x1.f6297cff75cbp-1, -0x1.8f8b83c69a60bp-3}, {0x1.e9f4156c62ddap-1, -0x1.294062ed59f06p-2},
    {0x1.d906bcf328d46p-1, -0x1.87de2a6aea963p-2}, {0x1.c38b2f180bdb1p-1, -0x1.e2b5d3806f63bp-2},
    {0x1.a9b66290ea1a3p-1, -0x1.1c73b39ae68c8p-1}, {0x1.8bc806b151741p-1, -0x1.44cf325091dd6p-1},
    {0x1.6a09e667f3bcdp-1, -0x1.6a09e667f3bcdp-1}, {0x1.44cf325091dd6p-1, -0x1.8bc806b151741p-1},
    {0x1.1c73b39ae68c8p-1, -0x1.a9b66290ea1a3p-1}, {0x1.e2b5d3806f63bp-2, -0x1.c38b2f180bdb1p-1},
    {0x1.87de2a6aea963p-2, -0x1.d906bcf328d46p-1}, {0x1.294062ed59f06p-2, -0x1.e9f4156c62ddap-1},
    {0x1.8f8b83c69a60bp-3, -0x1.f6297cff75cbp-1}, {0x1.917a6bc29b42cp-4, -0x1.fd88da3d12526p-1}
};

}  // namespace orvik::zym::trig
