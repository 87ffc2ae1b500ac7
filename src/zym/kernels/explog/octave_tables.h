// Rows of sixteenths of an octave, m in [1 + i/16, 1 + (i + 1)/16), for registers. Numbers by tools/approx from the lines
// marked //:.
#pragma once

#include <cstddef>

namespace orvik::zym {

// c near 1/m, 1 in the first row and 1/2 in the last, and its logarithm with the other sign. With an m of 24 or 53 bits
// c m - 1 is exact: c has six bits, five where c m - 1 may exceed 1/32.
//: c = i < 4 ? 1 - i/16 : i == 15 ? 1/2 : grid(1 / (1 + (2*i + 1)/32), 2^-6)
//: log = 0 - log2(c)
inline constexpr float kLog2Octave32[16][2] = {
    {0x1p0f, 0.0f}, {0x1.ep-1f, 0x1.7d604ap-4f}, {0x1.cp-1f, 0x1.8a898p-3f}, {0x1.ap-1f, 0x1.32bfeep-2f},
    {0x1.9p-1f, 0x1.6cb0f6p-2f}, {0x1.8p-1f, 0x1.a8ff98p-2f}, {0x1.7p-1f, 0x1.e7df6p-2f}, {0x1.6p-1f, 0x1.14c56p-1f},
    {0x1.5p-1f, 0x1.37222cp-1f}, {0x1.4p-1f, 0x1.5b2c3ep-1f}, {0x1.38p-1f, 0x1.6ddfc2p-1f},
    {0x1.28p-1f, 0x1.94c288p-1f}, {0x1.2p-1f, 0x1.a8ff98p-1f}, {0x1.18p-1f, 0x1.bdce9ep-1f},
    {0x1.1p-1f, 0x1.d33812p-1f}, {0x1p-1f, 0x1p0f}
};
//: c = i < 4 ? 1 - i/16 : i == 15 ? 1/2 : grid(1 / (1 + (2*i + 1)/32), 2^-6)
//: log = 0 - log10(c)
inline constexpr float kLog10Octave32[16][2] = {
    {0x1p0f, 0.0f}, {0x1.ep-1f, 0x1.cb38fcp-6f}, {0x1.cp-1f, 0x1.db11eep-5f}, {0x1.ap-1f, 0x1.715d0cp-4f},
    {0x1.9p-1f, 0x1.b721cep-4f}, {0x1.8p-1f, 0x1.ffbfc2p-4f}, {0x1.7p-1f, 0x1.25ba82p-3f}, {0x1.6p-1f, 0x1.4d43f8p-3f},
    {0x1.5p-1f, 0x1.76a45cp-3f}, {0x1.4p-1f, 0x1.a209a8p-3f}, {0x1.38p-1f, 0x1.b88e68p-3f},
    {0x1.28p-1f, 0x1.e76124p-3f}, {0x1.2p-1f, 0x1.ffbfc2p-3f}, {0x1.18p-1f, 0x1.0c6712p-2f},
    {0x1.1p-1f, 0x1.194b3cp-2f}, {0x1p-1f, 0x1.344136p-2f}
};
//: c = i < 4 ? 1 - i/16 : i == 15 ? 1/2 : grid(1 / (1 + (2*i + 1)/32), 2^-6)
//: log = 0 - log(c)
inline constexpr float kLnOctave32[16][2] = {
    {0x1p0f, 0.0f}, {0x1.ep-1f, 0x1.08598cp-4f}, {0x1.cp-1f, 0x1.1178e8p-3f}, {0x1.ap-1f, 0x1.a93ed4p-3f},
    {0x1.9p-1f, 0x1.f991c6p-3f}, {0x1.8p-1f, 0x1.269622p-2f}, {0x1.7p-1f, 0x1.522aep-2f}, {0x1.6p-1f, 0x1.7fafa4p-2f},
    {0x1.5p-1f, 0x1.af5296p-2f}, {0x1.4p-1f, 0x1.e148a2p-2f}, {0x1.38p-1f, 0x1.fb358ap-2f},
    {0x1.28p-1f, 0x1.188ee4p-1f}, {0x1.2p-1f, 0x1.269622p-1f}, {0x1.18p-1f, 0x1.35028ap-1f}, {0x1.1p-1f, 0x1.43dap-1f},
    {0x1p-1f, 0x1.62e43p-1f}
};
//: c = i < 4 ? 1 - i/16 : i == 15 ? 1/2 : grid(1 / (1 + (2*i + 1)/32), 2^-6)
//: log = 0 - log2(c)
inline constexpr double kLog2Octave64[16][2] = {
    {0x1p0, 0.0}, {0x1.ep-1, 0x1.7d60496cfbb4cp-4}, {0x1.cp-1, 0x1.8a8980abfbd32p-3}, {0x1.ap-1, 0x1.32bfee370ee68p-2},
    {0x1.9p-1, 0x1.6cb0f6865c8eap-2}, {0x1.8p-1, 0x1.a8ff971810a5ep-2}, {0x1.7p-1, 0x1.e7df5fe538ab3p-2},
    {0x1.6p-1, 0x1.14c560fe68af9p-1}, {0x1.5p-1, 0x1.37222bb70747cp-1}, {0x1.4p-1, 0x1.5b2c3da19723bp-1},
    {0x1.38p-1, 0x1.6ddfc2a78fc63p-1}, {0x1.28p-1, 0x1.94c287492c4dbp-1}, {0x1.2p-1, 0x1.a8ff971810a5ep-1},
    {0x1.18p-1, 0x1.bdce9dcc96187p-1}, {0x1.1p-1, 0x1.d338120a6dd9dp-1}, {0x1p-1, 0x1p0}
};
//: c = i < 4 ? 1 - i/16 : i == 15 ? 1/2 : grid(1 / (1 + (2*i + 1)/32), 2^-6)
//: log = 0 - log10(c)
inline constexpr double kLog10Octave64[16][2] = {
    {0x1p0, 0.0}, {0x1.ep-1, 0x1.cb38fccd8bfdbp-6}, {0x1.cp-1, 0x1.db11ed766abf4p-5}, {0x1.ap-1, 0x1.715d0ce367afcp-4},
    {0x1.9p-1, 0x1.b721cd17157e3p-4}, {0x1.8p-1, 0x1.ffbfc2bbc7803p-4}, {0x1.7p-1, 0x1.25ba8215af7fcp-3},
    {0x1.6p-1, 0x1.4d43f8275a483p-3}, {0x1.5p-1, 0x1.76a45cbb7e6ffp-3}, {0x1.4p-1, 0x1.a209a84fbcff8p-3},
    {0x1.38p-1, 0x1.b88e67cf9798p-3}, {0x1.28p-1, 0x1.e76124046b3f3p-3}, {0x1.2p-1, 0x1.ffbfc2bbc7803p-3},
    {0x1.18p-1, 0x1.0c6711d6abd7ap-2}, {0x1.1p-1, 0x1.194b3bdef6b9ep-2}, {0x1p-1, 0x1.34413509f79ffp-2}
};
//: c = i < 4 ? 1 - i/16 : i == 15 ? 1/2 : grid(1 / (1 + (2*i + 1)/32), 2^-6)
//: log = 0 - log(c)
inline constexpr double kLnOctave64[16][2] = {
    {0x1p0, 0.0}, {0x1.ep-1, 0x1.08598b59e3a07p-4}, {0x1.cp-1, 0x1.1178e8227e47cp-3}, {0x1.ap-1, 0x1.a93ed3c8ad9e3p-3},
    {0x1.9p-1, 0x1.f991c6cb3b379p-3}, {0x1.8p-1, 0x1.269621134db92p-2}, {0x1.7p-1, 0x1.522ae0738a3d8p-2},
    {0x1.6p-1, 0x1.7fafa3bd8151cp-2}, {0x1.5p-1, 0x1.af5295248cddp-2}, {0x1.4p-1, 0x1.e148a1a2726cep-2},
    {0x1.38p-1, 0x1.fb358af7a4884p-2}, {0x1.28p-1, 0x1.188ee40f23ca6p-1}, {0x1.2p-1, 0x1.269621134db92p-1},
    {0x1.18p-1, 0x1.35028ad9d8c86p-1}, {0x1.1p-1, 0x1.43d9ff2f923c5p-1}, {0x1p-1, 0x1.62e42fefa39efp-1}
};

// The same logarithms in two parts: a head on the grid of that of log(2), so that it adds exactly to its multiples, and
// what it lacks. The last row has the parts that the lanes multiply by the exponent, so that they cancel.
//: let c = i < 4 ? 1 - i/16 : i == 15 ? 1/2 : grid(1 / (1 + (2*i + 1)/32), 2^-6)
//: head = grid(0 - log2(c), 2^-17)
//: tail = 0 - log2(c) - head
inline constexpr float kLog2OctaveParts32[16][2] = {
    {0.0f, 0.0f}, {0x1.7d6p-4f, 0x1.25b3eep-22f}, {0x1.8a88p-3f, 0x1.80abfcp-19f}, {0x1.32cp-2f, -0x1.1c8f12p-22f},
    {0x1.6cbp-2f, 0x1.ed0cbap-19f}, {0x1.a9p-2f, -0x1.a39fbep-20f}, {0x1.e7ep-2f, -0x1.40358ep-19f},
    {0x1.14c5p-1f, 0x1.83f9a2p-19f}, {0x1.3722p-1f, 0x1.5db83ap-20f}, {0x1.5b2cp-1f, 0x1.ed0cbap-20f},
    {0x1.6dep-1f, -0x1.eac382p-20f}, {0x1.94c3p-1f, -0x1.e2db4ep-19f}, {0x1.a9p-1f, -0x1.a39fbep-19f},
    {0x1.bdcfp-1f, -0x1.88cda8p-19f}, {0x1.d338p-1f, 0x1.20a6dep-21f}, {0x1p0f, 0.0f}
};
//: let c = i < 4 ? 1 - i/16 : i == 15 ? 1/2 : grid(1 / (1 + (2*i + 1)/32), 2^-6)
//: head = grid(0 - log10(c), 2^-17)
//: tail = 0 - log10(c) - head
inline constexpr float kLog10OctaveParts32[16][2] = {
    {0.0f, 0.0f}, {0x1.cb4p-6f, -0x1.c0cc9ep-20f}, {0x1.db1p-5f, 0x1.ed766ap-21f}, {0x1.716p-4f, -0x1.798e4cp-19f},
    {0x1.b72p-4f, 0x1.cd1716p-20f}, {0x1.ffcp-4f, -0x1.ea21c4p-23f}, {0x1.25bcp-3f, -0x1.7dea5p-19f},
    {0x1.4d44p-3f, -0x1.f6296ep-25f}, {0x1.76a4p-3f, 0x1.72edfap-21f}, {0x1.a208p-3f, 0x1.a84fbcp-19f},
    {0x1.b89p-3f, -0x1.983068p-19f}, {0x1.e76p-3f, 0x1.24046cp-19f}, {0x1.ffcp-3f, -0x1.ea21c4p-22f},
    {0x1.0c68p-2f, -0x1.dc52a8p-19f}, {0x1.194cp-2f, -0x1.884212p-19f}, {0x1.3442p-2f, -0x1.95ec1p-19f}
};
//: let c = i < 4 ? 1 - i/16 : i == 15 ? 1/2 : grid(1 / (1 + (2*i + 1)/32), 2^-6)
//: head = grid(0 - log(c), 2^-17)
//: tail = 0 - log(c) - head
inline constexpr float kLnOctaveParts32[16][2] = {
    {0.0f, 0.0f}, {0x1.0858p-4f, 0x1.8b59e4p-20f}, {0x1.1178p-3f, 0x1.d044fcp-20f}, {0x1.a94p-3f, -0x1.2c3752p-19f},
    {0x1.f99p-3f, 0x1.c6cb3cp-19f}, {0x1.2696p-2f, 0x1.089a6ep-21f}, {0x1.522ap-2f, 0x1.c0e714p-19f},
    {0x1.7fbp-2f, -0x1.7109fap-20f}, {0x1.af52p-2f, 0x1.2a491ap-19f}, {0x1.e148p-2f, 0x1.4344e4p-19f},
    {0x1.fb36p-2f, -0x1.d4216ep-20f}, {0x1.188fp-1f, -0x1.bf0dc4p-21f}, {0x1.2696p-1f, 0x1.089a6ep-20f},
    {0x1.3503p-1f, -0x1.d4989cp-19f}, {0x1.43dap-1f, -0x1.a0db88p-26f}, {0x1.62e4p-1f, 0x1.7f7d1cp-20f}
};
//: let c = i < 4 ? 1 - i/16 : i == 15 ? 1/2 : grid(1 / (1 + (2*i + 1)/32), 2^-6)
//: head = grid(0 - log2(c), 2^-38)
//: tail = 0 - log2(c) - head
inline constexpr double kLog2OctaveParts64[16][2] = {
    {0.0, 0.0}, {0x1.7d60496dp-4, -0x1.12ce6312ebb82p-42}, {0x1.8a8980acp-3, -0x1.0b36665592075p-41},
    {0x1.32bfee371p-2, -0x1.1979a5db68722p-42}, {0x1.6cb0f6866p-2, -0x1.b8afe492bf6ffp-41},
    {0x1.a8ff97181p-2, 0x1.4bc302ffa76fbp-43}, {0x1.e7df5fe54p-2, -0x1.d532c412ba94ep-40},
    {0x1.14c560fe68p-1, 0x1.5f101c141e67p-42}, {0x1.37222bb708p-1, -0x1.708b4b2b5056cp-42},
    {0x1.5b2c3da198p-1, -0x1.b8afe492bf6ffp-42}, {0x1.6ddfc2a79p-1, -0x1.ce60916e52e91p-44},
    {0x1.94c287493p-1, -0x1.d927dfc23d978p-40}, {0x1.a8ff97181p-1, 0x1.4bc302ffa76fbp-42},
    {0x1.bdce9dcc98p-1, -0x1.e78e589ef1bf4p-41}, {0x1.d338120a7p-1, -0x1.13167ccc53826p-40}, {0x1p0, 0.0}
};
//: let c = i < 4 ? 1 - i/16 : i == 15 ? 1/2 : grid(1 / (1 + (2*i + 1)/32), 2^-6)
//: head = grid(0 - log10(c), 2^-38)
//: tail = 0 - log10(c) - head
inline constexpr double kLog10OctaveParts64[16][2] = {
    {0.0, 0.0}, {0x1.cb38fccep-6, -0x1.d00925a535ae7p-40}, {0x1.db11ed768p-5, -0x1.540bcd23c3e45p-41},
    {0x1.715d0ce38p-4, -0x1.8504526103aaap-40}, {0x1.b721cd17p-4, 0x1.57e295f660b9ep-40},
    {0x1.ffbfc2bbcp-4, 0x1.e00dd60df12c3p-42}, {0x1.25ba8215ap-3, 0x1.eff840d2740f8p-40},
    {0x1.4d43f8276p-3, -0x1.6df3565d4338dp-41}, {0x1.76a45cbb8p-3, -0x1.901388732d38dp-43},
    {0x1.a209a84fcp-3, -0x1.80433b83b532ap-42}, {0x1.b88e67cfap-3, -0x1.0d00dcdd875f9p-40},
    {0x1.e76124046p-3, 0x1.67e5e1dc01f05p-40}, {0x1.ffbfc2bbcp-3, 0x1.e00dd60df12c3p-41},
    {0x1.0c6711d6bp-2, -0x1.0a16b572cf3edp-40}, {0x1.194b3bdefp-2, 0x1.ae77e29042117p-40},
    {0x1.34413509fp-2, 0x1.e7fbcc47c4acdp-40}
};
//: let c = i < 4 ? 1 - i/16 : i == 15 ? 1/2 : grid(1 / (1 + (2*i + 1)/32), 2^-6)
//: head = grid(0 - log(c), 2^-38)
//: tail = i == 15 ? bits(log(2) - head, 38) : 0 - log(c) - head
inline constexpr double kLnOctaveParts64[16][2] = {
    {0.0, 0.0}, {0x1.08598b5ap-4, -0x1.c5f9775c02641p-40}, {0x1.1178e8228p-3, -0x1.b8421cc74be04p-43},
    {0x1.a93ed3c8ap-3, 0x1.b3c6de57d4ef5p-40}, {0x1.f991c6cb4p-3, -0x1.321a099af9906p-41},
    {0x1.269621135p-2, -0x1.236c3e20a44c5p-41}, {0x1.522ae0739p-2, -0x1.70a0c7bf4d9c5p-40},
    {0x1.7fafa3bd8p-2, 0x1.51bede6fdb533p-42}, {0x1.af5295249p-2, -0x1.917cc55277446p-41},
    {0x1.e148a1a27p-2, 0x1.366ca6fc66eb6p-41}, {0x1.fb358af7ap-2, 0x1.2210bf4782c92p-40},
    {0x1.188ee40f2p-1, 0x1.e53313be2ad19p-40}, {0x1.269621135p-1, -0x1.236c3e20a44c5p-40},
    {0x1.35028ad9d8p-1, 0x1.90b83f9527e6bp-42}, {0x1.43d9ff2f9p-1, 0x1.1e267b0b7efaep-40},
    {0x1.62e42fefap-1, 0x1.cf79abc9ep-40}
};

// A column of these a row.
template <class E, size_t Count>
struct Columns {
  alignas(64) E of[2][Count];
  explicit constexpr Columns(const E (&rows)[Count][2]) : of{} {
    for (size_t i = 0; i < Count; ++i) of[0][i] = rows[i][0], of[1][i] = rows[i][1];
  }
};
template <const auto& Rows>
inline constexpr Columns kColumns(Rows);

}  // namespace orvik::zym
