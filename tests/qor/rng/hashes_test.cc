// The bits of all results are pinned: a change is seen and meant. `rng_hashes > tests/qor/rng/hashes.csv` pins them
// anew. They hold on processors whose reciprocal square root estimates are those of the one they were made on.
#include "qor/rng/hashes.h"

#include <fstream>

namespace orvik::testing {
namespace {

TEST(Hashes, AreThosePinned) {
  std::ifstream file(ORVIK_RNG_HASHES);
  ASSERT_TRUE(file) << ORVIK_RNG_HASHES;
  std::map<std::string, std::string> pinned;
  for (std::string line; std::getline(file, line);) {
    const size_t comma = line.rfind(',');
    pinned[line.substr(0, comma)] = line.substr(comma + 1);
  }
  const std::map<std::string, std::string> now = hashes();
  EXPECT_EQ(now.size(), pinned.size());
  for (const auto& [what, hash] : now) EXPECT_EQ(hash, pinned[what]) << what;
}

}  // namespace
}  // namespace orvik::testing
