// Whether the processor has what the kernels need: the first thing that every call asks.
#pragma once

#include "orvik/version.h"

namespace orvik::front {

inline bool cpu_serves() { return orvik_cpu_supported() != 0; }

}  // namespace orvik::front
