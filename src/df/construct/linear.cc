// The polygon through the points: order 2.
#include <type_traits>

#include "df/construct/grid.h"
#include "df/construct/problem.h"
#include "df/construct/rows.h"
#include "df/services.h"

namespace orvik::df {
namespace {

// `count` intervals from number `at` on, where the values are y and the coefficients c.
template <class Real, bool kUniform>
void put_lines(const Partition<Real, kUniform>& partition, int64_t at, int64_t count, const Real* y, Real* c) {
  const Real* x = kUniform ? nullptr : partition.given() + at;
  const Real even = partition.inverse_step();
  by_lanes<Real>(0, count - 1, [=](int64_t k, auto zero) {
    using T = decltype(zero);
    T inverse(even);
    if constexpr (!kUniform) inverse = T(Real(1)) / (load<T>(x + k + 1) - load<T>(x + k));
    const T here = load<T>(y + k), slope = (load<T>(y + k + 1) - here) * inverse;
    if constexpr (std::is_same_v<T, Real>) {
      c[2 * k] = here, c[2 * k + 1] = slope;
    } else {
      store_pairs(c + 2 * k, Pair<T>{here, slope});
    }
  });
}

template <class Real, bool kUniform>
[[gnu::noinline]] void lines_of_columns(const Task& task, const Partition<Real, kUniform>& partition, int64_t first,
                                        int64_t past, int64_t begin, int64_t end) {
  constexpr int64_t kStretch = 512, kLength = kStretch + 16;
  Real room[Grid::kGroup][kLength];
  for (int64_t at = begin; at < end; at += kStretch) {
    const int64_t count = std::min(kStretch, end - at);
    const Rows<Real> rows(task, first, past, at, count + 1, room[0], kLength);
    for (int64_t f = first; f < past; ++f) {
      put_lines(partition, at, count, rows[f], task.coefficients<Real>(f) + 2 * at);
    }
  }
}

// Intervals begin .. end - 1 of functions first .. past - 1.
template <class Real, bool kUniform>
void linear_intervals(const Task& task, const Partition<Real, kUniform>& partition, int64_t first, int64_t past,
                      int64_t begin, int64_t end) {
  if (Rows<Real>::copied(task)) return lines_of_columns(task, partition, first, past, begin, end);
  for (int64_t f = first; f < past; ++f) {
    put_lines(partition, begin, end - begin, Values<Real>(task, f).first + begin,
              task.coefficients<Real>(f) + 2 * begin);
  }
}

template <class Real, bool kUniform>
int32_t run_linear(const Task& task, const Services& services) {
  const Partition<Real, kUniform> partition(task);
  const int64_t intervals = task.nx - 1;
  const int64_t threads = services.max_threads();
  if (intervals <= 127 || threads == 1) {
    by_groups(task.ny,
              [&](int64_t first, int64_t past) { linear_intervals(task, partition, first, past, 0, intervals); });
    return 0;
  }
  const Grid grid(0, intervals, 1024, intervals, task.ny);
  return run_grid(services, grid, std::min(threads, grid.tasks()), task.ny,
                  [&](int64_t first, int64_t past, int64_t begin, int64_t end, int64_t) {
                    linear_intervals(task, partition, first, past, begin, end);
                  });
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
