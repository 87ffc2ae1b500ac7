// Written by tools/approx from the rule in zym/kernels/power/tables.h; do not edit.
#include "zym/kernels/power/tables.h"

// clang-format off
namespace orvik::zym {

alignas(64) const uint32_t kExp2OctetFields[8] = {
    0x00000000, 0xfffb95c2, 0xfff837f0, 0xfff5fed7, 0xfff504f3, 0xfff5672a, 0xfff744fd, 0xfffac0c7
};

}  // namespace orvik::zym
