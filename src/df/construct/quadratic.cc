// The quadratic kind: type 0 walks from the value at the middle of interval 0, type 1 has knots of its own.
#include "df/construct/problem.h"
#include "df/construct/quadratic_knots.h"
#include "df/construct/solver.h"
#include "serv/memory.h"

namespace orvik::df {
namespace {

// q[i] is the value at the middle of interval i; continuity of the first derivative gives one from the one before.
template <class Real, bool kUniform>
void midpoint_spline(const Task& task, const Partition<Real, kUniform>& partition, int64_t function, Real* q) {
  const Values<Real> y(task, function);
  Real* c = task.coefficients<Real>(function);
  const int64_t intervals = task.nx - 1;
  q[0] = task.boundary_values<Real>()[0];
  for (int64_t k = 0; k + 1 < intervals; ++k) {
    const Real before = partition.h(k), next = partition.h(k + 1);
    const Real middle = 3 * y[k + 1];
    const Real sum = (y[k + 2] + middle) / next + (y[k] + middle) / before;
    q[k + 1] = std::fma(sum, Real(0.25) * next, -(q[k] * next / before));
  }
  for (int64_t i = 0; i < intervals; ++i) {
    const Real h = partition.h(i), half = Real(0.5) * h;
    const Real c2 = Real(0.5) * (y[i] - 2 * q[i] + y[i + 1]) / (half * half);
    c[3 * i] = y[i];
    c[3 * i + 1] = 2 * (q[i] - y[i] - c2 * (half * half)) / h;
    c[3 * i + 2] = c2;
  }
}

template <class Real, bool kUniform>
int32_t run_midpoint(const Task& task) {
  const Partition<Real, kUniform> partition(task);
  constexpr int64_t kOnStack = 4094;
  Real stack[kOnStack];
  serv::Block<Real> heap;
  Real* q = stack;
  if (task.nx > kOnStack) {
    heap = serv::Block<Real>(static_cast<uint64_t>(task.nx + 1));
    if (!heap) return DFS_NO_MEMORY;
    q = heap.get();
  }
  for (int64_t f = 0; f < task.ny; ++f) midpoint_spline(task, partition, f, q);
  return 0;
}

template <class Real, bool kUniform>
int32_t run_knots(const Task& task, Ends ends) {
  const Partition<Real, kUniform> partition(task);
  const Knots<Real, kUniform> knots(task, partition);
  if (!knots.ends_fit()) return DFS_BAD_INTERNAL_VALUES;
  const int64_t n = task.nx;
  const serv::Block<Real> scratch(static_cast<uint64_t>(4 * n + 1));
  if (!scratch) return DFS_NO_MEMORY;
  // Bit 2 of the type chooses the end whose slope is eliminated; both give the same spline.
  const bool from_right = (task.ic_type & 4) != 0;
  for (int64_t f = 0; f < task.ny; ++f) {
    Real* dl = scratch.get();
    Real* d = dl + n;
    Real* du = d + n;
    Real* s = du + n;  // n + 1 slopes, one of them eliminated
    const QuadraticSystem<Real, kUniform> system{
        knots, Values<Real>(task, f), n, left_end(ends), right_end(ends), task.boundary_values<Real>(), from_right};
    system.set_up(dl, d, du, s);
    if (solve_in_one_step(n, dl, d, du, system.unknowns(s)) != 0) return DFS_SOLVER_FAILED;
    system.restore_eliminated(s);
    system.store(s, task.coefficients<Real>(f));
  }
  return 0;
}

template <class Real>
int32_t construct_midpoint(const Task& task) {
  if (task.bc_type != DFB_MIDPOINT_VALUE) return DFS_BAD_BOUNDARY_TYPE;
  if (task.bc == nullptr) return DFS_BAD_BOUNDARY_VALUES;
  return task.uniform() ? run_midpoint<Real, true>(task) : run_midpoint<Real, false>(task);
}

template <class Real>
int32_t construct_knots(const Task& task) {
  if ((task.ic_type & 8) == 0) return DFS_BAD_INTERNAL_TYPE;
  Ends ends;
  const int32_t status = read_ends(task, false, &ends);
  if (status != 0) return status;
  // No equations exist for these two.
  if (ends == Ends::kNotAKnot || ends == Ends::kPeriodic) return DFS_BAD_BOUNDARY_TYPE;
  return task.uniform() ? run_knots<Real, true>(task, ends) : run_knots<Real, false>(task, ends);
}

template <class Real>
int32_t construct_quadratic(const Task* task) {
  if (task == nullptr) return DFS_NO_TASK;
  if (!storage_hint_ok(task->yhint)) return DFS_BAD_FUNCTION_HINT;
  switch (task->s_type) {
    case 0:
      return construct_midpoint<Real>(*task);
    case 1:
      return construct_knots<Real>(*task);
    default:
      return DFS_UNKNOWN_METHOD;
  }
}

}  // namespace
}  // namespace orvik::df

using namespace orvik::df;

extern "C" int32_t orvik_df_kernel_dDFQuadraticSpline1D(OrvikDFTask task, int64_t, int64_t, const OrvikDFServices*) {
  return construct_quadratic<double>(as_task(task));
}

extern "C" int32_t orvik_df_kernel_sDFQuadraticSpline1D(OrvikDFTask task, int64_t, int64_t, const OrvikDFServices*) {
  return construct_quadratic<float>(as_task(task));
}
