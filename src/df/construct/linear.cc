// The polygon through the points: order 2.
#include <type_traits>

#include "df/construct/grid.h"
#include "df/construct/problem.h"
#include "df/services.h"
#include "lanes/columns.h"

namespace orvik::df {
namespace {

// The reciprocal length of interval k, or of several from there on.
template <class T, class Real, bool kUniform>
T inverse_length(const Partition<Real, kUniform>& partition, int64_t k) {
  if constexpr (kUniform) {
    return T(partition.inverse_step());
  } else {
    const Real* x = partition.given() + k;
    return T(Real(1)) / (load<T>(x + 1) - load<T>(x));
  }
}

template <class T, class Real>
void put_lines(T here, T next, T inverse, Real* c) {
  const T slope = (next - here) * inverse;
  if constexpr (std::is_same_v<T, Real>) {
    c[0] = here, c[1] = slope;
  } else {
    store_pairs(c, Pair<T>{here, slope});
  }
}

// Intervals begin .. end - 1 of functions first .. past - 1, a group at most, in columns: two at a time, an odd one
// last.
template <class Real, bool kUniform>
void lines_of_columns(const Task& task, const Partition<Real, kUniform>& given, int64_t first, int64_t past,
                      int64_t begin, int64_t end) {
  const Partition<Real, kUniform> partition = given;
  const Values<Real> values(task, first);
  const int64_t step = values.stride, even = (past - first) / 2 * 2;
  Real* c[Grid::kGroup];
  for (int64_t f = first; f < past; ++f) c[f - first] = task.coefficients<Real>(f);
  by_lanes<Real>(begin, end - 1, [&](int64_t k, auto zero) {
    using T = decltype(zero);
    const Real* y = values.first + k * step;
    const T inverse = inverse_length<T>(partition, k);
    if constexpr (std::is_same_v<T, Real>) {
      for (int64_t f = 0; f < even; ++f) put_lines(y[f], y[step + f], inverse, c[f] + 2 * k);
    } else {
      for (int64_t f = 0; f < even; f += 2) {
        T here[2], next[2];
        load_two_columns(y + f, step, here);
        load_two_columns(y + step + f, step, next);
        for (int64_t g = 0; g < 2; ++g) put_lines(here[g], next[g], inverse, c[f + g] + 2 * k);
      }
    }
  });
  if (first + even == past) return;
  for (int64_t k = begin; k < end; ++k) {
    const Real* y = values.first + k * step + even;
    put_lines(y[0], y[step], inverse_length<Real>(partition, k), c[even] + 2 * k);
  }
}

// The same of any form.
template <class Real, bool kUniform>
void linear_intervals(const Task& task, const Partition<Real, kUniform>& partition, int64_t first, int64_t past,
                      int64_t begin, int64_t end) {
  if (task.by_columns() && task.ny != 1) return lines_of_columns(task, partition, first, past, begin, end);
  for (int64_t f = first; f < past; ++f) {
    const Real* y = Values<Real>(task, f).first;
    Real* c = task.coefficients<Real>(f);
    by_lanes<Real>(begin, end - 1, [&, partition](int64_t k, auto zero) {
      using T = decltype(zero);
      put_lines(load<T>(y + k), load<T>(y + k + 1), inverse_length<T>(partition, k), c + 2 * k);
    });
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
