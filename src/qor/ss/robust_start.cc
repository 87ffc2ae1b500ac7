#include "qor/ss/robust_start.h"

#include <algorithm>
#include <atomic>
#include <cmath>

#include "qor/ss/matrix.h"
#include "qor/ss/sampled_median.h"
#include "serv/blas.h"
#include "serv/memory.h"

namespace orvik::ss {
namespace {

namespace blas = serv::blas;

template <class T>
bool is_scale(T s) {
  return s > 0 && std::isfinite(s);
}

template <class T>
class Start {
 public:
  Start(const Observations<T>& o, const OrvikThreading* threading) : o_(o), threading_(threading) {}

  int32_t run(T* mean, T* matrix) {
    const int64_t p = o_.p, n = o_.n;
    threads_ = static_cast<int32_t>(std::min<int64_t>(max_threads(threading_), std::max<int64_t>(p, 1)));
    scaled_ = serv::Block<T>(static_cast<uint64_t>(n * p));
    samples_ = serv::Block<T>(static_cast<uint64_t>(is_sampled(n) ? kSample * p : 1));
    scratch_ = serv::Block<T>(static_cast<uint64_t>(2 * n * threads_));
    small_ = serv::Block<double>(static_cast<uint64_t>(4 * p + 2 * p * p + p * (p + 1) / 2));
    if (!scaled_ || !samples_ || !scratch_ || !small_) return kNoMemory;
    location_ = small_.get();
    scale_ = location_ + p;
    values_ = scale_ + p;
    projected_ = values_ + p;
    vectors_ = projected_ + p;
    product_ = vectors_ + p * p;
    pairs_ = product_ + p * p;
    if (const int32_t status = scale_variables(); status != kDone) return status;
    if (const int32_t status = compare_pairs(); status != kDone) return status;
    if (const int32_t status = find_directions(); status != kDone) return status;
    if (const int32_t status = scale_projections(); status != kDone) return status;
    rebuild(mean, matrix);
    return kDone;
  }

 private:
  T* column(int64_t j) const { return scaled_.get() + j * o_.n; }
  T* sample(int64_t j) const { return samples_.get() + j * kSample; }

  // Calls body(item, scratch), a status, for the items in turn, whatever thread is free.
  template <class Body>
  int32_t share_out(int64_t items, Body&& body) {
    std::atomic<int64_t> next{0};
    const auto threads = static_cast<int32_t>(std::min<int64_t>(threads_, items));
    return run_threads(threading_, threads, [&](int32_t thread) {
      for (int64_t item; (item = next.fetch_add(1)) < items;) {
        if (const int32_t status = body(item, scratch_.get() + 2 * thread * o_.n); status != kDone) return status;
      }
      return int32_t{kDone};
    });
  }

  int32_t scale_variables() {
    return share_out(o_.p, [&](int64_t j, T* scratch) {
      T* y = column(j);
      copy_variable(o_, j, y);
      T median;
      const T deviation = sampled_deviation(
          o_.n, [y](int64_t i) { return y[i]; }, scratch, &median);
      if (!is_scale(deviation)) return int32_t{kSingular};
      location_[j] = static_cast<double>(median);
      scale_[j] = static_cast<double>(deviation);
      for (int64_t i = 0; i < o_.n; ++i) y[i] = (y[i] - median) / deviation;
      for (int64_t k = 0; k < kSample && is_sampled(o_.n); ++k) sample(j)[k] = y[place_in_sample(o_.n, k)];
      return int32_t{kDone};
    });
  }

