// Polynomials of the exponentials and logarithms, highest power first, and the parts of their reductions. Numbers and worst
// errors by tools/approx from the lines marked //:.
#pragma once

namespace orvik::zym {

// Sets without a source of their fit are given: results are defined with these coefficients. Their errors are measured like
// all others.

// --- logarithms -----------------------------------------------------------------------------------------------------

// 32 bits: 1 + x in [2/3, 4/3).
//: x + x^2 * p(x) = log(1 + x) on [-1/3, 1/3], relative error 2^-13.2
inline constexpr float kLnSingleEP[4] = {0x1.c25266p-3f, -0x1.11d1fcp-2f, 0x1.54e2cp-2f, -0x1p-1f};
//: x + x^2 * p(x) = log(1 + x) on [-1/3, 1/3], relative error 2^-22.2
inline constexpr float kLnSingleLA[7] = {
    -0x1.36d444p-3f, 0x1.5b70d6p-3f, -0x1.5126bp-3f, 0x1.95f702p-3f, -0x1.000c3ap-2f, 0x1.555dcep-2f, -0x1p-1f
};
//: x + x^2 * p(x) = log(1 + x) on [-1/3, 1/3], relative error 2^-27.4
inline constexpr float kLnSingleHA[9] = {
    -0x1.08059p-3f, 0x1.1e66bap-3f, -0x1.f3113cp-4f, 0x1.1ed718p-3f, -0x1.559dccp-3f, 0x1.99d028p-3f, -0x1.fffefp-3f,
    0x1.555506p-2f, -0x1p-1f
};
//: p(x) = log10(1 + x) / x on [-1/3, 1/3], relative error 2^-14.0
inline constexpr float kLog10SingleEP[5] = {
    0x1.9b824ep-4f, -0x1.e9dae2p-4f, 0x1.26fb7cp-3f, -0x1.bc1244p-3f, 0x1.bcb95cp-2f
};
//: p(x) = log2(1 + x) / x on [-1/3, 1/3], relative error 2^-14.3
//: fit explog/coefficients.sollya
inline constexpr float kLog2SingleEP[5] = {
    0x1.4d736p-2f, -0x1.96cd6ap-2f, 0x1.eae082p-2f, -0x1.70cb38p-1f, 0x1.715508p0f
};

// 64 bits: x = c m - 1, c the multiple of 2^-10 next to 1/m, m below 2: |x| below 2^-10.
//: x + x^2 * p(x) = log(1 + x) on [-0.001, 0.001], relative error 2^-55.0
inline constexpr double kLnDoubleLA[4] = {
    0x1.9999cacdb4d0ap-3, -0x1.0000148058ee1p-2, 0x1.55555555543c5p-2, -0x1.ffffffffff81fp-2
};

// Of element routines: 1 + x within 1/64 of a row of kLnReciprocal64, or of 1.
//: x + x^2 * p(x) = log(1 + x) on [-1/64, 1/64], relative error 2^-52.3
inline constexpr double kLnElement[7] = {
    -0x1.000b405a2836dp-3, 0x1.249c02481059dp-3, -0x1.555555228b38fp-3, 0x1.9999997b36c81p-3, -0x1.0000000000262p-2,
    0x1.5555555555613p-2, -0x1p-1
};

// --- exponentials ---------------------------------------------------------------------------------------------------

// e^x: half a step of ln 2, of ln(2)/4; of ln(2)/128, /1024 and /64.
//: p(x) = exp(x) on [-log(2)/2, log(2)/2], relative error 2^-12.7
inline constexpr float kExpSingleEP[4] = {0x1.52c758p-3f, 0x1.01e5acp-1f, 0x1.0007bcp0f, 0x1p0f};
//: p(x) = exp(x) on [-log(2)/2, log(2)/2], relative error 2^-22.6
inline constexpr float kExpSingleLA[6] = {
    0x1.0fb3fcp-7f, 0x1.570724p-5f, 0x1.555958p-3f, 0x1.fffe68p-2f, 0x1.fffffcp-1f, 0x1p0f
};
//: 1 + x + x^2 * p(x) = exp(x) on [-log(2)/8, log(2)/8], relative error 2^-26.8
inline constexpr float kExpSingleHA[3] = {0x1.557624p-5f, 0x1.557624p-3f, 0x1.fffffep-2f};
//: p(x) = exp(x) on [-log(2)/2, log(2)/2], relative error 2^-22.7
inline constexpr float kExpSingleElement[6] = {
    0x1.12a1dep-7f, 0x1.57636cp-5f, 0x1.55538cp-3f, 0x1.fffd0ap-2f, 0x1.000002p0f, 0x1.000002p0f
};
//: p(x) = exp(x) on [-log(2)/256, log(2)/256], relative error 2^-28.1
inline constexpr double kExpDoubleEP[3] = {0x1.ffffc2808f7e8p-2, 0x1p0, 0x1p0};
//: p(x) = exp(x) on [-log(2)/2048, log(2)/2048], relative error 2^-52.6
inline constexpr double kExpDoubleLA[4] = {0x1.5555555555556p-3, 0x1.0000001ebfbep-1, 0x1p0, 0x1p0};
//: 1 + x + x^2 * p(x) = exp(x) on [-log(2)/128, log(2)/128], relative error 2^-59.3
inline constexpr double kExpDoubleHA[4] = {
    0x1.111112d9f549bp-7, 0x1.555573f218b93p-5, 0x1.555555555653ep-3, 0x1.fffffffffdb3bp-2
};
//: 1 + x + x^2 * p(x) = exp(x) on [-log(2)/128, log(2)/128], relative error 2^-70.1
inline constexpr double kExpElement[5] = {
    0x1.6c16a1c2a3ffdp-10, 0x1.111123aaf20d3p-7, 0x1.5555555558fccp-5, 0x1.55555555548f8p-3, 0x1p-1
};

// 2^x and 10^x: steps of 1/64; of log10(2)/128 in 32 bits and log10(2)/64 in 64.
//: 1 + x * p(x) = 2^x on [-1/128, 1/128], relative error 2^-27.1
inline constexpr float kExp2Single[2] = {0x1.ebfbf8p-3f, 0x1.62e486p-1f};
//: 1 + x * p(x) = 10^x on [-log10(2)/256, log10(2)/256], relative error 2^-30.1
inline constexpr float kExp10Single[2] = {0x1.535252p1f, 0x1.26bb2ep1f};
//: p(x) = (2^x - 1) / x on [-1/128, 1/128], relative error 2^-51.0
//: fit explog/coefficients.sollya
inline constexpr double kExp2Double[5] = {
    0x1.5d86b03ce7ff6p-10, 0x1.3b2ad03856e9p-7, 0x1.c6b08d7080252p-5, 0x1.ebfbdff82ac52p-3, 0x1.62e42fefa39efp-1
};
//: p(x) = (10^x - 1) / x on [-0.002352, 0.002352], relative error 2^-50.9
//: fit explog/coefficients.sollya
inline constexpr double kExp10Double[5] = {
    0x1.142cffccd5b64p-1, 0x1.2bd778a37942ap0, 0x1.0470591d8cdb6p1, 0x1.53524c73cd8ffp1, 0x1.26bb1bbb55516p1
};

// Steps of ln(2)/32, /64 and /128; the ends are half a step and what the rounding of the quotient adds.
//: p(x) = (exp(x) - 1 - x) / x^2 on [-0.01084, 0.01084], relative error 2^-8.1
//: fit explog/coefficients.sollya
inline constexpr float kExpm1SingleEP[1] = {0x1.ffff92p-2f};
//: p(x) = (exp(x) - 1 - x) / x^2 on [-0.00271, 0.00271], relative error 2^-21.6
//: fit explog/coefficients.sollya
inline constexpr double kExpm1DoubleEP[2] = {0x1.555556b3cea57p-3, 0x1.00000522471bap-1};
//: p(x) = (exp(x) - 1 - x) / x^2 on [-0.00271, 0.00271], relative error 2^-45.5
//: fit explog/coefficients.sollya
inline constexpr double kExpm1DoubleLA[4] = {
    0x1.1111121e8349p-7, 0x1.55555acfaad08p-5, 0x1.55555555555e5p-3, 0x1.fffffffffff57p-2
};

}  // namespace orvik::zym
