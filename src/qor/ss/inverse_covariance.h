// Whether a covariance matrix has full rank, and its inverse. Matrices are p by p with both triangles; the work is done
// in double for either precision.
#pragma once

#include <cstdint>

#include "qor/ss/status.h"

namespace orvik::ss {

// kDone, or kSingular where the rank is not full. The variables are scaled to unit variance first, so that their units
// do not matter; eigenvalues up to 16 p epsilon of T are zero. `matrix` is left as it is.
template <class T>
int32_t check_rank(int64_t p, const T* matrix);

// In place, both triangles. kSingular leaves the matrix without meaning.
template <class T>
int32_t invert_covariance(int64_t p, T* matrix);

}  // namespace orvik::ss
