// The search call: method, sites, threads, width of the cells.
#include "df/search/finder.h"
#include "df/search/sites.h"
#include "df/search/user_defined.h"
#include "df/services.h"
#include "orvik/serv.h"

namespace orvik::df {
namespace {

constexpr int64_t kShortCall = 32;     // fewer sites are searched one by one
constexpr int64_t kFewAscending = 8;   // as many ascending ones in a long partition are searched together
constexpr int64_t kHybridBlock = 128;  // unit in which the hybrid method is divided among threads
constexpr int64_t kSitesOnStack = 4096;

bool runs_in_parallel(Method method, int64_t threads, int64_t nsite, int64_t nx) {
  if (threads < 2) return false;
  switch (method) {
    case Method::kUniform:
      return nsite > 5000;
    case Method::kQuasiUniform:
      return nsite >= 301 || (nsite >= 151 && (nx >= 600 || (threads >= 4 && nx >= 40)));
    case Method::kSorted:
      return nsite > 3000;
    case Method::kPeak:
      return nsite >= 1201 || nx >= 1201;
    // With five threads and more, 601 to 2000 sites run on one.
    case Method::kHybrid:
      return nsite > 2000 || (nsite >= 601 && threads < 5) || (nsite >= 301 && threads == 2);
    default:
      return false;
  }
}

template <class Real, class Cell>
int32_t find(const Finder<Real>& finder, int64_t nsite, const Real* site, Cell* cell, const Services& services) {
  int64_t state = 0;
  const bool far = finder.method() == Method::kSorted && finder.lookup().nx > 16 * nsite;
  if (nsite < (far ? kFewAscending : kShortCall)) {
    if (nsite > 0 && finder.method() == Method::kSorted) approach_first_site(finder.lookup(), site[0], &state);
    for (int64_t j = 0; j < nsite; ++j) cell[j] = static_cast<Cell>(finder.one(site[j], &state));
    return 0;
  }
  const int64_t threads = services.max_threads();
  if (!runs_in_parallel(finder.method(), threads, nsite, finder.lookup().nx)) {
    finder.cells(nsite, site, cell, &state);
    return 0;
  }
  const int64_t block = finder.method() == Method::kHybrid ? kHybridBlock : 1;
  return run_shares(services, nsite, block, std::min(threads, nsite / block), Division::kAlike,
                    [&](int64_t, int64_t begin, int64_t end) {
                      int64_t start = 0;
                      finder.cells(end - begin, site + begin, cell + begin, &start);
                      return 0;
                    });
}

template <class Real, class Cell>
int32_t find_by_user(const Finder<Real>& finder, const UserSearch<Real>& user, int64_t nsite, const Real* site,
                     Cell* cell) {
  const bool uniform = finder.method() == Method::kUniformUserDefined;
  int64_t cells[kUserBlock];
  int32_t flags[kUserBlock];
  return run_user_blocks(nsite, [&](int64_t at, int64_t count) {
    const int32_t status = user_cells(finder.lookup(), uniform, user, count, site + at, cells, flags);
    if (status >= 0) std::transform(cells, cells + count, cell + at, [](int64_t c) { return static_cast<Cell>(c); });
    return status;
  });
}

template <class Real>
int32_t search(const Task* task, int64_t nsite, const Real* site, int64_t sitehint, const Real* datahint, void* cell,
               SearchCallback<Real> callback, const OrvikDFSearchParameters* parameters,
               const OrvikDFServices* services) {
  if (task == nullptr) return DFS_NO_TASK;
  Method method;
  const int32_t status = choose_method(*task, callback != nullptr, sitehint, datahint, &method);
  if (status != 0) return status;
  if (nsite < 0) return 0;

  Real buffer[kSitesOnStack];
  if (sitehint == kUniformSites) {
    Real* grid = buffer;
    if (nsite > kSitesOnStack) {
      // Left allocated, as the header says.
      grid = static_cast<Real*>(orvik_serv_allocate(static_cast<uint64_t>(nsite) * sizeof(Real), 128));
      if (grid == nullptr) return DFS_NO_MEMORY;
    }
    expand_uniform_sites(site, nsite, 0, nsite, grid);
    site = grid;
  }

  const Finder<Real> finder(*task, method, datahint);
  const bool narrow = task->index_width == 0;
  if (callback != nullptr) {
    const UserSearch<Real> user(callback, parameters);
    return narrow ? find_by_user(finder, user, nsite, site, static_cast<int32_t*>(cell))
                  : find_by_user(finder, user, nsite, site, static_cast<int64_t*>(cell));
  }
  const Services threads(services);
  return narrow ? find(finder, nsite, site, static_cast<int32_t*>(cell), threads)
                : find(finder, nsite, site, static_cast<int64_t*>(cell), threads);
}

}  // namespace
}  // namespace orvik::df

using namespace orvik::df;

extern "C" int32_t orvik_df_kernel_dDFSearch1D(OrvikDFTask task, int64_t, int64_t nsite, const double* site,
                                               int64_t sitehint, const double* datahint, void* cell,
                                               OrvikDFSearchCallbackD search_cb,
                                               const OrvikDFSearchParameters* search_params,
                                               const OrvikDFServices* services) {
  return search<double>(as_task(task), nsite, site, sitehint, datahint, cell, search_cb, search_params, services);
}

extern "C" int32_t orvik_df_kernel_sDFSearch1D(OrvikDFTask task, int64_t, int64_t nsite, const float* site,
                                               int64_t sitehint, const float* datahint, void* cell,
                                               OrvikDFSearchCallbackS search_cb,
                                               const OrvikDFSearchParameters* search_params,
                                               const OrvikDFServices* services) {
  return search<float>(as_task(task), nsite, site, sitehint, datahint, cell, search_cb, search_params, services);
}
