// One pass over a chunk of the data, and the merge of two chunks' results.
//
// All methods add sums of powers of deviations from a point of each variable, block by block. The fast method takes
// deviations from zero (with a matrix from the mean so far or the first observation, so that a variable that does not
// vary has zeros all along), the user mean method from the user's mean. The one-pass method takes them from the running mean, makes a state
// of each block and joins it to the running one (means as distances from a point of the call, so that one far from zero
// keeps its digits): what a block has less than half of the weight for costs no digits. A
// block that weighs more than all before it is about its own mean, which a sweep of its own finds.
#pragma once

#include <cmath>
#include <limits>
#include <type_traits>

#include "qor/ss/cross_product.h"
#include "qor/ss/plan.h"
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
// One: a single variable without a matrix. Its rows are in place and its order is a constant, so that a call over few values
// is not all preparations; what a lower order would have done for power or central sums is done to this one.
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

// make(T, K, States) for all that is compiled of One.
#define ORVIK_SS_ORDERS(make, T, states) make(T, 1, states) make(T, 2, states) make(T, 3, states) make(T, 4, states)
#define ORVIK_SS_ONES(make)           \
  ORVIK_SS_ORDERS(make, float, false) \
  ORVIK_SS_ORDERS(make, float, true)  \
  ORVIK_SS_ORDERS(make, double, false) \
  ORVIK_SS_ORDERS(make, double, true)

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
  Weights weights;                             // with the seed in the first ones
  typename S::template Row<double> power[4];   // sums of powers, never seeded: about `shift`, or about zero by one pass
  typename S::template Row<double> central[4]; // one pass: running mean, as its distance from `shift`, and central sums
  typename S::template Row<double> block[4];   // one pass: the same of a block
  const T* shift = nullptr;                    // the point of the call; null is zero
  typename S::template Row<T> pivot;           // one pass: the point of a block
};

// A point that deviations can be taken from.
template <class T>
T finite_or_zero(T x) {
  return std::fabs(x) <= std::numeric_limits<T>::max() ? x : T{0};
}

// Number of rows of double and of T that accumulators need.
int double_rows(const Plan& plan);
int real_rows(const Plan& plan);

// Feeds the observations [i0, i1).
template <class T, class S>
void run_pass(const Data<T>& d, const Plan& plan, int64_t i0, int64_t i1, Accumulators<T, S>* acc);

// Back to nothing, but for the point.
template <class T>
void clear(int64_t p, const Plan& plan, Accumulators<T>* acc);

// a += b. `b` is left without meaning.
template <class T>
void merge(int64_t p, const Plan& plan, Accumulators<T>* a, const Accumulators<T>& b);

}  // namespace orvik::ss
