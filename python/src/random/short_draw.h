// Draws into plain arrays, past the checks in Python.
#pragma once

#include <pybind11/pybind11.h>

namespace orvik::python {

// Adds `short_draw(function)` to the module: what stands for a distribution's method and takes its plain calls itself.
// Throws what it meets.
void define_short_draw(pybind11::module_& module);

// The name of the capsules by which a bit generator's attribute `_place` tells its Stream.
inline constexpr const char* kPlace = "orvik.Stream";

}  // namespace orvik::python
