// Written by tools/approx from the rule in zym/kernels/explog/tables.h; do not edit.
#include "zym/kernels/explog/tables.h"

// clang-format off
namespace orvik::zym {

alignas(64) const double kLog2Sixteenths[16][2] = {
    {0x1.314p896, -0x1.8040fc2616315p8}, {0x1.266p896, -0x1.8033963f5a66bp8}, {0x1.1c2p896, -0x1.80267f6ec5fb1p8},
    {0x1.12ap896, -0x1.8019f00d56b4dp8}, {0x1.09ap896, -0x1.800da19a88666p8}, {0x1p896, -0x1.8p8},
    {0x1.e6ap895, -0x1.7fed3a0633575p8}, {0x1.cb6p895, -0x1.7fd7f17c6d65cp8}, {0x1.b3p895, -0x1.7fc3ce9fe3d9ep8},
    {0x1.9dp895, -0x1.7fb0a3b5018d9p8}, {0x1.894p895, -0x1.7f9e8aa373d39p8}, {0x1.774p895, -0x1.7f8d3cc0ac98p8},
    {0x1.66cp895, -0x1.7f7ca13850292p8}, {0x1.57cp895, -0x1.7f6cdaf30e68fp8}, {0x1.49ep895, -0x1.7f5da378d7666p8},
    {0x1.3d2p895, -0x1.7f4f1494f3ef1p8}
};

}  // namespace orvik::zym
