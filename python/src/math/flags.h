// The exception flags that NumPy reads after a loop.
#pragma once

#include <cstdint>

#include "math/loops.h"

namespace orvik::python {

// Calls the loop's function for arrays that it takes as they are. What its elements raise, by the kernels' flags and by
// their reports, stands in the flags of this thread afterwards, whichever threads computed them.
orvik_status call_with_flags(const Loop& loop, int64_t n, char* const* at, const int64_t* increments,
                             const void* parameters);

}  // namespace orvik::python
