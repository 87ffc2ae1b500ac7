#include "df/search/finder.h"

#include "df/search/blocks.h"

namespace orvik::df {

template <class Real>
template <class Index, class Cell>
void Finder<Real>::many(int64_t n, const Real* site, Cell* cell, int64_t* state) const {
  switch (method_) {
    case Method::kUniform:
      uniform_cells<Index>(lookup_, n, site, cell);
      break;
    case Method::kQuasiUniform:
      quasi_uniform_cells<Index>(lookup_, n, site, cell);
      break;
    case Method::kSorted:
      sorted_cells<Index>(lookup_, n, site, cell, state);
      break;
    case Method::kPeak:
      peak_cells<Index>(lookup_, n, site, cell);
      break;
    default:
      hybrid_cells<Index>(lookup_, n, site, cell);
      break;
  }
}

#define ORVIK_DF_FINDER_FORMS(Real)                                                                   \
  template void Finder<Real>::many<int32_t, int32_t>(int64_t, const Real*, int32_t*, int64_t*) const; \
  template void Finder<Real>::many<int32_t, int64_t>(int64_t, const Real*, int64_t*, int64_t*) const; \
  template void Finder<Real>::many<int64_t, int32_t>(int64_t, const Real*, int32_t*, int64_t*) const; \
  template void Finder<Real>::many<int64_t, int64_t>(int64_t, const Real*, int64_t*, int64_t*) const;
ORVIK_DF_FINDER_FORMS(double)
ORVIK_DF_FINDER_FORMS(float)

}  // namespace orvik::df
