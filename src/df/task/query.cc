// Queries. A row query tests its index before the state of the task, the others do not look at it first.
#include "df/task/task.h"

namespace orvik::df {
namespace {

template <class Real>
Real* as_reals(const void* pointer) {
  return const_cast<Real*>(static_cast<const Real*>(pointer));
}

template <class Real>
int32_t query_pointer(const Task* task, int32_t id, Real** destination) {
  if (task == nullptr) return DFS_NO_TASK;
  if (destination == nullptr) return DFS_NO_DESTINATION;
  if (task->task_state != 1) return 0;
  switch (id) {
    case DFP_BREAKPOINTS:
      *destination = as_reals<Real>(task->x);
      return 0;
    case DFP_FUNCTIONS:
      *destination = as_reals<Real>(task->y_rows != nullptr ? task->y_rows[0] : nullptr);
      return 0;
    case DFP_INTERNAL_VALUES:
      *destination = as_reals<Real>(task->ic);
      return 0;
    case DFP_BOUNDARY_VALUES:
      *destination = as_reals<Real>(task->bc);
      return 0;
    case DFP_COEFFICIENTS:
      *destination = as_reals<Real>(task->coeff_rows != nullptr ? task->coeff_rows[0] : nullptr);
      return 0;
    default:
      return DFS_BAD_PARAMETER_ID;
  }
}

int32_t query_integer(const Task* task, int32_t id, void* destination) {
  if (task == nullptr) return DFS_NO_TASK;
  if (destination == nullptr) return DFS_NO_DESTINATION;
  if (task->task_state != 1) return 0;
  int64_t value = 0;
  switch (id) {
    case DFP_BREAKPOINT_COUNT:
      value = task->nx;
      break;
    case DFP_PARTITION_HINT:
      value = task->xhint;
      break;
    case DFP_FUNCTION_COUNT:
      value = task->ny;
      break;
    case DFP_FUNCTION_HINT:
      value = task->yhint;
      break;
    case DFP_SPLINE_ORDER:
      value = task->s_order;
      break;
    case DFP_SPLINE_TYPE:
      value = task->s_type;
      break;
    case DFP_INTERNAL_TYPE:
      value = task->ic_type;
      break;
    case DFP_BOUNDARY_TYPE:
      value = task->bc_type;
      break;
    case DFP_COEFFICIENT_HINT:
      value = task->coeff_hint;
      break;
    case DFP_VALIDATE_FLAG:
      value = task->validate_flag;
      break;
    default:
      return DFS_BAD_PARAMETER_ID;
  }
  if (task->index_width == 0) {
    *static_cast<int32_t*>(destination) = static_cast<int32_t>(value);
  } else {
    *static_cast<int64_t*>(destination) = value;
  }
  return 0;
}

template <class Real>
int32_t query_row(const Task* task, int32_t id, int64_t index, Real** destination) {
  if (task == nullptr) return DFS_NO_TASK;
  if (destination == nullptr) return DFS_NO_DESTINATION;
  // One wider than the test of an edit: callers walk the rows up to a null.
  if (index < 0 || index > task->ny) return DFS_BAD_INDEX;
  if (task->task_state != 1) return 0;
  if (id != DFP_COEFFICIENTS && id != DFP_FUNCTIONS) return DFS_BAD_PARAMETER_ID;
  const bool functions = id == DFP_FUNCTIONS;
  if (functions && task->by_columns()) return DFS_BAD_FUNCTION_HINT;
  const void** rows = functions ? task->y_rows : task->coeff_rows;
  *destination = as_reals<Real>(rows != nullptr ? rows[index] : nullptr);
  return 0;
}

}  // namespace
}  // namespace orvik::df

using namespace orvik::df;

extern "C" int32_t orvik_df_kernel_iQueryVal(OrvikDFTask task, int32_t id, void* destination) {
  return query_integer(as_task(task), id, destination);
}

extern "C" int32_t orvik_df_kernel_dQueryPtr(OrvikDFTask task, int32_t id, double** destination) {
  return query_pointer(as_task(task), id, destination);
}

extern "C" int32_t orvik_df_kernel_sQueryPtr(OrvikDFTask task, int32_t id, float** destination) {
  return query_pointer(as_task(task), id, destination);
}

extern "C" int32_t orvik_df_kernel_dQueryIdxPtr(OrvikDFTask task, int32_t id, int64_t index, double** destination) {
  return query_row(as_task(task), id, index, destination);
}

extern "C" int32_t orvik_df_kernel_sQueryIdxPtr(OrvikDFTask task, int32_t id, int64_t index, float** destination) {
  return query_row(as_task(task), id, index, destination);
}
