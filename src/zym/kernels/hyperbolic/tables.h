// Tables of the hyperbolic tangent. Numbers by tools/approx from the lines marked //:.
#pragma once

namespace orvik::zym::hyperbolic {

// tanh and its derivative at i/32; the same and what both lack.
//: value = tanh(i/32)
//: slope = 1 - tanh(i/32)^2
extern const double kTanhSteps[641][2];
//: value = tanh(i/32)
//: slope = 1 - tanh(i/32)^2
//: value_tail = tanh(i/32) - value
//: slope_tail = 1 - tanh(i/32)^2 - slope
extern const double kTanhStepPairs[641][4];

}  // namespace orvik::zym::hyperbolic
