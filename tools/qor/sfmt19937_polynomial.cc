// Prints the exponents of the characteristic polynomial of SFMT19937, a step being a block of 128 bits: the minimal
// polynomial of the lowest bit of the blocks, by the algorithm of Berlekamp and Massey (1969). Takes a second.
//
//   sfmt19937_polynomial > src/qor/brng/sfmt19937_polynomial.inc
#include <cstdio>

#include "qor/support/berlekamp_massey.h"
#include "qor/support/sfmt.h"

int main() {
  orvik::models::Sfmt source({1234});
  std::vector<bool> bits(2 * 19968 + 64);
  for (size_t i = 0; i < bits.size(); ++i) {
    bits[i] = source() & 1;
    for (int k = 1; k < 4; ++k) source();
  }
  const std::vector<uint32_t> exponents = orvik::support::minimal_polynomial(bits);
  std::printf("// Written by tools/qor/sfmt19937_polynomial.cc.\n");
  for (size_t i = 0; i < exponents.size(); ++i)
    std::printf("%u,%c", exponents[i], i % 16 == 15 || i + 1 == exponents.size() ? '\n' : ' ');
}
