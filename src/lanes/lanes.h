// The vector layer: lane types, masked memory, tables, rounding, head-and-tail arithmetic, polynomials, each for any
// lane type and for one element.
#pragma once

#include "lanes/generic.h"
#include "lanes/head_tail.h"
#include "lanes/memory.h"
#include "lanes/round.h"
#include "lanes/scalar.h"
#include "lanes/tables.h"
#include "lanes/types.h"
#include "lanes/vectors.h"
#if ORVIK_REGISTER_BITS != 512  // what no vector function is written over
#include "lanes/indices.h"
#include "lanes/native.h"
#include "lanes/rows.h"
#include "lanes/strided.h"
#include "lanes/transpose.h"
#endif
