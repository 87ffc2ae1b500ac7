// The cold end of a kernel: special elements one at a time, through their element routine and the reporter.
#pragma once

#include <cstdint>

#include "zym/skeleton/operands.h"

namespace orvik::zym {

// An element routine: pointers to one input element (or two) and one output element (or two), the result a report code,
// 0 for none.
template <class E, int In, int Out>
struct ElementRoutine;
template <class E>
struct ElementRoutine<E, 1, 1> {
  using Type = int32_t (*)(const E* a, E* r);
};
template <class E>
struct ElementRoutine<E, 2, 1> {
  using Type = int32_t (*)(const E* a, const E* b, E* r);
};
template <class E>
struct ElementRoutine<E, 1, 2> {
  using Type = int32_t (*)(const E* a, E* r1, E* r2);
};

// Runs the routine on the lanes of `mask`, lowest first. x and r hold the inputs and the computed results of the vector
// that starts at element `index`; r takes the results, after a report what the report left in the output array.
template <class E, int In, int Out>
void special_elements(typename ElementRoutine<E, In, Out>::Type routine, const char* name,
                      const Operands<E, In, Out>& operands, int64_t index, uint32_t mask, const E* const (&x)[In],
                      E* const (&r)[Out]);

}  // namespace orvik::zym
