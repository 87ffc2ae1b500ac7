// Kernels of 512 bits beside those of 256, in one process: nanoseconds per element of both and their ratio, a line for every
// kernel that has both, then geometric means by family and of all.
//
//   widths [--rows PATTERNS] [--seconds S] [N...]
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "serv/processor.h"
#include "tools/rows/list.h"
#include "zym/compare.h"
#include "zym/frame/registers.h"

namespace {

using namespace orvik;

const zym::WideRow* wide_row(const rows::Row& row) {
  for (const zym::WideRow* wide = zym::orvik_zym_wide_rows; wide->slots != nullptr; ++wide) {
    if (wide->slots == rows::table_row(row.index)) return wide;
  }
  return nullptr;
}

// The entry of a level with this kernel in its slot.
std::function<void(int64_t)> with_kernel(void** slot, void* kernel, std::function<void(int64_t)> entry) {
  return [=](int64_t turns) {
    *slot = kernel;
    entry(turns);
  };
}

}  // namespace

int main(int argc, char** argv) {
  std::string patterns;
  double seconds = 0.1;
  std::vector<int32_t> lengths;
  for (int i = 1; i < argc; ++i) {
    if (std::strcmp(argv[i], "--rows") == 0 && i + 1 < argc) {
      patterns = argv[++i];
    } else if (std::strcmp(argv[i], "--seconds") == 0 && i + 1 < argc) {
      seconds = std::atof(argv[++i]);
    } else if (std::atoi(argv[i]) > 0) {
      lengths.push_back(std::atoi(argv[i]));
    } else {
      std::fprintf(stderr, "widths [--rows PATTERNS] [--seconds S] [N...]\n");
      return 2;
    }
  }
  if (lengths.empty()) lengths = {1, 16, 1000, 10000};
  if (!serv::has_wide_registers(serv::read_processor())) {
    std::printf("no registers of 512 bits here\n");
    return 0;
  }
  std::map<std::string, std::map<int32_t, std::vector<double>>> ratios;  // by family and length
  for (const rows::Row& row : rows::all()) {
    const zym::WideRow* wide = rows::matches(patterns, row.name) ? wide_row(row) : nullptr;
    if (wide == nullptr) continue;
    for (int level = 0; level < rows::kLevels; ++level) {
      if (row.kernel(level) != level || wide->wide[level] == wide->narrow[level]) continue;
      std::printf("%-10s %s", std::string(row.name).c_str(), rows::kLevelNames[level]);
      for (const int32_t n : lengths) {
        const bench::Operands operands(row, n, 1);
        const auto entry = bench::repeat_entry(row, row.entries[0][level], false, operands, n);
        bench::Paired paired;
        paired.add("256", with_kernel(&wide->slots[level], wide->narrow[level], entry));
        paired.add("512", with_kernel(&wide->slots[level], wide->wide[level], entry));
        const std::vector<double> times = paired.measure(seconds);
        std::printf("   n %d: %.3f %.3f %.2f", n, times[0] / n, times[1] / n, times[0] / times[1]);
        for (const std::string& family : {std::string(row.family), std::string("all")}) {
          ratios[family][n].push_back(times[0] / times[1]);
        }
      }
      std::printf("\n");
      std::fflush(stdout);
    }
  }
  for (const auto& [family, lengths_of] : ratios) {
    std::printf("%-14s", family.c_str());
    for (const auto& [n, some] : lengths_of) {
      double sum = 0, least = some[0];
      for (const double ratio : some) sum += std::log(ratio), least = std::min(least, ratio);
      std::printf("   n %d: mean %.2f least %.2f", n, std::exp(sum / static_cast<double>(some.size())), least);
    }
    std::printf("   of %zu kernels\n", lengths_of.begin()->second.size());
  }
}