  // The lower triangle by columns: a quarter of the difference of the squared scales of sum and difference.
  int32_t compare_pairs() {
    const int64_t p = o_.p, n = o_.n;
    auto place = [p](int64_t i, int64_t j) { return j * p - j * (j - 1) / 2 + (i - j); };
    for (int64_t j = 0; j < p; ++j) pairs_[place(j, j)] = 1;
    if (p == 1) return kDone;
    return share_out(p * (p - 1) / 2, [&](int64_t pair, T* scratch) {
      auto i = static_cast<int64_t>((1 + std::sqrt(1 + 8 * static_cast<double>(pair))) / 2);
      while (i * (i - 1) / 2 > pair) --i;
      while (i * (i + 1) / 2 <= pair) ++i;
      const int64_t j = pair - i * (i - 1) / 2;
      const T *x = column(i), *y = column(j);
      const T *xs = sample(i), *ys = sample(j);
      const auto scale = [&](auto&& combine) {
        return static_cast<double>(sampled_deviation(
            n, [=](int64_t k) { return combine(x[k], y[k]); }, [=](int64_t k) { return combine(xs[k], ys[k]); },
            scratch, static_cast<T*>(nullptr)));
      };
      const double sum = scale([](T a, T b) { return a + b; });
      const double difference = scale([](T a, T b) { return a - b; });
      pairs_[place(i, j)] = 0.25 * (sum * sum - difference * difference);
      return std::isfinite(pairs_[place(i, j)]) ? int32_t{kDone} : int32_t{kSingular};
    });
  }

  int32_t find_directions() {
    const auto p = static_cast<int32_t>(o_.p);
    double best = 0;
    int32_t integers = 0;
    blas::spevd('V', 'L', p, pairs_, values_, vectors_, p, &best, -1, &integers, -1);
    const auto length = static_cast<int64_t>(best);
    const serv::Block<double> work(static_cast<uint64_t>(length));
    const serv::Block<int32_t> more(static_cast<uint64_t>(integers));
    if (!work || !more) return kNoMemory;
    const int32_t info = blas::spevd('V', 'L', p, pairs_, values_, vectors_, p, work.get(),
                                     static_cast<int32_t>(length), more.get(), integers);
    return info == 0 ? kDone : int32_t{kSingular};
  }

  int32_t scale_projections() {
    const int64_t p = o_.p, n = o_.n;
    return share_out(p, [&](int64_t k, T* z) {
      T* scratch = z + n;
      std::fill(z, z + n, T{0});
      for (int64_t j = 0; j < p; ++j) {
        const T* y = column(j);
        const T e = static_cast<T>(vectors_[k * p + j]);
        for (int64_t i = 0; i < n; ++i) z[i] += e * y[i];
      }
      T median;
      const T deviation = sampled_deviation(
          n, [z](int64_t i) { return z[i]; }, scratch, &median);
      if (!is_scale(deviation)) return int32_t{kSingular};
      values_[k] = static_cast<double>(deviation);
      projected_[k] = static_cast<double>(median);
      return int32_t{kDone};
    });
  }

  void rebuild(T* mean, T* matrix) {
    const int64_t p = o_.p;
    const auto order = static_cast<int32_t>(p);
    for (int64_t j = 0; j < p; ++j) {
      double at = 0;
      for (int64_t k = 0; k < p; ++k) at += vectors_[k * p + j] * projected_[k];
      mean[j] = static_cast<T>(location_[j] + scale_[j] * at);
    }
    for (int64_t k = 0; k < p; ++k) {
      for (int64_t j = 0; j < p; ++j) vectors_[k * p + j] *= values_[k] * scale_[j];
    }
    blas::syrk('U', 'N', order, order, 1.0, vectors_, order, 0.0, product_, order);
    mirror_upper(p, product_);
    for (int64_t k = 0; k < p * p; ++k) matrix[k] = static_cast<T>(product_[k]);
  }

  const Observations<T>& o_;
  const OrvikThreading* threading_;
  int32_t threads_ = 1;
  serv::Block<T> scaled_;   // the variables, scaled, one after the other
  serv::Block<T> samples_;  // their samples, gathered once for all pairs
  serv::Block<T> scratch_;  // two variables for each thread
  serv::Block<double> small_;
  double *location_ = nullptr, *scale_ = nullptr;    // of the variables
  double *values_ = nullptr, *projected_ = nullptr;  // scales and medians of the projections
  double *vectors_ = nullptr, *product_ = nullptr, *pairs_ = nullptr;
};

}  // namespace

template <class T>
int32_t robust_start(const Observations<T>& o, const OrvikThreading* threading, T* mean, T* matrix) {
  return blas::load() ? Start<T>(o, threading).run(mean, matrix) : int32_t{kNoMemory};
}
template int32_t robust_start(const Observations<float>&, const OrvikThreading*, float*, float*);
template int32_t robust_start(const Observations<double>&, const OrvikThreading*, double*, double*);

}  // namespace orvik::ss
