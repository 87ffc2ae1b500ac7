// The integration call: tests of arguments, sums of whole pieces where they pay, blocks of limits on threads.
#include "df/integrate/block.h"
#include "df/services.h"
#include "serv/memory.h"

namespace orvik::df {
namespace {

constexpr int64_t kThreadBlock = 64;           // unit in which limits are divided among threads
constexpr int64_t kParallelResults = 1 << 12;  // fewer results are not worth the threads
constexpr int64_t kFewLimits = 8;              // fewer limits are not worth the sums of all pieces

// As many reals as the sums of all functions take, or 0 where the limits are so few, or so near to each other, that
// they pass fewer pieces than the sums are made of. Results do not depend on it.
template <class Real>
int64_t size_of_sums(const IntegralRequest<Real>& q, const SumLayout& layout) {
  if (!q.reads_pieces() || q.count < kFewLimits) return 0;
  const int64_t size = layout.size() * q.task.ny;
  if (q.count >= layout.pieces) return size;
  // The cells of some pairs. Searching by the caller is not for this.
  constexpr int64_t kSample = 32;
  const int64_t samples = std::min(kSample, q.count);
  const Method method = q.task.uniform() ? Method::kUniform : Method::kHybrid;
  const Finder<Real> finder(q.task, method, nullptr);
  double passed = 0;
  for (int64_t s = 0; s < samples; ++s) {
    const int64_t k = q.count * s / samples;
    Real room[2];
    int64_t state = 0;
    const int64_t a = finder.one(*q.left.take(q.count, k, 1, room), &state);
    const int64_t b = finder.one(*q.right.take(q.count, k, 1, room + 1), &state);
    passed += static_cast<double>(std::abs(b - a));
  }
  return passed / static_cast<double>(samples) * static_cast<double>(q.count) > static_cast<double>(layout.pieces)
             ? size
             : 0;
}

template <class Real>
void build_sums(const IntegralRequest<Real>& q, const SumLayout& layout, const Services& services, Real* sums) {
  auto body = [&](int64_t f, int64_t) {
    with_pieces<Real>(q.task, q.kind, [&](const auto& pieces, auto integrand_of) {
      const auto integrand = integrand_of(f);
      const WholePieces<std::decay_t<decltype(pieces)>, decltype(integrand)> whole{pieces, integrand};
      PieceSums<Real, decltype(whole)>::build(whole, layout, sums + f * layout.size());
      return 0;
    });
    return 0;
  };
  const int64_t threads = std::min(services.max_threads(), q.task.ny);
  (threads > 1 ? services : Services(nullptr)).run(q.task.ny, threads, body);
}

// Limits begin .. end - 1, block by block. With a search by the caller they are all limits.
template <class Real>
int32_t run_range(const IntegralRequest<Real>& q, const SumLayout& layout, const Real* sums, int64_t begin,
                  int64_t end) {
  LimitRoom<Real> room;
  int64_t states[2] = {0, 0};
  const auto block = [&](int64_t at, int64_t count) {
    return integrate_block(q, at, count, states, layout, sums, room);
  };
  if (q.user.callback != nullptr) return run_user_blocks(end, block);
  for (int64_t at = begin; at < end; at += kLimitBlock) {
    const int32_t status = block(at, std::min(kLimitBlock, end - at));
    if (status < 0) return status;
  }
  return 0;
}

template <class Real>
int32_t run(const IntegralRequest<Real>& q, const Services& services) {
  // A search by the caller is also told of no limits.
  if (q.count < (q.user.callback != nullptr ? 0 : 1)) return 0;
  const SumLayout layout(with_pieces<Real>(q.task, q.kind, [](const auto& pieces, auto) { return pieces.last() + 1; }));
  serv::Block<Real> sums;
  const int64_t size = size_of_sums(q, layout);
  if (size > 0) {
    sums = serv::Block<Real>(static_cast<uint64_t>(size));
    if (!sums) return DFS_NO_MEMORY;
    build_sums(q, layout, services, sums.get());
  }
  const int64_t tasks = q.user.callback != nullptr || q.count * q.task.ny < kParallelResults
                            ? 1
                            : std::min(q.count / kThreadBlock, services.max_threads());
  if (tasks <= 1) return run_range<Real>(q, layout, sums.get(), 0, q.count);
  return run_shares(services, q.count, kThreadBlock, tasks, Division::kEven, [&](int64_t, int64_t begin, int64_t end) {
    return run_range<Real>(q, layout, sums.get(), begin, end);
  });
}

// Whether the rows that the kind reads are there.
int32_t test_rows(const Task& task, Evaluator kind) {
  const bool steps = kind == Evaluator::kStepLeft || kind == Evaluator::kStepRight;
  if (!steps && task.s_order == 0) return 0;
  const void* const* rows = steps ? task.y_rows : task.coeff_rows;
  const int32_t missing = steps ? DFS_BAD_FUNCTIONS : DFS_BAD_COEFFICIENTS;
  if (rows == nullptr) return steps || task.ny > 0 ? missing : 0;
  const int64_t held = steps && task.by_columns() ? std::min<int64_t>(task.ny, 1) : task.ny;
  return std::find(rows, rows + std::max<int64_t>(held, 0), nullptr) == rows + std::max<int64_t>(held, 0) ? 0 : missing;
}

// One side's limits: 0, or the status of a bad data hint. Cells on a grid are computed, whatever else is given.
template <class Real>
int32_t take_side(const Task& task, bool has_callback, const Real* limits, int64_t hint, const Real* datahint,
                  Limits<Real>* side) {
  Method method;
  const int32_t status = choose_method(task, has_callback && !task.uniform(), hint, datahint, &method);
  if (status == 0) *side = {Finder<Real>(task, method, datahint), limits, hint == kUniformSites};
  return status;
}

template <class Real>
int32_t integrate(const Task* task, int64_t count, const Real* left, int64_t left_hint, const Real* right,
                  int64_t right_hint, const Real* left_datahint, const Real* right_datahint, Real* r, int64_t rhint,
                  IntegralSupplier<Real> before, IntegralSupplier<Real> behind, IntegralSupplier<Real> inside,
                  const UserSearch<Real>& user, const OrvikDFServices* services) {
  if (task == nullptr) return DFS_NO_TASK;
  const bool all_callbacks = before.callback && behind.callback && inside.callback;
  Evaluator kind;
  if (!choose_evaluator(task->s_order, task->s_type, all_callbacks, &kind)) return DFS_BAD_SPLINE_TYPE;
  if (kind == Evaluator::kLookUp) return DFS_BAD_SPLINE_TYPE;
  Limits<Real> lower, upper;
  int32_t status = take_side(*task, user.callback != nullptr, left, left_hint, left_datahint, &lower);
  if (status == 0) status = take_side(*task, user.callback != nullptr, right, right_hint, right_datahint, &upper);
  if (status != 0) return status;
  if (!storage_hint_ok(rhint)) return DFS_BAD_INTEGRAL_HINT;
  if (!all_callbacks) status = test_rows(*task, kind);
  if (status != 0) return status;
  const bool by_functions = rhint == DF_STORAGE_ROWS || rhint == DF_STORAGE_SINGLE_ROW;
  const IntegralRequest<Real> request{*task,
                                      kind,
                                      count,
                                      lower,
                                      upper,
                                      r,
                                      by_functions ? count : 1,
                                      by_functions ? 1 : task->ny,
                                      before,
                                      behind,
                                      inside,
                                      task->uniform() ? UserSearch<Real>() : user};
  return std::min(run(request, Services(services)), 0);
}

}  // namespace
}  // namespace orvik::df

using namespace orvik::df;

#define ORVIK_INTEGRATE(p, C, Real)                                                                                    \
  extern "C" int32_t orvik_df_kernel_##p##DFIntegrate1D(                                                               \
      OrvikDFTask task, int64_t, int64_t nlim, const Real* llim, int64_t llimhint, const Real* rlim, int64_t rlimhint, \
      const Real* ldatahint, const Real* rdatahint, Real* r, int64_t rhint, OrvikDFIntegrateCallback##C le_cb,         \
      void* le_params, OrvikDFIntegrateCallback##C re_cb, void* re_params, OrvikDFIntegrateCallback##C i_cb,           \
      void* i_params, OrvikDFSearchCallback##C search_cb, const OrvikDFSearchParameters* search_params,                \
      const OrvikDFServices* services) {                                                                               \
    return integrate<Real>(as_task(task), nlim, llim, llimhint, rlim, rlimhint, ldatahint, rdatahint, r, rhint,        \
                           {le_cb, le_params}, {re_cb, re_params}, {i_cb, i_params},                                   \
                           UserSearch<Real>(search_cb, search_params), services);                                      \
  }
ORVIK_INTEGRATE(d, D, double)
ORVIK_INTEGRATE(s, S, float)
