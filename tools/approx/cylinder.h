// Bessel functions for rules: values, expansions about the middle of an interval or the zero in it, what they become
// for large arguments.
#pragma once

#include "real.h"

namespace orvik::approx {

// Smooth functions that tables hold, by number:
//   0 to 5: J0 J1 Y0 Y1 I0 I1;
//   6, 7: with v = 1/x^2: the modulus of orders 0 and 1, (sqrt(pi x/2 (J^2 + Y^2)) - 1) / v;
//   8, 9: with v = 1/x^2: the phase of orders 0 and 1 less x - (2 order + 1) pi/4, times x;
//   10, 11: with u = 1/x: sqrt(2 pi x) e^-x I(x) less 1 - (4 order^2 - 1) u/8, divided by u^2.
Real cylinder(int function, const Real& x);
Real cylinder_slope(int function, const Real& x);  // of 0 to 5

// The double nearest to the zero of a function (0 to 5) between two places, their middle where there is none or it is
// 0.
Real cylinder_centre(int function, const Real& from, const Real& to);

// Where one of the growing functions 4 and 5 has a value.
Real cylinder_inverse(int function, const Real& value);

// Coefficient k of the polynomial with n coefficients in x - c that meets the rest of a function at the Chebyshev
// points of an interval. Rest: with first = 0 the function itself, with first = 1 (f(x) - f(c)) / (x - c), with first =
// 2 (f(x) - f(c) - f'(c) (x - c)) / (x - c)^2.
Real cylinder_rest(int function, int first, const Real& from, const Real& to, const Real& c, int n, int k);

}  // namespace orvik::approx
