#include "df/task/rows.h"

#include <algorithm>
#include <cstring>

#include "orvik/serv.h"

namespace orvik::df {
namespace {

// Frees `*rows` and makes room for `count` pointers and one more, all null: a query may ask for the one past the end.
int64_t replace_rows(const void*** rows, int64_t count) {
  orvik_serv_deallocate(*rows);
  // The count is a 32-bit number here.
  const int64_t held = std::max<int64_t>(static_cast<int32_t>(count), 0);
  const uint64_t bytes = static_cast<uint64_t>(held + 1) * sizeof(void*);
  void* block = orvik_serv_allocate(bytes, 128);
  *rows = static_cast<const void**>(block);
  if (block == nullptr) return -1;
  memset(block, 0, bytes);
  return held;
}

void fill_rows(const void** rows, int64_t count, const void* first, int64_t row_bytes) {
  for (int64_t f = 0; f < count; ++f) rows[f] = static_cast<const char*>(first) + f * row_bytes;
}

}  // namespace

int32_t lay_out_functions(Task* task, const void* y, int64_t real_size) {
  const bool columns = task->yhint == DF_STORAGE_COLUMNS;
  const int64_t held = replace_rows(&task->y_rows, columns ? 1 : task->ny);
  if (held < 0) return DFS_NO_MEMORY;
  const bool only_first = columns || task->yhint == DF_STORAGE_SINGLE_ROW;
  const int64_t filled = task->ny < 1 ? 0 : only_first ? 1 : std::min(held, task->ny);
  fill_rows(task->y_rows, std::min(held, filled), y, task->nx * real_size);
  return 0;
}

int32_t lay_out_coefficients(Task* task, const void* coefficients, int64_t hint, int64_t real_size) {
  if (task->ny == 0) return DFS_BAD_FUNCTION_COUNT;
  const int64_t held = replace_rows(&task->coeff_rows, task->ny);
  if (held < 0) return DFS_NO_MEMORY;
  const int64_t intervals = task->s_type == 1 ? task->nx : task->nx - 1;
  const int64_t row_bytes = intervals * task->s_order * real_size;
  const int64_t filled = (hint & DF_STORAGE_SINGLE_ROW) != 0 ? std::min<int64_t>(held, 1) : held;
  fill_rows(task->coeff_rows, filled, coefficients, row_bytes);
  return 0;
}

}  // namespace orvik::df
