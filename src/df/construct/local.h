// The frame of the local cubic kinds: storage, partition, ends, chunks, threads and statuses around a rule.
#ifndef ORVIK_DF_CONSTRUCT_LOCAL_H
#define ORVIK_DF_CONSTRUCT_LOCAL_H

#include "df/construct/coefficients.h"
#include "df/construct/ends.h"
#include "df/construct/grid.h"
#include "df/services.h"
#include "serv/memory.h"

namespace orvik::df {

// Vectors of slopes from a on, of derivatives from b on, of coefficients from c on. A function of its own, for the
// registers' sake.
template <class Rule, class Real, bool kUniform>
[[gnu::noinline]] void advance(const Chunk<Real, kUniform>& given, int64_t turns, int64_t a, int64_t b, int64_t c,
                               Real* out) {
  using V = Lanes<Real>;
  const Chunk<Real, kUniform> chunk = given;
  Real* d = chunk.room->d;
  for (; turns > 0; --turns, a += kWidth<V>, b += kWidth<V>, c += kWidth<V>) {
    chunk.template form_slope<Rule::kLengths, V>(a);
    store(d + b, Rule::template derivative<V>(chunk, b));
    put_cubic<CubicForm::kLocal, V>(chunk, c, d, out + 4 * c);
  }
}

// Coefficients of the intervals at .. stop - 1 of one function.
//
// Slopes, derivatives and coefficients advance together, each some vectors behind the one before: so the divisions of
// two of them run beside the stores of the third, and nothing is read back just after it was written.
template <class Rule, class Real, bool kUniform>
void local_intervals(const Outline<Real, kUniform>& outline, Ends ends, int64_t at, int64_t stop,
                     const Chunk<Real, kUniform>& chunk, Real* all) {
  using V = Lanes<Real>;
  constexpr int64_t kBehind = 6 * kWidth<V>;
  const int64_t nx = outline.nx;
  Real* d = chunk.room->d;
  const int64_t base = chunk.base;
  Real* out = all + 4 * base;
  const auto form_slope = [&](int64_t k, auto zero) { chunk.template form_slope<Rule::kLengths, decltype(zero)>(k); };
  const auto derive = [&](int64_t k, auto zero) { store(d + k, Rule::template derivative<decltype(zero)>(chunk, k)); };
  const auto put_coefficients = [&](int64_t k, auto zero) {
    put_cubic<CubicForm::kLocal, decltype(zero)>(chunk, k, d, out + 4 * k);
  };

  const int64_t slopes = chunk.points - 1;
  const int64_t first = std::max(at, Rule::kFirst) - base, past = std::min(stop, nx - 1 - Rule::kFirst) - base + 1;
  int64_t a = std::min((first + 2 * kBehind) & -kWidth<V>, slopes), b = std::min((first + kBehind) & -kWidth<V>, past);
  int64_t c = at - base;
  const int64_t c_end = stop - base;
  by_lanes<Real>(0, a - 1, form_slope);
  by_lanes<Real>(first, b - 1, derive);
  if (at == 0) {
    if constexpr (Rule::kFirst == 2) d[1] = Rule::beside_left(chunk);
    d[0] = left_derivative<Rule>(outline, ends, d[1]);
  }
  const int64_t turns = std::min(std::min(slopes - a, past - b), c_end - c) / kWidth<V>;
  advance<Rule>(chunk, turns, a, b, c, out);
  if (turns > 0) a += turns * kWidth<V>, b += turns * kWidth<V>, c += turns * kWidth<V>;
  by_lanes<Real>(a, slopes - 1, form_slope);
  by_lanes<Real>(b, past - 1, derive);
  const int64_t last = nx - 1 - base;
  if constexpr (Rule::kFirst == 2) {
    if (stop >= nx - 2) d[last - 1] = Rule::beside_right(chunk);
  }
  if (stop == nx - 1) d[last] = right_derivative<Rule>(outline, ends, d[last - 1]);
  by_lanes<Real>(c, c_end - 1, put_coefficients);
}

// The polynomial of interval k of a chunk, or of several from there on, from the derivatives at its ends.
template <class T, class Real, bool kUniform>
void put_interval(const Chunk<Real, kUniform>& c, int64_t k, T d0, T d1, Real* out) {
  T inverse(c.partition.inverse_step());
  if constexpr (!kUniform) inverse = T(Real(1)) / (load<T>(c.x + k + 1) - load<T>(c.x + k));
  const T y0 = load<T>(c.y + k);
  T c2, c3;
  cubic_terms<CubicForm::kLocal>((load<T>(c.y + k + 1) - y0) * inverse, inverse, d0, d1, &c2, &c3);
  store_rows(out, y0, d0, c2, c3);
}

// The same where the caller gives the derivatives: nothing need be kept between slopes, derivatives and coefficients.
template <class Rule, class Real, bool kUniform>
void given_intervals(const Outline<Real, kUniform>& outline, Ends ends, int64_t at, int64_t stop,
                     const Chunk<Real, kUniform>& chunk, const Real* d, Real* out) {
  const int64_t nx = outline.nx;
  by_lanes<Real>(std::max<int64_t>(at, 1), std::min(stop, nx - 2) - 1, [&, chunk](int64_t k, auto zero) {
    using T = decltype(zero);
    put_interval<T>(chunk, k - at, load<T>(d + k), load<T>(d + k + 1), out + 4 * k);
  });
  if (at == 0) put_interval(chunk, 0, left_derivative<Rule>(outline, ends, d[1]), d[1], out);
  if (stop == nx - 1) {
    const Real last = d[nx - 2];
    put_interval(chunk, nx - 2 - at, last, right_derivative<Rule>(outline, ends, last), out + 4 * (nx - 2));
  }
}

// The intervals begin .. end - 1 of functions first .. past - 1, by what the rule looks at.
template <class Rule, class Real, bool kUniform>
void construct_intervals(const Task& task, Ends ends, const Partition<Real, kUniform>& partition, int64_t first,
                         int64_t past, int64_t begin, int64_t end, Workspace<Real>& room) {
  by_chunks(
      task, partition, first, past, begin, end, Rule::kHalo, room,
      [&](int64_t f, int64_t at, int64_t stop, const Chunk<Real, kUniform>& chunk) {
        const Outline<Real, kUniform> outline{partition, Values<Real>(task, f), task.nx, task.boundary_values<Real>()};
        Real* out = task.coefficients<Real>(f);
        if constexpr (Rule::kGiven) {
          // d[k] at breakpoint k, but for the first and the last
          given_intervals<Rule>(outline, ends, at, stop, chunk, task.internal_values<Real>() - 1, out);
        } else {
          local_intervals<Rule>(outline, ends, at, stop, chunk, out);
        }
      });
}

template <class Rule, class Real, bool kUniform>
int32_t run_local(const Task& task, Ends ends, const Services& services) {
  const Partition<Real, kUniform> partition(task);
  if (std::max<int64_t>(task.ny, 1) * task.nx < 512) {
    Workspace<Real> room;
    by_groups(task.ny, [&](int64_t first, int64_t past) {
      construct_intervals<Rule>(task, ends, partition, first, past, 0, task.nx - 1, room);
    });
    return 0;
  }
  const Grid grid(Rule::kFirst, task.nx - 1 - Rule::kFirst, 2048, task.nx - 1, task.ny);
  const int64_t threads = std::min(services.max_threads(), grid.tasks());
  const serv::Block<Workspace<Real>> rooms(static_cast<uint64_t>(threads));
  if (!rooms) return DFS_NO_MEMORY;
  return run_grid(
      services, grid, threads, task.ny, [&](int64_t first, int64_t past, int64_t begin, int64_t end, int64_t thread) {
        construct_intervals<Rule>(task, ends, partition, first, past, begin, end, rooms[static_cast<uint64_t>(thread)]);
      });
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
