// Constants of the hyperbolic functions and their inverses.
#pragma once

#include <array>
#include <bit>

#include "zym/kernels/explog/constants.h"

namespace orvik::zym::hyperbolic {

// Numbers near 2^(i/16) whose reciprocals are in the format too, but for 2^-8 of a last place (Gal and Bachelis 1991):
// with a correction of the argument, the logarithm's rest, they serve e^x and e^-x in all digits. At sqrt(2) errors of
// both move together, so that the double stands a little apart from it.
//: planes
//: up = with_reciprocal(2^(i/16), 24, 8)
//: down = 1 / up
//: rest = log(up) - log(2) * i/16
inline constexpr float kSixteenths32[3][16] = {
    {
        0x1p0f, 0x1.0b557cp0f, 0x1.172c1p0f, 0x1.238822p0f, 0x1.306fe6p0f, 0x1.3deb32p0f, 0x1.4bfc78p0f, 0x1.5ab0ccp0f,
        0x1.69f53ap0f, 0x1.7a10f2p0f, 0x1.8acfc4p0f, 0x1.9c48b4p0f, 0x1.ae89f2p0f, 0x1.c19ap0f, 0x1.d5818p0f,
        0x1.ea4b0ep0f
    },
    {
        0x1p0f, 0x1.ea4b0ep-1f, 0x1.d580a2p-1f, 0x1.c199p-1f, 0x1.ae89f2p-1f, 0x1.9c480ep-1f, 0x1.8acfc4p-1f,
        0x1.7a10f2p-1f, 0x1.6a1e94p-1f, 0x1.5ab0ccp-1f, 0x1.4bfc78p-1f, 0x1.3deab2p-1f, 0x1.306fe6p-1f, 0x1.23877cp-1f,
        0x1.172b8cp-1f, 0x1.0b557cp-1f
    },
    {
        0.0f, -0x1.4b485p-21f, 0x1.01299cp-17f, 0x1.b06002p-18f, 0x1.209d78p-22f, 0x1.4a8b5ap-17f, -0x1.dd0c82p-17f,
        0x1.cdc5b4p-19f, -0x1.d3d6d6p-13f, -0x1.cdc63p-19f, 0x1.dd0ed6p-17f, -0x1.f19054p-19f, -0x1.20a1ccp-22f,
        0x1.2d587ep-19f, -0x1.e1f7a8p-22f, 0x1.4b685cp-21f
    },
};
//: planes
//: up = with_reciprocal(2^(i/16) * (i == 8 ? 1 + 2^-13 : 1), 53, 10)
//: down = 1 / up
//: rest = log(up) - log(2) * i/16
inline constexpr double kSixteenths64[3][16] = {
    {
        0x1p0, 0x1.0b5586cf8ff6fp0, 0x1.172b83c7d5057p0, 0x1.2387a6e7561a4p0, 0x1.306fe0a31b76bp0, 0x1.3dea64c123505p0,
        0x1.4bfdad5362bb6p0, 0x1.5ab07dd4853c8p0, 0x1.6a1536b7270e2p0, 0x1.7a11473eb01f1p0, 0x1.8ace5422a9f2dp0,
        0x1.9c49182a3ef6ap0, 0x1.ae89f995ad334p0, 0x1.c199bdd855381p0, 0x1.d5818dcfba64dp0, 0x1.ea4afa2a49037p0
    },
    {
        0x1p0, 0x1.ea4afa2a58d42p-1, 0x1.d5818dcfba672p-1, 0x1.c199bdd855381p-1, 0x1.ae89f995ad334p-1,
        0x1.9c49182a3ef6ap-1, 0x1.8ace5422a9f01p-1, 0x1.7a11473eb01f1p-1, 0x1.69fe967340111p-1, 0x1.5ab07dd4853c8p-1,
        0x1.4bfdad5362b91p-1, 0x1.3dea64c123505p-1, 0x1.306fe0a31b76bp-1, 0x1.2387a6e7561a4p-1, 0x1.172b83c7d506dp-1,
        0x1.0b5586cf98968p-1
    },
    {
        0.0, -0x1.07954b9232afap-37, -0x1.0ba3acb4a2fafp-44, -0x1.04a159b02e859p-45, 0x1.20aa480622dbap-46,
        0x1.6d3e534ad933ap-45, 0x1.339539c247ff7p-44, -0x1.1f87561ba33a5p-46, 0x1.fff8002dcb9ddp-14,
        0x1.1f86f3a6e38f3p-46, -0x1.170d7af08bc1cp-44, -0x1.6d3e8fae25a9bp-45, -0x1.20aa9616c64d4p-46,
        0x1.04a17af08eab9p-45, 0x1.eeede4a9175fp-45, -0x1.536f3117ddaf9p-46
    },
};

// ln 2 in two parts; multiples of the first by exponents are exact.
inline constexpr float kHalfLn2_32 = 0x1.62e43p-2f;            //: = log(2)/2
inline constexpr double kHalfLn2_64 = 0x1.62e42fefa39efp-2;    //: = log(2)/2
inline constexpr float kLn2Whole32 = 0x1.62e43p-1f;            //: = log(2)
inline constexpr double kLn2Whole64 = 0x1.62e42fefa39efp-1;    //: = log(2)
inline constexpr double kInverseLn2_64 = 0x1.71547652b82fep0;  //: = 1/log(2)
// e^(1/2) / 2
inline constexpr float kHalfRootE32 = 0x1.a61298p-1f;         //: = exp(1/2)/2
inline constexpr double kHalfRootE64 = 0x1.a61298e1e069cp-1;  //: = exp(1/2)/2

// Beyond it cosh and sinh overflow.
inline constexpr float kOverflow32 = f32(0x42B2D4FC);  // 89.4159851
inline constexpr double kOverflow64 = 710.4758600739439;

template <class E>
struct Constants;
template <>
struct Constants<float> {
  static constexpr float log2e = kLog2E32, ln2_head = kLn2Head32, ln2_tail = kLn2Tail32;
  static constexpr float ln2 = kLn2Whole32, half_ln2 = kHalfLn2_32, half_root_e = kHalfRootE32;
};
template <>
struct Constants<double> {
  static constexpr double log2e = kInverseLn2_64, ln2_head = kLn2Head64, ln2_tail = kLn2Tail64;
  static constexpr double ln2 = kLn2Whole64, half_ln2 = kHalfLn2_64, half_root_e = kHalfRootE64;
};

}  // namespace orvik::zym::hyperbolic
