// The vector layer: lane types, masked memory, tables, rounding, head-and-tail arithmetic, polynomials, each for any
// lane type and for one element.
#pragma once

#include "lanes/generic.h"
#include "lanes/head_tail.h"
#include "lanes/indices.h"
#include "lanes/memory.h"
#include "lanes/native.h"
#include "lanes/round.h"
#include "lanes/rows.h"
#include "lanes/scalar.h"
#include "lanes/strided.h"
#include "lanes/tables.h"
#include "lanes/transpose.h"
#include "lanes/types.h"
#include "lanes/vectors.h"
