#include "tools/rows/list.h"

#include <array>

// Weak, so that the entries of rows that are not built read as null.
extern "C" {
#define ENTRY(name) extern __attribute__((weak, visibility("default"))) void name();
#include "zym_row_list.inc"  // generated
#undef ENTRY
extern void* orvik_zym_kernel_sCeil_ttab[];  // the table starts here; this file is position-independent: no copy of it
}

namespace orvik::rows {
namespace {

#define ADDRESS(name) reinterpret_cast<void*>(&name)
#define LIST(...) \
  { __VA_ARGS__ }
#define ROW_OF(precision, function, name, shape, sharing, kernels, reports, family, description, costs, wide_costs, \
               inputs, outputs, input_parts, output_parts, unit, strided)                                           \
  Row{precision,   function, name,       shape,  sharing, kernels,     reports,      family,                        \
      description, costs,    wide_costs, inputs, outputs, input_parts, output_parts, {unit, strided}},
const auto& list() {
  static const auto rows = [] {
    std::array made = {
#include "zym_row_list.inc"  // generated
    };
    int index = 0;
    for (Row& row : made) row.index = index++;
    return made;
  }();
  return rows;
}
#undef ROW_OF
#undef LIST
#undef ADDRESS

bool glob(std::string_view pattern, std::string_view name) {
  if (pattern.empty()) return name.empty();
  if (pattern[0] != '*') return !name.empty() && pattern[0] == name[0] && glob(pattern.substr(1), name.substr(1));
  for (size_t skip = 0; skip <= name.size(); ++skip) {
    if (glob(pattern.substr(1), name.substr(skip))) return true;
  }
  return false;
}

}  // namespace

std::string Row::served(int kernel_level) const {
  std::string text;
  for (int level = 0; level < kLevels; ++level) {
    if (kernel(level) == kernel_level) text += (text.empty() ? "" : ", ") + std::string(kLevelNames[level]);
  }
  return text;
}

std::span<const Row> all() { return list(); }

const Row* find(std::string_view name) {
  for (const Row& row : all()) {
    if (row.name == name) return &row;
  }
  return nullptr;
}

bool matches(std::string_view filter, std::string_view name) {
  if (filter.empty()) return true;
  while (true) {
    const size_t comma = filter.find(',');
    if (glob(filter.substr(0, comma), name)) return true;
    if (comma == filter.npos) return false;
    filter.remove_prefix(comma + 1);
  }
}

void** table_row(int index) { return orvik_zym_kernel_sCeil_ttab + 6 * index; }

}  // namespace orvik::rows
