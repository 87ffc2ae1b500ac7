// Calls of ufuncs with arrays that are as they should be.
#pragma once

#include "math/numpy.h"

namespace orvik::python {

// Puts the short way before a ufunc's own call, which goes on to serve whatever does not fit.
void add_short_call(PyObject* ufunc);

}  // namespace orvik::python
