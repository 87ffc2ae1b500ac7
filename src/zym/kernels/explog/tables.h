// Tables of the exponentials and logarithms (tools/explog/tables.sollya says how each is made).
#pragma once

namespace orvik::zym {

// 2^(i/n), rounded; the pairs add what the head lacks, relative to it.
extern const double kExp2Frac64[64][2];
extern const double kExp2Pairs128[128][2];
extern const double kExp2Frac128[128];
extern const double kExp2Frac1024[1024];

// Factors of 2^(i/n) that fit registers: heads, and what each lacks relative to it. 2^(k/8), 2^(k/16), and 2^(k/n) for
// as many k as fill the step of one of those.
extern const float kExp2Eighths[2][8];
extern const float kExp2Sixteenths[2][16];
extern const float kExp2In32[2][8];  // four rows twice
extern const float kExp2In64[2][8];
extern const float kExp2In128[2][8];

// For m = 1 + i/64: c near 1/m in ten bits, head and tail of -ln(c).
extern const double kLnReciprocal64[65][3];

// Row k - 512 for k = 512 to 1024: -ln(k/1024), -log2, -log10 as head and tail.
extern const double kLnPairs[513][2];
extern const double kLog2Pairs[513][2];
extern const double kLog10Pairs[513][2];
// The same rounded; below row 724 of the scale -ln(k/512).
extern const double kLnHeads[513];
extern const double kLog2Heads[513];
extern const double kLog10Heads[513];

// Row k - 96 for k = 96 to 192: -ln(k/128), -log2, -log10.
extern const double kLnShort[97];
extern const double kLog2Short[97];
extern const double kLog10Short[97];

}  // namespace orvik::zym
