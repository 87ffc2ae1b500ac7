// Statistics against the libraries of the field, side by side in one run. Prints a Markdown table.
//   bench_ss [moments|covariance|sorting|robust|threads|robust_threads|stream|quartiles|short|shapes|cliffs ...]
#include <cstdio>
#include <cstring>

#include "ss/rounds.h"

namespace orvik::bench {
void moments();
void covariance();
void sorting();
void robust();
void two_threads();
void robust_threads();
void stream();
void quartiles();
void short_data();
void all_shapes();
void all_cliffs();
}  // namespace orvik::bench

int main(int argc, char** argv) {
  using namespace orvik::bench;
  const struct {
    const char* name;
    void (*run)();
  } parts[] = {{"moments", moments},   {"covariance", covariance}, {"sorting", sorting},
               {"robust", robust},     {"threads", two_threads},   {"robust_threads", robust_threads},
               {"stream", stream},     {"quartiles", quartiles},   {"short", short_data},
               {"shapes", all_shapes}, {"cliffs", all_cliffs}};
  printf("| what | orvik, ns | peer | peer, ns | peer / orvik |\n|---|---|---|---|---|\n");
  for (const auto& part : parts) {
    bool wanted = argc == 1;
    for (int i = 1; i < argc; ++i) wanted = wanted || strcmp(argv[i], part.name) == 0;
    if (wanted) part.run();
  }
  every_library.print("every library");
  fastest_library.print("the fastest library of each line");
}
