// The two arrays of row pointers that a task owns.
#ifndef ORVIK_DF_TASK_ROWS_H
#define ORVIK_DF_TASK_ROWS_H

#include "df/task/task.h"

namespace orvik::df {

// Replaces the pointers to function values, laid out by the task's nx, ny and yhint. `real_size` in bytes.
int32_t lay_out_functions(Task* task, const void* y, int64_t real_size);

// Replaces the pointers to coefficient rows, laid out by the task's order and type and by `hint`.
int32_t lay_out_coefficients(Task* task, const void* coefficients, int64_t hint, int64_t real_size);

}  // namespace orvik::df

#endif
