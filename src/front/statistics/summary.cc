// Summaries: an update computes the state of its observations with the kernels, in blocks that do not depend on the
// number of threads, and merges the blocks in their order.
#include <cmath>
#include <limits>
#include <new>

#include "front/image.h"
#include "front/statistics/kernels.h"
#include "front/statistics/state.h"
#include "serv/memory.h"

namespace orvik::front {
namespace {

constexpr char kMagic[] = "ORVKSUM1";
constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
constexpr int64_t kMostVariables = int64_t{1} << 22;
constexpr int64_t kBlockValues = int64_t{1} << 18, kLeastBlock = 1024;
constexpr int32_t kTogether = 64;  // blocks whose states are held at a time

template <class T>
struct Summary {
  int64_t p;
  Task<T> task = {};  // for updates of one block without weights: making one takes as long as hundreds of observations
  double memory[];    // of the state
  Moments state() { return {p, memory}; }
};

template <class T>
uint64_t bytes_of(int64_t p) {
  return sizeof(Summary<T>) + static_cast<uint64_t>(Moments::size(p)) * sizeof(double);
}

template <class T>
Summary<T>* summary_of(const void* s) {
  return object_of<Summary<T>>(s, Statistics<T>::kSummary);
}

template <class T>
orvik_status make(void** s, int64_t p) {
  if (s == nullptr) return ORVIK_ERROR_NULL_POINTER;
  *s = nullptr;
  if (!cpu_serves()) return ORVIK_ERROR_CPU;
  if (p < 1 || p > kMostVariables) return ORVIK_ERROR_BAD_LENGTH;
  void* const block = new_block(bytes_of<T>(p));
  if (block == nullptr) return ORVIK_ERROR_NO_MEMORY;
  auto* const made = new (block) Summary<T>{.p = p};
  made->state().clear();
  *s = new_handle(Statistics<T>::kSummary, made);
  if (*s == nullptr) free_block(made);
  return *s != nullptr ? ORVIK_SUCCESS : ORVIK_ERROR_NO_MEMORY;
}

// Working memory of an update: of few variables without an allocation.
template <class T>
class Room {
 public:
  explicit Room(int64_t count)
      : large_(count > kFew ? serv::Block<T>(static_cast<uint64_t>(count)) : serv::Block<T>()) {
    memory_ = count > kFew ? large_.get() : few_;
  }
  explicit operator bool() const { return memory_ != nullptr; }
  T* get() const { return memory_; }

