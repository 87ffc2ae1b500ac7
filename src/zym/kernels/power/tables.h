// Tables of the powers. Numbers by tools/approx from the lines marked //:.
#pragma once

#include <cstdint>

namespace orvik::zym {

// --- lanes ----------------------------------------------------------------------------------------------------------

// Logarithms of the grid of reciprocals of three bits after the point, for registers: heads that add exactly to an exponent, rests.
//: planes
//: head = grid(-log2(1 + i/8), 2^-16)
//: rest = -log2(1 + i/8) - head
extern const float kLog2Octet[2][8];
// The fraction's bits of 2^(i/8), less i in the three bits from the highest on.
//: = mod((float(2^(i/8)) - 1) * 2^23 - i * 2^20, 2^32)
extern const uint32_t kExp2OctetFields[8];

// --- element routine ------------------------------------------------------------------------------------------------

// Reciprocals c of three grids, each finer than the one before, in few bits; log2(1/c) as head and tail. Rows of the
// second and third stand for steps on both sides of 1: the upper half of a table for those below. The third carries a
// factor near log2(e).
//: c = grid(1 / (1 + i/16), 2^-8)
//: head = -log2(c)
//: tail = -log2(c) - head
extern const float kElementFirst32[17][3];
//: let j = i < 8 ? i : i - 16
//: c = grid(1 / (1 + j/64), 2^-10)
//: head = -log2(c)
//: tail = -log2(c) - head
extern const float kElementSecond32[16][3];
//: let j = i < 16 ? i : i - 32
//: c = grid(1.44140625 / (1 + j/1024), 2^-12)
//: head = -log2(c / 1.44140625)
//: tail = -log2(c / 1.44140625) - head
extern const float kElementThird32[32][3];
//: c = grid(1 / (1 + i/16), 2^-10)
//: head = -log2(c)
//: tail = -log2(c) - head
extern const double kElementFirst64[17][3];
//: let j = i < 16 ? i : i - 32
//: c = grid(1 / (1 + j/256), 2^-14)
//: head = -log2(c)
//: tail = -log2(c) - head
extern const double kElementSecond64[32][3];
//: let j = i < 16 ? i : i - 32
//: c = grid(1.44140625 / (1 + j/4096), 2^-18)
//: head = -log2(c / 1.44140625)
//: tail = -log2(c / 1.44140625) - head
extern const double kElementThird64[32][3];

// 2^(i/128) in 32 bits; the tail is relative to the head.
//: head = 2^(i/128)
//: tail = (2^(i/128) - head) / head
extern const float kExp2Narrow128[128][2];

}  // namespace orvik::zym
