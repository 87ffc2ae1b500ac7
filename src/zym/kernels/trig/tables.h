// Tables of the trigonometric functions: the bits of 1/pi and 2/pi by the argument's exponent, sine and cosine on grids,
// powers of two modulo a turn in degrees.
#pragma once

namespace orvik::zym::trig {

// For |x| = m 2^(8 (row - 127)) with 2^-7 <= m < 2: 2^(8 (row - 127)) / pi modulo 2^60, what is beyond being multiples
// of 2 whatever m is, in parts of 45, 45, 45 and 53 bits. Rows from 2^8.
//: i from 128
//: precision 1600
//: let s = 2^(8 * (i - 127)) / pi
//: first = mod(floor(s / 2^13) * 2^13, 2^60)
//: second = mod(floor(s * 2^31) / 2^31, 2^13)
//: third = mod(floor(s * 2^75) / 2^75, 2^-31)
//: fourth = mod(s, 2^-75)
extern const double kInvPiGroups[128][4];

// For a float |x| = m 2^e, m an integer of 24 bits, e = row - 150: 2^e / pi modulo 2 in parts of 28, 27 and 53 bits,
// times 2^-e, so that they are multiplied with x itself. Rows from 2^13.
//: i from 140
//: precision 1000
//: let e = 2^(i - 150)
//: let s = e / pi
//: first = mod(floor(s * 2^27) / 2^27, 2) / e
//: second = mod(floor(s * 2^54) / 2^54, 2^-27) / e
//: third = mod(s, 2^-54) / e
//: unused = 0
extern const double kInvPiSingle[115][4];

// 2/pi in pieces of 25 bits, piece 0 with the last place 2^-25, all times 2^200. Rows 2 k and 2 k + 1 hold the eight
// pieces from k - 1 on.
//: precision 1600
//: let k = floor(i / 2) + 4 * mod(i, 2) - 1
//: let s = 2/pi * 2^(25 * (k + 1))
//: first = mod(floor(s), 2^25) / 2^(25 * (k + 1) - 200)
//: second = mod(floor(s * 2^25), 2^25) / 2^(25 * (k + 2) - 200)
//: third = mod(floor(s * 2^50), 2^25) / 2^(25 * (k + 3) - 200)
//: fourth = mod(floor(s * 2^75), 2^25) / 2^(25 * (k + 4) - 200)
extern const double kTwoOverPiChunks[80][4];

// sin and cos of i pi/256, head and tail.
//: let a = pi * i / 256
//: sine = sin(a)
//: sine_tail = sin(a) - sine
//: cosine = i == 128 ? 0 : cos(a)
//: cosine_tail = i == 128 ? 0 : cos(a) - cosine
extern const double kSinCos256[256][4];

// The same of i pi/16, as rows and columns. Sums of angles leave the product of the other tail and the angle out; where it
// counts, at the points next to a zero and on its side, the tail of doubles has it of the angle 0.045.
//: let a = pi * i / 16
//: let sine_taken = i == 1 ? -0.045 : (i == 15 ? 0.045 : 0)
//: let cosine_taken = i == 7 ? -0.045 : (i == 9 ? 0.045 : 0)
//: sine = sin(a)
//: sine_tail = sin(a) - sine + sine_taken * (cos(a) - double(cos(a)))
//: cosine = i == 8 ? 0 : cos(a)
//: cosine_tail = i == 8 ? 0 : cos(a) - cosine + cosine_taken * (sin(a) - sine)
extern const double kSinCos16[16][4];
//: planes
//: let a = pi * i / 16
//: let sine_taken = i == 1 ? -0.045 : (i == 15 ? 0.045 : 0)
//: let cosine_taken = i == 7 ? -0.045 : (i == 9 ? 0.045 : 0)
//: sine = sin(a)
//: sine_tail = sin(a) - sine + sine_taken * (cos(a) - double(cos(a)))
//: cosine = i == 8 ? 0 : cos(a)
//: cosine_tail = i == 8 ? 0 : cos(a) - cosine + cosine_taken * (sin(a) - sine)
extern const double kCircle64[4][16];
//: planes
//: let a = pi * i / 16
//: sine = sin(a)
//: sine_tail = sin(a) - sine
//: cosine = i == 8 ? 0 : cos(a)
//: cosine_tail = i == 8 ? 0 : cos(a) - cosine
extern const float kCircle32[4][16];
// Tangents of i pi/16 as quotients of whole numbers, which are off by less than 2^-60 (floats: 2^-29).
//: let slope = abs(tan(pi * i / 16))
//: over = (i > 8 ? -1 : 1) * ratio_over(slope, 2^32)
//: under = ratio_under(slope, 2^32)
extern const double kTangentRatios16[16][2];
//: planes
//: let slope = abs(tan(pi * i / 16))
//: over = (i > 8 ? -1 : 1) * ratio_over(slope, 2^32)
//: under = ratio_under(slope, 2^32)
extern const double kTangentRatios64[2][16];
//: planes
//: let slope = abs(tan(pi * i / 16))
//: over = (i > 8 ? -1 : 1) * ratio_over(slope, 2^16)
//: under = ratio_under(slope, 2^16)
extern const float kTangentRatios32[2][16];
// Sine and cosine of i pi/32 without tails.
//: sine = sin(pi * i / 32)
//: cosine = i == 16 ? 0 : cos(pi * i / 32)
extern const double kSinCos32[32][2];

// 2^i modulo 360; divided by 2^i again, so that the row is multiplied with a float itself.
//: precision 1100
//: = mod(2^i, 360)
extern const double kPowersModTurn[972];
//: = mod(2^i, 360) / 2^i
extern const double kPowersModTurnSingle[105];

}  // namespace orvik::zym::trig
