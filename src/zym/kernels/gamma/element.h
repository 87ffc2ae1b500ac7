// Arguments of the gamma functions that are no business of lanes: poles, ends of the format, infinities, NaNs.
#pragma once

#include "lanes/lanes.h"
#include "orvik/zym_types.h"
#include "zym/kernels/gamma/constants.h"

namespace orvik::zym::gamma {

template <class E>
int32_t pole(E x, E* r) {
  *r = E(1) / opaque(x);
  return zymErrorSingularity;
}
template <class E>
int32_t overflow(E sign, E* r) {
  const E huge = opaque(float_of<E>(FloatFormat<E>::exponent_field - 1));
  *r = sign * huge * huge;
  return zymErrorOverflow;
}

// What is left of gamma(x): every case but positive numbers in range and negative ones between the integers, of which
// the smallest magnitudes are here.
template <class E>
bool tgamma_special(E x, E* r, int32_t* code) {
  *code = 0;
  if (is_nan(x) || is_infinite(x)) {
    if (is_infinite(x) && is_negative(x)) {
      *r = opaque(infinity<E>) - opaque(infinity<E>);
      *code = zymErrorDomain;
    } else {
      *r = x + x;
    }
  } else if (x == 0) {
    *code = pole(x, r);
  } else if (magnitude(x) <= kGammaOverflowTiny<E>) {
    *code = overflow(x < 0 ? E(-1) : E(1), r);
  } else if (x < 0 && std::trunc(x) == x) {
    *r = opaque(E(0)) / opaque(E(0));
    *code = zymErrorDomain;
  } else if (x < Bounds<E>::underflow) {
    const E small = opaque(float_of<E>(FloatFormat<E>::min_normal));
    *r = (std::fmod(std::trunc(x), E(2)) == 0 ? -small : small) * small;
    *code = zymErrorUnderflow;
  } else if (x >= Bounds<E>::overflow) {
    *code = overflow(E(1), r);
  } else {
    return false;
  }
  return true;
}

// What is left of ln |gamma(x)|.
template <class E>
int32_t lgamma_element(const E* px, E* r) {
  const E x = *px;
  if (is_nan(x) || is_infinite(x)) {
    *r = x * x;
    return 0;
  }
  if (x <= 0) return pole(E(0), r);  // zero, or a negative integer
  return overflow(E(1), r);
}

}  // namespace orvik::zym::gamma
