// Rows of an octave by the upper bits of m in [1, 2), for registers. Numbers by tools/approx from the lines
// marked //:.
#pragma once

#include <cstddef>

namespace orvik::zym {

// c near 1/m, 1 in the first row and 1/2 in the last. With an m of 24 or 53 bits c m - 1 is exact: c has six bits, five
// where c m - 1 may exceed 1/32.
//: = i < 4 ? 1 - i/16 : i == 15 ? 1/2 : grid(1 / (1 + (2*i + 1)/32), 2^-6)
inline constexpr float kOctaveReciprocals32[16] = {
    0x1p0f, 0x1.ep-1f, 0x1.cp-1f, 0x1.ap-1f, 0x1.9p-1f, 0x1.8p-1f, 0x1.7p-1f, 0x1.6p-1f, 0x1.5p-1f, 0x1.4p-1f,
    0x1.38p-1f, 0x1.28p-1f, 0x1.2p-1f, 0x1.18p-1f, 0x1.1p-1f, 0x1p-1f
};
// Of ln(1 + x), whose c (1 + x) - 1 is rounded: twelve bits, so that it is small, and less than 2^-5 in the second row.
//: = i == 0 ? 1 : i == 1 ? 3755 * 2^-12 : i == 15 ? 1/2 : grid(1 / (1 + (2*i + 1)/32), 2^-12)
inline constexpr float kLn1pOctaveReciprocals32[16] = {
    0x1p0f, 0x1.d56p-1f, 0x1.bacp-1f, 0x1.a42p-1f, 0x1.8fap-1f, 0x1.7dp-1f, 0x1.6c2p-1f, 0x1.5cap-1f, 0x1.4e6p-1f,
    0x1.414p-1f, 0x1.352p-1f, 0x1.29ep-1f, 0x1.1f8p-1f, 0x1.15cp-1f, 0x1.0cap-1f, 0x1p-1f
};

// c, and its logarithm with the other sign; from m = 3/2 on that of 2 c, since e is taken one more there. Of floats rows of
// eighths serve.
//: c = i == 0 ? 1 : i == 7 ? 1/2 : grid(1 / (1 + (2*i + 1)/16), 2^-8)
//: log = 0 - log2(i < 4 ? c : 2 * c)
inline constexpr float kLog2Eighths32[8][2] = {
    {0x1p0f, 0.0f}, {0x1.bp-1f, 0x1.f5fd8ap-3f}, {0x1.86p-1f, 0x1.9218p-2f}, {0x1.64p-1f, 0x1.0c6caap-1f},
    {0x1.48p-1f, -0x1.6e221cp-2f}, {0x1.3p-1f, -0x1.fbc16cp-3f}, {0x1.1ap-1f, -0x1.1dcd1ap-3f}, {0x1p-1f, 0.0f}
};
//: c = i == 0 ? 1 : i == 7 ? 1/2 : grid(1 / (1 + (2*i + 1)/16), 2^-8)
//: log = 0 - log10(i < 4 ? c : 2 * c)
inline constexpr float kLog10Eighths32[8][2] = {
    {0x1p0f, 0.0f}, {0x1.bp-1f, 0x1.2e3a74p-4f}, {0x1.86p-1f, 0x1.e42b4cp-4f}, {0x1.64p-1f, 0x1.43371cp-3f},
    {0x1.48p-1f, -0x1.b8de4ep-4f}, {0x1.3p-1f, -0x1.31b306p-4f}, {0x1.1ap-1f, -0x1.58238ep-5f}, {0x1p-1f, 0.0f}
};
//: c = i == 0 ? 1 : i == 7 ? 1/2 : grid(1 / (1 + (2*i + 1)/16), 2^-8)
//: log = 0 - log(i < 4 ? c : 2 * c)
inline constexpr float kLn1pEighths32[8][2] = {
    {0x1p0f, 0.0f}, {0x1.bp-1f, 0x1.5bf406p-3f}, {0x1.86p-1f, 0x1.16b5ccp-2f}, {0x1.64p-1f, 0x1.741d88p-2f},
    {0x1.48p-1f, -0x1.fb9186p-3f}, {0x1.3p-1f, -0x1.5ff308p-3f}, {0x1.1ap-1f, -0x1.8c345ep-4f}, {0x1p-1f, 0.0f}
};
//: c = i < 4 ? 1 - i/16 : i == 15 ? 1/2 : grid(1 / (1 + (2*i + 1)/32), 2^-6)
//: log = 0 - log2(i < 8 ? c : 2 * c)
inline constexpr double kLog2Octave64[16][2] = {
    {0x1p0, 0.0}, {0x1.ep-1, 0x1.7d60496cfbb4cp-4}, {0x1.cp-1, 0x1.8a8980abfbd32p-3}, {0x1.ap-1, 0x1.32bfee370ee68p-2},
    {0x1.9p-1, 0x1.6cb0f6865c8eap-2}, {0x1.8p-1, 0x1.a8ff971810a5ep-2}, {0x1.7p-1, 0x1.e7df5fe538ab3p-2},
    {0x1.6p-1, 0x1.14c560fe68af9p-1}, {0x1.5p-1, -0x1.91bba891f1709p-2}, {0x1.4p-1, -0x1.49a784bcd1b8bp-2},
    {0x1.38p-1, -0x1.24407ab0e073ap-2}, {0x1.28p-1, -0x1.acf5e2db4ec94p-3}, {0x1.2p-1, -0x1.5c01a39fbd688p-3},
    {0x1.18p-1, -0x1.08c588cda79e4p-3}, {0x1.1p-1, -0x1.663f6fac91316p-4}, {0x1p-1, 0.0}
};
//: c = i < 4 ? 1 - i/16 : i == 15 ? 1/2 : grid(1 / (1 + (2*i + 1)/32), 2^-6)
//: log = 0 - log10(i < 8 ? c : 2 * c)
inline constexpr double kLog10Octave64[16][2] = {
    {0x1p0, 0.0}, {0x1.ep-1, 0x1.cb38fccd8bfdbp-6}, {0x1.cp-1, 0x1.db11ed766abf4p-5}, {0x1.ap-1, 0x1.715d0ce367afcp-4},
    {0x1.9p-1, 0x1.b721cd17157e3p-4}, {0x1.8p-1, 0x1.ffbfc2bbc7803p-4}, {0x1.7p-1, 0x1.25ba8215af7fcp-3},
    {0x1.6p-1, 0x1.4d43f8275a483p-3}, {0x1.5p-1, -0x1.e3bc1ab0e19fep-4}, {0x1.4p-1, -0x1.8cf183886480dp-4},
    {0x1.38p-1, -0x1.5fe80488af4fdp-4}, {0x1.28p-1, -0x1.02428c1f08016p-4}, {0x1.2p-1, -0x1.a30a9d609efeap-5},
    {0x1.18p-1, -0x1.3ed1199a5e425p-5}, {0x1.1p-1, -0x1.af5f92b00e61p-6}, {0x1p-1, 0.0}
};
//: c = i < 4 ? 1 - i/16 : i == 15 ? 1/2 : grid(1 / (1 + (2*i + 1)/32), 2^-6)
//: log = 0 - log(i < 8 ? c : 2 * c)
inline constexpr double kLnOctave64[16][2] = {
    {0x1p0, 0.0}, {0x1.ep-1, 0x1.08598b59e3a07p-4}, {0x1.cp-1, 0x1.1178e8227e47cp-3}, {0x1.ap-1, 0x1.a93ed3c8ad9e3p-3},
    {0x1.9p-1, 0x1.f991c6cb3b379p-3}, {0x1.8p-1, 0x1.269621134db92p-2}, {0x1.7p-1, 0x1.522ae0738a3d8p-2},
    {0x1.6p-1, 0x1.7fafa3bd8151cp-2}, {0x1.5p-1, -0x1.1675cababa60ep-2}, {0x1.4p-1, -0x1.c8ff7c79a9a22p-3},
    {0x1.38p-1, -0x1.9525a9cf456b4p-3}, {0x1.28p-1, -0x1.29552f81ff523p-3}, {0x1.2p-1, -0x1.e27076e2af2e6p-4},
    {0x1.18p-1, -0x1.6f0d28ae56b4cp-4}, {0x1.1p-1, -0x1.f0a30c01162a6p-5}, {0x1p-1, 0.0}
};
//: c = i == 0 ? 1 : i == 1 ? 3755 * 2^-12 : i == 15 ? 1/2 : grid(1 / (1 + (2*i + 1)/32), 2^-12)
//: log = 0 - log(i < 8 ? c : 2 * c)
inline constexpr double kLn1pOctave64[16][2] = {
    {0x1p0, 0.0}, {0x1.d56p-1, 0x1.6408f471c82a6p-4}, {0x1.bacp-1, 0x1.299d30c606ea7p-3},
    {0x1.a42p-1, 0x1.9509aa0044f8fp-3}, {0x1.8fap-1, 0x1.fb7d86eee3b9p-3}, {0x1.7dp-1, 0x1.2e9e2bce12286p-2},
    {0x1.6c2p-1, 0x1.5d01dc49ff2e8p-2}, {0x1.5cap-1, 0x1.898d38a89347ep-2}, {0x1.4e6p-1, -0x1.117ee81dfe4c4p-2},
    {0x1.414p-1, -0x1.d0fb7f2255e51p-3}, {0x1.352p-1, -0x1.8230164c1a332p-3}, {0x1.29ep-1, -0x1.3643cad0588f1p-3},
    {0x1.1f8p-1, -0x1.db5270187d927p-4}, {0x1.15cp-1, -0x1.4e01108a35ae6p-4}, {0x1.0cap-1, -0x1.8a5a9cc614ca4p-5},
    {0x1p-1, 0.0}
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
//: let c = i == 0 ? 1 : i == 1 ? 3755 * 2^-12 : i == 15 ? 1/2 : grid(1 / (1 + (2*i + 1)/32), 2^-12)
//: head = grid(0 - log(c), 2^-17)
//: tail = 0 - log(c) - head
inline constexpr float kLn1pOctaveParts32[16][2] = {
    {0.0f, 0.0f}, {0x1.6408p-4f, 0x1.e8e39p-21f}, {0x1.299cp-3f, 0x1.30c606p-19f}, {0x1.9508p-3f, 0x1.aa0044p-19f},
    {0x1.fb7cp-3f, 0x1.86eee4p-19f}, {0x1.2e9ep-2f, 0x1.5e7092p-21f}, {0x1.5d02p-2f, -0x1.1db006p-21f},
    {0x1.898ep-2f, -0x1.8eaedap-19f}, {0x1.b44ap-2f, -0x1.107d6ep-19f}, {0x1.dd4ap-2f, 0x1.409c38p-19f},
    {0x1.0258p-1f, 0x1.52e4e8p-20f}, {0x1.1553p-1f, 0x1.e9dc6cp-20f}, {0x1.277ap-1f, -0x1.e136c2p-21f},
    {0x1.3924p-1f, 0x1.bbcb9ep-22f}, {0x1.4a3fp-1f, -0x1.e772f6p-19f}, {0x1.62e4p-1f, 0x1.7f7d1cp-20f}
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
//: let c = i == 0 ? 1 : i == 1 ? 3755 * 2^-12 : i == 15 ? 1/2 : grid(1 / (1 + (2*i + 1)/32), 2^-12)
//: head = grid(0 - log(c), 2^-38)
//: tail = i == 15 ? bits(log(2) - head, 38) : 0 - log(c) - head
inline constexpr double kLn1pOctaveParts64[16][2] = {
    {0.0, 0.0}, {0x1.6408f471cp-4, 0x1.054cd33e024c9p-41}, {0x1.299d30c6p-3, 0x1.ba9a00f3b811bp-41},
    {0x1.9509aa004p-3, 0x1.3e3cceb69a6b9p-41}, {0x1.fb7d86eeep-3, 0x1.dc7f3c648fed1p-42},
    {0x1.2e9e2bce1p-2, 0x1.14300c128d1dcp-41}, {0x1.5d01dc4ap-2, -0x1.a2fd51cc1684bp-43},
    {0x1.898d38a89p-2, 0x1.a3eccc0e3c5ebp-41}, {0x1.b44977c15p-2, -0x1.c395cbc04ad92p-40},
    {0x1.dd4aa04e2p-2, -0x1.da4f5da41fcap-41}, {0x1.02582a5cap-1, -0x1.76e9c9d8b38f4p-40},
    {0x1.15533d3b9p-1, -0x1.4267e3574f2c4p-40}, {0x1.2779e1ec9p-1, 0x1.f6523373359b8p-40},
    {0x1.39240dde6p-1, -0x1.8b6c241548a75p-40}, {0x1.4a3e86234p-1, 0x1.2927d4c9fbc23p-40},
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
