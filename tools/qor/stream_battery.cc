// Statistical tests of every generator in every output form.
//
//   stream_battery [SCALE [SEED [GENERATOR]]]      sizes are SCALE times those of the short form (default 20)
//
// Prints a p-value a line; those outside 10^-4 .. 1 - 10^-4 are marked. About one line in 5,000 is marked by chance.
// Quasi-random points are not meant to pass: docs/streams.md says what fails what.
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "battery.h"

int main(int argc, char** argv) {
  using namespace orvik::battery;
  const int64_t scale = argc > 1 ? std::atoll(argv[1]) : 20;
  const uint32_t seed = argc > 2 ? static_cast<uint32_t>(std::strtoul(argv[2], nullptr, 0)) : 1;
  if (scale < 1) {
    std::fprintf(stderr, "usage: stream_battery [SCALE [SEED [GENERATOR]]]\n");
    return 2;
  }
  std::printf("%-14s %-8s %-20s %12s %10s\n", "generator", "form", "test", "size", "p");
  int marked = 0;
  for (const Generator& g : generators())
    for (const Form form : {Form::words, Form::floats, Form::doubles}) {
      if (argc > 3 && std::strcmp(argv[3], g.name) != 0) continue;
      for (const Test& t : tests()) {
        Source source = make_source(g.brng, seed, form);
        if (!source.next) continue;
        const double p = t.run(source, t.size * scale);
        const bool bad = p < 1e-4 || p > 1 - 1e-4;
        marked += bad;
        std::printf("%-14s %-8s %-20s %12lld %10.6f%s\n", g.name, name_of(form), t.name,
                    static_cast<long long>(t.size * scale), p, bad ? "  <--" : "");
        std::fflush(stdout);
      }
    }
  std::printf("%d marked\n", marked);
  return 0;
}
