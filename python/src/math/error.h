// Errors of the front as exceptions of Python.
#pragma once

#include "orvik/front.h"

namespace orvik::python {

// Sets the exception of a negative status, from a loop that runs without the interpreter's lock.
void raise_from_loop(orvik_status status);

}  // namespace orvik::python
