// Arrays of observations as the front takes them.
#pragma once

#include <optional>

#include "support/precision.h"

namespace orvik::python {

// n observations of p variables, in rows of observations (C order) or columns (Fortran order).
template <class T>
struct Observations {
  int64_t n, p;
  const T* x;
  int32_t layout;

  explicit Observations(const Array<T>& a) {
    if (a.ndim() != 2) raise(PyExc_ValueError, "observations must have two dimensions");
    n = a.shape(0), p = a.shape(1), x = a.data();
    const int flags = a.flags();
    if ((flags & pybind11::array::c_style) != 0) {
      layout = ORVIK_COLUMNS;
    } else if ((flags & pybind11::array::f_style) != 0) {
      layout = ORVIK_ROWS;
    } else {
      raise(PyExc_ValueError, "observations must be contiguous");
    }
  }
};

// A vector of n numbers, null where there is none.
template <class T>
const T* vector_of(const std::optional<Array<T>>& a, int64_t n) {
  if (!a) return nullptr;
  if (a->ndim() != 1 || a->shape(0) != n || (a->flags() & pybind11::array::c_style) == 0) {
    raise(PyExc_ValueError, "weights must be one for each observation");
  }
  return a->data();
}

}  // namespace orvik::python
