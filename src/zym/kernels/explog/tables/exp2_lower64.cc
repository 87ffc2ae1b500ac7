// Written by tools/approx from the rule in zym/kernels/explog/tables.h; do not edit.
#include "zym/kernels/explog/tables.h"

// clang-format off
namespace orvik::zym {

alignas(64) const double kExp2Lower64[2][8] = {
    {
        0x1p0, 0x1.02c9a4p0, 0x1.059b0d4p0, 0x1.0874518p0, 0x1.0b5586cp0, 0x1.0e3ec34p0, 0x1.11301dp0, 0x1.1429abp0
    },
    {
        0.0, -0x1.1813f6cf4ea72p-27, -0x1.4b085733b1546p-28, 0x1.487f73a54a8c3p-29, 0x1.58bd91c6bf0e8p-28,
        -0x1.9a3de8e0e66c7p-28, 0x1.8d12081bea4e3p-32, -0x1.ca79d7705dd19p-28
    },
};

}  // namespace orvik::zym
