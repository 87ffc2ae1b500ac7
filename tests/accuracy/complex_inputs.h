// Inputs of complex functions.
#pragma once

#include "accuracy/inputs.h"
#include "accuracy/random.h"
#include "tools/rows/domains.h"

namespace orvik::accuracy {

// The values of which every pair of parts is tried.
template <class E>
std::vector<E> special_parts();

// About `count` inputs: pairs of special parts, axes and branch cuts from both sides, the ends of the range, the unit
// circle, random bit patterns, values of the domain, parts of very different size.
template <class E>
void make_complex_inputs(const rows::Row& row, const rows::Domain& domain, size_t count, Random& random, bool fixed,
                         Inputs<E>& in);

}  // namespace orvik::accuracy
