// What the front's statuses become in Python.
#pragma once

#include <pybind11/pybind11.h>

#include <cctype>
#include <string>

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

// The sentence of a status; of the two that a number shared by streams and data fitting has, the one that fits.
inline std::string text_of(orvik_status status, bool of_fitting) {
  const std::string text = orvik_status_text(status), streams = "Of a stream: ", fitting = " Of data fitting: ";
  const size_t second = text.find(fitting);
  if (!text.starts_with(streams) || second == std::string::npos) return text;
  std::string one =
      of_fitting ? text.substr(second + fitting.size()) : text.substr(streams.size(), second - streams.size());
  one[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(one[0])));
  return one;
}

inline void check(orvik_status status) {
  if (status < 0) raise(exception_of(status), text_of(status, false).c_str());
}
inline void check_fitting(orvik_status status) {
  const bool memory = exception_of(status) == PyExc_MemoryError;
  if (status < 0) raise(memory ? PyExc_MemoryError : PyExc_ValueError, text_of(status, true).c_str());
}

}  // namespace orvik::python