 private:
  static constexpr int64_t kFew = 256;
  T few_[kFew];
  serv::Block<T> large_;
  T* memory_;
};

// Room for the kernels' results of one block, in the element type.
template <class T>
struct Results {
  T weights[2] = {};
  T *mean, *second, *third, *fourth, *low, *high, *products;
  Results(int64_t p, T* memory)
      : mean(memory),
        second(mean + p),
        third(second + p),
        fourth(third + p),
        low(fourth + p),
        high(low + p),
        products(high + p) {}
  static int64_t size(int64_t p) { return 6 * p + p * p; }
};

// Observations first to first + n of a whole of `all`.
template <class T>
struct Part {
  int64_t all, p, first, n;
  const T* x;
  int32_t layout;
  const T* weights;
};

// The state of one part, whose rows stand side by side. `task`: one that is made or is made here.
template <class T>
int32_t summarise(const Part<T>& part, T* memory, Moments state, Task<T>& task) {
  using S = Statistics<T>;
  state.clear();
  if (part.n == 0) return 0;  // no weight at all
  Results<T> r(part.p, memory);
  const int64_t offset = part.layout == ORVIK_ROWS ? part.first : part.first * part.p;
  const T* const x = part.x + offset;
  const T* const weights = part.weights != nullptr ? part.weights + part.first : nullptr;
  static constexpr int64_t kFull = ORVIK_SS_MATRIX_FULL;
  uint64_t estimates = ORVIK_SS_MEAN | ORVIK_SS_CENTRAL_SUM2 | ORVIK_SS_CENTRAL_SUM3 | ORVIK_SS_CENTRAL_SUM4;
  int32_t status = 0;
  if (task.get() == nullptr) {
    status = task.make(part.p, part.n, part.layout, x, weights);
    if (status != 0) return status;
  } else {
    task.set_data(part.n, part.layout, x);
  }
  task.set_central_sums(r.mean, r.second, r.third, r.fourth).set(OrvikSS_accumulatedWeights, r.weights);
  task.set(OrvikSS_minimum, r.low).set(OrvikSS_maximum, r.high);
  if (part.p > 1) {
    estimates |= ORVIK_SS_CROSS_PRODUCT;
    task.set(OrvikSS_crossProduct, r.products).set_integer(OrvikSS_crossProductStorage, &kFull);
  }
  for (int64_t j = 0; j < part.p; ++j) {
    r.low[j] = std::numeric_limits<T>::infinity();
    r.high[j] = -std::numeric_limits<T>::infinity();
  }
  status = task.status();
  if (status == 0) status = S::basic(task.get(), estimates, ORVIK_SS_METHOD_ONE_PASS, nullptr);
  if (status == 0) {
    status = S::minmax(task.get(), ORVIK_SS_MINIMUM | ORVIK_SS_MAXIMUM, ORVIK_SS_METHOD_ONE_PASS);
  }
  if (status != 0) return status;
  state.weights[0] = static_cast<double>(r.weights[0]);
  state.weights[1] = static_cast<double>(r.weights[1]);
  for (int64_t j = 0; j < part.p; ++j) {
    state.mean[j] = static_cast<double>(r.mean[j]);
    state.second[j] = static_cast<double>(r.second[j]);
    state.third[j] = static_cast<double>(r.third[j]);
    state.fourth[j] = static_cast<double>(r.fourth[j]);
    state.low[j] = static_cast<double>(r.low[j]);
    state.high[j] = static_cast<double>(r.high[j]);
  }
  for (int64_t k = 0; k < part.p * part.p; ++k) {
    state.products[k] = part.p > 1 ? static_cast<double>(r.products[k]) : state.second[0];
  }
  return 0;
}

// A part by itself, so that a kernel can take it: rows side by side, observations of weight 0 left out, infinite ones
// too.
template <class T>
Part<T> packed(const Part<T>& part, T* room) {
  const T* const weights = part.weights != nullptr ? part.weights + part.first : nullptr;
  const auto at = [&](int64_t i, int64_t j) {
    return part.layout == ORVIK_ROWS ? part.x[j * part.all + part.first + i] : part.x[(part.first + i) * part.p + j];
  };
  T* const kept_weights = room + part.p * part.n;
  int64_t kept = 0;
  for (int64_t i = 0; i < part.n; ++i) {
    if (weights == nullptr || weights[i] != 0) kept_weights[kept++] = weights != nullptr ? weights[i] : 1;
  }
  for (int64_t j = 0; j < part.p; ++j) {
    T* to = room + j * kept;
    if (kept == part.n && part.layout == ORVIK_ROWS) {
      std::memcpy(to, part.x + j * part.all + part.first, static_cast<size_t>(kept) * sizeof(T));
      continue;
    }
    for (int64_t i = 0; i < part.n; ++i) {
      if (weights == nullptr || weights[i] != 0) *to++ = at(i, j);
    }
  }
  return {kept, part.p, 0, kept, room, ORVIK_ROWS, weights != nullptr ? kept_weights : nullptr};
}

template <class T>
bool weights_sound(int64_t n, const T* weights, bool* zeros) {
  bool sound = true;
  for (int64_t i = 0; i < n; ++i) {
    sound &= weights[i] >= 0 && weights[i] <= std::numeric_limits<T>::max();
    *zeros |= weights[i] == 0;
  }
  return sound;
}

template <class T>
orvik_status update(void* s, int64_t n, const T* x, int32_t layout, const T* weights) {
  Summary<T>* const summary = summary_of<T>(s);
  if (summary == nullptr) return ORVIK_ERROR_BAD_OBJECT;
  const int64_t p = summary->p;
  if (const orvik_status status = check_data(n, p, x, layout, sizeof(T)); status != ORVIK_SUCCESS) return status;
  if (n == 0) return ORVIK_SUCCESS;
  bool zeros = false;
  if (weights != nullptr && !weights_sound(n, weights, &zeros)) return ORVIK_ERROR_BAD_PARAMETER;
  const KeepErrno keep;
  int64_t block = kBlockValues / p;
  if (block < kLeastBlock) block = kLeastBlock;
  if (block > n) block = n;
  const int64_t blocks = (n + block - 1) / block;
  const auto together = static_cast<int32_t>(blocks < kTogether ? blocks : kTogether);
  const int64_t state_size = Moments::size(p), results = Results<T>::size(p);
  const bool pack = zeros || (layout == ORVIK_ROWS && p > 1 && blocks > 1);
  const int64_t room_of_one = results + (pack ? (p + 1) * block : 0);
  const Room<double> states(state_size * (together + 1));
  // A room a thread, which stays in its cache.
  const int32_t limit = thread_limit(), threads = together < limit ? together : limit;
  const Room<T> scratch(room_of_one * threads);
  if (!states || !scratch) return ORVIK_ERROR_NO_MEMORY;
  Moments whole(p, states.get() + together * state_size);
  whole.clear();
  for (int64_t done = 0; done < blocks; done += together) {
    const auto now = static_cast<int32_t>(blocks - done < together ? blocks - done : together);
    int32_t statuses[kTogether];
    for_each_item(now, threads, [&](int32_t k, int32_t participant) {
      const int64_t first = (done + k) * block;
      Part<T> part = {n, p, first, n - first < block ? n - first : block, x, layout, weights};
      T* const room = scratch.get() + participant * room_of_one;
      if (pack) part = packed(part, room + results);
      Moments state(p, states.get() + k * state_size);
      Task<T> own;
      statuses[k] = summarise(part, room, state, blocks == 1 && part.weights == nullptr ? summary->task : own);
      *state.count = n - first < block ? n - first : block;
    });
    for (int32_t k = 0; k < now; ++k) {
      if (statuses[k] != 0) return memory_status(statuses[k]);
      whole.merge(Moments(p, states.get() + k * state_size));
    }
  }
  summary->state().merge(whole);
  return ORVIK_SUCCESS;
}

template <class T>
orvik_status merge(void* s, const void* other) {
  Summary<T>*const to = summary_of<T>(s), *const from = summary_of<T>(other);
  if (to == nullptr || from == nullptr) return ORVIK_ERROR_BAD_OBJECT;
  if (to->p != from->p) return ORVIK_ERROR_BAD_LENGTH;
  if (to != from) {
    to->state().merge(from->state());
    return ORVIK_SUCCESS;
  }
  // With itself: of a copy, since a merge reads what it writes.
  const serv::Block<double> memory(static_cast<uint64_t>(Moments::size(from->p)));
  if (!memory) return ORVIK_ERROR_NO_MEMORY;
  std::memcpy(memory.get(), from->memory, static_cast<size_t>(Moments::size(from->p)) * sizeof(double));
  to->state().merge(Moments(from->p, memory.get()));
  return ORVIK_SUCCESS;
}

// Divisor of the unbiased variance for reliability weights; what one observation leaves is divided by its weight.
double unbiased(const double* weights) {
  const double reduced = weights[0] - weights[1] / weights[0];
  return reduced > 0 ? reduced : weights[0];
}

// A result of p values or p * p: value(state, j).
template <class T, class Value>
orvik_status read(const void* s, T* r, bool matrix, const Value& value) {
  Summary<T>* const summary = summary_of<T>(s);
  if (summary == nullptr) return ORVIK_ERROR_BAD_OBJECT;
  if (r == nullptr) return ORVIK_ERROR_NULL_POINTER;
  const Moments state = summary->state();
  const int64_t size = matrix ? state.p * state.p : state.p;
  const bool none = state.weights[0] == 0;
  for (int64_t j = 0; j < size; ++j) r[j] = static_cast<T>(none ? kNone : value(state, j));
  return ORVIK_SUCCESS;
}

double variance(const Moments& m, int64_t j) { return m.second[j] / unbiased(m.weights); }
double skewness(const Moments& m, int64_t j) {
  const double v = variance(m, j);
  return m.third[j] / m.weights[0] / std::sqrt(v * v * v);
}
double kurtosis(const Moments& m, int64_t j) {
  const double v = variance(m, j);
  return m.fourth[j] / m.weights[0] / (v * v) - 3;
}
double covariance(const Moments& m, int64_t k) { return m.products[k] / unbiased(m.weights); }

// What rounding alone leaves of a variable that does not vary: below it the variable is constant, and its correlations
// NaN.
template <class T>
double correlation(const Moments& m, int64_t k) {
  constexpr double kEps = std::numeric_limits<T>::epsilon();
  const int64_t i = k / m.p, j = k % m.p;
  const double observations = m.weights[0] * m.weights[0] / m.weights[1];
  const auto floor = [&](int64_t v) {
    return m.weights[0] * (16 + observations) * (kEps * m.mean[v]) * (kEps * m.mean[v]);
  };
  const double own_i = m.products[i * m.p + i], own_j = m.products[j * m.p + j];
  if (!(own_i > floor(i)) || !(own_j > floor(j))) return kNone;
  if (i == j) return 1;
  const double r = m.products[k] / std::sqrt(own_i) / std::sqrt(own_j);
  return r > 1 ? 1 : r < -1 ? -1 : r;  // rounding may lead beyond
}

template <class T>
orvik_status save(const void* s, void* memory, int64_t* size) {
  Summary<T>* const summary = summary_of<T>(s);
  if (summary == nullptr) return ORVIK_ERROR_BAD_OBJECT;
  const uint64_t numbers = static_cast<uint64_t>(Moments::size(summary->p)) * sizeof(double);
  const int64_t head[2] = {static_cast<int64_t>(sizeof(T)), summary->p};
  return save_image(kMagic, sizeof head + numbers, memory, size, [&](char* behind) {
    std::memcpy(behind, head, sizeof head);
    std::memcpy(behind + sizeof head, summary->memory, numbers);
    return ORVIK_SUCCESS;
  });
}

template <class T>
orvik_status load(void** s, const void* memory, int64_t size) {
  if (s == nullptr) return ORVIK_ERROR_NULL_POINTER;
  *s = nullptr;
  if (memory == nullptr) return ORVIK_ERROR_NULL_POINTER;
  if (size < 0) return ORVIK_ERROR_BAD_LENGTH;
  uint64_t body = 0;
  const char* const image = read_image(kMagic, memory, size, &body);
  int64_t head[2];
  if (image == nullptr || body < sizeof head) return ORVIK_ERROR_BAD_IMAGE;
  std::memcpy(head, image, sizeof head);
  const int64_t p = head[1];
  if (head[0] != static_cast<int64_t>(sizeof(T)) || p < 1 || p > kMostVariables ||
      body != sizeof head + static_cast<uint64_t>(Moments::size(p)) * sizeof(double)) {
    return ORVIK_ERROR_BAD_IMAGE;
  }
  const orvik_status status = make<T>(s, p);
  if (status == ORVIK_SUCCESS) std::memcpy(summary_of<T>(*s)->memory, image + sizeof head, body - sizeof head);
  return status;
}

template <class T>
void remove(void* s) {
  Summary<T>* const summary = summary_of<T>(s);
  if (summary == nullptr) return;
  free_handle(static_cast<Handle*>(s));
  summary->~Summary<T>();
  free_block(summary);
}

}  // namespace

const OrvikThreading kThreading = {
    [] { return thread_limit(); },
    [](int32_t threads, void* context, void (*routine)(int32_t, int32_t, int32_t, void*)) {
      for_each_item(threads, threads, [&](int32_t k) { routine(k, 0, threads, context); });
      return int32_t{0};
    }};

orvik_status check_data(int64_t n, int64_t p, const void* x, int32_t layout, int32_t bytes) {
  if (!cpu_serves()) return ORVIK_ERROR_CPU;
  if (n < 0 || p < 1 || (n > 0 && p > kAddressSpace / bytes / n)) return ORVIK_ERROR_BAD_LENGTH;
  if (layout != ORVIK_ROWS && layout != ORVIK_COLUMNS) return ORVIK_ERROR_BAD_PARAMETER;
  return n > 0 && x == nullptr ? ORVIK_ERROR_NULL_POINTER : ORVIK_SUCCESS;
}

}  // namespace orvik::front

