// One block of sites through all steps: sites, cells, intervals, results, their places in r.
#ifndef ORVIK_DF_INTERPOLATE_BLOCK_H
#define ORVIK_DF_INTERPOLATE_BLOCK_H

#include "df/interpolate/request.h"

namespace orvik::df {

inline constexpr int64_t kBlockSites = 256;

// Working memory of one block; on the stack of short calls and of worker threads, else allocated.
template <class Real, class Index>
struct BlockRoom {
  Real site[kBlockSites];
  Real t[kBlockSites];
  Index cell[kBlockSites];
  int64_t index[kBlockSites];
  // For callbacks.
  int64_t user_cell[kBlockSites];
  int32_t user_flag[kUserBlock];
  int32_t user_place[kBlockSites];
  Real user_site[kBlockSites];
  Real user_result[kBlockSites];
};

// Evaluates sites first .. first + count - 1, count <= kBlockSites, with a search by the caller <= kUserBlock. `state`
// belongs to the sorted search. Index is wide enough for the partition's cells. The status is that of the caller's
// search where nothing fails.
template <class Real, class Index>
int32_t run_block(const Request<Real>& request, int64_t first, int64_t count, int64_t* state,
                  BlockRoom<Real, Index>& room);

}  // namespace orvik::df

#endif
