// Bounds of the gamma functions: where results leave the format. Numbers by tools/approx from the lines marked //:.
#pragma once

#include "lanes/types.h"

namespace orvik::zym::gamma {

// From `overflow` on gamma(x) overflows, above `log_overflow` ln(gamma(x)) does; below `underflow` every gamma(x) is
// zero (in 32 bits from -40 down).
template <class E>
struct Bounds;
template <>
struct Bounds<float> {
  static constexpr float overflow = 35.0401f, log_overflow = 0x1.895f1ap+121f, underflow = -43.0f;
};
template <>
struct Bounds<double> {
  static constexpr double overflow = 0x1.573fae561f648p+7, log_overflow = 0x1.754d9278b51a7p+1014, underflow = -184.0;
};

// The largest magnitude whose reciprocal overflows.
template <class E>
inline constexpr E kGammaOverflowTiny = E(sizeof(E) == 4 ? 0x1p-128 : 0x1p-1024);

// The rows of the tables end here.
inline constexpr double kFirstOfRows = -43.0, kLastOfRows = 35.0;
// From here on Stirling's formula serves for the logarithm.
inline constexpr double kStirling = 16.0;

inline constexpr double kLog2OfHalfRoot = 0x1.536439a4c6efcp0;       //: = log2(2 * pi) / 2
inline constexpr double kLog2OfHalfRootTail = -0x1.49e49a361efebp-54;   //: = log2(2 * pi) / 2 - kLog2OfHalfRoot
inline constexpr double kLog2OfReflected = 0x1.4d90e6931bbefp-2;      //: = log2(pi / 2) / 2
inline constexpr double kLog2OfReflectedTail = -0x1.279268d87bfacp-56;  //: = log2(pi / 2) / 2 - kLog2OfReflected
inline constexpr double kOneLessLogOfPi = -0x1.28682473d0de8p-3;       //: = 1 - log(pi)

}  // namespace orvik::zym::gamma
