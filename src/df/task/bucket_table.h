// The table of buckets that brings a search near its cell in one step.
//
// B buckets of equal width lie over [x[0], x[nx-1]]; bucket b holds the t with trunc((t - x[0]) * scale) = b. Entry
// pair (2b, 2b + 1) brackets it: the last breakpoint before the bucket and the first one behind it.
#ifndef ORVIK_DF_TASK_BUCKET_TABLE_H
#define ORVIK_DF_TASK_BUCKET_TABLE_H

#include "df/task/task.h"

namespace orvik::df {

// Frees the task's table if there is one and builds it from its nx and x.
template <class Real>
int32_t build_bucket_table(Task* task);

}  // namespace orvik::df

#endif
