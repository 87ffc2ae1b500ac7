#include "df/construct/problem.h"

namespace orvik::df {

End left_end(Ends ends) {
  switch (ends) {
    case Ends::kNotAKnot:
      return End::kNotAKnot;
    case Ends::kFree:
      return End::kFree;
    case Ends::kFirstFirst:
    case Ends::kFirstSecond:
      return End::kFirst;
    case Ends::kSecondFirst:
    case Ends::kSecondSecond:
      return End::kSecond;
    case Ends::kPeriodic:
      return End::kPeriodic;
    default:
      return End::kNone;
  }
}

End right_end(Ends ends) {
  switch (ends) {
    case Ends::kFirstSecond:
      return End::kSecond;
    case Ends::kSecondFirst:
      return End::kFirst;
    default:
      return left_end(ends);
  }
}

int32_t read_ends(const Task& task, bool none_accepted, Ends* ends) {
  bool reads_values = false;
  switch (task.bc_type) {
    case DFB_NONE:
      if (!none_accepted) return DFS_BAD_BOUNDARY_TYPE;
      *ends = Ends::kNone;
      break;
    case DFB_NOT_A_KNOT:
      *ends = Ends::kNotAKnot;
      break;
    case DFB_FREE_END:
      *ends = Ends::kFree;
      break;
    case DFB_FIRST_LEFT + DFB_FIRST_RIGHT:
      *ends = Ends::kFirstFirst, reads_values = true;
      break;
    case DFB_FIRST_LEFT + DFB_SECOND_RIGHT:
      *ends = Ends::kFirstSecond, reads_values = true;
      break;
    case DFB_SECOND_LEFT + DFB_FIRST_RIGHT:
      *ends = Ends::kSecondFirst, reads_values = true;
      break;
    case DFB_SECOND_LEFT + DFB_SECOND_RIGHT:
      *ends = Ends::kSecondSecond, reads_values = true;
      break;
    case DFB_PERIODIC:
      *ends = Ends::kPeriodic;
      reads_values = task.s_type == 0 || task.s_type == 3;
      break;
    default:
      return DFS_BAD_BOUNDARY_TYPE;
  }
  return reads_values && task.bc == nullptr ? DFS_BAD_BOUNDARY_VALUES : 0;
}

}  // namespace orvik::df
