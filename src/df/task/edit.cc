// Edits. Each call tests the task, its state, the id, the value, in this order.
#include "df/task/bucket_table.h"
#include "df/task/rows.h"

namespace orvik::df {
namespace {

// The integer fields: what a new value must fulfil, and what a bad one gives.
int32_t test_integer(int32_t id, int64_t value) {
  const uint64_t bits = static_cast<uint64_t>(value);
  switch (id) {
    case DFP_BREAKPOINT_COUNT:
      return value >= 2 ? 0 : DFS_BAD_BREAKPOINT_COUNT;
    case DFP_PARTITION_HINT:
      return partition_hint_ok(value) ? 0 : DFS_BAD_PARTITION_HINT;
    case DFP_FUNCTION_COUNT:
      return value >= 1 ? 0 : DFS_BAD_FUNCTION_COUNT;
    case DFP_FUNCTION_HINT:
      return storage_hint_ok(value) ? 0 : DFS_BAD_FUNCTION_HINT;
    case DFP_SPLINE_ORDER:
      return value >= 0 ? 0 : DFS_BAD_SPLINE_ORDER;
    case DFP_SPLINE_TYPE:
      return bits < 6 || bits == 9 ? 0 : DFS_BAD_SPLINE_TYPE;
    case DFP_INTERNAL_TYPE:
      return bits < 3 || (bits & 8) != 0 ? 0 : DFS_BAD_INTERNAL_TYPE;
    case DFP_BOUNDARY_TYPE:
      return value >= 0 ? 0 : DFS_BAD_BOUNDARY_TYPE;
    case DFP_COEFFICIENT_HINT:
      return storage_hint_ok(value) ? 0 : DFS_BAD_COEFFICIENT_HINT;
    case DFP_VALIDATE_FLAG:
      return bits <= 1 ? 0 : DFS_BAD_VALIDATE_FLAG;
    default:
      return DFS_BAD_PARAMETER_ID;
  }
}

void store_integer(Task* task, int32_t id, int64_t value) {
  switch (id) {
    case DFP_BREAKPOINT_COUNT:
      task->nx = value;
      break;
    case DFP_PARTITION_HINT:
      task->xhint = value;
      break;
    case DFP_FUNCTION_COUNT:
      task->ny = value;
      break;
    case DFP_FUNCTION_HINT:
      task->yhint = value;
      break;
    case DFP_SPLINE_ORDER:
      task->s_order = value;
      break;
    case DFP_SPLINE_TYPE:
      task->s_type = value;
      break;
    case DFP_INTERNAL_TYPE:
      task->ic_type = value;
      break;
    case DFP_BOUNDARY_TYPE:
      task->bc_type = value;
      break;
    case DFP_COEFFICIENT_HINT:
      task->coeff_hint = value;
      break;
    default:
      task->validate_flag = static_cast<int32_t>(value);
      break;
  }
}

int32_t edit_integer(Task* task, int32_t id, int64_t value) {
  if (task == nullptr) return DFS_NO_TASK;
  if (task->task_state != 1) return 0;
  const int32_t status = test_integer(id, value);
  if (status != 0) return status;
  store_integer(task, id, value);
  // Only this value builds the table again: callers set it once the partition has changed.
  if (id == DFP_PARTITION_HINT && value == DF_PARTITION_NON_UNIFORM) {
    return task->is_double != 0 ? build_bucket_table<double>(task) : build_bucket_table<float>(task);
  }
  return 0;
}

template <class Real>
int32_t edit_pointer(Task* task, int32_t id, const Real* pointer) {
  if (task == nullptr) return DFS_NO_TASK;
  if (task->task_state != 1) return 0;
  switch (id) {
    case DFP_BREAKPOINTS:
      if (pointer == nullptr) return DFS_BAD_BREAKPOINTS;
      task->x = pointer;
      return 0;
    case DFP_FUNCTIONS:
      if (pointer == nullptr) return DFS_BAD_FUNCTIONS;
      return lay_out_functions(task, pointer, sizeof(Real));
    case DFP_INTERNAL_VALUES:
      if (pointer == nullptr) return DFS_BAD_INTERNAL_VALUES;
      task->ic = pointer;
      return 0;
    case DFP_BOUNDARY_VALUES:
      if (pointer == nullptr) return DFS_BAD_BOUNDARY_VALUES;
      task->bc = pointer;
      return 0;
    case DFP_COEFFICIENTS:
      if (pointer == nullptr) return DFS_BAD_COEFFICIENTS;
      return lay_out_coefficients(task, pointer, task->coeff_hint, sizeof(Real));
    default:
      return DFS_BAD_PARAMETER_ID;
  }
}

int32_t edit_row(Task* task, int32_t id, int64_t index, const void* pointer) {
  if (task == nullptr) return DFS_NO_TASK;
  if (task->task_state != 1) return 0;
  if (id != DFP_COEFFICIENTS && id != DFP_FUNCTIONS) return DFS_BAD_PARAMETER_ID;
  const bool functions = id == DFP_FUNCTIONS;
  if (functions && task->by_columns()) return DFS_BAD_FUNCTION_HINT;
  if (index < 0 || index >= task->ny) return DFS_BAD_INDEX;
  if (pointer == nullptr) return functions ? DFS_BAD_FUNCTIONS : DFS_BAD_COEFFICIENTS;
  (functions ? task->y_rows : task->coeff_rows)[index] = pointer;
  return 0;
}

template <class Real>
int32_t edit_spline(Task* task, int64_t s_order, int64_t s_type, int64_t bc_type, const Real* bc, int64_t ic_type,
                    const Real* ic, const Real* coefficients, int64_t coeff_hint) {
  if (task == nullptr) return DFS_NO_TASK;
  if (s_order < 0) return DFS_BAD_SPLINE_ORDER;
  if (s_type < 0) return DFS_BAD_SPLINE_TYPE;
  task->s_order = s_order;
  task->s_type = s_type;
  if (bc == nullptr && bc_type >= 3 && bc_type != DFB_PERIODIC) return DFS_BAD_BOUNDARY_VALUES;
  task->bc_type = bc_type;
  task->bc = bc;
  if (ic_type != 0 && ic == nullptr) return DFS_BAD_INTERNAL_VALUES;
  if (ic_type == 0 && ic != nullptr) return DFS_BAD_INTERNAL_TYPE;
  task->ic_type = ic_type;
  task->ic = ic;
  if (coefficients != nullptr) {
    const int32_t status = lay_out_coefficients(task, coefficients, coeff_hint, sizeof(Real));
    if (status != 0) return status;
  }
  task->coeff_hint = coeff_hint;
  return 0;
}

}  // namespace
}  // namespace orvik::df

