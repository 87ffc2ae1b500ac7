// What the pieces of a spline are, by its order and type.
#ifndef ORVIK_DF_PIECES_KINDS_H
#define ORVIK_DF_PIECES_KINDS_H

#include <cstdint>

namespace orvik::df {

// In the order of all tables of evaluators and integrators.
enum class Evaluator { kLinear, kQuadratic, kCubic, kQuadraticKnots, kGeneral, kStepRight, kStepLeft, kLookUp };

// False when nothing evaluates such a spline. `all_callbacks`: the caller gives all results.
bool choose_other_evaluator(int64_t order, int64_t type, bool all_callbacks, Evaluator* evaluator);
inline bool choose_evaluator(int64_t order, int64_t type, bool all_callbacks, Evaluator* evaluator) {
  constexpr uint64_t kCubicTypes = 1 << 0 | 1 << 2 | 1 << 3 | 1 << 4 | 1 << 5 | 1 << 9;
  if (order != 4) return choose_other_evaluator(order, type, all_callbacks, evaluator);
  *evaluator = Evaluator::kCubic;
  return type >= 0 && type < 64 && (kCubicTypes >> type & 1) != 0;
}

}  // namespace orvik::df

#endif
