#include "df/construct/local.h"

using namespace orvik::df;

extern "C" int32_t orvik_df_kernel_dDFHermiteCubicSpline1D(OrvikDFTask task, int64_t, int64_t,
                                                           const OrvikDFServices* services) {
  return construct_local<Hermite, double>(as_task(task), 3, false, services);
}

extern "C" int32_t orvik_df_kernel_sDFHermiteCubicSpline1D(OrvikDFTask task, int64_t, int64_t,
                                                           const OrvikDFServices* services) {
  return construct_local<Hermite, float>(as_task(task), 3, false, services);
}
