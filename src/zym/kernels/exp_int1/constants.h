// Constants of the exponential integral. Numbers by tools/approx from the lines marked //:.
#pragma once

namespace orvik::zym {

// Euler's constant: the head is added exactly to multiples of the head of ln(2).
inline constexpr double kEulerHead = 0x1.2788cfc6f8p-1;  //: = grid(-digamma(1), 2^-38)
inline constexpr double kEulerTail = 0x1.b0c7a4d1be3f8p-40;  //: = -digamma(1) - kEulerHead

// (E1(x) + ln x + Euler's constant) / x = 1 - x/4 + x^2/18 - ...: the coefficient of x^(k-1) is -(-1)^k / (k k!).
//: let k = 6 - i
//: = (mod(k, 2) > 0 ? 1 : -1) / (k * gamma(k + 1))
inline constexpr double kExpInt1Series[6] = {
    -0x1.e573ac901e574p-13, 0x1.b4e81b4e81b4fp-10, -0x1.5555555555555p-7, 0x1.c71c71c71c71cp-5, -0x1p-2, 0x1p0
};
//: let k = 3 - i
//: = (mod(k, 2) > 0 ? 1 : -1) / (k * gamma(k + 1))
inline constexpr double kExpInt1SeriesShort[3] = {0x1.c71c71c71c71cp-5, -0x1p-2, 0x1p0};

}  // namespace orvik::zym
