// Polynomials and constants of the powers, coefficients from the highest power down. Numbers by tools/approx from the
// lines marked //:.
#pragma once

namespace orvik::zym {

// --- logarithms to base 2 of the lanes ------------------------------------------------------------------------------

// 32 bits: the first two coefficients have tails.
inline constexpr float kPowLead32 = 0x1.715476p0f;  //: = 1.4426950216293335
inline constexpr float kPowLeadTail32 = 0x1.4ade2ap-26f;  //: = 1.925904236088627e-08
inline constexpr float kPowSecond32 = -0x1.715476p-1f;  //: = -0.7213475108146667
inline constexpr float kPowSecondTail32 = -0x1.7384aap-27f;  //: = -1.0812603257193132e-08
//: x * (kPowLead32 + kPowLeadTail32 + x * (kPowSecond32 + kPowSecondTail32 + x * p(x))) = log2(1 + x)
//:   on [-1/16, 1/16], relative error 2^-36.7
inline constexpr float kPowLog2Single[5] = {
    0x1.a8fdbcp-3f, -0x1.eef98ep-3f, 0x1.2775b8p-2f, -0x1.7153d4p-2f, 0x1.ec709ep-2f
};

// 64 bits, |r| up to half a unit of 1/1024 and the error of the estimate, 1.5 * 2^-12.
inline constexpr double kPowLead64 = 0x1.71547652b82fep0;  //: = 1.4426950408889634
inline constexpr double kPowLeadTail64 = 0x1.77a3a2c24613dp-56;  //: = 2.0363441957695363e-17
//: x * (kPowLead64 + kPowLeadTail64 + x * p(x)) = log2(1 + x) on [-0.00136, 0.00136], relative error 2^-60.7
inline constexpr double kPowLog2DoubleLA[5] = {
    -0x1.ec1cfbbc5c90cp-3, 0x1.2776da3d26e6ap-2, -0x1.71547655d37ep-2, 0x1.ec709dc39fb02p-2, -0x1.71547652b82fep-1
};

inline constexpr double kPowSecond64 = -0x1.71547652b82fep-1;      //: = -log2(exp(1)) / 2
//: x * (kLog2E64 + kLog2ETail64 + x * (kPowSecond64 + x * p(x))) = log2(1 + x)
//:   on [-0.00136, 0.00136], relative error 2^-66.4
//: fit power/coefficients.sollya
inline constexpr double kPowLog2DoubleHA[5] = {
    0x1.a60b396adc872p-3, -0x1.ec70d5b99c9eap-3, 0x1.2776c50fe8ec7p-2, -0x1.71547652b756dp-2, 0x1.ec709dc3a03fdp-2
};

// Rows of an octave as in explog/octave.h, for an exponent that is not rounded up: c and its logarithm with the other
// sign.
//: c = i < 4 ? 1 - i/16 : i == 15 ? 1/2 : grid(1 / (1 + (2*i + 1)/32), 2^-6)
//: log = 0 - log2(c)
inline constexpr double kPowOctave64[16][2] = {
    {0x1p0, 0.0}, {0x1.ep-1, 0x1.7d60496cfbb4cp-4}, {0x1.cp-1, 0x1.8a8980abfbd32p-3}, {0x1.ap-1, 0x1.32bfee370ee68p-2},
    {0x1.9p-1, 0x1.6cb0f6865c8eap-2}, {0x1.8p-1, 0x1.a8ff971810a5ep-2}, {0x1.7p-1, 0x1.e7df5fe538ab3p-2},
    {0x1.6p-1, 0x1.14c560fe68af9p-1}, {0x1.5p-1, 0x1.37222bb70747cp-1}, {0x1.4p-1, 0x1.5b2c3da19723bp-1},
    {0x1.38p-1, 0x1.6ddfc2a78fc63p-1}, {0x1.28p-1, 0x1.94c287492c4dbp-1}, {0x1.2p-1, 0x1.a8ff971810a5ep-1},
    {0x1.18p-1, 0x1.bdce9dcc96187p-1}, {0x1.1p-1, 0x1.d338120a6dd9dp-1}, {0x1p-1, 0x1p0}
};
// Of these, for floats computed in doubles: the error counts up to 126 times.
//: x * p(x) = log2(1 + x) on [-0.0352, 0.0625], relative error 2^-39.6
//: fit power/coefficients.sollya
inline constexpr double kPowLog2Octave[7] = {
    0x1.85d6acba94de6p-3, -0x1.ec9a1925ea672p-3, 0x1.277f5b42dfbeap-2, -0x1.7154862f2b505p-2, 0x1.ec709c8dba851p-2,
    -0x1.71547651e1c08p-1, 0x1.71547652b9ee3p0
};

// --- powers of 2 of the lanes ---------------------------------------------------------------------------------------

// Natural logarithms of 64 bits at lower accuracy.
//: x + x^2 * p(x) = log(1 + x) on [-0.00136, 0.00136], relative error 2^-40.4
inline constexpr double kPowLnDouble[3] = {-0x1.0000148058ee1p-2, 0x1.55555555543c5p-2, -0x1.ffffffffff81fp-2};

// e^t by steps of ln(2) / 2048.
inline constexpr double k2048OverLn2 = 0x1.71547652b82fep11;  //: = 2048 / log(2)
inline constexpr double kLn2Over2048 = 0x1.62e42fefa39efp-12;  //: = log(2) / 2048

//: 1 + x * p(x) = 2^x on [-1/32, 1/32], relative error 2^-37.5
//: fit power/coefficients.sollya
inline constexpr double kPowExp2Sixteenth[4] = {
    0x1.3b2ab6fb7bf16p-7, 0x1.c6b3487ff16cfp-5, 0x1.ebfbdffb53ef5p-3, 0x1.62e42fee461a2p-1
};

//: 1 + x * p(x) = 2^x on [-1/16, 1/16], relative error 2^-24.6
inline constexpr float kPowExp2Single[3] = {0x1.c6c0fp-5f, 0x1.ec0f92p-3f, 0x1.62e43p-1f};

// |f| up to half a step of the table, and what a rounding of the sum before the split adds.
//: 1 + x * p(x) = 2^x on [-0.00196, 0.00196], relative error 2^-57.5
//: fit power/coefficients.sollya
inline constexpr double kPowExp2DoubleLA[4] = {
    0x1.3b2ab6faffca4p-7, 0x1.c6b09030914bep-5, 0x1.ebfbdff82c5c2p-3, 0x1.62e42fefa39d9p-1
};
// The tail of y log2(x) comes on top, up to a tenth of a step.
//: 1 + x * p(x) = 2^x on [-0.0047, 0.0047], relative error 2^-62.7
//: fit power/coefficients.sollya
inline constexpr double kPowExp2DoubleHA[5] = {
    0x1.5d7dccaf127cep-10, 0x1.3b2ac01e3cf81p-7, 0x1.c6b08d70dde08p-5, 0x1.ebfbdff82c24p-3, 0x1.62e42fefa39efp-1
};

// --- element routine ------------------------------------------------------------------------------------------------

// log2(1 + z / 1.44140625) = z (1 + lead) + z^2 p(z).
inline constexpr float kElementLead32 = 0x1.d4c6d2p-11f;      //: = log2(exp(1)) / 1.44140625 - 1
inline constexpr float kElementLeadTail32 = 0x1.78b5d4p-36f;  //: = log2(exp(1)) / 1.44140625 - 1 - kElementLead32
//: x * (1 + kElementLead32 + kElementLeadTail32 + x * p(x)) = log2(1 + x / 1.44140625) on [-0.00084, 0.00084], relative error 2^-38.0
inline constexpr float kElementLog2Single[3] = {-0x1.563d42p-4f, 0x1.48ded2p-3f, -0x1.6386bap-2f};

inline constexpr double kElementLead64 = 0x1.d4c6d2bc5aea5p-11;      //: = log2(exp(1)) / 1.44140625 - 1
inline constexpr double kElementLeadTail64 = -0x1.f2d19ed64700dp-68;  //: = log2(exp(1)) / 1.44140625 - 1 - kElementLead64
//: x * (1 + kElementLead64 + kElementLeadTail64 + x * p(x)) = log2(1 + x / 1.44140625) on [-0.00018, 0.00018], relative error 2^-70.3
//: fit power/coefficients.sollya
inline constexpr double kElementLog2Double[5] = {
    -0x1.50a75a8afd1ffp-4, 0x1.7be4dfea65e54p-5, -0x1.563d0f33fc0f9p-4, 0x1.48dead30107dep-3, -0x1.6386b9b9b5d42p-2
};

//: 1 + x * p(x) = 2^x on [-0.0040, 0.0040], relative error 2^-36.5
inline constexpr float kElementExp2Single[3] = {0x1.c6b08ep-5f, 0x1.ebfbep-3f, 0x1.62e43p-1f};

}  // namespace orvik::zym
