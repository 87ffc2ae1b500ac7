// Polynomials of the error functions, highest power first. Numbers and worst errors by tools/approx from the lines marked
// //:.
#pragma once

namespace orvik::zym {

// erf(x) / x on eight intervals, in 32 bits. Both are even, which is how the claims avoid 0 / 0.
// EP: about the multiples of 2/5.
//: p(x) = erf(max(abs(i*2/5 + x), 2^-40)) / max(abs(i*2/5 + x), 2^-40)
//:   on [-1/5, 1/5], relative error 2^-11.4
//: fit error/coefficients.sollya
inline constexpr float kErfSingleEP[8][3] = {
    {-0x1.7c91b6p-2f, 0x1.cc205ap-51f, 0x1.20dbfep0f}, {-0x1.188aaap-2f, -0x1.13a3e4p-2f, 0x1.122958p0f},
    {-0x1.350efap-4f, -0x1.a4cb32p-2f, 0x1.daefc6p-1f}, {0x1.259a24p-4f, -0x1.a0cc0ap-2f, 0x1.846774p-1f},
    {0x1.d99596p-4f, -0x1.4ea82ap-2f, 0x1.386f9p-1f}, {0x1.91d732p-4f, -0x1.e9f6f8p-3f, 0x1.fd9c9cp-2f},
    {0x1.1725d6p-4f, -0x1.61b23cp-3f, 0x1.aa5ffcp-2f}, {0x1.71ff38p-5f, -0x1.05d26p-3f, 0x1.6daffp-2f}
};
// LA: about the centres of halves.
//: p(x) = erf(max(abs(i/2 + 1/4 + x), 2^-40)) / max(abs(i/2 + 1/4 + x), 2^-40)
//:   on [-1/4, 1/4], relative error 2^-22.8
//: fit error/coefficients.sollya
inline constexpr float kErfSingleLA[8][6] = {
    {-0x1.1e2396p-5f, 0x1.65be66p-4f, 0x1.accdf6p-4f, -0x1.575c0cp-2f, -0x1.7306dep-3f, 0x1.1af54cp0f},
    {-0x1.2f1536p-5f, -0x1.818f08p-6f, 0x1.5abb72p-3f, -0x1.9a9e1ap-4f, -0x1.a0cdbap-2f, 0x1.e57b78p-1f},
    {0x1.0c52c2p-7f, -0x1.d354f6p-5f, 0x1.0fb3eep-4f, 0x1.5a8e86p-4f, -0x1.9b12ep-2f, 0x1.7a051ap-1f},
    {0x1.e406dap-7f, -0x1.473976p-6f, -0x1.bfd004p-7f, 0x1.d35b1ep-4f, -0x1.2b07bp-2f, 0x1.20ac04p-1f},
    {0x1.cfe7b2p-9f, 0x1.54be7cp-9f, -0x1.a1e0fcp-6f, 0x1.440e64p-4f, -0x1.8d734ep-3f, 0x1.c67206p-2f},
    {-0x1.630f48p-11f, 0x1.337c2p-8f, -0x1.0a106p-6f, 0x1.846e5ap-5f, -0x1.0e5896p-3f, 0x1.74538p-2f},
    {-0x1.75a04cp-11f, 0x1.5c10e4p-9f, -0x1.236c5ap-7f, 0x1.dcc0bep-6f, -0x1.83bf9ep-4f, 0x1.3b1358p-2f},
    {-0x1.7a446ep-12f, 0x1.65831cp-10f, -0x1.4b374ap-8f, 0x1.36a7f2p-6f, -0x1.234528p-4f, 0x1.11111p-2f}
};
// HA: about the multiples of 17/32; the value there in 24 bits comes from kErfHeads, its rest is the last coefficient.
//: float(i == 0 ? 2/sqrt(pi) : erf(max(i, 1)*17/32) / (max(i, 1)*17/32)) + p(x)
//:   = erf(max(abs(i*17/32 + x), 2^-40)) / max(abs(i*17/32 + x), 2^-40) on [-17/64, 17/64], relative error 2^-30.0
//: fit error/coefficients.sollya
inline constexpr float kErfSingleHA[8][8] = {
    {
        -0x1.170ff6p-37f, -0x1.ac3e5cp-6f, 0x1.459adep-40f, 0x1.ce0d6ep-4f, -0x1.b3ea92p-45f, -0x1.812728p-2f,
        0x1.fc79d8p-52f, -0x1.004574p-24f
    },
    {
        0x1.45204ap-7f, 0x1.158598p-9f, -0x1.9811p-5f, 0x1.925b7ep-6f, 0x1.5d17cep-3f, -0x1.b67648p-3f, -0x1.5a6e46p-2f,
        -0x1.ec45bp-27f
    },
    {
        -0x1.9dfdeap-9f, 0x1.0045aap-6f, -0x1.9a91fcp-8f, -0x1.e84764p-5f, 0x1.c7e57ep-4f, 0x1.1c88e4p-5f,
        -0x1.b2cde8p-2f, 0x1.6cae96p-26f
    },
    {
        -0x1.8f07aap-9f, -0x1.84554ep-11f, 0x1.1a0dcp-6f, -0x1.09b31p-5f, 0x1.4930eep-9f, 0x1.df548cp-4f, -0x1.5036p-2f,
        0x1.df6f42p-28f
    },
    {
        0x1.c435f2p-11f, -0x1.d74baep-9f, 0x1.8229f4p-8f, -0x1.717de8p-15f, -0x1.ae6a76p-6f, 0x1.6bfbap-4f,
        -0x1.b87062p-3f, -0x1.2683b2p-30f
    },
    {
        0x1.fc1c4p-12f, -0x1.53a86p-11f, -0x1.d39decp-12f, 0x1.47a6bcp-8f, -0x1.27f77ep-6f, 0x1.abec92p-5f,
        -0x1.21767ep-3f, 0x1.6e4428p-28f
    },
    {
        0x1.e89b1ap-15f, 0x1.0a144ep-13f, -0x1.95a636p-11f, 0x1.799da8p-9f, -0x1.3a0a72p-7f, 0x1.f91dd8p-6f,
        -0x1.9315aep-4f, -0x1.4ca36cp-27f
    },
    {
        0x1.41e4c4p-18f, 0x1.88b416p-14f, -0x1.8827eap-12f, 0x1.6f3088p-10f, -0x1.567a6ep-8f, 0x1.3e916ep-6f,
        -0x1.282f8cp-4f, 0x1.da99b4p-28f
    },
};

// e^(z^2) erfc(z), z = (v - 1) / kErfcxScale, on half octaves of v from 1 to 16, about their centres.
//: p(x) = exp(((2^floor(i/2)*(1 + (mod(i, 2) + 1/2)/2) - 1 + x) / kErfcxScale)^2)
//:   * erfc((2^floor(i/2)*(1 + (mod(i, 2) + 1/2)/2) - 1 + x) / kErfcxScale)
//:   on [-2^floor(i/2)/4, 2^floor(i/2)/4], relative error 2^-11.8
//: fit error/coefficients.sollya
inline constexpr float kErfcxSingleEP[8][4] = {
    {-0x1.31aa68p-3f, 0x1.450c62p-2f, -0x1.23e11ap-1f, 0x1.aba8dep-1f},
    {-0x1.139382p-4f, 0x1.4d7b94p-3f, -0x1.5eef7ap-2f, 0x1.3a0b34p-1f},
    {-0x1.8babbep-6f, 0x1.22064p-4f, -0x1.749754p-3f, 0x1.b34458p-2f},
    {-0x1.f3944p-8f, 0x1.c91e5ap-6f, -0x1.7ebfcep-4f, 0x1.2d395ep-2f},
    {-0x1.06b9acp-9f, 0x1.42171ep-7f, -0x1.69b224p-5f, 0x1.94550cp-3f},
    {-0x1.094268p-11f, 0x1.b9df32p-9f, -0x1.5f0424p-6f, 0x1.162d1ap-3f},
    {-0x1.eca75ep-14f, 0x1.23f2a2p-10f, -0x1.463368p-7f, 0x1.7897f4p-4f},
    {-0x1.d8cca8p-16f, 0x1.8a1a76p-12f, -0x1.3f09a8p-8f, 0x1.068adap-4f}
};
//: p(x) = exp(((2^floor(i/2)*(1 + (mod(i, 2) + 1/2)/2) - 1 + x) / kErfcxScale)^2)
//:   * erfc((2^floor(i/2)*(1 + (mod(i, 2) + 1/2)/2) - 1 + x) / kErfcxScale)
//:   on [-2^floor(i/2)/4, 2^floor(i/2)/4], relative error 2^-24.5
//: fit error/coefficients.sollya
inline constexpr float kErfcxSingleLA[8][8] = {
    {
        -0x1.5abb9p-9f, 0x1.0b644p-7f, -0x1.89cf5p-6f, 0x1.005eb6p-4f, -0x1.2fc892p-3f, 0x1.410604p-2f, -0x1.23df06p-1f,
        0x1.abacdep-1f
    },
    {
        -0x1.345944p-10f, 0x1.74d23ep-9f, -0x1.1bc2acp-7f, 0x1.9bbe36p-6f, -0x1.120992p-4f, 0x1.4a4044p-3f,
        -0x1.5eee84p-2f, 0x1.3a0cdp-1f
    },
    {
        -0x1.5aa428p-13f, 0x1.52dd46p-11f, -0x1.2673d2p-9f, 0x1.ee278cp-8f, -0x1.846baap-6f, 0x1.1a2e2ap-4f,
        -0x1.74943p-3f, 0x1.b353f2p-2f
    },
    {
        -0x1.e82452p-16f, 0x1.fd83d6p-14f, -0x1.f58d54p-12f, 0x1.fdd61ep-10f, -0x1.ecd0acp-8f, 0x1.c10dd2p-6f,
        -0x1.7ec044p-4f, 0x1.2d3d64p-2f
    },
    {
        -0x1.58823ep-19f, 0x1.e34216p-17f, -0x1.32e172p-14f, 0x1.90f2dp-12f, -0x1.fb72c4p-10f, 0x1.352b62p-7f,
        -0x1.69bb8p-5f, 0x1.946ee2p-3f
    },
    {
        -0x1.cbc122p-23f, 0x1.a2f8a2p-20f, -0x1.60b0aap-17f, 0x1.31aeaap-14f, -0x1.03ec7ap-11f, 0x1.b02552p-9f,
        -0x1.5f0822p-6f, 0x1.1631f8p-3f
    },
    {
        -0x1.d29c8ap-27f, 0x1.2124d4p-23f, -0x1.4584c8p-20f, 0x1.89b67ap-17f, -0x1.d80ed4p-14f, 0x1.172858p-10f,
        -0x1.46456cp-7f, 0x1.78b1a2p-4f
    },
    {
        -0x1.bd3d08p-31f, 0x1.859842p-27f, -0x1.47d41ap-23f, 0x1.141fcap-19f, -0x1.ce7f56p-16f, 0x1.814f4ap-12f,
        -0x1.3f0e7ep-8f, 0x1.068f42p-4f
    },
};

// e^x, half a step of ln 2 and of ln(2)/128.
//: 1 + x + x^2 * p(x) = exp(x) on [-log(2)/2, log(2)/2], relative error 2^-26.7
//: fit error/coefficients.sollya
inline constexpr float kDecaySingle[5] = {0x1.6caf36p-10f, 0x1.120c5ap-7f, 0x1.555568p-5f, 0x1.5554dcp-3f, 0x1p-1f};
//: 1 + x + x^2 * p(x) = exp(x) on [-log(2)/256, log(2)/256], relative error 2^-39.6
//: fit error/coefficients.sollya
inline constexpr double kDecayShort[2] = {0x1.555556b3cea57p-3, 0x1.00000522471bap-1};

// e^x between the steps of kErfcSteps: up to 2 * 10.06/256 and a little.
//: 1 + x + x^2 * p(x) = exp(x) on [-0.0787, 0.0787], relative error 2^-34.4
//: fit error/coefficients.sollya
inline constexpr double kStepDecayShort[4] = {
    0x1.111480afc8c81p-7, 0x1.55675fd4cf0fcp-5, 0x1.555555b76a1b2p-3, 0x1.ffffff8d9934cp-2
};
//: 1 + x + x^2 * p(x) = exp(x) on [-0.0787, 0.0787], relative error 2^-57.3
//: fit error/coefficients.sollya
inline constexpr double kStepDecay[7] = {
    0x1.a020b96795004p-16, 0x1.a02a0ae20639ep-13, 0x1.6c16c179ab2f9p-10, 0x1.111110de37789p-7, 0x1.5555555554becp-5,
    0x1.5555555555f69p-3, 0x1p-1
};

// Beyond the tables: sqrt(pi) z e^(z^2) erfc(z) = 1 + u p(u), u = 1 / z^2.
//: 1 + x * p(x) = sqrt(pi/x) * exp(1/x) * erfc(sqrt(1/x))
//:   on [1/2^20, 1/900], relative error 2^-60.5
//: fit error/coefficients.sollya
inline constexpr double kErfcxFar[5] = {
    -0x1.d15ffaa970f47p4, 0x1.a3f8f2ac7cc65p2, -0x1.dffffd264f426p0, 0x1.7fffffffcc923p-1, -0x1.ffffffffffff7p-2
};

}  // namespace orvik::zym
