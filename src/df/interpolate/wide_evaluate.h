// Evaluation in the registers that the processor has.
#ifndef ORVIK_DF_INTERPOLATE_WIDE_EVALUATE_H
#define ORVIK_DF_INTERPOLATE_WIDE_EVALUATE_H

#include "df/interpolate/evaluate.h"
#include "serv/registers.h"

namespace orvik::df {

// evaluate(), compiled for registers of 512 bits in wide_evaluate.cc: `spots` are of the kind.
template <class Real>
using WideEvaluate = void(SpotKind kind, const Request<Real>& q, int64_t function, int64_t n, const void* spots,
                          Real* r);
extern "C" WideEvaluate<float> orvik_df_wide_evaluate_s;
extern "C" WideEvaluate<double> orvik_df_wide_evaluate_d;

template <class Real, class Spots>
void evaluate_in_width(const Request<Real>& q, int64_t function, int64_t n, const Spots& spots, Real* r) {
#if ORVIK_WIDE_REGISTERS
  constexpr int64_t kWorthIt = 64;  // sites
  if (n >= kWorthIt && serv::wide_registers) {
    if constexpr (sizeof(Real) == 8) {
      return orvik_df_wide_evaluate_d(Spots::kKind, q, function, n, &spots, r);
    } else {
      return orvik_df_wide_evaluate_s(Spots::kKind, q, function, n, &spots, r);
    }
  }
#endif
  evaluate(q, function, n, spots, r);
}

}  // namespace orvik::df

#endif
