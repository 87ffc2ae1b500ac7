// The methods as entries of their own, in four widths and two real types.
#include "df/search/finder.h"
#include "df/search/user_defined.h"
#include "serv/memory.h"

namespace orvik::df {
namespace {

enum class Width { k32, k64, k64Pack };

template <Method kMethod, Width kWidth, class Real>
int32_t run_method(int64_t nx, const Real* x, int64_t nsite, const Real* site, int64_t* state, Real value,
                   const int64_t* table, void* cell) {
  const Finder<Real> finder(kMethod, Lookup<Real>{nx, x, value, table});
  if constexpr (kWidth == Width::k32) {
    finder.template many<int32_t>(nsite, site, static_cast<int32_t*>(cell), state);
  } else if constexpr (kWidth == Width::k64) {
    finder.template many<int64_t>(nsite, site, static_cast<int64_t*>(cell), state);
  } else {
    finder.template many<int32_t>(nsite, site, static_cast<int64_t*>(cell), state);
  }
  return 0;
}

bool wants_narrow_cells(int64_t width_flags) { return (width_flags & 3) == 2; }

template <Method kMethod, class Real>
int32_t run_method_by_flags(int64_t nx, const Real* x, int64_t nsite, const Real* site, int64_t* state, Real value,
                            const int64_t* table, void* cell, int64_t width_flags) {
  const Finder<Real> finder(kMethod, Lookup<Real>{nx, x, value, table});
  if (wants_narrow_cells(width_flags)) {
    finder.cells(nsite, site, static_cast<int32_t*>(cell), state);
  } else {
    finder.cells(nsite, site, static_cast<int64_t*>(cell), state);
  }
  return 0;
}

template <Method kMethod, class Real>
int32_t run_user(const Lookup<Real>& lookup, int64_t nsite, const Real* site, int64_t* cell,
                 const UserSearch<Real>& user, int32_t* flags) {
  return user_cells(lookup, kMethod == Method::kUniformUserDefined, user, std::max<int64_t>(nsite, 0), site, cell,
                    flags);
}

// The callback writes 64-bit cells into a block of its own, which are copied out when it has not failed.
template <Method kMethod, class Real, class Cell>
int32_t run_user_aside(const Lookup<Real>& lookup, int64_t nsite, const Real* site, Cell* cell,
                       const UserSearch<Real>& user, int32_t* flags) {
  constexpr int64_t kOnStack = 128;
  int64_t stack[kOnStack];
  serv::Block<int64_t> heap;
  int64_t* cells = stack;
  if (nsite > kOnStack) {
    heap = serv::Block<int64_t>(static_cast<uint64_t>(nsite));
    if (!heap) return DFS_NO_MEMORY;
    cells = heap.get();
  }
  const int32_t status = run_user<kMethod>(lookup, nsite, site, cells, user, flags);
  if (status < 0) return status;
  for (int64_t j = 0; j < nsite; ++j) cell[j] = static_cast<Cell>(cells[j]);
  return status;
}

}  // namespace
}  // namespace orvik::df

using namespace orvik::df;

// `state` is null in calls of methods that have none.
#define ORVIK_METHOD_ENTRY(p, Real, stem, suffix, width)                                                           \
  extern "C" int32_t orvik_df_kernel_##p##DF##stem##Search1D##suffix(                                              \
      int64_t nx, const Real* x, int64_t nsite, const Real* site, int64_t* sorted_state, Real value, void*, void*, \
      const int64_t* bucket_table, void* cell) {                                                                   \
    return run_method<Method::k##stem, Width::width>(nx, x, nsite, site, sorted_state, value, bucket_table, cell); \
  }
