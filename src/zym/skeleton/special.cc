#include "zym/skeleton/special.h"

#include "zym/frame/report.h"

namespace orvik::zym {

template <class E, int In, int Out>
void report_element(int32_t code, const char* name, const Operands<E, In, Out>& operands, int64_t position, int lane,
                    E* const (&r)[Out]) {
  for (int j = 0; j < Out; ++j) operands.out[j][position * operands.out_step[j]] = r[j][lane];
  const auto step = [](int64_t s) { return static_cast<int32_t>(s); };
  report_strided(static_cast<const E*>(nullptr))(
      code, static_cast<int32_t>(position), operands.in[0], step(operands.in_step[0]), operands.in[In - 1],
      step(operands.in_step[In - 1]), operands.out[0], step(operands.out_step[0]), operands.out[Out - 1],
      step(operands.out_step[Out - 1]), name);
  for (int j = 0; j < Out; ++j) r[j][lane] = operands.out[j][position * operands.out_step[j]];
}

#define ORVIK_INSTANCE(E, In, Out)                                                                          \
  template void report_element<E, In, Out>(int32_t, const char*, const Operands<E, In, Out>&, int64_t, int, \
                                           E* const(&)[Out]);
ORVIK_INSTANCE(float, 1, 1)
ORVIK_INSTANCE(float, 2, 1)
ORVIK_INSTANCE(float, 1, 2)
ORVIK_INSTANCE(double, 1, 1)
ORVIK_INSTANCE(double, 2, 1)
ORVIK_INSTANCE(double, 1, 2)

}  // namespace orvik::zym
