// The complementary error function, 1 - erf(x).
#pragma once

#include "zym/kernels/error/tail.h"

namespace orvik::zym {

// sErfc LA:
// sErfc HA:
// sErfc EP:
// dErfc LA:
// dErfc HA:
// dErfc EP:
template <class V, Level L>
struct Erfc : error::Tail<false, L, V> {};

}  // namespace orvik::zym
