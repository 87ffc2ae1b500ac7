// One pass over the data by one thread, and the merge of two threads' results.
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

#include "qor/ss/cross_product.h"
#include "qor/ss/plan.h"
#include "qor/ss/task.h"

namespace orvik::ss {

// What a thread accumulates: rows of p values, as many as the plan needs; the other pointers mean nothing.
template <class T>
struct Accumulators {
  Weights weights;             // with the seed in the first thread
  double* power[4];            // sums of powers, never seeded: about `shift`, or about zero by one pass
  double* central[4];          // one pass: running mean, as its distance from `shift`, and central sums
  double* block[4];            // one pass: the same of a block
  const T* shift = nullptr;    // the point of the call; null is zero
  T* pivot;                    // one pass: the point of a block
  T* outer;                    // with a matrix: a vector whose outer product joins it
  double* mean = nullptr;      // fast with a matrix: the mean of all
  CrossProduct<T> cross;
};

// A point that deviations can be taken from.
template <class T>
T finite_or_zero(T x) {
  return std::fabs(x) <= std::numeric_limits<T>::max() ? x : T{0};
}

// Number of rows of double and of T that a thread needs.
int double_rows(const Plan& plan);
int real_rows(const Plan& plan);

// Feeds the observations [i0, i1).
template <class T>
void run_pass(const Data<T>& d, const Plan& plan, int64_t i0, int64_t i1, Accumulators<T>* acc);

// a += b. `b` is left without meaning.
template <class T>
void merge(int64_t p, const Plan& plan, Accumulators<T>* a, const Accumulators<T>& b);

}  // namespace orvik::ss
