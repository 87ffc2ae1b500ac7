// Making and deleting tasks.
#include <cstring>

#include "df/task/bucket_table.h"
#include "df/task/rows.h"
#include "orvik/serv.h"

namespace orvik::df {
namespace {

template <class Real>
int32_t make_task(OrvikDFTask* handle, int64_t nx, const Real* x, int64_t xhint, int64_t ny, const Real* y,
                  int64_t yhint, int32_t index_width) {
  if (nx < 2) return DFS_BAD_BREAKPOINT_COUNT;
  if (x == nullptr) return DFS_BAD_BREAKPOINTS;
  if (!partition_hint_ok(xhint)) return DFS_BAD_PARTITION_HINT;
  if (ny == 0 && y != nullptr) return DFS_BAD_FUNCTION_COUNT;
  if (ny != 0 && y == nullptr) return DFS_BAD_FUNCTIONS;
  if (!storage_hint_ok(yhint)) return DFS_BAD_FUNCTION_HINT;

  Task* task = static_cast<Task*>(orvik_serv_allocate(sizeof(Task), 128));
  *handle = task;
  if (task == nullptr) return DFS_NO_MEMORY;
  memset(task, 0, sizeof(Task));
  task->nx = nx;
  task->x = x;
  task->xhint = xhint;
  task->ny = ny;
  task->yhint = yhint;
  if (y != nullptr) {
    const int32_t status = lay_out_functions(task, y, sizeof(Real));
    if (status != 0) {  // the half-made record stays with the caller
      task->ny = 0;
      task->yhint = 0;
      return status;
    }
  }
  task->index_width = index_width;
  task->format_tag = 4;
  task->is_double = sizeof(Real) == 8 ? 1 : 0;
  task->task_state = 1;
  return task->uniform() ? 0 : build_bucket_table<Real>(task);
}

}  // namespace
}  // namespace orvik::df

using namespace orvik::df;

extern "C" int32_t orvik_df_kernel_dNewTask1D(OrvikDFTask* task, int64_t nx, const double* x, int64_t xhint, int64_t ny,
                                              const double* y, int64_t yhint, int32_t index_width) {
  return make_task(task, nx, x, xhint, ny, y, yhint, index_width);
}

extern "C" int32_t orvik_df_kernel_sNewTask1D(OrvikDFTask* task, int64_t nx, const float* x, int64_t xhint, int64_t ny,
                                              const float* y, int64_t yhint, int32_t index_width) {
  return make_task(task, nx, x, xhint, ny, y, yhint, index_width);
}

extern "C" int32_t orvik_df_kernel_DeleteTask(OrvikDFTask* handle) {
  if (handle == nullptr || *handle == nullptr) return DFS_NO_TASK;
  Task* task = as_task(*handle);
  orvik_serv_deallocate(task->y_rows);
  orvik_serv_deallocate(task->coeff_rows);
  orvik_serv_deallocate(task->bucket_table);
  orvik_serv_deallocate(task);
  *handle = nullptr;
  return 0;
}
