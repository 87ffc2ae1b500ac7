// Searching by the caller's own routine.
#ifndef ORVIK_DF_SEARCH_USER_DEFINED_H
#define ORVIK_DF_SEARCH_USER_DEFINED_H

#include "df/search/cells.h"
#include "orvik/df.h"

namespace orvik::df {

// The callback of a real type.
template <class Real>
using SearchCallback = int32_t (*)(int64_t* count, const Real* sites, int64_t* cells, int32_t* flags, void* word0,
                                   void* word1);

template <class Real>
struct UserSearch {
  SearchCallback<Real> callback = nullptr;
  void* word0 = nullptr;
  void* word1 = nullptr;

  UserSearch() = default;  // none
  UserSearch(SearchCallback<Real> given, const OrvikDFSearchParameters* parameters) : callback(given) {
    if (parameters != nullptr) word0 = parameters->words[0], word1 = parameters->words[1];
  }
  UserSearch(SearchCallback<Real> given, void* first, void* second) : callback(given), word0(first), word1(second) {}
};

inline constexpr int32_t kCellsAreFinal = 1000;
inline constexpr int64_t kUserBlock = 128;  // sites of one call of the callback

// body(begin, count) -> status for n sites in blocks of kUserBlock. The last block has what is left, also when that is
// nothing; its status is the whole's, unless an earlier one was negative.
template <class Body>
int32_t run_user_blocks(int64_t n, Body body) {
  for (int64_t at = 0;; at += kUserBlock) {
    const int64_t count = std::min(kUserBlock, n - at);
    const int32_t status = body(at, count);
    if (status < 0 || count < kUserBlock) return status;
  }
}

// One call of the callback for n sites, then what it left open: guesses are refined, or on a uniform partition the cell
// is computed afresh. Returns its status, 0 for kCellsAreFinal.
template <class Real>
int32_t user_cells(const Lookup<Real>& p, bool uniform, const UserSearch<Real>& user, int64_t n, const Real* site,
                   int64_t* cell, int32_t* flags) {
  int64_t count = n;
  const int32_t status = user.callback(&count, site, cell, flags, user.word0, user.word1);
  if (status < 0) return status;
  if (status == kCellsAreFinal) return 0;
  for (int64_t j = 0; j < n; ++j) {
    if (flags[j] != 0) continue;
    cell[j] = uniform ? uniform_cell<int64_t>(p, site[j]) : refined_cell(p, cell[j], site[j]);
  }
  return status;
}

}  // namespace orvik::df

#endif
