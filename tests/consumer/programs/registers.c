/* Prints the width of the registers in use and the results of a call that takes them all. For any x86-64 processor. */
#include <orvik/orvik.h>
#include <stdio.h>
#include <string.h>

int main(void) {
  double a[100], r[100];
  unsigned long long sum = 0;
  int i;
  for (i = 0; i < 100; ++i) a[i] = 0.01 * (i + 1);
  _zymdExp(100, a, r);
  for (i = 0; i < 100; ++i) {
    unsigned long long bits;
    memcpy(&bits, &r[i], sizeof bits);
    sum = sum * 31 + bits;
  }
  printf("%d bits\nsum %llx\n", (int)orvik_register_bits(), sum);
  return 0;
}
