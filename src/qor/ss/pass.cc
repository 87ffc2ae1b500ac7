#include "qor/ss/pass.h"

#include <algorithm>

#include "qor/ss/central_sums.h"
#include "qor/ss/cross_product.h"
#include "qor/ss/power_sums.h"

namespace orvik::ss {
namespace {

template <class T>
Weights add_weights(const Data<T>& d, int64_t i, int64_t m, Weights total) {
  if (d.weights == nullptr) {
    total.sum += static_cast<double>(m);
    total.squares += static_cast<double>(m);
    return total;
  }
  for (int64_t r = i; r < i + m; ++r) {
    const double w = static_cast<double>(d.weights[r]);
    total.sum += w;
    total.squares += w * w;
  }
  return total;
}

// mean := (seed W mean + sums of the pass) / W
template <class T>
void finish_mean(const Data<T>& d, double seed, const Accumulators<T>& acc) {
  for (int64_t j = 0; j < d.p; ++j) {
    acc.mean[j] = static_cast<T>((seed * static_cast<double>(acc.mean[j]) + static_cast<double>(acc.power[0][j])) /
                                 acc.weights.sum);
  }
}

}  // namespace

template <class T>
int32_t run_pass(const Data<T>& d, const Plan& plan, int64_t i0, int64_t i1, const T* user_mean, Accumulators<T>* acc) {
  const int power = plan.power_order();
  const int central = plan.central_order();
  const bool by_blocks = acc->cross != nullptr || (power != 0 && central != 0);
  CrossProduct<T> cross(d, plan.method, acc->cross);
  if (acc->cross != nullptr && !cross.allocate()) return kNoMemory;
  const double seed = acc->weights.sum;
  const bool uncentred = acc->cross != nullptr && plan.method == Method::Fast;
  if (uncentred && seed != 0) cross.add_outer(seed, acc->mean);

  constexpr int64_t kLong = 4096;
  if (acc->cross == nullptr && by_blocks && d.contiguous_variables && i1 - i0 >= kLong) {
    // Variable by variable: both kinds of sums read a block while it is in the second cache.
    constexpr int64_t kBlock = 0x20000 / sizeof(T);
    for_selected_ranges(d, [&](int64_t j0, int64_t j1) {
      for (int64_t j = j0; j < j1; ++j) {
        double weight = seed;
        for (int64_t i = i0; i < i1; i += kBlock) {
          const int64_t end = std::min(i + kBlock, i1);
          weight = update_central_sums(d, i, end, j, j + 1, central, weight, acc->central);
          add_power_sums(d, i, end, j, j + 1, power, user_mean, acc->power);
        }
      }
    });
    acc->weights = add_weights(d, i0, i1 - i0, acc->weights);
    return kDone;
  }

  const bool recentres = acc->cross != nullptr && plan.method == Method::OnePass;
  int64_t block = by_blocks ? cross.block() : i1 - i0;
  if (recentres && d.contiguous_variables) {
    // A mean over a few hundred values is slow: it goes ahead by as many blocks as the last cache keeps.
    constexpr int64_t kAhead = 0x400000 / sizeof(T);
    block *= std::max<int64_t>(kAhead / d.p / block, 1);
  }
  for (int64_t i = i0; i < i1; i += block) {
    const int64_t end = std::min(i + block, i1);
    const Weights before = acc->weights;
    if (recentres) cross.before(acc->central[0]);
    for_selected_ranges(d, [&](int64_t j0, int64_t j1) {
      if (central != 0) update_central_sums(d, i, end, j0, j1, central, before.sum, acc->central);
      if (power != 0) add_power_sums(d, i, end, j0, j1, power, user_mean, acc->power);
    });
    acc->weights = add_weights(d, i, end - i, before);
    if (acc->cross == nullptr) continue;
    const T* mean = recentres ? acc->central[0] : user_mean;
    if (recentres) cross.recentre(before.sum, mean);
    for (int64_t k = i; k < end; k += cross.block()) cross.add(k, std::min(cross.block(), end - k), mean);
  }
  if (uncentred && acc->weights.sum != 0) {
    finish_mean(d, seed, *acc);
    cross.add_outer(-acc->weights.sum, acc->mean);
  }
  return kDone;
}

template <class T>
void merge(const Data<T>& d, const Plan& plan, Accumulators<T>* into, const Accumulators<T>& from) {
  const double a = into->weights.sum, b = from.weights.sum;
  if (b == 0) return;
  into->weights.sum = a + b;
  into->weights.squares += from.weights.squares;
  for (int k = 0; k < plan.power_order(); ++k) {
    for (int64_t j = 0; j < d.p; ++j) into->power[k][j] += from.power[k][j];
  }
  if (into->cross != nullptr) {
    for (int64_t k = 0; k < d.p * d.p; ++k) into->cross[k] += from.cross[k];
    T* mean_a = plan.method == Method::OnePass ? into->central[0] : into->mean;
    T* mean_b = plan.method == Method::OnePass ? from.central[0] : from.mean;
    if (mean_a != nullptr && a != 0) {
      // The other thread's rows are free to change: its mean becomes the difference, and is put back.
      for (int64_t j = 0; j < d.p; ++j) mean_b[j] -= mean_a[j];
      CrossProduct<T>(d, plan.method, into->cross).add_outer(a * b / (a + b), mean_b);
      for (int64_t j = 0; j < d.p; ++j) mean_b[j] += mean_a[j];
    }
    if (into->mean != nullptr) {
      for (int64_t j = 0; j < d.p; ++j) {
        into->mean[j] =
            static_cast<T>((a * static_cast<double>(into->mean[j]) + b * static_cast<double>(from.mean[j])) / (a + b));
      }
    }
  }
  if (plan.central_order() != 0) merge_central_sums(d.p, plan.central_order(), a, b, into->central, from.central);
}

#define ORVIK_INSTANTIATE(T)                                                                            \
  template int32_t run_pass(const Data<T>&, const Plan&, int64_t, int64_t, const T*, Accumulators<T>*); \
  template void merge(const Data<T>&, const Plan&, Accumulators<T>*, const Accumulators<T>&);
ORVIK_INSTANTIATE(float)
ORVIK_INSTANTIATE(double)
#undef ORVIK_INSTANTIATE

}  // namespace orvik::ss
