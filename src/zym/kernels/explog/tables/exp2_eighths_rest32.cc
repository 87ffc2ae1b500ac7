// Written by tools/approx from the rule in zym/kernels/explog/tables.h; do not edit.
#include "zym/kernels/explog/tables.h"

// clang-format off
namespace orvik::zym {

alignas(64) const float kExp2EighthsRest32[8] = {
    0x1p-100f, -0x1.293ab8p-26f, 0x1.8bbfd2p-25f, -0x1.800eaep-25f, 0x1.a82ebcp-26f, 0x1.036b6ep-27f, -0x1.6cd47cp-26f,
    -0x1.2fc81cp-27f
};

}  // namespace orvik::zym
