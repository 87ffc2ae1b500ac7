#include <algorithm>
#include <cstdio>

#include "sections.h"

namespace tour {

void show_data(const Table& table) {
  std::printf("%s: %zu rows, %zu columns.\n\n", table.source.c_str(), table.rows, table.columns.size());
  std::printf("  %-14s %8s %8s %12s %12s\n", "column", "values", "missing", "smallest", "largest");
  size_t missing = 0;
  for (const Column& column : table.columns) {
    const std::vector<double> values = column.present();
    missing += column.missing();
    std::printf("  %-14s %8zu %8zu", column.name.c_str(), values.size(), column.missing());
    if (values.empty()) {
      std::printf(" %12s %12s\n", "-", "-");
    } else {
      const auto [low, high] = std::minmax_element(values.begin(), values.end());
      std::printf(" %12g %12g\n", *low, *high);
    }
  }
  if (missing > 0) {
    std::printf(
        "\n%zu values are missing. Each column is used without its missing values, unless a section says otherwise.\n",
        missing);
  }
}

}  // namespace tour
