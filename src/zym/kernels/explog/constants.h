// Constants of the exponentials and logarithms that are shared by several kernels. Numbers by tools/approx from the lines
// marked //:.
#pragma once

#include <bit>
#include <cstdint>

#include "lanes/generic.h"

namespace orvik::zym {

constexpr float f32(uint32_t bits) { return std::bit_cast<float>(bits); }
constexpr uint32_t high_word(double x) { return static_cast<uint32_t>(std::bit_cast<uint64_t>(x) >> 32); }

// e^x: above the first the result rounds to infinity, below the second to zero, below the third it is denormal.
inline constexpr float kExpOverflow32 = 0x1.62e42ep6f;  //: = float_down(log(2^128 - 2^103))
inline constexpr float kExpUnderflow32 = -0x1.9fe368p6f;  //: = float_up(log(2^-150))
inline constexpr float kExpNormal32 = -0x1.5d589ep6f;  //: = float_up(log(2^-126))
inline constexpr double kExpOverflow64 = 0x1.62e42fefa39efp9;  //: = double_down(log(2^1024 - 2^970))
inline constexpr double kExpUnderflow64 = -0x1.74910d52d3051p9;  //: = double_up(log(2^-1075))
inline constexpr double kExpNormal64 = -0x1.6232bdd7abcd2p9;  //: = double_up(log(2^-1022))
// 10^x: from here on results may leave the normal numbers.
inline constexpr float kExp10Bound32 = 0x1.2f7032p5f;  //: = float_up(log10(2^126))
inline constexpr double kExp10Bound64 = 0x1.33a7146f72a42p8;  //: = log10(2^1022)

// Reduction by parts of ln 2: a head whose multiples by a quotient are exact, tail.
inline constexpr float kLog2E32 = 0x1.715476p0f;  //: = 1/log(2)
inline constexpr float kLn2Head32 = 0x1.62e4p-1f;  //: = grid(log(2), 2^-15)
inline constexpr float kLn2Tail32 = 0x1.7f7d1cp-20f;  //: = log(2) - kLn2Head32
inline constexpr float kLn2Whole32 = 0x1.62e43p-1f;  //: = log(2)
inline constexpr float k4OverLn2In32 = 0x1.715476p2f;  //: = 4/log(2)
inline constexpr float kLn2Over4Head32 = 0x1.62ep-3f;  //: = grid(log(2)/4, 2^-14)
inline constexpr float kLn2Over4Tail32 = 0x1.0bfbe8p-17f;  //: = log(2)/4 - kLn2Over4Head32
inline constexpr float k32OverLn2In32 = 0x1.715476p5f;  //: = 32/log(2)
inline constexpr float kLn2Over32In32 = 0x1.62e43p-6f;  //: = log(2)/32
inline constexpr float k128OverLog10Of2In32 = 0x1.a934fp8f;  //: = 128/log10(2)
inline constexpr float kLog10Of2Over128Head32 = 0x1.348p-9f;  //: = grid(log10(2)/128, 2^-18)
inline constexpr float kLog10Of2Over128Tail32 = -0x1.f657bp-20f;  //: = log10(2)/128 - kLog10Of2Over128Head32
inline constexpr float kLog10Of2In32 = 0x1.344136p-2f;  //: = log10(2)
inline constexpr double k64OverLn2 = 0x1.71547652b82fep6;  //: = 64/log(2)
inline constexpr double kLn2Over64Head = 0x1.62e42fefap-7;  //: = grid(log(2)/64, 2^-42)
inline constexpr double kLn2Over64Tail = 0x1.cf79abc9e3b3ap-46;  //: = log(2)/64 - kLn2Over64Head
inline constexpr double k64OverLog10Of2 = 0x1.a934f0979a371p7;  //: = 64/log10(2)
inline constexpr double k128OverLn2 = 0x1.71547652b82fep7;  //: = 128/log(2)
inline constexpr double kLn2Over128 = 0x1.62e42fefa39efp-8;  //: = log(2)/128
inline constexpr double k1024OverLn2 = 0x1.71547652b82fep10;  //: = 1024/log(2)
inline constexpr double kLn2Over1024Head = 0x1.62e42fecp-11;  //: = trunc_bits(log(2)/1024, 31)
inline constexpr double kLn2Over1024Tail = 0x1.d1cf79abc9e3bp-42;  //: = log(2)/1024 - kLn2Over1024Head

// 2^(i/4), and what the head lacks relative to it.
//: planes
//: head = 2^(i/4)
//: tail = (2^(i/4) - head) / head
inline constexpr float kExp2Quarters[2][4] = {
    {0x1p0f, 0x1.306fep0f, 0x1.6a09e6p0f, 0x1.ae89fap0f}, {0.0f, 0x1.125002p-25f, 0x1.26055cp-26f, -0x1.f9c304p-27f}
};

// Upper factors of 2^(i/64) and 2^(i/128), for registers.
//: = 2^(i/8)
inline constexpr float kExp2UpperEighths[8] = {
    0x1p0f, 0x1.172b84p0f, 0x1.306fep0f, 0x1.4bfdaep0f, 0x1.6a09e6p0f, 0x1.8ace54p0f, 0x1.ae89fap0f, 0x1.d5818ep0f
};
//: = 2^(i/16)
inline constexpr float kExp2UpperSixteenths[16] = {
    0x1p0f, 0x1.0b5586p0f, 0x1.172b84p0f, 0x1.2387a6p0f, 0x1.306fep0f, 0x1.3dea64p0f, 0x1.4bfdaep0f, 0x1.5ab07ep0f,
    0x1.6a09e6p0f, 0x1.7a1148p0f, 0x1.8ace54p0f, 0x1.9c4918p0f, 0x1.ae89fap0f, 0x1.c199bep0f, 0x1.d5818ep0f,
    0x1.ea4afap0f
};

// Of the 64-bit logarithms: the exponent's multiples of the head and of the tail are exact.
inline constexpr double kLn2Head64 = 0x1.62e42fefap-1;  //: = grid(log(2), 2^-38)
inline constexpr double kLn2Tail64 = 0x1.cf79abc9ep-40;  //: = bits(log(2) - kLn2Head64, 38)
// As the last row of kLnReciprocal64 has them.
inline constexpr double kLn2ElementHead = 0x1.62e42fefa38p-1;  //: = grid(log(2), 2^-42)
inline constexpr double kLn2ElementTail = 0x1.ef35793c7673p-45;  //: = log(2) - kLn2ElementHead

// Heads on a grid so coarse that their multiples by a quotient are exact; tails.
inline constexpr double kLog10Of2Head = 0x1.34413509fp-2;  //: = grid(log10(2), 2^-38)
inline constexpr double kLog10Of2Tail = 0x1.e7fbcc47c4acdp-40;  //: = log10(2) - kLog10Of2Head
inline constexpr double kLn2Over128Head = 0x1.62e42fef8p-8;  //: = trunc_bits(log(2)/128, 35)
inline constexpr double kLn2Over128Tail = 0x1.1cf79abc9e3b4p-43;  //: = log(2)/128 - kLn2Over128Head
inline constexpr double kLog10Of2Over64Head = 0x1.3441350ap-8;  //: = grid(log10(2)/64, 2^-42)
inline constexpr double kLog10Of2Over64Tail = -0x1.0c0219dc1da99p-45;  //: = log10(2)/64 - kLog10Of2Over64Head
inline constexpr float kLog10Of2Head32 = 0x1.3442p-2f;  //: = grid(log10(2), 2^-17)
inline constexpr float kLog10Of2Tail32 = -0x1.95ec1p-19f;  //: = log10(2) - kLog10Of2Head32

// 1 / ln(b), rounded, and what that lacks.
inline constexpr double kLog2E64 = 0x1.71547652b82fep0;  //: = 1/log(2)
inline constexpr double kLog2ETail64 = 0x1.777d0ffda0d24p-56;  //: = 1/log(2) - kLog2E64
inline constexpr double kLog10E64 = 0x1.bcb7b1526e50ep-2;  //: = 1/log(10)
inline constexpr double kLog10ETail64 = 0x1.95355baaafad3p-57;  //: = 1/log(10) - kLog10E64

}  // namespace orvik::zym
