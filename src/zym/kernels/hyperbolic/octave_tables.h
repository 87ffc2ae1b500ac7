// Rows of an octave for logarithms of y >= 1 in doubles. Numbers by tools/approx from the lines marked //:.
#pragma once

#include "zym/kernels/shared/sixteen_rows.h"

namespace orvik::zym::hyperbolic {

// c near 1/m by the upper four bits of m in [1, 2), so short that c m - 1 is exact, with 2^1023 as a factor: less the
// exponent of y = 2^e m it is c 2^-e. Its logarithm with the other sign, head on the grid of that of log(2), and the
// rest.
//: let c = i < 4 ? 1 - i/16 : i == 15 ? 1/2 : grid(1 / (1 + (2*i + 1)/32), 2^-6)
//: scaled = c * 2^1023
//: head = grid(0 - log(c), 2^-38)
//: tail = 0 - log(c) - head
inline constexpr double kAreaRows[16][3] = {
    {0x1p1023, 0.0, 0.0}, {0x1.ep1022, 0x1.08598b5ap-4, -0x1.c5f9775c02641p-40},
    {0x1.cp1022, 0x1.1178e8228p-3, -0x1.b8421cc74be04p-43}, {0x1.ap1022, 0x1.a93ed3c8ap-3, 0x1.b3c6de57d4ef5p-40},
    {0x1.9p1022, 0x1.f991c6cb4p-3, -0x1.321a099af9906p-41}, {0x1.8p1022, 0x1.269621135p-2, -0x1.236c3e20a44c5p-41},
    {0x1.7p1022, 0x1.522ae0739p-2, -0x1.70a0c7bf4d9c5p-40}, {0x1.6p1022, 0x1.7fafa3bd8p-2, 0x1.51bede6fdb533p-42},
    {0x1.5p1022, 0x1.af5295249p-2, -0x1.917cc55277446p-41}, {0x1.4p1022, 0x1.e148a1a27p-2, 0x1.366ca6fc66eb6p-41},
    {0x1.38p1022, 0x1.fb358af7ap-2, 0x1.2210bf4782c92p-40}, {0x1.28p1022, 0x1.188ee40f2p-1, 0x1.e53313be2ad19p-40},
    {0x1.2p1022, 0x1.269621135p-1, -0x1.236c3e20a44c5p-40}, {0x1.18p1022, 0x1.35028ad9d8p-1, 0x1.90b83f9527e6bp-42},
    {0x1.1p1022, 0x1.43d9ff2f9p-1, 0x1.1e267b0b7efaep-40}, {0x1p1022, 0x1.62e42fefap-1, 0x1.cf79abc9e3b3ap-40}
};

// The same c in floats' precision of results, with the logarithm rounded.
//: c = i < 4 ? 1 - i/16 : i == 15 ? 1/2 : grid(1 / (1 + (2*i + 1)/32), 2^-6)
//: log = 0 - log(c)
inline constexpr double kAreaShortRows[16][2] = {
    {0x1p0, 0.0}, {0x1.ep-1, 0x1.08598b59e3a07p-4}, {0x1.cp-1, 0x1.1178e8227e47cp-3}, {0x1.ap-1, 0x1.a93ed3c8ad9e3p-3},
    {0x1.9p-1, 0x1.f991c6cb3b379p-3}, {0x1.8p-1, 0x1.269621134db92p-2}, {0x1.7p-1, 0x1.522ae0738a3d8p-2},
    {0x1.6p-1, 0x1.7fafa3bd8151cp-2}, {0x1.5p-1, 0x1.af5295248cddp-2}, {0x1.4p-1, 0x1.e148a1a2726cep-2},
    {0x1.38p-1, 0x1.fb358af7a4884p-2}, {0x1.28p-1, 0x1.188ee40f23ca6p-1}, {0x1.2p-1, 0x1.269621134db92p-1},
    {0x1.18p-1, 0x1.35028ad9d8c86p-1}, {0x1.1p-1, 0x1.43d9ff2f923c5p-1}, {0x1p-1, 0x1.62e42fefa39efp-1}
};

inline constexpr SixteenRows<double, 3> kAreaTable([](size_t c, size_t i) { return kAreaRows[i][c]; });
inline constexpr SixteenRows<double, 2> kAreaShortTable([](size_t c, size_t i) { return kAreaShortRows[i][c]; });

}  // namespace orvik::zym::hyperbolic
