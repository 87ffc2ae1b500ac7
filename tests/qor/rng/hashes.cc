// rng_hashes: the hashes of all entries of the distributions, for tests/qor/rng/hashes.csv, on standard output.
#include "qor/rng/hashes.h"

int main() {
  for (const auto& [what, hash] : orvik::testing::hashes()) std::printf("%s,%s\n", what.c_str(), hash.c_str());
  return 0;
}
