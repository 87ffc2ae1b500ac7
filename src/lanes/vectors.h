// Arithmetic, bits, masks and conversions of the lane types.
#pragma once

#if ORVIK_REGISTER_BITS == 512
#include "lanes/wide/vectors.h"
#else
#include "lanes/narrow/vectors.h"
#endif
