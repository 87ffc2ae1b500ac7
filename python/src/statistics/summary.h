// Summaries, and quantiles of what comes block by block, as objects.
#pragma once

#include <algorithm>
#include <cmath>
#include <iterator>
#include <memory>

#include "statistics/arrays.h"
#include "support/images.h"

namespace orvik::python {

// What the front has of a summary of T under a name.
#define FRONT_POINTER(name)                    \
  ([] {                                        \
    if constexpr (std::is_same_v<T, double>) { \
      return orvik_d_summary_##name;           \
    } else {                                   \
      return orvik_s_summary_##name;           \
    }                                          \
  }())

template <class T>
class Summary {
 public:
  explicit Summary(int64_t p) { check(FRONT(T, summary_new)(&s_, p)); }
  explicit Summary(const pybind11::bytes& image) {
    check(FRONT(T, summary_load)(&s_, PyBytes_AS_STRING(image.ptr()), int64_t{PyBytes_GET_SIZE(image.ptr())}));
  }
  ~Summary() { FRONT(T, summary_delete)(s_); }
  Summary(const Summary&) = delete;
  Summary& operator=(const Summary&) = delete;

  void update(const Array<T>& x, const std::optional<Array<T>>& weights) {
    const Observations<T> data(x);
    if (data.p != dimension())
      raise(PyExc_ValueError, "the block has not as many columns as the summary has variables");
    const T* const w = vector_of(weights, data.n);
    orvik_status status;
    {
      const pybind11::gil_scoped_release released;
      status = FRONT(T, summary_update)(s_, data.n, data.x, data.layout, w);
    }
    check(status);
  }
  void merge(const Summary& other) { check(FRONT(T, summary_merge)(s_, other.s_)); }
  int64_t count() const {
    int64_t n = 0;
    check(FRONT(T, summary_count)(s_, &n));
    return n;
  }
  int64_t dimension() const {
    int64_t p = 0;
    check(FRONT(T, summary_dimension)(s_, &p));
    return p;
  }
  pybind11::bytes image() const {
    return image_of([&](void* memory, int64_t* size) { return FRONT(T, summary_save)(s_, memory, size); });
  }

  using Handle = std::conditional_t<std::is_same_v<T, double>, orvik_d_summary, orvik_s_summary>;
  // What `read` says of each variable, or of each pair.
  Array<T> values(orvik_status (*read)(const Handle*, T*)) const {
    Array<T> r({dimension()});
    check(read(s_, r.mutable_data()));
    return r;
  }
  Array<T> matrix(orvik_status (*read)(const Handle*, T*)) const {
    Array<T> r({dimension(), dimension()});
    check(read(s_, r.mutable_data()));
    return r;
  }
  // With a variable whose variance is no number none is: deviations from an infinite mean have no sum.
  Array<T> covariance() const {
    Array<T> r = matrix(FRONT_POINTER(covariance));
    const int64_t p = r.shape(0);
    T* const c = r.mutable_data();
    for (int64_t i = 0; i < p; ++i) {
      if (!std::isnan(c[i * (p + 1)])) continue;
      for (int64_t j = 0; j < p; ++j) c[i * p + j] = c[j * p + i] = c[i * (p + 1)];
    }
    return r;
  }

 private:
  Handle* s_ = nullptr;
};

// Moments and extremes of each variable, a row of values for each, with nothing of pairs of variables, whose work grows
// with the square: a few variables at a time.
template <class T>
Array<T> moments(const Array<T>& x, const std::optional<Array<T>>& weights) {
  constexpr int64_t kTogether = 16;
  const Observations<T> data(x);
  const T* const w = vector_of(weights, data.n);
  using Handle = typename Summary<T>::Handle;
  constexpr orvik_status (*kReads[])(const Handle*, T*) = {FRONT_POINTER(mean),     FRONT_POINTER(variance),
                                                           FRONT_POINTER(skewness), FRONT_POINTER(kurtosis),
                                                           FRONT_POINTER(min),      FRONT_POINTER(max)};
  Array<T> r({int64_t{std::size(kReads)}, data.p});
  T* const to = r.mutable_data();
  const auto of_few = [&](int64_t first, int64_t count, const T* few) {
    Handle* s = nullptr;
    orvik_status status = FRONT(T, summary_new)(&s, count);
    const std::unique_ptr<Handle, decltype(FRONT_POINTER(delete))> held(s, FRONT_POINTER(delete));
    if (status >= 0) status = FRONT(T, summary_update)(s, data.n, few, data.layout, w);
    T* row = to + first;
    for (const auto read : kReads) {
      if (status >= 0) status = read(s, row);
      row += data.p;
    }
    return status;
  };
  orvik_status status = ORVIK_SUCCESS;
  {
    const pybind11::gil_scoped_release released;
    const bool rows = data.layout == ORVIK_ROWS, copied = !rows && data.p > kTogether;
    const auto copy = std::make_unique_for_overwrite<T[]>(copied ? static_cast<size_t>(data.n * kTogether) : 0);
    for (int64_t first = 0; first < data.p && status >= 0; first += kTogether) {
      const int64_t count = std::min(kTogether, data.p - first);
      for (int64_t i = 0; copied && i < data.n; ++i) {
        std::copy_n(data.x + i * data.p + first, count, copy.get() + i * count);
      }
      status = of_few(first, count, copied ? copy.get() : data.x + (rows ? first * data.n : 0));
    }
  }
  check(status);
  return r;
}

template <class T>
class StreamQuantiles {
 public:
  StreamQuantiles(int64_t p, T epsilon) : p_(p) { check(FRONT(T, stream_quantiles_new)(&s_, p, epsilon)); }
  explicit StreamQuantiles(const pybind11::bytes& image) {
    check(FRONT(T, stream_quantiles_load)(&s_, PyBytes_AS_STRING(image.ptr()), int64_t{PyBytes_GET_SIZE(image.ptr())}));
    check(FRONT(T, stream_quantiles_dimension)(s_, &p_));
  }
  ~StreamQuantiles() { FRONT(T, stream_quantiles_delete)(s_); }
  StreamQuantiles(const StreamQuantiles&) = delete;
  StreamQuantiles& operator=(const StreamQuantiles&) = delete;

  void update(const Array<T>& x) {
    const Observations<T> data(x);
    if (data.p != p_) raise(PyExc_ValueError, "the block has not as many columns as there are variables");
    orvik_status status;
    {
      const pybind11::gil_scoped_release released;
      status = FRONT(T, stream_quantiles_update)(s_, data.n, data.x, data.layout);
    }
    check(status);
  }
  int64_t dimension() const { return p_; }
  pybind11::bytes image() const {
    return image_of([&](void* memory, int64_t* size) { return FRONT(T, stream_quantiles_save)(s_, memory, size); });
  }
  // One row a variable.
  Array<T> query(const Array<T>& orders) {
    Array<T> r({p_, int64_t{orders.size()}});
    check(FRONT(T, stream_quantiles_query)(s_, int64_t{orders.size()}, orders.data(), r.mutable_data()));
    return r;
  }

 private:
  std::conditional_t<std::is_same_v<T, double>, orvik_d_stream_quantiles, orvik_s_stream_quantiles>* s_ = nullptr;
  int64_t p_ = 0;
};

}  // namespace orvik::python
