// Splines as objects that own their breakpoints, values and coefficients.
#include <atomic>
#include <climits>
#include <cmath>
#include <cstring>
#include <new>

#include "front/fitting/kernels.h"

namespace orvik::front {

const OrvikDFServices kServices = {
    .parallel_run =
        [](int64_t count, int64_t threads, void* arguments, OrvikDFBody body) {
          if (threads <= 1 || count > INT32_MAX) {
            for (int64_t k = 0; k < count; ++k) {
              if (const int32_t status = body(k, 0, threads, arguments); status < 0) return status;
            }
            return 0;
          }
          // The first failure: index above, status below. Bodies keep their workspace by the thread that they are told.
          std::atomic<int64_t> first{INT64_MAX};
          for_each_item(static_cast<int32_t>(count),
                        static_cast<int32_t>(threads < kMostThreads ? threads : kMostThreads),
                        [&](int32_t k, int32_t participant) {
                          const int32_t status = body(k, participant, threads, arguments);
                          const int64_t failure = int64_t{k} << 32 | static_cast<uint32_t>(status);
                          int64_t seen = first.load();
                          while (status < 0 && failure < seen && !first.compare_exchange_weak(seen, failure)) {
                          }
                        });
          const int64_t failure = first.load();
          return failure == INT64_MAX ? 0 : static_cast<int32_t>(failure & 0xFFFFFFFF);
        },
    .reserved = {},
    .max_threads = [] { return int64_t{thread_limit()}; },
    .reserved2 = {}};

namespace {

template <class T>
struct Spline {
  OrvikDFTask task = nullptr;
  int64_t nx, ny, order, pieces;
  T ends[2];
  const T* x;
  T* coefficients;

