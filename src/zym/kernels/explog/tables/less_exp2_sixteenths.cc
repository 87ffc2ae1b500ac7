// Written by tools/approx from the rule in zym/kernels/explog/tables.h; do not edit.
#include "zym/kernels/explog/tables.h"

// clang-format off
namespace orvik::zym {

alignas(64) const double kLessExp2Sixteenths[16] = {
    0x1.2bec333018867p-2, 0x1.0bdd71829fcf2p-2, 0x1.d4c6af7557c93p-3, 0x1.8edb9f5703dcp-3, 0x1.45d819a94b14bp-3,
    0x1.f332113d56b1fp-4, 0x1.53f391822dbc7p-4, 0x1.5b505d5b6f268p-5, 0.0, -0x1.6ab0d9f3121ecp-5, -0x1.72b83c7d517aep-4,
    -0x1.1c3d373ab11c3p-3, -0x1.837f0518db8a9p-3, -0x1.ef5326091a112p-3, -0x1.2ff6b54d8a89cp-2, -0x1.6ac1f752150a5p-2
};

}  // namespace orvik::zym
