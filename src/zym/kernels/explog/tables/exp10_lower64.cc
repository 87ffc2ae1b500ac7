// Written by tools/approx from the rule in zym/kernels/explog/tables.h; do not edit.
#include "zym/kernels/explog/tables.h"

// clang-format off
namespace orvik::zym {

alignas(64) const double kExp10Lower64[2][8] = {
    {
        0x1p0, 0x1.02c9a4p0, 0x1.059b0d4p0, 0x1.0874518p0, 0x1.0b5586cp0, 0x1.0e3ec34p0, 0x1.11301dp0, 0x1.1429abp0
    },
    {
        0.0, -0x1.513f5c0a1efaep-29, -0x1.8e9a5a9df3063p-30, 0x1.8b8d038e67d51p-31, 0x1.9f1be2f1cca28p-30,
        -0x1.edfafae5808abp-30, 0x1.de1ed599d6611p-34, -0x1.1407af8ffbe26p-29
    },
};

}  // namespace orvik::zym
