#include "qor/ss/kernels.h"

#include <bit>

#include "orvik/ss.h"
#include "orvik/zym.h"
#include "qor/rng/bracket.h"
#include "qor/rng/kernels.h"

namespace orvik::ss {
namespace {

int32_t not_a_number(ZymErrorContext* context) {
  context->result1 = context->result2 = std::bit_cast<double>(uint64_t{0x7FF8000000000000});
  return 0;
}

}  // namespace

template <class T>
void inverse_square_roots(int32_t n, const T* a, T* r) {
  const qor::EntryBracket bracket(not_a_number);
  qor::kernels::inv_sqrt.call(qor::Level::low, n, a, r);
}
template void inverse_square_roots(int32_t, const double*, double*);
template void inverse_square_roots(int32_t, const float*, float*);

template <class T>
T kernel_sqrt(T x) {
  return qor::kernels::sqrt.high(x);
}
template double kernel_sqrt(double);
template float kernel_sqrt(float);

template <class T>
T kernel_ln(T x) {
  return qor::kernels::ln.high(x);
}
template double kernel_ln(double);
template float kernel_ln(float);

double kernel_lgamma(double x) { return qor::kernels::lgamma.high(x); }
double kernel_erf_inv(double x) { return qor::kernels::erf_inv.high(x); }

}  // namespace orvik::ss

extern "C" {
double __qordSqrt(double x) { return orvik::ss::kernel_sqrt(x); }
float __qorsSqrt(float x) { return orvik::ss::kernel_sqrt(x); }
double __qordLn(double x) { return orvik::ss::kernel_ln(x); }
float __qorsLn(float x) { return orvik::ss::kernel_ln(x); }
}
