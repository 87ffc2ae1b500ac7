// Coefficients and constants of the Bessel functions for large and for small arguments, from the highest power down.
#pragma once

namespace orvik::zym::bessel {

// J + iY = sqrt(2/(pi x)) (1 + v M(v)) e^(i (x - (2 order + 1) pi/4 + P(v)/x)), v = 1/x^2, from 63.75 on.
//: precision 260
//: = cylinder_rest(6, 0, 0, 1/63.75^2, 0, 5, 4 - i)
inline constexpr double kModulus0[5] = {
    -0x1.a45b424d8aa05p6, 0x1.764ac8ab0ab1cp2, -0x1.15effedded54fp-1, 0x1.a7ffffffedbf1p-4, -0x1.fffffffffffffp-5
};
//: precision 260
//: = cylinder_rest(7, 0, 0, 1/63.75^2, 0, 5, 4 - i)
inline constexpr double kModulus1[5] = {
    0x1.053ad5980da46p7, -0x1.ef53de98a0c77p2, 0x1.9c4ffea581cc5p-1, -0x1.8bfffffff519p-3, 0x1.8p-3
};
//: precision 260
//: = cylinder_rest(8, 0, 0, 1/63.75^2, 0, 5, 4 - i)
inline constexpr double kPhase0[5] = {
    -0x1.7266338fc2646p4, 0x1.a353b77e1a9cp0, -0x1.ad33326116ed4p-3, 0x1.0aaaaaaaa75c5p-4, -0x1p-3
};
//: precision 260
//: = cylinder_rest(9, 0, 0, 1/63.75^2, 0, 5, 4 - i)
inline constexpr double kPhase1[5] = {
    0x1.e3940b51ef9b9p4, -0x1.2f459d8c118c1p1, 0x1.7bcccc4b6c799p-2, -0x1.4ffffffffdf6ep-3, 0x1.8p-2
};
// The same for results of 32 bits.
//: precision 260
//: = cylinder_rest(6, 0, 0, 1/63.75^2, 0, 2, 1 - i)
inline constexpr double kModulusSingle0[2] = {0x1.a7744347ce95dp-4, -0x1.fffffdccd853dp-5};
//: precision 260
//: = cylinder_rest(7, 0, 0, 1/63.75^2, 0, 2, 1 - i)
inline constexpr double kModulusSingle1[2] = {-0x1.8b9853774fb91p-3, 0x1.7fffff2f15933p-3};
//: precision 260
//: = cylinder_rest(8, 0, 0, 1/63.75^2, 0, 2, 1 - i)
inline constexpr double kPhaseSingle0[2] = {0x1.0a74af8f32b68p-4, -0x1.ffffff9337464p-4};
//: precision 260
//: = cylinder_rest(9, 0, 0, 1/63.75^2, 0, 2, 1 - i)
inline constexpr double kPhaseSingle1[2] = {-0x1.4fd037b14856cp-3, 0x1.7fffffcfd9fb9p-2};

// Sine and cosine of an angle left by the grid of pi/256 and the phase; sine of one left by multiples of pi.
//: x + x^3 * p(x^2) = sin(x) on [-0.0125, 0.0125], relative error 2^-71.8
//: fit bessel/coefficients.sollya
inline constexpr double kAngleSine[3] = {-0x1.a019081bc27eap-13, 0x1.11111110eb974p-7, -0x1.5555555555555p-3};
//: 1 + x^2 * p(x^2) = cos(x) on [-0.0125, 0.0125], relative error 2^-70.6
//: fit bessel/coefficients.sollya
inline constexpr double kAngleCosine[3] = {-0x1.6c16643737936p-10, 0x1.555555554c034p-5, -0x1p-1};
//: x + x^3 * p(x^2) = sin(x) on [-1.58, 1.58], relative error 2^-33.0
//: fit bessel/coefficients.sollya
inline constexpr double kAngleSingle[5] = {
    -0x1.9d6871b15f67p-26, 0x1.7193f3ed96bb3p-19, -0x1.a018f6e92d956p-13, 0x1.11110fc009649p-7, -0x1.55555554429b7p-3
};

// I(x) = e^x / sqrt(2 pi x) (1 - (4 order^2 - 1) u/8 + u^2 R(u)), u = 1/x, from 31.75 on.
//: precision 260
//: = cylinder_rest(10, 0, 0, 1/31.75, 0, 9, 8 - i)
inline constexpr double kScaled0[9] = {
    0x1.e8d37226508adp7, 0x1.e33ffcd8a2a7ap3, 0x1.99275e2c0bb3cp2, 0x1.b8b69716267e7p0, 0x1.25280207008afp-1,
    0x1.d11dc5de0b99dp-3, 0x1.cb60005c5a743p-4, 0x1.2bffffffe3e8cp-4, 0x1.2000000000016p-4
};
//: precision 260
//: = cylinder_rest(11, 0, 0, 1/31.75, 0, 9, 8 - i)
inline constexpr double kScaled1[9] = {
    -0x1.0c1fce2757404p8, -0x1.124be434df781p4, -0x1.cecab03e19069p2, -0x1.fc9e93d1af833p0, -0x1.5a743edc095ep-1,
    -0x1.1c3ce061f1b99p-2, -0x1.2750003239b48p-3, -0x1.a3ffffffe1729p-4, -0x1.e000000000018p-4
};
//: precision 260
//: = cylinder_rest(10, 0, 0, 1/31.75, 0, 4, 3 - i)
inline constexpr double kScaledSingle0[4] = {
    0x1.130c4903ed059p-2, 0x1.c7e29d540a344p-4, 0x1.2c05b8fa757c6p-4, 0x1.1ffffe8dbb8b9p-4
};
//: precision 260
//: = cylinder_rest(11, 0, 0, 1/31.75, 0, 4, 3 - i)
inline constexpr double kScaledSingle1[4] = {
    -0x1.4e47d3af4fc89p-2, -0x1.25426cbb88988p-3, -0x1.a406bb029bb04p-4, -0x1.dffffe4c8c12ep-4
};

// The largest arguments whose result is finite.
inline constexpr float kI0Overflow32 = 0x1.6f9a62p6f;  //: = float_down(cylinder_inverse(4, 2^128 - 2^103))
inline constexpr float kI1Overflow32 = 0x1.6fa002p6f;  //: = float_down(cylinder_inverse(5, 2^128 - 2^103))
inline constexpr double kI0Overflow64 = 0x1.64fe5304e83e4p9;  //: = double_down(cylinder_inverse(4, 2^1024 - 2^970))
inline constexpr double kI1Overflow64 = 0x1.64fe69ff9fec7p9;  //: = double_down(cylinder_inverse(5, 2^1024 - 2^970))

inline constexpr double kRootTwoOverPi = 0x1.9884533d43651p-1;  //: = sqrt(2/pi)
inline constexpr double kRootTwoOverPiTail = -0x1.cbc0d30ebfd15p-55;  //: = sqrt(2/pi) - kRootTwoOverPi
inline constexpr double kRootHalfOverPi = 0x1.9884533d43651p-2;  //: = sqrt(1/(2*pi))
inline constexpr double kRootHalfOverPiTail = -0x1.cbc0d30ebfd15p-56;  //: = sqrt(1/(2*pi)) - kRootHalfOverPi
inline constexpr double kTwoOverPi = 0x1.45f306dc9c883p-1;  //: = 2/pi
inline constexpr double kTwoOverPiTail = -0x1.6b01ec5417056p-55;  //: = 2/pi - kTwoOverPi
// Euler's constant less ln 2.
inline constexpr double kGammaLessLn2 = -0x1.dadb014541eb2p-4;  //: = -digamma(1) - log(2)
inline constexpr double kGammaLessLn2Tail = -0x1.be095d05c0a81p-62;  //: = -digamma(1) - log(2) - kGammaLessLn2


// Series at 0 in z = x^2/4: (J0 - 1) / z without its lowest term, J1 / (x/2), and what Y0 and Y1 have beside them.
// Harmonic numbers: 1, 3/2, 11/6, 25/12.
//: = i == 0 ? 1/576 : i == 1 ? -1/36 : 1/4
inline constexpr double kSeriesJ0[3] = {0x1.c71c71c71c71cp-10, -0x1.c71c71c71c71cp-6, 0x1p-2};
//: = i == 0 ? -25/6912 : i == 1 ? 11/216 : i == 2 ? -3/8 : 1
inline constexpr double kSeriesY0[4] = {-0x1.da12f684bda13p-9, 0x1.a12f684bda12fp-5, -0x1.8p-2, 0x1p0};
//: = i == 0 ? -1/144 : i == 1 ? 1/12 : i == 2 ? -1/2 : 1
inline constexpr double kSeriesJ1[4] = {-0x1.c71c71c71c71cp-8, 0x1.5555555555555p-4, -0x1p-1, 0x1p0};
//: = i == 0 ? -47/3456 : i == 1 ? 5/36 : i == 2 ? -5/8 : 1/2
inline constexpr double kSeriesY1[4] = {-0x1.bda12f684bda1p-7, 0x1.1c71c71c71c72p-3, -0x1.4p-1, 0x1p-1};

}  // namespace orvik::zym::bessel
