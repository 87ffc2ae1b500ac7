// Evaluation in the registers that the processor has. Those of 512 bits serve doubles where the shuffles of the rows
// are all there is to shuffle: cubics and lines on an even grid, cubics in runs or at pieces found before. (Cells of
// given breakpoints want their left ends shuffled too; rows of three and of floats are shuffled as often at either
// width, for which narrow registers have more units.)
#ifndef ORVIK_DF_INTERPOLATE_WIDE_EVALUATE_H
#define ORVIK_DF_INTERPOLATE_WIDE_EVALUATE_H

#include "df/interpolate/evaluate.h"
#include "serv/registers.h"

namespace orvik::df {

// evaluate(), compiled for registers of 512 bits in wide_evaluate.cc.
template <class Spots>
using WideEvaluate = void(const double* c, const Orders& orders, int64_t n, const Spots& spots, const Layout& layout,
                          double* r);
extern "C" WideEvaluate<GridSpots<double>> orvik_df_wide_cubics_on_grid, orvik_df_wide_lines_on_grid;
extern "C" WideEvaluate<RunSpots<double>> orvik_df_wide_cubics_in_runs;
extern "C" WideEvaluate<StoredSpots<double>> orvik_df_wide_cubics_found;

// Null where narrow registers are no slower.
template <class Spots>
WideEvaluate<Spots>* wide_form(const Request<double>& q, const Spots&) {
  const bool cubic = q.evaluator == Evaluator::kCubic;
  if constexpr (std::is_same_v<Spots, GridSpots<double>>) {
    return cubic                               ? orvik_df_wide_cubics_on_grid
           : q.evaluator == Evaluator::kLinear ? orvik_df_wide_lines_on_grid
                                               : nullptr;
  } else if constexpr (std::is_same_v<Spots, RunSpots<double>>) {
    return cubic ? orvik_df_wide_cubics_in_runs : nullptr;
  } else if constexpr (std::is_same_v<Spots, StoredSpots<double>>) {
    constexpr int64_t kInCache = 1 << 15;  // pieces, a megabyte of them
    return cubic && q.task.nx <= kInCache ? orvik_df_wide_cubics_found : nullptr;
  } else {
    return nullptr;
  }
}

template <class Real, class Spots>
void evaluate_in_width(const Request<Real>& q, int64_t function, int64_t n, const Spots& spots, Real* r) {
#if ORVIK_WIDE_REGISTERS
  if constexpr (sizeof(Real) == 8) {
    constexpr int64_t kWorthIt = 64;  // sites
    WideEvaluate<Spots>* const wide = n >= kWorthIt && serv::wide_registers ? wide_form(q, spots) : nullptr;
    if (wide != nullptr) return wide(q.task.template coefficients<Real>(function), q.orders, n, spots, q.layout, r);
  }
#endif
  evaluate(q, function, n, spots, r);
}

}  // namespace orvik::df

#endif
