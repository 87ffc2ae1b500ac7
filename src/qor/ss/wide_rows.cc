// Rows of contiguous observations in registers of 512 bits. Compiled for these; serv/registers.h tells whether they may
// be called.
#include "qor/ss/wide_rows.h"

#include "qor/ss/row_sums.h"

namespace orvik::ss {

extern "C" void orvik_ss_wide_row_sums_s(const Data<float>& d, int64_t i0, int64_t i1, int64_t j0, int64_t j1,
                                         int order, const float* shift, double* const sums[4]) {
  add_row_sums(d, i0, i1, j0, j1, order, shift, sums);
}
extern "C" void orvik_ss_wide_row_sums_d(const Data<double>& d, int64_t i0, int64_t i1, int64_t j0, int64_t j1,
                                         int order, const double* shift, double* const sums[4]) {
  add_row_sums(d, i0, i1, j0, j1, order, shift, sums);
}
extern "C" void orvik_ss_wide_row_extremes_s(const Data<float>& d, int64_t j0, int64_t j1,
                                             const Result<float>& result) {
  scan_observations(d, j0, j1, result);
}
extern "C" void orvik_ss_wide_row_extremes_d(const Data<double>& d, int64_t j0, int64_t j1,
                                             const Result<double>& result) {
  scan_observations(d, j0, j1, result);
}

}  // namespace orvik::ss
