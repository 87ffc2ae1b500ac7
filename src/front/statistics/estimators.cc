// Estimators of arrays at one go, variable by variable; quantiles of what comes block by block.
#include <cstring>
#include <new>

#include "front/image.h"
#include "front/statistics/kernels.h"
#include "orvik/qor.h"

namespace orvik::front {
namespace {

template <class T>
orvik_status quantiles(int64_t n, int64_t p, const T* x, int32_t layout, int64_t m, const T* orders, T* r) {
  if (const orvik_status status = check_call(n, p, x, layout, r, p, m); status != ORVIK_SUCCESS) return status;
  if (m == 0) return ORVIK_SUCCESS;
  if (orders == nullptr) return ORVIK_ERROR_NULL_POINTER;
  if (!orders_sound(m, orders)) return ORVIK_ERROR_BAD_PARAMETER;
  const KeepErrno keep;
  Task<T> task;
  int32_t status = task.make(p, n, layout, x);
  task.set_integer(OrvikSS_quantileOrderCount, &m).set(OrvikSS_quantileOrders, orders).set(OrvikSS_quantiles, r);
  if (status == 0) status = task.status();
  if (status == 0) {
    status = Statistics<T>::quantiles(task.get(), ORVIK_SS_QUANTILES, ORVIK_SS_METHOD_FAST, &kThreading);
  }
  return memory_status(status);
}

template <class T>
orvik_status sort(int64_t n, int64_t p, const T* x, int32_t layout, T* r) {
  const bool in_place = x == r;
  if (const orvik_status status = check_call(n, p, x, layout, in_place ? nullptr : r, p, in_place ? 0 : n);
      status != ORVIK_SUCCESS) {
    return n == 0 && status == ORVIK_ERROR_BAD_LENGTH && p >= 1 ? ORVIK_SUCCESS : status;
  }
  const KeepErrno keep;
  const int64_t storage = Task<T>::storage_of(layout);
  Task<T> task;
  int32_t status = task.make(p, n, layout, x);
  task.set(OrvikSS_sortedObservations, r).set_integer(OrvikSS_sortedStorage, &storage);
  if (status == 0) status = task.status();
  if (status == 0) status = Statistics<T>::sort(task.get(), 0, ORVIK_SS_METHOD_SORT, &kThreading);
  return memory_status(status);
}

template <class T>
orvik_status weighted_median(int64_t n, int64_t p, const T* x, int32_t layout, const T* weights, T* r) {
  if (const orvik_status status = check_call(n, p, x, layout, r, p, 1); status != ORVIK_SUCCESS) return status;
  if (weights == nullptr) return ORVIK_ERROR_NULL_POINTER;
  for (int64_t i = 0; i < n; ++i) {
    if (!(weights[i] >= 0)) return ORVIK_ERROR_BAD_PARAMETER;
  }
  const KeepErrno keep;
  Task<T> task;
  int32_t status = task.make(p, n, layout, x, weights);
  task.set(OrvikSS_quantiles, r);
  if (status == 0) status = task.status();
  if (status == 0) status = Statistics<T>::weighted_median(task.get(), 0, ORVIK_SS_METHOD_FAST, &kThreading);
  return memory_status(status);
}

template <class T>
orvik_status mad(int64_t n, int64_t p, const T* x, int32_t layout, T* r) {
  if (const orvik_status status = check_call(n, p, x, layout, r, p, 1); status != ORVIK_SUCCESS) return status;
  const KeepErrno keep;
  Task<T> task;
  int32_t status = task.make(p, n, layout, x);
  task.set(OrvikSS_medianAbsDeviation, r);
  if (status == 0) status = task.status();
  if (status == 0) {
    status = Statistics<T>::mad(task.get(), ORVIK_SS_MEDIAN_ABS_DEVIATION, ORVIK_SS_METHOD_FAST, &kThreading);
  }
  return memory_status(status);
}

// Memory grows with 1 / epsilon: what is smaller would take gigabytes a variable, or overflow its size.
constexpr double kLeastEpsilon = 1e-8;

// A task that lives as long as the object; the kernels hang what they know on it.
template <class T>
struct StreamQuantiles {
  Task<T> task;
  int64_t p, orders_count = 0;
  const int64_t one = 1;
  T epsilon, unused;

