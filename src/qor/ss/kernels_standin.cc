// Until the root and logarithm kernels are in the dispatch table: the C library's functions in their place.
#include <cmath>
#include <limits>

#include "qor/ss/kernels.h"

namespace orvik::ss {

template <class T>
void inverse_square_roots(int32_t n, const T* a, T* r) {
  for (int32_t i = 0; i < n; ++i) r[i] = a[i] > 0 ? 1 / std::sqrt(a[i]) : std::numeric_limits<T>::quiet_NaN();
}
template void inverse_square_roots(int32_t, const double*, double*);
template void inverse_square_roots(int32_t, const float*, float*);

template <>
double kernel_sqrt(double x) {
  return std::sqrt(x);
}
template <>
float kernel_sqrt(float x) {
  return std::sqrt(x);
}
template <>
double kernel_ln(double x) {
  return std::log(x);
}
template <>
float kernel_ln(float x) {
  return std::log(x);
}

}  // namespace orvik::ss
