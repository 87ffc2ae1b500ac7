// Evaluation in registers of 512 bits. Compiled for these; serv/registers.h tells whether it may be called.
#include "df/interpolate/wide_evaluate.h"

namespace orvik::df {

extern "C" void orvik_df_wide_cubics_on_grid(const double* c, const Orders& orders, int64_t n,
                                             const GridSpots<double>& spots, const Layout& layout, double* r) {
  evaluate<4>(c, orders, n, spots, layout, r);
}
extern "C" void orvik_df_wide_lines_on_grid(const double* c, const Orders& orders, int64_t n,
                                            const GridSpots<double>& spots, const Layout& layout, double* r) {
  evaluate<2>(c, orders, n, spots, layout, r);
}
extern "C" void orvik_df_wide_cubics_in_runs(const double* c, const Orders& orders, int64_t n,
                                             const RunSpots<double>& spots, const Layout& layout, double* r) {
  evaluate<4>(c, orders, n, spots, layout, r);
}
extern "C" void orvik_df_wide_cubics_found(const double* c, const Orders& orders, int64_t n,
                                           const StoredSpots<double>& spots, const Layout& layout, double* r) {
  evaluate<4>(c, orders, n, spots, layout, r);
}

}  // namespace orvik::df