  ~StreamQuantiles() {
    if (task.get() != nullptr) __qorSQuantilesFreeBuffers(task.get());
  }
};

template <class T>
orvik_status make(void** s, int64_t p, T epsilon) {
  if (s == nullptr) return ORVIK_ERROR_NULL_POINTER;
  *s = nullptr;
  if (!cpu_serves()) return ORVIK_ERROR_CPU;
  if (p < 1 || p > kAddressSpace / 64) return ORVIK_ERROR_BAD_LENGTH;
  if (!(epsilon >= T(kLeastEpsilon) && epsilon <= 1)) return ORVIK_ERROR_BAD_PARAMETER;
  void* const block = new_block(sizeof(StreamQuantiles<T>));
  if (block == nullptr) return ORVIK_ERROR_NO_MEMORY;
  auto* const made = new (block) StreamQuantiles<T>;
  made->p = p;
  made->epsilon = epsilon;
  int32_t status = made->task.make(p, 1, ORVIK_ROWS, &made->unused);
  if (status == 0) {
    made->task.set_integer(OrvikSS_streamParameterCount, &made->one).set(OrvikSS_streamParameters, &made->epsilon);
    made->task.set_integer(OrvikSS_streamOrderCount, &made->orders_count);
    status = made->task.status();
  }
  if (status == 0) {
    *s = new_handle(Statistics<T>::kStreamQuantiles, made);
    if (*s != nullptr) return ORVIK_SUCCESS;
  }
  made->~StreamQuantiles<T>();
  free_block(made);
  return status == 0 ? ORVIK_ERROR_NO_MEMORY : memory_status(status);
}

template <class T>
orvik_status update(void* s, int64_t n, const T* x, int32_t layout) {
  auto* const q = object_of<StreamQuantiles<T>>(s, Statistics<T>::kStreamQuantiles);
  if (q == nullptr) return ORVIK_ERROR_BAD_OBJECT;
  if (const orvik_status status = check_data(n, q->p, x, layout, sizeof(T)); status != ORVIK_SUCCESS) return status;
  if (n == 0) return ORVIK_SUCCESS;
  const KeepErrno keep;
  T order = 0, result;
  q->orders_count = 0;
  q->task.set_data(n, layout, x);
  q->task.set(OrvikSS_streamOrders, &order).set(OrvikSS_streamQuantiles, &result);
  int32_t status = q->task.status();
  if (status == 0) status = Statistics<T>::stream_quantiles(q->task.get(), 0, ORVIK_SS_METHOD_FAST, nullptr);
  return memory_status(status);
}

template <class T>
orvik_status query(void* s, int64_t m, const T* orders, T* r) {
  auto* const q = object_of<StreamQuantiles<T>>(s, Statistics<T>::kStreamQuantiles);
  if (q == nullptr) return ORVIK_ERROR_BAD_OBJECT;
  if (m < 0 || (m > 0 && q->p > kAddressSpace / 8 / m)) return ORVIK_ERROR_BAD_LENGTH;
  if (m == 0) return ORVIK_SUCCESS;
  if (orders == nullptr || r == nullptr) return ORVIK_ERROR_NULL_POINTER;
  if (!orders_sound(m, orders)) return ORVIK_ERROR_BAD_PARAMETER;
  const KeepErrno keep;
  q->orders_count = m;
  q->task.set_data(0, ORVIK_ROWS, &q->unused);
  q->task.set(OrvikSS_streamOrders, orders).set(OrvikSS_streamQuantiles, r);
  int32_t status = q->task.status();
  if (status == 0) status = Statistics<T>::stream_quantiles(q->task.get(), 0, ORVIK_SS_METHOD_FAST, nullptr);
  return memory_status(status);
}

template <class T>
orvik_status dimension(const void* s, int64_t* p) {
  auto* const q = object_of<StreamQuantiles<T>>(s, Statistics<T>::kStreamQuantiles);
  if (q == nullptr) return ORVIK_ERROR_BAD_OBJECT;
  if (p == nullptr) return ORVIK_ERROR_NULL_POINTER;
  *p = q->p;
  return ORVIK_SUCCESS;
}

template <class T>
void remove(void* s) {
  auto* const q = object_of<StreamQuantiles<T>>(s, Statistics<T>::kStreamQuantiles);
  if (q == nullptr) return;
  free_handle(static_cast<Handle*>(s));
  q->~StreamQuantiles<T>();
  free_block(q);
}

// An image's own head: the size of a value, the number of variables, epsilon.
struct StreamHead {
  int64_t bytes, p;
  double epsilon;
};

constexpr char kStreamMagic[] = "ORVKSQU1";

template <class T>
orvik_status save(const void* s, void* memory, int64_t* size) {
  auto* const q = object_of<StreamQuantiles<T>>(s, Statistics<T>::kStreamQuantiles);
  if (q == nullptr) return ORVIK_ERROR_BAD_OBJECT;
  int64_t body = 0;
  Statistics<T>::save_streams(q->task.get(), nullptr, &body);
  return save_image(kStreamMagic, sizeof(StreamHead) + static_cast<uint64_t>(body), memory, size, [&](char* behind) {
    const StreamHead head = {int64_t{sizeof(T)}, q->p, double{q->epsilon}};
    std::memcpy(behind, &head, sizeof head);
    return orvik_status{Statistics<T>::save_streams(q->task.get(), behind + sizeof head, &body)};
  });
}

template <class T>
orvik_status load(void** s, const void* memory, int64_t size) {
  if (s == nullptr) return ORVIK_ERROR_NULL_POINTER;
  *s = nullptr;
  if (memory == nullptr) return ORVIK_ERROR_NULL_POINTER;
  if (size < 0) return ORVIK_ERROR_BAD_LENGTH;
  uint64_t body = 0;
  const char* const image = read_image(kStreamMagic, memory, size, &body);
  StreamHead head;
  if (image == nullptr || body < sizeof head) return ORVIK_ERROR_BAD_IMAGE;
  std::memcpy(&head, image, sizeof head);
  if (head.bytes != int64_t{sizeof(T)}) return ORVIK_ERROR_BAD_IMAGE;
  void* made = nullptr;
  const orvik_status status = make<T>(&made, head.p, static_cast<T>(head.epsilon));
  if (status == ORVIK_ERROR_BAD_LENGTH || status == ORVIK_ERROR_BAD_PARAMETER) return ORVIK_ERROR_BAD_IMAGE;
  if (status != ORVIK_SUCCESS) return status;
  auto* const q = object_of<StreamQuantiles<T>>(made, Statistics<T>::kStreamQuantiles);
  const int32_t read =
      Statistics<T>::load_streams(q->task.get(), image + sizeof head, static_cast<int64_t>(body - sizeof head));
  if (read == 0) {
    *s = made;
    return ORVIK_SUCCESS;
  }
  remove<T>(made);
  return read == ORVIK_QOR_IMAGE_BAD_FORMAT ? ORVIK_ERROR_BAD_IMAGE : memory_status(read);
}

}  // namespace
}  // namespace orvik::front

