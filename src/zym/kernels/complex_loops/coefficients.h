// Polynomials of the complex element loops, coefficients from the highest power down. Numbers by tools/approx from the
// lines marked //:.
#pragma once

namespace orvik::zym::complex_loops {

// Steps of 1/128 in the tangent.
//: x + x^3 * p(x^2) = atan(x) on [2^-30, 0.00391], relative error 2^-72.3
//: fit complex_loops/coefficients.sollya
inline constexpr double kArcTangentRest[3] = {-0x1.2490e7f47d842p-3, 0x1.999999990b142p-3, -0x1.5555555555555p-2};

// Steps of ln(2)/64.
//: x + x^3 * p(x^2) = sinh(x) on [2^-30, 0.00542], relative error 2^-60.4
//: fit complex_loops/coefficients.sollya
inline constexpr double kSinhRest[2] = {0x1.11111d958b6c7p-7, 0x1.5555555555252p-3};
//: 1 + x^2 * p(x^2) = cosh(x) on [2^-30, 0.00542], relative error 2^-80.2
//: fit complex_loops/coefficients.sollya
inline constexpr double kCoshRest[3] = {0x1.6c16d2f1fdd97p-10, 0x1.555555555501p-5, 0x1p-1};

// Reciprocals of ten bits.
//: x - x^2/2 + x^3 * p(x) = log(1 + x) on [-0.000977, 0.000977], relative error 2^-76.3
//: fit complex_loops/coefficients.sollya
inline constexpr double kLogRest[5] = {
    0x1.24704cb6e26a1p-3, -0x1.5555695991ff5p-3, 0x1.9999999c43279p-3, -0x1.ffffffffffafep-3, 0x1.5555555555555p-2
};

}  // namespace orvik::zym::complex_loops
