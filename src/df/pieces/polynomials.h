// Polynomials, their derivatives and integrals by Horner's scheme in fused steps.
#ifndef ORVIK_DF_PIECES_POLYNOMIALS_H
#define ORVIK_DF_PIECES_POLYNOMIALS_H

#include <cmath>

#include "df/lanes.h"

namespace orvik::df {

// j! / (j - derivative)!: what the power j contributes to a derivative.
constexpr int64_t falling(int64_t j, int64_t derivative) {
  int64_t product = 1;
  for (int64_t k = 0; k < derivative; ++k) product *= j - k;
  return product;
}

// Derivative kDerivative of a polynomial with kOrder coefficients; V is a real or a vector.
template <int kOrder, int kDerivative, class Real, class V>
V horner(const V* c, V t) {
  const auto term = [&](int j) {
    const int64_t factor = falling(j, kDerivative);
    return factor == 1 ? c[j] : V(static_cast<Real>(factor)) * c[j];
  };
  V sum = term(kOrder - 1);
  for (int j = kOrder - 2; j >= kDerivative; --j) sum = fma(t, sum, term(j));
  return sum;
}

// Derivative `derivative` of one such polynomial.
template <int kOrder, class Real>
Real polynomial_at(const Real* c, int64_t derivative, Real t) {
  switch (derivative) {
    case 0:
      return horner<kOrder, 0, Real>(c, t);
    case 1:
      return horner<kOrder, 1, Real>(c, t);
    case 2:
      if constexpr (kOrder > 2) return horner<kOrder, 2, Real>(c, t);
      break;
    case 3:
      if constexpr (kOrder > 3) return horner<kOrder, 3, Real>(c, t);
      break;
    default:
      break;
  }
  return 0;
}

// The integral from the origin to t of a polynomial with kOrder coefficients.
template <int kOrder, class Real, class V>
V antiderivative(const V* c, V t) {
  const auto term = [&](int j) { return j == 0 ? c[0] : V(Real(1) / static_cast<Real>(j + 1)) * c[j]; };
  V sum = term(kOrder - 1);
  for (int j = kOrder - 2; j >= 0; --j) sum = fma(t, sum, term(j));
  return t * sum;
}

// The same for any order.
template <class Real>
Real evaluate_general(const Real* c, int64_t order, int64_t derivative, Real t) {
  Real sum = 0;
  for (int64_t j = order - 1; j >= derivative; --j) {
    Real factor = 1;
    for (int64_t k = 0; k < derivative; ++k) factor *= static_cast<Real>(j - k);
    sum = std::fma(t, sum, factor * c[j]);
  }
  return sum;
}

template <class Real>
Real general_antiderivative(const Real* c, int64_t order, Real t) {
  Real sum = 0;
  for (int64_t j = order - 1; j >= 0; --j) sum = std::fma(t, sum, c[j] / static_cast<Real>(j + 1));
  return t * sum;
}

}  // namespace orvik::df

#endif
