// Written by tools/approx from the rule in zym/kernels/power/tables.h; do not edit.
#include "zym/kernels/power/tables.h"

// clang-format off
namespace orvik::zym {

alignas(64) const float kElementSecond32[16][3] = {
    {0x1p0f, 0.0f, 0.0f}, {0x1.f8p-1f, 0x1.743ee8p-6f, 0x1.87cd56p-32f}, {0x1.f08p-1f, 0x1.6b50e2p-5f, 0x1.2f5f9ap-30f},
    {0x1.e9p-1f, 0x1.0f9a64p-4f, -0x1.7338a4p-29f}, {0x1.e2p-1f, 0x1.64ce26p-4f, 0x1.80ce2ap-29f},
    {0x1.dbp-1f, 0x1.bb4102p-4f, 0x1.f24a72p-29f}, {0x1.d4p-1f, 0x1.097e38p-3f, 0x1.9cc0cap-28f},
    {0x1.cd8p-1f, 0x1.32d13ep-3f, 0x1.1a4baep-29f}, {0x1.248p0f, -0x1.89d0dp-3f, -0x1.56861ap-28f},
    {0x1.1f8p0f, -0x1.56df54p-3f, 0x1.ae54e8p-28f}, {0x1.1a8p0f, -0x1.230906p-3f, -0x1.74a5e4p-29f},
    {0x1.15cp0f, -0x1.e1ddbcp-4f, 0x1.bbc4p-30f}, {0x1.11p0f, -0x1.7beeeap-4f, 0x1.28ebbp-29f},
    {0x1.0c8p0f, -0x1.19b74p-4f, -0x1.a7d7c2p-30f}, {0x1.084p0f, -0x1.76dcf8p-5f, 0x1.b8a972p-30f},
    {0x1.04p0f, -0x1.6e7968p-6f, -0x1.70b48ap-32f}
};

}  // namespace orvik::zym
