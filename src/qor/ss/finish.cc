#include "qor/ss/finish.h"

#include <cmath>

#include "qor/ss/moments.h"

namespace orvik::ss {
namespace {

// The caller's rows as numbers: zero where the work list does not have the row.
template <class T>
struct Rows {
  const Task& task;
  const Plan& plan;

  double get(int bit, int64_t j) const {
    return plan.has(bit) ? static_cast<double>(real<T>(output(task, bit))[j]) : 0.0;
  }
  void set(int bit, int64_t j, double value) const {
    if (plan.has(bit)) real<T>(output(task, bit))[j] = static_cast<T>(value);
  }
};

void* central_sum_field(const Task& task, int k) { return output(task, kCentralSum2 + k - 2); }

// Where a running central sum that the pass needs lives between the blocks of a run.
enum class Home { Sum, Moment, Raw, Unasked, None };

Home home_of(const Task& task, const Plan& plan, int k) {
  if (plan.has(kCentralSum2 + k - 2)) return Home::Sum;
  if (plan.has(kCentral2 + k - 2)) return Home::Moment;
  bool raw = true;
  for (int i = 2; i <= k; ++i) raw = raw && plan.has(kRaw2 + i - 2);
  if (raw) return Home::Raw;
  return central_sum_field(task, k) != nullptr ? Home::Unasked : Home::None;
}

// Coefficient of variation, skewness, kurtosis from the moments of orders 2 to 4.
template <class T>
void set_ratios(const Rows<T>& rows, int64_t j, double mean, const double* c) {
  rows.set(kVariation, j, std::sqrt(c[2]) / mean);
  rows.set(kSkewness, j, c[3] / std::sqrt(c[2] * c[2] * c[2]));
  rows.set(kKurtosis, j, c[4] / (c[2] * c[2]) - 3.0);
}

// A central sum about `mean`, given one about `mean` + `delta` whose own first-order sum is zero.
double rebase(int k, double weight, double delta, const double* c) {
  switch (k) {
    case 2:
      return c[2] + weight * delta * delta;
    case 3:
      return c[3] + 3 * delta * c[2] + weight * delta * delta * delta;
    default:
      return c[4] + delta * (4 * c[3] + delta * (6 * c[2] + weight * delta * delta));
  }
}

}  // namespace

template <class T>
void seed(const Task& task, const Data<T>& d, const Plan& plan, const Weights& old, Accumulators<T>* acc) {
  acc->weights = old;
  if (old.sum == 0) return;
  const Rows<T> rows{task, plan};
  const double factor = unbiased(old);
  for (int64_t j = 0; j < d.p; ++j) {
    if (!d.selected(j)) continue;
    const double m = rows.get(kMean, j);
    if (acc->mean != nullptr) acc->mean[j] = static_cast<T>(m);
    if (acc->central[0] != nullptr) acc->central[0][j] = static_cast<T>(m);
    const double r[5] = {1, m, rows.get(kRaw2, j), rows.get(kRaw3, j), rows.get(kRaw4, j)};
    for (int k = 2; k <= plan.central_order(); ++k) {
      double c = 0;
      switch (home_of(task, plan, k)) {
        case Home::Sum:
        case Home::Unasked:
          c = real<T>(central_sum_field(task, k))[j];
          break;
        case Home::Moment:
          c = rows.get(kCentral2 + k - 2, j) * old.sum / (k == 2 ? factor : 1.0);
          break;
        case Home::Raw:
          c = central_from_raw(k, m, r) * old.sum;
          break;
        case Home::None:
          break;
      }
      acc->central[k - 1][j] = static_cast<T>(c);
    }
  }
}

template <class T>
void finish(const Task& task, const Data<T>& d, const Plan& plan, const Weights& old, const Accumulators<T>& acc,
            const T* old_mean) {
  const Rows<T> rows{task, plan};
  const Weights total = acc.weights;
  const bool running = old.sum != 0;
  const double factor = unbiased(total);
  const double old_factor = running ? unbiased(old) : 1.0;
  const bool user = plan.method == Method::UserMean;
  const int power = plan.power_order();
  for (int64_t j = 0; j < d.p; ++j) {
    if (!d.selected(j)) continue;

    // Sums of powers of x, of the pass alone and then of all.
    double deviations[5] = {total.sum - old.sum, 0, 0, 0, 0}, s[5], r[5] = {};
    for (int k = 1; k <= power; ++k) deviations[k] = static_cast<double>(acc.power[k - 1][j]);
    const double shift = user ? rows.get(kMean, j) : 0.0;
    plain_sums(shift, deviations, s);
    if (running) {
      s[1] += plan.has(kSum) ? rows.get(kSum, j) : old.sum * rows.get(kMean, j);
      for (int k = 2; k <= power; ++k) {
        s[k] += plan.has(kRawSum2 + k - 2) ? rows.get(kRawSum2 + k - 2, j) : old.sum * rows.get(kRaw2 + k - 2, j);
      }
    }

    // Central sums, about the user's mean where that is given.
    double mean = user ? shift : s[1] / total.sum;
    double sums[5] = {}, c[5] = {};
    if (plan.method == Method::OnePass) {
      if (plan.central_order() != 0) mean = static_cast<double>(acc.central[0][j]);
      for (int k = 2; k <= plan.central_order(); ++k) sums[k] = static_cast<double>(acc.central[k - 1][j]);
    } else if (user) {
      double before[5] = {};
      for (int k = 2; k <= power && running; ++k) {
        before[k] = plan.has(kCentralSum2 + k - 2)
                        ? rows.get(kCentralSum2 + k - 2, j)
                        : rows.get(kCentral2 + k - 2, j) * old.sum / (k == 2 ? old_factor : 1.0);
      }
      const double delta = running && old_mean != nullptr ? static_cast<double>(old_mean[j]) - mean : 0.0;
      for (int k = 2; k <= power; ++k) {
        sums[k] = deviations[k] + (delta == 0 ? before[k] : rebase(k, old.sum, delta, before));
      }
    }
    for (int k = 1; k <= power; ++k) r[k] = s[k] / total.sum;
    if (plan.method == Method::Fast) {
      for (int k = 2; k <= power; ++k) sums[k] = central_from_raw(k, mean, r) * total.sum;
    }
    for (int k = 2; k <= 4; ++k) c[k] = sums[k] / total.sum;
    for (int k = 2; k <= plan.central_order() && power == 0; ++k) r[k] = raw_from_central(k, mean, c);
    c[2] *= factor;

    if (!user) rows.set(kMean, j, mean);
    rows.set(kSum, j, s[1]);
    for (int k = 2; k <= 4; ++k) {
      rows.set(kRaw2 + k - 2, j, r[k]);
      rows.set(kRawSum2 + k - 2, j, s[k]);
      rows.set(kCentral2 + k - 2, j, c[k]);
      rows.set(kCentralSum2 + k - 2, j, sums[k]);
      if (plan.central_order() >= k && home_of(task, plan, k) == Home::Unasked) {
        real<T>(central_sum_field(task, k))[j] = static_cast<T>(sums[k]);
      }
    }
    set_ratios(rows, j, mean, c);
  }
}

template <class T>
void finish_held(const Task& task, const Data<T>& d, const Plan& plan, const Weights& total) {
  const Rows<T> rows{task, plan};
  const double factor = unbiased(total);
  for (int64_t j = 0; j < d.p; ++j) {
    if (!d.selected(j)) continue;
    if (plan.has(kSum)) rows.set(kMean, j, rows.get(kSum, j) / total.sum);
    double c[5] = {};
    for (int k = 2; k <= 4; ++k) {
      const int raw_sum = kRawSum2 + k - 2, central_sum = kCentralSum2 + k - 2;
      if (plan.has(raw_sum)) rows.set(kRaw2 + k - 2, j, rows.get(raw_sum, j) / total.sum);
      if (plan.has(central_sum)) {
        rows.set(kCentral2 + k - 2, j, rows.get(central_sum, j) / total.sum * (k == 2 ? factor : 1.0));
      }
      c[k] = rows.get(kCentral2 + k - 2, j);
    }
    set_ratios(rows, j, rows.get(kMean, j), c);
  }
}

#define ORVIK_INSTANTIATE(T)                                                                                        \
  template void seed(const Task&, const Data<T>&, const Plan&, const Weights&, Accumulators<T>*);                   \
  template void finish(const Task&, const Data<T>&, const Plan&, const Weights&, const Accumulators<T>&, const T*); \
  template void finish_held(const Task&, const Data<T>&, const Plan&, const Weights&);
ORVIK_INSTANTIATE(float)
ORVIK_INSTANTIATE(double)
#undef ORVIK_INSTANTIATE

}  // namespace orvik::ss
