// Running mean and central sums of variables, joined by the formulas of Chan, Golub, LeVeque 1983 and Pébay 2008: one
// observation more is a state of its own, and so is a block of them.
#pragma once

#include <cstdint>

namespace orvik::ss {

// state[0] the means, state[k - 1] the weighted sums of k-th powers of deviations, k = 2 to `order`. Joins the states
// of `count` variables, `from` of weight b into `into` of weight a. What has weight 0 is nothing. Equal means stay what
// they are.
void join_states(int64_t count, int order, double a, double b, double* const into[4], const double* const from[4]);

}  // namespace orvik::ss
