// Polynomials of the hyperbolic functions and their inverses.
#pragma once

namespace orvik::zym {

//: x + x^3 * p(x^2) = 2 * atanh(x/2) on [2^-20, 0.401], relative error ?
//: fit arc/coefficients.sollya
inline constexpr float kAtanhSingleEP[1] = {
    0x1.5c56cp-4f,
};

//: x + x^3 * p(x^2) = 2 * atanh(x/2) on [2^-20, 0.401], relative error ?
//: fit arc/coefficients.sollya
inline constexpr float kAtanhSingle[3] = {
    0x1.36f636p-9f,
    0x1.992a6p-7f,
    0x1.5555b4p-4f,
};

//: x + x^3 * p(x^2) = 2 * atanh(x/2) on [2^-20, 0.401], relative error ?
//: fit arc/coefficients.sollya
inline constexpr double kAtanhDoubleEP[3] = {
    0x1.36ff217a2235ap-9,
    0x1.9929d5b9f8f2cp-7,
    0x1.5555b4fa8cc83p-4,
};

//: x + x^3 * p(x^2) = 2 * atanh(x/2) on [2^-20, 0.401], relative error ?
//: fit arc/coefficients.sollya
inline constexpr double kAtanhDoubleLA[7] = {
    0x1.3b01b7b433eacp-18,
    0x1.384a2cbfc59abp-16,
    0x1.7475513ec51c3p-14,
    0x1.c71bfeb45494ep-12,
    0x1.249249b65343ap-9,
    0x1.99999998ead0bp-7,
    0x1.555555555578cp-4,
};

//: x + x^3 * p(x^2) = 2 * atanh(x/2) on [2^-20, 0.401], relative error ?
//: fit arc/coefficients.sollya
inline constexpr double kAtanhDoubleHA[8] = {
    0x1.1ba4cfae1bc4ep-20,
    0x1.0dc68db3a4f8bp-18,
    0x1.3b3609f2772ep-16,
    0x1.745c48c320972p-14,
    0x1.c71c7497d313ap-12,
    0x1.24924921dcae3p-9,
    0x1.999999999c1cfp-7,
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

//: x + x^2 * p(x) = expm1(x) on [-log(2)/8, log(2)/8], relative error ?
//: fit arc/coefficients.sollya
inline constexpr float kTanhSingleHA[4] = {
    0x1.1115cep-7f,
    0x1.557278p-5f,
    0x1.555556p-3f,
    0x1.fffffep-2f,
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

//: x + x^2 * p(x) = expm1(x) on [-log(2)/8, log(2)/8], relative error ?
//: fit arc/coefficients.sollya
inline constexpr double kTanhDoubleHA[9] = {
    0x1.27f3a74f84a35p-22,
    0x1.71ef23b5f9a8fp-19,
    0x1.a01a01187b59cp-16,
    0x1.a01a0127f6d34p-13,
    0x1.6c16c16c18c8fp-10,
    0x1.11111111126f1p-7,
    0x1.5555555555555p-5,
    0x1.5555555555555p-3,
    0x1p-1,
};

}  // namespace orvik::zym
