// Written by tools/approx from the rule in zym/kernels/explog/tables.h; do not edit.
#include "zym/kernels/explog/tables.h"

// clang-format off
namespace orvik::zym {

alignas(64) const float kExp10SixteenthsRest32[16] = {
    0x1p-100f, 0x1.59577p-26f, -0x1.65e65ap-28f, 0x1.60e514p-26f, 0x1.dc8798p-27f, 0x1.0e2be8p-26f, -0x1.ce737ep-27f,
    -0x1.be3016p-29f, 0x1.fec446p-28f, -0x1.c6c864p-27f, 0x1.385f54p-29f, 0x1.6c8e5p-29f, -0x1.b74c92p-28f,
    -0x1.39e462p-29f, -0x1.6dca22p-29f, 0x1.32d674p-29f
};

}  // namespace orvik::zym
