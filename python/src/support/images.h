// Images of objects as bytes.
#pragma once

#include <string>

#include "support/status.h"

namespace orvik::python {

// `save(memory, &size)` as the front's.
template <class Save>
pybind11::bytes image_of(const Save& save) {
  int64_t size = 0;
  check(save(nullptr, &size));
  const auto image =
      pybind11::reinterpret_steal<pybind11::bytes>(PyBytes_FromStringAndSize(nullptr, static_cast<Py_ssize_t>(size)));
  if (!image) throw pybind11::error_already_set();
  check(save(PyBytes_AS_STRING(image.ptr()), &size));
  return image;
}

}  // namespace orvik::python
