#include "df/pieces/kinds.h"

namespace orvik::df {

bool choose_other_evaluator(int64_t order, int64_t type, bool all_callbacks, Evaluator* evaluator) {
  switch (order) {
    case 0:
      if (type == 8) {
        *evaluator = Evaluator::kStepRight;
      } else if (type == 7) {
        *evaluator = Evaluator::kStepLeft;
      } else if (type == 6) {
        *evaluator = Evaluator::kLookUp;
      } else {
        *evaluator = Evaluator::kGeneral;
        return all_callbacks;
      }
      return true;
    case 2:
      *evaluator = Evaluator::kLinear;
      return true;
    case 3:
      *evaluator = type == 0 ? Evaluator::kQuadratic : Evaluator::kQuadraticKnots;
      return type == 0 || type == 1;
    default:
      *evaluator = Evaluator::kGeneral;
      return order >= 5;
  }
}

}  // namespace orvik::df
