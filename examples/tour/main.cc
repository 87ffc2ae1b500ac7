// A tour of the library on the columns of a CSV file.
#include <cstdio>
#include <string>

#include "attempt.h"
#include "csv.h"
#include "sections.h"

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fputs("usage: tour file.csv\n", stderr);
    return 2;
  }
  tour::Table table;
  std::string error;
  if (!tour::read_csv(argv[1], &table, &error)) {
    std::fprintf(stderr, "tour: %s\n", error.c_str());
    return 2;
  }
  for (const tour::Section& section : tour::kSections) {
    std::printf("\n%s\n%s\n", section.title, std::string(std::string(section.title).size(), '=').c_str());
    tour::attempt(section.title, [&] { section.show(table); });
  }
  return 0;
}
