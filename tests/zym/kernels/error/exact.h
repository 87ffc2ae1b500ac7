// The error functions in long double, a few units of its last place at most from the exact values.
#pragma once

#include <cmath>
#include <limits>

namespace orvik::test {

using Extended = long double;

inline Extended exact_erf(Extended x) { return std::erf(x); }
inline Extended exact_erfc(Extended x) { return std::erfc(x); }

// erfc(-x / sqrt(2)) / 2; what the quotient's rounding leaves out changes the tail by 2 z times as much, relative.
inline Extended exact_cdf_norm(Extended x) {
  constexpr Extended head = 0xB.504F333F9DE6484p-4L, tail = 0x1.65F626CDD52AFp-66L;  // 1/sqrt(2)
  const Extended z = -x * head;
  const Extended low = std::fma(-x, head, -z) - x * tail;
  return (std::erfc(z) - low * (2 / std::sqrt(3.14159265358979323846L)) * std::exp(-z * z)) / 2;
}

// e^(x^2) erfc(x), the square in two parts; from 30 on nine terms of Hankel's series leave 2^-75 of it.
inline Extended exact_erfcx(Extended x) {
  if (x >= 30) {
    const Extended s = 1 / (2 * x * x);
    Extended sum = 1;
    for (int k = 9; k > 0; --k) sum = 1 - static_cast<Extended>(2 * k - 1) * s * sum;
    return sum / (x * std::sqrt(3.14159265358979323846L));
  }
  const Extended square = x * x, low = std::fma(x, x, -square);
  return std::exp(square) * (1 + low) * std::erfc(x);
}

struct ErrorFunction {
  const char* name;
  Extended (*exact)(Extended);
};
inline constexpr ErrorFunction kErrorFunctions[] = {
    {"Erf", exact_erf}, {"Erfc", exact_erfc}, {"CdfNorm", exact_cdf_norm}, {"Erfcx", exact_erfcx}};

// How far r is from the exact value, in units of the last place of E at it, denormal numbers included.
template <class E>
Extended units_off(E r, Extended want) {
  using L = std::numeric_limits<E>;
  const Extended magnitude = std::fabs(want);
  const int exponent = magnitude < static_cast<Extended>(L::min()) ? L::min_exponent - 1 : std::ilogb(magnitude);
  return std::fabs(static_cast<Extended>(r) - want) / std::ldexp(Extended(1), exponent + 1 - L::digits);
}

}  // namespace orvik::test
