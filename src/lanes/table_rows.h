// Rows of tables by lanes, of either width: indices, rows as columns, columns as rows.
#pragma once

#include "lanes/native.h"
#if ORVIK_REGISTER_BITS == 512
#include "lanes/wide/indices.h"
#include "lanes/wide/rows.h"
#else
#include "lanes/indices.h"
#include "lanes/rows.h"
#include "lanes/transpose.h"
#endif
