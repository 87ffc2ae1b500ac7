// Written by tools/approx from the rule in zym/kernels/explog/tables.h; do not edit.
#include "zym/kernels/explog/tables.h"

// clang-format off
namespace orvik::zym {

alignas(64) const float kExp2Sixteenths[2][16] = {
    {
        0x1p0f, 0x1.0b5586p0f, 0x1.172b84p0f, 0x1.2387a6p0f, 0x1.306fep0f, 0x1.3dea64p0f, 0x1.4bfdaep0f, 0x1.5ab07ep0f,
        0x1.6a09e6p0f, 0x1.7a1148p0f, 0x1.8ace54p0f, 0x1.9c4918p0f, 0x1.ae89fap0f, 0x1.c199bep0f, 0x1.d5818ep0f,
        0x1.ea4afap0f
    },
    {
        0.0f, 0x1.8d96d4p-25f, -0x1.9c0c22p-27f, 0x1.964904p-25f, 0x1.125002p-25f, 0x1.370be4p-25f, -0x1.0a355p-25f,
        -0x1.00d8acp-27f, 0x1.26055cp-26f, -0x1.05cb44p-25f, 0x1.67a1cap-28f, 0x1.a3b5e4p-28f, -0x1.f9c304p-27f,
        -0x1.6961b4p-28f, -0x1.a5217cp-28f, 0x1.61428ep-28f
    },
};

}  // namespace orvik::zym
