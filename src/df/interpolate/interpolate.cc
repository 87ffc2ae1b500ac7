// The interpolation call: tests of arguments, then the path that the size of the call deserves.
#include "df/interpolate/block.h"
#include "df/interpolate/one_site.h"
#include "df/interpolate/wide_evaluate.h"
#include "df/services.h"
#include "orvik/serv.h"

namespace orvik::df {
namespace {

constexpr int64_t kSmallCall = 32;             // fewer sites need no allocated work area
constexpr int64_t kThreadBlock = 64;           // unit in which sites are divided among threads
constexpr int64_t kParallelResults = 1 << 14;  // fewer results are not worth the threads
constexpr uint64_t kWorkArea = 18512;

// The sites first .. first + n - 1 of an even partition without blocks and cells. False where that does not serve.
template <class Real>
bool evaluate_on_grid(const Request<Real>& q, int64_t first, int64_t n) {
  const Lookup<Real>& lookup = q.finder.lookup();
  const bool only_sites = !q.write_cells && !q.cells_given && !q.uniform_sites;
  if (!only_sites || !q.polynomials_only() || q.task.ny != 1 || q.finder.method() != Method::kUniform ||
      !GridSpots<Real>::serves(lookup)) {
    return false;
  }
  const GridSpots<Real> spots{Partition<Real, true>(q.task), lookup, q.site + first};
  evaluate_in_width(q, 0, n, spots, q.r + first * q.layout.site);
  return true;
}

// Sites begin .. end - 1, block by block. With a search by the caller they are all sites.
template <class Real, class Index>
int32_t run_range(const Request<Real>& request, int64_t begin, int64_t end, BlockRoom<Real, Index>& room) {
  int64_t state = 0;
  const auto block = [&](int64_t at, int64_t count) { return run_block(request, at, count, &state, room); };
  if (request.user.callback != nullptr) return run_user_blocks(end, block);
  if (evaluate_on_grid(request, begin, end - begin)) return 0;
  for (int64_t at = begin; at < end; at += kBlockSites) {
    const int32_t status = block(at, std::min(kBlockSites, end - at));
    if (status < 0) return status;
  }
  return 0;
}

// A search callback is called on the calling thread only.
template <class Real>
int64_t tasks_for(const Request<Real>& request, const Services& services) {
  const int64_t results = request.nsite * std::max<int64_t>(request.task.ny * request.orders.asked(), 1);
  if (request.user.callback != nullptr || results < kParallelResults) return 1;
  return std::min(request.nsite / kThreadBlock, services.max_threads());
}

template <class Real, class Index>
int32_t run_blocks(const Request<Real>& request, const Services& services) {
  using Room = BlockRoom<Real, Index>;
  static_assert(sizeof(Room) <= kWorkArea);
  Room* room = static_cast<Room*>(orvik_serv_allocate(kWorkArea, 128));
  if (room == nullptr) return DFS_NO_MEMORY;
  const int64_t tasks = tasks_for(request, services);
  int32_t status;
  if (tasks > 1) {
    const auto share = [&](int64_t task, int64_t begin, int64_t end) {
      if (task == tasks) return run_range(request, begin, end, *room);
      Room own;
      return run_range(request, begin, end, own);
    };
    status = run_shares(services, request.nsite, kThreadBlock, tasks, Division::kEven, share);
  } else {
    status = run_range(request, 0, request.nsite, *room);
  }
  orvik_serv_deallocate(room);
  return status;
}

template <class Real>
[[gnu::noinline]] int32_t run(const Request<Real>& request, const Services& services) {
  const Task& task = request.task;
  // A search by the caller is also told of no sites.
  if (request.nsite < (request.user.callback != nullptr ? 0 : 1)) return 0;
  if (needs_wide_index(task.nx)) return run_blocks<Real, int64_t>(request, services);
  const bool cells_asked = request.write_cells || request.cells_given;
  if (request.nsite < kSmallCall && (task.index_width & 3) == 0 && !cells_asked) {
    BlockRoom<Real, int32_t> room;
    return run_range(request, 0, request.nsite, room);
  }
  return run_blocks<Real, int32_t>(request, services);
}

template <class Real>
[[gnu::always_inline]] inline int32_t interpolate(const Task* given, int64_t flags, int64_t nsite, const Real* site,
                                                  int64_t sitehint, int64_t ndorder, const void* dorder,
                                                  const Real* datahint, Real* r, int64_t rhint, void* cell,
                                                  Supplier<Real> left, Supplier<Real> right, Supplier<Real> inside,
                                                  const UserSearch<Real>& user, const OrvikDFServices* services) {
  if (given == nullptr) return DFS_NO_TASK;
  const Task& task = *given;
  const bool all_callbacks = left.callback && right.callback && inside.callback;
  Evaluator evaluator;
  if (!choose_evaluator(task.s_order, task.s_type, all_callbacks, &evaluator)) return DFS_BAD_SPLINE_TYPE;
  const bool cells_given = flags == kCellsGiven;
  Method method = Method::kUserDefined;  // with cells given no method is needed
  if (!cells_given) {
    const int32_t status = choose_method(task, user.callback != nullptr, sitehint, datahint, &method);
    if (status != 0) return status;
  }
  if (!Layout::accepts(rhint)) return DFS_BAD_RESULT_HINT;
  const Orders orders(task, ndorder, dorder);
  const bool compute = (flags & kComputeFlag) != 0 || cells_given;
  const bool uniform_sites = (sitehint & kUniformSites) != 0;
  if (nsite == 1 && evaluator <= Evaluator::kCubic && user.callback == nullptr && (flags & kCellsFlag) == 0 &&
      !uniform_sites && orders.given() <= kOneSiteOrders && task.ny <= 1) {
    if (!compute || task.ny < 1) return 0;
    int64_t found;
    if (!cells_given) {
      found = one_cell(task, method, datahint, *site);
    } else {
      found = task.index_width == 0 ? *static_cast<const int32_t*>(cell) : *static_cast<const int64_t*>(cell);
    }
    const Supplier<Real>& supplier = found < 1 ? left : found >= task.nx ? right : inside;
    return run_one_site(task, evaluator, orders, found, site, r, supplier);
  }
  const Layout layout = Layout::from_hint(rhint, task.ny, nsite, orders.asked());
  const bool write_cells = (flags & kCellsFlag) != 0;
  const Request<Real> request{task,
                              evaluator,
                              Finder<Real>(task, method, datahint),
                              orders,
                              layout,
                              compute,
                              write_cells,
                              cells_given,
                              uniform_sites,
                              nsite,
                              site,
                              r,
                              cell,
                              left,
                              right,
                              inside,
                              cells_given ? UserSearch<Real>() : user};
  return run(request, Services(services));
}

}  // namespace
}  // namespace orvik::df

