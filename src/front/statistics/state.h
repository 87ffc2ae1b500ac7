// What a summary knows of the observations it has seen: sums of weights, means, central sums of orders 2 to 4, sums of
// products, extremes; all in double. Two such states merge exactly as if one had seen all (Chan, Golub, LeVeque 1983;
// Pébay 2008).
#pragma once

#include <cstdint>

namespace orvik::front {

struct Moments {
  int64_t p = 0;
  int64_t* count = nullptr;   // observations
  double* weights = nullptr;  // the sum of weights, that of their squares
  double *mean = nullptr, *second = nullptr, *third = nullptr, *fourth = nullptr;  // p each
  double *low = nullptr, *high = nullptr;
  double* products = nullptr;  // p * p, symmetric

  // Numbers of eight bytes that a state of p variables takes.
  static int64_t size(int64_t p) { return 3 + 6 * p + p * p; }
  // A state in memory of that size.
  Moments(int64_t variables, double* memory);
  void clear();
  void merge(const Moments& other);
};

}  // namespace orvik::front
