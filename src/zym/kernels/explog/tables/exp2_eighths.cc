// Written by tools/approx from the rule in zym/kernels/explog/tables.h; do not edit.
#include "zym/kernels/explog/tables.h"

// clang-format off
namespace orvik::zym {

alignas(64) const float kExp2Eighths[2][8] = {
    {
        0x1p0f, 0x1.172b84p0f, 0x1.306fep0f, 0x1.4bfdaep0f, 0x1.6a09e6p0f, 0x1.8ace54p0f, 0x1.ae89fap0f, 0x1.d5818ep0f
    },
    {
        0.0f, -0x1.9c0c22p-27f, 0x1.125002p-25f, -0x1.0a355p-25f, 0x1.26055cp-26f, 0x1.67a1cap-28f, -0x1.f9c304p-27f,
        -0x1.a5217cp-28f
    },
};

}  // namespace orvik::zym
