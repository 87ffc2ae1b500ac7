// Orthogonalized pairwise estimate of location and covariance (Gnanadesikan and Kettenring 1972; Maronna and Zamar
// 2002), the start of the robust covariance: medians, and deviations in units of the median absolute deviation.
#pragma once

#include "qor/ss/observations.h"
#include "qor/ss/threads.h"

namespace orvik::ss {

// `mean`: p; `matrix`: p by p, both triangles. kSingular where a variable, or a direction, has no spread.
template <class T>
int32_t robust_start(const Observations<T>& o, const OrvikThreading* threading, T* mean, T* matrix);

}  // namespace orvik::ss
