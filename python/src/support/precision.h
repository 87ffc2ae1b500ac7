// Arrays of either precision, and the front's functions for them.
#pragma once

#include <pybind11/numpy.h>

#include <type_traits>

#include "support/status.h"

namespace orvik::python {

template <class T>
using Array = pybind11::array_t<T, 0>;

// The front's function for an element type: FRONT(T, name)(arguments).
#define FRONT(T, name)                         \
  ([](auto... a) {                             \
    if constexpr (std::is_same_v<T, double>) { \
      return orvik_d_##name(a...);             \
    } else {                                   \
      return orvik_s_##name(a...);             \
    }                                          \
  })

}  // namespace orvik::python
