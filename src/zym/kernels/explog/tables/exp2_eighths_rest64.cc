// Written by tools/approx from the rule in zym/kernels/explog/tables.h; do not edit.
#include "zym/kernels/explog/tables.h"

// clang-format off
namespace orvik::zym {

alignas(64) const double kExp2EighthsRest64[8] = {
    0.0, -0x1.293ab72ee2ecdp-26, 0x1.54b97044806f7p-27, -0x1.8d0f6827b2b36p-27, -0x1.8883f0b4a9f69p-28,
    0x1.036b6dd1e4bfep-27, 0x1.2984e02afe3fap-28, -0x1.2fc81b38ae1c3p-27
};

}  // namespace orvik::zym
