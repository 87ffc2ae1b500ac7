// The distribution function of the normal distribution.
#pragma once

#include "zym/kernels/error/tail.h"

namespace orvik::zym {

// sCdfNorm LA:
// sCdfNorm HA:
// sCdfNorm EP:
// dCdfNorm LA:
// dCdfNorm HA:
// dCdfNorm EP:
template <class V, Level L>
struct CdfNorm : error::Tail<true, L, V> {};

}  // namespace orvik::zym
