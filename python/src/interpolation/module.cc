// orvik._interpolation: what orvik.interpolate stands on, for float64 and float32.
#include <pybind11/stl.h>

#include <optional>

#include "support/precision.h"

namespace py = pybind11;

namespace orvik::python {
namespace {

// Arrays come contiguous from orvik.interpolate; others are refused.
template <class T>
const T* numbers(const Array<T>& a) {
  if ((a.flags() & py::array::c_style) == 0) raise(PyExc_ValueError, "the array is not contiguous");
  return a.data();
}

template <class T>
class Spline {
 public:
  Spline(const Array<T>& x, const Array<T>& y, int32_t kind, int32_t ends, double left, double right,
         const std::optional<Array<T>>& internal) {
    const int64_t nx = x.size(), ny = nx > 0 ? y.size() / nx : 0;
    if (y.size() != nx * ny) raise(PyExc_ValueError, "y must have as many values a function as x");
    if (internal && internal->size() != nx - 2) {
      raise(PyExc_ValueError, "internal must have a derivative for each inner breakpoint");
    }
    const orvik_spline_ends conditions = {ends, left, right};
    const T *const xs = numbers(x), *const ys = numbers(y), *const inner = internal ? numbers(*internal) : nullptr;
    orvik_status status;
    {
      const py::gil_scoped_release released;
      status = FRONT(T, spline_new)(&s_, nx, xs, ny, ys, kind, &conditions, inner);
    }
    check_fitting(status);
  }
  ~Spline() { FRONT(T, spline_delete)(s_); }
  Spline(const Spline&) = delete;
  Spline& operator=(const Spline&) = delete;

  // A row a function.
  Array<T> evaluate(const Array<T>& t, int32_t derivative) const {
    return results(t.size(), [&, n = int64_t{t.size()}, from = numbers(t)](T* r) {
      return FRONT(T, spline_evaluate)(s_, n, from, r, derivative);
    });
  }
  Array<T> integrate(const Array<T>& a, const Array<T>& b) const {
    if (a.size() != b.size()) raise(PyExc_ValueError, "limits must be as many");
    return results(a.size(), [&, n = int64_t{a.size()}, from = numbers(a), to = numbers(b)](T* r) {
      return FRONT(T, spline_integrate)(s_, n, from, to, r);
    });
  }
  // Functions, pieces, coefficients.
  Array<T> coefficients() const {
    int64_t count = 0, ny = 0, order = 0;
    check_fitting(FRONT(T, spline_shape)(s_, static_cast<int64_t*>(nullptr), &ny, &order));
    check_fitting(FRONT(T, spline_coefficients)(s_, static_cast<T*>(nullptr), &count));
    Array<T> r({ny, count / ny / order, order});
    check_fitting(FRONT(T, spline_coefficients)(s_, r.mutable_data(), &count));
    return r;
  }

 private:
  template <class Call>
  Array<T> results(int64_t n, const Call& call) const {
    int64_t ny = 0;
    check_fitting(FRONT(T, spline_shape)(s_, static_cast<int64_t*>(nullptr), &ny, static_cast<int64_t*>(nullptr)));
    Array<T> r({ny, n});
    T* const to = r.mutable_data();
    orvik_status status;
    {
      const py::gil_scoped_release released;
      status = call(to);
    }
    check_fitting(status);
    return r;
  }

  std::conditional_t<std::is_same_v<T, double>, orvik_d_spline, orvik_s_spline>* s_ = nullptr;
};

template <class T>
py::array_t<int64_t> search(const Array<T>& x, const Array<T>& t) {
  py::array_t<int64_t> cells(t.size());
  int64_t* const to = cells.mutable_data();
  const T *const xs = numbers(x), *const ts = numbers(t);
  const int64_t nx = x.size(), n = t.size();
  orvik_status status;
  {
    const py::gil_scoped_release released;
    status = FRONT(T, search)(nx, xs, n, ts, to);
  }
  check_fitting(status);
  return cells;
}

template <class T>
void define(py::module_& module, const char* name) {
  const auto plain = py::arg().noconvert();
  py::class_<Spline<T>>(module, name)
      .def(py::init<const Array<T>&, const Array<T>&, int32_t, int32_t, double, double,
                    const std::optional<Array<T>>&>(),
           plain, plain, py::arg(), py::arg(), py::arg(), py::arg(), py::arg().noconvert().none(true))
      .def("evaluate", &Spline<T>::evaluate, plain, py::arg())
      .def("integrate", &Spline<T>::integrate, plain, plain)
      .def("coefficients", &Spline<T>::coefficients);
  module.def("search", &search<T>, plain, plain);
}

}  // namespace
}  // namespace orvik::python

PYBIND11_MODULE(_interpolation, module) {
  module.doc() = "Splines behind orvik.interpolate.";
  orvik::python::define<double>(module, "Spline64");
  orvik::python::define<float>(module, "Spline32");
}
