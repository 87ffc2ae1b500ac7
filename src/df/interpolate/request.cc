#include "df/interpolate/request.h"

namespace orvik::df {

bool choose_evaluator(int64_t order, int64_t type, bool all_callbacks, Evaluator* evaluator) {
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
    case 4:
      *evaluator = Evaluator::kCubic;
      return type == 0 || (type >= 2 && type <= 5) || type == 9;
    default:
      *evaluator = Evaluator::kGeneral;
      return order >= 5;
  }
}

Orders::Orders(const Task& task, int64_t count, const void* flags)
    : flags_(flags), wide_((task.index_width & 1) != 0), given_(flags == nullptr ? 0 : count) {
  asked_ = 0;
  for (int64_t k = 0; k < given_; ++k) asked_ += raw(k) == 1;
  none_set_ = asked_ == 0;
  size_ = none_set_ ? 1 : given_;
  if (none_set_) asked_ = 1;
}

bool Layout::from_hint(int64_t hint, int64_t ny, int64_t nsite, int64_t nder, Layout* layout) {
  switch (hint) {
    case 0:
    case 16:
    case 128:
      *layout = {nsite * nder, nder, 1};
      return true;
    case 32:
      *layout = {nder * nsite, 1, nsite};
      return true;
    case 256:
      *layout = {nder, ny * nder, 1};
      return true;
    case 512:
      *layout = {1, nder * ny, ny};
      return true;
    default:
      return false;
  }
}

}  // namespace orvik::df
