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

// 64 bits. Reciprocals of 1 + i/16, times 2^1023, and their logarithms with the other sign. The rows are about their
// centres, the first on both sides of 1. With an m of 53 bits c m - 1 is exact: c has six bits after the point, five where
// c m - 1 may exceed 1/32.
//: let r = grid(1 / (1 + i/16), floor(i/2) == 3 ? 2^-5 : 2^-6)
//: c = 2^1023 * r
//: log = 0 - log2(r)
inline constexpr double kPowRows64[16][2] = {
    {0x1p1023, 0.0}, {0x1.ep1022, 0x1.7d60496cfbb4cp-4}, {0x1.c8p1022, 0x1.563dc29ffacb2p-3},
    {0x1.bp1022, 0x1.f5fd8a9063e35p-3}, {0x1.98p1022, 0x1.4f6fbb2cec598p-2}, {0x1.88p1022, 0x1.8a8980abfbd32p-2},
    {0x1.7p1022, 0x1.e7df5fe538ab3p-2}, {0x1.6p1022, 0x1.14c560fe68af9p-1}, {0x1.58p1022, 0x1.25c0a0463bebp-1},
    {0x1.48p1022, 0x1.48eef19317991p-1}, {0x1.38p1022, 0x1.6ddfc2a78fc63p-1}, {0x1.3p1022, 0x1.810fa51bf65fdp-1},
    {0x1.28p1022, 0x1.94c287492c4dbp-1}, {0x1.18p1022, 0x1.bdce9dcc96187p-1}, {0x1.1p1022, 0x1.d338120a6dd9dp-1},
    {0x1.08p1022, 0x1.e9452c8a71028p-1}
};
// The same logarithms in two parts: a head that adds exactly to an exponent, and what it lacks.
//: let r = grid(1 / (1 + i/16), floor(i/2) == 3 ? 2^-5 : 2^-6)
//: head = grid(0 - log2(r), 2^-42)
//: tail = 0 - log2(r) - head
inline constexpr double kPowRowParts64[16][2] = {
    {0.0, 0.0}, {0x1.7d60496cfcp-4, -0x1.2ce6312ebb81dp-46}, {0x1.563dc29ffap-3, 0x1.964190e41bca7p-44},
    {0x1.f5fd8a9064p-3, -0x1.cb6f70109b0f1p-47}, {0x1.4f6fbb2cecp-2, 0x1.661e393a16b95p-44},
    {0x1.8a8980abfcp-2, -0x1.66cccab240e9p-45}, {0x1.e7df5fe539p-2, -0x1.532c412ba94dbp-44},
    {0x1.14c560fe688p-1, 0x1.7c407050799bfp-44}, {0x1.25c0a0463cp-1, -0x1.50520a377c7ecp-45},
    {0x1.48eef193178p-1, 0x1.90d43956fa5d8p-45}, {0x1.6ddfc2a79p-1, -0x1.ce60916e52e91p-44},
    {0x1.810fa51bf68p-1, -0x1.0144751b3314fp-44}, {0x1.94c287492c8p-1, -0x1.927dfc23d978p-44},
    {0x1.bdce9dcc96p-1, 0x1.871a7610e40bdp-45}, {0x1.d338120a6ep-1, -0x1.3167ccc538261p-44},
    {0x1.e9452c8a71p-1, 0x1.3c6764fc87b4ap-48}
};

