// Written by tools/approx from the rule in zym/kernels/explog/tables.h; do not edit.
#include "zym/kernels/explog/tables.h"

// clang-format off
namespace orvik::zym {

alignas(64) const double kLessExp2In128[8] = {
    0x1.5f134923757f3p-6, 0x1.0804a4c683d8fp-6, 0x1.60f9f985bc9f4p-7, 0x1.61eea3847077bp-8, 0.0, -0x1.63da9fb33356ep-8,
    -0x1.64d1f3bc03077p-7, -0x1.0c57a1b9fe12fp-6
};

}  // namespace orvik::zym
