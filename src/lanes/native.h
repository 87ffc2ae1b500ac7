// The lane type of one register for an element type.
#pragma once

#include "lanes/types.h"

namespace orvik {

template <class E>
struct NativeLanes;
template <>
struct NativeLanes<float> {
  using Type = F32;
};
template <>
struct NativeLanes<double> {
  using Type = F64;
};
template <class E>
using Native = typename NativeLanes<E>::Type;

}  // namespace orvik