using namespace orvik::df;

extern "C" int32_t orvik_df_kernel_iEditVal(OrvikDFTask task, int32_t id, int64_t value) {
  return edit_integer(as_task(task), id, value);
}

extern "C" int32_t orvik_df_kernel_dEditPtr(OrvikDFTask task, int32_t id, const double* pointer) {
  return edit_pointer(as_task(task), id, pointer);
}

extern "C" int32_t orvik_df_kernel_sEditPtr(OrvikDFTask task, int32_t id, const float* pointer) {
  return edit_pointer(as_task(task), id, pointer);
}

extern "C" int32_t orvik_df_kernel_dEditIdxPtr(OrvikDFTask task, int32_t id, int64_t index, const double* pointer) {
  return edit_row(as_task(task), id, index, pointer);
}

extern "C" int32_t orvik_df_kernel_sEditIdxPtr(OrvikDFTask task, int32_t id, int64_t index, const float* pointer) {
  return edit_row(as_task(task), id, index, pointer);
}

extern "C" int32_t orvik_df_kernel_dEditPPSpline1D(OrvikDFTask task, int64_t s_order, int64_t s_type, int64_t bc_type,
                                                   const double* bc, int64_t ic_type, const double* ic,
                                                   const double* coefficients, int64_t coeff_hint) {
  return edit_spline(as_task(task), s_order, s_type, bc_type, bc, ic_type, ic, coefficients, coeff_hint);
}

extern "C" int32_t orvik_df_kernel_sEditPPSpline1D(OrvikDFTask task, int64_t s_order, int64_t s_type, int64_t bc_type,
                                                   const float* bc, int64_t ic_type, const float* ic,
                                                   const float* coefficients, int64_t coeff_hint) {
  return edit_spline(as_task(task), s_order, s_type, bc_type, bc, ic_type, ic, coefficients, coeff_hint);
}
