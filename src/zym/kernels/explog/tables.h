// Tables of the exponentials and logarithms. Numbers by tools/approx from the lines marked //:.
#pragma once

namespace orvik::zym {

// 2^(i/n), rounded; the pairs add what the head lacks, relative to it.
//: head = 2^(i/64)
//: tail = (2^(i/64) - head) / head
extern const double kExp2Frac64[64][2];
//: head = 2^(i/128)
//: tail = (2^(i/128) - head) / head
extern const double kExp2Pairs128[128][2];
//: = 2^(i/128)
extern const double kExp2Frac128[128];
//: = 2^(i/1024)
extern const double kExp2Frac1024[1024];

// Factors of 2^(i/32) that fit registers: heads, then what each lacks relative to it.
//: planes
//: head = 2^(i/8)
//: tail = (2^(i/8) - head) / head
extern const float kExp2Eighths[2][8];
// Four rows twice.
//: planes
//: head = 2^(mod(i, 4)/32)
//: tail = (2^(mod(i, 4)/32) - head) / head
extern const float kExp2In32[2][8];

// What the upper factors (constants.h) lack as an exponent of the base that uses them; beside the first, which is 1,
// what no result notices, so that products with tiny arguments are not denormal.
//: = i == 0 ? 2^-100 : i/8 - log2(float(2^(i/8)))
extern const float kExp2EighthsRest32[8];
//: = i == 0 ? 2^-100 : log10(2) * i/16 - log10(float(2^(i/16)))
extern const float kExp10SixteenthsRest32[16];
// The lower factors, about 1, less 1.
//: = 2^((i - 4)/64) - 1
extern const float kExp2LowerLess1[8];
//: = 2^((i - 4)/128) - 1
extern const float kExp10LowerLess1[8];
// 1 - 2^(n/128), n about 0, from two factors that fit registers: with a = 1 - 2^(j/16) of the upper bits of n and
// b = 1 - 2^(l/128) of the lower ones, l from -4 to 3, 1 - (1 - a) (1 - b) = a + (1 - a) b.
//: = 1 - 2^((i - 8)/16)
extern const double kLessExp2Sixteenths[16];
//: = 1 - 2^((i - 4)/128)
extern const double kLessExp2In128[8];
// What the last two give, in memory.
//: let a = double(1 - 2^((floor(i/8) - 8)/16))
//: let b = double(1 - 2^((mod(i, 8) - 4)/128))
//: = a + double(1 - a) * b
extern const double kLessExp2Rows128[128];

// c near 1 / (1 + i/64) in ten bits, and -ln(c): head on a grid on which multiples of a head of ln 2 add exactly (the last
// row is that head), rest.
//: c = grid(1 / (1 + i/64), 2^-10)
//: head = grid(-log(c), i == 64 ? 2^-42 : 2^-37)
//: rest = -log(c) - head
extern const double kLnReciprocal64[65][3];

// Logarithms of k/1024: head on a grid of 2^-38, so that it adds exactly to a multiple of the head of
// log(2), rest; in row 512 both are those that the lanes multiply by the exponent, so that they cancel.
//: i from 512
//: head = grid(-log(i/1024), 2^-38)
//: tail = i == 512 ? bits(log(2) - head, 38) : -log(i/1024) - head
extern const double kLnPairs[513][2];

}  // namespace orvik::zym
