// The inverse error function over its argument, in a variable in which it is smooth from 0 to the smallest tails:
//   P(w) = erfinv(t) / t,  t = sqrt(1 - e^-w).
#pragma once

#include "real.h"

namespace orvik::approx {

// The coefficient of x^k in P(w + x), k at most 15; w >= 0, and above 0 for k > 0.
Real inverse_error_term(const Real& w, long k);

}  // namespace orvik::approx
