// Polynomials of the inverse error function in 32 bits, highest power first. Numbers and worst errors by tools/approx
// from the lines marked //:.
#pragma once

namespace orvik::zym {

// P(w) = erfinv(t) / t, t = sqrt(1 - e^-w), about the middles of eight rows that begin at w + 7 = 7, 10, 14, 20, 28, 40, 56, 80.
//: p(x) = erfinv_term(x + (8.5 + 7 * (i/2 - floor(i/2))) * 2^floor(i/2) - 7, 0)
//:  on [(-1.5 - (i/2 - floor(i/2))) * 2^floor(i/2), (1.5 + (i/2 - floor(i/2))) * 2^floor(i/2)], relative error 2^-24.5
//: precision 64
//: fit inverse_error/coefficients.sollya
inline constexpr float kErfInvRowsLA[8][8] = {
    {
        -0x1.38c028p-23f, -0x1.49d9b4p-18f, 0x1.8ad21ap-16f, 0x1.7381b8p-13f, -0x1.12475ep-9f, 0x1.cd5012p-11f,
        0x1.005f08p-2f, 0x1.408742p0f
    },
    {
        0x1.0bf018p-26f, 0x1.d69d2ep-21f, -0x1.62594cp-17f, 0x1.bc7186p-15f, 0x1.123c28p-13f, -0x1.dc1c48p-8f,
        0x1.b5a9ap-3f, 0x1.0a374ep1f
    },
    {
        -0x1.4beea8p-28f, 0x1.5ada9cp-26f, 0x1.46954ep-22f, -0x1.1b9c14p-17f, 0x1.67a5c8p-13f, -0x1.f306dep-9f,
        0x1.452f48p-3f, 0x1.7f749ap1f
    },
    {
        0x1.319448p-33f, -0x1.92b8b4p-29f, 0x1.314488p-24f, -0x1.e909e8p-20f, 0x1.adfp-15f, -0x1.d453cap-10f,
        0x1.f5905ep-4f, 0x1.fb66d4p1f
    },
    {
        0x1.414002p-37f, -0x1.1be078p-32f, 0x1.46eebep-27f, -0x1.967c42p-22f, 0x1.15f61cp-16f, -0x1.d919ecp-11f,
        0x1.8e2accp-4f, 0x1.43139ep2f
    },
    {
        0x1.b13d8ep-42f, -0x1.271968p-35f, 0x1.a41224p-30f, -0x1.7ce504p-24f, 0x1.8b40f4p-18f, -0x1.fb2012p-12f,
        0x1.42c9fcp-4f, 0x1.9113cp2f
    },
    {
        0x1.e38e8ap-45f, -0x1.6902e6p-39f, 0x1.167f8ep-32f, -0x1.83ba34p-26f, 0x1.25b7bap-19f, -0x1.174f28p-12f,
        0x1.0842fp-4f, 0x1.ebe5d4p2f
    },
    {
        0x1.c7f9d4p-48f, -0x1.d3470cp-43f, 0x1.930a94p-35f, -0x1.a138ep-28f, 0x1.c8cf7cp-21f, -0x1.3c702cp-13f,
        0x1.b4f264p-5f, 0x1.2a466ap3f
    },
};
//: p(x) = erfinv_term(x + (8.5 + 7 * (i/2 - floor(i/2))) * 2^floor(i/2) - 7, 0)
//:  on [(-1.5 - (i/2 - floor(i/2))) * 2^floor(i/2), (1.5 + (i/2 - floor(i/2))) * 2^floor(i/2)], relative error 2^-13.5
//: precision 64
//: fit inverse_error/coefficients.sollya
inline constexpr float kErfInvRowsEP[8][4] = {
    {-0x1.0cb0fap-9f, 0x1.488e42p-10f, 0x1.005f74p-2f, 0x1.40809ep0f},
    {0x1.cd79e4p-15f, -0x1.cd969ap-8f, 0x1.b5e994p-3f, 0x1.0a33c6p1f},
    {0x1.73006ep-13f, -0x1.fcc292p-9f, 0x1.45232ep-3f, 0x1.7f774ap1f},
    {0x1.c0d41ap-15f, -0x1.dc224p-10f, 0x1.f58048p-4f, 0x1.fb68c8p1f},
    {0x1.214b12p-16f, -0x1.e0641ap-11f, 0x1.8e2p-4f, 0x1.4314a4p2f},
    {0x1.97d77ap-18f, -0x1.009932p-11f, 0x1.42c4b4p-4f, 0x1.911482p2f},
    {0x1.2f3d48p-19f, -0x1.1ac432p-12f, 0x1.083e7p-4f, 0x1.ebe6cep2f},
    {0x1.d51882p-21f, -0x1.3fb9cep-13f, 0x1.b4ed3cp-5f, 0x1.2a46d4p3f}
};

}  // namespace orvik::zym
