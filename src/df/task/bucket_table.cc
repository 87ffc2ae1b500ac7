#include "df/task/bucket_table.h"

#include <algorithm>
#include <cstring>

#include "orvik/serv.h"

namespace orvik::df {
namespace {

constexpr int64_t kUnset = -1;

// Truncated, and held inside the table whatever an unsorted partition or a NaN makes of it.
template <class Real>
int64_t bucket_of(Real offset, Real scale, int64_t buckets) {
  const Real position = offset * scale;
  if (!(position > 0)) return 0;
  if (position >= static_cast<Real>(buckets)) return buckets;
  return static_cast<int64_t>(position);
}

}  // namespace

template <class Real>
int32_t build_bucket_table(Task* task) {
  orvik_serv_deallocate(task->bucket_table);
  const int64_t nx = task->nx;
  const int64_t buckets = std::min<int64_t>(std::max<int64_t>(nx / 16, 16), 1024);
  task->bucket_count = buckets;
  const uint64_t bytes = static_cast<uint64_t>(2 * buckets + 4) * sizeof(int64_t);
  task->bucket_table = static_cast<int64_t*>(orvik_serv_allocate(bytes, 128));
  int64_t* table = task->bucket_table;
  if (table == nullptr) return DFS_NO_MEMORY;
  memset(table, 0, bytes);
  std::fill(table, table + 2 * buckets, kUnset);

  const Real* x = task->breakpoints<Real>();
  const Real scale = static_cast<Real>(buckets) / (x[nx - 1] - x[0]);
  if constexpr (sizeof(Real) == 8) {
    task->bucket_scale.d = scale;
  } else {
    task->bucket_scale.s = scale;
  }
  table[0] = 0;
  for (int64_t i = 1; i < nx; ++i) {
    const int64_t c = bucket_of(x[i] - x[0], scale, buckets);
    if (c == 0) continue;
    if (table[2 * c - 1] == kUnset) table[2 * c - 1] = i;  // first behind bucket c - 1
    table[2 * c + 2] = i;                                  // last before bucket c + 1
  }
  table[2 * buckets - 1] = nx - 1;
  for (int64_t k = 1; k < buckets; ++k) {
    if (table[2 * k] == kUnset) table[2 * k] = table[2 * k - 2];
  }
  for (int64_t k = buckets - 2; k >= 0; --k) {
    if (table[2 * k + 1] == kUnset) table[2 * k + 1] = table[2 * k + 3];
  }
  // A site just left of x[nx-1] can round into bucket B.
  table[2 * buckets] = table[2 * buckets - 2];
  table[2 * buckets + 1] = table[2 * buckets - 1];
  return 0;
}

template int32_t build_bucket_table<double>(Task* task);
template int32_t build_bucket_table<float>(Task* task);

}  // namespace orvik::df
