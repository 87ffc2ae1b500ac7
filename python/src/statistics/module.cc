// orvik._statistics: what orvik.stats stands on, for float64 and float32.
#include <pybind11/stl.h>

#include "statistics/estimators.h"
#include "statistics/summary.h"

namespace py = pybind11;

namespace orvik::python {
namespace {

#define MEMBER(kind, name) def(#name, [](const Summary<T>& s) { return s.kind(FRONT_POINTER(name)); })

// `suffix` tells the element type; arrays are taken as they are or not at all.
template <class T>
void define(py::module_& module, const std::string& suffix) {
  const auto plain = py::arg().noconvert();
  py::class_<Summary<T>>(module, ("Summary" + suffix).c_str())
      .def(py::init<int64_t>())
      .def(py::init<const py::bytes&>())
      .def("update", &Summary<T>::update, plain, py::arg().noconvert().none(true))
      .def("merge", &Summary<T>::merge)
      .def("count", &Summary<T>::count)
      .def("dimension", &Summary<T>::dimension)
      .def("image", &Summary<T>::image)
      .MEMBER(values, mean)
      .MEMBER(values, variance)
      .MEMBER(values, skewness)
      .MEMBER(values, kurtosis)
      .MEMBER(values, min)
      .MEMBER(values, max)
      .def("covariance", &Summary<T>::covariance)
      .MEMBER(matrix, correlation);
  py::class_<StreamQuantiles<T>>(module, ("StreamQuantiles" + suffix).c_str())
      .def(py::init<int64_t, T>())
      .def(py::init<const py::bytes&>())
      .def("dimension", &StreamQuantiles<T>::dimension)
      .def("image", &StreamQuantiles<T>::image)
      .def("update", &StreamQuantiles<T>::update, plain)
      .def("query", &StreamQuantiles<T>::query, plain);
  module.def("moments", &moments<T>, plain, py::arg().noconvert().none(true));
  module.def("quantiles", &quantiles<T>, plain, plain);
  module.def("mad", &mad<T>, plain);
  module.def("weighted_median", &weighted_median<T>, plain, plain);
  module.def("outliers", &outliers<T>, plain, py::arg());
  module.def("robust_covariance", &robust_covariance<T>, plain);
  module.def("impute", &impute<T>, plain, plain);
  module.def("sort", &sort<T>, plain);
  module.def("holds_nan", &holds_nan<T>, plain);
}

}  // namespace
}  // namespace orvik::python

PYBIND11_MODULE(_statistics, module) {
  module.doc() = "Estimators behind orvik.stats.";
  orvik::python::define<double>(module, "64");
  orvik::python::define<float>(module, "32");
}
