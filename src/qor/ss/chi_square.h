// The chi-square distribution, in double.
#pragma once

namespace orvik::ss {

// P(X < x) of k degrees of freedom, k above 0 and not necessarily whole.
double chi_square_below(double k, double x);
// P(X > x), no digits lost where it is small.
double chi_square_above(double k, double x);
// The density.
double chi_square_density(double k, double x);
// The x with P(X < x) = p; 0 for p = 0 and below, `kChiSquareCap` for p = 1 and above.
double chi_square_quantile(double p, double k);

inline constexpr double kChiSquareCap = 4503599627.37;

}  // namespace orvik::ss
