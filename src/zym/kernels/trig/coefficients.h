// Polynomials of the trigonometric functions in z = r^2, r in radians, half turns or degrees.
#pragma once

namespace orvik::zym::trig {

// --- radians, as given ------------------------------------------------------------------------------------------------

//: x * p(x^2) = sin(x) on [-pi/2, pi/2], relative error 2^-12.6
inline constexpr float kSineEP32[3] = {0x1.f08a48p-8f, -0x1.53ce5ep-3f, 0x1.fff0f8p-1f};
//: x * p(x^2) = sin(x) on [-pi/2, pi/2], relative error 2^-12.6
inline constexpr float kSineEP32OfCosine[3] = {0x1.f08a48p-8f, -0x1.53ce7ep-3f, 0x1.fff0f8p-1f};
//: x + x^3 * p(x^2) = sin(x) on [-pi/2, pi/2], relative error 2^-24.6
inline constexpr float kSineLA32[4] = {0x1.5dbdfp-19f, -0x1.9f6ffep-13f, 0x1.110eccp-7f, -0x1.55554cp-3f};
//: x + x^3 * p(x^2) = sin(x) on [-pi/2, pi/2], relative error 2^-24.4
inline constexpr float kSineLA32OfCosine[4] = {0x1.5d866ap-19f, -0x1.9f6d9ep-13f, 0x1.110ec8p-7f, -0x1.55554cp-3f};
//: x + x^3 * p(x^2) = sin(x) on [-pi/2, pi/2], relative error 2^-27.2
inline constexpr double kSineHA32[4] = {
    0x1.5dbdf0e4c7deep-19, -0x1.9f6ffeea73463p-13, 0x1.110ed3804ca96p-7, -0x1.55554bc836587p-3
};
//: x + x^3 * p(x^2) = sin(x) on [-pi/2, pi/2], relative error 2^-27.2
inline constexpr double kSineHA32OfCosine[4] = {
    0x1.5dbdf0e4c7deep-19, -0x1.9f6ffeea73462p-13, 0x1.110ed3804ca96p-7, -0x1.55554bc836587p-3
};
//: x + x^3 * p(x^2) = sin(x) on [-pi/2, pi/2], relative error 2^-27.1
inline constexpr double kSineEP64[4] = {
    0x1.5d4567512bbd5p-19, -0x1.9f67d9395d587p-13, 0x1.110ea968a0185p-7, -0x1.55554ad3eaf1fp-3
};
//: x + x^3 * p(x^2) = sin(x) on [-pi/2, pi/2], relative error 2^-52.2
inline constexpr double kSineLA64[7] = {
    -0x1.9f1517e9f65fp-41, 0x1.60e6bee01d83ep-33, -0x1.ae6355aaa4a53p-26, 0x1.71de3806add1ap-19, -0x1.a01a019a659dbp-13,
    0x1.111111110a573p-7, -0x1.55555555554a8p-3
};
//: x + x^3 * p(x^2) = sin(x) on [-pi/512, pi/512], relative error 2^-61.0
inline constexpr double kGridSine[2] = {0x1.1110fabb3551cp-7, -0x1.5555555554448p-3};
//: 1 + x^2 * p(x^2) = cos(x) on [-pi/512, pi/512], relative error 2^-78.7
inline constexpr double kGridCosine[3] = {-0x1.6c16ab163b2d7p-10, 0x1.5555555554ccfp-5, -0x1p-1};
// The denominator has the numerator's constant term.
//: p(x) = kTangent32P(x) + (-0.42913565039634705 + 0.09580174088478088) * x + 0.009716848842799664 * x^2 on [0, 1], absolute error 2^-56.9
inline constexpr float kTangent32Q[3] = {0x1.3e66d6p-7f, -0x1.b76f56p-2f, 0x1.fffff8p-1f};
//: x * p(x^2) / kTangent32Q(x^2) = tan(x) on [-pi/4, pi/4], relative error 2^-25.1
inline constexpr float kTangent32P[2] = {-0x1.886768p-4f, 0x1.fffff8p-1f};

// --- radians, fitted --------------------------------------------------------------------------------------------------

//: p(x) = (1 - x * (2/pi)^2) * (1 - x * (2/(3*pi))^2) on [0, (pi/4)^2], absolute error 2^-56.2
//: fit trig/coefficients.sollya
inline constexpr double kTangentEP64Q[3] = {0x1.2b04b63e07ae3p-6, -0x1.cd1fbc25f87eap-2, 0x1p0};
//: x * p(x^2) / kTangentEP64Q(x^2) = tan(x) on [-pi/4, pi/4], relative error 2^-32.7
//: fit trig/coefficients.sollya
inline constexpr double kTangentEP64P[4] = {
    0x1.47a4f7a24e314p-17, 0x1.839152dc36e05p-10, -0x1.df299951cf0fep-4, 0x1.fffffffec7e92p-1
};
//: p(x) = (1 - x * (2/pi)^2) * (1 - x * (2/(3*pi))^2) * (1 - x * (2/(5*pi))^2) on [0, (pi/4)^2], absolute error 2^-57.4
//: fit trig/coefficients.sollya
inline constexpr double kTangentLA64Q[4] = {-0x1.363d809db624ap-12, 0x1.a2a03256d78d8p-6, -0x1.ddb97412db8d7p-2, 0x1p0};
//: x * p(x^2) / kTangentLA64Q(x^2) = tan(x) on [-pi/4, pi/4], relative error 2^-54.2
//: fit trig/coefficients.sollya
inline constexpr double kTangentLA64P[6] = {
    -0x1.c8c293a2a5502p-33, -0x1.436fc873c244cp-25, -0x1.e19800a42bab8p-17, 0x1.ba5d292be81a6p-9, -0x1.10c83d7b0c77ap-3,
    0x1p0
};
//: x + x^3 * p(x^2) = tan(x) on [-0.0986, 0.0986], relative error 2^-28.9
//: fit trig/coefficients.sollya
inline constexpr float kTangentCircle32[2] = {0x1.1290d8p-3f, 0x1.5554c2p-2f};
//: x + x^3 * p(x^2) = tan(x) on [-pi/32, pi/32], relative error 2^-59.1
//: fit trig/coefficients.sollya
inline constexpr double kTangentGrid64[5] = {
    0x1.25cccc7df5b54p-7, 0x1.664ab664ed3abp-6, 0x1.ba1ba489d25dbp-5, 0x1.11111110b0802p-3, 0x1.55555555555dcp-2
};
// Between the points of a sixteenth of a half turn; floats of 2^19 go a little beyond, since their n is rounded so.
//: x + x^3 * p(x^2) = sin(x) on [-0.12, 0.12], relative error 2^-34.5
//: fit trig/coefficients.sollya
inline constexpr float kCircleSine32[2] = {0x1.10eafap-7f, -0x1.555552p-3f};
//: 1 + x^2 * p(x^2) = cos(x) on [-0.12, 0.12], relative error 2^-32.4
//: fit trig/coefficients.sollya
inline constexpr float kCircleCosine32[2] = {0x1.551bcp-5f, -0x1.fffff8p-2f};
//: x + x^3 * p(x^2) = sin(x) on [-0.0982, 0.0982], relative error 2^-67.2
//: fit trig/coefficients.sollya
inline constexpr double kCircleSine64[4] = {
    0x1.71cadc62fe173p-19, -0x1.a01a0109e0661p-13, 0x1.111111110f5c7p-7, -0x1.5555555555555p-3
};
//: 1 + x^2 * p(x^2) = cos(x) on [-0.0982, 0.0982], relative error 2^-64.0
//: fit trig/coefficients.sollya
inline constexpr double kCircleCosine64[4] = {
    0x1.9ffe2f520e5d2p-16, -0x1.6c16c08534152p-10, 0x1.555555554f6eep-5, -0x1.ffffffffffffdp-2
};
// Sine and cosine of one argument.
//: x + x^3 * p(x^2) = sin(x) on [-pi/4, pi/4], relative error 2^-19.0
//: fit trig/coefficients.sollya
inline constexpr float kPairSineEP32[2] = {0x1.0b7e94p-7f, -0x1.554428p-3f};
//: 1 + x^2 * p(x^2) = cos(x) on [-pi/4, pi/4], relative error 2^-16.0
//: fit trig/coefficients.sollya
inline constexpr float kPairCosineEP32[2] = {0x1.4b6f9p-5f, -0x1.ffc13cp-2f};
//: x + x^3 * p(x^2) = sin(x) on [-pi/4, pi/4], relative error 2^-27.8
//: fit trig/coefficients.sollya
inline constexpr float kPairSineLA32[3] = {-0x1.9954e8p-13f, 0x1.11077ap-7f, -0x1.555546p-3f};
//: 1 + x^2 * p(x^2) = cos(x) on [-pi/4, pi/4], relative error 2^-32.9
//: fit trig/coefficients.sollya
inline constexpr float kPairCosineLA32[4] = {0x1.99e914p-16f, -0x1.6c0c2ap-10f, 0x1.55554ap-5f, -0x1p-1f};
//: x + x^3 * p(x^2) = sin(x) on [-pi/4, pi/4], relative error 2^-37.4
//: fit trig/coefficients.sollya
inline constexpr double kPairSineHA32[4] = {
    0x1.6cd1f2aeda7c6p-19, -0x1.a00f7f28c225ap-13, 0x1.1111086a61682p-7, -0x1.5555554c71d15p-3
};
//: 1 + x^2 * p(x^2) = cos(x) on [-pi/4, pi/4], relative error 2^-33.8
//: fit trig/coefficients.sollya
inline constexpr double kPairCosineHA32[4] = {
    0x1.99169fc8ae9e8p-16, -0x1.6c07f16941f0ep-10, 0x1.55553c789959ap-5, -0x1.ffffffcb82e93p-2
};
//: x + x^3 * p(x^2) = sin(x) on [-pi/4, pi/4], relative error 2^-27.9
//: fit trig/coefficients.sollya
inline constexpr double kPairSineEP64[3] = {-0x1.9943e0fc7a7e9p-13, 0x1.11073afd14de1p-7, -0x1.555545268a03p-3};
//: 1 + x^2 * p(x^2) = cos(x) on [-pi/4, pi/4], relative error 2^-33.8
//: fit trig/coefficients.sollya
inline constexpr double kPairCosineEP64[4] = {
    0x1.99169fc8ae9e8p-16, -0x1.6c07f16941f0ep-10, 0x1.55553c789959ap-5, -0x1.ffffffcb82e93p-2
};
//: x + x^3 * p(x^2) = sin(x) on [-pi/4, pi/4], relative error 2^-57.8
//: fit trig/coefficients.sollya
inline constexpr double kPairSineLA64[6] = {
    0x1.5d8e62828f329p-33, -0x1.ae5e5500c1349p-26, 0x1.71de355fa53bdp-19, -0x1.a01a019bf2b81p-13, 0x1.111111110f76p-7,
    -0x1.5555555555548p-3
};
//: 1 + x^2 * p(x^2) = cos(x) on [-pi/4, pi/4], relative error 2^-63.7
//: fit trig/coefficients.sollya
inline constexpr double kPairCosineLA64[7] = {
    -0x1.8f9f705a7ddfbp-37, 0x1.1ee9cccfa6cbdp-29, -0x1.27e4f7d905223p-22, 0x1.a01a019c68a06p-16,
    -0x1.6c16c16c14e4ap-10, 0x1.555555555554ap-5, -0x1p-1
};

// --- half turns ----------------------------------------------------------------------------------------------------

//: x * p(x^2) = sin(pi * x) on [-1/2, 1/2], relative error 2^-13.1
//: fit trig/coefficients.sollya
inline constexpr float kSineEP32Turns[3] = {0x1.29cf4p1f, -0x1.4954dep2f, 0x1.921492p1f};
//: pi * x + x^3 * p(x^2) = sin(pi * x) on [-1/2, 1/2], relative error 2^-27.2
//: fit trig/coefficients.sollya
inline constexpr float kSineLA32Turns[4] = {0x1.3e56a4p-4f, -0x1.32587ep-1f, 0x1.46693ap1f, -0x1.4abbc6p2f};
//: x * p(x^2) = sin(pi * x) on [-1/2, 1/2], relative error 2^-35.4
//: fit trig/coefficients.sollya
inline constexpr double kSineHA32Turns[6] = {
    -0x1.cc345a5f58772p-8, 0x1.500ff7f206d48p-4, -0x1.32d11201b17acp-1, 0x1.466bbfc24f86cp1, -0x1.4abbce4f1a2d1p2,
    0x1.921fb5441e49dp1
};
//: x * p(x^2) = sin(pi * x) on [-1/2, 1/2], relative error 2^-27.4
//: fit trig/coefficients.sollya
inline constexpr double kSineEP64Turns[5] = {
    0x1.3daff5dc00d4fp-4, -0x1.324ccac042ed5p-1, 0x1.4668af4e91b1bp1, -0x1.4abbc166dbcbep2, 0x1.921fb52068f9ap1
};
//: pi * x + x^3 * p(x^2) = sin(pi * x) on [-1/2, 1/2], relative error 2^-52.5
//: fit trig/coefficients.sollya
inline constexpr double kSineLA64Turns[7] = {
    -0x1.62835b15f7692p-16, 0x1.e89eddb95c611p-12, -0x1.e3062f9cc54e3p-8, 0x1.5078326e7b70dp-4, -0x1.32d2cce1f6d5ep-1,
    0x1.466bc67752a35p1, -0x1.4abbce625bdabp2
};
//: p(x) = (1 - x * (2)^2) on [0, (1/4)^2], absolute error 0
//: fit trig/coefficients.sollya
inline constexpr float kTangentEP32TurnsQ[2] = {-0x1p2f, 0x1p0f};
//: x * p(x^2) / kTangentEP32TurnsQ(x^2) = tan(pi * x) on [-1/4, 1/4], relative error 2^-13.4
//: fit trig/coefficients.sollya
inline constexpr float kTangentEP32TurnsP[2] = {-0x1.2201ecp1f, 0x1.9228dep1f};
//: p(x) = (1 - x * (2)^2) * (1 - x * (2/3)^2) on [0, (1/4)^2], absolute error 2^-26.1
//: fit trig/coefficients.sollya
inline constexpr float kTangentLA32TurnsQ[3] = {0x1.c71c72p0f, -0x1.1c71c8p2f, 0x1p0f};
//: x * p(x^2) / kTangentLA32TurnsQ(x^2) = tan(pi * x) on [-1/4, 1/4], relative error 2^-25.0
//: fit trig/coefficients.sollya
inline constexpr float kTangentLA32TurnsP[4] = {0x1.af25ap-6f, 0x1.cfa62ep-2f, -0x1.d048bep1f, 0x1.921fb6p1f};
//: p(x) = (1 - x * (2)^2) on [0, (1/4)^2], absolute error 0
//: fit trig/coefficients.sollya
inline constexpr double kTangentEP64TurnsQ[2] = {-0x1p2, 0x1p0};
//: x * p(x^2) / kTangentEP64TurnsQ(x^2) = tan(pi * x) on [-1/4, 1/4], relative error 2^-27.9
//: fit trig/coefficients.sollya
inline constexpr double kTangentEP64TurnsP[4] = {
    -0x1.c743fcdd2405bp-3, -0x1.13c4b577bc38p-1, -0x1.1d8fcd40bc29fp1, 0x1.921fb55d8bcbfp1
};
//: p(x) = (1 - x * (2)^2) * (1 - x * (2/3)^2) * (1 - x * (2/5)^2) on [0, (1/4)^2], absolute error 2^-55.3
//: fit trig/coefficients.sollya
inline constexpr double kTangentLA64TurnsQ[4] = {
    -0x1.23456789abcdfp-2, 0x1.3e93e93e93e94p1, -0x1.26af37c048d16p2, 0x1p0
};
//: x * p(x^2) / kTangentLA64TurnsQ(x^2) = tan(pi * x) on [-1/4, 1/4], relative error 2^-53.1
//: fit trig/coefficients.sollya
inline constexpr double kTangentLA64TurnsP[6] = {
    -0x1.007029172ff4ap-14, -0x1.263abc91d05bbp-10, -0x1.631da61dc0591p-5, 0x1.08660835bbff1p0, -0x1.084fae1399477p2,
    0x1.921fb54442d19p1
};

// --- degrees -------------------------------------------------------------------------------------------------------

//: x * p(x^2) = sin(pi/180 * x) on [-90, 90], relative error 2^-13.1
//: fit trig/coefficients.sollya
inline constexpr float kSineEP32Degrees[3] = {0x1.b139fp-37f, -0x1.d9b3ccp-21f, 0x1.1dec7ep-6f};
//: pi/180 * x + x^3 * p(x^2) = sin(pi/180 * x) on [-90, 90], relative error 2^-27.2
//: fit trig/coefficients.sollya
inline constexpr float kSineLA32Degrees[4] = {0x1.d983d6p-72f, -0x1.c2b238p-54f, 0x1.dad57cp-37f, -0x1.dbb814p-21f};
//: x * p(x^2) = sin(pi/180 * x) on [-90, 90], relative error 2^-35.4
//: fit trig/coefficients.sollya
inline constexpr double kSineHA32Degrees[6] = {
    -0x1.5a44baa2a5179p-90, 0x1.f40aeb911a274p-72, -0x1.c3664e6120c6dp-54, 0x1.dad944ec423adp-37,
    -0x1.dbb820bd902b4p-21, 0x1.1df46a250fd97p-6
};
//: x * p(x^2) = sin(pi/180 * x) on [-90, 90], relative error 2^-27.4
//: fit trig/coefficients.sollya
inline constexpr double kSineEP64Degrees[5] = {
    0x1.d8b39c3b434d3p-72, -0x1.c2a3b18d2905p-54, 0x1.dad4cfc52dbbep-37, -0x1.dbb80e2cd1a22p-21, 0x1.1df46a0bab5c3p-6
};
//: pi/180 * x + x^3 * p(x^2) = sin(pi/180 * x) on [-90, 90], relative error 2^-52.5
//: fit trig/coefficients.sollya
inline constexpr double kSineLA64Degrees[7] = {
    -0x1.10d6580e1d046p-128, 0x1.73d33baee49e4p-109, -0x1.6b70424d331a6p-90, 0x1.f4a601aba6328p-72,
    -0x1.c368d9f464022p-54, 0x1.dad94eae0522ap-37, -0x1.dbb820d942e87p-21
};
//: p(x) = (1 - x * (2/180)^2) on [0, 45^2], absolute error 2^-30.9
//: fit trig/coefficients.sollya
inline constexpr float kTangentEP32DegreesQ[2] = {-0x1.02e85cp-13f, 0x1p0f};
//: x * p(x^2) / kTangentEP32DegreesQ(x^2) = tan(pi/180 * x) on [-45, 45], relative error 2^-13.4
//: fit trig/coefficients.sollya
inline constexpr float kTangentEP32DegreesP[2] = {-0x1.a123dep-22f, 0x1.1dfaeep-6f};
//: p(x) = (1 - x * (2/180)^2) * (1 - x * (2/540)^2) on [0, 45^2], absolute error 2^-30.7
//: fit trig/coefficients.sollya
inline constexpr float kTangentLA32DegreesQ[3] = {0x1.d18216p-30f, -0x1.1facd8p-13f, 0x1p0f};
//: x * p(x^2) / kTangentLA32DegreesQ(x^2) = tan(pi/180 * x) on [-45, 45], relative error 2^-26.9
//: fit trig/coefficients.sollya
inline constexpr float kTangentLA32DegreesP[4] = {0x1.6e9e58p-58f, 0x1.50e7a8p-39f, -0x1.4de7fcp-21f, 0x1.1df46ap-6f};
//: p(x) = (1 - x * (2/180)^2) on [0, 45^2], absolute error 2^-57.2
//: fit trig/coefficients.sollya
inline constexpr double kTangentEP64DegreesQ[2] = {-0x1.02e85c0898b71p-13, 0x1p0};
//: x * p(x^2) / kTangentEP64DegreesQ(x^2) = tan(pi/180 * x) on [-45, 45], relative error 2^-27.9
//: fit trig/coefficients.sollya
inline constexpr double kTangentEP64DegreesP[4] = {
    -0x1.4ee6c6b3bd7c9p-55, -0x1.9129f29debca1p-39, -0x1.9abebe58ea7ebp-22, 0x1.1df46a3724d54p-6
};
//: p(x) = (1 - x * (2/180)^2) * (1 - x * (2/540)^2) * (1 - x * (2/900)^2) on [0, 45^2], absolute error 2^-56.2
//: fit trig/coefficients.sollya
inline constexpr double kTangentLA64DegreesQ[4] = {
    -0x1.2d4f1e6209a07p-47, 0x1.45db0f70b03f4p-29, -0x1.2a080eeb2cf29p-13, 0x1p0
};
//: x * p(x^2) / kTangentLA64DegreesQ(x^2) = tan(pi/180 * x) on [-45, 45], relative error 2^-54.1
//: fit trig/coefficients.sollya
inline constexpr double kTangentLA64DegreesP[6] = {
    -0x1.81ad505abf85cp-97, -0x1.b5ccc5345671ep-78, -0x1.053ac1bb3d66bp-57, 0x1.809fbf9ae932ep-38,
    -0x1.7c2dcdc00701ap-21, 0x1.1df46a2529d39p-6
};

}  // namespace orvik::zym::trig