  ~Spline() {
    if (task != nullptr) orvik_df_kernel_DeleteTask(&task);
  }
};

struct KindOf {
  int64_t order, type;
};
// By kind: linear, Hermite, Bessel, Akima, Hyman, natural, default, quadratic with knots of its own.
constexpr KindOf kKinds[] = {{2, 0}, {4, 3}, {4, 5}, {4, 4}, {4, 9}, {4, 2}, {4, 0}, {3, 1}};
constexpr int64_t kKnotsOfItsOwn = 8;  // internal condition of the quadratic kind

int64_t boundary(int32_t kind, const orvik_spline_ends* ends) {
  switch (ends != nullptr ? ends->kind : ORVIK_ENDS_FREE) {
    case ORVIK_ENDS_NOT_A_KNOT:
      return DFB_NOT_A_KNOT;
    case ORVIK_ENDS_PERIODIC:
      return DFB_PERIODIC;
    case ORVIK_ENDS_FIRST:
      return DFB_FIRST_LEFT + DFB_FIRST_RIGHT;
    case ORVIK_ENDS_SECOND:
      return DFB_SECOND_LEFT + DFB_SECOND_RIGHT;
    default:
      return kind == ORVIK_AKIMA ? DFB_NONE : DFB_FREE_END;
  }
}

template <class T>
struct Wanted {
  int64_t nx, given;  // breakpoints, those that are given: 2 of an even partition
  const T* x;
  int64_t ny;
  const T* y;
  int32_t kind;
  const orvik_spline_ends* ends;
  const T* internal;
};

template <class T>
orvik_status check(const Wanted<T>& w) {
  if (!cpu_serves()) return ORVIK_ERROR_CPU;
  if (w.nx < 2) return w.nx < 0 ? ORVIK_ERROR_BAD_LENGTH : ORVIK_ERROR_NOT_SORTED;
  if (w.ny < 1 || w.nx > kAddressSpace / 64 / w.ny) return ORVIK_ERROR_BAD_LENGTH;
  if (w.x == nullptr || w.y == nullptr) return ORVIK_ERROR_NULL_POINTER;
  if (w.kind < ORVIK_LINEAR || w.kind > ORVIK_QUADRATIC) return ORVIK_ERROR_BAD_PARAMETER;
  if (!ascends(w.given, w.x)) return ORVIK_ERROR_NOT_SORTED;
  const T length = w.x[w.given - 1] - w.x[0];
  if (!std::isfinite(length) || !(length / static_cast<T>(w.nx - 1) > 0)) return ORVIK_ERROR_BAD_PARAMETER;
  if (w.ends != nullptr) {
    const int32_t kind = w.ends->kind;
    if (kind < ORVIK_ENDS_FREE || kind > ORVIK_ENDS_SECOND) return ORVIK_ERROR_BAD_PARAMETER;
    const bool values = kind == ORVIK_ENDS_FIRST || kind == ORVIK_ENDS_SECOND;
    const T left = static_cast<T>(w.ends->left), right = static_cast<T>(w.ends->right);
    if (values && !(std::isfinite(left) && std::isfinite(right))) return ORVIK_ERROR_BAD_PARAMETER;
  }
  if (w.kind == ORVIK_HERMITE || w.kind == ORVIK_DEFAULT) {
    if (w.internal == nullptr) return ORVIK_ERROR_NULL_POINTER;
    for (int64_t i = 0; i < w.nx - 2; ++i) {
      if (!std::isfinite(w.internal[i])) return ORVIK_ERROR_BAD_PARAMETER;
    }
  }
  return ORVIK_SUCCESS;
}

// One block: the object, breakpoints, coefficients. Values and inner derivatives are read while the coefficients are
// made and never again.
template <class T>
Spline<T>* copy(const Wanted<T>& w) {
  const KindOf& kind = kKinds[w.kind];
  const int64_t pieces = kind.type == 1 ? w.nx : w.nx - 1;
  const int64_t numbers = w.given + w.ny * pieces * kind.order;
  void* const block = new_block(sizeof(Spline<T>) + static_cast<uint64_t>(numbers) * sizeof(T));
  if (block == nullptr) return nullptr;
  auto* const s = new (block) Spline<T>;
  s->nx = w.nx, s->ny = w.ny, s->order = kind.order, s->pieces = pieces;
  s->ends[0] = w.ends != nullptr ? static_cast<T>(w.ends->left) : 0;
  s->ends[1] = w.ends != nullptr ? static_cast<T>(w.ends->right) : 0;
  T* const x = reinterpret_cast<T*>(s + 1);
  std::memcpy(x, w.x, static_cast<size_t>(w.given) * sizeof(T));
  s->x = x;
  s->coefficients = x + w.given;
  return s;
}

template <class T>
int32_t construct(Spline<T>* s, const Wanted<T>& w) {
  using F = Fitting<T>;
  const int64_t hint = w.given == w.nx && w.nx > 2 ? DF_PARTITION_NON_UNIFORM : DF_PARTITION_UNIFORM;
  int32_t status = F::new_task(&s->task, s->nx, s->x, hint, s->ny, w.y, DF_STORAGE_ROWS, 1);
  if (status != 0) return status;
  const bool inner = w.kind == ORVIK_HERMITE || w.kind == ORVIK_DEFAULT;
  status = F::edit_spline(s->task, s->order, kKinds[w.kind].type, boundary(w.kind, w.ends), s->ends, inner,
                          inner ? w.internal : nullptr, s->coefficients, DF_STORAGE_DEFAULT);
  if (status == 0 && w.kind == ORVIK_QUADRATIC) {
    status = orvik_df_kernel_iEditVal(s->task, DFP_INTERNAL_TYPE, kKnotsOfItsOwn);
  }
  return status != 0 ? status : F::construct[w.kind](s->task, 0, 0, &kServices);
}

template <class T>
orvik_status make(void** s, const Wanted<T>& w) {
  if (s == nullptr) return ORVIK_ERROR_NULL_POINTER;
  *s = nullptr;
  if (const orvik_status status = check(w); status != ORVIK_SUCCESS) return status;
  const KeepErrno keep;
  Spline<T>* const made = copy(w);
  if (made == nullptr) return ORVIK_ERROR_NO_MEMORY;
  int32_t status = construct(made, w);
  if (status == 0) {
    *s = new_handle(Fitting<T>::kSpline, made);
    if (*s != nullptr) return ORVIK_SUCCESS;
    status = DFS_NO_MEMORY;
  }
  made->~Spline<T>();
  free_block(made);
  return fitting_status(status);
}

template <class T>
Spline<T>* spline_of(const void* s) {
  return object_of<Spline<T>>(s, Fitting<T>::kSpline);
}

// The checks of both kinds of evaluation; b may be null.
template <class T>
orvik_status check_sites(const Spline<T>* s, int64_t n, const T* a, const T* b, const T* r) {
  if (s == nullptr) return ORVIK_ERROR_BAD_OBJECT;
  if (n < 0 || n > kAddressSpace / 8 / s->ny) return ORVIK_ERROR_BAD_LENGTH;
  if (n == 0) return ORVIK_SUCCESS;
  if (a == nullptr || b == nullptr || r == nullptr) return ORVIK_ERROR_NULL_POINTER;
  const int64_t bytes = n * static_cast<int64_t>(sizeof(T));
  return meet(a, bytes, r, bytes * s->ny) || meet(b, bytes, r, bytes * s->ny) ? ORVIK_ERROR_OVERLAP : ORVIK_SUCCESS;
}

template <class T>
orvik_status evaluate(const void* handle, int64_t n, const T* t, T* r, int32_t derivative) {
  const Spline<T>* const s = spline_of<T>(handle);
  if (const orvik_status status = check_sites(s, n, t, t, r); status != ORVIK_SUCCESS) return status;
  if (derivative < 0) return ORVIK_ERROR_BAD_PARAMETER;
  if (n == 0) return ORVIK_SUCCESS;
  if (derivative >= s->order) {
    std::memset(r, 0, static_cast<size_t>(n * s->ny) * sizeof(T));
    return ORVIK_SUCCESS;
  }
  const KeepErrno keep;
  int64_t orders[4] = {};
  orders[derivative] = 1;
  return fitting_status(Fitting<T>::interpolate(s->task, 1, 0, n, t, hint_of(s->nx, n, t), derivative + 1, orders,
                                                nullptr, r, DF_STORAGE_ROWS, nullptr, nullptr, nullptr, nullptr,
                                                nullptr, nullptr, nullptr, nullptr, nullptr, &kServices));
}

template <class T>
orvik_status integrate(const void* handle, int64_t n, const T* a, const T* b, T* r) {
  const Spline<T>* const s = spline_of<T>(handle);
  if (const orvik_status status = check_sites(s, n, a, b, r); status != ORVIK_SUCCESS) return status;
  if (n == 0) return ORVIK_SUCCESS;
  const KeepErrno keep;
  return fitting_status(Fitting<T>::integrate(s->task, 0, n, a, 0, b, 0, nullptr, nullptr, r, DF_STORAGE_ROWS, nullptr,
                                              nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                                              &kServices));
}

template <class T>
orvik_status coefficients(const void* handle, T* r, int64_t* count) {
  const Spline<T>* const s = spline_of<T>(handle);
  if (s == nullptr) return ORVIK_ERROR_BAD_OBJECT;
  if (count == nullptr) return ORVIK_ERROR_NULL_POINTER;
  const int64_t all = s->ny * s->pieces * s->order;
  if (r != nullptr) {
    if (*count < all) return ORVIK_ERROR_BAD_LENGTH;
    std::memcpy(r, s->coefficients, static_cast<size_t>(all) * sizeof(T));
  }
  *count = all;
  return ORVIK_SUCCESS;
}

template <class T>
orvik_status shape(const void* handle, int64_t* nx, int64_t* ny, int64_t* order) {
  const Spline<T>* const s = spline_of<T>(handle);
  if (s == nullptr) return ORVIK_ERROR_BAD_OBJECT;
  if (nx != nullptr) *nx = s->nx;
  if (ny != nullptr) *ny = s->ny;
  if (order != nullptr) *order = s->order;
  return ORVIK_SUCCESS;
}

template <class T>
void remove(void* handle) {
  Spline<T>* const s = spline_of<T>(handle);
  if (s == nullptr) return;
  free_handle(static_cast<Handle*>(handle));
  s->~Spline<T>();
  free_block(s);
}

}  // namespace
}  // namespace orvik::front

