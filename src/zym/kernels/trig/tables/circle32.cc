// Written by tools/approx from the rule in zym/kernels/trig/tables.h; do not edit.
#include "zym/kernels/trig/tables.h"

// clang-format off
namespace orvik::zym::trig {

alignas(64) const float kCircle32[4][16] = {
    {
        0.0f, 0x1.8f8b84p-3f, 0x1.87de2ap-2f, 0x1.1c73b4p-1f, 0x1.6a09e6p-1f, 0x1.a9b662p-1f, 0x1.d906bcp-1f,
        0x1.f6297cp-1f, 0x1p0f, 0x1.f6297cp-1f, 0x1.d906bcp-1f, 0x1.a9b662p-1f, 0x1.6a09e6p-1f, 0x1.1c73b4p-1f,
        0x1.87de2ap-2f, 0x1.8f8b84p-3f
    },
    {
        0.0f, -0x1.cb2cfap-30f, 0x1.abaa58p-28f, -0x1.9465cep-27f, 0x1.9fcef4p-27f, 0x1.21d434p-26f, 0x1.e651a8p-26f,
        0x1.feeb96p-26f, 0.0f, 0x1.feeb96p-26f, 0x1.e651a8p-26f, 0x1.21d434p-26f, 0x1.9fcef4p-27f, -0x1.9465cep-27f,
        0x1.abaa58p-28f, -0x1.cb2cfap-30f
    },
    {
        0x1p0f, 0x1.f6297cp-1f, 0x1.d906bcp-1f, 0x1.a9b662p-1f, 0x1.6a09e6p-1f, 0x1.1c73b4p-1f, 0x1.87de2ap-2f,
        0x1.8f8b84p-3f, 0.0f, -0x1.8f8b84p-3f, -0x1.87de2ap-2f, -0x1.1c73b4p-1f, -0x1.6a09e6p-1f, -0x1.a9b662p-1f,
        -0x1.d906bcp-1f, -0x1.f6297cp-1f
    },
    {
        0.0f, 0x1.feeb96p-26f, 0x1.e651a8p-26f, 0x1.21d434p-26f, 0x1.9fcef4p-27f, -0x1.9465cep-27f, 0x1.abaa58p-28f,
        -0x1.cb2cfap-30f, 0.0f, 0x1.cb2cfap-30f, -0x1.abaa58p-28f, 0x1.9465cep-27f, -0x1.9fcef4p-27f, -0x1.21d434p-26f,
        -0x1.e651a8p-26f, -0x1.feeb96p-26f
    },
};

}  // namespace orvik::zym::trig
