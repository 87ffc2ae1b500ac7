// Written by tools/approx from the rule in zym/kernels/power/tables.h; do not edit.
#include "zym/kernels/power/tables.h"

// clang-format off
namespace orvik::zym {

alignas(64) const float kElementFirst32[17][3] = {
    {0x1p0f, 0.0f, 0.0f}, {0x1.e2p-1f, 0x1.64ce26p-4f, 0x1.80ce2ap-29f}, {0x1.c8p-1f, 0x1.563dc2p-3f, 0x1.3ff596p-28f},
    {0x1.bp-1f, 0x1.f5fd8ap-3f, 0x1.20c7c6p-28f}, {0x1.9ap-1f, 0x1.48365ep-2f, 0x1.a575e6p-28f},
    {0x1.86p-1f, 0x1.9218p-2f, 0x1.249ba8p-27f}, {0x1.74p-1f, 0x1.d7e6cp-2f, 0x1.5786bp-27f},
    {0x1.64p-1f, 0x1.0c6caap-1f, 0x1.e18ab2p-26f}, {0x1.56p-1f, 0x1.2a0f3cp-1f, 0x1.a0382ep-28f},
    {0x1.48p-1f, 0x1.48eef2p-1f, -0x1.b3a19cp-27f}, {0x1.3cp-1f, 0x1.6476dap-1f, -0x1.d499bep-27f},
    {0x1.3p-1f, 0x1.810fa6p-1f, -0x1.c8134p-26f}, {0x1.24p-1f, 0x1.9ecf5p-1f, 0x1.7e87e2p-26f},
    {0x1.1ap-1f, 0x1.b88cbap-1f, -0x1.7552b8p-27f}, {0x1.12p-1f, 0x1.cdcebep-1f, -0x1.b918cep-26f},
    {0x1.08p-1f, 0x1.e9452cp-1f, 0x1.14e204p-26f}, {0x1p-1f, 0x1p0f, 0.0f}
};

}  // namespace orvik::zym
