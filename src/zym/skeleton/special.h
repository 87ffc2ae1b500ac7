// The cold end of a kernel: special elements one at a time, through their element routine and the reporter.
#pragma once

#include <bit>
#include <cstdint>

#include "orvik/zym_types.h"
#include "zym/frame/thread_state.h"
#include "zym/skeleton/operands.h"

namespace orvik::zym {

// Reports `code` for the element at `position`, whose result stands in r[...][lane]: stores it where the reporter and a
// callback see it, and takes back what they leave.
template <class E, int In, int Out>
void report_element(int32_t code, const char* name, const Operands<E, In, Out>& operands, int64_t position, int lane,
                    E* const (&r)[Out]);

// Runs the element routine of Fn on the lanes of `mask`, lowest first. An element routine takes pointers to one input
// element (or two) and one output element (or two) and returns a report code, 0 for none. x and r hold the inputs and
// the computed results from element `index` on; r takes the results, after a report what the report left in the output
// array.
template <class Fn, class E, int In, int Out>
void special_elements(const char* name, const Operands<E, In, Out>& operands, int64_t index, uint32_t mask,
                      const E* const (&x)[In], E* const (&r)[Out]) {
  for (; mask != 0; mask &= mask - 1) {
    const int lane = std::countr_zero(mask);
    int32_t code;
    if constexpr (In == 2) {
      code = Fn::element(x[0] + lane, x[1] + lane, r[0] + lane);
    } else if constexpr (Out == 2) {
      code = Fn::element(x[0] + lane, r[0] + lane, r[1] + lane);
    } else {
      code = Fn::element(x[0] + lane, r[0] + lane);
    }
    if (code == 0 || (current_mode() & kErrorField) == ZYM_ERRMODE_NOERR) continue;  // a callback may change the mode
    report_element<E, In, Out>(code, name, operands, index + lane, lane, r);
  }
}

}  // namespace orvik::zym
