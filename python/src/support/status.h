// What the front's statuses become in Python.
#pragma once

#include <pybind11/pybind11.h>

#include "orvik/front.h"

namespace orvik::python {

[[noreturn]] inline void raise(PyObject* type, const char* text) {
  PyErr_SetString(type, text);
  throw pybind11::error_already_set();
}

// The exception that NumPy would raise for the like.
inline PyObject* exception_of(orvik_status status) {
  switch (status) {
    case ORVIK_ERROR_NO_MEMORY:
    case -4:     // of a stream
    case -1001:  // of data fitting
    case -4000:  // of statistics
      return PyExc_MemoryError;
    case ORVIK_ERROR_UNSUPPORTED:
      return PyExc_NotImplementedError;
    case ORVIK_ERROR_CPU:
    case -1012:  // the end of a sequence
    case -1130:  // what a processor or a system lacks
    case -1131:
    case -1140:
    case -1160:
      return PyExc_RuntimeError;
    default:
      return PyExc_ValueError;
  }
}

inline void check(orvik_status status) {
  if (status < 0) raise(exception_of(status), orvik_status_text(status));
}

}  // namespace orvik::python
