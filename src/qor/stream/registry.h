// From a generator id to its row.
#pragma once

#include <stdint.h>

#include "orvik/qor.h"

namespace orvik::qor {

constexpr int32_t kTableRows = 512;
constexpr int32_t kBuiltInRows = 16;
constexpr int32_t kHistoricalRows = 281;

struct BrngPlace {
  const RegBrngRow* table;
  int32_t index, sub;

  int32_t check() const { return __qorIsBrngValid(table, index, sub); }
  // Negative ids pass the check; they lead to an empty row instead of memory before the table.
  const RegBrngRow& row() const;
};

inline BrngPlace find_brng(int32_t id) {
  uint32_t index, sub;
  const void* table = __qorGetBrngBaseOffset(id, &index, &sub);
  return {static_cast<const RegBrngRow*>(table), static_cast<int32_t>(index), static_cast<int32_t>(sub)};
}

inline const RegBrngRow& row_of(int32_t id) { return find_brng(id).row(); }

}  // namespace orvik::qor
