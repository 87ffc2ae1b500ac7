// Polynomials of the logarithms within a row of an octave, and what goes with them. Numbers and worst errors by
// tools/approx from the lines marked //:.
#pragma once

#include "zym/kernels/explog/constants.h"

namespace orvik::zym {

inline constexpr float kLog2ETail32 = 0x1.4ae0cp-26f;  //: = 1/log(2) - kLog2E32
inline constexpr float kLog10E32 = 0x1.bcb7b2p-2f;  //: = 1/log(10)
inline constexpr float kLog10ETail32 = -0x1.5b235ep-27f;  //: = 1/log(10) - kLog10E32

//: x * p(x) = log2(1 + x) on [-0.0625, 0.125], relative error 2^-23.3
//: fit explog/coefficients.sollya
inline constexpr float kLog2EighthLA32[5] = {
    0x1.05c4fep-2f, -0x1.71d14ap-2f, 0x1.ec9c7p-2f, -0x1.715486p-1f, 0x1.715474p0f
};
//: x / log(2) + x^2 * p(x) = log2(1 + x) on [-0.0352, 0.0625], relative error 2^-28.0
//: fit explog/coefficients.sollya
inline constexpr float kLog2OctaveHA32[4] = {0x1.18cb4p-2f, -0x1.719a46p-2f, 0x1.ec7516p-2f, -0x1.715474p-1f};
//: x * p(x) = log10(1 + x) on [-0.0625, 0.125], relative error 2^-23.7
//: fit explog/coefficients.sollya
inline constexpr float kLog10EighthLA32[5] = {
    0x1.3c0578p-4f, -0x1.bd3826p-4f, 0x1.28914p-3f, -0x1.bcb7c4p-3f, 0x1.bcb7bp-2f
};
//: x / log(10) + x^2 * p(x) = log10(1 + x) on [-0.0352, 0.0625], relative error 2^-28.0
//: fit explog/coefficients.sollya
inline constexpr float kLog10OctaveHA32[4] = {0x1.524edp-4f, -0x1.bd0f46p-4f, 0x1.287d22p-3f, -0x1.bcb7aep-3f};
//: x + x^2 * p(x) = log(1 + x) on [-0.0625, 0.125], relative error 2^-23.4
//: fit explog/coefficients.sollya
inline constexpr float kLn1pEighthLA32[4] = {0x1.6dd63cp-3f, -0x1.004f16p-2f, 0x1.556b4ep-2f, -0x1.000004p-1f};
//: x + x^2 * p(x) = log(1 + x) on [-0.0352, 0.0625], relative error 2^-28.0
//: fit explog/coefficients.sollya
inline constexpr float kLn1pOctaveHA32[4] = {0x1.859166p-3f, -0x1.003306p-2f, 0x1.555866p-2f, -0x1.fffffcp-2f};
//: x * p(x) = log2(1 + x) on [-0.0352, 0.0625], relative error 2^-28.4
//: fit explog/coefficients.sollya
inline constexpr double kLog2OctaveEP64[5] = {
    0x1.17e908510fda9p-2, -0x1.719d7c7204b3dp-2, 0x1.ec7655b36d234p-2, -0x1.715473dab4715p-1, 0x1.715476420fb6cp0
};
//: x * p(x) = log2(1 + x) on [-0.0352, 0.0625], relative error 2^-55.9
//: fit explog/coefficients.sollya
inline constexpr double kLog2OctaveLA64[10] = {
    -0x1.0678e98d8b049p-3, 0x1.47ccd21e640b6p-3, -0x1.716a64fc0b291p-3, 0x1.a61811018d55bp-3, -0x1.ec7098fa8ef7ep-3,
    0x1.2776c4f8971f7p-2, -0x1.71547652ebaa2p-2, 0x1.ec709dc3a1fdcp-2, -0x1.71547652b82f3p-1, 0x1.71547652b82fep0
};
//: x / log(2) + x^2 * p(x) = log2(1 + x) on [-0.0352, 0.0625], relative error 2^-61.1
//: fit explog/coefficients.sollya
inline constexpr double kLog2OctaveHA64[10] = {
    0x1.d6d4cd3affbcdp-4, -0x1.26c07663035c6p-3, 0x1.4861faf6100c1p-3, -0x1.715568e577e6bp-3, 0x1.a6175d9fbca35p-3,
    -0x1.ec709d78f9c21p-3, 0x1.2776c50f2aa16p-2, -0x1.71547652bc603p-2, 0x1.ec709dc3a03efp-2, -0x1.71547652b82fdp-1
};
//: x * p(x) = log10(1 + x) on [-0.0352, 0.0625], relative error 2^-28.4
//: fit explog/coefficients.sollya
inline constexpr double kLog10OctaveEP64[5] = {
    0x1.510baa2b0067ep-4, -0x1.bd0f9f49c5d9p-4, 0x1.287de797a6eeep-3, -0x1.bcb7ae5968d39p-3, 0x1.bcb7b13e5f60fp-2
};
//: x * p(x) = log10(1 + x) on [-0.0352, 0.0625], relative error 2^-55.1
//: fit explog/coefficients.sollya
inline constexpr double kLog10OctaveLA64[10] = {
    -0x1.3b3d1b50b0731p-5, 0x1.8aa1c7e0a09fap-5, -0x1.bcd29ab986a18p-5, 0x1.fc408d41ec9aep-5, -0x1.287a73529fd31p-4,
    0x1.63c627565292fp-4, -0x1.bcb7b152a9506p-4, 0x1.287a7636f5887p-3, -0x1.bcb7b1526e503p-3, 0x1.bcb7b1526e50ep-2
};
//: x / log(10) + x^2 * p(x) = log10(1 + x) on [-0.0352, 0.0625], relative error 2^-61.2
//: fit explog/coefficients.sollya
inline constexpr double kLog10OctaveHA64[10] = {
    0x1.1b9b08d17e299p-5, -0x1.62ed118e100b9p-5, 0x1.8b6946efa8b2ap-5, -0x1.bcb8d05c5a67p-5, 0x1.fc3fa01e1963ep-5,
    -0x1.287a760b5373bp-4, 0x1.63c627755ecdep-4, -0x1.bcb7b152731c3p-4, 0x1.287a7636f4356p-3, -0x1.bcb7b1526e50dp-3
};
//: x + x^2 * p(x) = log(1 + x) on [-0.0352, 0.0625], relative error 2^-28.0
//: fit explog/coefficients.sollya
inline constexpr double kLnOctaveEP64[4] = {
    0x1.856ae5df74e94p-3, -0x1.0031b85920dbp-2, 0x1.55586a22887b9p-2, -0x1.fffffc62c40bap-2
};
//: x + x^2 * p(x) = log(1 + x) on [-0.0352, 0.0625], relative error 2^-55.9
//: fit explog/coefficients.sollya
inline constexpr double kLnOctaveLA64[9] = {
    -0x1.6cbecb02a6ae6p-4, 0x1.c67d5deb52b55p-4, -0x1.000e93fff3014p-3, 0x1.2492b5c49e756p-3, -0x1.5555523f81a94p-3,
    0x1.9999997fe2b15p-3, -0x1.000000001fa83p-2, 0x1.555555555622ep-2, -0x1.ffffffffffff4p-2
};
//: x + x^2 * p(x) = log(1 + x) on [-0.0352, 0.0625], relative error 2^-61.6
//: fit explog/coefficients.sollya
inline constexpr double kLnOctaveHA64[10] = {
    0x1.4701dcbe2fb1dp-4, -0x1.98a970904d44fp-4, 0x1.c73b242d0461bp-4, -0x1.00009c7759bcp-3, 0x1.249245d630133p-3,
    -0x1.555555277b734p-3, 0x1.99999999da066p-3, -0x1.00000000025a1p-2, 0x1.555555555554ap-2, -0x1.fffffffffffffp-2
};
//: x - x^2/2 + x^3 * p(x) = log(1 + x) on [-0.0352, 0.0625], relative error 2^-60.1
//: fit explog/coefficients.sollya
inline constexpr double kLnOctaveCubic64[9] = {
    0x1.4b4f14d690edcp-4, -0x1.99093859d9365p-4, 0x1.c7372d61af183p-4, -0x1.0000632141d01p-3, 0x1.2492464de0146p-3,
    -0x1.5555553dd8629p-3, 0x1.99999999d44dbp-3, -0x1.0000000000bbdp-2, 0x1.555555555554ap-2
};

}  // namespace orvik::zym
