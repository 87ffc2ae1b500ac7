// Polynomials and their derivatives at many sites, by Horner's scheme in fused steps.
#ifndef ORVIK_DF_INTERPOLATE_POLYNOMIALS_H
#define ORVIK_DF_INTERPOLATE_POLYNOMIALS_H

#include <cmath>

#include "df/interpolate/rows.h"
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
  using std::fma;
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

// out[j] from the polynomial of interval index[j] at its local coordinate t[j].
template <int kOrder, int kDerivative, class Real, class Index>
void evaluate_derivative(const Real* c, int64_t n, const Index* index, const Real* t, Real* out) {
  using V = Lanes<Real>;
  int64_t j = 0;
  for (; j + V::kCount <= n; j += V::kCount) {
    V columns[kOrder];
    load_columns<kOrder>(c, index + j, columns);
    horner<kOrder, kDerivative, Real>(columns, V::load(t + j)).store(out + j);
  }
  for (; j < n; ++j) out[j] = horner<kOrder, kDerivative, Real>(c + kOrder * static_cast<int64_t>(index[j]), t[j]);
}

// Any derivative of a linear, quadratic or cubic polynomial.
template <int kOrder, class Real, class Index>
void evaluate_polynomial(const Real* c, int64_t derivative, int64_t n, const Index* index, const Real* t, Real* out) {
  switch (derivative) {
    case 0:
      return evaluate_derivative<kOrder, 0>(c, n, index, t, out);
    case 1:
      return evaluate_derivative<kOrder, 1>(c, n, index, t, out);
    case 2:
      if constexpr (kOrder > 2) return evaluate_derivative<kOrder, 2>(c, n, index, t, out);
      break;
    case 3:
      if constexpr (kOrder > 3) return evaluate_derivative<kOrder, 3>(c, n, index, t, out);
      break;
    default:
      break;
  }
  for (int64_t j = 0; j < n; ++j) out[j] = 0;
}

// The same for any order, one site at a time.
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

}  // namespace orvik::df

#endif
