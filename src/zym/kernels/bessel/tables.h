// Tables of expansions of Bessel functions. A row serves an interval of the argument and stands about its middle, or the
// double nearest to the function's zero in it, so that results next to zeros keep their relative accuracy. With h the
// distance from there:
//   64 bits: value + slope h + h^2 P(h), value and slope with tails, P of degree 9; the value next to a zero is all tail;
//   the lowest coefficient has a tail as well;
//   32 bits: value + h P(h), P of degree 5.
// P meets the function at the Chebyshev points of the interval. Worst errors, in units of the larger of the value and half
// the amplitude: 2^-56.5 (Y1 from 2 on; the others 2^-58) and 2^-29.4; a test measures each row. Evenly spaced rows: i stands for i/2 - 1/4 to i/2 + 1/4.
// Rows of the functions that are singular at 0: eight to each power of two from 2^-5, from 4 on as above.
#pragma once

namespace orvik::zym::bessel {

// --- 64 bits --------------------------------------------------------------------------------------------------------

//: precision 260
//: let from = max(i/2 - 1/4, 0)
//: let to = i/2 + 1/4
//: let c = i == 0 ? 0 : cylinder_centre(0, from, to)
//: p9 = cylinder_rest(0, 2, from, to, c, 10, 9)
//: p8 = cylinder_rest(0, 2, from, to, c, 10, 8)
//: p7 = cylinder_rest(0, 2, from, to, c, 10, 7)
//: p6 = cylinder_rest(0, 2, from, to, c, 10, 6)
//: p5 = cylinder_rest(0, 2, from, to, c, 10, 5)
//: p4 = cylinder_rest(0, 2, from, to, c, 10, 4)
//: p3 = cylinder_rest(0, 2, from, to, c, 10, 3)
//: p2 = cylinder_rest(0, 2, from, to, c, 10, 2)
//: p1 = cylinder_rest(0, 2, from, to, c, 10, 1)
//: p0 = cylinder_rest(0, 2, from, to, c, 10, 0)
//: slope = cylinder_slope(0, c)
//: value = abs(cylinder(0, c)) < 2^-40 ? 0 : cylinder(0, c)
//: slope_tail = cylinder_slope(0, c) - slope
//: value_tail = cylinder(0, c) - value
//: centre = c
//: p0_tail = cylinder_rest(0, 2, from, to, c, 10, 0) - p0
extern const double kJ0Rows64[128][16];

//: precision 260
//: let from = max(i/2 - 1/4, 0)
//: let to = i/2 + 1/4
//: let c = i == 0 ? 0 : cylinder_centre(1, from, to)
//: p9 = cylinder_rest(1, 2, from, to, c, 10, 9)
//: p8 = cylinder_rest(1, 2, from, to, c, 10, 8)
//: p7 = cylinder_rest(1, 2, from, to, c, 10, 7)
//: p6 = cylinder_rest(1, 2, from, to, c, 10, 6)
//: p5 = cylinder_rest(1, 2, from, to, c, 10, 5)
//: p4 = cylinder_rest(1, 2, from, to, c, 10, 4)
//: p3 = cylinder_rest(1, 2, from, to, c, 10, 3)
//: p2 = cylinder_rest(1, 2, from, to, c, 10, 2)
//: p1 = cylinder_rest(1, 2, from, to, c, 10, 1)
//: p0 = cylinder_rest(1, 2, from, to, c, 10, 0)
//: slope = cylinder_slope(1, c)
//: value = abs(cylinder(1, c)) < 2^-40 ? 0 : cylinder(1, c)
//: slope_tail = cylinder_slope(1, c) - slope
//: value_tail = cylinder(1, c) - value
//: centre = c
//: p0_tail = cylinder_rest(1, 2, from, to, c, 10, 0) - p0
extern const double kJ1Rows64[128][16];

//: precision 260
//: let from = i < 56 ? 2^(floor(i/8) - 5) * (1 + mod(i, 8)/8) : (i - 48)/2 - 1/4
//: let to = i < 56 ? 2^(floor(i/8) - 5) * (9 + mod(i, 8))/8 : (i - 48)/2 + 1/4
//: let c = cylinder_centre(2, from, to)
//: p9 = cylinder_rest(2, 2, from, to, c, 10, 9)
//: p8 = cylinder_rest(2, 2, from, to, c, 10, 8)
//: p7 = cylinder_rest(2, 2, from, to, c, 10, 7)
//: p6 = cylinder_rest(2, 2, from, to, c, 10, 6)
//: p5 = cylinder_rest(2, 2, from, to, c, 10, 5)
//: p4 = cylinder_rest(2, 2, from, to, c, 10, 4)
//: p3 = cylinder_rest(2, 2, from, to, c, 10, 3)
//: p2 = cylinder_rest(2, 2, from, to, c, 10, 2)
//: p1 = cylinder_rest(2, 2, from, to, c, 10, 1)
//: p0 = cylinder_rest(2, 2, from, to, c, 10, 0)
//: slope = cylinder_slope(2, c)
//: value = abs(cylinder(2, c)) < 2^-40 ? 0 : cylinder(2, c)
//: slope_tail = cylinder_slope(2, c) - slope
//: value_tail = cylinder(2, c) - value
//: centre = c
//: p0_tail = cylinder_rest(2, 2, from, to, c, 10, 0) - p0
extern const double kY0Rows64[176][16];

//: precision 260
//: let from = i < 56 ? 2^(floor(i/8) - 5) * (1 + mod(i, 8)/8) : (i - 48)/2 - 1/4
//: let to = i < 56 ? 2^(floor(i/8) - 5) * (9 + mod(i, 8))/8 : (i - 48)/2 + 1/4
//: let c = cylinder_centre(3, from, to)
//: p9 = cylinder_rest(3, 2, from, to, c, 10, 9)
//: p8 = cylinder_rest(3, 2, from, to, c, 10, 8)
//: p7 = cylinder_rest(3, 2, from, to, c, 10, 7)
//: p6 = cylinder_rest(3, 2, from, to, c, 10, 6)
//: p5 = cylinder_rest(3, 2, from, to, c, 10, 5)
//: p4 = cylinder_rest(3, 2, from, to, c, 10, 4)
//: p3 = cylinder_rest(3, 2, from, to, c, 10, 3)
//: p2 = cylinder_rest(3, 2, from, to, c, 10, 2)
//: p1 = cylinder_rest(3, 2, from, to, c, 10, 1)
//: p0 = cylinder_rest(3, 2, from, to, c, 10, 0)
//: slope = cylinder_slope(3, c)
//: value = abs(cylinder(3, c)) < 2^-40 ? 0 : cylinder(3, c)
//: slope_tail = cylinder_slope(3, c) - slope
//: value_tail = cylinder(3, c) - value
//: centre = c
//: p0_tail = cylinder_rest(3, 2, from, to, c, 10, 0) - p0
extern const double kY1Rows64[176][16];

//: precision 260
//: let from = max(i/2 - 1/4, 0)
//: let to = i/2 + 1/4
//: let c = i == 0 ? 0 : cylinder_centre(4, from, to)
//: p9 = cylinder_rest(4, 2, from, to, c, 10, 9)
//: p8 = cylinder_rest(4, 2, from, to, c, 10, 8)
//: p7 = cylinder_rest(4, 2, from, to, c, 10, 7)
//: p6 = cylinder_rest(4, 2, from, to, c, 10, 6)
//: p5 = cylinder_rest(4, 2, from, to, c, 10, 5)
//: p4 = cylinder_rest(4, 2, from, to, c, 10, 4)
//: p3 = cylinder_rest(4, 2, from, to, c, 10, 3)
//: p2 = cylinder_rest(4, 2, from, to, c, 10, 2)
//: p1 = cylinder_rest(4, 2, from, to, c, 10, 1)
//: p0 = cylinder_rest(4, 2, from, to, c, 10, 0)
//: slope = cylinder_slope(4, c)
//: value = abs(cylinder(4, c)) < 2^-40 ? 0 : cylinder(4, c)
//: slope_tail = cylinder_slope(4, c) - slope
//: value_tail = cylinder(4, c) - value
//: centre = c
//: p0_tail = cylinder_rest(4, 2, from, to, c, 10, 0) - p0
extern const double kI0Rows64[64][16];

//: precision 260
//: let from = max(i/2 - 1/4, 0)
//: let to = i/2 + 1/4
//: let c = i == 0 ? 0 : cylinder_centre(5, from, to)
//: p9 = cylinder_rest(5, 2, from, to, c, 10, 9)
//: p8 = cylinder_rest(5, 2, from, to, c, 10, 8)
//: p7 = cylinder_rest(5, 2, from, to, c, 10, 7)
//: p6 = cylinder_rest(5, 2, from, to, c, 10, 6)
//: p5 = cylinder_rest(5, 2, from, to, c, 10, 5)
//: p4 = cylinder_rest(5, 2, from, to, c, 10, 4)
//: p3 = cylinder_rest(5, 2, from, to, c, 10, 3)
//: p2 = cylinder_rest(5, 2, from, to, c, 10, 2)
//: p1 = cylinder_rest(5, 2, from, to, c, 10, 1)
//: p0 = cylinder_rest(5, 2, from, to, c, 10, 0)
//: slope = cylinder_slope(5, c)
//: value = abs(cylinder(5, c)) < 2^-40 ? 0 : cylinder(5, c)
//: slope_tail = cylinder_slope(5, c) - slope
//: value_tail = cylinder(5, c) - value
//: centre = c
//: p0_tail = cylinder_rest(5, 2, from, to, c, 10, 0) - p0
extern const double kI1Rows64[64][16];

// --- 32 bits --------------------------------------------------------------------------------------------------------

//: precision 260
//: let from = max(i/2 - 1/4, 0)
//: let to = i/2 + 1/4
//: let c = i == 0 ? 0 : cylinder_centre(0, from, to)
//: p5 = cylinder_rest(0, 1, from, to, c, 6, 5)
//: p4 = cylinder_rest(0, 1, from, to, c, 6, 4)
//: p3 = cylinder_rest(0, 1, from, to, c, 6, 3)
//: p2 = cylinder_rest(0, 1, from, to, c, 6, 2)
//: p1 = cylinder_rest(0, 1, from, to, c, 6, 1)
//: p0 = cylinder_rest(0, 1, from, to, c, 6, 0)
//: value = cylinder(0, c)
//: centre = c
extern const double kJ0Rows32[128][8];

//: precision 260
//: let from = max(i/2 - 1/4, 0)
//: let to = i/2 + 1/4
//: let c = i == 0 ? 0 : cylinder_centre(1, from, to)
//: p5 = cylinder_rest(1, 1, from, to, c, 6, 5)
//: p4 = cylinder_rest(1, 1, from, to, c, 6, 4)
//: p3 = cylinder_rest(1, 1, from, to, c, 6, 3)
//: p2 = cylinder_rest(1, 1, from, to, c, 6, 2)
//: p1 = cylinder_rest(1, 1, from, to, c, 6, 1)
//: p0 = cylinder_rest(1, 1, from, to, c, 6, 0)
//: value = cylinder(1, c)
//: centre = c
extern const double kJ1Rows32[128][8];

//: precision 260
//: let from = i < 56 ? 2^(floor(i/8) - 5) * (1 + mod(i, 8)/8) : (i - 48)/2 - 1/4
//: let to = i < 56 ? 2^(floor(i/8) - 5) * (9 + mod(i, 8))/8 : (i - 48)/2 + 1/4
//: let c = cylinder_centre(2, from, to)
//: p5 = cylinder_rest(2, 1, from, to, c, 6, 5)
//: p4 = cylinder_rest(2, 1, from, to, c, 6, 4)
//: p3 = cylinder_rest(2, 1, from, to, c, 6, 3)
//: p2 = cylinder_rest(2, 1, from, to, c, 6, 2)
//: p1 = cylinder_rest(2, 1, from, to, c, 6, 1)
//: p0 = cylinder_rest(2, 1, from, to, c, 6, 0)
//: value = cylinder(2, c)
//: centre = c
extern const double kY0Rows32[176][8];

//: precision 260
//: let from = i < 56 ? 2^(floor(i/8) - 5) * (1 + mod(i, 8)/8) : (i - 48)/2 - 1/4
//: let to = i < 56 ? 2^(floor(i/8) - 5) * (9 + mod(i, 8))/8 : (i - 48)/2 + 1/4
//: let c = cylinder_centre(3, from, to)
//: p5 = cylinder_rest(3, 1, from, to, c, 6, 5)
//: p4 = cylinder_rest(3, 1, from, to, c, 6, 4)
//: p3 = cylinder_rest(3, 1, from, to, c, 6, 3)
//: p2 = cylinder_rest(3, 1, from, to, c, 6, 2)
//: p1 = cylinder_rest(3, 1, from, to, c, 6, 1)
//: p0 = cylinder_rest(3, 1, from, to, c, 6, 0)
//: value = cylinder(3, c)
//: centre = c
extern const double kY1Rows32[176][8];

//: precision 260
//: let from = max(i/2 - 1/4, 0)
//: let to = i/2 + 1/4
//: let c = i == 0 ? 0 : cylinder_centre(4, from, to)
//: p5 = cylinder_rest(4, 1, from, to, c, 6, 5)
//: p4 = cylinder_rest(4, 1, from, to, c, 6, 4)
//: p3 = cylinder_rest(4, 1, from, to, c, 6, 3)
//: p2 = cylinder_rest(4, 1, from, to, c, 6, 2)
//: p1 = cylinder_rest(4, 1, from, to, c, 6, 1)
//: p0 = cylinder_rest(4, 1, from, to, c, 6, 0)
//: value = cylinder(4, c)
//: centre = c
extern const double kI0Rows32[64][8];

//: precision 260
//: let from = max(i/2 - 1/4, 0)
//: let to = i/2 + 1/4
//: let c = i == 0 ? 0 : cylinder_centre(5, from, to)
//: p5 = cylinder_rest(5, 1, from, to, c, 6, 5)
//: p4 = cylinder_rest(5, 1, from, to, c, 6, 4)
//: p3 = cylinder_rest(5, 1, from, to, c, 6, 3)
//: p2 = cylinder_rest(5, 1, from, to, c, 6, 2)
//: p1 = cylinder_rest(5, 1, from, to, c, 6, 1)
//: p0 = cylinder_rest(5, 1, from, to, c, 6, 0)
//: value = cylinder(5, c)
//: centre = c
extern const double kI1Rows32[64][8];

}  // namespace orvik::zym::bessel
