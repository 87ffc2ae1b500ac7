// Results of complex functions at infinite and NaN parts, as C99 Annex G states them (with the resolution of defect
// report 471: ctanh, cacosh and cacos on the imaginary axis). MPC gives all others, zeros with their signs included.
#pragma once

#include <mpc.h>

#include "accuracy/reference.h"

namespace orvik::accuracy::annex_g {

// Whether a part is infinite or a NaN.
bool applies(mpc_srcptr z);

// For such z only.
Stated exponential(mpc_ptr r, mpc_srcptr z);
Stated logarithm(mpc_ptr r, mpc_srcptr z);
Stated square_root(mpc_ptr r, mpc_srcptr z);
Stated hyperbolic_cosine(mpc_ptr r, mpc_srcptr z);
Stated hyperbolic_sine(mpc_ptr r, mpc_srcptr z);
Stated hyperbolic_tangent(mpc_ptr r, mpc_srcptr z);
Stated arc_cosine(mpc_ptr r, mpc_srcptr z);
Stated inverse_hyperbolic_cosine(mpc_ptr r, mpc_srcptr z);
Stated inverse_hyperbolic_sine(mpc_ptr r, mpc_srcptr z);
Stated inverse_hyperbolic_tangent(mpc_ptr r, mpc_srcptr z);

// By the rules of the standard's examples.
// For infinite and NaN parts of either operand; the quotient also for a divisor of zero.
Stated product(mpc_ptr r, mpc_srcptr a, mpc_srcptr b);
Stated quotient(mpc_ptr r, mpc_srcptr a, mpc_srcptr b);

}  // namespace orvik::accuracy::annex_g
