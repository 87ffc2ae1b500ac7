// Functions in double precision for arguments that are values of 32-bit floats, good to about 1e-15 relative (near
// zeros of LGamma and the Bessel functions: of the floor of their bound). They sieve all floats; MPFR judges what they
// find.
#pragma once

namespace orvik::accuracy::fast {

double sine_pi(double x);
double cosine_pi(double x);
double tangent_pi(double x);  // infinite at the poles, sign as IEEE 754 has it
double sine_degrees(double x);
double cosine_degrees(double x);
double tangent_degrees(double x);
double arc_sine_pi(double x);
double arc_cosine_pi(double x);
double arc_tangent_pi(double x);
double scaled_erfc(double x);
double normal_cdf(double x);
double inverse_erf(double x);
double inverse_erfc(double x);
double inverse_normal_cdf(double x);
double log_gamma(double x);
double gamma(double x);
double exponential_integral_1(double x);
double bessel_i0(double x);
double bessel_i1(double x);
double bessel_j0(double x);
double bessel_j1(double x);
double bessel_y0(double x);
double bessel_y1(double x);

}  // namespace orvik::accuracy::fast
