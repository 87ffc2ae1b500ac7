// Polynomials of the hyperbolic functions and their inverses.
#pragma once

namespace orvik::zym {

//: x + x^3 * p(x^2) = 2 * atanh(x/2) on [2^-20, 0.4018], relative error 2^-14.0
//: fit arc/coefficients.sollya
inline constexpr float kAtanhSingleEP[1] = {0x1.5c5c76p-4f};

//: x + x^3 * p(x^2) = 2 * atanh(x/2) on [2^-20, 0.4907], relative error 2^-25.9
//: fit arc/coefficients.sollya
inline constexpr float kAtanhSingleLA[3] = {0x1.40c5b6p-9f, 0x1.9897f2p-7f, 0x1.5556ap-4f};

//: x + x^3 * p(x^2) = 2 * atanh(x/2) on [2^-20, 0.4018], relative error 2^-35.1
//: fit arc/coefficients.sollya
inline constexpr float kAtanhSingleHA[4] = {0x1.ee373ep-12f, 0x1.23e336p-9f, 0x1.999c02p-7f, 0x1.555554p-4f};

//: x + x^3 * p(x^2) = 2 * atanh(x/2) on [2^-20, 0.4018], relative error 2^-28.3
//: fit arc/coefficients.sollya
inline constexpr double kAtanhDoubleEP[3] = {0x1.370e789d5cf47p-9, 0x1.99291e22423cbp-7, 0x1.5555b5e4cfc4fp-4};

//: x + x^3 * p(x^2) = 2 * atanh(x/2) on [2^-20, 0.4907], relative error 2^-57.2
//: fit arc/coefficients.sollya
inline constexpr double kAtanhDoubleLA[8] = {
    0x1.3431e47ffda41p-20, 0x1.092e8bc4cdc12p-18, 0x1.3b8fec9e62769p-16, 0x1.7458b295e092dp-14, 0x1.c71c88d82decap-12,
    0x1.2492490329fbap-9, 0x1.99999999c84fep-7, 0x1.55555555554a3p-4
};

//: x + x^3 * p(x^2) = 2 * atanh(x/2) on [2^-20, 0.4018], relative error 2^-62.5
//: fit arc/coefficients.sollya
inline constexpr double kAtanhDoubleHA[8] = {
    0x1.1bc121ff1b2b5p-20, 0x1.0dc27bf335ce8p-18, 0x1.3b36457a090adp-16, 0x1.745c470bfa3f1p-14, 0x1.c71c749e78406p-12,
    0x1.24924921d662cp-9, 0x1.999999999c216p-7, 0x1.555555555554fp-4
};

// Within a sixteenth of an octave; the first row, of y from 1 on, has the larger half.
//: x + x^2 * p(x) = log(1 + x) on [-0.0352, 0.0625], relative error 2^-33.1
//: fit arc/coefficients.sollya
inline constexpr float kAreaLog32[5] = {-0x1.41362cp-3f, 0x1.99cfecp-3f, -0x1.00033cp-2f, 0x1.555556p-2f, -0x1p-1f};

// Next to 0, where a sum with 1 would lose digits.
//: x + x^3 * p(x^2) = asinh(x) on [2^-20, 1/16], relative error 2^-64.6
//: fit arc/coefficients.sollya
inline constexpr double kAsinhDoubleHA[5] = {
    -0x1.6b4876ea7fd8fp-6, 0x1.f1c38762a3a0ep-6, -0x1.6db6da8899e57p-5, 0x1.333333331a23fp-4, -0x1.5555555555547p-3
};
//: x + x^3 * p(x^2) = asinh(x) on [2^-20, 1/16], relative error 2^-33.1
//: fit arc/coefficients.sollya
inline constexpr float kAsinhSingleHA[2] = {0x1.32352p-4f, -0x1.55552ep-3f};

//: x + x^3 * p(x^2) = sinh(x) on [2^-20, log(2)/2], relative error 2^-15.5
//: fit arc/coefficients.sollya
inline constexpr float kSinhSingleEP[1] = {0x1.570924p-3f};

//: 1 + x^2 * p(x^2) = cosh(x) on [0, log(2)/2], relative error 2^-13.2
//: fit arc/coefficients.sollya
inline constexpr float kCoshSingleEP[1] = {0x1.021f7cp-1f};

//: x + x^3 * p(x^2) = sinh(x) on [2^-20, log(2)/2], relative error 2^-37.4
//: fit arc/coefficients.sollya
inline constexpr double kSinhDoubleEP[3] = {0x1.a16fffde5825p-13, 0x1.1110b1c77c4e5p-7, 0x1.555555737d564p-3};

//: 1 + x^2 * p(x^2) = cosh(x) on [0, log(2)/2], relative error 2^-34.3
//: fit arc/coefficients.sollya
inline constexpr double kCoshDoubleEP[3] = {0x1.6d96bb4c4281ap-10, 0x1.55548009fbfe6p-5, 0x1.000000432c49bp-1};

//: x + x^3 * p(x^2) = sinh(x) on [2^-20, log(2)/2], relative error 2^-26.1
//: fit arc/coefficients.sollya
inline constexpr float kSinhSingleLA[2] = {0x1.1227b2p-7f, 0x1.5554bp-3f};

//: 1 + x^2 * p(x^2) = cosh(x) on [0, log(2)/2], relative error 2^-33.2
//: fit arc/coefficients.sollya
inline constexpr float kCoshSingleLA[3] = {0x1.6d515ep-10f, 0x1.5554e4p-5f, 0x1p-1f};

//: x + x^3 * p(x^2) = sinh(x) on [2^-20, log(2)/2], relative error 2^-61.6
//: fit arc/coefficients.sollya
inline constexpr double kSinhDoubleLA[5] = {
    0x1.af5f5613a2544p-26, 0x1.71ddf7fb7de97p-19, 0x1.a01a01b00978dp-13, 0x1.111111110f64cp-7, 0x1.5555555555559p-3
};

//: 1 + x^2 * p(x^2) = cosh(x) on [0, log(2)/2], relative error 2^-58.0
//: fit arc/coefficients.sollya
inline constexpr double kCoshDoubleLA[5] = {
    0x1.28afa28a90a67p-22, 0x1.a01997674a05p-16, 0x1.6c16c18549d25p-10, 0x1.5555555550243p-5, 0x1.000000000000bp-1
};

// In steps of ln(2)/16, and a little beyond half of one.
//: x + x^3 * p(x^2) = sinh(x) on [2^-20, 0.0219], relative error 2^-31.5
//: fit arc/coefficients.sollya
inline constexpr float kSinhSingleHA[1] = {0x1.555712p-3f};

//: 1 + x^2 * p(x^2) = cosh(x) on [0, 0.0219], relative error 2^-29.1
//: fit arc/coefficients.sollya
inline constexpr float kCoshSingleHA[1] = {0x1.00022cp-1f};

//: x + x^3 * p(x^2) = sinh(x) on [2^-20, 0.0219], relative error 2^-69.1
//: fit arc/coefficients.sollya
inline constexpr double kSinhDoubleHA[3] = {0x1.a01b53c8621f8p-13, 0x1.11111110b5af3p-7, 0x1.5555555555557p-3};

//: 1 + x^2 * p(x^2) = cosh(x) on [0, 0.0219], relative error 2^-65.9
//: fit arc/coefficients.sollya
inline constexpr double kCoshDoubleHA[3] = {0x1.6c18517749ceep-10, 0x1.555555546abfap-5, 0x1.0000000000005p-1};

// The hyperbolic tangent of floats on half octaves of v = 1 + |x| 53/32 from 1 to 16, about their centres; the first about 0.
//: = i == 0 ? 0 : (2^floor(i/2)*(1 + (mod(i, 2) + 1/2)/2) - 1)*32/53
inline constexpr float kTanhCentres[8] = {
    0.0f, 0x1.cfb2b8p-2f, 0x1.cfb2b8p-1f, 0x1.826a44p0f, 0x1.3521dp1f, 0x1.cfb2b8p1f, 0x1.5bc60ap2f, 0x1.f656f2p2f
};
//: p(x) = tanh(float((2^floor(i/2)*(1 + (mod(i, 2) + 1/2)/2) - 1)*32/53) + x)
//:   on [-2^floor(i/2)*8/53, 2^floor(i/2)*8/53], relative error 2^-12.2
//: fit chebyshev
//: i from 1
inline constexpr float kTanhRowsEP[7][4] = {
    {-0x1.02182ep-3f, -0x1.604dc4p-2f, 0x1.a3dbbep-1f, 0x1.b2649p-2f},
    {0x1.56ab38p-4f, -0x1.5ea846p-2f, 0x1.eea0b4p-2f, 0x1.701f22p-1f},
    {0x1.62ddc2p-4f, -0x1.4e7fd8p-3f, 0x1.6bd1f6p-3f, 0x1.d05078p-1f},
    {0x1.5a8c82p-6f, -0x1.1a0942p-5f, 0x1.01150ep-5f, 0x1.f7f846p-1f},
    {0x1.0a419cp-9f, -0x1.a3da4p-9f, 0x1.74ba0ep-9f, 0x1.ff473cp-1f},
    {0x1.1b5c6p-14f, -0x1.f804a2p-14f, 0x1.32bfccp-14f, 0x1.fffc14p-1f},
    {0x1.21b6dcp-21f, -0x1.01a24ap-20f, 0x1.3985dep-21f, 0x1.fffff8p-1f}
};

//: x + x^2 * p(x) = tanh(x) on [2^-20, 16/53], relative error 2^-11.8
//: fit chebyshev
inline constexpr float kTanhFirstEP[2] = {-0x1.4abb62p-2f, -0x1.d3e004p-12f};

//: p(x) = tanh(float((2^floor(i/2)*(1 + (mod(i, 2) + 1/2)/2) - 1)*32/53) + x)
//:   on [-2^floor(i/2)*8/53, 2^floor(i/2)*8/53], relative error 2^-23.0
//: fit chebyshev
//: i from 1
inline constexpr float kTanhRowsLA[7][7] = {
    {
        -0x1.e08d9ep-5f, -0x1.5f4706p-7f, 0x1.5abd46p-3f, -0x1.01982p-3f, -0x1.6439fep-2f, 0x1.a3dba6p-1f,
        0x1.b2676cp-2f
    },
    {
        0x1.c75eecp-7f, -0x1.c0d0e8p-5f, 0x1.aa468cp-5f, 0x1.6b1edap-4f, -0x1.639df2p-2f, 0x1.ee91d2p-2f, 0x1.702662p-1f
    },
    {
        0x1.ca51dep-8f, -0x1.79cc9ep-9f, -0x1.9b09fep-6f, 0x1.63f134p-4f, -0x1.49ebc2p-3f, 0x1.6bd05ep-3f,
        0x1.d04d24p-1f
    },
    {
        -0x1.73f876p-11f, 0x1.a9e11ep-9f, -0x1.3259b8p-7f, 0x1.47245p-6f, -0x1.fae17ap-6f, 0x1.018646p-5f,
        0x1.f7e35cp-1f
    },
    {
        -0x1.07fd8ep-13f, 0x1.9c6c4p-12f, -0x1.eca9eep-11f, 0x1.eeed2ap-10f, -0x1.750918p-9f, 0x1.759624p-9f,
        0x1.ff4516p-1f
    },
    {
        -0x1.0fceb4p-18f, 0x1.b05f88p-17f, -0x1.a1e4ecp-16f, 0x1.9920cep-15f, -0x1.40215cp-14f, 0x1.4156e6p-14f,
        0x1.fffbp-1f
    },
    {
        -0x1.16606ep-25f, 0x1.ba713ap-24f, -0x1.ab326ap-23f, 0x1.a22a54p-22f, -0x1.473a0cp-21f, 0x1.487418p-21f,
        0x1.fffff6p-1f
    },
};

//: x + x^2 * p(x) = tanh(x) on [2^-20, 16/53], relative error 2^-23.9
//: fit chebyshev
inline constexpr float kTanhFirstLA[5] = {
    -0x1.34086ep-5f, 0x1.24a032p-3f, -0x1.08519cp-10f, -0x1.554b76p-2f, -0x1.e7660cp-23f
};

// HA: centres near these at which value and slope are floats nearly, so that a line through them has no rests.
//: = tanh_centre((2^floor(i/2)*(1 + (mod(i, 2) + 1/2)/2) - 1)*32/53, 2^floor(i/2)*8/53, 30)
//: i from 1
inline constexpr float kTanhCentresHA[7][1] = {
    {0x1.cfbdep-2f}, {0x1.cfae4p-1f}, {0x1.8269bp0f}, {0x1.3522dp1f}, {0x1.cfacap1f}, {0x1.5bc03p2f}, {0x1.f6ea8p2f}
};
//: let c = tanh_centre((2^floor(i/2)*(1 + (mod(i, 2) + 1/2)/2) - 1)*32/53, 2^floor(i/2)*8/53, 30)
//: slope = 1 - tanh(c)^2
//: value = tanh(c)
//: i from 1
inline constexpr float kTanhLines[7][2] = {
    {0x1.a3d7c4p-1f, 0x1.b27092p-2f}, {0x1.ee97d4p-2f, 0x1.70243ap-1f}, {0x1.6bd206p-3f, 0x1.d04cfp-1f},
    {0x1.018226p-5f, 0x1.f7e37cp-1f}, {0x1.75b3aap-9f, 0x1.ff4504p-1f}, {0x1.3ffcf4p-14f, 0x1.fffbp-1f},
    {0x1.40ffa6p-21f, 0x1.fffff6p-1f}
};
//: tanh(kTanhCentresHA(0)) + (1 - tanh(kTanhCentresHA(0))^2) * x + x^2 * p(x) = tanh(kTanhCentresHA(0) + x)
//:   on [(2^floor(i/2)*(1 + i/2 - floor(i/2)) - 1)*32/53 - kTanhCentresHA(0),
//:   (2^floor(i/2)*(1 + i/2 - floor(i/2) + 1/2) - 1)*32/53 - kTanhCentresHA(0)], relative error 2^-28.6
//: kTanhLines(x) + x^2 * p(x) = tanh(kTanhCentresHA(0) + x)
//:   on [(2^floor(i/2)*(1 + i/2 - floor(i/2)) - 1)*32/53 - kTanhCentresHA(0),
//:   (2^floor(i/2)*(1 + i/2 - floor(i/2) + 1/2) - 1)*32/53 - kTanhCentresHA(0)], relative error 2^-28.8
//: fit chebyshev
//: i from 1
inline constexpr float kTanhRowsHA[7][8] = {
    {
        -0x1.be202ap-7f, 0x1.c4dfc2p-7f, 0x1.912524p-6f, -0x1.e5027p-5f, -0x1.7f3fb2p-7f, 0x1.5abf42p-3f,
        -0x1.01834ep-3f, -0x1.643e34p-2f
    },
    {
        0x1.2ca75ap-9f, -0x1.2c63b8p-7f, 0x1.1b6212p-7f, 0x1.f73beap-7f, -0x1.cc7aaep-5f, 0x1.a9cebep-5f,
        0x1.6b5be6p-4f, -0x1.63a02p-2f
    },
    {
        0x1.98c66p-13f, 0x1.fd8dacp-11f, -0x1.fde57p-9f, 0x1.c02a6cp-8f, -0x1.28fd64p-9f, -0x1.9aebdep-6f,
        0x1.63d4b6p-4f, -0x1.49edp-3f
    },
    {
        -0x1.8fccaap-15f, 0x1.4e812cp-14f, 0x1.7acd7ep-15f, -0x1.8e90bap-11f, 0x1.a7e6e2p-9f, -0x1.32085ap-7f,
        0x1.4727cap-6f, -0x1.fadb8ep-6f
    },
    {
        0x1.564cfcp-20f, -0x1.f8843ap-18f, 0x1.14bc4cp-15f, -0x1.fc0dep-14f, 0x1.861d8ap-12f, -0x1.ed4d9ap-11f,
        0x1.f0235cp-10f, -0x1.752b2ep-9f
    },
    {
        0x1.facfc4p-25f, -0x1.25c81ap-22f, 0x1.0206b2p-20f, -0x1.c2807p-19f, 0x1.552d0ep-17f, -0x1.aaaf88p-16f,
        0x1.aa99f8p-15f, -0x1.3ff964p-14f
    },
    {
        0x1.05849ap-31f, -0x1.28e66cp-29f, 0x1.02dc14p-27f, -0x1.c45582p-26f, 0x1.567dap-24f, -0x1.ac26d4p-23f,
        0x1.abfee8p-22f, -0x1.40ff2cp-21f
    },
};

//: x + x^2 * p(x) = tanh(x) on [2^-20, 16/53], relative error 2^-32.3
//: fit chebyshev
inline constexpr float kTanhFirstHA[8] = {
    0x1.ea6c88p-7f, 0x1.2093b6p-8f, -0x1.c4498cp-5f, 0x1.83a8e4p-13f, 0x1.110968p-3f, 0x1.2cc474p-21f, -0x1.555556p-2f,
    0x1.517dep-36f
};

//: x + x^3 * p(x^2) = tanh(x) on [2^-20, 1/64], relative error 2^-60.2
//: fit arc/coefficients.sollya
inline constexpr double kTanhSmall[3] = {-0x1.ba0620aee60c3p-5, 0x1.111110df3660dp-3, -0x1.555555555513ap-2};

}  // namespace orvik::zym
