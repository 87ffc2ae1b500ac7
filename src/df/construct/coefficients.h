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
  using std::fma;
  const V bend = fma(V(-2), m, d0 + d1);
  *c3 = kForm == CubicForm::kLocal ? bend * inverse_h * inverse_h : bend * (inverse_h * inverse_h);
  *c2 = (V(3) * m - V(2) * d0 - d1) * inverse_h;
}

// Coefficients of `count` intervals from chunk index `from` on; d[0] belongs to the first one's left end.
template <CubicForm kForm, class Real, bool kUniform>
void store_cubic(const Chunk<Real, kUniform>& c, int64_t from, int64_t count, const Real* d, Real* out) {
  using V = Lanes<Real>;
  const Real* y = c.y + from;
  const Real* m = c.m + from;
  int64_t k = 0;
  for (; k + V::kCount <= count; k += V::kCount) {
    const V inverse = kUniform ? V(c.partition.inverse_step) : V::load(c.inverse_h + from + k);
    const V d0 = V::load(d + k);
    V c2, c3;
    cubic_terms<kForm>(V::load(m + k), inverse, d0, V::load(d + k + 1), &c2, &c3);
    store_rows(out + 4 * k, V::load(y + k), d0, c2, c3);
  }
  for (; k < count; ++k) {
    out[4 * k] = y[k];
    out[4 * k + 1] = d[k];
    cubic_terms<kForm>(m[k], c.inverse_length(from + k), d[k], d[k + 1], &out[4 * k + 2], &out[4 * k + 3]);
  }
}

}  // namespace orvik::df

#endif
