#include "qor/ss/pass.h"

#include <algorithm>

#include "qor/ss/moments.h"
#include "qor/ss/segment.h"
#include "qor/ss/states.h"
#include "qor/ss/sums.h"

namespace orvik::ss {
namespace {

template <class T, class S>
bool has_matrix(const Accumulators<T, S>& acc) {
  if constexpr (S::kOne) {
    return false;
  } else {
    return acc.cross.matrix() != nullptr;
  }
}

// add_power_sums, of a constant order where there is one.
template <int K, class S, class T, class Rows>
inline void add_sums(const Data<T>& d, int64_t i0, int64_t i1, int64_t j0, int64_t j1, int order, const T* shift,
                     Rows& sums) {
  if constexpr (S::kOne) {
    double segment[K] = {};
    add_segment(i1 - i0, d.x + i0, d.weights != nullptr ? d.weights + i0 : nullptr, shift, segment);
    for (int k = 0; k < K; ++k) sums[k][0] += segment[k];
  } else {
    add_power_sums(d, i0, i1, j0, j1, order, shift, sums);
  }
}

template <class S, class T, class Body>
inline void for_ranges(const Data<T>& d, Body&& body) {
  if constexpr (S::kOne) {
    body(0, 1);
  } else {
    for_selected_ranges(d, body);
  }
}

template <class S, class Rows>
inline void join(int64_t p, int order, double a, double b, Rows& into, const Rows& from) {
  if constexpr (S::kOne) {
    join_states<S::kOrder>(1, a, b, into, from);
  } else {
    switch (order) {
      case 1:
        return join_states<1>(p, a, b, into, from);
      case 2:
        return join_states<2>(p, a, b, into, from);
      case 3:
        return join_states<3>(p, a, b, into, from);
      default:
        return join_states<4>(p, a, b, into, from);
    }
  }
}

// Observations of the next block: short ones first by one pass, which must know the mean before the long ones. What is
// kept by place in a block is of the precision of the data, which bounds its length.
template <class T>
int64_t block_length(const Data<T>& d, const Plan& plan, int64_t done) {
  constexpr int64_t kFirst = 1536, kValues = 65536;
  int64_t longest = std::clamp<int64_t>(kValues / d.p, 256, 4096);
  if (d.contiguous_variables) longest = d.weights == nullptr || d.p == 1 ? 16384 : 2048;
  return plan.method == Method::OnePass ? std::min(std::max(done, kFirst), longest) : longest;
}

template <class T>
int64_t first_with_weight(const Data<T>& d, int64_t i) {
  while (d.weights != nullptr && d.weights[i] == 0) ++i;
  return i;
}

// A point near the values of a block: the first one, or the mean of its beginning by way of deviations from that one.
// The mean of equal values is that value. A beginning of a part f of the weight may cost log2(1 / f) bits, 4 at most,
// where all the rest lies far from it.
template <class T, class S>
void find_pivot(const Data<T>& d, int64_t i0, int64_t i1, int64_t j0, int64_t j1, double weight, bool mean,
                Accumulators<T, S>* acc) {
  constexpr int64_t kBeginning = 128;
  constexpr double kPart = 1.0 / 16;
  const T* x = d.x + first_with_weight(d, i0) * d.observation_step();
  for (int64_t j = j0; j < j1; ++j) acc->pivot[j] = finite_or_zero(x[j * d.variable_step()]);
  if (!mean) return;
  if (i1 - i0 > 2 * kBeginning) {
    const Weights beginning = weigh(d, i0, kBeginning);
    if (beginning.sum >= kPart * weight) i1 = i0 + kBeginning, weight = beginning.sum;
  }
  std::fill(acc->block[0] + j0, acc->block[0] + j1, 0.0);
  add_sums<1, S>(d, i0, i1, j0, j1, 1, acc->pivot, acc->block);
  for (int64_t j = j0; j < j1; ++j) {
    const T m = static_cast<T>(static_cast<double>(acc->pivot[j]) + acc->block[0][j] / weight);
    if (finite_or_zero(m) == m) acc->pivot[j] = m;
  }
}

// From sums about the pivot to a state; plain sums as a by-product.
template <class T, class S>
void to_states(const Plan& plan, int64_t j0, int64_t j1, double weight, Accumulators<T, S>* acc) {
  const int power = S::power(plan), central = S::central(plan), order = std::max(power, central);
  for (int64_t j = j0; j < j1; ++j) {
    double s[5] = {weight, 0, 0, 0, 0};
    for (int k = 1; k <= order; ++k) s[k] = acc->block[k - 1][j];
    const auto u = static_cast<double>(acc->pivot[j]);
    if (power != 0) {
      double plain[5];
      plain_sums(u, s, plain);
      for (int k = 1; k <= power; ++k) acc->power[k - 1][j] += plain[k];
    }
    if (central == 0) continue;
    acc->block[0][j] = (u - static_cast<double>(acc->shift[j])) + s[1] / weight;
    for (int k = 2; k <= central; ++k) acc->block[k - 1][j] = central_sum(k, s);
  }
}

// A block of the one-pass method.
template <class T, class S>
void add_block(const Data<T>& d, const Plan& plan, int64_t i0, int64_t i1, int64_t j0, int64_t j1, const Weights& w,
               Accumulators<T, S>* acc) {
  const int order = std::max(S::power(plan), S::central(plan));
  const double before = acc->weights.sum;
  // The mean of all before, where it is the better half of the new one.
  const bool known = before >= w.sum;
  if (known) {
    for (int64_t j = j0; j < j1; ++j) {
      const T m = static_cast<T>(static_cast<double>(acc->shift[j]) + acc->central[0][j]);
      acc->pivot[j] = finite_or_zero(m);
    }
  } else {
    find_pivot(d, i0, i1, j0, j1, w.sum, order > 1 || has_matrix(*acc), acc);
  }
  for (int k = 0; k < order; ++k) std::fill(acc->block[k] + j0, acc->block[k] + j1, 0.0);
  add_sums<S::kOrder, S>(d, i0, i1, j0, j1, order, acc->pivot, acc->block);
  to_states(plan, j0, j1, w.sum, acc);
}

// The products about the pivots join those about the running mean, which the block has not joined yet.
template <class T>
void add_products(const Data<T>& d, int64_t i0, int64_t i1, const Weights& w, Accumulators<T>* acc) {
  acc->cross.add(Observations<T>(d), i0, i1, acc->pivot);
  const double before = acc->weights.sum;
  for (int64_t j = 0; j < d.p; ++j) {
    const double pivot = static_cast<double>(acc->pivot[j]) - static_cast<double>(acc->shift[j]);
    acc->outer[j] = static_cast<T>(acc->block[0][j] - pivot);
  }
  acc->cross.add_outer(-w.sum, acc->outer);
  if (before == 0) return;
  for (int64_t j = 0; j < d.p; ++j) acc->outer[j] = static_cast<T>(acc->block[0][j] - acc->central[0][j]);
  acc->cross.add_outer(before * (w.sum / (before + w.sum)), acc->outer);
}

}  // namespace

int double_rows(const Plan& plan) {
  const int mean = plan.matrix() && plan.method == Method::Fast ? 1 : 0;
  return plan.power + plan.central + (plan.central != 0 ? plan.order() : 0) + mean;
}

int real_rows(const Plan& plan) { return (plan.central != 0 ? 1 : 0) + (plan.matrix() ? 1 : 0); }

template <class T, class S>
void run_pass(const Data<T>& d, const Plan& plan, int64_t i0, int64_t i1, Accumulators<T, S>* acc) {
  const int power = S::power(plan), central = S::central(plan);
  const bool by_states = central != 0;
  for (int64_t i = i0, end; i < i1; i = end) {
    end = i1 - i <= 1536 ? i1 : std::min(i1, i + block_length(d, plan, i - i0));
    const Weights w = weigh(d, i, end - i);
    if (w.observations == 0) continue;
    for_ranges<S>(d, [&](int64_t j0, int64_t j1) {
      if (by_states) {
        add_block(d, plan, i, end, j0, j1, w, acc);
      } else if (power != 0) {
        add_sums<S::kOrder, S>(d, i, end, j0, j1, power, acc->shift, acc->power);
      }
    });
    if constexpr (!S::kOne) {
      if (has_matrix(*acc)) {
        by_states ? add_products(d, i, end, w, acc) : acc->cross.add(Observations<T>(d), i, end, acc->shift);
      }
    }
    if (by_states) join<S>(d.p, central, acc->weights.sum, w.sum, acc->central, acc->block);
    acc->weights.add(w);
  }
}

template <class T>
void clear(int64_t p, const Plan& plan, Accumulators<T>* acc) {
  acc->weights = {};
  for (int k = 0; k < plan.power; ++k) std::fill(acc->power[k], acc->power[k] + p, 0.0);
  for (int k = 0; k < plan.central; ++k) std::fill(acc->central[k], acc->central[k] + p, 0.0);
  if (T* c = acc->cross.matrix(); c != nullptr) std::fill(c, c + p * p, T{0});
}

template <class T>
void merge(int64_t p, const Plan& plan, Accumulators<T>* into, const Accumulators<T>& from) {
  const double a = into->weights.sum, b = from.weights.sum;
  if (from.weights.observations == 0) return;
  for (int k = 0; k < plan.power; ++k) {
    for (int64_t j = 0; j < p; ++j) into->power[k][j] += from.power[k][j];
  }
  if (T* c = into->cross.matrix(); c != nullptr) {
    for (int64_t k = 0; k < p * p; ++k) c[k] += from.cross.matrix()[k];
    if (plan.method == Method::OnePass && a != 0) {
      for (int64_t j = 0; j < p; ++j) into->outer[j] = static_cast<T>(from.central[0][j] - into->central[0][j]);
      into->cross.add_outer(a * (b / (a + b)), into->outer);
    }
  }
  if (plan.central != 0) join<Many>(p, plan.central, a, b, into->central, from.central);
  into->weights.add(from.weights);
}

#define ORVIK_INSTANTIATE(T)                                                                \
  template void run_pass(const Data<T>&, const Plan&, int64_t, int64_t, Accumulators<T>*);  \
  template void clear(int64_t, const Plan&, Accumulators<T>*);                              \
  template void merge(int64_t, const Plan&, Accumulators<T>*, const Accumulators<T>&);
ORVIK_INSTANTIATE(float)
ORVIK_INSTANTIATE(double)
#undef ORVIK_INSTANTIATE
#define ORVIK_INSTANTIATE(T, K, states) \
  template void run_pass(const Data<T>&, const Plan&, int64_t, int64_t, Accumulators<T, One<K, states>>*);
ORVIK_SS_ONES(ORVIK_INSTANTIATE)
#undef ORVIK_INSTANTIATE

}  // namespace orvik::ss