// The first three coefficients of log2(1 + x), and what the first two lack.
inline constexpr double kPowLead64 = 0x1.71547652b82fep0;  //: = log2(exp(1))
inline constexpr double kPowLeadTail64 = 0x1.777d0ffda0d24p-56;  //: = log2(exp(1)) - kPowLead64
inline constexpr double kPowSecond64 = -0x1.71547652b82fep-1;      //: = -log2(exp(1)) / 2
inline constexpr double kPowSecondTail64 = -0x1.777d0ffda0d24p-57;      //: = -log2(exp(1)) / 2 - kPowSecond64
inline constexpr double kPowThird64 = 0x1.ec709dc3a03fdp-2;      //: = log2(exp(1)) / 3
//: x * (kPowLead64 + kPowLeadTail64 + x * (kPowSecond64 + kPowSecondTail64 + x * (kPowThird64 + x * p(x)))) = log2(1 + x)
//:   on [-0.0342, 0.0328], relative error 2^-63.8
//: fit power/coefficients.sollya
inline constexpr double kPowLog2DoubleLA[8] = {
    0x1.0ea1d6416209p-3, -0x1.280380c7e6545p-3, 0x1.484a52d9cb07bp-3, -0x1.71545d2d24dcdp-3, 0x1.a61762bdb09a3p-3,
    -0x1.ec709dc51060dp-3, 0x1.2776c50ef9704p-2, -0x1.71547652b82e4p-2
};
//: x * (kPowLead64 + kPowLeadTail64 + x * (kPowSecond64 + kPowSecondTail64 + x * (kPowThird64 + p(x)))) = log2(1 + x)
//:   on [-0.0342, 0.0328], relative error 2^-71.4
//: fit power/coefficients.sollya
inline constexpr double kPowLog2DoubleHA[10] = {
    -0x1.f1e1871c36e79p-4, 0x1.0d3c5fcbb0e09p-3, -0x1.277557145b77p-3, 0x1.484aeb78af31ep-3, -0x1.71547698d8035p-3,
    0x1.a61762abcbc88p-3, -0x1.ec709dc39b0b9p-3, 0x1.2776c50ef9ad1p-2, -0x1.71547652b82ffp-2, 0x1.d96a782c3923p-56
};
// At EP: the error counts up to 1021 times.
//: x * p(x) = log2(1 + x) on [-0.0342, 0.0328], relative error 2^-43.2
//: fit power/coefficients.sollya
inline constexpr double kPowLog2DoubleEP[7] = {
    0x1.a8a2ecf52d65ep-3, -0x1.ed29af3b59387p-3, 0x1.2776613afccfbp-2, -0x1.7154690fe0e8ep-2, 0x1.ec709dcbb99f6p-2,
    -0x1.71547652f518dp-1, 0x1.71547652b829ep0
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

//: 1 + x * p(x) = 2^x on [-1/32, 1/32], relative error 2^-37.5
//: fit power/coefficients.sollya
inline constexpr double kPowExp2Sixteenth[4] = {
    0x1.3b2ab6fb7bf16p-7, 0x1.c6b3487ff16cfp-5, 0x1.ebfbdffb53ef5p-3, 0x1.62e42fee461a2p-1
};

//: 1 + x * p(x) = 2^x on [-1/16, 1/16], relative error 2^-24.6
inline constexpr float kPowExp2Single[3] = {0x1.c6c0fp-5f, 0x1.ec0f92p-3f, 0x1.62e43p-1f};

// |f| up to half a step of the rows and the tail of y log2(x), a third of that.
inline constexpr double kPowLn2 = 0x1.62e42fefa39efp-1;  //: = log(2)
//: 1 + x * (kPowLn2 + x * p(x)) = 2^x on [-0.0415, 0.0415], relative error 2^-59.4
//: fit power/coefficients.sollya
inline constexpr double kPowExp2Double[6] = {
    0x1.ffcf04233b1c3p-17, 0x1.430ae722249cep-13, 0x1.5d87fe770cdbep-10, 0x1.3b2ab6fa70ee8p-7, 0x1.c6b08d704a0cep-5,
    0x1.ebfbdff82c596p-3
};

// --- element routine ------------------------------------------------------------------------------------------------

// |f| up to half a step of the table and a little.
//: 1 + x * p(x) = 2^x on [-0.0047, 0.0047], relative error 2^-62.7
//: fit power/coefficients.sollya
inline constexpr double kElementExp2Double[5] = {
    0x1.5d7dccaf127cep-10, 0x1.3b2ac01e3cf81p-7, 0x1.c6b08d70dde08p-5, 0x1.ebfbdff82c24p-3, 0x1.62e42fefa39efp-1
};

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
