// Where a function's arguments usually lie, and the places where its behaviour changes: inputs of benchmarks and tests.
#pragma once

#include <string_view>

#include "tools/rows/list.h"

namespace orvik::rows {

struct Domain {
  double low, high;             // first argument; of complex functions each part
  double low2 = 0, high2 = 0;   // second argument
  double edges[8] = {};         // overflow, underflow, ends of the domain, thresholds of kernels; 0: none
};

// Null: the function has no line in domains.cc. Data movers need none.
const Domain* find_domain(std::string_view function, bool complex, bool single);

// The domain of a row. Ends the program, naming the row and the file to edit, where there is none.
const Domain& domain(const Row& row);

// Empty, or what find_domain misses for this row.
std::string missing_domain(const Row& row);

}  // namespace orvik::rows
