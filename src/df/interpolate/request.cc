#include "df/interpolate/request.h"

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

void Orders::count_asked() {
  asked_ = 0;
  for (int64_t k = 0; k < given_; ++k) asked_ += raw(k) == 1;
  none_set_ = asked_ == 0;
  size_ = none_set_ ? 1 : given_;
  if (none_set_) asked_ = 1;
}

Layout Layout::from_hint(int64_t hint, int64_t ny, int64_t nsite, int64_t nder) {
  switch (hint) {
    case 32:
      return {nder * nsite, 1, nsite};
    case 256:
      return {nder, ny * nder, 1};
    case 512:
      return {1, nder * ny, ny};
    default:
      return {nsite * nder, nder, 1};
  }
}

}  // namespace orvik::df
