// The natural cubic kind: one tridiagonal system for all first derivatives.
#include "df/construct/coefficients.h"
#include "df/construct/natural_lanes.h"
#include "df/construct/natural_system.h"
#include "df/construct/solver.h"
#include "df/services.h"
#include "serv/memory.h"

namespace orvik::df {
namespace {

template <class Real, bool kUniform>
void store_function(const NaturalSystem<Real, kUniform>& system, int64_t function, const Real* d) {
  const Values<Real> y(system.task, function);
  Real* out = system.task.template coefficients<Real>(function);
  Workspace<Real> room;
  for (int64_t at = 0; at < system.nx - 1; at += kChunkIntervals) {
    const int64_t stop = std::min(at + kChunkIntervals, system.nx - 1);
    const Chunk<Real, kUniform> chunk(system.partition, y, system.nx, at, stop, 0, room);
    by_lanes<Real>(0, stop - at - 1,
                   [&](int64_t k, auto zero) { chunk.template form_slope<false, decltype(zero)>(k); });
    by_lanes<Real>(0, stop - at - 1, [&](int64_t k, auto zero) {
      put_cubic<CubicForm::kNatural, decltype(zero)>(chunk, k, d + at, out + 4 * (at + k));
    });
  }
}

template <class Real, bool kUniform>
int32_t few_breakpoints(const NaturalSystem<Real, kUniform>& system) {
  for (int64_t f = 0; f < system.task.ny; ++f) {
    Real d[3];
    solve_few(system, Values<Real>(system.task, f), d);
    store_function(system, f, d);
  }
  return 0;
}

// The functions may go to threads when each is long enough to be worth one.
int64_t threads_for(const Task& task, const Services& services) {
  const int64_t threads = std::min(services.max_threads(), task.ny);
  const bool parallel = task.ny >= 2 && threads != 1 && task.nx >= 300 && (task.nx >= 600 || threads >= 8);
  return parallel ? threads : 1;
}

// Long functions: the bits of the plain solver, several times as fast, though each function factors anew. A column is
// copied to a row first.
template <class Real, bool kUniform>
int32_t run_long(const NaturalSystem<Real, kUniform>& system, const Services& services) {
  const Task& task = system.task;
  const int64_t threads = threads_for(task, services);
  const int64_t length = system.nx + 16;
  const serv::Block<Real> scratch(static_cast<uint64_t>(3 * length * threads));
  if (!scratch) return DFS_NO_MEMORY;
  auto body = [&](int64_t function, int64_t thread) -> int32_t {
    Real* upper = scratch.get() + 3 * length * thread;
    const Values<Real> values(task, function);
    const Real* y = values.first;
    if (values.stride != 1) {
      Real* row = upper + 2 * length;
      for (int64_t i = 0; i < system.nx; ++i) row[i] = values[i];
      y = row;
    }
    return NaturalLanes(system, function, y, upper, upper + length).run() ? 0 : DFS_SOLVER_FAILED;
  };
  return threads == 1 ? Services(nullptr).run(task.ny, 1, body) : services.run(task.ny, threads, body);
}

template <class Real, bool kUniform>
int32_t run_natural(const Task& task, Ends ends, const Services& services) {
  const NaturalSystem<Real, kUniform> system(task, ends);
  if (task.nx < 4) return few_breakpoints(system);

  if (!system.periodic() && task.nx >= kLongNatural) return run_long(system, services);

  const int64_t n = system.unknowns();
  const int64_t threads = threads_for(task, services);
  // Three diagonals, the correction's vector, one right side (and one element more) for each thread.
  const int64_t length = task.nx + 16;
  const serv::Block<Real> scratch(static_cast<uint64_t>(length * (4 + threads)));
  if (!scratch) return DFS_NO_MEMORY;
  Real* dl = scratch.get();
  Real* d = dl + length;
  Real* du = d + length;
  Real* z = du + length;
  Real* right_sides = z + length;
  system.matrix(dl, d, du);

  if (task.ny == 1 && !system.periodic()) {
    system.right_side(Values<Real>(task, 0), right_sides);
    if (solve_in_one_step(n, dl, d, du, right_sides) != 0) return DFS_SOLVER_FAILED;
    store_function(system, 0, right_sides);
    return 0;
  }
  if (factor_matrix(n, dl, d, du) != 0) return DFS_SOLVER_FAILED;
  Real weight = 0;
  if (system.periodic()) {
    std::fill(z, z + n, Real(0));
    z[0] = system.first_corner();
    z[n - 1] = system.last_corner();
    if (solve_factored(n, dl, d, du, z) != 0) return DFS_SOLVER_FAILED;
    weight = 1 / (1 + z[0] + z[n - 1]);
  }
  auto body = [&](int64_t function, int64_t thread) -> int32_t {
    Real* w = right_sides + thread * length;
    system.right_side(Values<Real>(task, function), w);
    if (solve_factored(n, dl, d, du, w) != 0) return DFS_SOLVER_FAILED;
    if (system.periodic()) {
      const Real share = (w[0] + w[n - 1]) * weight;
      for (int64_t i = 0; i < n; ++i) w[i] -= z[i] * share;
      w[n] = w[0];
    }
    store_function(system, function, w);
    return 0;
  };
  return threads == 1 ? Services(nullptr).run(task.ny, 1, body) : services.run(task.ny, threads, body);
}

template <class Real>
int32_t construct_natural(const Task* task, int64_t method, const OrvikDFServices* services) {
  if (task == nullptr) return DFS_NO_TASK;
  if (method != 0) return DFS_UNKNOWN_METHOD;
  if (task->nx < 2 || (task->nx == 2 && task->bc_type == DFB_NOT_A_KNOT)) return DFS_BAD_BREAKPOINT_COUNT;
  if (!storage_hint_ok(task->yhint)) return DFS_BAD_FUNCTION_HINT;
  Ends ends;
  const int32_t status = read_ends(*task, false, &ends);
  if (status != 0) return status;
  if (ends == Ends::kPeriodic && !all_periodic<Real>(*task)) return DFS_NOT_PERIODIC;
  const Services threads(services);
  return task->uniform() ? run_natural<Real, true>(*task, ends, threads)
                         : run_natural<Real, false>(*task, ends, threads);
}

}  // namespace
}  // namespace orvik::df

using namespace orvik::df;

extern "C" int32_t orvik_df_kernel_dDFNaturalCubicSpline1D(OrvikDFTask task, int64_t, int64_t method,
                                                           const OrvikDFServices* services) {
  return construct_natural<double>(as_task(task), method, services);
}

extern "C" int32_t orvik_df_kernel_sDFNaturalCubicSpline1D(OrvikDFTask task, int64_t, int64_t method,
                                                           const OrvikDFServices* services) {
  return construct_natural<float>(as_task(task), method, services);
}
