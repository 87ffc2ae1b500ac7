// Written by tools/approx from the rule in zym/kernels/explog/tables.h; do not edit.
#include "zym/kernels/explog/tables.h"

// clang-format off
namespace orvik::zym {

alignas(64) const double kLnSixteenths[16][2] = {
    {0x1.314p896, -0x1.0a582f406e953p8}, {0x1.266p896, -0x1.0a4ee5d344de7p8}, {0x1.1c2p896, -0x1.0a45d337aba57p8},
    {0x1.12ap896, -0x1.0a3d1e7c4747fp8}, {0x1.09ap896, -0x1.0a3496c2d08dcp8}, {0x1p896, -0x1.0a2b23f3bab74p8},
    {0x1.e6ap895, -0x1.0a1e20b41903ap8}, {0x1.cb6p895, -0x1.0a0f60108baebp8}, {0x1.b3p895, -0x1.0a016afca7bfcp8},
    {0x1.9dp895, -0x1.09f421c55947p8}, {0x1.894p895, -0x1.09e7965f5ab2bp8}, {0x1.774p895, -0x1.09db97cf41362p8},
    {0x1.66cp895, -0x1.09d014df28876p8}, {0x1.57cp895, -0x1.09c525c18124cp8}, {0x1.49ep895, -0x1.09ba999ddff88p8},
    {0x1.3d2p895, -0x1.09b0825551496p8}
};

}  // namespace orvik::zym
