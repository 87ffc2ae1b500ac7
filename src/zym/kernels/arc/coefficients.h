// Polynomials of the arc sine and the arc tangent, in radians and in units of pi.
#pragma once

namespace orvik::zym {

//: x + x^3 * p(x^2) = asin(x) on [2^-20, 1/2], relative error 2^-14.6
//: fit arc/coefficients.sollya
inline constexpr float kAsinSingleEP[2] = {0x1.823f5p-4f, 0x1.5209cep-3f};

//: x + x^3 * p(x^2) = asin(x) on [2^-20, 1/2], relative error 2^-27.6
//: fit arc/coefficients.sollya
inline constexpr float kAsinSingleLA[5] = {
    0x1.5959aap-5f, 0x1.8c415ap-6f, 0x1.747b72p-5f, 0x1.330206p-4f, 0x1.5555c8p-3f
};

//: x + x^3 * p(x^2) = asin(x) on [2^-20, 1/2], relative error 2^-31.6
//: fit arc/coefficients.sollya
inline constexpr float kAsinSingleHA[6] = {
    0x1.33d432p-5f, 0x1.d7924cp-7f, 0x1.04af34p-5f, 0x1.6caab6p-5f, 0x1.33389ep-4f, 0x1.55554cp-3f
};

//: x + x^3 * p(x^2) = asin(x) on [2^-20, 1/2], relative error 2^-27.6
//: fit arc/coefficients.sollya
inline constexpr double kAsinDoubleEP[5] = {
    0x1.596d27da32db1p-5, 0x1.8c283d28c3c54p-6, 0x1.747e4a13da347p-5, 0x1.3301e46a1775fp-4, 0x1.5555c88339386p-3
};

//: x + x^3 * p(x^2) = asin(x) on [2^-20, 1/2], relative error 2^-55.9
//: fit arc/coefficients.sollya
inline constexpr double kAsinDoubleLA[12] = {
    0x1.056d6c8139f2bp-5, -0x1.09d32833a0d94p-6, 0x1.3ff4a990b2879p-6, 0x1.abcf5cd7c44efp-8, 0x1.8ec2fca604435p-7,
    0x1.c6fdc1aaa5333p-7, 0x1.1c6be1a687738p-6, 0x1.6e89f440197a7p-6, 0x1.f1c72c38fb342p-6, 0x1.6db6db427a4f8p-5,
    0x1.333333336e80fp-4, 0x1.555555555539p-3
};

//: x + x^3 * p(x^2) = asin(x) on [2^-20, 1/2], relative error 2^-59.8
//: fit arc/coefficients.sollya
inline constexpr double kAsinDoubleHA[13] = {
    0x1.0b45e9f72248dp-5, -0x1.57fad0de8e68fp-6, 0x1.639a894e13f3ep-6, 0x1.e5fbe88e19b6dp-9, 0x1.613c1e6ed62ccp-7,
    0x1.75859dad05ec1p-7, 0x1.ca1f8af1f0a3p-7, 0x1.1c49f077d5bc7p-6, 0x1.6e8bdedebf9dfp-6, 0x1.f1c71a95002fbp-6,
    0x1.6db6db721247bp-5, 0x1.333333332e133p-4, 0x1.5555555555577p-3
};

//: x / pi + x^3 * p(x^2) = asin(x) / pi on [2^-20, 1/2], relative error 2^-14.6
//: fit arc/coefficients.sollya
inline constexpr float kAsinpiSingleEP[2] = {0x1.ebc5e8p-6f, 0x1.ae67d4p-5f};

//: x / pi + x^3 * p(x^2) = asin(x) / pi on [2^-20, 1/2], relative error 2^-23.5
//: fit arc/coefficients.sollya
inline constexpr float kAsinpiSingleLA[5] = {
    0x1.4d2f12p-6f, 0x1.c088e2p-9f, 0x1.f884a4p-7f, 0x1.85905ap-6f, 0x1.b29f3p-5f
};

//: x / pi + x^3 * p(x^2) = asin(x) / pi on [2^-20, 1/2], relative error 2^-31.7
//: fit arc/coefficients.sollya
inline constexpr float kAsinpiSingleHA[6] = {
    0x1.85fd46p-7f, 0x1.2f42f4p-8f, 0x1.4b767p-7f, 0x1.d05edp-7f, 0x1.872a08p-6f, 0x1.b29954p-5f
};

//: x / pi + x^3 * p(x^2) = asin(x) / pi on [2^-20, 1/2], relative error 2^-27.6
//: fit arc/coefficients.sollya
inline constexpr double kAsinpiDoubleEP[5] = {
    0x1.b7cf7f75ba73ap-7, 0x1.f8672a76f844cp-8, 0x1.da45f1e7416eep-7, 0x1.86e4da01203d8p-6, 0x1.b299f1221544ap-5
};

//: x / pi + x^3 * p(x^2) = asin(x) / pi on [2^-20, 1/2], relative error 2^-52.8
//: fit arc/coefficients.sollya
inline constexpr double kAsinpiDoubleLA[12] = {
    0x1.a55fccba93c8bp-7, -0x1.2cc5be9d226dfp-7, 0x1.2129e71f5b03bp-7, 0x1.21a31c6fd39fbp-10, 0x1.0ceeefb1b35f9p-8,
    0x1.1f4df7073bdcep-8, 0x1.6a61971fdee5fp-8, 0x1.d2acd0b9421a5p-8, 0x1.3ce54c11ca384p-7, 0x1.d1a4521ed7e61p-7,
    0x1.8723a1d6ddeb1p-6, 0x1.b2995e7b7a87fp-5
};

//: x / pi + x^3 * p(x^2) = asin(x) / pi on [2^-20, 1/2], relative error 2^-59.8
//: fit arc/coefficients.sollya
inline constexpr double kAsinpiDoubleHA[13] = {
    0x1.5468647f701a4p-7, -0x1.b651f9ed85d34p-8, 0x1.c50796ae1080bp-8, 0x1.34ef1a14f42aep-10, 0x1.c1d0f6cb33de2p-9,
    0x1.db921c19fd17ap-9, 0x1.23a6ae625e4e3p-8, 0x1.69f7bb4c0f7c7p-8, 0x1.d2b38ad426abcp-8, 0x1.3ce52908fe72ep-7,
    0x1.d1a452f799d7bp-7, 0x1.8723a1d5820d6p-6, 0x1.b2995e7b7b62fp-5
};

//: x + x^3 * p(x^2) = atan(x) on [2^-20, 1], relative error 2^-14.7
//: fit arc/coefficients.sollya
inline constexpr float kAtanSingleEP[4] = {0x1.96fbc8p-6f, -0x1.816ce6p-4f, 0x1.7e9874p-3f, -0x1.541a14p-2f};

//: x + x^3 * p(x^2) = atan(x) on [2^-20, 0.2813], relative error 2^-24.7
//: fit arc/coefficients.sollya
inline constexpr float kAtanSingleLA[3] = {-0x1.04d152p-3f, 0x1.982f72p-3f, -0x1.555302p-2f};

//: x + x^3 * p(x^2) = atan(x) on [2^-20, 0.2813], relative error 2^-30.8
//: fit arc/coefficients.sollya
inline constexpr double kAtanDoubleEP[4] = {
    0x1.86640ae2f3a96p-4, -0x1.227e9abc41163p-3, 0x1.998be93788eb7p-3, -0x1.555547366e19bp-2
};

//: x + x^3 * p(x^2) = atan(x) on [2^-20, 0.2813], relative error 2^-54.5
//: fit arc/coefficients.sollya
inline constexpr double kAtanDoubleLA[8] = {
    0x1.625ecfd7be777p-5, -0x1.0843301c850f5p-4, 0x1.3a67121b8f941p-4, -0x1.7455533ba6998p-4, 0x1.c71c3d55e8626p-4,
    -0x1.249248c2454cbp-3, 0x1.99999998e7023p-3, -0x1.55555555551ddp-2
};

//: x / pi + x^3 * p(x^2) = atan(x) / pi on [2^-20, 1], relative error 2^-13.8
//: fit arc/coefficients.sollya
inline constexpr float kAtanpiSingleEP[4] = {0x1.03141ap-7f, -0x1.eab8d2p-6f, 0x1.e7212cp-5f, -0x1.b110fcp-4f};

//: x / pi + x^3 * p(x^2) = atan(x) / pi on [2^-20, 0.2813], relative error 2^-23.5
//: fit arc/coefficients.sollya
inline constexpr float kAtanpiSingleLA[3] = {-0x1.474d0cp-5f, 0x1.0395f8p-4f, -0x1.b2944cp-4f};

//: x / pi + x^3 * p(x^2) = atan(x) / pi on [2^-20, 0.2813], relative error 2^-30.8
//: fit arc/coefficients.sollya
inline constexpr double kAtanpiDoubleEP[4] = {
    0x1.f10f9d4446439p-6, -0x1.71de80679e45cp-5, 0x1.04b9b4ee0e94p-4, -0x1.b2994c80d82c6p-4
};

//: x / pi + x^3 * p(x^2) = atan(x) / pi on [2^-20, 0.2813], relative error 2^-52.8
//: fit arc/coefficients.sollya
inline constexpr double kAtanpiDoubleLA[8] = {
    0x1.cb22a1c1e1c4p-7, -0x1.51c4a194e7265p-6, 0x1.907bca30488e5p-6, -0x1.da14e8d7568e4p-6, 0x1.21bb82a51dc01p-5,
    -0x1.7483756865d12p-5, 0x1.04c26be3b7fd7p-4, -0x1.b2995e7b7b9ddp-4
};

// About pivots of octaves, and of half octaves.
//: x + x^3 * p(x^2) = atan(x) on [2^-20, 0.163], relative error 2^-30.8
//: fit arc/coefficients.sollya
inline constexpr float kAtanByPivots32[3] = {-0x1.193b24p-3f, 0x1.996cecp-3f, -0x1.55553cp-2f};
//: x + x^3 * p(x^2) = atan(x) on [2^-20, 0.0994], relative error 2^-63.3
//: fit arc/coefficients.sollya
inline constexpr double kAtanByPivots64[6] = {
    0x1.31e602194f873p-4, -0x1.743dcfb51fb23p-4, 0x1.c71c3d21b98c5p-4, -0x1.2492490e1c813p-3, 0x1.9999999990c24p-3,
    -0x1.555555555554cp-2
};
//: x / pi + x^3 * p(x^2) = atan(x) / pi on [2^-20, 0.163], relative error 2^-30.9
//: fit arc/coefficients.sollya
inline constexpr float kAtanpiByPivots32[3] = {-0x1.66381p-5f, 0x1.04a6b8p-4f, -0x1.b2994p-4f};
//: x / pi + x^3 * p(x^2) = atan(x) / pi on [2^-20, 0.0994], relative error 2^-63.4
//: fit arc/coefficients.sollya
inline constexpr double kAtanpiByPivots64[6] = {
    0x1.8580420e7c835p-6, -0x1.d9f3ffd6f0597p-6, 0x1.21bb73080e1bdp-5, -0x1.7483757221756p-5, 0x1.04c26be3aae5ap-4,
    -0x1.b2995e7b7b5f8p-4
};

// About pivots that are powers of two.
//: x + x^3 * p(x^2) = atan(x) on [2^-20, 0.2], relative error 2^-28.6
//: fit arc/coefficients.sollya
inline constexpr float kAtanByOctaves32[3] = {-0x1.13dd02p-3f, 0x1.993818p-3f, -0x1.555504p-2f};
//: x + x^3 * p(x^2) = atan(x) on [2^-20, 0.2], relative error 2^-63.1
//: fit arc/coefficients.sollya
inline constexpr double kAtanByOctaves64[8] = {
    0x1.9bb78a011545cp-5, -0x1.0e8b55fbf5841p-4, 0x1.3afa5746880cap-4, -0x1.745c8295cd2cfp-4, 0x1.c71c6fc995a88p-4,
    -0x1.24924922aed6ap-3, 0x1.9999999997de2p-3, -0x1.5555555555551p-2
};
//: x / pi + x^3 * p(x^2) = atan(x) / pi on [2^-20, 0.2], relative error 2^-28.6
//: fit arc/coefficients.sollya
inline constexpr float kAtanpiByOctaves32[3] = {-0x1.5f352p-5f, 0x1.048418p-4f, -0x1.b298f6p-4f};
//: x / pi + x^3 * p(x^2) = atan(x) / pi on [2^-20, 0.2], relative error 2^-63.1
//: fit arc/coefficients.sollya
inline constexpr double kAtanpiByOctaves64[8] = {
    0x1.061aed8d20cdbp-6, -0x1.5877a40fdfecep-6, 0x1.910ad361da766p-6, -0x1.da1aef856028bp-6, 0x1.21bb930dce47dp-5,
    -0x1.7483758c01ccap-5, 0x1.04c26be3af525p-4, -0x1.b2995e7b7b5fep-4
};

}  // namespace orvik::zym
