// Written by tools/approx from the rule in zym/kernels/power/tables.h; do not edit.
#include "zym/kernels/power/tables.h"

// clang-format off
namespace orvik::zym {

alignas(64) const float kLog2Octet[2][8] = {
    {
        0.0f, -0x1.5cp-3f, -0x1.49a8p-2f, -0x1.d674p-2f, -0x1.2b8p-1f, -0x1.66ap-1f, -0x1.9d5ep-1f, -0x1.d054p-1f
    },
    {
        0.0f, -0x1.a39fbep-19f, 0x1.ed0cbap-20f, -0x1.3e032ep-18f, -0x1.a39fbep-20f, -0x1.1c8f12p-22f, 0x1.80abfcp-19f,
        0x1.25b3eep-22f
    },
};

}  // namespace orvik::zym