#define ORVIK_METHOD_ENTRIES(p, Real, stem)                                                                        \
  ORVIK_METHOD_ENTRY(p, Real, stem, 32, k32)                                                                       \
  ORVIK_METHOD_ENTRY(p, Real, stem, 64, k64)                                                                       \
  ORVIK_METHOD_ENTRY(p, Real, stem, 64Pack, k64Pack)                                                               \
  extern "C" int32_t orvik_df_kernel_##p##DF##stem##Search1D(                                                      \
      int64_t nx, const Real* x, int64_t nsite, const Real* site, int64_t* sorted_state, Real value, void*, void*, \
      const int64_t* bucket_table, void* cell, int64_t width_flags) {                                              \
    return run_method_by_flags<Method::k##stem>(nx, x, nsite, site, sorted_state, value, bucket_table, cell,       \
                                                width_flags);                                                      \
  }
#define ORVIK_METHODS(p, Real)                \
  ORVIK_METHOD_ENTRIES(p, Real, Uniform)      \
  ORVIK_METHOD_ENTRIES(p, Real, QuasiUniform) \
  ORVIK_METHOD_ENTRIES(p, Real, Sorted)       \
  ORVIK_METHOD_ENTRIES(p, Real, Peak)         \
  ORVIK_METHOD_ENTRIES(p, Real, Hybrid)
ORVIK_METHODS(d, double)
ORVIK_METHODS(s, float)

#define ORVIK_USER_HEAD(p, Real, stem, suffix)                                                                        \
  extern "C" int32_t orvik_df_kernel_##p##DF##stem##Search1D##suffix(                                                \
      int64_t nx, const Real* x, int64_t nsite, const Real* site, int64_t*, Real value, void*, void*, const int64_t*, \
      void* cell
#define ORVIK_USER_TAIL(Real) SearchCallback<Real> search_cb, void *param0, void *param1, int32_t *done_flags)
#define ORVIK_USER_ENTRIES(p, Real, stem, method)                                                                \
  ORVIK_USER_HEAD(p, Real, stem, 32), ORVIK_USER_TAIL(Real) {                                                    \
    return run_user_aside<method>(Lookup<Real>{nx, x, value, nullptr}, nsite, site, static_cast<int32_t*>(cell), \
                                  UserSearch<Real>(search_cb, param0, param1), done_flags);                      \
  }                                                                                                              \
  ORVIK_USER_HEAD(p, Real, stem, 64), ORVIK_USER_TAIL(Real) {                                                    \
    return run_user<method>(Lookup<Real>{nx, x, value, nullptr}, nsite, site, static_cast<int64_t*>(cell),       \
                            UserSearch<Real>(search_cb, param0, param1), done_flags);                            \
  }                                                                                                              \
  ORVIK_USER_HEAD(p, Real, stem, 64Pack), ORVIK_USER_TAIL(Real) {                                                \
    return run_user<method>(Lookup<Real>{nx, x, value, nullptr}, nsite, site, static_cast<int64_t*>(cell),       \
                            UserSearch<Real>(search_cb, param0, param1), done_flags);                            \
  }                                                                                                              \
  ORVIK_USER_HEAD(p, Real, stem, ), int64_t width_flags, ORVIK_USER_TAIL(Real) {                                 \
    const Lookup<Real> lookup{nx, x, value, nullptr};                                                            \
    const UserSearch<Real> user(search_cb, param0, param1);                                                      \
    return wants_narrow_cells(width_flags)                                                                       \
               ? run_user_aside<method>(lookup, nsite, site, static_cast<int32_t*>(cell), user, done_flags)      \
               : run_user_aside<method>(lookup, nsite, site, static_cast<int64_t*>(cell), user, done_flags);     \
  }
ORVIK_USER_ENTRIES(d, double, UserDef, Method::kUserDefined)
ORVIK_USER_ENTRIES(s, float, UserDef, Method::kUserDefined)
ORVIK_USER_ENTRIES(d, double, UniUserDef, Method::kUniformUserDefined)
ORVIK_USER_ENTRIES(s, float, UniUserDef, Method::kUniformUserDefined)
