// Expansions of f(x) = e^x E1(x) about the middles of rows of x, from 2^-6 up: a binade has 16 of them, or 32 where fewer terms
// serve. The derivatives are f' = f - 1/x. The nearest singularity is at 0, so that the terms fall by 33 from one to the
// next, or by 65; the first that is left out acts through the next lower powers as over the row, by the Chebyshev polynomial of
// its degree. Numbers by tools/approx from the lines marked //:.
#pragma once

namespace orvik::zym {

// Eleven terms, moved by the twelfth (u^11 = 11/4 u^9 - 11/4 u^7 + 77/64 u^5 - 55/256 u^3 + 11/1024 u within 2^-10): error
// below 2^-58 of f, that of the terms' rounding; what the first lacks.
//: let x = (16.5 + mod(i, 16)) / 16 * 2^(floor(i/16) - 6)
//: let h = 2^(floor(i/16) - 6) / 32
//: let f0 = -exp(x) * eint(-x)
//: let f1 = f0 - 1 / x
//: let f2 = (f1 + 1 / x^2) / 2
//: let f3 = (f2 - 1 / x^3) / 3
//: let f4 = (f3 + 1 / x^4) / 4
//: let f5 = (f4 - 1 / x^5) / 5
//: let f6 = (f5 + 1 / x^6) / 6
//: let f7 = (f6 - 1 / x^7) / 7
//: let f8 = (f7 + 1 / x^8) / 8
//: let f9 = (f8 - 1 / x^9) / 9
//: let f10 = (f9 + 1 / x^10) / 10
//: let f11 = (f10 - 1 / x^11) / 11
//: c0 = f0
//: c1 = f1 + f11 * h^10 * 11 / 1024
//: c2 = f2
//: c3 = f3 - f11 * h^8 * 55 / 256
extern const double kExpInt1Terms0[248][4];
//: let x = (16.5 + mod(i, 16)) / 16 * 2^(floor(i/16) - 6)
//: let h = 2^(floor(i/16) - 6) / 32
//: let f0 = -exp(x) * eint(-x)
//: let f1 = f0 - 1 / x
//: let f2 = (f1 + 1 / x^2) / 2
//: let f3 = (f2 - 1 / x^3) / 3
//: let f4 = (f3 + 1 / x^4) / 4
//: let f5 = (f4 - 1 / x^5) / 5
//: let f6 = (f5 + 1 / x^6) / 6
//: let f7 = (f6 - 1 / x^7) / 7
//: let f8 = (f7 + 1 / x^8) / 8
//: let f9 = (f8 - 1 / x^9) / 9
//: let f10 = (f9 + 1 / x^10) / 10
//: let f11 = (f10 - 1 / x^11) / 11
//: c4 = f4
//: c5 = f5 + f11 * h^6 * 77 / 64
//: c6 = f6
//: c7 = f7 - f11 * h^4 * 11 / 4
extern const double kExpInt1Terms4[248][4];
//: let x = (16.5 + mod(i, 16)) / 16 * 2^(floor(i/16) - 6)
//: let h = 2^(floor(i/16) - 6) / 32
//: let f0 = -exp(x) * eint(-x)
//: let f1 = f0 - 1 / x
//: let f2 = (f1 + 1 / x^2) / 2
//: let f3 = (f2 - 1 / x^3) / 3
//: let f4 = (f3 + 1 / x^4) / 4
//: let f5 = (f4 - 1 / x^5) / 5
//: let f6 = (f5 + 1 / x^6) / 6
//: let f7 = (f6 - 1 / x^7) / 7
//: let f8 = (f7 + 1 / x^8) / 8
//: let f9 = (f8 - 1 / x^9) / 9
//: let f10 = (f9 + 1 / x^10) / 10
//: let f11 = (f10 - 1 / x^11) / 11
//: c8 = f8
//: c9 = f9 + f11 * h^2 * 11 / 4
//: c10 = f10
//: rest = f0 - double(f0)
extern const double kExpInt1Terms8[248][4];

// Four terms, moved by the fifth (u^4 = u^2 - 1/8 within 1/8): error below 2^-28 of f.
//: let x = (32.5 + mod(i, 32)) / 32 * 2^(floor(i/32) - 6)
//: let h = 2^(floor(i/32) - 6) / 64
//: let f0 = -exp(x) * eint(-x)
//: let f1 = f0 - 1 / x
//: let f2 = (f1 + 1 / x^2) / 2
//: let f3 = (f2 - 1 / x^3) / 3
//: let f4 = (f3 + 1 / x^4) / 4
//: c0 = f0 - f4 * h^4 / 8
//: c1 = f1
//: c2 = f2 + f4 * h^2
//: c3 = f3
extern const double kExpInt1Short[496][4];

// Three terms in 32 bits, eight rows a binade, moved by the fourth (u^3 = 3/4 u within 1/4): error below 2^-14 of f.
//: let x = (8.5 + mod(i, 8)) / 8 * 2^(floor(i/8) - 6)
//: let h = 2^(floor(i/8) - 6) / 16
//: let f0 = -exp(x) * eint(-x)
//: let f1 = f0 - 1 / x
//: let f2 = (f1 + 1 / x^2) / 2
//: let f3 = (f2 - 1 / x^3) / 3
//: c0 = f0
//: c1 = f1 + f3 * h^2 * 3 / 4
//: c2 = f2
//: middle = x
extern const float kExpInt1Single[104][4];

}  // namespace orvik::zym
