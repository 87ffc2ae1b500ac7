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

// Sorts in place.
template <class T>
void sort(Array<T>& x) {
  const Observations<T> data(x);
  T* const to = x.mutable_data();
  run([&] { return FRONT(T, sort)(data.n, data.p, data.x, data.layout, to); });
}

// Which variables hold a NaN.
template <class T>
pybind11::array_t<bool> holds_nan(const Array<T>& x) {
  const Observations<T> data(x);
  pybind11::array_t<bool> r(data.p);
  bool* const to = r.mutable_data();
  const pybind11::gil_scoped_release released;
  for (int64_t j = 0; j < data.p; ++j) to[j] = false;
  constexpr int64_t kBlock = 1024;
  if (data.layout == ORVIK_ROWS || data.p == 1) {
    for (int64_t j = 0; j < data.p; ++j) {
      const T* const row = data.x + j * data.n;
      for (int64_t i = 0; i < data.n && !to[j]; i += kBlock) {
        bool found = false;
        const int64_t end = data.n - i < kBlock ? data.n : i + kBlock;
        for (int64_t k = i; k < end; ++k) found |= row[k] != row[k];
        to[j] = found;
      }
    }
  } else {
    for (int64_t i = 0; i < data.n; ++i) {
      const T* const row = data.x + i * data.p;
      for (int64_t j = 0; j < data.p; ++j) to[j] |= row[j] != row[j];
    }
  }
  return r;
}

}  // namespace orvik::python
