// What a call of the front costs over the kernel's own, and what threads bring: bench_front [SECONDS]. Turns are
// interleaved and the fastest counts. Ends with status 1 where a one-threaded call of a small array costs more than 25
// ns over the kernel's.
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "orvik/front.h"
#include "orvik/orvik.h"
#include "support/paired.h"

namespace {

using Front = orvik_status (*)(int64_t, const double*, double*, orvik_math_options*);
using Kernel = void (*)(int32_t, const double*, double*);
struct Function {
  const char* name;
  Front front;
  Kernel kernel;
};
constexpr Function kFunctions[] = {{"abs", orvik_dabs, _zymdAbs},
                                   {"exp", orvik_dexp, _zymdExp},
                                   {"ln", orvik_dln, _zymdLn},
                                   {"sin", orvik_dsin, _zymdSin},
                                   {"erf", orvik_derf, _zymdErf}};

double overhead(const Function& f, int64_t n, double seconds) {
  std::vector<double> a(static_cast<size_t>(n), 0.7), r(a);
  orvik_math_options one = {ORVIK_HA, 1, nullptr, 0, 0};
  orvik::bench::Paired paired;
  paired.add("kernel", [&](int64_t turns) {
    for (int64_t k = 0; k < turns; ++k) f.kernel(static_cast<int32_t>(n), a.data(), r.data());
  });
  paired.add("front", [&](int64_t turns) {
    for (int64_t k = 0; k < turns; ++k) f.front(n, a.data(), r.data(), &one);
  });
  const std::vector<double> t = paired.measure(seconds);
  std::printf("| %s | %lld | %.1f | %.1f | %.1f |\n", f.name, static_cast<long long>(n), t[0], t[1], t[1] - t[0]);
  return t[1] - t[0];
}

void threads(const Function& f, double seconds) {
  for (int64_t n = 1; n <= 10000000; n *= 10) {
    std::vector<double> a(static_cast<size_t>(n), 0.7), r(a);
    orvik::bench::Paired paired;
    for (const int32_t count : {1, 2, 0}) {
      paired.add("front", [&, count](int64_t turns) {
        orvik_math_options o = {ORVIK_HA, count, nullptr, 0, 0};
        for (int64_t k = 0; k < turns; ++k) f.front(n, a.data(), r.data(), &o);
      });
    }
    const std::vector<double> t = paired.measure(seconds);
    std::printf("| %s | %lld | %.4g | %.2f | %.2f |\n", f.name, static_cast<long long>(n), t[0], t[0] / t[1],
                t[0] / t[2]);
  }
}

}  // namespace

int main(int argc, char** argv) {
  const double seconds = argc > 1 ? std::atof(argv[1]) : 0.3;
  std::printf("One thread, ns a call:\n\n| function | n | kernel | front | more |\n|---|---|---|---|---|\n");
  bool slow = false;
  for (const Function& f : kFunctions) {
    for (const int64_t n : {1, 10, 1000}) slow |= overhead(f, n, seconds) > 25 && n < 1000;
  }
  std::printf(
      "\nThreads, gain over one:\n\n| function | n | one, ns | two | as many as pay |\n|---|---|---|---|---|\n");
  for (const Function& f : kFunctions) threads(f, seconds);
  return slow ? 1 : 0;
}
