// Polynomials of the roots, highest power first, and powers of 2^(1/3). Numbers and worst errors by tools/approx from the
// lines marked //:.
#pragma once

#include <cstdint>

namespace orvik::zym::roots {

// --- square roots ---------------------------------------------------------------------------------------------------

// With y an estimate of 1/sqrt(z) and x = 1 - z y^2, 1/sqrt(z) = y (1 - x)^(-1/2). Estimates are within 1.5 * 2^-12 on every
// processor: |x| is below 2 * 1.5 * 2^-12 + (1.5 * 2^-12)^2 = 7.326e-4, with the roundings 7.34e-4. Given, not fitted here:
// results are defined with these coefficients.
//: 1 + x * p(x) = (1 - x)^(-1/2) on [-7.34e-4, 7.34e-4], relative error 2^-58.0
inline constexpr double kInverseRootTail[4] = {
    0x1.1800032338cbbp-2, 0x1.40000b13001d9p-2, 0x1.80000000000f6p-2, 0x1.ffffffffffe71p-2
};
//: p(x) = (1 - x)^(-1/2) on [-7.34e-4, 7.34e-4], relative error 2^-34.8
inline constexpr double kInverseRootShort[3] = {0x1.80000c4cd9197p-2, 0x1.000004379adb7p-1, 0x1.fffffffffff4fp-1};

// --- cube roots -----------------------------------------------------------------------------------------------------

// With w an estimate of z^(-1/3) and x = 1 - z w^3: z^(1/3) = z w^2 (1 - x)^(-2/3), z^(-1/3) = w (1 - x)^(-1/3),
// z^(2/3) = z w (1 - x)^(-1/3).

// 2^(k/3), 2^(-k/3), 2^(2k/3) for k = -1, 0, 1, by k + 1 in the two low bits of an index of three.
//: = mod(i, 4) < 3 ? 2^((mod(i, 4) - 1)/3) : 0
alignas(32) inline constexpr float kThirdRoots[8] = {
    0x1.965feap-1f, 0x1p0f, 0x1.428a3p0f, 0.0f, 0x1.965feap-1f, 0x1p0f, 0x1.428a3p0f, 0.0f
};
//: = mod(i, 4) < 3 ? 2^((1 - mod(i, 4))/3) : 0
alignas(32) inline constexpr float kInverseThirdRoots[8] = {
    0x1.428a3p0f, 0x1p0f, 0x1.965feap-1f, 0.0f, 0x1.428a3p0f, 0x1p0f, 0x1.965feap-1f, 0.0f
};
//: = mod(i, 4) < 3 ? 2^(2 * (mod(i, 4) - 1)/3) : 0
alignas(32) inline constexpr float kTwoThirdRoots[8] = {
    0x1.428a3p-1f, 0x1p0f, 0x1.965feap0f, 0.0f, 0x1.428a3p-1f, 0x1p0f, 0x1.965feap0f, 0.0f
};
// High words of 2^(-k/3), k = 0, 1, 2, as 64-bit floats, rounded down.
//: let power = 2^(-i/3)
//: let e = exponent(power)
//: = i < 3 ? (1023 + e) * 2^20 + floor((power / 2^e - 1) * 2^20) : 0
alignas(32) inline constexpr uint32_t kInverseThirdRootsHigh[8] = {
    0x3ff00000, 0x3fe965fe, 0x3fe428a2, 0x00000000, 0x00000000, 0x00000000, 0x00000000, 0x00000000
};

// Of the fraction in [1, 2), or of what it exceeds 1.5 by.
//: p(x) = (1.5 + x)^(1/3) on [-0.5, 0.5], relative error 2^-24.7
//: fit roots/coefficients.sollya
inline constexpr float kCbrtLow[8] = {
    0x1.a32a54p-10f, -0x1.66f342p-9f, 0x1.24e578p-8f, -0x1.2f1094p-7f, 0x1.57253cp-6f, -0x1.cf1ad8p-5f, 0x1.047c64p-2f,
    0x1.250bfep0f
};
//: p(x) = x^(1/3) on [1, 2], relative error 2^-13.7
//: fit roots/coefficients.sollya
inline constexpr float kCbrtShort[4] = {0x1.7a8d5ep-6f, -0x1.4dc31ep-3f, 0x1.2c9a46p-1f, 0x1.1b0ba8p-1f};
//: p(x) = (1.5 + x)^(-1/3) on [-0.5, 0.5], relative error 2^-24.9
//: fit roots/coefficients.sollya
inline constexpr float kInvCbrtLow[9] = {
    0x1.03e54ap-8f, -0x1.a40adcp-8f, 0x1.11574cp-7f, -0x1.ce4adap-7f, 0x1.976554p-6f, -0x1.6ea332p-5f, 0x1.6166a4p-4f,
    -0x1.8d9352p-3f, 0x1.bf45fp-1f
};
//: p(x) = x^(-1/3) on [1, 2], relative error 2^-11.9
//: fit roots/coefficients.sollya
inline constexpr float kInvCbrtStart[4] = {-0x1.991554p-5f, 0x1.456226p-2f, -0x1.9eb322p-1f, 0x1.8ab91cp0f};
//: p(x) = (1.5 + x)^(2/3) on [-0.5, 0.5], relative error 2^-25.4
//: fit roots/coefficients.sollya
inline constexpr float kPow2o3Low[8] = {
    0x1.0a663ep-10f, -0x1.dc311ep-10f, 0x1.ab529cp-9f, -0x1.e6a0acp-8f, 0x1.3a3786p-6f, -0x1.090e1p-4f, 0x1.2a2e9cp-1f,
    0x1.4f7474p0f
};
//: p(x) = x^(2/3) on [1, 2], relative error 2^-14.2
//: fit roots/coefficients.sollya
inline constexpr float kPow2o3Short[4] = {0x1.580306p-6f, -0x1.4a0516p-3f, 0x1.d906eep-1f, 0x1.bb03dep-3f};
//: p(x) = x^(-1/3) on [1, 2], relative error 2^-11.9
//: fit roots/coefficients.sollya
inline constexpr double kInvCbrtStart64[4] = {
    -0x1.991545e677386p-5, 0x1.45621f98e703fp-2, -0x1.9eb31e901aff3p-1, 0x1.8ab91b7f080b8p0
};
//: p(x) = x^(-1/3) on [1, 2], relative error 2^-14.6
//: fit roots/coefficients.sollya
inline constexpr double kInvCbrtStart64Short[5] = {
    0x1.d46f7d335a165p-6, -0x1.c5186105f7b16p-3, 0x1.6416505a13fa6p-1, -0x1.2c41e23e1ac07p0, 0x1.ab859043f8b7ep0
};

// |x| is at most three times the relative error of w. 32 bits, HA: kInvCbrtStart and the truncation to 12 bits,
// 3 (2^-11.9 + 2^-11) = 0.0023. 64 bits: kInvCbrtStart64 and powers rounded to 21 bits, 3 (2^-11.94 + 2^-20) = 0.00077; the
// truncation to 26 bits is nothing beside them. EP: kInvCbrtStart64Short, 3 (2^-14.69 + 2^-20) = 0.00012.
//: 1 + x * p(x) = (1 - x)^(-2/3) on [-0.0023, 0.0023], relative error 2^-28.3
//: fit roots/coefficients.sollya
inline constexpr float kCbrtTail[2] = {0x1.1c7218p-1f, 0x1.555582p-1f};
//: 1 + x * p(x) = (1 - x)^(-1/3) on [-0.0023, 0.0023], relative error 2^-29.8
//: fit roots/coefficients.sollya
inline constexpr float kInvCbrtTail[2] = {0x1.c71cd8p-3f, 0x1.555574p-2f};
//: 1 + x * p(x) = (1 - x)^(-2/3) on [-0.00077, 0.00077], relative error 2^-66.3
//: fit roots/coefficients.sollya
inline constexpr double kCbrtTail64[5] = {
    0x1.b04ab8a849c32p-2, 0x1.cf8a15f3c5567p-2, 0x1.f9add3c514012p-2, 0x1.1c71c71c71ae7p-1, 0x1.5555555555555p-1
};
//: 1 + x * p(x) = (1 - x)^(-1/3) on [-0.00077, 0.00077], relative error 2^-57.7
//: fit roots/coefficients.sollya
inline constexpr double kInvCbrtTail64[4] = {
    0x1.26fac8c415f71p-3, 0x1.61f9b7c0b266bp-3, 0x1.c71c71c71c45ep-3, 0x1.55555555554f3p-2
};
//: p(x) = (1 - x)^(-2/3) on [-0.00012, 0.00012], relative error 2^-27.8
//: fit roots/coefficients.sollya
inline constexpr double kCbrtTail64Short[2] = {0x1.5555557b82c53p-1, 0x1.000000112e0bfp0};
//: p(x) = (1 - x)^(-1/3) on [-0.00012, 0.00012], relative error 2^-29.2
//: fit roots/coefficients.sollya
inline constexpr double kInvCbrtTail64Short[2] = {0x1.55555576edf52p-2, 0x1.00000006df37fp0};

}  // namespace orvik::zym::roots
