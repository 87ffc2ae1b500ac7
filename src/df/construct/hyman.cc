#include "df/construct/local.h"

using namespace orvik::df;

extern "C" int32_t orvik_df_kernel_dDFHymanCubicSpline1D(OrvikDFTask task, int64_t, int64_t,
                                                         const OrvikDFServices* services) {
  return construct_local<Hyman, double>(as_task(task), 4, false, services);
}

extern "C" int32_t orvik_df_kernel_sDFHymanCubicSpline1D(OrvikDFTask task, int64_t, int64_t,
                                                         const OrvikDFServices* services) {
  return construct_local<Hyman, float>(as_task(task), 4, false, services);
}
