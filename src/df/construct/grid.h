// How a construction is cut into tasks: blocks of breakpoints by groups of four functions.
#ifndef ORVIK_DF_CONSTRUCT_GRID_H
#define ORVIK_DF_CONSTRUCT_GRID_H

#include <algorithm>
#include <cstdint>

#include "df/services.h"

namespace orvik::df {

struct Grid {
  int64_t first, last, block, blocks, intervals, functions;

  static constexpr int64_t kGroup = 4;

  // Breakpoints first to last in blocks of `block`; the last block includes `last`.
  Grid(int64_t first_point, int64_t last_point, int64_t block_points, int64_t all_intervals, int64_t ny)
      : first(first_point),
        last(last_point),
        block(block_points),
        intervals(all_intervals),
        functions(std::max<int64_t>(ny, 1)) {
    const int64_t range = last - first;
    blocks = range / block;
    if (blocks * block < range || blocks < 1) ++blocks;
  }

  int64_t tasks() const { return blocks * ((functions + kGroup - 1) / kGroup); }

  // The intervals and functions of one task. The outer blocks take the intervals up to the ends.
  struct Part {
    int64_t begin, end, function, function_end;
  };
  Part part(int64_t task, int64_t ny) const {
    const int64_t group = task / blocks, b = task % blocks;
    return {b == 0 ? 0 : first + block * b, b == blocks - 1 ? intervals : first + block * (b + 1), kGroup * group,
            std::min(kGroup * (group + 1), ny)};
  }
};

// body(first, past, begin, end, thread) for all intervals of ny functions, first .. past - 1 of them together.
template <class Body>
int32_t run_grid(const Services& services, const Grid& grid, int64_t threads, int64_t ny, Body body) {
  auto task = [&](int64_t index, int64_t thread) {
    const Grid::Part part = grid.part(index, ny);
    if (part.function < part.function_end) body(part.function, part.function_end, part.begin, part.end, thread);
    return 0;
  };
  return services.run(grid.tasks(), threads, task);
}

// The same on the calling thread: body(first, past) for ny functions, a group at a time.
template <class Body>
void by_groups(int64_t ny, Body body) {
  for (int64_t f = 0; f < ny; f += Grid::kGroup) body(f, std::min(f + Grid::kGroup, ny));
}

}  // namespace orvik::df

#endif
