// The vector kernels that statistics use, reached through their dispatch table rows.
#pragma once

#include <cstdint>

namespace orvik::ss {

// r = 1 / sqrt(a), low accuracy level, no element reported outside: where a is not above zero, r is a NaN.
template <class T>
void inverse_square_roots(int32_t n, const T* a, T* r);

// One number by the high accuracy level.
template <class T>
T kernel_sqrt(T x);
template <class T>
T kernel_ln(T x);
double kernel_lgamma(double x);
double kernel_erf_inv(double x);

}  // namespace orvik::ss
