// What it costs to spread work over machines: bench_machines [SECONDS]. Jumps of each generator, and sending and
// merging summaries. Two tables in Markdown.
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "orvik/front.hpp"
#include "support/paired.h"

namespace {

using orvik::Generator;
using orvik::Layout;
using orvik::Stream;
using orvik::Summary;

constexpr struct {
  const char* name;
  Generator generator;
  int members;
} kGenerators[] = {{"PHILOX4X32X10", Generator::PHILOX4X32X10, 1},
                   {"ARS5", Generator::ARS5, 1},
                   {"MRG32K3A", Generator::MRG32K3A, 1},
                   {"MT19937", Generator::MT19937, 1},
                   {"SFMT19937", Generator::SFMT19937, 1},
                   {"MT2203", Generator::MT2203, 6024},
                   {"WH", Generator::WH, 273},
                   {"MCG59", Generator::MCG59, 1},
                   {"MCG31M1", Generator::MCG31M1, 1},
                   {"R250", Generator::R250, 1},
                   {"SOBOL", Generator::SOBOL, 1}};

// Microseconds of a jump, or that there is none.
template <class Jump>
void cell(double seconds, const Stream& stream, const Jump& jump) {
  try {
    Stream tried = stream.copy();
    jump(tried);
  } catch (const orvik::Error&) {
    std::printf(" none |");
    return;
  }
  Stream moved = stream.copy();
  orvik::bench::Paired paired;
  paired.add("jump", [&](int64_t turns) {
    for (int64_t k = 0; k < turns; ++k) jump(moved);
  });
  std::printf(" %.3g |", paired.measure(seconds)[0] / 1000);
}

void jumps(double seconds) {
  std::printf("| generator | members | image, bytes | skip 10^6, us | skip 2^40, us | skip 2^100, us | leapfrog |\n");
  std::printf("|---|---|---|---|---|---|---|\n");
  for (const auto& g : kGenerators) {
    const Stream stream(g.generator, 1);
    std::printf("| %s | %d | %zu |", g.name, g.members, stream.save().size());
    // Points come to their end: of these the jump begins anew each time.
    const bool ends = g.generator == Generator::SOBOL;
    const auto skip = [&](uint64_t count) {
      return [&stream, count, ends](Stream& s) {
        if (ends) s = stream.copy();
        s.skip(count);
      };
    };
    cell(seconds, stream, skip(1000000));
    cell(seconds, stream, skip(uint64_t{1} << 40));
    static constexpr uint64_t kFar[] = {0, uint64_t{1} << 36};
    cell(seconds, stream, [](Stream& s) { s.skip_long(kFar); });
    bool leaps = true;
    try {
      stream.copy().leapfrog(1, 3);
    } catch (const orvik::Error&) {
      leaps = false;
    }
    std::printf(" %s |\n", leaps ? "yes" : "none");
  }
}

void summaries(double seconds) {
  std::printf("\n| variables | image, bytes | save and load, us | merge, us | as an update by observations |\n");
  std::printf("|---|---|---|---|---|\n");
  for (const int64_t p : {1, 3, 10, 30, 100, 300, 1000}) {
    constexpr int64_t n = 20000;
    std::vector<double> x(static_cast<size_t>(n * p));
    Stream stream;
    orvik::normal(stream, x);
    Summary<double> to(p), from(p), fed(p);
    from.update(std::span(x).first(static_cast<size_t>(1000 * p)), 1000, Layout::Columns);
    to.merge(from);
    orvik::bench::Paired paired;
    paired.add("sent", [&](int64_t turns) {
      for (int64_t k = 0; k < turns; ++k) Summary<double>::load(from.save());
    });
    paired.add("merge", [&](int64_t turns) {
      for (int64_t k = 0; k < turns; ++k) to.merge(from);
    });
    paired.add("update", [&](int64_t turns) {
      for (int64_t k = 0; k < turns; ++k) fed.update(x, n, Layout::Columns);
    });
    const std::vector<double> t = paired.measure(seconds);
    std::printf("| %lld | %zu | %.3g | %.3g | %.2g |\n", static_cast<long long>(p), from.save().size(), t[0] / 1000,
                t[1] / 1000, t[1] / (t[2] / n));
  }
}

}  // namespace

int main(int argc, char** argv) {
  const double seconds = argc > 1 ? std::atof(argv[1]) : 0.3;
  orvik::set_num_threads(1);
  jumps(seconds);
  summaries(seconds);
  return 0;
}
