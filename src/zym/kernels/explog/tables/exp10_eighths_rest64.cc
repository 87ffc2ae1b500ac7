// Written by tools/approx from the rule in zym/kernels/explog/tables.h; do not edit.
#include "zym/kernels/explog/tables.h"

// clang-format off
namespace orvik::zym {

alignas(64) const double kExp10EighthsRest64[8] = {
    0.0, -0x1.65e659e1a66bp-28, 0x1.9a45e4bf9441ap-29, -0x1.de1bac7cdb41p-29, -0x1.d8a2b86c13813p-30,
    0x1.385f5426c0f4p-29, 0x1.663fa614bcacfp-30, -0x1.6dca217f5c61bp-29
};

}  // namespace orvik::zym
