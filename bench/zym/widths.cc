// Kernels of 512 bits beside those of 256, in one process: a line of CSV for every kernel that has both, length and
// place of the arrays, with nanoseconds per element (bench/zym/registers_page.py reads them). Behind them two lines
// about neighbours: what a loop of scalar arithmetic takes behind one call of either kernel.
//
//   widths [--rows PATTERNS] [--seconds S] [N...]
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

#include "serv/processor.h"
#include "tools/rows/list.h"
#include "zym/both_widths.h"
#include "zym/compare.h"
#include "zym/options.h"

namespace {

using namespace orvik;

// A chain of dependent steps of a hundred microseconds: its time is the clock's.
double scalar_loop(double x) {
  for (int i = 0; i < 40000; ++i) x = x * 0.999999 + 1e-6;
  return x;
}

// Nanoseconds of the loop behind a call of 64 elements.
void neighbours(const rows::Row& row, const zym::WideRow& wide, double seconds) {
  const bench::Operands operands(row, 64, 1);
  const auto entry = bench::repeat_entry(row, row.entries[0][0], false, operands, 64);
  static volatile double sink = 1;
  bench::Paired paired;
  for (void* kernel : {wide.narrow[0], wide.wide[0]}) {
    paired.add("", [=, &wide](int64_t turns) {
      for (int64_t t = 0; t < turns; ++t) {
        wide.slots[0] = kernel;
        entry(1);
        sink = scalar_loop(sink);
      }
    });
  }
  const std::vector<double> times = paired.measure(seconds);
  std::printf("scalar loop behind %s,LA,,1,0,%.0f,%.0f\n", std::string(row.name).c_str(), times[0], times[1]);
}

}  // namespace

int main(int argc, char** argv) {
  const bench::Options options(argc, argv, 0.1, {1, 16, 1000, 10000});
  if (!options.others.empty()) {
    std::fprintf(stderr, "widths [--rows PATTERNS] [--seconds S] [N...]\n");
    return 2;
  }
  if (!serv::has_wide_registers(serv::read_processor())) {
    std::fprintf(stderr, "no registers of 512 bits here\n");
    return 77;
  }
  std::printf("row,level,family,n,beyond,narrow,wide\n");
  for (const rows::Row& row : rows::all()) {
    const zym::WideRow* wide = rows::matches(options.patterns, row.name) ? bench::wide_row(row) : nullptr;
    if (wide == nullptr) continue;
    for (int level = 0; level < rows::kLevels; ++level) {
      if (row.kernel(level) != level || wide->wide[level] == wide->narrow[level]) continue;
      for (const int32_t n : options.lengths) {
        for (const size_t beyond : {size_t{0}, size_t{16}}) {  // a cache line's beginning, and as malloc gives it
          if (beyond != 0 && n < 1000) continue;
          const bench::Operands operands(row, n, 1, beyond);
          const auto entry = bench::repeat_entry(row, row.entries[0][level], false, operands, n);
          bench::Paired paired;
          paired.add("256", bench::with_kernel(&wide->slots[level], wide->narrow[level], entry));
          paired.add("512", bench::with_kernel(&wide->slots[level], wide->wide[level], entry));
          const std::vector<double> times = paired.measure(options.seconds);
          std::printf("%s,%s,%s,%d,%zu,%.4f,%.4f\n", std::string(row.name).c_str(), rows::kLevelNames[level],
                      std::string(row.family).c_str(), n, beyond, times[0] / n, times[1] / n);
        }
      }
      std::fflush(stdout);
    }
    if (row.name == "sExp" || row.name == "dExp") neighbours(row, *wide, 20 * options.seconds);
  }
}
