// Written by tools/approx from the rule in zym/kernels/explog/tables.h; do not edit.
#include "zym/kernels/explog/tables.h"

// clang-format off
namespace orvik::zym {

alignas(64) const double kLog10Sixteenths[16][2] = {
    {0x1.314p896, -0x1.ceb00f7a428aap6}, {0x1.266p896, -0x1.ce9fed770266dp6}, {0x1.1c2p896, -0x1.ce902aae8ea4p6},
    {0x1.12ap896, -0x1.ce810afa52d9ep6}, {0x1.09ap896, -0x1.ce723975bac4ap6}, {0x1p896, -0x1.ce61cf8ef37p6},
    {0x1.e6ap895, -0x1.ce4b349641104p6}, {0x1.cb6p895, -0x1.ce3193e4ab15bp6}, {0x1.b3p895, -0x1.ce1954d24f9a2p6},
    {0x1.9dp895, -0x1.ce02404dd9112p6}, {0x1.894p895, -0x1.cdec75889d337p6}, {0x1.774p895, -0x1.cdd79f6b691ecp6},
    {0x1.66cp895, -0x1.cdc3a0106b712p6}, {0x1.57cp895, -0x1.cdb0a1807c16ap6}, {0x1.49ep895, -0x1.cd9e4ee134cb9p6},
    {0x1.3d2p895, -0x1.cd8cc741bb1dp6}
};

}  // namespace orvik::zym
