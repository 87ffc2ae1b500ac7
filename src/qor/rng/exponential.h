// Exponential, for distributions that are built on it.
#pragma once

#include <cstdint>

#include "orvik/qor.h"

namespace orvik::qor {

template <class T>
int32_t exponential(uint32_t method, OrvikStream stream, int32_t n, T* r, T a, T beta);

}  // namespace orvik::qor
