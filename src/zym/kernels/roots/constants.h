// Coefficients around the estimates of 1/x and 1/sqrt(x), highest power first. With y an estimate of 1/sqrt(x) and
// d = 1 - x y^2, 1/sqrt(x) = y (1 - d)^(-1/2); |d| <= 7.34e-4 for every processor (estimates within 1.5 * 2^-12).
#pragma once

namespace orvik::zym::roots {

// ((1 - d)^(-1/2) - 1) / d. Error of 1 + d p(d), relative: 3.0e-17 for |d| <= 7.34e-4.
inline constexpr double kInverseRootTail[] = {0.27343754675366555, 0.31250016501874495, 0.37500000000001366,
                                              0.49999999999997785};
// (1 - d)^(-1/2). Relative error 1.3e-10 (32.8 bits) for |d| <= 7.34e-4.
inline constexpr double kInverseRootShort[] = {0.37500018328707924, 0.5000001256825531, 0.9999999999999803};

}  // namespace orvik::zym::roots
