// Estimators of an array at one go; results hold a row a variable.
#pragma once

#include <cmath>

#include "statistics/arrays.h"

namespace orvik::python {

// call() without the interpreter's lock.
template <class Call>
void run(const Call& call) {
  orvik_status status;
  {
    const pybind11::gil_scoped_release released;
    status = call();
  }
  check(status);
}

template <class T>
Array<T> quantiles(const Array<T>& x, const Array<T>& orders) {
  const Observations<T> data(x);
  const int64_t m = orders.size();
  Array<T> r({data.p, m});
  T* const to = r.mutable_data();
  const T* const q = orders.data();
  run([&] { return FRONT(T, quantiles)(data.n, data.p, data.x, data.layout, m, q, to); });
  return r;
}

template <class T>
Array<T> mad(const Array<T>& x) {
  const Observations<T> data(x);
  Array<T> r({data.p});
  T* const to = r.mutable_data();
  run([&] { return FRONT(T, mad)(data.n, data.p, data.x, data.layout, to); });
  return r;
}

template <class T>
Array<T> weighted_median(const Array<T>& x, const Array<T>& weights) {
  const Observations<T> data(x);
  const T* const w = vector_of<T>(weights, data.n);
  Array<T> r({data.p});
  T* const to = r.mutable_data();
  run([&] { return FRONT(T, weighted_median)(data.n, data.p, data.x, data.layout, w, to); });
  return r;
}

// 1 for each outlier.
template <class T>
pybind11::array_t<int8_t> outliers(const Array<T>& x, T alpha) {
  const Observations<T> data(x);
  pybind11::array_t<int8_t> r(data.n);
  int8_t* const to = r.mutable_data();
  run([&] { return FRONT(T, outliers)(data.n, data.p, data.x, data.layout, alpha, to); });
  return r;
}

template <class T>
pybind11::tuple robust_covariance(const Array<T>& x) {
  const Observations<T> data(x);
  Array<T> mean({data.p}), covariance({data.p, data.p});
  T *const m = mean.mutable_data(), *const c = covariance.mutable_data();
  run([&] { return FRONT(T, robust_covariance)(data.n, data.p, data.x, data.layout, m, c); });
  return pybind11::make_tuple(mean, covariance);
}

// Completed tables, each in the layout of x.
template <class T>
void impute(const Array<T>& x, Array<T>& r) {
  const Observations<T> data(x);
  if (r.ndim() != 1 || x.size() == 0 || r.size() % x.size() != 0) raise(PyExc_ValueError, "the result does not fit");
  const int64_t sets = r.size() / x.size();
  T* const to = r.mutable_data();
  run([&] { return FRONT(T, impute)(data.n, data.p, data.x, data.layout, sets, to); });
}

// Sorts in place.
template <class T>
void sort(Array<T>& x) {
  const Observations<T> data(x);
  T* const to = x.mutable_data();
  run([&] { return FRONT(T, sort)(data.n, data.p, data.x, data.layout, to); });
}

// Which variables hold a NaN; none where none does.
template <class T>
pybind11::object holds_nan(const Array<T>& x) {
  const Observations<T> data(x);
  pybind11::array_t<bool> r(data.p);
  bool* const to = r.mutable_data();
  bool any = false;
  {
    const pybind11::gil_scoped_release released;
    for (int64_t j = 0; j < data.p; ++j) to[j] = false;
    // Blocks without a way out, for the compiler's vectors.
    constexpr int64_t kBlock = 1024;
    for (int64_t begin = 0, all = data.n * data.p; begin < all; begin += kBlock) {
      const int64_t end = all - begin < kBlock ? all : begin + kBlock;
      bool found = false;
      for (int64_t k = begin; k < end; ++k) found |= data.x[k] != data.x[k];
      if (!found) continue;
      any = true;
      for (int64_t k = begin; k < end; ++k) {
        if (data.x[k] != data.x[k]) to[data.layout == ORVIK_ROWS ? k / data.n : k % data.p] = true;
      }
    }
  }
  if (!any) return pybind11::none();
  return r;
}

}  // namespace orvik::python
