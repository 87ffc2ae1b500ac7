// Polynomials of the gamma function about the multiples of 1/4, a row each: row i, from -172 to 140, is about c = i/4
// and holds 1 / (gamma(x) (x - m)) for i < 4, m the integer at most 0 that is nearest to c (the pole is divided out,
// what is left is entire), and gamma(x) from 1 on. Rows 141 to 201 hold ln(gamma(x)) about 1 to 16, and row 202 what
// Stirling's formula lacks of it from 16 on, in 1/x: ln(gamma(x)) - (x - 1/2) (ln(x) - 1). Numbers by tools/approx from
// the lines marked //:.
#pragma once

namespace orvik::zym {

inline constexpr int kGammaFirst = -172, kLogGammaFirst = 141, kStirlingRow = 202;

// The lowest coefficients, slope and value, and what they lack.
//: i from -172
//: let c = i < 141 ? i/4 : (i - 137)/4
//: let m = min(floor(c + 1/2), 0)
//: let d = c - m
//: let sinc = d == 0 ? 1 : sin(pi * d) / (pi * d)
//: let r = (mod(m, 2) == 0 ? 1 : -1) * sinc * gamma(1 - c)
//: let r_slope = r * ((d == 0 ? 0 : pi / tan(pi * d) - 1/d) - digamma(1 - c))
//: slope = i < 4 ? r_slope : i < 141 ? gamma(c) * digamma(c) : i < 202 ? digamma(c) : 1/12
//: value = i < 4 ? r : i < 141 ? gamma(c) : i < 202 ? lngamma(c) : (log(2 * pi) - 1) / 2
extern const double kGammaHeads[375][2];
//: i from -172
//: let c = i < 141 ? i/4 : (i - 137)/4
//: let m = min(floor(c + 1/2), 0)
//: let d = c - m
//: let sinc = d == 0 ? 1 : sin(pi * d) / (pi * d)
//: let r = (mod(m, 2) == 0 ? 1 : -1) * sinc * gamma(1 - c)
//: let r_slope = r * ((d == 0 ? 0 : pi / tan(pi * d) - 1/d) - digamma(1 - c))
//: let slope = i < 4 ? r_slope : i < 141 ? gamma(c) * digamma(c) : i < 202 ? digamma(c) : 1/12
//: let value = i < 4 ? r : i < 141 ? gamma(c) : i < 202 ? lngamma(c) : (log(2 * pi) - 1) / 2
//: slope_tail = slope - double(slope)
//: value_tail = value - double(value)
extern const double kGammaTails[375][2];

// The others.
//: i from -172
//: precision 250
//: kGammaHeads(x) + kGammaTails(x) + x^2 * p(x) =
//:   i < 4 ? 1 / (gamma(i/4 + x) * (i/4 + x - min(floor(i/4 + 1/2), 0))) : i < 141 ? gamma(i/4 + x)
//:   : i < 202 ? lngamma((i - 137)/4 + x) : lngamma(1/x) - (1/x - 1/2) * (log(1/x) - 1)
//:   on [i < 202 ? -1/8 : 2^-20, i < 202 ? 1/8 : 1/16], relative error 2^-55.5
//: fit chebyshev
extern const double kGammaRest[375][14];

// What the lowest two of those lack.
//: i from -172
//: precision 250
//: kGammaHeads(x) + kGammaTails(x) + x^2 * (kGammaRest(x) + p(x)) =
//:   i < 4 ? 1 / (gamma(i/4 + x) * (i/4 + x - min(floor(i/4 + 1/2), 0))) : i < 141 ? gamma(i/4 + x)
//:   : i < 202 ? lngamma((i - 137)/4 + x) : lngamma(1/x) - (1/x - 1/2) * (log(1/x) - 1)
//:   on [i < 202 ? -1/8 : 2^-20, i < 202 ? 1/8 : 1/16], relative error 2^-60.8
//: fit chebyshev
extern const double kGammaRestTails[375][2];

}  // namespace orvik::zym