using namespace orvik::front;

#define SUMMARY(d, T)                                                                                    \
  orvik_status orvik_##d##_summary_new(orvik_##d##_summary** s, int64_t p) {                             \
    return make<T>(reinterpret_cast<void**>(s), p);                                                      \
  }                                                                                                      \
  orvik_status orvik_##d##_summary_update(orvik_##d##_summary* s, int64_t n, const T* x, int32_t layout, \
                                          const T* weights) {                                            \
    return update<T>(s, n, x, layout, weights);                                                          \
  }                                                                                                      \
  orvik_status orvik_##d##_summary_merge(orvik_##d##_summary* s, const orvik_##d##_summary* other) {     \
    return merge<T>(s, other);                                                                           \
  }                                                                                                      \
  orvik_status orvik_##d##_summary_count(const orvik_##d##_summary* s, int64_t* n) {                     \
    Summary<T>* const summary = summary_of<T>(s);                                                        \
    if (summary == nullptr) return ORVIK_ERROR_BAD_OBJECT;                                               \
    if (n == nullptr) return ORVIK_ERROR_NULL_POINTER;                                                   \
    *n = *summary->state().count;                                                                        \
    return ORVIK_SUCCESS;                                                                                \
  }                                                                                                      \
  orvik_status orvik_##d##_summary_dimension(const orvik_##d##_summary* s, int64_t* p) {                 \
    Summary<T>* const summary = summary_of<T>(s);                                                        \
    if (summary == nullptr) return ORVIK_ERROR_BAD_OBJECT;                                               \
    if (p == nullptr) return ORVIK_ERROR_NULL_POINTER;                                                   \
    *p = summary->p;                                                                                     \
    return ORVIK_SUCCESS;                                                                                \
  }                                                                                                      \
  orvik_status orvik_##d##_summary_mean(const orvik_##d##_summary* s, T* r) {                            \
    return read<T>(s, r, false, [](const Moments& m, int64_t j) { return m.mean[j]; });                  \
  }                                                                                                      \
  orvik_status orvik_##d##_summary_min(const orvik_##d##_summary* s, T* r) {                             \
    return read<T>(s, r, false, [](const Moments& m, int64_t j) { return m.low[j]; });                   \
  }                                                                                                      \
  orvik_status orvik_##d##_summary_max(const orvik_##d##_summary* s, T* r) {                             \
    return read<T>(s, r, false, [](const Moments& m, int64_t j) { return m.high[j]; });                  \
  }                                                                                                      \
  orvik_status orvik_##d##_summary_variance(const orvik_##d##_summary* s, T* r) {                        \
    return read<T>(s, r, false, variance);                                                               \
  }                                                                                                      \
  orvik_status orvik_##d##_summary_skewness(const orvik_##d##_summary* s, T* r) {                        \
    return read<T>(s, r, false, skewness);                                                               \
  }                                                                                                      \
  orvik_status orvik_##d##_summary_kurtosis(const orvik_##d##_summary* s, T* r) {                        \
    return read<T>(s, r, false, kurtosis);                                                               \
  }                                                                                                      \
  orvik_status orvik_##d##_summary_covariance(const orvik_##d##_summary* s, T* r) {                      \
    return read<T>(s, r, true, covariance);                                                              \
  }                                                                                                      \
  orvik_status orvik_##d##_summary_correlation(const orvik_##d##_summary* s, T* r) {                     \
    return read<T>(s, r, true, correlation<T>);                                                          \
  }                                                                                                      \
  orvik_status orvik_##d##_summary_save(const orvik_##d##_summary* s, void* memory, int64_t* size) {     \
    return save<T>(s, memory, size);                                                                     \
  }                                                                                                      \
  orvik_status orvik_##d##_summary_load(orvik_##d##_summary** s, const void* memory, int64_t size) {     \
    return load<T>(reinterpret_cast<void**>(s), memory, size);                                           \
  }                                                                                                      \
  void orvik_##d##_summary_delete(orvik_##d##_summary* s) { remove<T>(s); }

extern "C" {
SUMMARY(d, double)
SUMMARY(s, float)
}  // extern "C"
