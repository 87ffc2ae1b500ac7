// Polynomials of the hyperbolic functions and their inverses.
#pragma once

namespace orvik::zym {

//: x + x^3 * p(x^2) = 2 * atanh(x/2) on [2^-20, 0.4018], relative error ?
//: fit arc/coefficients.sollya
inline constexpr float kAtanhSingleEP[1] = {
    0x1.5c5c76p-4f,
};

//: x + x^3 * p(x^2) = 2 * atanh(x/2) on [2^-20, 0.4907], relative error ?
//: fit arc/coefficients.sollya
inline constexpr float kAtanhSingleLA[3] = {
    0x1.40c5b6p-9f,
    0x1.9897f2p-7f,
    0x1.5556ap-4f,
};

//: x + x^3 * p(x^2) = 2 * atanh(x/2) on [2^-20, 0.4018], relative error ?
//: fit arc/coefficients.sollya
inline constexpr float kAtanhSingleHA[4] = {
    0x1.ee373ep-12f,
    0x1.23e336p-9f,
    0x1.999c02p-7f,
    0x1.555554p-4f,
};

//: x + x^3 * p(x^2) = 2 * atanh(x/2) on [2^-20, 0.4018], relative error ?
//: fit arc/coefficients.sollya
inline constexpr double kAtanhDoubleEP[3] = {
    0x1.370e789d5cf47p-9,
    0x1.99291e22423cbp-7,
    0x1.5555b5e4cfc4fp-4,
};

//: x + x^3 * p(x^2) = 2 * atanh(x/2) on [2^-20, 0.4907], relative error ?
//: fit arc/coefficients.sollya
inline constexpr double kAtanhDoubleLA[8] = {
    0x1.3431e47ffda41p-20,
    0x1.092e8bc4cdc12p-18,
    0x1.3b8fec9e62769p-16,
    0x1.7458b295e092dp-14,
    0x1.c71c88d82decap-12,
    0x1.2492490329fbap-9,
    0x1.99999999c84fep-7,
    0x1.55555555554a3p-4,
};

//: x + x^3 * p(x^2) = 2 * atanh(x/2) on [2^-20, 0.4018], relative error ?
//: fit arc/coefficients.sollya
inline constexpr double kAtanhDoubleHA[8] = {
    0x1.1bc121ff1b2b5p-20,
    0x1.0dc27bf335ce8p-18,
    0x1.3b36457a090adp-16,
    0x1.745c470bfa3f1p-14,
    0x1.c71c749e78406p-12,
    0x1.24924921d662cp-9,
    0x1.999999999c216p-7,
    0x1.555555555554fp-4,
};

//: x + x^3 * p(x^2) = sinh(x) on [2^-20, log(2)/2], relative error ?
//: fit arc/coefficients.sollya
inline constexpr float kSinhSingleEP[1] = {
    0x1.570924p-3f,
};

//: 1 + x^2 * p(x^2) = cosh(x) on [0, log(2)/2], relative error ?
//: fit arc/coefficients.sollya
inline constexpr float kCoshSingleEP[1] = {
    0x1.021f7cp-1f,
};

//: x + x^3 * p(x^2) = sinh(x) on [2^-20, log(2)/2], relative error ?
//: fit arc/coefficients.sollya
inline constexpr double kSinhDoubleEP[3] = {
    0x1.a16fffde5825p-13,
    0x1.1110b1c77c4e5p-7,
    0x1.555555737d564p-3,
};

//: 1 + x^2 * p(x^2) = cosh(x) on [0, log(2)/2], relative error ?
//: fit arc/coefficients.sollya
inline constexpr double kCoshDoubleEP[3] = {
    0x1.6d96bb4c4281ap-10,
    0x1.55548009fbfe6p-5,
    0x1.000000432c49bp-1,
};

//: x + x^3 * p(x^2) = sinh(x) on [2^-20, log(2)/2], relative error ?
//: fit arc/coefficients.sollya
inline constexpr float kSinhSingleLA[2] = {
    0x1.1227b2p-7f,
    0x1.5554bp-3f,
};

//: 1 + x^2 * p(x^2) = cosh(x) on [0, log(2)/2], relative error ?
//: fit arc/coefficients.sollya
inline constexpr float kCoshSingleLA[3] = {
    0x1.6d515ep-10f,
    0x1.5554e4p-5f,
    0x1p-1f,
};

//: x + x^3 * p(x^2) = sinh(x) on [2^-20, log(2)/2], relative error ?
//: fit arc/coefficients.sollya
inline constexpr double kSinhDoubleLA[5] = {
    0x1.af5f5613a2544p-26,
    0x1.71ddf7fb7de97p-19,
    0x1.a01a01b00978dp-13,
    0x1.111111110f64cp-7,
    0x1.5555555555559p-3,
};

//: 1 + x^2 * p(x^2) = cosh(x) on [0, log(2)/2], relative error ?
//: fit arc/coefficients.sollya
inline constexpr double kCoshDoubleLA[5] = {
    0x1.28afa28a90a67p-22,
    0x1.a01997674a05p-16,
    0x1.6c16c18549d25p-10,
    0x1.5555555550243p-5,
    0x1.000000000000bp-1,
};

//: x + x^3 * p(x^2) = sinh(x) on [2^-20, log(2)/8], relative error ?
//: fit arc/coefficients.sollya
inline constexpr float kSinhSingleHA[2] = {
    0x1.1128fcp-7f,
    0x1.555554p-3f,
};

//: 1 + x^2 * p(x^2) = cosh(x) on [0, log(2)/8], relative error ?
//: fit arc/coefficients.sollya
inline constexpr float kCoshSingleHA[2] = {
    0x1.55729p-5f,
    0x1.fffffep-2f,
};

//: x + x^3 * p(x^2) = sinh(x) on [2^-20, log(2)/8], relative error ?
//: fit arc/coefficients.sollya
inline constexpr double kSinhDoubleHA[4] = {
    0x1.71ef262472647p-19,
    0x1.a01a0127dd08ap-13,
    0x1.11111111126f5p-7,
    0x1.5555555555555p-3,
};

//: 1 + x^2 * p(x^2) = cosh(x) on [0, log(2)/8], relative error ?
//: fit arc/coefficients.sollya
inline constexpr double kCoshDoubleHA[4] = {
    0x1.a02f7c09da5c1p-16,
    0x1.6c16c0e3426acp-10,
    0x1.5555555557fd3p-5,
    0x1.fffffffffffffp-2,
};

//: x + x^2 * p(x) = expm1(x) on [-log(2)/2, log(2)/2], relative error ?
//: fit arc/coefficients.sollya
inline constexpr float kTanhSingleEP[3] = {
    0x1.54de0cp-5f,
    0x1.57089cp-3f,
    0x1.00022cp-1f,
};

//: x + x^2 * p(x) = expm1(x) on [-log(2)/2, log(2)/2], relative error ?
//: fit arc/coefficients.sollya
inline constexpr float kTanhSingleLA[5] = {
    0x1.6b7376p-10f,
    0x1.12279ep-7f,
    0x1.555716p-5f,
    0x1.5554bp-3f,
    0x1.fffffep-2f,
};

//: x + x^2/2 + x^3 * p(x) = expm1(x) on [-log(2)/8, log(2)/8], relative error ?
//: fit arc/coefficients.sollya
inline constexpr float kTanhSingleHA[3] = {
    0x1.10b44p-7f,
    0x1.55685cp-5f,
    0x1.55556p-3f,
};

//: x + x^2 * p(x) = expm1(x) on [-log(2)/2, log(2)/2], relative error ?
//: fit arc/coefficients.sollya
inline constexpr double kTanhDoubleLA[10] = {
    0x1.ae77aa79097b3p-26,
    0x1.28a2a1b4380c2p-22,
    0x1.71de80fa2ab51p-19,
    0x1.a019a6914bad5p-16,
    0x1.a01a0177f3ccbp-13,
    0x1.6c16c17f336c1p-10,
    0x1.1111111118834p-7,
    0x1.5555555552101p-5,
    0x1.555555555553bp-3,
    0x1.0000000000005p-1,
};

//: x + x^2/2 + x^3 * p(x) = expm1(x) on [-log(2)/8, log(2)/8], relative error ?
//: fit arc/coefficients.sollya
inline constexpr double kTanhDoubleHA[8] = {
    0x1.27f3825771ec7p-22,
    0x1.71ef234cbf8dcp-19,
    0x1.a01a011a5883fp-16,
    0x1.a01a0127fc07ap-13,
    0x1.6c16c16c18c31p-10,
    0x1.11111111126fp-7,
    0x1.5555555555555p-5,
    0x1.5555555555555p-3,
};

}  // namespace orvik::zym
