// The frame of the local cubic kinds: storage, partition, ends, chunks, threads and statuses around a rule.
#ifndef ORVIK_DF_CONSTRUCT_LOCAL_H
#define ORVIK_DF_CONSTRUCT_LOCAL_H

#include "df/construct/coefficients.h"
#include "df/construct/ends.h"
#include "df/construct/grid.h"
#include "df/services.h"
#include "serv/memory.h"

namespace orvik::df {

// Coefficients of the intervals begin .. end - 1 of one function.
template <class Rule, class Real, bool kUniform>
void local_intervals(const Task& task, Ends ends, const Partition<Real, kUniform>& partition, int64_t function,
                     int64_t begin, int64_t end, Workspace<Real>& room) {
  const int64_t nx = task.nx;
  const Values<Real> values(task, function);
  const Outline<Real, kUniform> outline{partition, values, nx, task.boundary_values<Real>()};
  Real* out = task.coefficients<Real>(function);
  for (int64_t at = begin; at < end; at += kChunkIntervals) {
    const int64_t stop = std::min(at + kChunkIntervals, end);
    const Chunk<Real, kUniform> chunk(partition, values, nx, at, stop, Rule::kHalo, room);
    Real* d = room.d;
    Rule::interior(task, chunk, std::max<int64_t>(at, 1) - chunk.base, std::min(stop, nx - 2) - chunk.base, d);
    if (at == 0) d[0] = left_derivative<Rule>(outline, ends, d[1]);
    if (stop == nx - 1) {
      const int64_t k = nx - 1 - chunk.base;
      // A lone last interval begins where the chunk does; its left derivative is there.
      d[k] = right_derivative<Rule>(outline, ends, d[k - 1]);
    }
    const int64_t from = at - chunk.base;
    store_cubic<CubicForm::kLocal>(chunk, from, stop - at, d + from, out + 4 * at);
  }
}

template <class Rule, class Real, bool kUniform>
int32_t run_local(const Task& task, Ends ends, const Services& services) {
  const Partition<Real, kUniform> partition(task);
  if (std::max<int64_t>(task.ny, 1) * task.nx < 512) {
    Workspace<Real> room;
    for (int64_t f = 0; f < task.ny; ++f) {
      local_intervals<Rule>(task, ends, partition, f, 0, task.nx - 1, room);
    }
    return 0;
  }
  const Grid grid(Rule::kFirst, task.nx - 1 - Rule::kFirst, 2048, task.nx - 1, task.ny);
  const int64_t threads = std::min(services.max_threads(), grid.tasks());
  const serv::Block<Workspace<Real>> rooms(static_cast<uint64_t>(threads));
  if (!rooms) return DFS_NO_MEMORY;
  auto body = [&](int64_t index, int64_t thread) {
    const Grid::Part part = grid.part(index, task.ny);
    for (int64_t f = part.function; f < part.function_end; ++f) {
      local_intervals<Rule>(task, ends, partition, f, part.begin, part.end, rooms[static_cast<uint64_t>(thread)]);
    }
    return 0;
  };
  return services.run(grid.tasks(), threads, body);
}

template <class Rule, class Real>
int32_t construct_local(const Task* task, int64_t least_breakpoints, bool none_accepted,
                        const OrvikDFServices* services) {
  if (task == nullptr) return DFS_NO_TASK;
  if (task->nx < least_breakpoints) return DFS_BAD_BREAKPOINT_COUNT;
  if (!storage_hint_ok(task->yhint)) return DFS_BAD_FUNCTION_HINT;
  Ends ends;
  const int32_t status = read_ends(*task, none_accepted, &ends);
  if (status != 0) return status;
  if (ends == Ends::kPeriodic && !all_periodic<Real>(*task)) return DFS_NOT_PERIODIC;
  const Services threads(services);
  return task->uniform() ? run_local<Rule, Real, true>(*task, ends, threads)
                         : run_local<Rule, Real, false>(*task, ends, threads);
}

}  // namespace orvik::df

#endif
