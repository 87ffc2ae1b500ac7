// Pivots of the arc tangent. Numbers by tools/approx from the lines marked //:.
#pragma once

#include "zym/kernels/shared/octets.h"
#include "zym/kernels/shared/sixteen_rows.h"

namespace orvik::zym::arc {

// Row i by the lowest bits of a number's exponent, and for doubles the first of its fraction: floats by octaves, doubles by
// half octaves, from 1/16, number j, to 16. q/p is the tangent of the angle in the middle; it is 0 in the first and
// infinite in the last, p or q is 1 in the others. The angle itself, and its rest.
//: let j = mod(i + 5, 8)
//: let middle = tan((atan(2^(j - 4)) + atan(2^(j - 3))) / 2)
//: p = j < 4 ? 1 : j == 7 ? 0 : grid(1 / middle, 2^-9)
//: q = j == 0 ? 0 : j < 4 ? grid(middle, 2^-9) : 1
//: angle = atan(q / p)
//: angle_low = atan(q / p) - angle
inline constexpr float kAtanPivots32[8][4] = {
    {0x1.7ap-2f, 0x1p0f, 0x1.37989ep0f, 0x1.2c6092p-27f}, {0x1.8p-3f, 0x1p0f, 0x1.62acbep0f, 0x1.594c38p-25f},
    {0.0f, 0x1p0f, 0x1.921fb6p0f, -0x1.777a5cp-25f}, {0x1p0f, 0.0f, 0.0f, 0.0f},
    {0x1p0f, 0x1.8p-3f, 0x1.7b97b4p-3f, 0x1.79cb6p-28f}, {0x1p0f, 0x1.7ap-2f, 0x1.6a1c5cp-2f, 0x1.eb6bf4p-28f},
    {0x1p0f, 0x1.71p-1f, 0x1.3fbcap-1f, -0x1.5ad9f6p-30f}, {0x1.71p-1f, 0x1p0f, 0x1.e482cap-1f, 0x1.26b8e6p-26f}
};
//: let j = mod(i + 5, 8)
//: let middle = tan((atan(2^(j - 4)) + atan(2^(j - 3))) / 2)
//: p = j < 4 ? 1 : j == 7 ? 0 : grid(1 / middle, 2^-9)
//: q = j == 0 ? 0 : j < 4 ? grid(middle, 2^-9) : 1
//: angle = atan(q / p) / pi
//: angle_low = atan(q / p) / pi - angle
inline constexpr float kAtanpiPivots32[8][4] = {
    {0x1.7ap-2f, 0x1p0f, 0x1.8cbc8ep-2f, 0x1.fbc3b6p-27f}, {0x1.8p-3f, 0x1p0f, 0x1.c39602p-2f, -0x1.d085cep-28f},
    {0.0f, 0x1p0f, 0x1p-1f, 0.0f}, {0x1p0f, 0.0f, 0.0f, 0.0f}, {0x1p0f, 0x1.8p-3f, 0x1.e34ff4p-5f, -0x1.7bd18ep-31f},
    {0x1p0f, 0x1.7ap-2f, 0x1.cd0dc4p-4f, 0x1.0f12a6p-33f}, {0x1p0f, 0x1.71p-1f, 0x1.971ap-3f, -0x1.3fde96p-29f},
    {0x1.71p-1f, 0x1p0f, 0x1.3473p-2f, 0x1.3fde96p-29f}
};
//: let j = mod(i + 10, 16)
//: let e = floor(j / 2) - 4
//: let lower = 2^e * (1 + (j - 2*floor(j / 2)) / 2)
//: let upper = 2^e * (3 + (j - 2*floor(j / 2))) / 2
//: let middle = tan((atan(lower) + atan(upper)) / 2)
//: p = j < 8 ? 1 : j == 15 ? 0 : grid(1 / middle, 2^-9)
//: q = j == 0 ? 0 : j < 8 ? grid(middle, 2^-9) : 1
//: angle = atan(q / p)
//: angle_low = atan(q / p) - angle
inline constexpr double kAtanPivots64[16][4] = {
    {0x1.a8p-2, 0x1p0, 0x1.2da03b50ffb8p0, -0x1.29baa2eecf6cep-54},
    {0x1.2ap-2, 0x1p0, 0x1.49a04e4988513p0, 0x1.6000b4e9def26p-57},
    {0x1.a8p-3, 0x1p0, 0x1.5ddcb88421ce4p0, -0x1.c3dfab82a458bp-54},
    {0x1.2cp-3, 0x1p0, 0x1.6ce3807df521ep0, -0x1.e4c2abaad5812p-54},
    {0x1.a8p-4, 0x1p0, 0x1.77b7c8e53e408p0, -0x1.7f8b41ea8b601p-54},
    {0.0, 0x1p0, 0x1.921fb54442d18p0, 0x1.1a62633145c07p-54}, {0x1p0, 0.0, 0.0, 0.0},
    {0x1p0, 0x1.cp-4, 0x1.be39ebe6f07c3p-4, 0x1.f7b8f29a05987p-58},
    {0x1p0, 0x1.4p-3, 0x1.3d6eee8c6626cp-3, 0x1.61a3b0ce9281bp-57},
    {0x1p0, 0x1.cp-3, 0x1.b90d7529260a2p-3, 0x1.17b10d2e0e5abp-61},
    {0x1p0, 0x1.3ep-2, 0x1.3454be5720ap-2, 0x1.defffe50a259fp-57},
    {0x1p0, 0x1.bep-2, 0x1.a4a0ded82e8f4p-2, -0x1.03e8d0e2b59d8p-57},
    {0x1p0, 0x1.3cp-1, 0x1.1b1dc87904285p-1, -0x1.21e8c8aef8f29p-57},
    {0x1p0, 0x1.bcp-1, 0x1.6dc44551553afp-1, -0x1.bf8863573828ep-58},
    {0x1.a4p-1, 0x1p0, 0x1.c4805d7b28de7p-1, -0x1.94a13f9d5d9c7p-55},
    {0x1.29p-1, 0x1p0, 0x1.0b8f37af687ffp0, 0x1.4c56079673e43p-59}
};
//: let j = mod(i + 10, 16)
//: let e = floor(j / 2) - 4
//: let lower = 2^e * (1 + (j - 2*floor(j / 2)) / 2)
//: let upper = 2^e * (3 + (j - 2*floor(j / 2))) / 2
//: let middle = tan((atan(lower) + atan(upper)) / 2)
//: p = j < 8 ? 1 : j == 15 ? 0 : grid(1 / middle, 2^-9)
//: q = j == 0 ? 0 : j < 8 ? grid(middle, 2^-9) : 1
//: angle = atan(q / p) / pi
//: angle_low = atan(q / p) / pi - angle
inline constexpr double kAtanpiPivots64[16][4] = {
    {0x1.a8p-2, 0x1p0, 0x1.800ac27bd20c4p-2, 0x1.e75f99ec40d63p-60},
    {0x1.2ap-2, 0x1p0, 0x1.a3b16f637b018p-2, -0x1.175e79ba250cap-56},
    {0x1.a8p-3, 0x1p0, 0x1.bd75582390452p-2, 0x1.bb318036f18b3p-56},
    {0x1.2cp-3, 0x1p0, 0x1.d09737daa765cp-2, -0x1.a1c1eb9ede61dp-58},
    {0x1.a8p-4, 0x1p0, 0x1.de60ff90d003dp-2, -0x1.a186bc79a37f5p-57}, {0.0, 0x1p0, 0x1p-1, 0.0}, {0x1p0, 0.0, 0.0, 0.0},
    {0x1p0, 0x1.cp-4, 0x1.1c1392b680d56p-5, 0x1.3e7f5983da7b8p-62},
    {0x1p0, 0x1.4p-3, 0x1.942b2da6d3f8fp-5, -0x1.2658501bb1cf6p-59},
    {0x1p0, 0x1.cp-3, 0x1.18c864aaecac3p-4, 0x1.09d0c65946887p-58},
    {0x1p0, 0x1.3ep-2, 0x1.88944a58faf06p-4, -0x1.bb3320e889708p-60},
    {0x1p0, 0x1.bep-2, 0x1.0bc7c5711d7d3p-3, 0x1.51bfeb9541e73p-60},
    {0x1p0, 0x1.3cp-1, 0x1.6879945d9a8ep-3, -0x1.ae2b0fd0936f2p-57},
    {0x1p0, 0x1.bcp-1, 0x1.d1b5671bdb596p-3, -0x1.a67a131da8235p-57},
    {0x1.a4p-1, 0x1p0, 0x1.2012445385fd2p-2, 0x1.01c2945974181p-56},
    {0x1.29p-1, 0x1p0, 0x1.54aad1cf79263p-2, -0x1.4df0b8abca6fp-56}
};

// Of a point, row i by the lowest bits of an exponent, octaves from number j at 1/8 to 16, and the sign of x, which changes
// bit 3: the pivot with that sign, 0 or a power of two, and its angle in the half plane.
//: let j = mod(i + 4, 8)
//: let left = (i < 8) == (j < 4)
//: let pivot = j == 0 ? 0 : 2^(j - 3)
//: q = left ? -pivot : pivot
//: angle = left ? pi - atan(pivot) : atan(pivot)
//: angle_low = (left ? pi - atan(pivot) : atan(pivot)) - angle
inline constexpr float kAtanOctaves32[16][3] = {
    {0x1p1f, 0x1.1b6e1ap0f, -0x1.a28838p-25f}, {0x1p2f, 0x1.5368cap0f, -0x1.5c2c6p-25f},
    {0x1p3f, 0x1.7249fap0f, 0x1.532d44p-25f}, {0x1p4f, 0x1.822508p0f, -0x1.2ea75ap-25f},
    {0.0f, 0x1.921fb6p1f, -0x1.777a5cp-24f}, {-0x1p-2f, 0x1.72c44p1f, -0x1.69d35ep-24f},
    {-0x1p-1f, 0x1.56c6e8p1f, -0x1.8d014ap-24f}, {-0x1p0f, 0x1.2d97c8p1f, -0x1.99bc5cp-28f},
    {-0x1p1f, 0x1.0468a8p1f, 0x1.59c9bep-24f}, {-0x1p2f, 0x1.d0d6a2p0f, -0x1.92c85ap-25f},
    {-0x1p3f, 0x1.b1f57p0f, -0x1.0887f8p-27f}, {-0x1p4f, 0x1.a21a64p0f, -0x1.c04d6p-25f}, {0.0f, 0.0f, 0.0f},
    {0x1p-2f, 0x1.f5b76p-3f, -0x1.b4dfc8p-29f}, {0x1p-1f, 0x1.dac67p-2f, 0x1.586ed4p-28f},
    {0x1p0f, 0x1.921fb6p-1f, -0x1.777a5cp-26f}
};
//: let j = mod(i + 4, 8)
//: let left = (i < 8) == (j < 4)
//: let pivot = j == 0 ? 0 : 2^(j - 3)
//: q = left ? -pivot : pivot
//: angle = left ? 1 - atan(pivot) / pi : atan(pivot) / pi
//: angle_low = (left ? 1 - atan(pivot) / pi : atan(pivot) / pi) - angle
inline constexpr float kAtanpiOctaves32[16][3] = {
    {0x1p1f, 0x1.68dfd8p-2f, -0x1.d9df3p-27f}, {0x1p2f, 0x1.b0263ep-2f, -0x1.b5ee3ap-27f},
    {0x1p3f, 0x1.d77772p-2f, -0x1.41dddap-27f}, {0x1p4f, 0x1.eba796p-2f, -0x1.872c4ep-30f}, {0.0f, 0x1p0f, 0.0f},
    {-0x1p-2f, 0x1.d8131ep-1f, 0x1.2508e4p-26f}, {-0x1p-1f, 0x1.b46fecp-1f, -0x1.d9df3p-27f},
    {-0x1p0f, 0x1.8p-1f, 0.0f}, {-0x1p1f, 0x1.4b9014p-1f, 0x1.d9df3p-27f}, {-0x1p2f, 0x1.27ece2p-1f, -0x1.2508e4p-26f},
    {-0x1p3f, 0x1.144448p-1f, -0x1.5f1114p-26f}, {-0x1p4f, 0x1.0a2c36p-1f, -0x1.e78d3cp-26f}, {0.0f, 0.0f, 0.0f},
    {0x1p-2f, 0x1.3f670cp-4f, -0x1.284718p-29f}, {0x1p-1f, 0x1.2e4052p-3f, -0x1.31067cp-30f}, {0x1p0f, 0x1p-2f, 0.0f}
};
//: let j = mod(i + 4, 8)
//: let left = (i < 8) == (j < 4)
//: let pivot = j == 0 ? 0 : 2^(j - 3)
//: q = left ? -pivot : pivot
//: angle = left ? pi - atan(pivot) : atan(pivot)
//: angle_low = (left ? pi - atan(pivot) : atan(pivot)) - angle
inline constexpr double kAtanOctaves64[16][3] = {
    {0x1p1, 0x1.1b6e192ebbe44p0, 0x1.b1b466a88828ep-54}, {0x1p2, 0x1.5368c951e9cfdp0, -0x1.96f47948a99f1p-54},
    {0x1p3, 0x1.7249faa996a21p0, 0x1.a8cc1e7480c68p-54}, {0x1p4, 0x1.82250768ac529p0, -0x1.e78c96d05afcbp-58},
    {0.0, 0x1.921fb54442d18p1, 0x1.1a62633145c07p-53}, {-0x1p-2, 0x1.72c43f4b1650ap1, 0x1.c1b6f4f44e10bp-53},
    {-0x1p-1, 0x1.56c6e7397f5aep1, 0x1.660b64ece6f4bp-53}, {-0x1p0, 0x1.2d97c7f3321d2p1, 0x1.a79394c9e8a0ap-54},
    {-0x1p1, 0x1.0468a8ace4df6p1, 0x1.0620bf7406affp-55}, {-0x1p2, 0x1.d0d6a1369bd34p0, -0x1.a23602a65700cp-57},
    {-0x1p3, 0x1.b1f56fdeef00fp0, 0x1.17f14fdc1574cp-55}, {-0x1p4, 0x1.a21a631fd9508p0, -0x1.acc270306ecf6p-54},
    {0.0, 0.0, 0.0}, {0x1p-2, 0x1.f5b75f92c80ddp-3, 0x1.8ab6e3cf7afbdp-57},
    {0x1p-1, 0x1.dac670561bb4fp-2, 0x1.a2b7f222f65e2p-56}, {0x1p0, 0x1.921fb54442d18p-1, 0x1.1a62633145c07p-55}
};
//: let j = mod(i + 4, 8)
//: let left = (i < 8) == (j < 4)
//: let pivot = j == 0 ? 0 : 2^(j - 3)
//: q = left ? -pivot : pivot
//: angle = left ? 1 - atan(pivot) / pi : atan(pivot) / pi
//: angle_low = (left ? 1 - atan(pivot) / pi : atan(pivot) / pi) - angle
inline constexpr double kAtanpiOctaves64[16][3] = {
    {0x1p1, 0x1.68dfd7131067cp-2, -0x1.995a23db6b8d4p-57}, {0x1p2, 0x1.b0263d2508e31p-2, -0x1.1bbe87e794124p-56},
    {0x1p3, 0x1.d777715f11133p-2, -0x1.b7f9255cb1f1ep-59}, {0x1p4, 0x1.eba795e78d3b3p-2, -0x1.d981980024537p-56},
    {0.0, 0x1p0, 0.0}, {-0x1p-2, 0x1.d8131e9284718p-1, 0x1.7220bc0c35f6ep-55},
    {-0x1p-1, 0x1.b46feb898833ep-1, -0x1.995a23db6b8d4p-57}, {-0x1p0, 0x1.8p-1, 0.0},
    {-0x1p1, 0x1.4b90147677cc2p-1, 0x1.995a23db6b8d4p-57}, {-0x1p2, 0x1.27ece16d7b8e8p-1, -0x1.7220bc0c35f6ep-55},
    {-0x1p3, 0x1.1444475077767p-1, -0x1.e4806daa34e0ep-55}, {-0x1p4, 0x1.0a2c350c39627p-1, -0x1.133f33ffedd65p-55},
    {0.0, 0.0, 0.0}, {0x1p-2, 0x1.3f670b6bdc73dp-4, 0x1.bbe87e7941244p-60},
    {0x1p-1, 0x1.2e4051d9df308p-3, 0x1.995a23db6b8d4p-57}, {0x1p0, 0x1p-2, 0.0}
};

inline constexpr Octets<4> kAtanPivotColumns32(kAtanPivots32), kAtanpiPivotColumns32(kAtanpiPivots32);
inline constexpr SixteenRows<double, 4> kAtanPivotColumns64([](size_t c, size_t i) { return kAtanPivots64[i][c]; });
inline constexpr SixteenRows<double, 4> kAtanpiPivotColumns64([](size_t c, size_t i) { return kAtanpiPivots64[i][c]; });
inline constexpr SixteenRows<float, 3> kAtanOctaveColumns32([](size_t c, size_t i) { return kAtanOctaves32[i][c]; });
inline constexpr SixteenRows<float, 3> kAtanpiOctaveColumns32([](size_t c, size_t i) { return kAtanpiOctaves32[i][c]; });
inline constexpr SixteenRows<double, 3> kAtanOctaveColumns64([](size_t c, size_t i) { return kAtanOctaves64[i][c]; });
inline constexpr SixteenRows<double, 3> kAtanpiOctaveColumns64([](size_t c, size_t i) { return kAtanpiOctaves64[i][c]; });

}  // namespace orvik::zym::arc
