// Functions of one instruction, an element at a time: for running results, and for calls so short that the kernels'
// preparations take longer.
#pragma once

#include <cstdint>
#include <cstring>

#include "lanes/ordered_numbers.h"

namespace orvik::python {

struct Sum {
  template <class T>
  static T of(T a, T b) {
    return ordered_sum(a, b);
  }
};
struct Difference {
  template <class T>
  static T of(T a, T b) {
    return a - b;
  }
};
struct Product {
  template <class T>
  static T of(T a, T b) {
    return ordered_product(a, b);
  }
};
// A NaN loses; of two the second is left. A sum makes it a quiet one.
template <class Better>
struct Selected {
  template <class T>
  static T of(T a, T b) {
    if (b != b) return ordered_sum(a != a ? b : a, T{-0.0});
    if (a != a) return b;
    return Better::holds(a, b) ? a : b;
  }
};
struct IsLarger {
  template <class T>
  static bool holds(T a, T b) {
    return a > b;
  }
};
struct IsSmaller {
  template <class T>
  static bool holds(T a, T b) {
    return a < b;
  }
};
using Larger = Selected<IsLarger>;
using Smaller = Selected<IsSmaller>;

template <class T, class Operation>
void in_order(int64_t n, char* const* at, const int64_t* steps) {
  const char *a = at[0], *b = at[1];
  char* r = at[2];
  T x, y;
  if (a == r && steps[0] == 0 && steps[2] == 0) {  // a reduction: the running result stays in a register
    std::memcpy(&x, a, sizeof x);
    for (int64_t i = 0; i < n; ++i) {
      std::memcpy(&y, b + i * steps[1], sizeof y);
      x = Operation::of(x, y);
    }
    std::memcpy(r, &x, sizeof x);
    return;
  }
  for (int64_t i = 0; i < n; ++i) {
    std::memcpy(&x, a + i * steps[0], sizeof x);
    std::memcpy(&y, b + i * steps[1], sizeof y);
    x = Operation::of(x, y);
    std::memcpy(r + i * steps[2], &x, sizeof x);
  }
}

}  // namespace orvik::python
