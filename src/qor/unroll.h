// Loops over a few vectors whose indices are constants to the compiler, so that arrays of vectors stay in registers.
#pragma once

#include <type_traits>
#include <utility>

namespace orvik {

// body(0), body(1) ... body(N - 1), in this order.
template <int N, class Body>
inline __attribute__((always_inline)) void unroll(Body&& body) {
  [&]<int... k>(std::integer_sequence<int, k...>) __attribute__((always_inline)) {
    (body(std::integral_constant<int, k>{}), ...);
  }
  (std::make_integer_sequence<int, N>{});
}

}  // namespace orvik
