// Constants of the exponentials and logarithms that are shared by several kernels.
#pragma once

#include <bit>
#include <cstdint>

#include "lanes/generic.h"

namespace orvik::zym {

constexpr float f32(uint32_t bits) { return std::bit_cast<float>(bits); }

// e^x: beyond the first two the result is infinite or zero; below the last it is denormal.
inline constexpr float kExpOverflow32 = f32(0x42B17217);   // 88.7228317
inline constexpr float kExpUnderflow32 = f32(0xC2CFF1B4);  // -103.972076
inline constexpr float kExpNormal32 = f32(0xC2AEAC4F);     // -87.3365402
inline constexpr double kExpOverflow64 = 709.782712893384;
inline constexpr double kExpUnderflow64 = -745.1332191019411;
inline constexpr double kExpNormal64 = -708.3964185322641;

// Reduction by parts of ln 2, head and tail.
inline constexpr float kLog2E32 = f32(0x3FB8AA3B);
inline constexpr float kLn2Head32 = f32(0x3F317200);
inline constexpr float kLn2Tail32 = f32(0x35BFBE8E);
inline constexpr double k64OverLn2 = 92.33248261689366;
inline constexpr double kLn2Over64Head = 0.010830424696223417;
inline constexpr double kLn2Over64Tail = 2.572804622327669e-14;

// Of the 64-bit logarithms: the exponent's multiples of the head are exact.
inline constexpr double kLn2Head64 = 0.6931471805582987;
inline constexpr double kLn2Tail64 = 1.6465949582866463e-12;

}  // namespace orvik::zym
