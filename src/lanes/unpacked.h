// Vectors of 32-bit lanes as two of 64-bit lanes without conversions: unpacking two of them gives doubles word by word,
// in an order that differs from that of widen_low() and widen_high() and costs less.
#pragma once

#if ORVIK_REGISTER_BITS == 512
#include "lanes/wide/unpacked.h"
#else
#include "lanes/narrow/unpacked.h"
#endif
