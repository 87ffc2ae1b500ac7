// Rows of an octave for logarithms of y >= 1. Numbers by tools/approx from the lines marked //:.
#pragma once

#include "zym/kernels/shared/sixteen_rows.h"

namespace orvik::zym::hyperbolic {

// c near 1/m by the upper four bits of m in [1, 2), so short that c m - 1 is exact, with 2^127 or 2^1023 as a factor: less the
// exponent of y = 2^e m it is c 2^-e. Its logarithm with the other sign, head on the grid of that of log(2), and the
// rest.
//: let c = i < 4 ? 1 - i/16 : i == 15 ? 1/2 : grid(1 / (1 + (2*i + 1)/32), 2^-6)
//: scaled = c * 2^127
//: head = grid(0 - log(c), 2^-17)
//: tail = 0 - log(c) - head
inline constexpr float kAreaRows32[16][3] = {
    {0x1p127f, 0.0f, 0.0f}, {0x1.ep126f, 0x1.0858p-4f, 0x1.8b59e4p-20f}, {0x1.cp126f, 0x1.1178p-3f, 0x1.d044fcp-20f},
    {0x1.ap126f, 0x1.a94p-3f, -0x1.2c3752p-19f}, {0x1.9p126f, 0x1.f99p-3f, 0x1.c6cb3cp-19f},
    {0x1.8p126f, 0x1.2696p-2f, 0x1.089a6ep-21f}, {0x1.7p126f, 0x1.522ap-2f, 0x1.c0e714p-19f},
    {0x1.6p126f, 0x1.7fbp-2f, -0x1.7109fap-20f}, {0x1.5p126f, 0x1.af52p-2f, 0x1.2a491ap-19f},
    {0x1.4p126f, 0x1.e148p-2f, 0x1.4344e4p-19f}, {0x1.38p126f, 0x1.fb36p-2f, -0x1.d4216ep-20f},
    {0x1.28p126f, 0x1.188fp-1f, -0x1.bf0dc4p-21f}, {0x1.2p126f, 0x1.2696p-1f, 0x1.089a6ep-20f},
    {0x1.18p126f, 0x1.3503p-1f, -0x1.d4989cp-19f}, {0x1.1p126f, 0x1.43dap-1f, -0x1.a0db88p-26f},
    {0x1p126f, 0x1.62e4p-1f, 0x1.7f7d1cp-20f}
};
//: let c = i < 4 ? 1 - i/16 : i == 15 ? 1/2 : grid(1 / (1 + (2*i + 1)/32), 2^-6)
//: scaled = c * 2^1023
//: head = grid(0 - log(c), 2^-38)
//: tail = 0 - log(c) - head
inline constexpr double kAreaRows64[16][3] = {
    {0x1p1023, 0.0, 0.0}, {0x1.ep1022, 0x1.08598b5ap-4, -0x1.c5f9775c02641p-40},
    {0x1.cp1022, 0x1.1178e8228p-3, -0x1.b8421cc74be04p-43}, {0x1.ap1022, 0x1.a93ed3c8ap-3, 0x1.b3c6de57d4ef5p-40},
    {0x1.9p1022, 0x1.f991c6cb4p-3, -0x1.321a099af9906p-41}, {0x1.8p1022, 0x1.269621135p-2, -0x1.236c3e20a44c5p-41},
    {0x1.7p1022, 0x1.522ae0739p-2, -0x1.70a0c7bf4d9c5p-40}, {0x1.6p1022, 0x1.7fafa3bd8p-2, 0x1.51bede6fdb533p-42},
    {0x1.5p1022, 0x1.af5295249p-2, -0x1.917cc55277446p-41}, {0x1.4p1022, 0x1.e148a1a27p-2, 0x1.366ca6fc66eb6p-41},
    {0x1.38p1022, 0x1.fb358af7ap-2, 0x1.2210bf4782c92p-40}, {0x1.28p1022, 0x1.188ee40f2p-1, 0x1.e53313be2ad19p-40},
    {0x1.2p1022, 0x1.269621135p-1, -0x1.236c3e20a44c5p-40}, {0x1.18p1022, 0x1.35028ad9d8p-1, 0x1.90b83f9527e6bp-42},
    {0x1.1p1022, 0x1.43d9ff2f9p-1, 0x1.1e267b0b7efaep-40}, {0x1p1022, 0x1.62e42fefap-1, 0x1.cf79abc9e3b3ap-40}
};

inline constexpr SixteenRows<float, 3> kAreaTable32([](size_t c, size_t i) { return kAreaRows32[i][c]; });
inline constexpr SixteenRows<double, 3> kAreaTable64([](size_t c, size_t i) { return kAreaRows64[i][c]; });

}  // namespace orvik::zym::hyperbolic
