// Loads, stores and masks of the first lanes, of either width.
#pragma once

#include "lanes/memory.h"
#if ORVIK_REGISTER_BITS == 512
#include "lanes/wide/first_lanes.h"
#endif
