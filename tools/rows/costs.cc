// Measures the cost of every built row and level: time per element in cache, in the unit in which sExp at LA in
// registers of 256 bits is 1.046 (or, before that row is built, sAbs 0.3): those of 256 bits, then those of 512 where
// the row has some. Prints a line a row for `rows.py costs`, which puts the figures into the list; the target
// measure_costs does both. Every row is timed side by side with the unit, so that a change of the machine's speed
// during the run cancels.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <set>
#include <string_view>

#include "orvik/zym.h"
#include "tools/rows/list.h"
#include "zym/both_widths.h"
#include "zym/compare.h"

namespace {

using namespace orvik;

constexpr int32_t kElements = 1000;

// These hold the placeholder 1.0 by rule.
bool placeholder(const rows::Row& row) {
  static const std::set<std::string_view> functions = {"Erfcx", "I0", "I1", "J0", "J1",
                                                       "Y0",    "Y1", "Jn", "Yn", "SinCospi"};
  return functions.contains(row.function) || row.name == "zConj";
}

}  // namespace

int main(int argc, char** argv) {
  const double seconds = argc > 1 ? std::atof(argv[1]) : 0.1;
  if (seconds <= 0) {
    std::fprintf(stderr, "costs [SECONDS A ROW]\n");
    return 2;
  }
  const rows::Row* unit = rows::find("sExp");
  double unit_cost = 1.046;
  if (!unit->built()) unit = rows::find("sAbs"), unit_cost = 0.3;
  if (!unit->built()) {
    std::fprintf(stderr, "costs: neither sExp nor sAbs is built\n");
    return 1;
  }
  const bench::Operands unit_operands(*unit, kElements, 1);
  const auto entry_of = [](const rows::Row& row, int level, bool wide, const bench::Operands& operands) {
    const auto entry = bench::repeat_entry(row, row.entries[0][level], false, operands, kElements);
    const zym::WideRow* both = bench::wide_row(row);
    if (both == nullptr) return entry;
    return bench::with_kernel(&both->slots[level], wide ? both->wide[level] : both->narrow[level], entry);
  };
  for (const rows::Row& row : rows::all()) {
    if (!row.built() || row.shape == rows::Shape::pack || placeholder(row)) continue;
    std::fprintf(stderr, "\r%-12.*s", static_cast<int>(row.name.size()), row.name.data());
    const bench::Operands operands(row, kElements, 1);
    const zym::WideRow* both = bench::wide_row(row);
    bench::Paired paired;
    paired.add("unit", entry_of(*unit, 0, false, unit_operands));
    int place[2][rows::kLevels] = {};
    int count = 0;
    for (int level = 0; level < rows::kLevels; ++level) {
      if (row.kernel(level) != level) continue;
      place[0][level] = place[1][level] = ++count;
      paired.add("", entry_of(row, level, false, operands));
      if (both == nullptr || both->wide[level] == both->narrow[level]) continue;
      place[1][level] = ++count;
      paired.add("", entry_of(row, level, true, operands));
    }
    const std::vector<double> times = paired.measure(seconds);
    std::printf("%.*s", static_cast<int>(row.name.size()), row.name.data());
    for (int width = 0; width < (both == nullptr ? 1 : 2); ++width) {
      for (int level = 0; level < rows::kLevels; ++level) {
        const bool is_unit = width == 0 && &row == unit && row.kernel(level) == row.kernel(0);
        std::printf(" %.3f", is_unit ? unit_cost : unit_cost * times[place[width][row.kernel(level)]] / times[0]);
      }
    }
    std::printf("\n");
  }
  std::fprintf(stderr, "\r%20s\r", "");
  return 0;
}