using namespace orvik::front;

#define ESTIMATORS(d, T)                                                                                               \
  orvik_status orvik_##d##_quantiles(int64_t n, int64_t p, const T* x, int32_t layout, int64_t m, const T* orders,     \
                                     T* r) {                                                                           \
    return quantiles<T>(n, p, x, layout, m, orders, r);                                                                \
  }                                                                                                                    \
  orvik_status orvik_##d##_sort(int64_t n, int64_t p, const T* x, int32_t layout, T* r) {                              \
    return sort<T>(n, p, x, layout, r);                                                                                \
  }                                                                                                                    \
  orvik_status orvik_##d##_weighted_median(int64_t n, int64_t p, const T* x, int32_t layout, const T* weights, T* r) { \
    return weighted_median<T>(n, p, x, layout, weights, r);                                                            \
  }                                                                                                                    \
  orvik_status orvik_##d##_mad(int64_t n, int64_t p, const T* x, int32_t layout, T* r) {                               \
    return mad<T>(n, p, x, layout, r);                                                                                 \
  }                                                                                                                    \
  orvik_status orvik_##d##_stream_quantiles_new(orvik_##d##_stream_quantiles** s, int64_t p, T epsilon) {              \
    return make<T>(reinterpret_cast<void**>(s), p, epsilon);                                                           \
  }                                                                                                                    \
  orvik_status orvik_##d##_stream_quantiles_update(orvik_##d##_stream_quantiles* s, int64_t n, const T* x,             \
                                                   int32_t layout) {                                                   \
    return update<T>(s, n, x, layout);                                                                                 \
  }                                                                                                                    \
  orvik_status orvik_##d##_stream_quantiles_query(orvik_##d##_stream_quantiles* s, int64_t m, const T* orders, T* r) { \
    return query<T>(s, m, orders, r);                                                                                  \
  }                                                                                                                    \
  orvik_status orvik_##d##_stream_quantiles_dimension(const orvik_##d##_stream_quantiles* s, int64_t* p) {             \
    return dimension<T>(s, p);                                                                                         \
  }                                                                                                                    \
  orvik_status orvik_##d##_stream_quantiles_save(const orvik_##d##_stream_quantiles* s, void* memory, int64_t* size) { \
    return save<T>(s, memory, size);                                                                                   \
  }                                                                                                                    \
  orvik_status orvik_##d##_stream_quantiles_load(orvik_##d##_stream_quantiles** s, const void* memory, int64_t size) { \
    return load<T>(reinterpret_cast<void**>(s), memory, size);                                                         \
  }                                                                                                                    \
  void orvik_##d##_stream_quantiles_delete(orvik_##d##_stream_quantiles* s) { remove<T>(s); }

extern "C" {
ESTIMATORS(d, double)
ESTIMATORS(s, float)
}  // extern "C"
