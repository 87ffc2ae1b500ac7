// Polynomials around the estimates of 1/x and 1/sqrt(x), highest power first; worst errors by tools/approx from the lines
// marked //:. With y an estimate of 1/sqrt(z) and x = 1 - z y^2, 1/sqrt(z) = y (1 - x)^(-1/2). Estimates are within
// 1.5 * 2^-12 on every processor, so |x| is below 2 * 1.5 * 2^-12 + (1.5 * 2^-12)^2 = 7.326e-4, rounding included 7.34e-4.
// The results are defined with these coefficients: they are given, not fitted here.
#pragma once

namespace orvik::zym::roots {

//: 1 + x * p(x) = (1 - x)^(-1/2) on [-7.34e-4, 7.34e-4], relative error 2^-58.0
inline constexpr double kInverseRootTail[4] = {
    0x1.1800032338cbbp-2, 0x1.40000b13001d9p-2, 0x1.80000000000f6p-2, 0x1.ffffffffffe71p-2
};
//: p(x) = (1 - x)^(-1/2) on [-7.34e-4, 7.34e-4], relative error 2^-34.8
inline constexpr double kInverseRootShort[3] = {0x1.80000c4cd9197p-2, 0x1.000004379adb7p-1, 0x1.fffffffffff4fp-1};

}  // namespace orvik::zym::roots
