// Where a function's arguments usually lie, and the places where its behaviour changes: inputs of benchmarks and tests.
#pragma once

#include <string_view>

namespace orvik::rows {

struct Domain {
  double low = -8, high = 8;    // first argument
  double low2 = -8, high2 = 8;  // second argument
  double edges[6] = {};         // overflow, underflow, ends of the domain, thresholds of kernels; 0: none
};

// The domain of a function in 32-bit or 64-bit elements; functions without a line of their own have [-8, 8].
Domain domain(std::string_view function, bool single);

}  // namespace orvik::rows
