// Written by tools/approx from the rule in zym/kernels/explog/tables.h; do not edit.
#include "zym/kernels/explog/tables.h"

// clang-format off
namespace orvik::zym {

alignas(64) const float kReciprocalSixteenths[16] = {
    0x1.314p0f, 0x1.266p0f, 0x1.1c2p0f, 0x1.12ap0f, 0x1.09ap0f, 0x1p0f, 0x1.e6ap-1f, 0x1.cb6p-1f, 0x1.b3p-1f,
    0x1.9dp-1f, 0x1.894p-1f, 0x1.774p-1f, 0x1.66cp-1f, 0x1.57cp-1f, 0x1.49ep-1f, 0x1.3d2p-1f
};

}  // namespace orvik::zym
