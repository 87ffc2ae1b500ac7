// Both widths of registers side by side: rows of contiguous observations in the caches, nanoseconds of one value, and
// the ratio of the narrow time to the wide one.
#include "serv/registers.h"
#include "ss/rounds.h"
#include "ss/task.h"

using namespace orvik;
using namespace orvik::bench;

namespace {

constexpr uint64_t kVariance = ORVIK_SS_MEAN | ORVIK_SS_CENTRAL_MOMENT2;
constexpr uint64_t kFour = kVariance | ORVIK_SS_SKEWNESS | ORVIK_SS_KURTOSIS;
constexpr uint64_t kExtremes = ORVIK_SS_MINIMUM | ORVIK_SS_MAXIMUM;

template <class T>
void shapes() {
  for (const auto& [p, n] : {std::pair<int64_t, int64_t>{2, 1000},
                             {5, 1000},
                             {10, 1000},
                             {33, 300},
                             {63, 300},
                             {64, 300},
                             {100, 100},
                             {128, 100},
                             {200, 100},
                             {1000, 20},
                             {10, 100'000}}) {
    const auto x = normal_values<T>(p * n), w = normal_values<T>(n, 2);
    for (const bool weighted : {false, true}) {
      TaskOf<T> task(p, n, ORVIK_SS_STORAGE_COLUMNS, x.data(), weighted ? w.data() : nullptr);
      std::vector<T> low(p), high(p);
      task.set(OrvikSS_minimum, low.data());
      task.set(OrvikSS_maximum, high.data());
      const int64_t calls = std::max<int64_t>(1, 100'000 / (p * n));
      const auto line = [&](const char* what, auto call) {
        const auto of_width = [&](bool wide) {
          return [&, wide] {
            serv::wide_registers = wide;
            for (int64_t k = 0; k < calls; ++k) call();
          };
        };
        std::vector<Candidate> both = {{"wide", of_width(true)}, {"narrow", of_width(false)}};
        rounds(both, 101);
        const double units = 1e-9 * static_cast<double>(calls * p * n);
        printf("| %s%s, %s, p = %d, n = %d | %.4g | %.4g | %.2f |\n", weighted ? "weighted " : "", what,
               sizeof(T) == 4 ? "float" : "double", static_cast<int>(p), static_cast<int>(n), both[0].best / units,
               both[1].best / units, both[1].best / both[0].best);
        fflush(stdout);
      };
      line("mean, fast", [&] { task.basic(ORVIK_SS_MEAN, 1); });
      line("mean, variance, fast", [&] { task.basic(kVariance, 1); });
      line("four moments, fast", [&] { task.basic(kFour, 1); });
      line("mean, one pass", [&] { task.basic(ORVIK_SS_MEAN, 2); });
      line("mean, variance, one pass", [&] { task.basic(kVariance, 2); });
      line("four moments, one pass", [&] { task.basic(kFour, 2); });
      if (!weighted) line("minimum, maximum", [&] { Entries<T>::minmax(task.get(), kExtremes, 1); });
    }
  }
}

}  // namespace

int main() {
  if (!serv::wide_registers) return puts("No registers of 512 bits, or they are not used."), 0;
  puts("| what | wide, ns | narrow, ns | narrow / wide |\n|---|---|---|---|");
  shapes<double>();
  shapes<float>();
}
