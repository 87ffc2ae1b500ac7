// One pass over a chunk of the data, and the merge of two chunks' results.
//
// All methods add sums of powers of deviations from a point of each variable, block by block. The fast method takes
// deviations from zero (with a matrix from the mean so far or an observation, so that a variable that does not vary has
// zeros all along), the user mean method from the user's mean. The one-pass method takes them from the running
// mean, makes a state of each block and joins it to the running one (means as distances from a point of the call, so
// that one far from zero keeps its digits): what a block has less than half of the weight for costs no digits. A block
// that weighs more than all before it is about its own mean, which a sweep of its own finds.
#pragma once

#include <algorithm>
#include <cmath>
#include <limits>
#include <type_traits>

#include "qor/ss/cross_product.h"
#include "qor/ss/moments.h"
#include "qor/ss/plan.h"
#include "qor/ss/segment.h"
#include "qor/ss/states.h"
#include "qor/ss/sums.h"
#include "qor/ss/task.h"

namespace orvik::ss {

// What the pass is compiled for. Many: any number of variables, orders that the plan tells.
struct Many {
  static constexpr bool kOne = false;
  static constexpr int kOrder = 0;
  static constexpr bool kStates = false;  // known to be the one-pass method with central sums
  template <class V>
  using Row = V*;
  static int power(const Plan& plan) { return plan.power; }
  static int central(const Plan& plan) { return plan.central; }
};
// One: a single variable without a matrix. Its rows are in place and its order is a constant, so that a call over few
// values is not all preparations; what a lower order would have done for power or central sums is done to this one.
template <int K, bool States>
struct One {
  static constexpr bool kOne = true;
  static constexpr int kOrder = K;
  static constexpr bool kStates = States;
  template <class V>
  using Row = V[1];
  static int power(const Plan& plan) { return plan.power != 0 ? K : 0; }
  static int central(const Plan&) { return States ? K : 0; }
};

// What is accumulated with a matrix.
template <class T>
struct MatrixPart {
  T* outer;                // a vector whose outer product joins it
  double* mean = nullptr;  // fast: the mean of all
  CrossProduct<T> cross;
};
struct NoMatrix {};

// What a chunk accumulates: rows of p values, as many as the plan needs; the others mean nothing.
template <class T, class S = Many>
struct Accumulators : std::conditional_t<S::kOne, NoMatrix, MatrixPart<T>> {
  Weights weights;                            // with the seed in the first ones
  typename S::template Row<double> power[4];  // sums of powers, never seeded: about `shift`, or about zero by one pass
  typename S::template Row<double>
      central[4];                             // one pass: running mean, as its distance from `shift`, and central sums
  typename S::template Row<double> block[4];  // one pass: the same of a block
  const T* shift = nullptr;                   // the point of the call; null is zero
  typename S::template Row<T> pivot;          // one pass: the point of a block
};

// A point that deviations can be taken from.
template <class T>
T finite_or_zero(T x) {
  return std::fabs(x) <= std::numeric_limits<T>::max() ? x : T{0};
}

// Number of rows of double and of T that accumulators need.
int double_rows(const Plan& plan);
int real_rows(const Plan& plan);

namespace pass {

template <class T, class S>
inline bool has_matrix(const Accumulators<T, S>& acc) {
  if constexpr (S::kOne) {
    return false;
  } else {
    return acc.cross.matrix() != nullptr;
  }
}

// add_power_sums, to what the rows hold or to nothing; of a constant order where there is one.
template <int K, class S, bool Fresh, class T, class Rows>
inline void add_sums(const Data<T>& d, int64_t i0, int64_t i1, int64_t j0, int64_t j1, int order, const T* shift,
                     Rows& sums) {
  if constexpr (S::kOne) {
    double segment[K];
    add_segment(i1 - i0, d.x + i0, d.weights != nullptr ? d.weights + i0 : nullptr, shift, segment);
    for (int k = 0; k < K; ++k) sums[k][0] = Fresh ? segment[k] : sums[k][0] + segment[k];
  } else {
    for (int k = 0; k < order && Fresh; ++k) std::fill(sums[k] + j0, sums[k] + j1, 0.0);
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
inline int64_t block_length(const Data<T>& d, const Plan& plan, int64_t done) {
  constexpr int64_t kFirst = 1536, kValues = 65536;
  int64_t longest = std::clamp<int64_t>(kValues / d.p, 256, 4096);
  if (d.contiguous_variables) longest = d.weights == nullptr || d.p == 1 ? 16384 : 2048;
  return plan.method == Method::OnePass ? std::min(std::max(done, kFirst), longest) : longest;
}

template <class T>
inline int64_t first_with_weight(const Data<T>& d, int64_t i) {
  while (d.weights != nullptr && d.weights[i] == 0) ++i;
  return i;
}

// A point near the values of a block: the first one, or the mean of its beginning by way of deviations from that one.
// The mean of equal values is that value. A beginning of a part f of the weight may cost log2(1 / f) bits, 4 at most,
// where all the rest lies far from it.
template <class T, class S>
inline void find_pivot(const Data<T>& d, int64_t i0, int64_t i1, int64_t j0, int64_t j1, double weight, bool mean,
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
  add_sums<1, S, true>(d, i0, i1, j0, j1, 1, acc->pivot, acc->block);
  for (int64_t j = j0; j < j1; ++j) {
    const T m = static_cast<T>(static_cast<double>(acc->pivot[j]) + acc->block[0][j] / weight);
    if (finite_or_zero(m) == m) acc->pivot[j] = m;
  }
}

// From sums about the pivot to a state; plain sums as a by-product.
template <class T, class S>
inline void to_states(const Plan& plan, int64_t j0, int64_t j1, double weight, Accumulators<T, S>* acc) {
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
inline void add_block(const Data<T>& d, const Plan& plan, int64_t i0, int64_t i1, int64_t j0, int64_t j1,
                      const Weights& w, Accumulators<T, S>* acc) {
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
  add_sums<S::kOrder, S, true>(d, i0, i1, j0, j1, order, acc->pivot, acc->block);
  to_states(plan, j0, j1, w.sum, acc);
}

// The products about the pivots join those about the running mean, which the block has not joined yet.
template <class T>
inline void add_products(const Data<T>& d, int64_t i0, int64_t i1, const Weights& w, Accumulators<T>* acc) {
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

}  // namespace pass

// Feeds the observations [i0, i1).
template <class T, class S>
inline void run_pass(const Data<T>& d, const Plan& plan, int64_t i0, int64_t i1, Accumulators<T, S>* acc) {
  const int power = S::power(plan), central = S::central(plan);
  const bool by_states = central != 0;
  for (int64_t i = i0, end; i < i1; i = end) {
    end = i1 - i <= 1536 ? i1 : std::min(i1, i + pass::block_length(d, plan, i - i0));
    const Weights w = weigh(d, i, end - i);
    if (w.observations == 0) continue;
    pass::for_ranges<S>(d, [&](int64_t j0, int64_t j1) {
      if (by_states) {
        pass::add_block(d, plan, i, end, j0, j1, w, acc);
      } else if (power != 0) {
        pass::add_sums<S::kOrder, S, false>(d, i, end, j0, j1, power, acc->shift, acc->power);
      }
    });
    if constexpr (!S::kOne) {
      if (pass::has_matrix(*acc)) {
        by_states ? pass::add_products(d, i, end, w, acc) : acc->cross.add(Observations<T>(d), i, end, acc->shift);
      }
    }
    if (by_states) pass::join<S>(d.p, central, acc->weights.sum, w.sum, acc->central, acc->block);
    acc->weights.add(w);
  }
}

extern template void run_pass(const Data<float>&, const Plan&, int64_t, int64_t, Accumulators<float>*);
extern template void run_pass(const Data<double>&, const Plan&, int64_t, int64_t, Accumulators<double>*);

// Back to nothing, but for the point.
template <class T>
void clear(int64_t p, const Plan& plan, Accumulators<T>* acc);

// a += b. `b` is left without meaning.
template <class T>
void merge(int64_t p, const Plan& plan, Accumulators<T>* a, const Accumulators<T>& b);

}  // namespace orvik::ss
