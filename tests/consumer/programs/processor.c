/* Asks before it calls; "call" calls whatever the answer was. For any x86-64 processor. */
#include <orvik/orvik.h>
#include <stdio.h>
#include <string.h>

int main(int argc, char** argv) {
  const int32_t supported = orvik_cpu_supported();
  printf("supported %d\n", supported);
  fflush(stdout);
  if (supported || (argc > 1 && strcmp(argv[1], "call") == 0)) {
    const double a[5] = {-1, 2, -3, 4, -5};
    double r[5];
    _zymdAbs(5, a, r);
    printf("sum %g\n", r[0] + r[1] + r[2] + r[3] + r[4]);
  }
  return 0;
}
