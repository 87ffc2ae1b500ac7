// Runs a command where the processor has registers of 512 bits; elsewhere says so and ends with 77, which CTest counts as
// skipped.
#include <unistd.h>

#include <cstdio>

#include "serv/processor.h"

int main(int count, char** arguments) {
  if (count < 2) return 2;
  if (!orvik::serv::has_wide_registers(orvik::serv::read_processor())) {
    std::printf("no registers of 512 bits here: %s was not run\n", arguments[1]);
    return 77;
  }
  execv(arguments[1], arguments + 1);
  std::perror(arguments[1]);
  return 1;
}
