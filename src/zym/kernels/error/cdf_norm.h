// The distribution function of the normal distribution.
#pragma once

#include "zym/kernels/error/tail.h"

namespace orvik::zym {

// sCdfNorm LA: 2.9108 ulp at -0x1.3e78ap+3
// sCdfNorm HA: 0.5020 ulp at -0x1.693f62p-8
// sCdfNorm EP: 11.22 bits at -0x1.10ff26p+3
// dCdfNorm LA: 2.0567 ulp at -0x1.71fefb314fccp+2
// dCdfNorm HA: 0.5325 ulp at -0x1.4081b076ee3d7p+3
// dCdfNorm EP: 33.03 bits at -0x1.67efdae1b783dp-8
template <class V, Level L>
struct CdfNorm : error::Tail<true, L, V> {};

}  // namespace orvik::zym
