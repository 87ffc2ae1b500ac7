// Tables of the error functions. Numbers by tools/approx from the lines marked //:.
#pragma once

namespace orvik::zym {

// erf and its derivative at i/128, and what both lack.
//: erf = erf(i/128)
//: slope = 2/sqrt(pi) * exp(-(i/128)^2)
extern const double kErfSteps[769][2];
//: erf = erf(i/128) - double(erf(i/128))
//: slope = 2/sqrt(pi) * exp(-(i/128)^2) - double(2/sqrt(pi) * exp(-(i/128)^2))
extern const double kErfStepTails[769][2];

// erfc at z = i/128, and -q'/q there, q(z) = e^(z^2) erfc(z): 2/(sqrt(pi) q) - 2 z. What the first lacks.
//: erfc = erfc(i/128)
//: slope = 2/sqrt(pi) * exp(-(i/128)^2) / erfc(i/128) - 2 * i/128
extern const double kErfcSteps[1288][2];
//: = erfc(i/128) - double(erfc(i/128))
extern const double kErfcStepTails[1288];

// q(z) about c, where 1 + c is the centre of a sixteenth of an octave from 1 to 32: c, q(c) in head and
// tail, eight more derivatives over factorials. By Taylor's series, in which q' = 2 z q - 2/sqrt(pi) gives each term from
// the two before it, the terms 10 and 11 economized by Chebyshev polynomials on the row's interval (Lanczos 1938).
// Relative error below 2^-59.
//: let b = 2^floor(i/16)
//: let h2 = (b/32)^2
//: c = b * (1 + (mod(i, 16) + 1/2)/16) - 1
//: let a0 = exp(c^2) * erfc(c)
//: let a1 = 2 * c*a0 - 2/sqrt(pi)
//: let a2 = 2/2 * (c*a1 + a0)
//: let a3 = 2/3 * (c*a2 + a1)
//: let a4 = 2/4 * (c*a3 + a2)
//: let a5 = 2/5 * (c*a4 + a3)
//: let a6 = 2/6 * (c*a5 + a4)
//: let a7 = 2/7 * (c*a6 + a5)
//: let a8 = 2/8 * (c*a7 + a6)
//: let a9 = 2/9 * (c*a8 + a7)
//: let a10 = 2/10 * (c*a9 + a8)
//: let a11 = 2/11 * (c*a10 + a9)
//: q0 = a0 + a10 * h2^5/512
//: tail = a0 + a10 * h2^5/512 - q0
//: q1 = a1 + a11 * h2^5*11/1024
//: q2 = a2 - a10 * h2^4*25/256
//: q3 = a3 - a11 * h2^4*55/256
//: q4 = a4 + a10 * h2^3*25/32
//: q5 = a5 + a11 * h2^3*77/64
//: q6 = a6 - a10 * h2^2*35/16
//: q7 = a7 - a11 * h2^2*11/4
//: q8 = a8 + a10 * h2*5/2
//: q9 = a9 + a11 * h2*11/4
extern const double kErfcxRows[80][12];

// The same in short, for 26 bits and for floats: 64 rows an octave, the terms 4 and 5 economized. Relative error below
// 2^-30.
//: let b = 2^floor(i/64)
//: let h2 = (b/128)^2
//: let c = b * (1 + (mod(i, 64) + 1/2)/64) - 1
//: let a0 = exp(c^2) * erfc(c)
//: let a1 = 2 * c*a0 - 2/sqrt(pi)
//: let a2 = 2/2 * (c*a1 + a0)
//: let a3 = 2/3 * (c*a2 + a1)
//: let a4 = 2/4 * (c*a3 + a2)
//: let a5 = 2/5 * (c*a4 + a3)
//: q0 = a0 - a4 * h2^2/8
//: q1 = a1 - a5 * h2^2*5/16
//: q2 = a2 + a4 * h2
//: q3 = a3 + a5 * h2*5/4
extern const double kErfcxShort[320][4];

}  // namespace orvik::zym
