// Rows of contiguous observations in registers of 512 bits, compiled for these in wide_rows.cc; serv/registers.h tells
// whether they may be called. Contiguous variables have no such form: a chain of additions for each state takes as long
// at either width, and the number of states is part of the results.
#pragma once

#include "qor/ss/extremes.h"
#include "qor/ss/fold.h"
#include "qor/ss/task.h"

namespace orvik::ss {

// Whether rows of the variables [j0, j1) of n observations are long enough to gain by it. (Short sums of one or two
// powers wait for memory: in halves of a line they lose, more of them are in whole ones.)
template <class T>
inline bool wide_extremes_pay(const Data<T>& d, int64_t n, int64_t j0, int64_t j1, bool weighted = false) {
  constexpr int64_t kLong = 128;
  return j1 - j0 >= kLong || (j0 == 0 && j1 == d.p && Fold(d.p, n, weighted).observations > 1);
}
template <class T>
inline bool wide_sums_pay(const Data<T>& d, int64_t n, int64_t j0, int64_t j1, int order) {
  constexpr int64_t kFew = 32 / sizeof(T);
  const bool folded = d.p < Fold::kRow;
  const bool pays = (folded && d.weights != nullptr) || (order > 2 && d.p >= kFew);
  return pays && wide_extremes_pay(d, n, j0, j1, d.weights != nullptr);
}

template <class T>
using WideRowSums = void(const Data<T>& d, int64_t i0, int64_t i1, int64_t j0, int64_t j1, int order, const T* shift,
                         double* const sums[4]);
template <class T>
using WideRowExtremes = void(const Data<T>& d, int64_t j0, int64_t j1, const Result<T>& result);
extern "C" WideRowSums<float> orvik_ss_wide_row_sums_s;
extern "C" WideRowSums<double> orvik_ss_wide_row_sums_d;
extern "C" WideRowExtremes<float> orvik_ss_wide_row_extremes_s;
extern "C" WideRowExtremes<double> orvik_ss_wide_row_extremes_d;

inline void wide_row_sums(const Data<float>& d, int64_t i0, int64_t i1, int64_t j0, int64_t j1, int order,
                          const float* shift, double* const sums[4]) {
  orvik_ss_wide_row_sums_s(d, i0, i1, j0, j1, order, shift, sums);
}
inline void wide_row_sums(const Data<double>& d, int64_t i0, int64_t i1, int64_t j0, int64_t j1, int order,
                          const double* shift, double* const sums[4]) {
  orvik_ss_wide_row_sums_d(d, i0, i1, j0, j1, order, shift, sums);
}
inline void wide_row_extremes(const Data<float>& d, int64_t j0, int64_t j1, const Result<float>& result) {
  orvik_ss_wide_row_extremes_s(d, j0, j1, result);
}
inline void wide_row_extremes(const Data<double>& d, int64_t j0, int64_t j1, const Result<double>& result) {
  orvik_ss_wide_row_extremes_d(d, j0, j1, result);
}

}  // namespace orvik::ss
