// The natural cubic kind: one tridiagonal system for all first derivatives.
#include "df/construct/coefficients.h"
#include "df/construct/grid.h"
#include "df/construct/natural_lanes.h"
#include "df/construct/natural_system.h"
#include "df/construct/rows.h"
#include "df/services.h"
#include "serv/memory.h"

namespace orvik::df {
namespace {

// The coefficients of one function, whose values are y, from its derivatives d.
template <class Real, bool kUniform>
void put_from_derivatives(const NaturalSystem<Real, kUniform>& system, const Real* y, const Real* d, Real* out) {
  Workspace<Real> room;
  for (int64_t at = 0; at < system.nx - 1; at += kChunkIntervals) {
    const int64_t intervals = std::min(kChunkIntervals, system.nx - 1 - at);
    const Chunk<Real, kUniform> chunk(system.partition, at, intervals + 1, y + at, room);
    by_lanes<Real>(0, intervals - 1,
                   [&](int64_t k, auto zero) { chunk.template form_slope<false, decltype(zero)>(k); });
    by_lanes<Real>(0, intervals - 1, [&](int64_t k, auto zero) {
      put_cubic<CubicForm::kNatural, decltype(zero)>(chunk, k, d + at, out + 4 * (at + k));
    });
  }
}

template <class Real, bool kUniform>
int32_t few_breakpoints(const NaturalSystem<Real, kUniform>& system) {
  for (int64_t f = 0; f < system.task.ny; ++f) {
    const Values<Real> values(system.task, f);
    Real y[3], d[3];
    for (int64_t i = 0; i < system.nx; ++i) y[i] = values[i];
    solve_few(system, values, d);
    put_from_derivatives(system, y, d, system.task.template coefficients<Real>(f));
  }
  return 0;
}

// The functions may go to threads when each is long enough to be worth one.
int64_t threads_for(const Task& task, const Services& services) {
  const int64_t threads = std::min(services.max_threads(), task.ny);
  const bool parallel = task.ny >= 2 && threads != 1 && task.nx >= 300 && (task.nx >= 600 || threads >= 8);
  return parallel ? threads : 1;
}

// What the missing corners of the cyclic matrix take from each periodic solution w: a vector times w[0] + w[n - 1].
template <class Real>
struct Correction {
  Real* z;  // one for each unknown
  Real weight;

  // From the factored matrix. The backward substitution of the first function's w goes beside that of z.
  template <bool kUniform>
  void find(const NaturalSystem<Real, kUniform>& system, const Real* upper, const Real* reciprocals, Real* w) {
    const int64_t n = system.unknowns();
    Real here = z[0] = system.first_corner() * reciprocals[0];
    int64_t i = 1;
    for (; i < n - 1 && here != 0; ++i) z[i] = here = std::fma(-system.lower(i), here, Real(0)) * reciprocals[i];
    for (; i < n - 1; ++i) z[i] = here = 0 * reciprocals[i];  // what has underflown needs no row before it
    z[i] = here = std::fma(-system.lower(i), here, system.last_corner()) * reciprocals[i];
    Real w_here = w[i];
    while (i-- > 0) {
      z[i] = here = std::fma(-upper[i], here, z[i]);
      w[i] = w_here = std::fma(-upper[i], w_here, w[i]);
    }
    weight = 1 / (1 + z[0] + z[n - 1]);
  }

  // Makes the derivatives at all breakpoints of w.
  void apply(int64_t n, Real* w) const {
    const Real share = (w[0] + w[n - 1]) * weight;
    by_lanes<Real>(0, n - 1, [&](int64_t i, auto zero) {
      using T = decltype(zero);
      store(w + i, load<T>(w + i) - load<T>(z + i) * T(share));
    });
    w[n] = w[0];
  }
};

template <class Real, bool kUniform>
int32_t run_natural(const Task& task, Ends ends, const Services& services) {
  const NaturalSystem<Real, kUniform> system(task, ends);
  if (task.nx < 4) return few_breakpoints(system);

  const int64_t threads = threads_for(task, services);
  // The calling thread copies a few columns at a time: they share cache lines.
  const int64_t rows = !Rows<Real>::copied(task) ? 0 : threads == 1 ? Grid::kGroup : 1;
  // On threads each function factors for itself, at the same time as the others; but a periodic one finds the
  // correction made, and its matrix factored.
  const bool alone = threads > 1 && !system.periodic();
  // The factored matrix and the correction's vector; of each thread a right side, the matrix, rows.
  const int64_t length = task.nx + 16, shared = (system.periodic() ? 3 : 2) * length;
  const int64_t own = (alone ? 2 + rows : 1 + rows) * length;
  const serv::Block<Real> scratch(static_cast<uint64_t>(shared + own * threads));
  if (!scratch) return DFS_NO_MEMORY;
  Real* upper = scratch.get();
  Real* reciprocals = upper + length;
  Correction<Real> correction{reciprocals + length, 0};
  const auto right_side_of = [&](int64_t thread) { return scratch.get() + shared + own * thread; };

  // Functions first .. past - 1, of which number 0 comes before all others unless the matrix is factored.
  const auto solve = [&](int64_t first, int64_t past, int64_t thread, bool factored) -> int32_t {
    Real* w = right_side_of(thread);
    const Rows<Real> values(task, first, past, 0, task.nx, w + own - rows * length, length);
    for (int64_t f = first; f < past; ++f) {
      Real* out = task.coefficients<Real>(f);
      NaturalLanes lanes(system, values[f], alone ? w + length : upper, reciprocals, w);
      const bool factors = !factored && (alone || f == 0);
      if (!factors) {
        lanes.reduce();
      } else if (!lanes.factor(!alone && (task.ny > 1 || system.periodic()))) {
        return DFS_SOLVER_FAILED;
      }
      if (system.periodic()) {
        if (factors) {
          correction.find(system, upper, reciprocals, w);
        } else {
          lanes.solve();
        }
        correction.apply(system.unknowns(), w);
        put_from_derivatives(system, values[f], w, out);
      } else {
        lanes.put_coefficients(out);
      }
    }
    return 0;
  };
  if (threads == 1) {
    for (int64_t f = 0; f < task.ny; f += Grid::kGroup) {
      const int32_t status = solve(f, std::min(f + Grid::kGroup, task.ny), 0, false);
      if (status != 0) return status;
    }
    return 0;
  }
  if (system.periodic()) {
    Real* w = right_side_of(0);
    const Rows<Real> values(task, 0, 1, 0, task.nx, w + length, length);
    if (!NaturalLanes(system, values[0], upper, reciprocals, w).factor(true)) return DFS_SOLVER_FAILED;
    correction.find(system, upper, reciprocals, w);
  }
  auto body = [&](int64_t f, int64_t thread) { return solve(f, f + 1, thread, system.periodic()); };
  return services.run(task.ny, threads, body);
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
