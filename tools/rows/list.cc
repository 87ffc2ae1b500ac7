#include "tools/rows/list.h"

#include <array>

// Weak, so that the entries of rows that are not built read as null.
#define ORVIK_NAMES_s(f, I) ORVIK_NAMES(_zyms##f##I##_21, _zyms##f##I, _zyms##f##I##_11)
#define ORVIK_NAMES_c(f, I) ORVIK_NAMES(_zymc##f##I##_21, _zymc##f##I, _zymc##f##I##_11)
#define ORVIK_NAMES_d(f, I) ORVIK_NAMES(_zymd##f##I##_50, _zymd##f##I, _zymd##f##I##_26)
#define ORVIK_NAMES_z(f, I) ORVIK_NAMES(_zymz##f##I##_50, _zymz##f##I, _zymz##f##I##_26)
#define ORVIK_TWIN_unary(p, f) ORVIK_NAMES_##p(f, I)
#define ORVIK_TWIN_binary(p, f) ORVIK_NAMES_##p(f, I)
#define ORVIK_TWIN_unary2(p, f) ORVIK_NAMES_##p(f, I)
#define ORVIK_TWIN_scalar(p, f) ORVIK_NAMES_##p(f, I)
#define ORVIK_TWIN_bessel(p, f) ORVIK_NAMES_##p(f, I)
#define ORVIK_TWIN_fraction(p, f) ORVIK_NAMES_##p(f, I)

extern "C" {
#define ORVIK_NAMES(la, ha, ep)                                \
  extern __attribute__((weak, visibility("default"))) void la(); \
  extern __attribute__((weak, visibility("default"))) void ha(); \
  extern __attribute__((weak, visibility("default"))) void ep();
#define ORVIK_TWIN_pack(p, f)
#define ROW(p, f, shape, sharing, reports, family, la, ha, ep) ORVIK_NAMES_##p(f, ) ORVIK_TWIN_##shape(p, f)
#include "zym/frame/rows.def"
#undef ROW
#undef ORVIK_NAMES
#undef ORVIK_TWIN_pack
extern void* orvik_zym_kernel_sCeil_ttab[];  // the table starts here; this file is position-independent: no copy of it
}

namespace orvik::rows {
namespace {

constexpr bool reports = true, silent = false;

// The list names the family's header; its folder is what the family goes by.
constexpr std::string_view folder_of(std::string_view header) { return header.substr(0, header.find('/')); }

#define ORVIK_NAMES(la, ha, ep) \
  { reinterpret_cast<void*>(&la), reinterpret_cast<void*>(&ha), reinterpret_cast<void*>(&ep) }
#define ORVIK_TWIN_pack(p, f) \
  { nullptr, nullptr, nullptr }
#define ROW(p, f, shape, sharing, reporting, family, la, ha, ep)                               \
  Row{#p[0], #f, #p #f, Shape::shape, Sharing::sharing, reporting, folder_of(#family), {la, ha, ep},      \
      {ORVIK_NAMES_##p(f, ), ORVIK_TWIN_##shape(p, f)}, 0},
const auto& list() {
  static const auto rows = [] {
    std::array made = {
#include "zym/frame/rows.def"
    };
    int index = 0;
    for (Row& row : made) row.index = index++;
    return made;
  }();
  return rows;
}
#undef ROW

bool glob(std::string_view pattern, std::string_view name) {
  if (pattern.empty()) return name.empty();
  if (pattern[0] != '*') return !name.empty() && pattern[0] == name[0] && glob(pattern.substr(1), name.substr(1));
  for (size_t skip = 0; skip <= name.size(); ++skip) {
    if (glob(pattern.substr(1), name.substr(skip))) return true;
  }
  return false;
}

}  // namespace

int Row::kernel(int level) const {
  switch (sharing) {
    case Sharing::one: return 1;
    case Sharing::la_ha: return level == 2 ? 2 : 1;
    case Sharing::la_ep: return level == 1 ? 1 : 0;
    case Sharing::apart: break;
  }
  return level;
}

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
