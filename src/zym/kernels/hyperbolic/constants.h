// Constants of the hyperbolic functions and their inverses.
#pragma once

#include <array>
#include <bit>

#include "zym/kernels/explog/constants.h"

namespace orvik::zym::hyperbolic {

// 2^(i/4), and by how much it is too small, relative.
inline constexpr float kQuarter32[4] = {0x1p0f, 0x1.306fep0f, 0x1.6a09e6p0f, 0x1.ae89fap0f};       //: = 2^(i/4)
inline constexpr float kQuarterLow32[4] = {0, 0x1.125002p-25f, 0x1.26055cp-26f, -0x1.f9c304p-27f};    //: = 2^(i/4) / kQuarter32 - 1
inline constexpr double kQuarter64[4] = {0x1p0, 0x1.306fe0a31b715p0, 0x1.6a09e667f3bcdp0, 0x1.ae89f995ad3adp0};      //: = 2^(i/4)
inline constexpr double kQuarterLow64[4] = {0, 0x1.34d754db0abb6p-55, -0x1.3b3efbf5e2228p-54, 0x1.c1a7792cb3387p-55};   //: = 2^(i/4) / kQuarter64 - 1

// ln 2 in two parts; multiples of the first by exponents are exact.
inline constexpr float kHalfLn2_32 = 0x1.62e43p-2f;     //: = log(2)/2
inline constexpr double kHalfLn2_64 = 0x1.62e42fefa39efp-2;    //: = log(2)/2
inline constexpr float kLn2Whole32 = 0x1.62e43p-1f;  //: = log(2)
inline constexpr double kLn2Whole64 = 0x1.62e42fefa39efp-1;  //: = log(2)
inline constexpr double kInverseLn2_64 = 0x1.71547652b82fep0;  //: = 1/log(2)
// e^(1/2) / 2
inline constexpr float kHalfRootE32 = 0x1.a61298p-1f;  //: = exp(1/2)/2
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
