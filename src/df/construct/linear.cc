// The polygon through the points: order 2.
#include "df/construct/grid.h"
#include "df/construct/problem.h"
#include "df/services.h"

namespace orvik::df {
namespace {

template <class Real, bool kUniform>
void linear_intervals(const Task& task, const Partition<Real, kUniform>& partition, int64_t function, int64_t begin,
                      int64_t end) {
  const Values<Real> y(task, function);
  Real* c = task.coefficients<Real>(function);
  for (int64_t i = begin; i < end; ++i) {
    c[2 * i] = y[i];
    c[2 * i + 1] = slope(y[i], y[i + 1], partition.inverse_h(i));
  }
}

template <class Real, bool kUniform>
int32_t run_linear(const Task& task, const Services& services) {
  const Partition<Real, kUniform> partition(task);
  const int64_t intervals = task.nx - 1;
  const int64_t threads = services.max_threads();
  if (intervals <= 127 || threads == 1) {
    for (int64_t f = 0; f < task.ny; ++f) linear_intervals(task, partition, f, 0, intervals);
    return 0;
  }
  const Grid grid(0, intervals, 1024, intervals, task.ny);
  return run_grid(
      services, grid, std::min(threads, grid.tasks()), task.ny,
      [&](int64_t f, int64_t begin, int64_t end, int64_t) { linear_intervals(task, partition, f, begin, end); });
}

template <class Real>
int32_t construct_linear(const Task* task, int64_t method, const OrvikDFServices* services) {
  if (task == nullptr) return DFS_NO_TASK;
  if (method != 0) return DFS_UNKNOWN_METHOD;
  if (task->nx < 2) return DFS_BAD_BREAKPOINT_COUNT;
  if (!storage_hint_ok(task->yhint)) return DFS_BAD_FUNCTION_HINT;
  // The only boundary type that means anything here.
  if (task->bc_type == DFB_PERIODIC && !all_periodic<Real>(*task)) return DFS_NOT_PERIODIC;
  const Services threads(services);
  return task->uniform() ? run_linear<Real, true>(*task, threads) : run_linear<Real, false>(*task, threads);
}

}  // namespace
}  // namespace orvik::df

using namespace orvik::df;

extern "C" int32_t orvik_df_kernel_dDFLinearSpline1D(OrvikDFTask task, int64_t, int64_t method,
                                                     const OrvikDFServices* services) {
  return construct_linear<double>(as_task(task), method, services);
}

extern "C" int32_t orvik_df_kernel_sDFLinearSpline1D(OrvikDFTask task, int64_t, int64_t method,
                                                     const OrvikDFServices* services) {
  return construct_linear<float>(as_task(task), method, services);
}
