// Evaluation in registers of 512 bits. Compiled for these; serv/registers.h tells whether it may be called.
#include "df/interpolate/wide_evaluate.h"

namespace orvik::df {
namespace {

template <class Real>
void evaluate_kind(SpotKind kind, const Request<Real>& q, int64_t function, int64_t n, const void* spots, Real* r) {
  const auto of = [&]<class Spots>() {
    static_assert(std::is_trivially_copyable_v<Spots>);
    evaluate(q, function, n, *static_cast<const Spots*>(spots), r);
  };
  switch (kind) {
    case SpotKind::kCells:
      return of.template operator()<CellSpots<Real, false>>();
    case SpotKind::kEvenCells:
      return of.template operator()<CellSpots<Real, true>>();
    case SpotKind::kRuns:
      return of.template operator()<RunSpots<Real>>();
    case SpotKind::kGrid:
      return of.template operator()<GridSpots<Real>>();
    case SpotKind::kStored:
      return of.template operator()<StoredSpots<Real>>();
  }
}

}  // namespace

extern "C" void orvik_df_wide_evaluate_s(SpotKind kind, const Request<float>& q, int64_t function, int64_t n,
                                         const void* spots, float* r) {
  evaluate_kind(kind, q, function, n, spots, r);
}
extern "C" void orvik_df_wide_evaluate_d(SpotKind kind, const Request<double>& q, int64_t function, int64_t n,
                                         const void* spots, double* r) {
  evaluate_kind(kind, q, function, n, spots, r);
}

}  // namespace orvik::df
