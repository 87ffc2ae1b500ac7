// The complementary error function, 1 - erf(x).
#pragma once

#include "zym/kernels/error/tail.h"

namespace orvik::zym {

// sErfc LA: 2.8638 ulp at 0x1.c247b2p+2
// sErfc HA: 0.5020 ulp at 0x1.fea004p-9
// sErfc EP: 11.23 bits at 0x1.85bc2ep+2
// dErfc LA: 2.2593 ulp at 0x1.ff97eecae4f46p+2
// dErfc HA: 0.5140 ulp at 0x1.d7b767e6f4cd6p+2
// dErfc EP: 32.99 bits at 0x1.fffffffffffffp-9
template <class V, Level L>
struct Erfc : error::Tail<false, L, V> {};

}  // namespace orvik::zym
