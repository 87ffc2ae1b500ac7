// Writes the integer output of a stream to standard output, for test batteries that read raw numbers.
//
//   stream_raw GENERATOR_ID [SEED [BYTES]] | ...      ids as in orvik/qor.h, for instance 0x1000000; no BYTES: no end
//
// Elements of four bytes are written as they are, those of eight bytes shifted so that their top bits are the random
// ones. MCG31M1 has 31 random bits an element, the top one is 0; WH four times 24, the top bytes are 0.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "orvik/qor.h"

int main(int argc, char** argv) {
  if (argc < 2) {
    std::fprintf(stderr, "usage: stream_raw GENERATOR_ID [SEED [BYTES]]\n");
    return 2;
  }
  const int32_t brng = static_cast<int32_t>(std::strtol(argv[1], nullptr, 0));
  const uint32_t seed = argc > 2 ? static_cast<uint32_t>(std::strtoul(argv[2], nullptr, 0)) : 1;
  uint64_t left = argc > 3 ? std::strtoull(argv[3], nullptr, 0) : UINT64_MAX;
  OrvikStream stream = nullptr;
  RegBrngRow row;
  int32_t status = __qorNewStreamEx(&stream, brng, 1, &seed);
  if (status == 0) status = __qorGetBrngProperties(brng, &row);
  if (status != 0) {
    std::fprintf(stderr, "stream_raw: status %d for generator %s\n", status, argv[1]);
    return 1;
  }
  constexpr int32_t kCount = 1 << 14;
  std::vector<uint64_t> block(2 * kCount);  // of the widest element
  while (left > 0) {
    status = row.iBRng(stream, kCount, block.data());
    if (status != 0) break;
    if (row.WordSize == 8)
      for (uint64_t& w : block) w <<= 64 - row.NBits;
    uint64_t size = static_cast<uint64_t>(kCount) * static_cast<uint64_t>(row.WordSize);
    if (size > left) size = left;
    if (std::fwrite(block.data(), 1, size, stdout) != size) break;  // the reader has had enough
    left -= size;
  }
  __qorDeleteStream(&stream);
  return status == 0 ? 0 : 1;
}
