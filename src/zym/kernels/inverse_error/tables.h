// Expansions of P(w) = erfinv(t) / t, t = sqrt(1 - e^-w), about the middles of rows of w + 4: a binade has 16 of them, or 32
// where fewer terms serve. P is analytic but for points over 0 at multiples of 2 pi i, so that the terms fall by 50 from
// one to the next, or by 100. Numbers by tools/approx from the lines marked //:.
#pragma once

namespace orvik::zym {

// Eleven terms, error below 2^-57 of P, that of their rounding; what the first lacks.
//: let w = (16.5 + mod(i, 16)) / 16 * 2^(2 + floor(i/16)) - 4
//: c0 = erfinv_term(w, 0)
//: c1 = erfinv_term(w, 1)
//: c2 = erfinv_term(w, 2)
//: c3 = erfinv_term(w, 3)
extern const double kErfInvTerms0[120][4];
//: let w = (16.5 + mod(i, 16)) / 16 * 2^(2 + floor(i/16)) - 4
//: c4 = erfinv_term(w, 4)
//: c5 = erfinv_term(w, 5)
//: c6 = erfinv_term(w, 6)
//: c7 = erfinv_term(w, 7)
extern const double kErfInvTerms4[120][4];
//: let w = (16.5 + mod(i, 16)) / 16 * 2^(2 + floor(i/16)) - 4
//: c8 = erfinv_term(w, 8)
//: c9 = erfinv_term(w, 9)
//: c10 = erfinv_term(w, 10)
//: let c0 = erfinv_term(w, 0)
//: rest = c0 - double(c0)
extern const double kErfInvTerms8[120][4];

// Four terms, moved by what the fifth is like over the row (x^4 = h^2 x^2 - h^4 / 8 within h^4 / 8): error below 2^-29 of P.
//: let w = (32.5 + mod(i, 32)) / 32 * 2^(2 + floor(i/32)) - 4
//: let h = 2^(2 + floor(i/32)) / 64
//: c0 = erfinv_term(w, 0) - erfinv_term(w, 4) * h^4 / 8
//: c1 = erfinv_term(w, 1)
//: c2 = erfinv_term(w, 2) + erfinv_term(w, 4) * h^2
//: c3 = erfinv_term(w, 3)
extern const double kErfInvShort[240][4];

}  // namespace orvik::zym
