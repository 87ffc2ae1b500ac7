// The GNU Scientific Library, which has doubles only.
#include <gsl/gsl_cdf.h>
#include <gsl/gsl_errno.h>
#include <gsl/gsl_sf.h>

#include "zym/peers.h"

namespace orvik::bench {
namespace {

template <bool Strided, auto F>
void loop(int32_t n, const Arrays& arrays) {
  gsl_set_error_handler_off();  // NaNs instead
  const double* a = static_cast<const double*>(arrays.a);
  double* r = static_cast<double*>(arrays.r1);
  const int64_t incA = Strided ? arrays.incA : 1, incR = Strided ? arrays.incR1 : 1;
  for (int32_t i = 0; i < n; ++i) r[i * incR] = F(a[i * incA]);
}

double order_j(double x) { return gsl_sf_bessel_Jn(kOrder, x); }
double order_y(double x) { return gsl_sf_bessel_Yn(kOrder, x); }

#define GSL(Function, ulp, f) {"d" #Function, "gsl", ulp, loop<false, f>, loop<true, f>}

constexpr Peer kPeers[] = {
    GSL(Erf, 10, gsl_sf_erf),           GSL(Erfc, 100, gsl_sf_erfc),        GSL(CdfNorm, 100, gsl_cdf_ugaussian_P),
    GSL(CdfNormInv, 100, gsl_cdf_ugaussian_Pinv), GSL(LGamma, 1e4, gsl_sf_lngamma), GSL(TGamma, 100, gsl_sf_gamma),
    GSL(ExpInt1, 10, gsl_sf_expint_E1), GSL(I0, 10, gsl_sf_bessel_I0),      GSL(I1, 10, gsl_sf_bessel_I1),
    GSL(J0, 100, gsl_sf_bessel_J0),     GSL(J1, 100, gsl_sf_bessel_J1),     GSL(Y0, 100, gsl_sf_bessel_Y0),
    GSL(Y1, 100, gsl_sf_bessel_Y1),     GSL(Jn, 1000, order_j),             GSL(Yn, 1000, order_y),
};

}  // namespace

std::span<const Peer> gsl_peers() { return kPeers; }

}  // namespace orvik::bench