using namespace orvik::front;

#define SPLINE(d, T)                                                                                                  \
  orvik_status orvik_##d##_spline_new(orvik_##d##_spline** s, int64_t nx, const T* x, int64_t ny, const T* y,         \
                                      int32_t kind, const orvik_spline_ends* ends, const T* internal) {               \
    return make<T>(reinterpret_cast<void**>(s), {nx, nx, x, ny, y, kind, ends, internal});                            \
  }                                                                                                                   \
  orvik_status orvik_##d##_spline_new_uniform(orvik_##d##_spline** s, T x0, T x1, int64_t nx, int64_t ny, const T* y, \
                                              int32_t kind, const orvik_spline_ends* ends, const T* internal) {       \
    const T x[] = {x0, x1};                                                                                           \
    return make<T>(reinterpret_cast<void**>(s), {nx, 2, x, ny, y, kind, ends, internal});                             \
  }                                                                                                                   \
  orvik_status orvik_##d##_spline_evaluate(const orvik_##d##_spline* s, int64_t n, const T* t, T* r,                  \
                                           int32_t derivative) {                                                      \
    return evaluate<T>(s, n, t, r, derivative);                                                                       \
  }                                                                                                                   \
  orvik_status orvik_##d##_spline_integrate(const orvik_##d##_spline* s, int64_t n, const T* a, const T* b, T* r) {   \
    return integrate<T>(s, n, a, b, r);                                                                               \
  }                                                                                                                   \
  orvik_status orvik_##d##_spline_coefficients(const orvik_##d##_spline* s, T* r, int64_t* count) {                   \
    return coefficients<T>(s, r, count);                                                                              \
  }                                                                                                                   \
  orvik_status orvik_##d##_spline_shape(const orvik_##d##_spline* s, int64_t* nx, int64_t* ny, int64_t* order) {      \
    return shape<T>(s, nx, ny, order);                                                                                \
  }                                                                                                                   \
  void orvik_##d##_spline_delete(orvik_##d##_spline* s) { remove<T>(s); }

extern "C" {
SPLINE(d, double)
SPLINE(s, float)
}  // extern "C"
