// What the entries of distributions answer where a kernel reports an element: finite numbers for infinite ones.
#pragma once

#include <cstdint>

#include "orvik/zym.h"
#include "qor/rng/precision.h"

namespace orvik::qor {

// ZymErrorContext.code
enum Fault : int32_t { kDomain = 1, kSingularity = 2 };

inline int32_t answer(ZymErrorContext* context, double value) {
  context->result1 = context->result2 = value;
  return 0;
}

// For distributions whose kernels can only meet ln 0.
template <class T>
int32_t always_ln_of_zero(ZymErrorContext* context) {
  return answer(context, Precision<T>::kLnOfZero);
}

// Where other kernels run as well.
template <class T>
int32_t ln_of_zero(ZymErrorContext* context) {
  return context->code == kSingularity ? answer(context, Precision<T>::kLnOfZero) : 0;
}

// For ln and the inverse of the error function.
template <class T>
int32_t gaussian_limits(ZymErrorContext* context) {
  if (context->code != kDomain && context->code != kSingularity) return 0;
  const double x = context->arg1, limit = Precision<T>::kErfInvOfOne;
  if (x < 0) return answer(context, -limit);
  if (context->code == kSingularity && x == 0) return answer(context, Precision<T>::kLnOfZero);
  return answer(context, limit);
}

}  // namespace orvik::qor
