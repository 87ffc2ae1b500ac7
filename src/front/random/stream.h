// The kernels' stream behind a handle.
#pragma once

#include "front/handles.h"
#include "orvik/front.h"

namespace orvik::front {

inline OrvikStream stream_of(const orvik_stream* s) { return object_of<void>(s, Kind::kStream); }

}  // namespace orvik::front
