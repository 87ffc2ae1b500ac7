// From derivatives to coefficients, one interval after the other.
#ifndef ORVIK_DF_CONSTRUCT_COEFFICIENTS_H
#define ORVIK_DF_CONSTRUCT_COEFFICIENTS_H

#include "df/construct/chunk.h"
#include "df/lanes.h"

namespace orvik::df {

// How the two factors 1 / h of c[3] are applied: one after the other, or squared first.
enum class CubicForm { kLocal, kNatural };

// The polynomial on an interval of a cubic with derivatives d0 and d1 at its ends; V is a real or a vector of them.
template <CubicForm kForm, class V>
void cubic_terms(V m, V inverse_h, V d0, V d1, V* c2, V* c3) {
  const V bend = fma(V(-2), m, d0 + d1);
  *c3 = kForm == CubicForm::kLocal ? bend * inverse_h * inverse_h : bend * (inverse_h * inverse_h);
  *c2 = (V(3) * m - V(2) * d0 - d1) * inverse_h;
}

// Coefficients of interval k of a chunk, or of several from there on, into out; d[k] is the derivative at breakpoint k.
template <CubicForm kForm, class T, class Real, bool kUniform>
void put_cubic(const Chunk<Real, kUniform>& c, int64_t k, const Real* d, Real* out) {
  const T d0 = load<T>(d + k);
  T c2, c3;
  cubic_terms<kForm>(load<T>(c.m() + k), c.template inverse_length<T>(k), d0, load<T>(d + k + 1), &c2, &c3);
  store_rows(out, load<T>(c.y + k), d0, c2, c3);
}

}  // namespace orvik::df

#endif
