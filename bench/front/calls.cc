// What a call of the front costs over the kernel's own, objects beside the kernels that they call, and what threads
// bring: bench_front [SECONDS]. Turns are interleaved and the fastest counts. Tables in Markdown; page.py judges them.
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "objects.h"
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

void overhead(const Function& f, int64_t n, double seconds) {
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
}

// call(n, a, r, threads), at ten, and three times ten, to the power of 0 to 7.
template <class Call>
void threads(const char* name, double seconds, const Call& call) {
  for (int power = 0; power <= 14; ++power) {
    const auto n = static_cast<int64_t>(std::pow(10, power / 2) * (power % 2 == 0 ? 1 : 3));
    std::vector<double> a(static_cast<size_t>(n), 0.7), r(a);
    orvik::bench::Paired paired;
    for (const int32_t count : {1, 0}) {
      paired.add("front", [&, count](int64_t turns) {
        for (int64_t k = 0; k < turns; ++k) call(n, a.data(), r.data(), count);
      });
    }
    const std::vector<double> t = paired.measure(seconds);
    std::printf("| %s | %lld | %.4g | %.4g | %.2f |\n", name, static_cast<long long>(n), t[0] / 1000, t[1] / 1000,
                t[0] / t[1]);
  }
}

}  // namespace

int main(int argc, char** argv) {
  const double seconds = argc > 1 ? std::atof(argv[1]) : 0.3;
  std::printf("| one thread | n | kernel, ns | front, ns | more, ns |\n|---|---|---|---|---|\n");
  for (const Function& f : kFunctions) {
    for (const int64_t n : {1, 10, 1000}) overhead(f, n, seconds);
  }
  std::printf("\n");
  compare_objects(seconds);
  orvik_set_num_threads(2);
  std::printf("\n| two threads | n | one, us | as many as pay, us | gain |\n|---|---|---|---|---|\n");
  for (const Function& f : kFunctions) {
    threads(f.name, seconds, [&](int64_t n, const double* a, double* r, int32_t count) {
      orvik_math_options o = {ORVIK_HA, count, nullptr, 0, 0};
      f.front(n, a, r, &o);
    });
  }
  threads("pow", seconds, [](int64_t n, const double* a, double* r, int32_t count) {
    orvik_math_options o = {ORVIK_HA, count, nullptr, 0, 0};
    orvik_dpow(n, a, a, r, &o);
  });
  orvik_stream* stream = nullptr;
  if (orvik_stream_new(&stream, ORVIK_PHILOX4X32X10, 1) < 0) return 1;
  threads("Gaussian", seconds, [&](int64_t n, const double*, double* r, int32_t count) {
    orvik_d_gaussian_threads(stream, n, r, 0, 1, ORVIK_GAUSSIAN_INVERSE, count);
  });
  orvik_stream_delete(stream);
  return 0;
}
