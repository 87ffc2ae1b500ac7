// Two builds of the library in one process, to judge a change of kernels, of the compiler or of its options: a line of
// CSV for every kernel and length with nanoseconds per element and their ratio, then the geometric mean of the ratios.
//
//   zym_builds OLD.so NEW.so [--rows PATTERNS] [--seconds S] [N...]
#include <dlfcn.h>

#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

#include "tools/rows/list.h"
#include "zym/compare.h"
#include "zym/options.h"

namespace {

using namespace orvik;

// The entry of a row in another build, by the name that it has in this one. Null: not there.
void* same_entry(void* library, void* entry) {
  Dl_info info;
  return entry != nullptr && dladdr(entry, &info) != 0 && info.dli_sname != nullptr ? dlsym(library, info.dli_sname)
                                                                                   : nullptr;
}

}  // namespace

int main(int argc, char** argv) {
  const bench::Options options(argc, argv, 0.05, {1000});
  std::vector<void*> builds;
  for (const char* path : options.others) {
    // Its references bind to itself, not to the library that this program is linked with.
    void* const library = dlopen(path, RTLD_NOW | RTLD_LOCAL | RTLD_DEEPBIND);
    if (library == nullptr) {
      std::fprintf(stderr, "%s\n", dlerror());
      return 1;
    }
    builds.push_back(library);
  }
  if (builds.size() != 2 || builds[0] == builds[1]) {
    std::fprintf(stderr, "zym_builds OLD.so NEW.so [--rows PATTERNS] [--seconds S] [N...]\n");
    return 2;
  }
  double logarithms = 0;
  int count = 0;
  std::printf("row,level,n,old,new,ratio\n");
  for (const rows::Row& row : rows::all()) {
    if (!row.built() || row.shape == rows::Shape::pack || !rows::matches(options.patterns, row.name)) continue;
    for (int level = 0; level < rows::kLevels; ++level) {
      if (row.kernel(level) != level) continue;
      for (const int32_t n : options.lengths) {
        const bench::Operands operands(row, n, 1, 16);  // as malloc gives them
        bench::Paired paired;
        bool both = true;
        for (void* build : builds) {
          void* const entry = same_entry(build, row.entries[0][level]);
          both = both && entry != nullptr;
          if (entry != nullptr) paired.add("", bench::repeat_entry(row, entry, false, operands, n));
        }
        if (!both) continue;
        const std::vector<double> times = paired.measure(options.seconds);
        std::printf("%s,%s,%d,%.4f,%.4f,%.3f\n", std::string(row.name).c_str(), rows::kLevelNames[level], n,
                    times[0] / n, times[1] / n, times[0] / times[1]);
        std::fflush(stdout);
        logarithms += std::log(times[0] / times[1]);
        ++count;
      }
    }
  }
  if (count > 0) std::printf("geometric mean,,,,,%.4f\n", std::exp(logarithms / count));
  return count > 0 ? 0 : 1;
}