using namespace orvik::df;

extern "C" int32_t orvik_df_kernel_dDFInterpolate1D(
    OrvikDFTask task, int64_t flags, int64_t, int64_t nsite, const double* site, int64_t sitehint, int64_t ndorder,
    const void* dorder, const double* datahint, double* r, int64_t rhint, void* cell, OrvikDFInterpolateCallbackD le_cb,
    void* le_params, OrvikDFInterpolateCallbackD re_cb, void* re_params, OrvikDFInterpolateCallbackD i_cb,
    void* i_params, OrvikDFSearchCallbackD search_cb, const OrvikDFSearchParameters* search_params,
    const OrvikDFServices* services) {
  return interpolate<double>(as_task(task), flags, nsite, site, sitehint, ndorder, dorder, datahint, r, rhint, cell,
                             {le_cb, le_params}, {re_cb, re_params}, {i_cb, i_params},
                             UserSearch<double>(search_cb, search_params), services);
}

extern "C" int32_t orvik_df_kernel_sDFInterpolate1D(
    OrvikDFTask task, int64_t flags, int64_t, int64_t nsite, const float* site, int64_t sitehint, int64_t ndorder,
    const void* dorder, const float* datahint, float* r, int64_t rhint, void* cell, OrvikDFInterpolateCallbackS le_cb,
    void* le_params, OrvikDFInterpolateCallbackS re_cb, void* re_params, OrvikDFInterpolateCallbackS i_cb,
    void* i_params, OrvikDFSearchCallbackS search_cb, const OrvikDFSearchParameters* search_params,
    const OrvikDFServices* services) {
  return interpolate<float>(as_task(task), flags, nsite, site, sitehint, ndorder, dorder, datahint, r, rhint, cell,
                            {le_cb, le_params}, {re_cb, re_params}, {i_cb, i_params},
                            UserSearch<float>(search_cb, search_params), services);
}
