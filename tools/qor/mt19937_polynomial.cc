// Prints the exponents of the characteristic polynomial of MT19937: the minimal polynomial of the lowest output bit,
// by the algorithm of Berlekamp and Massey (1969) on twice as many bits as its degree. Takes a second.
//
//   mt19937_polynomial > src/qor/brng/mt19937_polynomial.inc
#include <cstdio>
#include <random>

#include "qor/support/berlekamp_massey.h"

int main() {
  std::mt19937 source(5489);
  std::vector<bool> bits(2 * 19937);
  for (size_t i = 0; i < bits.size(); ++i) bits[i] = source() & 1;
  const std::vector<uint32_t> exponents = orvik::support::minimal_polynomial(bits);
  std::printf("// Written by tools/qor/mt19937_polynomial.cc.\n");
  for (size_t i = 0; i < exponents.size(); ++i)
    std::printf("%u,%c", exponents[i], i % 16 == 15 || i + 1 == exponents.size() ? '\n' : ' ');
}
