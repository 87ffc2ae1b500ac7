#include "df/construct/local.h"

using namespace orvik::df;

extern "C" int32_t orvik_df_kernel_dDFAkimaCubicSpline1D(OrvikDFTask task, int64_t, int64_t,
                                                         const OrvikDFServices* services) {
  return construct_local<Akima, double>(as_task(task), 5, true, services);
}

extern "C" int32_t orvik_df_kernel_sDFAkimaCubicSpline1D(OrvikDFTask task, int64_t, int64_t,
                                                         const OrvikDFServices* services) {
  return construct_local<Akima, float>(as_task(task), 5, true, services);
}
