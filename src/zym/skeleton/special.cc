#include "zym/skeleton/special.h"

#include <bit>

#include "orvik/zym_types.h"
#include "zym/frame/report.h"
#include "zym/frame/thread_state.h"

namespace orvik::zym {
namespace {

template <class E, int In, int Out>
int32_t call(typename ElementRoutine<E, In, Out>::Type routine, const E* const (&x)[In], E* const (&r)[Out], int lane) {
  if constexpr (In == 2) {
    return routine(x[0] + lane, x[1] + lane, r[0] + lane);
  } else if constexpr (Out == 2) {
    return routine(x[0] + lane, r[0] + lane, r[1] + lane);
  } else {
    return routine(x[0] + lane, r[0] + lane);
  }
}

// Stores the lane's result where the reporter and a callback see it, and takes back what they leave.
template <class E, int In, int Out>
[[gnu::noinline]] void report(int32_t code, const char* name, const Operands<E, In, Out>& operands, int64_t position,
                              int lane, E* const (&r)[Out]) {
  for (int j = 0; j < Out; ++j) operands.out[j][position * operands.out_step[j]] = r[j][lane];
  const auto step = [](int64_t s) { return static_cast<int32_t>(s); };
  report_strided(static_cast<const E*>(nullptr))(
      code, static_cast<int32_t>(position), operands.in[0], step(operands.in_step[0]), operands.in[In - 1],
      step(operands.in_step[In - 1]), operands.out[0], step(operands.out_step[0]), operands.out[Out - 1],
      step(operands.out_step[Out - 1]), name);
  for (int j = 0; j < Out; ++j) r[j][lane] = operands.out[j][position * operands.out_step[j]];
}

}  // namespace

template <class E, int In, int Out>
void special_elements(typename ElementRoutine<E, In, Out>::Type routine, const char* name,
                      const Operands<E, In, Out>& operands, int64_t index, uint32_t mask, const E* const (&x)[In],
                      E* const (&r)[Out]) {
  for (; mask != 0; mask &= mask - 1) {
    const int lane = std::countr_zero(mask);
    const int32_t code = call<E, In, Out>(routine, x, r, lane);
    if (code == 0 || (current_mode() & kErrorField) == ZYM_ERRMODE_NOERR) continue;  // a callback may change the mode
    report<E, In, Out>(code, name, operands, index + lane, lane, r);
  }
}

#define ORVIK_INSTANCE(E, In, Out)                                                                                  \
  template void special_elements<E, In, Out>(ElementRoutine<E, In, Out>::Type, const char*,                         \
                                             const Operands<E, In, Out>&, int64_t, uint32_t, const E* const(&)[In], \
                                             E* const(&)[Out]);
ORVIK_INSTANCE(float, 1, 1)
ORVIK_INSTANCE(float, 2, 1)
ORVIK_INSTANCE(float, 1, 2)
ORVIK_INSTANCE(double, 1, 1)
ORVIK_INSTANCE(double, 2, 1)
ORVIK_INSTANCE(double, 1, 2)

}  // namespace orvik::zym
